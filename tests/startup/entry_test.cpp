// The start and the end as the databases see them.
#include <gtest/gtest.h>

#include "base/text.h"
#include "startup/start_run.h"

namespace kalvane {
namespace {

using test::history_of;
using test::Installation;
using test::Start;

std::string history_insert(const std::string& counter, const std::string& text) {
    return "config INSERT INTO プログラム稼動履歴 "
           "(実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,ユーザID)VALUES "
           "('20240410 093000', 'KalvaneInvoiceEntry', '" +
           counter + "', '" + text + "', '000', '00001', 'tanaka')";
}

std::vector<std::string> expected_start(const std::string& usage) {
    std::string names =
        "条件項目名A = '事業所コード', 条件項目名B = '番号基準日付', 条件項目名C = '営業請求No'";
    for (char letter = 'D'; letter <= 'Z'; ++letter) names += std::string(", 条件項目名") + letter + " = ''";
    return test::lines_of(Replace(R"(config SELECT * FROM データベース定義 WHERE 情報種類 = 'GNR'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
)" + history_insert("000000000001", "開始 O''Brien x") +
                                      R"(
config SELECT * FROM プログラム連携情報 WHERE 発信日時 >= '20240410 092900' AND 受信プログラムID = '@' \
          AND 起動連携情報 = 'O''Brien x' AND 連携区分 = '00'
main DELETE FROM 使用状況 WHERE 終了日時 < '20240310' AND 終了日時 <> ''
main SELECT * FROM 使用状況 WHERE コンピュータID = 'SEAT01' AND ユーザID = 'tanaka'
main )" + usage + R"(
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
config UPDATE Kalvane SET )" + names + R"( WHERE プログラムID = '@'
config SELECT * FROM 動作環境定義 WHERE 動作環境定義ID = '001'
main SELECT M担当者.* FROM M担当者 WHERE M担当者.コード = '00001'
main SELECT 担当者別操作許可プログラム.* FROM 担当者別操作許可プログラム WHERE \
          担当者別操作許可プログラム.担当者コード = '00001' AND 担当者別操作許可プログラム.業務メニュ = \
          'Kalvane' AND 担当者別操作許可プログラム.プログラムID = '@'
config SELECT * FROM Kalvane WHERE プログラムID = '@')",
                                  "@", "KalvaneInvoiceEntry"));
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

}  // namespace
}  // namespace kalvane
