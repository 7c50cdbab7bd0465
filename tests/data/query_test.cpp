// The query helpers, the texts of their statements, and the rows that they leave in the run history.
#include "data/query.h"

#include <functional>
#include <map>

#include "base/text.h"
#include "data/history_row.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

TEST(文, 引用符とゼロ) {
    for (const auto& r : table("O'Neil  |O''Neil ; ''x'|''''x'' ; 全角　\t |全角　\t"))
        EXPECT_EQ(引用符二重化(r[0]), r[1]);
    EXPECT_EQ(引用符二重化("   ") + 引用符二重化("  a b "), "  a b");
    EXPECT_EQ(ゼロ文字列(3) + "|" + ゼロ文字列(1) + "|" + ゼロ文字列(0) + "|" + ゼロ文字列(-5), "000|0||");
}

// Values read back as they were, whatever they hold.
TEST(文, 値) {
    const Installation at(setup::Content::empty);
    const std::string odd[] = {"O'Neil ", "''", "", std::string("a\0'b ", 5)};
    for (const std::string& value : odd) EXPECT_EQ(at.main("SELECT " + literal(value) + " AS v"), value);
    EXPECT_EQ(literals({"a", "b'"}), "'a', 'b'''");
    EXPECT_EQ(name_literal(" c' ") + name_literal("  "), "' c'''''");
    EXPECT_EQ(at.main("SELECT " + name_literal(std::string("a\0 ", 3)) + " AS v"), std::string("a\0", 2));
}

// A call by its word, its statement ("~" for a blank at its end), the result, the row behind the start row.
TEST(問合せ, 結果と履歴) {
    ado::Recordset rs;
    const std::map<std::string, std::function<bool(const std::string&)>> calls{
        {"read", [&](const std::string& sql) { return 主DB読込(rs, sql, false); }},
        {"read_logged", [&](const std::string& sql) { return 主DB読込(rs, sql, true); }},
        {"run", [](const std::string& sql) { return 主DB実行(sql); }},
        {"run_logged", [](const std::string& sql) { return 主DB実行(sql, true); }},
        {"config", [&](const std::string& sql) { return 設定DB参照(rs, sql); }},
        {"config_at_start", [&](const std::string& sql) { return 設定DB読込(rs, sql); }},
        {"config_run", [](const std::string& sql) { return 設定DB実行(sql); }},
        {"config_run_logged", [](const std::string& sql) { return 設定DB実行記録(sql); }},
        {"log", [](const std::string& sql) { return 稼動履歴出力記録(sql), true; }}};
    const Installation at(setup::Content::empty);
    Start start(at.root());
    ASSERT_TRUE(start.running());
    // a failing history row must not call itself for ever; the business database has no such test
    for (const auto& r : table(R"(read|SELECT * FROM M担当者 WHERE コード = '00001'|1|
        read_logged|SELECT * FROM M担当者 WHERE コード = '00001'~|1|出力終了 SELECT * FROM M担当者 WHERE \
          コード = '00001'
        read|SELECT * FROM M担当者 WHERE コード = 'x'||
        read_logged|SELECT TOP 1 * FROM M担当者 WHERE コード = 'x'||出力終了 SELECT TOP 1 * FROM M担当者 \
          WHERE コード = 'x'
        read_logged|SELECT * FROM 無い||エラー SELECT * FROM 無いno such table: 無い
        read|||エラー the statement is empty
        run|DELETE FROM 使用状況; DELETE FROM M担当者||エラー DELETE FROM 使用状況; DELETE FROM \
          M担当者text behind the statement
        run|DELETE FROM 使用状況|1|
        run_logged|UPDATE M担当者 SET 氏名 = 'O''Neil '~|1|出力終了 UPDATE M担当者 SET 氏名 = 'O''Neil '
        run_logged|INSERT INTO M担当者 (コード) VALUES ('00001')||エラー INSERT INTO M担当者 (コード) \
          VALUES ('00001')UNIQUE constraint failed: M担当者.コード
        config_at_start|SELECT * FROM Kalvane|1| ; config|SELECT * FROM Kalvane WHERE プログラムID = ''||
        config|SELECT * FROM 無い||エラー SELECT * FROM 無いno such table: 無い
        config_run_logged|DELETE FROM Kalvane|1|出力終了 DELETE FROM Kalvane ; config_run|DELETE FROM Kalvane|1|
        config_run_logged|DELETE FROM 無い||エラー DELETE FROM 無いno such table: 無い
        config_run|DELETE FROM プログラム稼動履歴 WHERE 無い = 1|| ; config|SELECT 無い FROM プログラム稼動履歴||
        read|SELECT * FROM プログラム稼動履歴||エラー SELECT * FROM プログラム稼動履歴no such table: \
          プログラム稼動履歴
        run|DROP TABLE M担当者||エラー DROP TABLE M担当者not authorized
        log|DELETE FROM 未集計情報|1|出力終了 DELETE FROM 未集計情報)")) {
        SCOPED_TRACE(r[0] + " " + r[1]);
        at.config("DELETE FROM プログラム稼動履歴");
        EXPECT_EQ(calls.at(r[0])(Replace(r[1], "~", " ")), r[2] == "1");
        rs.Close();
        EXPECT_EQ(history_of(at), r[3].empty() ? std::vector<std::string>{} : std::vector{r[3]});
    }
    EXPECT_TRUE(Start::boxes.empty());
}

}  // namespace
}  // namespace kalvane
