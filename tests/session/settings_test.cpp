// Company, site and linked systems, and the title made of them.
#include "session/settings.h"

#include "base/failure.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

TEST(基本情報, 会社の列) {
    const Installation at(setup::Content::empty);
    at.main(
        "UPDATE Mユーザ SET 売上数量少数以下桁数 = '1', 売上単価少数以下桁数 = '2', 仕入数量少数以下桁数 = "
        "'3', 仕入単価少数以下桁数 = '4x', 在庫数量少数以下桁数 = ' 5', 在庫単価少数以下桁数 = '6.4', "
        "重量少数以下桁数 = NULL, 住所A = '住所', 電話 = NULL, 現金決済金額 = 1234.5, 特権暗証番号 = "
        "'stored', 決算月 = '-3', 伝票番号管理区分 = ''");
    // each other column once, by its name
    for (const char* column : {"名称", "社印file", "銀行口座D", "ドキュメントフォルダ", "BACKUPフォルダ",
                               "統計整理実行日", "登録日付", "更新日付"})
        at.main(std::string("UPDATE Mユーザ SET ") + column + " = '" + column + "'");
    Start start(at.root());
    const RunContext& r = 実行環境;
    EXPECT_EQ((std::vector{r.見積数量桁数, r.注文数量桁数, r.請求数量桁数, r.見積単価桁数, r.注文単価桁数,
                           r.請求単価桁数, r.発注数量桁数, r.仕入数量桁数, r.発注単価桁数, r.仕入単価桁数,
                           r.在庫数量桁数, r.在庫単価桁数, r.重量桁数, r.決算月, r.伝票番号管理区分}),
              (std::vector<std::int16_t>{1, 1, 1, 2, 2, 2, 3, 3, 4, 4, 5, 6, 0, -3, 0}));
    EXPECT_EQ(r.ID + r.住所A + r.電話 + r.特権暗証番号, "0001住所stored");
    EXPECT_EQ(r.現金決済金額, 通貨::from_double(1234.5));
    EXPECT_EQ(r.名称 + r.社印file + r.銀行口座D + r.ドキュメントフォルダ + r.BACKUPフォルダ +
                  r.統計整理実行日 + r.登録日付 + r.更新日付,
              "名称社印file銀行口座DドキュメントフォルダBACKUPフォルダ統計整理実行日登録日付更新日付");
    at.main("UPDATE Mユーザ SET 決算日 = '32768'");
    EXPECT_THROW(基本情報読込(), RunFailure);
}

// The company has 暗証番号有無 0, 更新実行区分 1 and the folders C and D. 運用事業所コード before, the row of
// the site 001, what is used then, and whether the site is written back.
TEST(事業所, 会社の設定の置換) {
    const Installation at(setup::Content::empty);
    at.main(
        "UPDATE Mユーザ SET 暗証番号有無 = '0', 更新実行区分 = '1', テキスト出力フォルダ = 'C', "
        "BACKUPフォルダ = 'D'");
    at.main("UPDATE M事業所 SET 暗証番号有無 = '7', 更新実行区分 = '7', テキスト出力フォルダ = 'H'");
    at.keep();
    for (const auto& r : table(R"('000'||000 0 1 C D| ; NULL||000 0 1 C D|
        '001'|'2', '3', 'X', 'Y'|001 2 3 X Y| ; '001'|'0', '0', '', NULL|001 0 0 C D|
        '001'|NULL, NULL, NULL, 'Y'|001 0 0 C Y| ; '777'||000 0 1 C D|back ; ''||000 0 1 C D|back)")) {
        SCOPED_TRACE(r[0] + r[1]);
        at.restore();
        if (!r[1].empty())
            at.main(
                "INSERT INTO M事業所 (コード, 名称, 暗証番号有無, 更新実行区分, テキスト出力フォルダ, "
                "BACKUPフォルダ) VALUES ('001', '大阪', " +
                r[1] + ")");
        at.config("UPDATE 動作環境定義 SET 運用事業所コード = " + r[0]);
        Start start(at.root());
        ASSERT_TRUE(start.running());
        const RunContext& c = 実行環境;
        EXPECT_EQ(c.運用事業所コード + " " + std::to_string(c.暗証番号有無) + " " +
                      std::to_string(c.更新実行区分) + " " + c.テキスト出力フォルダ + " " + c.BACKUPフォルダ,
                  r[2]);
        EXPECT_EQ(c.事業所コード, c.運用事業所コード);  // of the new document
        std::vector<std::string> rows{"開始 "};
        if (!r[3].empty())
            rows.push_back(
                "出力終了 UPDATE 動作環境定義 SET  運用事業所コード = '000' WHERE 動作環境定義ID = '001'");
        EXPECT_EQ(history_of(at), rows);
        EXPECT_EQ(at.config("SELECT 運用事業所コード FROM 動作環境定義"),
                  r[0] == "NULL" ? "NULL" : c.運用事業所コード);
    }
}

TEST(タイトル, 組合せ) {
    const Installation at;
    at.main("UPDATE M事業所 SET 名称 = '   ' WHERE コード = '002'");
    Start start(at.root());
    std::string names;
    for (const LinkedSystem& l : 実行環境.他業務連携) names += l.業務名 + "/";
    EXPECT_EQ(names, "財務会計/購買管理/給与計算/固定資産/固定資産//////");
    EXPECT_EQ(実行環境.他業務連携件数 * 10 + 実行環境.事業所件数, 52);
    EXPECT_EQ(実行環境.事業所名称, "本社");
    EXPECT_EQ(frmKalvaneInvoiceEntry.prg_ttl.caption, "KalvaneInvoiceEntry(全社)「佐藤 誠」");
    at.main("INSERT INTO M事業所 (コード) VALUES ('003')");
    // site, number of sites, operator's code and name, what stands behind the program's name
    for (const auto& r : table(R"(000|0||| ; 000|2|||(全社) ; 001|2|||(大阪営業所) ; 002|2||| ; 003|2|||
        777|2|00001|佐藤 誠|「佐藤 誠」 ; 000|1|00001||(全社)「」)")) {
        SCOPED_TRACE(r[0] + r[1]);
        実行環境.運用事業所コード = r[0];
        実行環境.事業所件数 = to_i16(r[1]);
        実行環境.起動担当者コード = r[2];
        実行環境.起動担当者名 = r[3];
        タイトル表示();
        EXPECT_EQ(frmKalvaneInvoiceEntry.prg_ttl.caption, "KalvaneInvoiceEntry" + r[4]);
    }
}

}  // namespace
}  // namespace kalvane
