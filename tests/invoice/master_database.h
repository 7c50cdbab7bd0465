// The databases of an installation without content, a fresh document that is written and read by the names of
// its members, and a record of the statements that went to the business database.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/format.h"
#include "base/text.h"
#include "invoice/columns.h"
#include "platform/ado/ado.h"
#include "setup/schema.h"
#include "setup/seed.h"
#include "support/temp_folder.h"

namespace kalvane {

struct MasterDatabase : testing::Test {
    test::TempFolder folder;
    std::vector<std::string> statements;  // on 主接続
    bool failing = false;                 // every one of them fails

    void SetUp() override {
        実行環境 = RunContext();
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

    // Rows parted by line ends, values by "|"; other columns are '' or 0.
    static void put(std::string_view table, std::string_view columns, std::string_view rows) {
        setup::insert_seed(実行環境.主接続, {table, columns, rows});
    }

    // --- "member=value member=value": of line i, of the head, or of the run context
    static void set(std::string_view text, int i = 0) {
        for (std::string_view pair : setup::words(text)) {
            const std::size_t mark = pair.find('=');
            const std::string value(pair.substr(mark + 1));
            const Member m = member(pair.substr(0, mark), i);
            if (auto s = std::get_if<std::string*>(&m)) **s = value;
            if (auto d = std::get_if<std::int16_t*>(&m)) **d = to_i16(value);
            if (auto c = std::get_if<通貨*>(&m)) **c = to_currency(value);
            if (auto b = std::get_if<bool*>(&m)) **b = value == "1";
        }
    }
    // What stands in the members that the text names, in the same form.
    static std::string seen(std::string_view text, int i = 0) {
        std::string result;
        for (std::string_view pair : setup::words(text)) {
            const std::string_view name = pair.substr(0, pair.find('='));
            const Member m = member(name, i);
            result.append(result.empty() ? "" : " ").append(name) += "=";
            if (auto s = std::get_if<std::string*>(&m)) result += **s;
            if (auto d = std::get_if<std::int16_t*>(&m)) result += std::to_string(**d);
            if (auto c = std::get_if<通貨*>(&m)) result += plain_number(**c);
            if (auto b = std::get_if<bool*>(&m)) result += **b ? "1" : "0";
        }
        return result;
    }

  private:
    using Member = std::variant<std::string*, std::int16_t*, 通貨*, bool*>;

    static Member member(std::string_view name, int i) {
        LineRecord& line = 請求明細行[i];
        HeaderRecord& head = 請求ヘッダ;
        for (const LineColumn& c : line_columns)
            if (c.name == name && !c.head) {
                if (c.text) return &(line.*c.text);
                if (c.digit) return &(line.*c.digit);
                if (c.money) return &(line.*c.money);
            }
        for (const HeaderColumn& c : header_columns)
            if (c.name == name) {
                if (c.text) return &(head.*c.text);
                if (c.digit) return &(head.*c.digit);
                if (c.money) return &(head.*c.money);
            }
        const std::pair<std::string_view, Member> others[] = {
            {"担当者名", &head.担当者名},
            {"部門名", &head.部門名},
            {"セクション名", &head.セクション名},
            {"計算消費税合計", &head.計算消費税合計},
            {"売上課税外税額", &head.売上課税外税額},
            {"売上課税内税額", &head.売上課税内税額},
            {"売上旧税外税額", &head.売上旧税外税額},
            {"売上旧税内税額", &head.売上旧税内税額},
            {"売上非課税額", &head.売上非課税額},
            {"仕入課税外税額", &head.仕入課税外税額},
            {"仕入課税内税額", &head.仕入課税内税額},
            {"仕入旧税外税額", &head.仕入旧税外税額},
            {"仕入旧税内税額", &head.仕入旧税内税額},
            {"仕入非課税額", &head.仕入非課税額},
            {"売上金額丸め方法", &実行環境.売上金額丸め方法},
            {"仕入金額丸め方法", &実行環境.仕入金額丸め方法},
            {"入力変更あり", &実行環境.入力変更あり},
            {"案内メッセージ", &実行環境.案内メッセージ},
        };
        for (const auto& [other, pointer] : others)
            if (other == name) return pointer;
        throw std::logic_error("no member " + std::string(name));
    }

    static void open(ado::Connection& connection, const std::string& path, setup::Database database) {
        connection.Open("Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=" + path,
                        ado::Access::owner);
        for (const std::string& sql : setup::schema_statements(database)) connection.Execute(sql);
    }
};

}  // namespace kalvane
