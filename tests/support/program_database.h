// The two databases of an installation without content under the program's connections, a fresh document, and
// a record of what went to the business database and was shown to the operator.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/query.h"
#include "platform/os/clock.h"
#include "platform/os/process.h"
#include "platform/screen/host.h"
#include "setup/seed.h"
#include "support/members.h"
#include "support/table.h"
#include "support/temp_folder.h"

namespace kalvane {

struct ProgramDatabase : testing::Test {
    test::TempFolder folder;
    static inline std::vector<std::string> boxes;
    std::vector<std::string> statements;  // on 主接続
    std::string failing;                  // statements that begin with this fail; "" for none

    void SetUp() override {
        実行環境 = RunContext();
        fresh_document();
        実行環境.db = "A";
        実行環境.事業所コード = "000";
        実行環境.プログラムフォルダ = "C:\\k\\prgbin";
        open(実行環境.主接続, "main.accdb", setup::main_database);
        open(実行環境.設定接続, "config.accdb", setup::config_database);
        put("G消費税", "施行日 消費税率", "19890401|3\n19970401|5\n20140401|8\n20191001|10");
        boxes.clear();
        host = {};
        host.message_box = [](const std::string& text, Buttons, bool) {
            boxes.push_back(text);
            return true;
        };
        ado::hook.before = [this](const ado::Connection& c, std::string_view sql) {
            if (&c != &実行環境.主接続) return;
            statements.emplace_back(sql);
            if (!failing.empty() && sql.starts_with(failing)) throw ado::Error(1, "locked");
        };
    }
    void TearDown() override {
        ado::hook = {};
        host = {};
        os::launcher = nullptr;
        os::release_clock();
        static_cast<RunContext::Recordsets&>(実行環境.recordsets) = {};
        実行環境.主接続.Close();
        実行環境.設定接続.Close();
        実行環境 = RunContext();
    }

    // A new document on a day of 10 per cent, 8 before, with that many fresh lines.
    static void fresh_document(int lines = 0) {
        請求ヘッダ = HeaderRecord();
        請求ヘッダ.営業請求日付 = "20240401";
        for (LineRecord& line : 請求明細行.lines) line = LineRecord();
        実行環境.最終行 = static_cast<std::int16_t>(lines - 1);
        実行環境.現在行 = 0;
        実行環境.入力変更あり = false;
        実行環境.売上金額丸め方法 = 実行環境.仕入金額丸め方法 = 0;
    }

    static void run(const std::string& sql) { 実行環境.主接続.Execute(sql); }
    // Rows parted by line ends, values by "|"; other columns are '' or 0.
    static void put(std::string_view table, std::string_view columns, std::string_view rows) {
        setup::insert_seed(実行環境.主接続, {table, columns, rows});
    }
    // The first column of the first row, "(none)" without a row.
    static std::string value(const std::string& sql, ado::Connection& connection = 実行環境.主接続) {
        ado::Recordset rs;
        rs.Open(sql, connection);
        const std::string text = rs.Eof() ? "(none)" : rs.at(0).text();
        rs.Close();
        return text;
    }
    static std::string error_rows() {
        return value("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー %'", 実行環境.設定接続);
    }

  private:
    void open(ado::Connection& connection, const char* file, setup::Database database) {
        connection.Open("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" + folder.program(file),
                        ado::Access::owner);
        for (const setup::SchemaObject& object : setup::schema_objects(database))
            connection.Execute(object.sql);
    }
};

}  // namespace kalvane
