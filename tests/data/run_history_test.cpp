// Usage rows, the retention, and history rows that are lost.
#include "data/run_history.h"

#include "data/history_row.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

TEST(使用状況, 開始と終了は別々に残る) {
    const Installation at(setup::Content::empty);
    at.main(
        "INSERT INTO 使用状況 VALUES ('SEAT01', 'tanaka', 'Other', '20240409 080000', '20240409 170000'), "
        "('SEAT02', 'tanaka', 'Other', '20240409 080000', '')");
    constexpr const char* seat =
        "SELECT プログラムID, 開始日時, 終了日時 FROM 使用状況 WHERE コンピュータID = 'SEAT01'";
    Start start(at.root());
    EXPECT_EQ(at.main(seat), "KalvaneInvoiceEntry|20240410 093000|20240409 170000");
    os::advance_clock(90 * 1000);
    使用終了記録();
    EXPECT_EQ(at.main(seat), "KalvaneInvoiceEntry|20240410 093000|20240410 093130");
    at.main("DELETE FROM 使用状況 WHERE コンピュータID = 'SEAT01'");
    start.end();
    EXPECT_EQ(at.main(seat), "KalvaneInvoiceEntry||20240410 093130");
    EXPECT_EQ(at.main("SELECT プログラムID FROM 使用状況 WHERE コンピュータID = 'SEAT02'"), "Other");
}

TEST(使用状況, 整理) {
    const Installation at(setup::Content::empty);
    Start start(at.root());
    struct {
        DateTime today;
        const char *gone, *kept;  // the latest end that goes, and the next
    } const cases[] = {{{{2024, 4, 10}, 0, 0, 0}, "20240309 235959", "20240310 000000"},
                       {{{2024, 3, 31}, 0, 0, 0}, "20240228 235959", "20240229 000000"},
                       {{{2024, 1, 15}, 23, 59, 59}, "20231214 235959", "20231215 000000"}};
    for (const auto& c : cases) {
        os::freeze_clock(c.today);
        at.main("DELETE FROM 使用状況");
        for (const char* end : {c.gone, c.kept, "", "x"})
            at.main(std::string("INSERT INTO 使用状況 (終了日時) VALUES ('") + end + "')");
        使用状況整理();
        EXPECT_EQ(at.main("SELECT 終了日時 FROM 使用状況 ORDER BY rowid"), std::string(c.kept) + "\n\nx");
    }
}

// A table, its column of time, and the latest time that goes; a second later stays.
TEST(履歴, 整理) {
    const Installation at(setup::Content::empty);
    Start start(at.root());
    start.statements.clear();
    std::vector<std::string> expected;
    const auto rows =
        table(R"(プログラム稼動履歴|実行日付|20231010 09300 ; プログラム連携情報|発信日時|20240407 09300
        プログラムクリップボード|貼付日時|20240407 09300 ; プログラムクリップボード明細|貼付日時|20240407 09300)");
    const auto tidy = [&] {
        履歴整理();
        std::erase_if(start.statements, [](auto& s) { return !s.starts_with("config DELETE"); });
        return start.statements;
    };
    EXPECT_EQ(tidy(), expected);  // nothing is old enough
    for (const auto& r : rows) {
        for (const char* second : {"0", "1"})
            at.config("INSERT INTO " + r[0] + " (" + r[1] + ") VALUES ('" + r[2] + second + "')");
        expected.push_back("config DELETE FROM " + r[0] + " WHERE " + r[1] + " <= '" + r[2] + "0'");
    }
    EXPECT_EQ(tidy(), expected);
    for (const auto& r : rows) EXPECT_EQ(at.config("SELECT MIN(" + r[1] + ") FROM " + r[0]), r[2] + "1");
    // the end of February is as far back as the month goes
    os::freeze_clock({{2024, 8, 31}, 0, 0, 0});
    at.config("INSERT INTO プログラム稼動履歴 (実行日付) VALUES ('20240101 000000')");
    EXPECT_EQ(tidy()[4], "config DELETE FROM プログラム稼動履歴 WHERE 実行日付 <= '20240229 000000'");
}

TEST(履歴, 行の内容) {
    const Installation at(setup::Content::empty);
    Start start(at.root());
    at.config("UPDATE 動作環境定義 SET 起動担当者コード = '00077'");
    実行環境.運用事業所コード = "001";
    実行環境.proccounter = 999999999998.0;
    稼動履歴開始記録("it's");  // carries the operator of the last sign-on
    稼動履歴エラー記録("x '1' ");
    EXPECT_EQ(at.config("SELECT * FROM プログラム稼動履歴 ORDER BY rowid LIMIT 2 OFFSET 1"),
              "20240410 093000|KalvaneInvoiceEntry|999999999999|開始 it's|001|00077|tanaka\n"
              "20240410 093000|KalvaneInvoiceEntry|1000000000000|エラー x '1'|001|00077|tanaka");
}

// A quote in a logon name breaks no row; a NUL byte is left out of what is there to be read.
TEST(履歴, 異様な文字) {
    const Installation at(setup::Content::empty);
    {
        Start start(at.root(), {.user = "o'neil"});
        稼動履歴エラー記録(std::string("a\0b", 3));
    }
    EXPECT_EQ(at.config("SELECT 摘要, ユーザID FROM プログラム稼動履歴 ORDER BY rowid"),
              "開始 |o'neil\nエラー ab|o'neil\n終了|o'neil");
    EXPECT_EQ(at.main("SELECT ユーザID FROM 使用状況"), "o'neil");
}

}  // namespace
}  // namespace kalvane
