// The query helpers, the texts of their statements, and the rows that they leave in the run history.
#include "data/query.h"

#include <gtest/gtest.h>

#include "data/history_row.h"
#include "startup/start_run.h"

namespace kalvane {
namespace {

using test::history_of;
using test::Installation;
using test::Start;

TEST(文, 引用符とゼロ) {
    struct {
        const char *text, *doubled;
    } const cases[] = {{"", ""},         {"   ", ""},          {"O'Neil  ", "O''Neil"},
                       {"'", "''"},      {"''x'", "''''x''"},  {"  a b ", "  a b"},
                       {"' '", "'' ''"}, {"全角　", "全角　"}, {"a\t ", "a\t"}};
    for (const auto& c : cases) EXPECT_EQ(引用符二重化(c.text), c.doubled) << c.text;
    EXPECT_EQ(ゼロ文字列(3) + "|" + ゼロ文字列(1) + "|" + ゼロ文字列(0) + "|" + ゼロ文字列(-5), "000|0||");
}

struct Call {
    const char* name;
    bool (*call)();
    bool result;
    std::vector<std::string> history;  // behind the start row
};

bool main_read(const char* sql, bool log) {
    ado::Recordset rs;
    const bool found = 主DB読込(rs, sql, log);
    rs.Close();
    return found;
}
bool config_read(bool (*read)(ado::Recordset&, const std::string&), const char* sql) {
    ado::Recordset rs;
    const bool found = read(rs, sql);
    rs.Close();
    rs.Close();
    return found;
}

const Call calls[] = {
    {"read", [] { return main_read("SELECT * FROM M担当者 WHERE コード = '00001'", false); }, true, {}},
    {"read_logged",
     [] { return main_read("SELECT * FROM M担当者 WHERE コード = '00001'  ", true); },
     true,
     {"出力終了 SELECT * FROM M担当者 WHERE コード = '00001'"}},
    {"miss", [] { return main_read("SELECT * FROM M担当者 WHERE コード = 'x'", false); }, false, {}},
    {"miss_logged",
     [] { return main_read("SELECT TOP 1 * FROM M担当者 WHERE コード = 'x'", true); },
     false,
     {"出力終了 SELECT TOP 1 * FROM M担当者 WHERE コード = 'x'"}},
    {"read_failing",
     [] { return main_read("SELECT * FROM 無い", true); },
     false,
     {"エラー SELECT * FROM 無いno such table: 無い"}},
    {"empty_text", [] { return main_read("", false); }, false, {"エラー the statement is empty"}},
    {"two_statements",
     [] { return 主DB実行("DELETE FROM 使用状況; DELETE FROM M担当者"); },
     false,
     {"エラー DELETE FROM 使用状況; DELETE FROM M担当者text behind the statement"}},
    {"run", [] { return 主DB実行("DELETE FROM 使用状況"); }, true, {}},
    {"run_logged",
     [] { return 主DB実行("UPDATE M担当者 SET 氏名 = 'O''Neil ' ", true); },
     true,
     {"出力終了 UPDATE M担当者 SET 氏名 = 'O''Neil '"}},
    {"run_failing",
     [] { return 主DB実行("INSERT INTO M担当者 (コード) VALUES ('00001')", true); },
     false,
     {"エラー INSERT INTO M担当者 (コード) VALUES ('00001')UNIQUE constraint failed: M担当者.コード"}},
    {"config_at_start", [] { return config_read(設定DB読込, "SELECT * FROM Kalvane"); }, true, {}},
    {"config",
     [] { return config_read(設定DB参照, "SELECT * FROM Kalvane WHERE プログラムID = ''"); },
     false,
     {}},
    {"config_failing",
     [] { return config_read(設定DB参照, "SELECT * FROM 無い"); },
     false,
     {"エラー SELECT * FROM 無いno such table: 無い"}},
    {"config_run", [] { return 設定DB実行("DELETE FROM Kalvane"); }, true, {}},
    {"config_run_logged",
     [] { return 設定DB実行記録("DELETE FROM Kalvane"); },
     true,
     {"出力終了 DELETE FROM Kalvane"}},
    {"config_run_failing",
     [] { return 設定DB実行記録("DELETE FROM 無い"); },
     false,
     {"エラー DELETE FROM 無いno such table: 無い"}},
    // a failing history row must not call itself for ever; the business database has no such test
    {"history_run", [] { return 設定DB実行("DELETE FROM プログラム稼動履歴 WHERE 無い = 1"); }, false, {}},
    {"history_read",
     [] { return config_read(設定DB参照, "SELECT 無い FROM プログラム稼動履歴"); },
     false,
     {}},
    {"history_on_main",
     [] { return main_read("SELECT * FROM プログラム稼動履歴", false); },
     false,
     {"エラー SELECT * FROM プログラム稼動履歴no such table: プログラム稼動履歴"}},
    {"schema_change",
     [] { return 主DB実行("DROP TABLE M担当者"); },
     false,
     {"エラー DROP TABLE M担当者not authorized"}},
    {"queue_is_logged",
     [] {
         稼動履歴出力記録("DELETE FROM 未集計情報");
         return true;
     },
     true,
     {"出力終了 DELETE FROM 未集計情報"}},
};

TEST(問合せ, 結果と履歴) {
    const Installation at(setup::Content::empty);
    Start start(at.root());
    ASSERT_TRUE(start.running());
    for (const Call& c : calls) {
        SCOPED_TRACE(c.name);
        at.config("DELETE FROM プログラム稼動履歴");
        EXPECT_EQ(c.call(), c.result);
        EXPECT_EQ(history_of(at), c.history);
    }
    EXPECT_TRUE(Start::boxes.empty());
}

}  // namespace
}  // namespace kalvane
