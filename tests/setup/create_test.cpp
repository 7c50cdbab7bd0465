#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "installation.h"

namespace kalvane {
namespace {

namespace fs = std::filesystem;
using test::command;
using test::demo;
using test::Installation;

constexpr const char* database_files[] = {"root/data/kalvane.accdb", "root/data/gnrdb.accdb",
                                          "root/report/repdb.accdb", "root/report/repfrmdb.accdb",
                                          "root/conf/usrcnfg.accdb"};

std::vector<std::string> contents(const test::TempFolder& folder) {
    std::vector<std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(folder.native("root"))) {
        all.push_back(entry.path().string());
        if (entry.is_regular_file())
            all.back() += folder.read("root/" + fs::relative(entry.path(), folder.native("root")).string());
    }
    std::sort(all.begin(), all.end());
    return all;
}

TEST(Create, LaysDownFoldersDatabasesLinksAndTheManual) {
    const test::TempFolder folder;
    folder.write("bin/KalvaneOperator", "program");
    folder.write("bin/KalvaneSetup", "program");
    const std::string root = folder.native("root");
    const auto done = command({"create", root, "--empty"}, folder.native("bin"));
    EXPECT_EQ(done.status, 0) << done.err;
    EXPECT_NE(done.out.find(root), std::string::npos);
    for (const char* file : database_files) EXPECT_TRUE(folder.holds(file)) << file;
    EXPECT_TRUE(folder.holds("root/documents"));
    EXPECT_TRUE(folder.holds("root/manual/ＫａｌｖａｎｅＩｎｖｏｉｃｅＥｎｔｒｙ.doc"));
    EXPECT_EQ(fs::read_symlink(folder.native("root/prgbin/KalvaneOperator")),
              folder.native("bin/KalvaneOperator"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(folder.native("root/prgbin/KalvaneInvoiceEntry"))));
}

TEST(Create, NamesTheBusinessDatabaseAndTheDocumentFolder) {
    const std::string root = "C:" + Replace(demo().root, "/", "\\");
    EXPECT_EQ(
        demo().rows(
            "SELECT db, プロバイダ名, データソース名, ユーザーID, パスワード FROM データベース定義 WHERE "
            "情報種類 = 'GNR'",
            setup::config_file),
        "A|Microsoft.ACE.OLEDB.12.0|" + root + "\\data\\kalvane.accdb||");
    EXPECT_EQ(demo().rows("SELECT ドキュメントフォルダ FROM Mユーザ"), root + "\\documents");
    EXPECT_EQ(
        demo().rows(
            "SELECT 動作環境定義ID, 運用事業所コード, インストール区分, 起動担当者コード FROM 動作環境定義",
            setup::config_file),
        "001|000|0|00001");
}

// What an installation needs before the first document: one company, head office, operator, codes, numbers.
TEST(Create, EmptyInstallation) {
    const Installation empty(setup::Content::empty);
    EXPECT_EQ(
        empty.rows("SELECT ID, 決算月, 決算日, 伝票番号管理区分, 暗証番号有無, 更新実行区分 FROM Mユーザ"),
        "0001|3|31|0|0|1");
    EXPECT_EQ(empty.rows("SELECT コード FROM M事業所"), "000");
    EXPECT_EQ(empty.rows("SELECT コード, 在籍区分, 暗証番号, 操作許可, 処理分類1操作許可 FROM M担当者"),
              "00001|0||0|0");
    EXPECT_EQ(empty.rows("SELECT * FROM A番号情報 ORDER BY 番号ID"),
              "01110|0|00000000|00000000|/16210|0|00000000|00000000|/16220|0|00000000|00000000|/"
              "16240|0|00000000|00000000|/16250|0|00000000|00000000|");
    EXPECT_EQ(empty.rows("SELECT 施行日, 消費税率 FROM G消費税 ORDER BY 施行日"),
              "19890401|3/19970401|5/20140401|8/20191001|10");
    EXPECT_EQ(
        empty.rows("SELECT プログラムID, 処理分類 FROM Kalvane ORDER BY プログラムID", setup::config_file),
        "KalvaneInvoiceEntry|1/KalvaneInvoicePrint|2");
    EXPECT_EQ(empty.rows("SELECT COUNT(*) FROM M得意先"), "0");
    EXPECT_EQ(empty.rows("SELECT COUNT(*) FROM T営業請求"), "0");
}

// The position of a code in its list is its value: from the smallest on there is no gap.
TEST(Create, CodeTablesHaveNoGap) {
    const std::pair<const char*, const char*> ranges[] = {
        {"K消費税区分", "1|2"},       {"K消費税算出区分", "0|3"}, {"K請求消費税表示区分", "0|1"},
        {"K請求合計表示区分", "0|1"}, {"K請求行区分", "0|5"},     {"K取引状況区分", "0|3"},
        {"K品区分", "0|4"},           {"K在庫管理区分", "0|1"},   {"K取扱状況区分", "0|3"},
        {"K在籍区分", "0|1"},         {"K社員区分", "0|3"},       {"K使用状況区分", "0|1"},
        {"K稼動状況区分", "0|1"},
    };
    for (const auto& [table, range] : ranges) {
        EXPECT_EQ(demo().rows("SELECT MIN(区分), MAX(区分) FROM " + std::string(table)), range) << table;
        EXPECT_EQ(demo().rows("SELECT COUNT(*) - 1 - MAX(区分) + MIN(区分) FROM " + std::string(table)), "0")
            << table;
    }
}

TEST(Create, RefusesASecondTimeAndChangesNothing) {
    const Installation installation(setup::Content::empty);
    for (const char* other_version : {"", "99"}) {
        if (*other_version) installation.run("UPDATE セットアップ情報 SET 版 = '99'", setup::config_file);
        const auto before = contents(installation.folder);
        const auto refused = command({"create", installation.root, "--demo"});
        EXPECT_EQ(refused.status, 1);
        EXPECT_NE(refused.err.find(*other_version ? "別の版 (99)" : "同じ版"), std::string::npos)
            << refused.err;
        EXPECT_NE(refused.err.find(installation.root), std::string::npos) << refused.err;
        EXPECT_EQ(contents(installation.folder), before);
        EXPECT_EQ(command({"check", installation.root}).status, *other_version ? 1 : 0);
    }
}

// A database without a version is what an interrupted run, or somebody else, has left.
TEST(Create, RefusesAForeignDatabase) {
    const test::TempFolder folder;
    folder.write("root/conf/usrcnfg.accdb", "something else");
    EXPECT_EQ(command({"create", folder.native("root"), "--empty"}).status, 1);
    EXPECT_EQ(folder.read("root/conf/usrcnfg.accdb"), "something else");
    EXPECT_EQ(command({"check", folder.native("root")}).status, 1);
    EXPECT_EQ(command({"check", folder.native("missing")}).status, 1);
}

// A failure at any statement takes the databases away, and the next attempt goes through.
TEST(Create, FailureLeavesNoDatabase) {
    const test::TempFolder folder;
    const std::vector<std::string> arguments{"create", folder.native("root"), "--empty"};
    int statements = 0;
    ado::hook.before = [&statements](const ado::Connection&, std::string_view) { ++statements; };
    const Installation whole(setup::Content::empty);
    for (int at : {1, statements / 3, statements / 2, statements}) {
        ado::hook.before = [n = 0, at](const ado::Connection&, std::string_view) mutable {
            if (++n == at) throw ado::Error(13, "disk full");
        };
        const auto failed = command(arguments);
        ado::hook = {};
        EXPECT_EQ(failed.status, 1) << at;
        EXPECT_NE(failed.err.find("disk full"), std::string::npos) << failed.err;
        for (const char* file : database_files) EXPECT_FALSE(folder.holds(file)) << at << " " << file;
    }
    EXPECT_EQ(command(arguments).status, 0);

    const test::TempFolder blocked;
    blocked.write("root/report", "a file where a folder should be");
    EXPECT_EQ(command({"create", blocked.native("root"), "--empty"}).status, 1);
    EXPECT_FALSE(blocked.holds("root/conf/usrcnfg.accdb"));
}

struct Wrong {
    const char* name;
    std::vector<std::string> arguments;
    int status;
};
void PrintTo(const Wrong& w, std::ostream* out) {
    *out << w.name;
}

class CommandLine : public testing::TestWithParam<Wrong> {};
TEST_P(CommandLine, IsRefused) {
    const auto outcome = command(GetParam().arguments);
    EXPECT_EQ(outcome.status, GetParam().status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.find("使い方") != std::string::npos, GetParam().status == 2) << outcome.err;
}
INSTANTIATE_TEST_SUITE_P(
    All, CommandLine,
    testing::Values(
        Wrong{"nothing", {}, 2}, Wrong{"unknown", {"remove", "/r"}, 2}, Wrong{"no_kind", {"create", "/r"}, 2},
        Wrong{"other_kind", {"create", "/r", "--full"}, 2}, Wrong{"no_root", {"check"}, 2},
        Wrong{"missing_option", {"generate", "/r", "--invoices", "1", "--lines", "1"}, 2},
        Wrong{"option_twice", {"generate", "/r", "--invoices", "1", "--lines", "1", "--lines", "1"}, 2},
        Wrong{"no_number", {"generate", "/r", "--invoices", "1x", "--lines", "1", "--seed", "1"}, 2},
        Wrong{"no_invoices", {"generate", "/r", "--invoices", "0", "--lines", "1", "--seed", "1"}, 2},
        Wrong{"too_many_lines", {"generate", "/r", "--invoices", "1", "--lines", "999", "--seed", "1"}, 2},
        // roots by which the program could not find or name its files
        Wrong{"prgbin_in_root", {"create", "/tmp/PrgBin/x", "--empty"}, 1},
        Wrong{"semicolon_in_root", {"create", "/tmp/a;b", "--empty"}, 1},
        Wrong{"not_installed",
              {"generate", "/tmp/none/at/all", "--invoices", "1", "--lines", "1", "--seed", "1"},
              1}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace kalvane
