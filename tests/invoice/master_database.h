// The databases of an installation without content, a fresh document, and a record of the statements that
// went to the business database.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/format.h"
#include "base/text.h"
#include "invoice/document.h"
#include "platform/ado/ado.h"
#include "setup/schema.h"
#include "setup/seed.h"
#include "startup/run_context.h"
#include "support/temp_folder.h"

namespace kalvane {

struct MasterDatabase : testing::Test {
    test::TempFolder folder;
    std::vector<std::string> statements;  // on 主接続
    bool failing = false;                 // every one of them fails

    void SetUp() override {
        fresh_document();
        実行環境.db = "A";
        実行環境.事業所コード = "000";
        open(実行環境.主接続, folder.program("kalvane.accdb"), setup::main_database);
        open(実行環境.設定接続, folder.program("usrcnfg.accdb"), setup::config_database);
        put("G消費税", "施行日 消費税率", "19890401|3\n19970401|5\n20140401|8\n20191001|10");
        ado::hook.before = [this](const ado::Connection& c, std::string_view sql) {
            if (&c != &実行環境.主接続) return;
            statements.emplace_back(sql);
            if (failing) throw ado::Error(1, "locked");
        };
    }

    void TearDown() override {
        ado::hook = {};
        static_cast<RunContext::Recordsets&>(実行環境.recordsets) = {};
        実行環境.主接続.Close();
        実行環境.設定接続.Close();
        実行環境 = RunContext();
    }

    // A new document on a day of 10 per cent, 8 before.
    static void fresh_document() {
        請求ヘッダ = HeaderRecord();
        請求ヘッダ.営業請求日付 = "20240401";
        請求明細行 = LineArray();
        実行環境.最終行 = -1;
        実行環境.入力変更あり = false;
    }

    // Rows parted by line ends, values by "|"; other columns are '' or 0.
    static void put(std::string_view table, std::string_view columns, std::string_view rows) {
        setup::insert_seed(実行環境.主接続, {table, columns, rows});
    }
    static void run(const std::string& sql) { 実行環境.主接続.Execute(sql); }

    long tax_reads() const {
        return std::ranges::count_if(statements,
                                     [](const std::string& s) { return contains(s, "FROM G消費税"); });
    }

  private:
    static void open(ado::Connection& connection, const std::string& path, setup::Database database) {
        connection.Open("Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=" + path,
                        ado::Access::owner);
        for (const std::string& sql : setup::schema_statements(database)) connection.Execute(sql);
    }
};

}  // namespace kalvane
