// The statements of a script, over an installation of two small database files.
#include "operator/databases.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "operator/operator.h"
#include "platform/ado/ado.h"
#include "platform/os/paths.h"
#include "startup/run_context.h"

namespace kalvane {
namespace {

void create(const std::string& native, const std::vector<std::string>& statements) {
    ado::Connection connection;
    connection.Open("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" + os::program_path(native) + ";",
                    ado::Access::owner);
    for (const std::string& sql : statements) connection.Execute(sql);
    connection.Close();
}

struct Installation : testing::Test {
    std::filesystem::path root;

    Installation() {
        std::string name = testing::TempDir() + "kalvane-operator-XXXXXX";
        root = mkdtemp(name.data());
        for (const char* folder : {"conf", "data", "prgbin"})
            std::filesystem::create_directory(root / folder);
        const std::string data = (root / "data/kalvane.accdb").string();
        create(
            (root / "conf/usrcnfg.accdb").string(),
            {"CREATE TABLE データベース定義 (情報種類 TEXT, db TEXT, プロバイダ名 TEXT, ユーザーID TEXT, "
             "パスワード TEXT, データソース名 TEXT, サーバー名 TEXT, データベース名 TEXT)",
             "INSERT INTO データベース定義 VALUES ('GNR', 'A', 'Microsoft.ACE.OLEDB.12.0', NULL, NULL, '" +
                 os::program_path(data) + "  ', NULL, NULL)",
             "CREATE TABLE プログラム連携情報 (発信日時 TEXT, 発信プログラムID TEXT, 受信プログラムID TEXT, "
             "受信期限 TEXT, 連携区分 TEXT, 起動連携情報 TEXT, 終了連携情報 TEXT, 運用事業所コード TEXT, "
             "起動担当者コード TEXT, ユーザID TEXT)"});
        create(data, {"CREATE TABLE M (コード TEXT, 数 NUMERIC, 名 TEXT)"});
        実行環境.設定フォルダ.clear();
    }
    ~Installation() override { std::filesystem::remove_all(root); }

    std::string out, err;
    int run(const std::string& text) {
        const OperatedProgram program;
        ScriptRun run;
        run.text = text;
        run.file = "s";
        run.program_path = (root / "prgbin/KalvaneInvoiceEntry").string();
        run.program = &program;
        std::ostringstream printed, complaints;
        const int status = run_script(run, printed, complaints);
        out = printed.str();
        err = complaints.str();
        return status;
    }
};

TEST_F(Installation, RowsArePrintedAndCompared) {
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

TEST_F(Installation, AFailingStatementIsAWrongScript) {
    EXPECT_EQ(run("exec main \"INSERT INTO 無い表 VALUES (1)\""), script_wrong);
    EXPECT_EQ(run("sql config \"SELECT\""), script_wrong);
    std::filesystem::remove_all(root / "conf");
    EXPECT_EQ(run("sql main \"SELECT 1\""), script_wrong);
    EXPECT_EQ(err.find("s:1: "), 0u);
}

TEST_F(Installation, TheNewestRequestIsAnswered) {
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
