// Finding the installation, the two connections, the per-user copies.
#include "data/configuration.h"

#include "base/text.h"
#include "data/query.h"
#include "data/wait_box.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

namespace fs = std::filesystem;
using namespace test;

// The program behind the installation's root; changes before, "old>new" moved, ">new" laid down, "old>" taken
// away; the program's root, behind the installation's, and its three databases, "-" for none. prgbin is
// looked for first, wherever it stands, and only the folder is looked at.
TEST(配置, 環境定義) {
    for (const auto& r : table(R"(/prgbin/X|||@accdb ; /prgsrc/X|||@accdb ; /prgbin/a/b/X|||@accdb
        /PrgBin/X|||@accdb ; /prgbin/x/prgbin/X|||@accdb ; /prgbin/prgsrc/X|||@accdb ; /prgsrc/prgbin|||@accdb
        /prgsrc/prgbin/X||/prgsrc|- - -
        /prgbin/X|>/conf/usrcnfg.mdb >/data/gnrdb.mdb >/report/repdb.mdb||@accdb
        /prgbin/X|/conf/usrcnfg.accdb>/conf/usrcnfg.mdb /data/gnrdb.accdb>/data/gnrdb.mdb \
          /report/repdb.accdb>/report/repdb.mdb||\data\gnrdb.mdb 2 2
        /prgbin/X|/data/gnrdb.accdb> /report/repdb.accdb>||- 1 -
        /prgbin/X|/data/gnrdb.accdb> /manual>/data/gnrdb.accdb||- 1 1)")) {
        SCOPED_TRACE(r[0] + r[1]);
        const Installation at(setup::Content::empty);
        std::istringstream changes(r[1]);
        for (std::string change; changes >> change;) {
            const std::size_t mark = change.find('>');
            const fs::path from = at.root() + change.substr(0, mark),
                           to = at.root() + change.substr(mark + 1);
            if (mark == 0)
                std::ofstream(to) << "written later";
            else if (mark + 1 == change.size())
                fs::remove(from);
            else
                fs::rename(from, to);
        }
        const std::string root = os::program_path(at.root() + r[2]);
        std::istringstream files(Replace(r[3], "@accdb", "\\data\\gnrdb.accdb 1 1"));
        std::string general, config, report;
        files >> general >> config >> report;

        Start start(at.root(), {.program = r[0]});
        const RunContext& c = 実行環境;
        EXPECT_EQ(start.running(), config != "-");
        EXPECT_EQ(
            c.ルートフォルダ + " " + c.プログラムフォルダ + " " + c.共通設定フォルダ + " " +
                c.共通帳票フォルダ + " " + c.マニュアルフォルダ,
            root + " " + root + "\\prgbin " + root + "\\conf " + root + "\\report " + root + "\\manual");
        EXPECT_EQ(c.共通DBパス, general == "-" ? "" : root + general);
        EXPECT_EQ(c.共通DB種別, general == "-" ? 0 : general.ends_with(".mdb") ? 2 : 1);
        EXPECT_EQ(c.設定DB種別 * 10 + c.帳票DB種別, to_i16(config) * 10 + to_i16(report));
        EXPECT_EQ(c.設定フォルダ, config == "-" ? "" : root + "\\conf");
        EXPECT_EQ(c.帳票フォルダ, config == "-" ? "" : root + "\\report");
    }
}

TEST(環境定義, 列の読込) {
    const Installation at(setup::Content::empty);
    at.config(
        "UPDATE データベース定義 SET dbmw = ' m ', ドライバ名 = ' d ', データベース名 = NULL, パスワード = ' "
        "p'");
    at.config(
        "UPDATE 動作環境定義 SET 運用事業所コード = NULL, CL更新実行区分 = '2x', バックアップ日付 = "
        "'20240401 0930', バックアップ方法 = 'x', 日曜バックアップ = '1', バックアップフォルダ = 'C:\\b'");
    os::set_screen_size({1280, 1024});
    Start start(at.root());
    const RunContext& r = 実行環境;
    EXPECT_EQ(r.画面幅 + r.画面高さ * 10000, 10241280);
    EXPECT_EQ(r.db + r.dbmw, "A m ");  // as they stand
    EXPECT_EQ(r.ドライバ名 + "|" + r.データベース名 + "|" + r.パスワード, "d||p");
    EXPECT_EQ(r.運用事業所コード + r.事業所コード, "000000");
    EXPECT_EQ(r.CL更新実行区分 * 100 + r.バックアップ方法 * 10 + r.日曜バックアップ, 201);
    EXPECT_EQ(r.バックアップ日付 + r.バックアップフォルダ, "20240401C:\\b");
    EXPECT_EQ(r.データベースパス, os::program_path(at.root() + "/data/kalvane.accdb"));
    EXPECT_EQ(r.主接続.ConnectionTimeout * 1000000 + r.主接続.CommandTimeout * 10 + r.主接続.CursorLocation,
              60300003);
    EXPECT_EQ(r.設定接続.ConnectionTimeout, 60);
    os::set_screen_size({0, 0});
}

// Kinds "S" and "O" over the embedded engine: the file stands where the kind looks for it.
TEST(主DB, 種類ごとの接続) {
    const Installation at(setup::Content::empty);
    for (const char* sql :
         {"UPDATE データベース定義 SET db = 'S', サーバー名 = データソース名, データソース名 = 'nowhere', "
          "データベース名 = 'catalog', ユーザーID = 'sa', パスワード = 'x'",
          "UPDATE データベース定義 SET db = 'O', データソース名 = サーバー名, サーバー名 = 'nowhere'"}) {
        at.config(sql);
        Start start(at.root());
        EXPECT_TRUE(start.running()) << sql;
        EXPECT_EQ(実行環境.データベースパス, "");
    }
}

TEST(設定DB, 再接続) {
    const Installation at(setup::Content::empty);
    Start start(at.root());
    ado::Recordset rs;
    ASSERT_TRUE(設定DB参照(rs, "SELECT * FROM 動作環境定義"));
    EXPECT_TRUE(設定DB再接続());
    EXPECT_EQ(rs.Fields("動作環境定義ID").text(), "001");  // an open reader keeps its row
    実行環境.設定接続.Close();
    EXPECT_TRUE(設定DB再接続());  // the failing close is passed over
    const std::string file = at.root() + "/conf/usrcnfg.accdb";
    for (const bool there : {false, true}) {
        there ? fs::rename(file + "x", file) : fs::rename(file, file + "x");
        EXPECT_EQ(設定DB再接続(), there);
        EXPECT_EQ(実行環境.設定接続中, there);
        EXPECT_EQ(設定DB実行("DELETE FROM 未集計情報"), there);
    }
}

// --- a configuration of one's own for each user

std::string content(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}
std::string seat_report(const std::string& root) {
    std::string names;
    for (const char* name : {"repdb.accdb", "repdb.mdb", "repfrmdb.accdb", "repfrmdb.mdb"})
        if (fs::exists(root + "/users/tanaka/report/" + name)) names += name + std::string(" ");
    return names;
}

TEST(ユーザ別環境, 複写は一度だけ) {
    const Installation at(setup::Content::empty);
    at.config("UPDATE 動作環境定義 SET インストール区分 = '1', 起動担当者コード = '00001'");
    const std::string users = at.root() + "/users/tanaka";
    bool box_open = false;
    {
        os::file_hook.before = [&](std::string_view operation, std::string_view) {
            if (operation == "CopyFile") box_open = box_open || msgお待ち.visible;
        };
        Start start(at.root());
        ASSERT_TRUE(start.running());
        EXPECT_EQ(実行環境.設定フォルダ, os::program_path(users + "/conf"));
        EXPECT_EQ(実行環境.帳票フォルダ, os::program_path(users + "/report"));
        EXPECT_TRUE(box_open);
        EXPECT_FALSE(msgお待ち.visible);
    }
    EXPECT_EQ(seat_report(at.root()), "repdb.accdb repfrmdb.accdb ");
    EXPECT_EQ(content(users + "/report/repdb.accdb"), content(at.root() + "/report/repdb.accdb"));
    EXPECT_TRUE(history_of(at).empty());  // the history goes to the seat's own file
    // the next start leaves what is there, and makes good what is not
    at.config("UPDATE 動作環境定義 SET 起動担当者コード = '00009'");
    std::ofstream(users + "/report/repdb.accdb") << "own";
    fs::remove(users + "/report/repfrmdb.accdb");
    Start start(at.root());
    EXPECT_EQ(実行環境.起動担当者コード, "00001");
    EXPECT_EQ(content(users + "/report/repdb.accdb"), "own");
    EXPECT_EQ(seat_report(at.root()), "repdb.accdb ");  // only a missing repdb brings both
    ado::Recordset rs;
    EXPECT_TRUE(設定DB参照(rs, "SELECT COUNT(*) AS n FROM プログラム稼動履歴"));
    EXPECT_EQ(rs.Fields("n").text(), "3");
}

// What is committed may stand in the log alone; and a copy that fails leaves nothing to be taken for one.
TEST(ユーザ別環境, 設定の複写) {
    const Installation at(setup::Content::empty);
    ado::Connection other;
    setup::open_database(other, at.root(), setup::config_file, ado::Access::program);
    other.Execute("UPDATE 動作環境定義 SET インストール区分 = '1', 起動担当者コード = '00077'");
    const std::string copy = at.root() + "/users/tanaka/conf/usrcnfg.accdb";
    fs::create_directories(copy + "-part/in the way");
    {
        Start start(at.root());
        EXPECT_FALSE(start.running());
        EXPECT_FALSE(fs::exists(copy));
    }
    fs::remove_all(copy + "-part");
    Start start(at.root());
    EXPECT_TRUE(start.running());
    EXPECT_EQ(実行環境.起動担当者コード, "00077");
    EXPECT_FALSE(fs::exists(copy + "-part"));
}

TEST(ユーザ別環境, 帳票の種別) {
    const Installation at(setup::Content::empty);
    at.config("UPDATE 動作環境定義 SET インストール区分 = '1'");
    const std::string report = at.root() + "/report/";
    fs::rename(report + "repdb.accdb", report + "repdb.mdb");
    fs::copy_file(report + "repfrmdb.accdb", report + "repfrmdb.mdb");
    { Start start(at.root()); }
    EXPECT_EQ(seat_report(at.root()), "repdb.mdb repfrmdb.accdb repfrmdb.mdb ");
    fs::remove_all(at.root() + "/users");
    fs::remove(report + "repdb.mdb");
    Start start(at.root());
    EXPECT_TRUE(start.running());
    EXPECT_FALSE(fs::exists(at.root() + "/users/tanaka/report"));
}

}  // namespace
}  // namespace kalvane
