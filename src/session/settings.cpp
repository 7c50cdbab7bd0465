// Columns of company, site and linked systems into the run context.
//
// How to add a setting: its member in records/run_context.h, a row in company_fields or site_fields, its
// column in setup/schema.cpp; a row in replaced when the site's value goes before the company's.
#include "session/settings.h"

#include <array>

#include "data/fields.h"
#include "data/query.h"
#include "platform/os/secrets.h"
#include "records/run_context.h"

namespace kalvane {
namespace {

constexpr auto company_fields = std::to_array<Field<RunContext>>({
    {"ID", &RunContext::ID},
    {"郵便番号", &RunContext::郵便番号},
    {"住所A", &RunContext::住所A},
    {"住所B", &RunContext::住所B},
    {"住所C", &RunContext::住所C},
    {"代表者名", &RunContext::代表者名},
    {"電話", &RunContext::電話},
    {"FAX", &RunContext::FAX},
    {"HOMEPAGE", &RunContext::HOMEPAGE},
    {"EMAIL", &RunContext::EMAIL},
    {"会社ロゴfile", &RunContext::会社ロゴfile},
    {"社印file", &RunContext::社印file},
    {"銀行口座A", &RunContext::銀行口座A},
    {"銀行口座B", &RunContext::銀行口座B},
    {"銀行口座C", &RunContext::銀行口座C},
    {"銀行口座D", &RunContext::銀行口座D},
    {"名称", &RunContext::名称},
    {"決算月", &RunContext::決算月},
    {"決算日", &RunContext::決算日},
    {"締日区分", &RunContext::締日区分},
    {"締日", &RunContext::締日},
    {"決済方法", &RunContext::決済方法},
    {"決済月", &RunContext::決済月},
    {"決済日", &RunContext::決済日},
    {"手形サイト", &RunContext::手形サイト},
    {"現金決済金額", &RunContext::現金決済金額},
    {"売上金額丸め方法", &RunContext::売上金額丸め方法},
    {"仕入金額丸め方法", &RunContext::仕入金額丸め方法},
    {"在庫評価方法", &RunContext::在庫評価方法},
    {"売上数量少数以下桁数", &RunContext::売上数量少数以下桁数},
    {"売上単価少数以下桁数", &RunContext::売上単価少数以下桁数},
    {"仕入数量少数以下桁数", &RunContext::仕入数量少数以下桁数},
    {"仕入単価少数以下桁数", &RunContext::仕入単価少数以下桁数},
    {"在庫数量少数以下桁数", &RunContext::在庫数量少数以下桁数},
    {"在庫単価少数以下桁数", &RunContext::在庫単価少数以下桁数},
    {"重量少数以下桁数", &RunContext::重量少数以下桁数},
    {"得意先単価自動更新区分", &RunContext::得意先単価自動更新区分},
    {"納品先単価自動更新区分", &RunContext::納品先単価自動更新区分},
    {"仕入先単価自動更新区分", &RunContext::仕入先単価自動更新区分},
    {"写真フォルダ", &RunContext::写真フォルダ},
    {"ドキュメントフォルダ", &RunContext::ドキュメントフォルダ},
    {"総合振込ファイル", &RunContext::総合振込ファイル},
    {"基本読込フォルダ", &RunContext::基本読込フォルダ},
    {"帳票イメージフォルダ", &RunContext::帳票イメージフォルダ},
    {"その他読込ファイル", &RunContext::その他読込ファイル},
    {"本支店連携フォルダ", &RunContext::本支店連携フォルダ},
    {"テキスト出力フォルダ", &RunContext::テキスト出力フォルダ},
    {"BACKUPフォルダ", &RunContext::BACKUPフォルダ},
    {"明細保存月数", &RunContext::明細保存月数},
    {"統計保存年数", &RunContext::統計保存年数},
    {"整理実施可能日自", &RunContext::整理実施可能日自},
    {"整理実施可能日至", &RunContext::整理実施可能日至},
    {"整理実施可能時刻", &RunContext::整理実施可能時刻},
    {"明細整理実行日", &RunContext::明細整理実行日},
    {"統計整理実行日", &RunContext::統計整理実行日},
    {"伝票番号管理区分", &RunContext::伝票番号管理区分},
    {"暗証番号有無", &RunContext::暗証番号有無},
    {"特権暗証番号", &RunContext::特権暗証番号},
    {"更新実行区分", &RunContext::更新実行区分},
    {"登録日付", &RunContext::登録日付},
    {"更新日付", &RunContext::更新日付},
});

constexpr auto site_fields = std::to_array<Field<RunContext>>({
    {"名称", &RunContext::事業所名称},
    {"郵便番号", &RunContext::事業所郵便番号},
    {"住所A", &RunContext::事業所住所A},
    {"住所B", &RunContext::事業所住所B},
    {"住所C", &RunContext::事業所住所C},
    {"代表者名", &RunContext::事業所代表者名},
    {"電話", &RunContext::事業所電話},
    {"FAX", &RunContext::事業所FAX},
    {"登録番号", &RunContext::登録番号},
    {"HOMEPAGE", &RunContext::事業所HOMEPAGE},
    {"EMAIL", &RunContext::事業所EMAIL},
    {"銀行口座A", &RunContext::事業所銀行口座A},
    {"銀行口座B", &RunContext::事業所銀行口座B},
    {"銀行口座C", &RunContext::事業所銀行口座C},
    {"銀行口座D", &RunContext::事業所銀行口座D},
    {"総合振込ファイル", &RunContext::事業所総合振込ファイル},
    {"基本読込フォルダ", &RunContext::事業所基本読込フォルダ},
    {"帳票イメージフォルダ", &RunContext::事業所帳票イメージフォルダ},
    {"その他読込ファイル", &RunContext::事業所その他読込ファイル},
    {"本支店連携フォルダ", &RunContext::事業所本支店連携フォルダ},
    {"テキスト出力フォルダ", &RunContext::事業所テキスト出力フォルダ},
    {"BACKUPフォルダ", &RunContext::事業所BACKUPフォルダ},
    {"地区コード", &RunContext::地区コード},
    {"暗証番号有無", &RunContext::事業所暗証番号有無},
    {"更新実行区分", &RunContext::事業所更新実行区分},
});

constexpr auto link_fields = std::to_array<Field<LinkedSystem>>({
    {"業務名", &LinkedSystem::業務名},
    {"連携有無区分", &LinkedSystem::連携有無区分},
    {"連携DB", &LinkedSystem::連携DB},
    {"連携DBMW", &LinkedSystem::連携DBMW},
    {"連携データソース名", &LinkedSystem::連携データソース名},
    {"連携ドライバ名", &LinkedSystem::連携ドライバ名},
    {"連携接続文字列", &LinkedSystem::連携接続文字列},
    {"連携データベース名", &LinkedSystem::連携データベース名},
    {"連携サーバー名", &LinkedSystem::連携サーバー名},
    {"連携ユーザーID", &LinkedSystem::連携ユーザーID},
    {"連携パスワード", &LinkedSystem::連携パスワード},
    {"連携アプリフォルダ", &LinkedSystem::連携アプリフォルダ},
    {"顧客更新有無区分", &LinkedSystem::顧客更新有無区分},
    {"得意先更新有無区分", &LinkedSystem::得意先更新有無区分},
    {"納品先更新有無区分", &LinkedSystem::納品先更新有無区分},
    {"仕入先更新有無区分", &LinkedSystem::仕入先更新有無区分},
    {"メーカ更新有無区分", &LinkedSystem::メーカ更新有無区分},
    {"対応先更新有無区分", &LinkedSystem::対応先更新有無区分},
    {"商品更新有無区分", &LinkedSystem::商品更新有無区分},
    {"社員更新有無区分", &LinkedSystem::社員更新有無区分},
});

// The last key stands twice on purpose.
constexpr std::array<const char*, 5> link_keys{"003", "002", "004", "005", "005"};

// Each kind of document formats by the decimals of its side.
struct Decimals {
    std::int16_t RunContext::*from;
    std::int16_t RunContext::*to;
};
constexpr std::array<Decimals, 13> decimals{{
    {&RunContext::売上数量少数以下桁数, &RunContext::見積数量桁数},
    {&RunContext::売上単価少数以下桁数, &RunContext::見積単価桁数},
    {&RunContext::売上数量少数以下桁数, &RunContext::注文数量桁数},
    {&RunContext::売上単価少数以下桁数, &RunContext::注文単価桁数},
    {&RunContext::売上数量少数以下桁数, &RunContext::請求数量桁数},
    {&RunContext::売上単価少数以下桁数, &RunContext::請求単価桁数},
    {&RunContext::仕入数量少数以下桁数, &RunContext::発注数量桁数},
    {&RunContext::仕入単価少数以下桁数, &RunContext::発注単価桁数},
    {&RunContext::仕入数量少数以下桁数, &RunContext::仕入数量桁数},
    {&RunContext::仕入単価少数以下桁数, &RunContext::仕入単価桁数},
    {&RunContext::在庫数量少数以下桁数, &RunContext::在庫数量桁数},
    {&RunContext::在庫単価少数以下桁数, &RunContext::在庫単価桁数},
    {&RunContext::重量少数以下桁数, &RunContext::重量桁数},
}};

// Files and folders where a site's own value replaces the company's.
struct Replaced {
    std::string RunContext::*company;
    std::string RunContext::*site;
};
constexpr std::array<Replaced, 7> replaced{{
    {&RunContext::総合振込ファイル, &RunContext::事業所総合振込ファイル},
    {&RunContext::基本読込フォルダ, &RunContext::事業所基本読込フォルダ},
    {&RunContext::帳票イメージフォルダ, &RunContext::事業所帳票イメージフォルダ},
    {&RunContext::その他読込ファイル, &RunContext::事業所その他読込ファイル},
    {&RunContext::本支店連携フォルダ, &RunContext::事業所本支店連携フォルダ},
    {&RunContext::テキスト出力フォルダ, &RunContext::事業所テキスト出力フォルダ},
    {&RunContext::BACKUPフォルダ, &RunContext::事業所BACKUPフォルダ},
}};

bool read_site(ado::Recordset& rs, const std::string& code) {
    return 主DB読込(rs, "SELECT * FROM M事業所 WHERE コード = " + literal(code));
}

// The site's row, or that of the head office, which then becomes the site of the installation.
bool read_site_or_head_office(ado::Recordset& rs) {
    if (read_site(rs, 実行環境.運用事業所コード)) return true;
    rs.Close();
    const bool found = read_site(rs, 全社事業所);
    運用事業所更新(全社事業所);
    return found;
}

void 他業務連携読込() {
    実行環境.他業務連携件数 = static_cast<std::int16_t>(link_keys.size());
    for (std::size_t slot = 0; slot < link_keys.size(); ++slot) {
        ado::Recordset rs;
        if (主DB読込(rs, std::string("SELECT TOP 1 * FROM M他業務連携 WHERE コード = ") +
                             literal(link_keys[slot])))
            take_all(rs, link_fields, 実行環境.他業務連携[slot]);
        rs.Close();
    }
}

void 事業所情報読込() {
    RunContext& r = 実行環境;
    ado::Recordset rs;
    if (read_site_or_head_office(rs)) {
        take_all(rs, site_fields, r);
        const ado::Value& pin = rs.Fields("特権暗証番号");
        if (!pin.is_null()) r.事業所特権暗証番号 = os::復号(pin.text());
    }
    rs.Close();
    if (r.運用事業所コード == 全社事業所) return;
    r.暗証番号有無 = r.事業所暗証番号有無;
    r.更新実行区分 = r.事業所更新実行区分;
    for (const Replaced& f : replaced)
        if (!(r.*f.site).empty()) r.*f.company = r.*f.site;
}

void count_sites() {
    実行環境.事業所件数 = 0;
    ado::Recordset rs;
    if (主DB読込(rs, "SELECT COUNT(*) AS 事業所件数 FROM M事業所 WHERE コード <> '000'"))
        take(rs.Fields("事業所件数"), 実行環境.事業所件数);
    rs.Close();
}

}  // namespace

bool 基本情報読込() {
    ado::Recordset rs;
    const bool found = 主DB読込(rs, "SELECT * FROM Mユーザ WHERE ID = '0001'");
    if (found) {
        take_all(rs, company_fields, 実行環境);
        const ado::Value& pin = rs.Fields("システム特権暗証番号");
        if (!pin.is_null()) 実行環境.システム特権暗証番号 = os::復号(pin.text());
    }
    rs.Close();
    for (const Decimals& d : decimals) 実行環境.*d.to = 実行環境.*d.from;
    ado::Recordset site;
    read_site_or_head_office(site);
    site.Close();
    他業務連携読込();
    事業所情報読込();
    count_sites();
    return found;
}

void 運用事業所更新(const std::string& code) {
    実行環境.運用事業所コード = code;
    設定DB実行記録("UPDATE 動作環境定義 SET  運用事業所コード = " + literal(code) +
                   " WHERE 動作環境定義ID = '001'");
}

}  // namespace kalvane
