// The statements of a script, on an installation.
#include "operator/operator.h"
#include "support/seat.h"
#include "support/table.h"

namespace kalvane {
namespace {

struct Databases : testing::Test {
    test::Installation at{setup::Content::empty};
    Databases() { at.main("CREATE TABLE M (コード TEXT, 数 NUMERIC, 名 TEXT)"); }
    ScriptResult run(const std::string& text) const { return run_operator_script(text, at.root()); }
};

TEST_F(Databases, RowsArePrintedAndCompared) {
    const ScriptResult r = run(R"script(exec main "INSERT INTO M VALUES ('001', 12, NULL)"
exec main "INSERT INTO M VALUES ('', 0.5, 'あ|い')"
sql main "SELECT * FROM M ORDER BY コード DESC"
sql main "SELECT TOP 1 [コード] FROM M ORDER BY コード DESC"
sql main "SELECT * FROM M WHERE 1 = 0"
expect-sql main "SELECT コード FROM M ORDER BY コード" "\n001"
expect-sql main "SELECT 数 FROM M WHERE コード = '001'" 13
expect-sql config "SELECT db FROM データベース定義" A
expect-sql main "SELECT * FROM 無い表" x
)script");
    EXPECT_EQ(r.status, expectation_failed) << r.err;
    EXPECT_TRUE(
        r.out.starts_with("001|12|NULL\n|0.5|あ|い\n001\nscript:7: expected 13, found 12\n"
                          "script:9: expected x, found the failure "))
        << r.out;
}

// Another station may lay its hands on tables that the program must not touch.
TEST_F(Databases, TheSchemaMayBeChanged) {
    EXPECT_EQ(run("exec main \"ALTER TABLE M RENAME COLUMN 名 TO 名称\"\nexec main \"DROP TABLE G消費税\"\n"
                  "expect-sql main \"SELECT COUNT(*) FROM sqlite_master WHERE name = 'G消費税'\" 0\n"
                  "expect 得意先消費税算出区分.Max 2\nexpect 得意先消費税算出区分.Min 0")
                  .status,
              script_held);
}

TEST_F(Databases, AFailingStatementIsAWrongScript) {
    EXPECT_EQ(run("exec main \"INSERT INTO 無い表 VALUES (1)\"").status, script_wrong);
    EXPECT_EQ(run("sql config \"SELECT\"").status, script_wrong);
    std::filesystem::remove_all(at.root() + "/conf");
    const ScriptResult r = run("sql main \"SELECT 1\"");
    EXPECT_EQ(r.status, script_wrong);
    EXPECT_EQ(r.err.find("script:1: "), 0u);
}

TEST_F(Databases, TheNewestRequestIsAnswered) {
    for (const auto& r : test::table("00|R|old ; 01|R|it''s ; 02|S|other"))
        at.config("INSERT INTO プログラム連携情報 VALUES ('20240401 0930" + r[0] + "', 'E', '" + r[1] +
                  "', '', '00', '" + r[2] + "', '', '000', '00001', 'u')");
    EXPECT_EQ(run("today 20240401 093005\nreply R.exe \"000'123\"").status, script_held);
    EXPECT_EQ(at.config("SELECT * FROM プログラム連携情報 WHERE 連携区分 = '99'"),
              "20240401 093005|E|R|20240401 093005|99|it's|000'123|000|00001|u");
    EXPECT_EQ(
        at.config("SELECT 起動連携情報 FROM プログラム連携情報 WHERE 連携区分 = '00' ORDER BY 発信日時"),
        "old\nother");
    EXPECT_EQ(run("reply T x").status, script_wrong);
}

}  // namespace
}  // namespace kalvane
