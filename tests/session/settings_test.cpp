// Company, site and linked systems, and the title made of them.
#include "session/settings.h"

#include "base/failure.h"
#include "platform/os/secrets.h"
#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

// A column of the company and its setting, under the same name; one of the site, under its own.
using Text = std::pair<const char*, std::string RunContext::*>;
using Digit = std::pair<const char*, std::int16_t RunContext::*>;
#define C(name) \
    { #name, &RunContext::name }
#define S(name) \
    { #name, &RunContext::事業所##name }
// clang-format off
const Text company_texts[] = {
    C(名称), C(郵便番号), C(住所A), C(住所B), C(住所C), C(代表者名), C(電話), C(FAX), C(HOMEPAGE), C(EMAIL),
    C(会社ロゴfile), C(社印file), C(銀行口座A), C(銀行口座B), C(銀行口座C), C(銀行口座D), C(写真フォルダ),
    C(ドキュメントフォルダ), C(特権暗証番号), C(明細整理実行日), C(統計整理実行日), C(登録日付), C(更新日付)};
const Text company_folders[] = {
    C(総合振込ファイル), C(基本読込フォルダ), C(帳票イメージフォルダ), C(その他読込ファイル),
    C(本支店連携フォルダ), C(テキスト出力フォルダ), C(BACKUPフォルダ)};
const Digit company_digits[] = {
    C(決算月), C(決算日), C(締日区分), C(締日), C(決済方法), C(決済月), C(決済日), C(手形サイト),
    C(売上金額丸め方法), C(仕入金額丸め方法), C(在庫評価方法), C(売上数量少数以下桁数),
    C(売上単価少数以下桁数), C(仕入数量少数以下桁数), C(仕入単価少数以下桁数), C(在庫数量少数以下桁数),
    C(在庫単価少数以下桁数), C(重量少数以下桁数), C(得意先単価自動更新区分), C(納品先単価自動更新区分),
    C(仕入先単価自動更新区分), C(明細保存月数), C(統計保存年数), C(整理実施可能日自), C(整理実施可能日至),
    C(整理実施可能時刻), C(伝票番号管理区分)};
const Digit replaced_digits[] = {C(暗証番号有無), C(更新実行区分)};
const Text site_texts[] = {
    S(名称), S(郵便番号), S(住所A), S(住所B), S(住所C), S(代表者名), S(電話), S(FAX), S(HOMEPAGE), S(EMAIL),
    S(銀行口座A), S(銀行口座B), S(銀行口座C), S(銀行口座D), S(総合振込ファイル), S(基本読込フォルダ),
    S(帳票イメージフォルダ), S(その他読込ファイル), S(本支店連携フォルダ), S(テキスト出力フォルダ),
    S(BACKUPフォルダ), C(登録番号), C(地区コード)};
const Digit site_digits[] = {S(暗証番号有無), S(更新実行区分)};
// clang-format on
#undef C
#undef S

// Every column holds another value. A site of its own replaces the folders and two 区分 of the company, the
// head office nothing.
TEST(基本情報, 各列の行き先) {
    const Installation at(setup::Content::empty);
    at.main("INSERT INTO M事業所 (コード) VALUES ('001')");
    os::set_key_file(os::program_path(at.root() + "/conf/" + os::key_file_name));
    at.main("UPDATE Mユーザ SET 現金決済金額 = 1234.5, システム特権暗証番号 = '" + os::暗号化("SYSTEM1") +
            "'");
    at.main("UPDATE M事業所 SET 特権暗証番号 = '" + os::暗号化("SITE1") + "'");
    int number = 1;
    const auto lay = [&](const char* table, const std::string& mark, const auto& columns) {
        for (const auto& [column, member] : columns) {
            const bool digit = std::is_same_v<decltype(member), std::int16_t RunContext::*const>;
            const std::string value = digit ? std::to_string(++number) : mark + column;
            at.main(std::string("UPDATE ") + table + " SET " + column + " = '" + value + "'");
        }
    };
    lay("Mユーザ", "", company_texts);
    lay("Mユーザ", "", company_folders);
    lay("Mユーザ", "", company_digits);
    lay("Mユーザ", "", replaced_digits);
    lay("M事業所", "S", site_texts);
    lay("M事業所", "S", site_digits);
    for (const std::string site : {"000", "001"}) {
        SCOPED_TRACE(site);
        at.config("UPDATE 動作環境定義 SET 運用事業所コード = '" + site + "'");
        Start start(at.root());
        const RunContext& r = 実行環境;
        for (const auto& [column, member] : company_texts) EXPECT_EQ(r.*member, column);
        for (const auto& [column, member] : company_folders)
            EXPECT_EQ(r.*member, (site == "000" ? "" : "S") + std::string(column));
        for (const auto& [column, member] : site_texts) EXPECT_EQ(r.*member, "S" + std::string(column));
        int expected = 1;
        for (const auto& [column, member] : company_digits) EXPECT_EQ(r.*member, ++expected) << column;
        const int first = site == "000" ? expected : expected + 2;
        EXPECT_EQ(r.暗証番号有無 * 100 + r.更新実行区分, (first + 1) * 100 + first + 2);
        expected += 2;
        for (const auto& [column, member] : site_digits) EXPECT_EQ(r.*member, ++expected) << column;
        EXPECT_EQ(r.ID + r.システム特権暗証番号 + r.事業所特権暗証番号, "0001SYSTEM1SITE1");
        EXPECT_EQ(r.現金決済金額, 通貨::from_double(1234.5));
        // the decimals once more for each kind of document: sale, purchase, stock
        const std::int16_t copies[] = {r.見積数量桁数, r.注文数量桁数, r.請求数量桁数, r.見積単価桁数,
                                       r.注文単価桁数, r.請求単価桁数, r.発注数量桁数, r.仕入数量桁数,
                                       r.発注単価桁数, r.仕入単価桁数, r.在庫数量桁数, r.在庫単価桁数,
                                       r.重量桁数};
        const int place[] = {0, 0, 0, 1, 1, 1, 2, 2, 3, 3, 4, 5, 6};
        for (std::size_t i = 0; i < std::size(place); ++i) EXPECT_EQ(copies[i], 13 + place[i]) << i;
    }
}

// A number is the digits at the front; what is NULL or none stays as it was at the start.
TEST(基本情報, 列の形) {
    const Installation at(setup::Content::empty);
    at.main(
        "UPDATE Mユーザ SET 決算月 = '-3x', 締日 = ' 5', 決済月 = '6.4', 決済日 = NULL, 手形サイト = '', "
        "電話 = NULL");
    Start start(at.root());
    const RunContext& r = 実行環境;
    EXPECT_EQ((std::vector{r.決算月, r.締日, r.決済月, r.決済日, r.手形サイト}),
              (std::vector<std::int16_t>{-3, 5, 6, 0, 0}));
    EXPECT_EQ(r.電話, "");
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
