// Two real database files with the tables that the rules touch, and a record of what was sent to them and
// shown to the operator.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/query.h"
#include "platform/os/clock.h"
#include "platform/os/process.h"
#include "platform/screen/host.h"
#include "startup/run_context.h"
#include "support/temp_folder.h"

namespace kalvane {

struct RulesDatabase : testing::Test {
    test::TempFolder folder;
    static inline std::vector<std::string> boxes;
    std::vector<std::string> statements;  // on 主接続
    std::string failing;                  // statements that begin with this fail; "" for none

    void SetUp() override {
        実行環境 = RunContext();
        実行環境.db = "A";
        実行環境.プログラムフォルダ = "C:\\k\\prgbin";
        open(実行環境.主接続, "main.accdb");
        open(実行環境.設定接続, "config.accdb");
        実行環境.設定接続.Execute(
            "CREATE TABLE プログラム稼動履歴 (実行日付 TEXT, プログラムID TEXT, proccounter TEXT, 摘要 TEXT, "
            "運用事業所コード TEXT, 起動担当者コード TEXT, ユーザID TEXT)");
        for (const char* table : {
                 "G消費税 (施行日 TEXT, 消費税率 NUMERIC)",
                 "A番号情報 (番号ID TEXT PRIMARY KEY, 連番種類 TEXT, 連番 TEXT, 履歴連番 TEXT, "
                 "更新プログラム TEXT)",
                 "A期日別番号情報 (番号ID TEXT, 期日 TEXT, 連番 TEXT, 履歴連番 TEXT)",
                 "A事業所別番号情報 (事業所コード TEXT, 番号ID TEXT, 連番 TEXT, 履歴連番 TEXT)",
                 "A事業所別期日別番号情報 (事業所コード TEXT, 番号ID TEXT, 期日 TEXT, 連番 TEXT, 履歴連番 "
                 "TEXT)",
             })
            run(std::string("CREATE TABLE ") + table);
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
        実行環境.主接続.Close();
        実行環境.設定接続.Close();
        実行環境 = RunContext();
    }

    void run(const std::string& sql) { 実行環境.主接続.Execute(sql); }

    // The first column of the first row, "(none)" without a row.
    std::string value(const std::string& sql, ado::Connection& connection = 実行環境.主接続) {
        ado::Recordset rs;
        rs.Open(sql, connection);
        const std::string text = rs.Eof() ? "(none)" : rs.at(0).text();
        rs.Close();
        return text;
    }

    std::string error_rows() {
        return value("SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー %'", 実行環境.設定接続);
    }

  private:
    void open(ado::Connection& connection, const char* file) {
        connection.Open(
            "Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=" + folder.program(file),
            ado::Access::owner);
    }
};

}  // namespace kalvane
