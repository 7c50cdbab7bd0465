// What create, check and pin leave on the disk.
#include <iostream>
#include <map>

#include "installation.h"
#include "platform/os/secrets.h"

namespace kalvane {
namespace {

namespace fs = std::filesystem;
using namespace test;

const std::vector<std::string> database_files{"root/data/kalvane.accdb", "root/data/gnrdb.accdb",
                                              "root/report/repdb.accdb", "root/report/repfrmdb.accdb",
                                              "root/conf/usrcnfg.accdb"};

TEST(Create, LaysDownFoldersDatabasesLinksAndTheManual) {
    const TempFolder folder;
    folder.write("bin/KalvaneOperator", "program");
    folder.write("bin/KalvaneSetup", "program");
    const std::string root = folder.native("root");
    const auto done = command({"create", root, "--empty"}, folder.native("bin"));
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_NE(done.out.find(root), std::string::npos);
    for (const std::string& file : database_files) EXPECT_TRUE(folder.holds(file)) << file;
    EXPECT_TRUE(folder.holds("root/documents"));
    EXPECT_TRUE(folder.holds("root/manual/ＫａｌｖａｎｅＩｎｖｏｉｃｅＥｎｔｒｙ.doc"));
    EXPECT_EQ(fs::read_symlink(root + "/prgbin/KalvaneOperator"), folder.native("bin/KalvaneOperator"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(root + "/prgbin/KalvaneInvoiceEntry")));
}

// What an installation needs before the first document: one company, head office, operator, codes, numbers.
TEST(Create, EmptyInstallation) {
    const Installation empty(setup::Content::empty);
    const std::string root = "C:" + Replace(empty.root(), "/", "\\");
    for (
        const auto& r : table(
            R"(main|ID, 決算月, 決算日, 伝票番号管理区分, 暗証番号有無, 更新実行区分, ドキュメントフォルダ FROM \
          Mユーザ|0001,3,31,0,0,1,@\documents
        main|コード FROM M事業所|000 ; main|COUNT(*) FROM M得意先|0 ; main|COUNT(*) FROM T営業請求|0
        main|コード, 在籍区分, 暗証番号, 操作許可, 処理分類1操作許可 FROM M担当者|00001,0,,0,0
        main|* FROM A番号情報 ORDER BY 番号ID|01110,0,00000000,00000000,/16210,0,00000000,00000000,/\
          16220,0,00000000,00000000,/16240,0,00000000,00000000,/16250,0,00000000,00000000,
        main|施行日, 消費税率 FROM G消費税 ORDER BY 施行日|19890401,3/19970401,5/20140401,8/20191001,10
        config|プログラムID, 処理分類 FROM Kalvane ORDER BY プログラムID|KalvaneInvoiceEntry,1/KalvaneInvoicePrint,2
        config|db, プロバイダ名, データソース名, ユーザーID, パスワード FROM データベース定義 WHERE 情報種類 = \
          'GNR'|A,Microsoft.ACE.OLEDB.12.0,@\data\kalvane.accdb,,
        config|動作環境定義ID, 運用事業所コード, インストール区分, 起動担当者コード FROM 動作環境定義|001,000,0,00001)")) {
        const std::string rows =
            r[0] == "main" ? empty.main("SELECT " + r[1]) : empty.config("SELECT " + r[1]);
        EXPECT_EQ(Replace(Replace(rows, "|", ","), "\n", "/"), Replace(r[2], "@", root)) << r[1];
    }
}

// The position of a code in its list is its value: from the smallest on there is no gap.
TEST(Create, CodeTablesHaveNoGap) {
    for (const auto& r : table(R"(K消費税区分|1|2 ; K消費税算出区分|0|3 ; K請求消費税表示区分|0|1
        K請求合計表示区分|0|1 ; K請求行区分|0|5 ; K取引状況区分|0|3 ; K品区分|0|4 ; K在庫管理区分|0|1
        K取扱状況区分|0|3 ; K在籍区分|0|1 ; K社員区分|0|3 ; K使用状況区分|0|1 ; K稼動状況区分|0|1)"))
        EXPECT_EQ(
            demo().main("SELECT MIN(区分), MAX(区分), MAX(区分) - MIN(区分) - COUNT(*) + 1 FROM " + r[0]),
            r[1] + "|" + r[2] + "|0")
            << r[0];
}

TEST(Create, RefusesASecondTimeAndChangesNothing) {
    const Installation at(setup::Content::empty);
    const auto contents = [&at] {
        std::map<std::string, std::string> all;
        for (const auto& entry : fs::recursive_directory_iterator(at.root())) {
            std::ostringstream content;
            if (entry.is_regular_file()) content << std::ifstream(entry.path()).rdbuf();
            all[entry.path()] = content.str();
        }
        return all;
    };
    for (const bool other_version : {false, true}) {
        if (other_version) at.config("UPDATE セットアップ情報 SET 版 = '99'");
        const auto before = contents();
        const auto refused = command({"create", at.root(), "--demo"});
        EXPECT_EQ(refused.status, 1);
        for (const std::string& part : {std::string(other_version ? "別の版 (99)" : "同じ版"), at.root()})
            EXPECT_NE(refused.err.find(part), std::string::npos) << refused.err;
        EXPECT_EQ(contents(), before);
        EXPECT_EQ(command({"check", at.root()}).status, other_version ? 1 : 0);
    }
}

// A database without a version is what an interrupted run, or somebody else, has left.
TEST(Create, RefusesAForeignDatabase) {
    const TempFolder folder;
    folder.write("root/conf/usrcnfg.accdb", "something else");
    EXPECT_EQ(command({"create", folder.native("root"), "--empty"}).status, 1);
    EXPECT_EQ(folder.read("root/conf/usrcnfg.accdb"), "something else");
    for (const char* root : {"root", "missing"})
        EXPECT_EQ(command({"check", folder.native(root)}).status, 1) << root;
}

// A failure at any statement takes the databases away, and the next attempt goes through.
TEST(Create, FailureLeavesNoDatabase) {
    const TempFolder folder;
    const std::vector<std::string> arguments{"create", folder.native("root"), "--empty"};
    int statements = 0;
    ado::hook.before = [&statements](const ado::Connection&, std::string_view) { ++statements; };
    {
        const TempFolder whole;
        EXPECT_EQ(command({"create", whole.native("root"), "--empty"}).status, 0);
    }
    for (const int at : {1, statements / 3, statements / 2, statements}) {
        ado::hook.before = [n = 0, at](const ado::Connection&, std::string_view) mutable {
            if (++n == at) throw ado::Error(13, "disk full");
        };
        const auto failed = command(arguments);
        ado::hook = {};
        EXPECT_EQ(failed.status, 1) << at;
        EXPECT_NE(failed.err.find("disk full"), std::string::npos) << failed.err;
        for (const std::string& file : database_files) EXPECT_FALSE(folder.holds(file)) << at << " " << file;
    }
    EXPECT_EQ(command(arguments).status, 0);

    const TempFolder blocked;
    blocked.write("root/report", "a file where a folder should be");
    EXPECT_EQ(command({"create", blocked.native("root"), "--empty"}).status, 1);
    EXPECT_FALSE(blocked.holds("root/conf/usrcnfg.accdb"));
}

// The arguments and the status; roots by which the program could not find or name its files are refused too.
TEST(CommandLine, IsRefused) {
    const TempFolder folder;
    for (const auto& r : table(R"(|2 ; remove /r|2 ; create /r|2 ; create /r --full|2 ; check|2
        generate /r --invoices 1 --lines 1|2 ; generate /r --invoices 1 --lines 1 --lines 1|2
        generate /r --invoices 1x --lines 1 --seed 1|2 ; generate /r --invoices 0 --lines 1 --seed 1|2
        generate /r --invoices 1 --lines 999 --seed 1|2 ; generate @/none --invoices 1 --lines 1 --seed 1|1
        create @/PrgBin/x --empty|1 ; create @/a;b --empty|1)",
                               {{"@", folder.native()}})) {
        std::vector<std::string> arguments;
        for (const std::string_view word : setup::words(r[0])) arguments.emplace_back(word);
        const auto outcome = command(arguments);
        EXPECT_EQ(std::to_string(outcome.status), r[1]) << r[0];
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err.find("使い方") != std::string::npos, r[1] == "2") << outcome.err;
    }
}

// --- PINs from standard input into the stored form

// Sets the PIN of whom the words name.
Outcome set(const std::string& root, const std::string& who, const std::string& typed) {
    std::istringstream input(Replace(Replace(typed, "\\r", "\r"), "\\n", "\n"));
    std::streambuf* const former = std::cin.rdbuf(input.rdbuf());
    std::vector<std::string> arguments{"pin", root};
    for (const std::string_view word : setup::words(who)) arguments.emplace_back(word);
    auto outcome = command(arguments);
    std::cin.rdbuf(former);
    std::cin.clear();
    return outcome;
}

// The PIN in the first row of SELECT and the text.
std::string plain(const Installation& at, const char* what) {
    os::set_key_file(os::program_path(at.root() + "/conf/" + os::key_file_name));
    const std::string pin = os::復号(at.main(std::string("SELECT ") + what));
    os::set_key_file("");
    return pin;
}
constexpr const char *first = "暗証番号 FROM M担当者 WHERE コード = '00001'",
                     *second = "暗証番号 FROM M担当者 WHERE コード = '00002'";

// Who, what is typed, the status, and the PINs of the operators 00001 and 00002 and of the site 000.
TEST(PinCommand, StoresOrRefuses) {
    const Installation at(setup::Content::empty);
    at.main("INSERT INTO M担当者 (コード) VALUES ('00002')");
    for (const auto& r : table(R"(00001|abCd\n|0|ABCD,, ; 00002|ab'c d\r\nsecond\n|0|,AB'C D,
        00002|ﾋﾐﾂ秘密|0|,ﾋﾐﾂ秘密, ; --site 000|Site99\n|0|,,SITE99 ; 00009|ABCD\n|1|,, ; 1|ABCD\n|1|,,
        0000'1|ABCD\n|1|,, ; --site 00001|ABCD\n|1|,, ; 00001|ab暗\n|1|,, ; 00001|ab\rcd\n|1|,, ; 00001||1|,, ; |ABCD\n|2|,,
        --site|ABCD\n|2|,, ; 00001 00002|ABCD\n|2|,,)")) {
        SCOPED_TRACE(r[0] + " " + r[1]);
        at.main("UPDATE M担当者 SET 暗証番号 = ''");
        at.main("UPDATE M事業所 SET 特権暗証番号 = ''");
        const auto outcome = set(at.root(), r[0], r[1]);
        EXPECT_EQ(std::to_string(outcome.status), r[2]) << outcome.err;
        EXPECT_EQ(outcome.err.empty(), r[2] == "0");
        EXPECT_EQ(plain(at, first) + "," + plain(at, second) + "," + plain(at, "特権暗証番号 FROM M事業所"),
                  r[3]);
    }
    std::filesystem::remove(at.root() + "/conf/" + os::key_file_name);
    EXPECT_EQ(set(at.root(), "00001", "ABCD").status, 1);
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM M担当者 WHERE 暗証番号 <> ''"), "0");
    EXPECT_EQ(set(at.root() + "/none", "00001", "ABCD").status, 1);
    EXPECT_FALSE(std::filesystem::exists(at.root() + "/none"));
}

TEST(PinCommand, TheDemonstrationHasTwo) {
    EXPECT_EQ(plain(demo(), second), "SUZUKI2");
    EXPECT_EQ(plain(demo(), "暗証番号 FROM M担当者 WHERE コード = '00003'"), "TANAKA3");
}

}  // namespace
}  // namespace kalvane
