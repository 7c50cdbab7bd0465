// The start and the end as the databases see them.
#include <gtest/gtest.h>

#include "startup/session.h"
#include "startup/start_run.h"

namespace kalvane {
namespace {

using test::history_of;
using test::Installation;
using test::Start;

constexpr const char* environment = "config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'";

std::string history_insert(const char* counter, const char* text) {
    return std::string(
               "config INSERT INTO プログラム稼動履歴 "
               "(実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,ユーザID)VALUES "
               "('20240410 093000', 'KalvaneInvoiceEntry', '") +
           counter + "', '" + text + "', '000', '00001', 'tanaka')";
}

std::vector<std::string> expected_start(const std::string& usage) {
    std::vector<std::string> s{
        "config SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'",
        environment,
        environment,
        environment,
        history_insert("000000000001", "開始 O''Brien x"),
        "config SELECT * FROM プログラム連携情報 WHERE 発信日時 >= '20240410 092900' AND 受信プログラムID = "
        "'KalvaneInvoiceEntry' AND 起動連携情報 = 'O''Brien x' AND 連携区分 = '00'",
        "main DELETE FROM 使用状況 WHERE 終了日時 < '20240310' AND 終了日時 <> ''",
        "main SELECT * FROM 使用状況 WHERE コンピュータID = 'SEAT01' AND ユーザID = 'tanaka'",
        "main " + usage,
        environment,
        "main SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'",
        "main SELECT * FROM Mユーザ WHERE ID = '0001'",
        "main SELECT * FROM M事業所 WHERE コード = '000'"};
    for (const char* key : {"003", "002", "004", "005", "005"})
        s.push_back(std::string("main SELECT TOP 1 * FROM M他業務連携 WHERE コード = '") + key + "'");
    s.push_back("main SELECT * FROM M事業所 WHERE コード = '000'");
    s.push_back("main SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'");
    std::string names =
        "config UPDATE Kalvane SET 条件項目名A = '事業所コード', 条件項目名B = '番号基準日付', 条件項目名C = "
        "'営業請求No'";
    for (char letter = 'D'; letter <= 'Z'; ++letter) names += std::string(", 条件項目名") + letter + " = ''";
    s.push_back(names + " WHERE プログラムID = 'KalvaneInvoiceEntry'");
    s.push_back(environment);
    s.push_back("main SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'");
    s.push_back(
        "main SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE "
        "担当者別操作許可プログラム.担当者コード = '00001' AND 担当者別操作許可プログラム.業務メニュ = "
        "'Kalvane' AND 担当者別操作許可プログラム.プログラムID = 'KalvaneInvoiceEntry'");
    s.push_back("config SELECT * FROM Kalvane WHERE プログラムID = 'KalvaneInvoiceEntry'");
    return s;
}

TEST(起動, 文の順序) {
    const Installation at(setup::Content::empty);
    const char* usages[] = {
        "INSERT INTO 使用状況 (コンピュータID,ユーザID,プログラムID,開始日時,終了日時)VALUES ('SEAT01', "
        "'tanaka', 'KalvaneInvoiceEntry', '20240410 093000', '')",
        "UPDATE 使用状況 SET プログラムID = 'KalvaneInvoiceEntry', 開始日時 = '20240410 093000' WHERE "
        "コンピュータID = 'SEAT01' AND ユーザID = 'tanaka'"};
    for (const char* usage : usages) {  // the seat's first start, and its next
        Start start(at.root(), {.command_line = "  O'Brien x "});
        ASSERT_TRUE(start.running());
        const std::vector<std::string> expected = expected_start(usage);
        ASSERT_GT(start.statements.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(start.statements[i], expected[i]) << i;

        const std::size_t before_end = start.statements.size();
        start.end();
        const std::vector<std::string> end(start.statements.begin() + static_cast<std::ptrdiff_t>(before_end),
                                           start.statements.end());
        EXPECT_EQ(end,
                  (std::vector<std::string>{
                      history_insert("000000000002", "終了"),
                      "main SELECT * FROM 使用状況 WHERE コンピュータID = 'SEAT01' AND ユーザID = 'tanaka'",
                      "main UPDATE 使用状況 SET プログラムID = 'KalvaneInvoiceEntry', 終了日時 = '20240410 "
                      "093000' WHERE コンピュータID = 'SEAT01' AND ユーザID = 'tanaka'"}));
        EXPECT_FALSE(実行環境.主接続.is_open() || 実行環境.設定接続.is_open() || 実行環境.主接続中 ||
                     実行環境.設定接続中);
    }
    EXPECT_EQ(at.main("SELECT * FROM 使用状況"),
              "SEAT01|tanaka|KalvaneInvoiceEntry|20240410 093000|20240410 093000");
    EXPECT_EQ(history_of(at), (std::vector<std::string>{"開始 O'Brien x", "終了", "開始 O'Brien x", "終了"}));
}

TEST(起動, 起動後の状態) {
    const Installation at;
    Start start(at.root());
    ASSERT_TRUE(start.running());
    EXPECT_TRUE(Start::boxes.empty());
    EXPECT_EQ(frmKalvaneInvoiceEntry.caption, "KalvaneInvoiceEntry（株式会社みなと商会）");
    EXPECT_EQ(frmKalvaneInvoiceEntry.active, &frmKalvaneInvoiceEntry.営業請求日付年);
    EXPECT_FALSE(frmKalvaneInvoiceEntry.modal);
    EXPECT_EQ(history_of(at), std::vector<std::string>{"開始 "});  // the blank stays
    os::advance_clock(24LL * 3600 * 1000);
    EXPECT_EQ(実行環境.本日年 + "/" + 実行環境.本日月 + "/" + 実行環境.本日日, "2024/04/10");
    EXPECT_EQ(実行環境.本日日付, "20240410");
}

// Closing and opening the databases, as after a save: the counter starts anew, and a caller that waits gets
// an answer at each of the two ends.
TEST(起動, 再起動) {
    const Installation at;
    at.config(
        "INSERT INTO プログラム連携情報 VALUES ('20240410 092930', 'KalvaneCaller', 'KalvaneInvoiceEntry', "
        "'20240410 092930', '00', 'it''s', '', '000', '00001', 'tanaka')");
    Start start(at.root(), {.command_line = "it's "});
    ASSERT_TRUE(start.running());
    EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム連携情報"), "0");
    実行環境.事業所コード = "001";
    終了処理();
    ASSERT_TRUE(データベース起動());
    EXPECT_EQ(実行環境.事業所コード, "000");
    EXPECT_EQ(実行環境.連携元プログラムID, "");
    EXPECT_EQ(実行環境.起動連携情報, "it's");
    実行環境.終了連携情報 = "0009999999900000001";
    start.end();
    EXPECT_EQ(at.config("SELECT proccounter, 摘要 FROM プログラム稼動履歴 ORDER BY rowid"),
              "000000000001|開始 it's\n000000000002|終了\n000000000001|開始 it's\n000000000002|終了");
    EXPECT_EQ(at.config("SELECT * FROM プログラム連携情報 ORDER BY rowid"),
              "20240410 093000|KalvaneCaller|KalvaneInvoiceEntry|20240410 093000|99|it's||000|00001|tanaka\n"
              "20240410 093000||KalvaneInvoiceEntry|20240410 093000|99|it's|0009999999900000001|000|00001|"
              "tanaka");
}

struct Closing {
    const char* name;
    bool stored, changed, waiting, yes;
    bool closes;
    std::vector<std::string> boxes;
    const char* notice;
};
void PrintTo(const Closing& c, std::ostream* out) {
    *out << c.name;
}
class 終了前 : public testing::TestWithParam<Closing> {};
const std::string question = "入力がありました。\r終了しますか？";
INSTANTIATE_TEST_SUITE_P(
    Closings, 終了前,
    testing::Values(Closing{"unchanged", false, false, false, false, true, {}, ""},
                    Closing{"changed_no", false, true, false, false, false, {question}, ""},
                    Closing{"changed_yes", false, true, false, true, true, {question}, ""},
                    Closing{"stored_gap", true, true, false, true, false, {}, "必須項目が未入力です。"},
                    Closing{"waiting", false, true, true, true, false, {}, ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_P(終了前, 質問と終了) {
    const Installation at;
    Start start(at.root());
    ASSERT_TRUE(start.running());
    press_focus(frmKalvaneInvoiceEntry.得意先コード);
    実行環境.新規入力中 = !GetParam().stored;
    実行環境.入力変更あり = GetParam().changed;
    実行環境.連携待ち中 = GetParam().waiting;
    Start::yes = GetParam().yes;
    close_form(frmKalvaneInvoiceEntry);
    EXPECT_EQ(process_ended(), GetParam().closes);
    EXPECT_EQ(frmKalvaneInvoiceEntry.visible, !GetParam().closes);
    EXPECT_EQ(Start::boxes, GetParam().boxes);
    EXPECT_EQ(frmKalvaneInvoiceEntry.お知らせ.caption, GetParam().notice);
    EXPECT_EQ(history_of(at).back(), GetParam().closes ? "終了" : "開始 ");
    実行環境.連携待ち中 = false;
}

}  // namespace
}  // namespace kalvane
