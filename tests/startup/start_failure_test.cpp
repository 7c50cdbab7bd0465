// Starts that must not succeed, and starts that something fails or stands in the way of: the boxes, the run
// history, and an end in order.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "startup/start_run.h"

namespace kalvane {
namespace {

using test::history_of;
using test::Installation;
using test::Start;
using test::StartSettings;

const std::string no_database = "データベースが使用できません。", no_company = "ユーザ情報が使用できません。",
                  no_right = "操作権限がありません。",
                  no_names = "システムデータベースに問題があり登録できません";

// What a run is given, and what is seen of it. Boxes are joined by "|", and so are the beginnings of the rows
// of the run history.
struct Case {
    const char *config, *main;  // statements of the set-up, "" for none
    std::string boxes, history;
    bool runs = false;
    const char* file = "";  // below the root: taken away, or replaced by one of another kind
    bool foreign = false;
    StartSettings settings = {};
};
// The end of a run whose business database was never opened: the usage row fails twice.
const std::string failed_end = "終了|エラー SELECT * FROM 使用状況|エラー INSERT INTO 使用状況";
const std::string no_site =
    "エラー SELECT * FROM M事業所 WHERE コード = '000'|エラー SELECT * FROM M事業所 WHERE コード = "
    "'000'|出力終了 UPDATE 動作環境定義 SET  運用事業所コード = '000' WHERE 動作環境定義ID = '001'|";
const std::string no_link = "エラー SELECT TOP 1 * FROM M他業務連携|";
const std::string unconnected =
    "開始 |エラー DELETE FROM 使用状況|エラー SELECT * FROM 使用状況|エラー INSERT INTO 使用状況|エラー "
    "SELECT M担当者.* FROM M担当者|エラー SELECT * FROM Mユーザ|" +
    no_site + no_link + no_link + no_link + no_link + no_link + no_site +
    "エラー SELECT COUNT(*) AS 事業所件数|" + failed_end;
constexpr const char* pins = "UPDATE Mユーザ SET 暗証番号有無 = '1'";
constexpr const char* no_class = "DELETE FROM Kalvane";  // refuses every right

const std::string short_key = "00020240401", new_key(19, '0');

const Case cases[] = {
    {"", "", no_database, "", false, "", false, {.program = "/bin/X"}},
    {"", "", no_database, "-", false, "conf/usrcnfg.accdb"},
    {"", "", "SYB_OPEN ERROR26 file is not a database\rsysopen error|" + no_database, "-", false,
     "conf/usrcnfg.accdb", true},
    // the second opening, on the seat's own copy: no detail is told
    {"UPDATE 動作環境定義 SET インストール区分 = '1'", "", no_database, "", false,
     "users/tanaka/conf/usrcnfg.accdb", true},
    {"UPDATE 動作環境定義 SET インストール区分 = '2'", "", no_database, ""},
    {"UPDATE 動作環境定義 SET インストール区分 = '40000'", "", no_database, failed_end},
    {"", "", no_database, "開始 |エラー DB_OPEN ERROR14 unable to open database file|" + failed_end, false,
     "data/kalvane.accdb"},
    {"", "", no_database, "開始 |エラー DB_OPEN ERROR26 file is not a database|" + failed_end, false,
     "data/kalvane.accdb", true},
    {"UPDATE データベース定義 SET プロバイダ名 = 'Nobody.1'", "", no_database,
     "開始 |エラー DB_OPEN ERROR|" + failed_end},
    {"UPDATE データベース定義 SET db = NULL", "", no_database, failed_end},
    {"UPDATE データベース定義 SET dbmw = NULL", "", no_database, failed_end},
    // nothing is opened, and the start fails at the company
    {"UPDATE データベース定義 SET db = 'a'", "", no_company, unconnected},
    {"DELETE FROM データベース定義", "", no_company, unconnected},
    {"", "UPDATE Mユーザ SET ID = '0002'", no_company, "開始 |終了"},
    {"", "DROP TABLE Mユーザ", no_company,
     "開始 |エラー SELECT * FROM Mユーザ WHERE ID = '0001'no such table: Mユーザ|終了"},
    {"", "UPDATE Mユーザ SET 決算月 = '40000'", "オーバーフローしました。", "開始 |終了"},
    {"", "UPDATE M担当者 SET 社員区分 = '40000'", no_database, "開始 |終了"},
    {no_class, pins, no_right, "開始 |終了"},
    {no_class, "", "", "開始 |終了", true},
    {"UPDATE 動作環境定義 SET 起動担当者コード = NULL", pins, no_right, "開始 |終了"},
    {"UPDATE 動作環境定義 SET 起動担当者コード = NULL", "", "", "開始 |終了", true},
    {"DROP TABLE Kalvane", "", no_names, "開始 |エラー UPDATE Kalvane SET |エラー SELECT * FROM Kalvane|終了",
     true},
    {"DELETE FROM 動作環境定義", "", "", "開始 |出力終了 UPDATE 動作環境定義|終了", true},
    // another instance runs already
    {"", "", "", "開始 |終了", false, "", false, {.previous_instance = true}},
    {"",
     "",
     "",
     "開始 " + short_key + "|終了",
     false,
     "",
     false,
     {.command_line = short_key, .previous_instance = true}},
    {no_class, pins, no_right, "開始 |終了", false, "", false, {.previous_instance = true}},
    {"",
     "",
     "",
     "開始 " + new_key + "|終了",
     true,
     "",
     false,
     {.command_line = new_key, .previous_instance = true}}};

TEST(起動, 画面と履歴) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.config + std::string(c.main) + c.file + c.boxes);
        const Installation at(setup::Content::empty);
        if (*c.config) at.config(c.config);
        if (*c.main) at.main(c.main);
        if (*c.file) {
            const std::filesystem::path file = at.root() + "/" + c.file;
            std::filesystem::remove(file);
            std::filesystem::create_directories(file.parent_path());
            if (c.foreign) std::ofstream(file) << std::string(4096, 'x');
        }
        std::string boxes;
        {
            Start start(at.root(), c.settings);
            EXPECT_EQ(start.running(), c.runs);
            EXPECT_EQ(process_ended(), !c.runs);
            for (const std::string& box : Start::boxes) boxes += (boxes.empty() ? "" : "|") + box;
            if (!c.runs) {
                EXPECT_FALSE(実行環境.主接続.is_open() || 実行環境.設定接続.is_open() || 実行環境.主接続中 ||
                             実行環境.設定接続中);
            }
        }
        EXPECT_EQ(boxes, c.boxes);
        if (c.history == "-") continue;  // no file to hold one
        const std::vector<std::string> rows = history_of(at),
                                       expected = test::lines_of(Replace(c.history, "|", "\n"));
        ASSERT_EQ(rows.size(), expected.size()) << testing::PrintToString(rows);
        for (std::size_t i = 0; i < rows.size(); ++i)
            EXPECT_TRUE(rows[i].starts_with(expected[i])) << rows[i];
    }
}

// A second instance that ends at once has been at the seat all the same.
TEST(起動, 二重起動の使用状況) {
    const Installation at(setup::Content::empty);
    { Start start(at.root(), {.previous_instance = true}); }
    EXPECT_EQ(at.main("SELECT * FROM 使用状況"),
              "SEAT01|tanaka|KalvaneInvoiceEntry|20240410 093000|20240410 093000");
}

// Whoever ends the process while the last box stands has closed everything; nothing is written twice.
TEST(起動, 終了中の表示) {
    const Installation at(setup::Content::empty);
    at.main("DELETE FROM Mユーザ");
    Start start(at.root(), {.ends_at_a_box = true});
    EXPECT_TRUE(process_ended());
    EXPECT_FALSE(実行環境.設定接続.is_open());
    EXPECT_EQ(history_of(at), (std::vector<std::string>{"開始 ", "終了"}));
}

// --- one statement fails, at each position in turn; then all from a position on

bool begins(const std::string& statement, const char* text) {
    return statement.find(text) != std::string::npos;
}
bool decides(const std::string& statement) {
    return begins(statement, "FROM データベース定義") || begins(statement, "FROM Mユーザ");
}

TEST(起動, 一文ずつの失敗) {
    const Installation at(setup::Content::empty);
    std::vector<std::string> plain;
    {
        Start start(at.root());
        ASSERT_TRUE(start.running());
        plain = start.statements;
    }
    for (std::size_t n = 0; n < plain.size(); ++n) {
        SCOPED_TRACE(plain[n]);
        at.restore();
        std::vector<std::string> boxes;
        {
            Start start(at.root(), {.fails = [n](int i, auto, auto) { return i == static_cast<int>(n); }});
            EXPECT_EQ(start.running(), !decides(plain[n]));
            EXPECT_NE(start.running(), process_ended());
            boxes = Start::boxes;
        }
        std::vector<std::string> expected;
        if (decides(plain[n])) expected = {no_company};
        if (begins(plain[n], "UPDATE Kalvane")) expected = {no_names};
        if (begins(plain[n], "FROM A番号情報")) {
            // the base date asks in silence, the number tells twice
            ASSERT_LE(boxes.size(), 2U);
            for (const std::string& box : boxes) EXPECT_EQ(box, "番号情報に問題が発生設定できませんでした。");
        } else {
            EXPECT_EQ(boxes, expected);
        }
        const std::vector<std::string> rows = history_of(at);
        const bool lost = begins(plain[n], "プログラム稼動履歴");
        EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                                [](const std::string& r) { return r.ends_with(test::failure_text); }),
                  lost ? 0 : 1);
        EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                                [](const std::string& r) { return r.starts_with("開始 "); }),
                  lost ? 0 : 1);
        EXPECT_EQ(std::count(rows.begin(), rows.end(), "終了"), 1);
    }
    for (std::size_t n = 0; n < plain.size(); ++n) {
        SCOPED_TRACE("from " + plain[n]);
        at.restore();
        Start start(at.root(), {.fails = [n](int i, auto, auto) { return i >= static_cast<int>(n); }});
        const bool late = std::none_of(plain.begin() + static_cast<std::ptrdiff_t>(n), plain.end(), decides);
        EXPECT_EQ(start.running(), late);
        EXPECT_NE(start.running(), process_ended());
        start.end();
        EXPECT_FALSE(実行環境.主接続.is_open() || 実行環境.設定接続.is_open());
    }
}

TEST(起動, ファイル操作の失敗) {
    const Installation at(setup::Content::empty);
    at.config("UPDATE 動作環境定義 SET インストール区分 = '1'");
    int operations = 0;
    for (int n = -1; n < operations; ++n) {  // first whole, to count them
        std::filesystem::remove_all(at.root() + "/users");
        int count = 0;
        std::string failed;
        os::file_hook.before = [&](std::string_view operation, std::string_view path) {
            if (count++ != n) return;
            failed = std::string(operation) + " " + std::string(path);
            throw os::FileError(5, test::failure_text);
        };
        Start start(at.root());
        SCOPED_TRACE(failed);
        if (n < 0) operations = count;
        EXPECT_NE(start.running(), process_ended());
        const bool folder = failed.starts_with("MkDir");
        // without the seat's configuration there is no start; all else only spoils copies of the reports
        if (process_ended()) {
            EXPECT_TRUE(folder || failed.find("usrcnfg") != std::string::npos);
            EXPECT_EQ(Start::boxes.back(), no_database);
        }
        EXPECT_EQ(folder, !Start::boxes.empty() && Start::boxes[0] == "DIREXISTCHK ERROR5倒れました");
    }
    EXPECT_GT(operations, 10);
}

// --- another station holds a database for writing

struct Lock {
    ado::Connection connection;
    Lock(const Installation& at, std::string_view file) {
        setup::open_database(connection, at.root(), file, ado::Access::owner);
        connection.name = "other";
        connection.Execute("BEGIN IMMEDIATE");
    }
};

TEST(起動, 他者の書込中) {
    const Installation at(setup::Content::empty);
    ado::lock_wait_scale = 0.0002;
    {
        const Lock lock(at, setup::config_file);
        Start start(at.root());
        EXPECT_TRUE(start.running());
        EXPECT_EQ(Start::boxes, std::vector<std::string>{no_names});
        EXPECT_EQ(実行環境.proccounter, 2);  // the start and the failure; both rows are lost
    }
    EXPECT_EQ(history_of(at), std::vector<std::string>{});
    EXPECT_EQ(at.main("SELECT COUNT(*) FROM 使用状況 WHERE 終了日時 <> ''"), "0");  // goes with the end row
    at.restore();
    ado::lock_wait_scale = 0.0002;
    {
        const Lock lock(at, setup::main_file);
        Start start(at.root());
        EXPECT_TRUE(start.running());
        EXPECT_EQ(Start::boxes, std::vector<std::string>{});
    }
    const std::vector<std::string> rows = history_of(at);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_TRUE(rows[1].starts_with("エラー DELETE FROM 使用状況"));
    EXPECT_TRUE(rows[2].starts_with("エラー INSERT INTO 使用状況"));
    EXPECT_EQ(rows[3], "終了");
    EXPECT_TRUE(rows[4].starts_with("エラー INSERT INTO 使用状況") &&
                rows[4].ends_with("database is locked"));
}

}  // namespace
}  // namespace kalvane
