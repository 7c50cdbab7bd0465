// The statements of a script.
#include "operator/databases.h"

#include <gtest/gtest.h>

#include <sstream>

#include "operator/operator.h"
#include "support/seat.h"

namespace kalvane {
namespace {

struct Databases : testing::Test {
    test::Installation at{setup::Content::empty};
    std::string out, err;
    Databases() { at.main("CREATE TABLE M (コード TEXT, 数 NUMERIC, 名 TEXT)"); }
    int run(const std::string& text) {
        const OperatedProgram program;
        ScriptRun run;
        run.text = text;
        run.file = "s";
        run.program_path = at.root() + "/prgbin/KalvaneInvoiceEntry";
        run.program = &program;
        std::ostringstream printed, complaints;
        const int status = run_script(run, printed, complaints);
        out = printed.str();
        err = complaints.str();
        return status;
    }
};

TEST_F(Databases, RowsArePrintedAndCompared) {
    EXPECT_EQ(run(R"script(exec main "INSERT INTO M VALUES ('001', 12, NULL)"
exec main "INSERT INTO M VALUES ('', 0.5, 'あ|い')"
sql main "SELECT * FROM M ORDER BY コード DESC"
sql main "SELECT TOP 1 [コード] FROM M ORDER BY コード DESC"
sql main "SELECT * FROM M WHERE 1 = 0"
expect-sql main "SELECT コード FROM M ORDER BY コード" "\n001"
expect-sql main "SELECT 数 FROM M WHERE コード = '001'" 13
expect-sql config "SELECT db FROM データベース定義" A
expect-sql main "SELECT * FROM 無い表" x
)script"),
              expectation_failed)
        << err;
    const std::string held = "001|12|NULL\n|0.5|あ|い\n001\n";
    EXPECT_EQ(out.substr(0, held.size()), held);
    EXPECT_NE(out.find("s:7: expected 13, found 12\ns:9: expected x, found the failure "), std::string::npos)
        << out;
}

TEST_F(Databases, AFailingStatementIsAWrongScript) {
    EXPECT_EQ(run("exec main \"INSERT INTO 無い表 VALUES (1)\""), script_wrong);
    EXPECT_EQ(run("sql config \"SELECT\""), script_wrong);
    std::filesystem::remove_all(at.root() + "/conf");
    EXPECT_EQ(run("sql main \"SELECT 1\""), script_wrong);
    EXPECT_EQ(err.find("s:1: "), 0u);
}

TEST_F(Databases, TheNewestRequestIsAnswered) {
    EXPECT_EQ(run(R"script(today 20240401 093005
exec config "INSERT INTO プログラム連携情報 VALUES ('20240401 093000','E','R','20240401 093000','00','old','','000','00001','u')"
exec config "INSERT INTO プログラム連携情報 VALUES ('20240401 093001','E','R','20240401 093001','00','it''s','','000','00001','u')"
exec config "INSERT INTO プログラム連携情報 VALUES ('20240401 093002','E','S','20240401 093002','00','other','','000','00001','u')"
reply R.exe "000'123"
expect-sql config "SELECT * FROM プログラム連携情報 WHERE 連携区分 = '99'" "20240401 093005|E|R|20240401 093005|99|it's|000'123|000|00001|u"
expect-sql config "SELECT 起動連携情報 FROM プログラム連携情報 WHERE 連携区分 = '00' ORDER BY 発信日時" "old\nother"
)script"),
              script_held)
        << out << err;
    EXPECT_EQ(run("reply T x"), script_wrong);
}

}  // namespace
}  // namespace kalvane
