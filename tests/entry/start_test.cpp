// The start and the end as the databases and the operator see them, and starts that must not succeed or that
// something stands in the way of.
#include <algorithm>

#include "base/text.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

using Texts = std::vector<std::string>;

constexpr const char* usage_row = "SEAT01|tanaka|KalvaneInvoiceEntry|20240410 093000|20240410 093000";

std::string history_insert(const std::string& counter, const std::string& text) {
    return "config INSERT INTO プログラム稼動履歴 "
           "(実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,ユーザID)VALUES "
           "('20240410 093000', 'KalvaneInvoiceEntry', '" +
           counter + "', '" + text + "', '000', '00001', 'tanaka')";
}

Texts expected_start(const std::string& usage) {
    std::string names =
        "条件項目名A = '事業所コード', 条件項目名B = '番号基準日付', 条件項目名C = '営業請求No'";
    for (char letter = 'D'; letter <= 'Z'; ++letter) names += std::string(", 条件項目名") + letter + " = ''";
    std::string text = R"(config SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
@history
config SELECT * FROM プログラム連携情報 WHERE 発信日時 >= '20240410 092900' AND 受信プログラムID = '@id' AND \
          起動連携情報 = 'O''Brien x' AND 連携区分 = '00'
main DELETE FROM 使用状況 WHERE 終了日時 < '20240310' AND 終了日時 <> ''
main SELECT * FROM 使用状況 WHERE コンピュータID = 'SEAT01' AND ユーザID = 'tanaka'
main @usage
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
main SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'
main SELECT * FROM Mユーザ WHERE ID = '0001'
main SELECT * FROM M事業所 WHERE コード = '000'
main SELECT TOP 1 * FROM M他業務連携 WHERE コード = '003'
main SELECT TOP 1 * FROM M他業務連携 WHERE コード = '002'
main SELECT TOP 1 * FROM M他業務連携 WHERE コード = '004'
main SELECT TOP 1 * FROM M他業務連携 WHERE コード = '005'
main SELECT TOP 1 * FROM M他業務連携 WHERE コード = '005'
main SELECT * FROM M事業所 WHERE コード = '000'
main SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'
config UPDATE Kalvane SET @names WHERE プログラムID = '@id'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
main SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'
main SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE 担当者別操作許可プログラム.担当者コード \
          = '00001' AND 担当者別操作許可プログラム.業務メニュ = 'Kalvane' AND \
          担当者別操作許可プログラム.プログラムID = '@id'
config SELECT * FROM Kalvane WHERE プログラムID = '@id')";
    text = Replace(text, "@history", history_insert("000000000001", "開始 O''Brien x"));
    text = Replace(Replace(text, "@usage", usage), "@names", names);
    return lines_of(Replace(text, "@id", "KalvaneInvoiceEntry"));
}

TEST(起動, 文の順序) {
    const Installation at(setup::Content::empty);
    const std::string seat = " WHERE コンピュータID = 'SEAT01' AND ユーザID = 'tanaka'";
    const std::string usages[] = {
        // of the seat's first start, and of its next
        "INSERT INTO 使用状況 (コンピュータID,ユーザID,プログラムID,開始日時,終了日時)VALUES ('SEAT01', "
        "'tanaka', 'KalvaneInvoiceEntry', '20240410 093000', '')",
        "UPDATE 使用状況 SET プログラムID = 'KalvaneInvoiceEntry', 開始日時 = '20240410 093000'" + seat};
    for (const std::string& usage : usages) {
        Start start(at.root(), {.command_line = "  O'Brien x "});
        ASSERT_TRUE(start.running());
        Texts& ran = start.statements;
        const Texts expected = expected_start(usage);
        ASSERT_GT(ran.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(ran[i], expected[i]) << i;
        ran.clear();
        start.end();
        EXPECT_EQ(ran, (Texts{history_insert("000000000002", "終了"), "main SELECT * FROM 使用状況" + seat,
                              "main UPDATE 使用状況 SET プログラムID = 'KalvaneInvoiceEntry', 終了日時 = "
                              "'20240410 093000'" +
                                  seat}));
        EXPECT_TRUE(all_closed());
    }
    EXPECT_EQ(at.main("SELECT * FROM 使用状況"), usage_row);
    EXPECT_EQ(history_of(at), (Texts{"開始 O'Brien x", "終了", "開始 O'Brien x", "終了"}));
}

TEST(起動, 起動後の状態) {
    const Installation at;
    Start start(at.root());
    ASSERT_TRUE(start.running() && Start::boxes.empty());
    const EntryScreen& screen = frmKalvaneInvoiceEntry;
    EXPECT_EQ(screen.caption, "KalvaneInvoiceEntry（株式会社みなと商会）");
    EXPECT_TRUE(screen.active == &screen.営業請求日付年 && !screen.modal);
    EXPECT_EQ(history_of(at), Texts{"開始 "});  // the blank stays
    os::advance_clock(24LL * 3600 * 1000);
    const RunContext& r = 実行環境;
    EXPECT_EQ(r.本日年 + r.本日月 + r.本日日 + "," + r.本日日付, "20240410,20240410");
}

// The rows of a start whose business database is not opened, and of its end: the usage row fails twice.
const std::string no_database = "データベースが使用できません。", no_company = "ユーザ情報が使用できません。",
                  no_names = "システムデータベースに問題があり登録できません";
const auto shorthands =
    table("@no_database|" + no_database + "\n@no_company|" + no_company + "\n@no_names|" + no_names + R"(
    @no_right|操作権限がありません。
    @unconnected|開始 /エラー DELETE FROM 使用状況/@usage/エラー SELECT M担当者.* FROM M担当者/\
      エラー SELECT * FROM Mユーザ/@no_site/@no_link/@no_link/@no_link/@no_link/@no_link/@no_site/\
      エラー SELECT COUNT(*) AS 事業所件数/@end
    @no_site|@site/@site/出力終了 UPDATE 動作環境定義 SET  運用事業所コード = '000' WHERE 動作環境定義ID = '001'
    @site|エラー SELECT * FROM M事業所 WHERE コード = '000'
    @no_link|エラー SELECT TOP 1 * FROM M他業務連携
    @end|終了/@usage
    @usage|エラー SELECT * FROM 使用状況/エラー INSERT INTO 使用状況
    @pins|UPDATE Mユーザ SET 暗証番号有無 = '1')");

// The set-up, the boxes joined by "/", the beginnings of the rows of the run history joined by "/", and
// whether the program runs. The set-up is a statement of the configuration or the business database, "without
// FILE" or "foreign FILE" below the root, "program NAME", "second COMMAND-LINE" beside another instance.
const auto starts = table(R"(
    program /bin/X|@no_database||
    without conf/usrcnfg.accdb|@no_database|-|
    foreign conf/usrcnfg.accdb|SYB_OPEN ERROR26 file is not a database~sysopen error/@no_database|-|
    config UPDATE 動作環境定義 SET インストール区分 = '1', foreign users/tanaka/conf/usrcnfg.accdb|@no_database||
    config UPDATE 動作環境定義 SET インストール区分 = '2'|@no_database||
    config UPDATE 動作環境定義 SET インストール区分 = '40000'|@no_database|@end|
    without data/kalvane.accdb|@no_database|開始 /エラー DB_OPEN ERROR14 unable to open database file/@end|
    foreign data/kalvane.accdb|@no_database|開始 /エラー DB_OPEN ERROR26 file is not a database/@end|
    config UPDATE データベース定義 SET プロバイダ名 = 'Nobody.1'|@no_database|開始 /エラー DB_OPEN ERROR/@end|
    config UPDATE データベース定義 SET db = NULL|@no_database|@end|
    config UPDATE データベース定義 SET dbmw = NULL|@no_database|@end|
    config UPDATE データベース定義 SET db = 'a'|@no_company|@unconnected|
    config DELETE FROM データベース定義|@no_company|@unconnected|
    main UPDATE Mユーザ SET ID = '0002'|@no_company|開始 /終了|
    main DROP TABLE Mユーザ|@no_company|開始 /\
      エラー SELECT * FROM Mユーザ WHERE ID = '0001'no such table: Mユーザ/終了|
    main UPDATE Mユーザ SET 決算月 = '40000'|オーバーフローしました。|開始 /終了|
    main UPDATE M担当者 SET 社員区分 = '40000'|@no_database|開始 /終了|
    config DELETE FROM Kalvane, main @pins|@no_right|開始 /終了|
    config DELETE FROM Kalvane||開始 /終了|runs
    config UPDATE 動作環境定義 SET 起動担当者コード = NULL, main @pins|@no_right|開始 /終了|
    config UPDATE 動作環境定義 SET 起動担当者コード = NULL||開始 /終了|runs
    config DROP TABLE Kalvane|@no_names|開始 /エラー UPDATE Kalvane SET /エラー SELECT * FROM Kalvane/終了|runs
    config DELETE FROM 動作環境定義||開始 /出力終了 UPDATE 動作環境定義/終了|runs
    second ||開始 /終了|
    second 00020240401||開始 00020240401/終了|
    config DELETE FROM Kalvane, main @pins, second |@no_right|開始 /終了|
    second 0000000000000000000||開始 0000000000000000000/終了|runs)",
                          shorthands);

Texts parts(const std::string& text, const char* between) {
    return lines_of(Replace(Replace(text, between, "\n"), "~", "\r"));
}

SeatSettings set_up(const Installation& at, const std::string& text) {
    SeatSettings settings;
    settings.previous_instance = contains(text, "second ");
    for (const std::string& step : parts(text, ", ")) {
        const std::size_t blank = step.find(' ');
        const std::string verb = step.substr(0, blank), rest = step.substr(blank + 1);
        if (verb == "config") at.config(rest);
        if (verb == "main") at.main(rest);
        if (verb == "program") settings.program = rest;
        if (verb == "second") settings.command_line = rest;
        const std::filesystem::path file = at.root() + "/" + rest;
        if (verb == "without" || verb == "foreign") std::filesystem::remove(file);
        if (verb != "foreign") continue;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << std::string(4096, 'x');
    }
    return settings;
}

TEST(起動, 画面と履歴) {
    for (const auto& r : starts) {
        SCOPED_TRACE(r[0]);
        const Installation at(setup::Content::empty);
        {
            const Start start(at.root(), set_up(at, r[0]));
            EXPECT_EQ(start.running(), !r[3].empty());
            EXPECT_EQ(process_ended(), r[3].empty());
            EXPECT_TRUE(start.running() || all_closed());
        }
        EXPECT_EQ(Start::boxes, parts(r[1], "/"));
        if (r[2] == "-") continue;  // no file to hold one
        const Texts rows = history_of(at), expected = parts(r[2], "/");
        ASSERT_EQ(rows.size(), expected.size()) << testing::PrintToString(rows);
        for (std::size_t i = 0; i < rows.size(); ++i)
            EXPECT_TRUE(rows[i].starts_with(expected[i])) << rows[i];
        // a second instance that ends at once has been at the seat all the same
        EXPECT_TRUE(!r[0].starts_with("second") || at.main("SELECT * FROM 使用状況") == usage_row);
    }
}

// Whoever ends the process while the last box stands has closed everything; nothing is written twice.
TEST(起動, 終了中の表示) {
    const Installation at(setup::Content::empty);
    at.main("DELETE FROM Mユーザ");
    Start start(at.root(), {.ends_at_a_box = true});
    EXPECT_TRUE(process_ended());
    EXPECT_FALSE(実行環境.設定接続.is_open());
    EXPECT_EQ(history_of(at), (Texts{"開始 ", "終了"}));
}

// --- one statement fails, at each position in turn; then all from a position on

bool decides(const std::string& statement) {
    return contains(statement, "FROM データベース定義") || contains(statement, "FROM Mユーザ");
}

TEST(起動, 一文ずつの失敗) {
    const Installation at(setup::Content::empty);
    const Texts plain = Start(at.root()).statements;
    ASSERT_GT(plain.size(), 30U);
    for (std::size_t n = 0; n < plain.size(); ++n) {
        SCOPED_TRACE(plain[n]);
        at.restore();
        {
            const Start start(at.root(), {}, [n](std::size_t i, auto&) { return i == n; });
            EXPECT_EQ(start.running(), !decides(plain[n]));
            EXPECT_NE(start.running(), process_ended());
        }
        Texts expected;
        if (decides(plain[n])) expected = {no_company};
        if (contains(plain[n], "UPDATE Kalvane")) expected = {no_names};
        if (contains(plain[n], "FROM A番号情報"))  // the base date asks in silence, the number tells twice
            expected = Texts(Start::boxes.empty() ? 0 : 2, "番号情報に問題が発生設定できませんでした。");
        EXPECT_EQ(Start::boxes, expected);
        const Texts rows = history_of(at);
        const auto count = [&rows](const char* part) {
            return std::count_if(rows.begin(), rows.end(), [&](auto& row) { return contains(row, part); });
        };
        const bool lost = contains(plain[n], "プログラム稼動履歴");
        EXPECT_EQ(count(failure_text), lost ? 0 : 1);
        EXPECT_EQ(count("開始 "), lost ? 0 : 1);
        EXPECT_EQ(std::count(rows.begin(), rows.end(), "終了"), 1);
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
            throw os::FileError(5, failure_text);
        };
        Start start(at.root());
        SCOPED_TRACE(failed);
        if (n < 0) operations = count;
        EXPECT_NE(start.running(), process_ended());
        const bool folder = failed.starts_with("MkDir");
        // without the seat's configuration there is no start; all else only spoils copies of the reports
        if (process_ended()) {
            EXPECT_TRUE(folder || contains(failed, "usrcnfg"));
            EXPECT_EQ(Start::boxes.back(), no_database);
        }
        EXPECT_EQ(folder, !Start::boxes.empty() && Start::boxes[0] == "DIREXISTCHK ERROR5倒れました");
    }
    EXPECT_GT(operations, 10);
}

// Another station holds a database for writing.
TEST(起動, 他者の書込中) {
    const Installation at(setup::Content::empty);
    for (const std::string_view file : {setup::config_file, setup::main_file}) {
        at.restore();
        {
            ado::Connection other;
            setup::open_database(other, at.root(), file, ado::Access::owner);
            other.Execute("BEGIN IMMEDIATE");
            ado::lock_wait_scale = 0.0002;
            const Start start(at.root());
            EXPECT_TRUE(start.running());
            EXPECT_EQ(Start::boxes, file == setup::config_file ? Texts{no_names} : Texts{});
            EXPECT_EQ(実行環境.proccounter, file == setup::config_file ? 2 : 3);
            start.end();
            other.Execute("ROLLBACK");
        }
        if (file == setup::main_file) continue;
        EXPECT_EQ(history_of(at), Texts{});  // both rows are lost
        EXPECT_EQ(at.main("SELECT COUNT(*) FROM 使用状況 WHERE 終了日時 <> ''"),
                  "0");  // goes with the end row
    }
    const Texts rows = history_of(at);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_TRUE(rows[1].starts_with("エラー DELETE FROM 使用状況"));
    EXPECT_TRUE(rows[2].starts_with("エラー INSERT INTO 使用状況"));
    EXPECT_EQ(rows[3], "終了");
    EXPECT_TRUE(rows[4].starts_with("エラー INSERT INTO 使用状況") &&
                rows[4].ends_with("database is locked"));
}

}  // namespace
}  // namespace kalvane
