// Columns of company, site and linked systems into the run context.
#include "session/settings.h"

#include <array>

#include "data/fields.h"
#include "data/query.h"
#include "platform/os/secrets.h"
#include "records/run_context.h"

namespace kalvane {
namespace {

constexpr std::array<Field<RunContext>, 61> company_fields{{
    {.column = "ID", .text = &RunContext::ID},
    {.column = "郵便番号", .text = &RunContext::郵便番号},
    {.column = "住所A", .text = &RunContext::住所A},
    {.column = "住所B", .text = &RunContext::住所B},
    {.column = "住所C", .text = &RunContext::住所C},
    {.column = "代表者名", .text = &RunContext::代表者名},
    {.column = "電話", .text = &RunContext::電話},
    {.column = "FAX", .text = &RunContext::FAX},
    {.column = "HOMEPAGE", .text = &RunContext::HOMEPAGE},
    {.column = "EMAIL", .text = &RunContext::EMAIL},
    {.column = "会社ロゴfile", .text = &RunContext::会社ロゴfile},
    {.column = "社印file", .text = &RunContext::社印file},
    {.column = "銀行口座A", .text = &RunContext::銀行口座A},
    {.column = "銀行口座B", .text = &RunContext::銀行口座B},
    {.column = "銀行口座C", .text = &RunContext::銀行口座C},
    {.column = "銀行口座D", .text = &RunContext::銀行口座D},
    {.column = "名称", .text = &RunContext::名称},
    {.column = "決算月", .digit = &RunContext::決算月},
    {.column = "決算日", .digit = &RunContext::決算日},
    {.column = "締日区分", .digit = &RunContext::締日区分},
    {.column = "締日", .digit = &RunContext::締日},
    {.column = "決済方法", .digit = &RunContext::決済方法},
    {.column = "決済月", .digit = &RunContext::決済月},
    {.column = "決済日", .digit = &RunContext::決済日},
    {.column = "手形サイト", .digit = &RunContext::手形サイト},
    {.column = "現金決済金額", .money = &RunContext::現金決済金額},
    {.column = "売上金額丸め方法", .digit = &RunContext::売上金額丸め方法},
    {.column = "仕入金額丸め方法", .digit = &RunContext::仕入金額丸め方法},
    {.column = "在庫評価方法", .digit = &RunContext::在庫評価方法},
    {.column = "売上数量少数以下桁数", .digit = &RunContext::売上数量少数以下桁数},
    {.column = "売上単価少数以下桁数", .digit = &RunContext::売上単価少数以下桁数},
    {.column = "仕入数量少数以下桁数", .digit = &RunContext::仕入数量少数以下桁数},
    {.column = "仕入単価少数以下桁数", .digit = &RunContext::仕入単価少数以下桁数},
    {.column = "在庫数量少数以下桁数", .digit = &RunContext::在庫数量少数以下桁数},
    {.column = "在庫単価少数以下桁数", .digit = &RunContext::在庫単価少数以下桁数},
    {.column = "重量少数以下桁数", .digit = &RunContext::重量少数以下桁数},
    {.column = "得意先単価自動更新区分", .digit = &RunContext::得意先単価自動更新区分},
    {.column = "納品先単価自動更新区分", .digit = &RunContext::納品先単価自動更新区分},
    {.column = "仕入先単価自動更新区分", .digit = &RunContext::仕入先単価自動更新区分},
    {.column = "写真フォルダ", .text = &RunContext::写真フォルダ},
    {.column = "ドキュメントフォルダ", .text = &RunContext::ドキュメントフォルダ},
    {.column = "総合振込ファイル", .text = &RunContext::総合振込ファイル},
    {.column = "基本読込フォルダ", .text = &RunContext::基本読込フォルダ},
    {.column = "帳票イメージフォルダ", .text = &RunContext::帳票イメージフォルダ},
    {.column = "その他読込ファイル", .text = &RunContext::その他読込ファイル},
    {.column = "本支店連携フォルダ", .text = &RunContext::本支店連携フォルダ},
    {.column = "テキスト出力フォルダ", .text = &RunContext::テキスト出力フォルダ},
    {.column = "BACKUPフォルダ", .text = &RunContext::BACKUPフォルダ},
    {.column = "明細保存月数", .digit = &RunContext::明細保存月数},
    {.column = "統計保存年数", .digit = &RunContext::統計保存年数},
    {.column = "整理実施可能日自", .digit = &RunContext::整理実施可能日自},
    {.column = "整理実施可能日至", .digit = &RunContext::整理実施可能日至},
    {.column = "整理実施可能時刻", .digit = &RunContext::整理実施可能時刻},
    {.column = "明細整理実行日", .text = &RunContext::明細整理実行日},
    {.column = "統計整理実行日", .text = &RunContext::統計整理実行日},
    {.column = "伝票番号管理区分", .digit = &RunContext::伝票番号管理区分},
    {.column = "暗証番号有無", .digit = &RunContext::暗証番号有無},
    {.column = "特権暗証番号", .text = &RunContext::特権暗証番号},
    {.column = "更新実行区分", .digit = &RunContext::更新実行区分},
    {.column = "登録日付", .text = &RunContext::登録日付},
    {.column = "更新日付", .text = &RunContext::更新日付},
}};

constexpr std::array<Field<RunContext>, 25> site_fields{{
    {.column = "名称", .text = &RunContext::事業所名称},
    {.column = "郵便番号", .text = &RunContext::事業所郵便番号},
    {.column = "住所A", .text = &RunContext::事業所住所A},
    {.column = "住所B", .text = &RunContext::事業所住所B},
    {.column = "住所C", .text = &RunContext::事業所住所C},
    {.column = "代表者名", .text = &RunContext::事業所代表者名},
    {.column = "電話", .text = &RunContext::事業所電話},
    {.column = "FAX", .text = &RunContext::事業所FAX},
    {.column = "登録番号", .text = &RunContext::登録番号},
    {.column = "HOMEPAGE", .text = &RunContext::事業所HOMEPAGE},
    {.column = "EMAIL", .text = &RunContext::事業所EMAIL},
    {.column = "銀行口座A", .text = &RunContext::事業所銀行口座A},
    {.column = "銀行口座B", .text = &RunContext::事業所銀行口座B},
    {.column = "銀行口座C", .text = &RunContext::事業所銀行口座C},
    {.column = "銀行口座D", .text = &RunContext::事業所銀行口座D},
    {.column = "総合振込ファイル", .text = &RunContext::事業所総合振込ファイル},
    {.column = "基本読込フォルダ", .text = &RunContext::事業所基本読込フォルダ},
    {.column = "帳票イメージフォルダ", .text = &RunContext::事業所帳票イメージフォルダ},
    {.column = "その他読込ファイル", .text = &RunContext::事業所その他読込ファイル},
    {.column = "本支店連携フォルダ", .text = &RunContext::事業所本支店連携フォルダ},
    {.column = "テキスト出力フォルダ", .text = &RunContext::事業所テキスト出力フォルダ},
    {.column = "BACKUPフォルダ", .text = &RunContext::事業所BACKUPフォルダ},
    {.column = "地区コード", .text = &RunContext::地区コード},
    {.column = "暗証番号有無", .digit = &RunContext::事業所暗証番号有無},
    {.column = "更新実行区分", .digit = &RunContext::事業所更新実行区分},
}};

constexpr std::array<Field<LinkedSystem>, 20> link_fields{{
    {.column = "業務名", .text = &LinkedSystem::業務名},
    {.column = "連携有無区分", .digit = &LinkedSystem::連携有無区分},
    {.column = "連携DB", .text = &LinkedSystem::連携DB},
    {.column = "連携DBMW", .text = &LinkedSystem::連携DBMW},
    {.column = "連携データソース名", .text = &LinkedSystem::連携データソース名},
    {.column = "連携ドライバ名", .text = &LinkedSystem::連携ドライバ名},
    {.column = "連携接続文字列", .text = &LinkedSystem::連携接続文字列},
    {.column = "連携データベース名", .text = &LinkedSystem::連携データベース名},
    {.column = "連携サーバー名", .text = &LinkedSystem::連携サーバー名},
    {.column = "連携ユーザーID", .text = &LinkedSystem::連携ユーザーID},
    {.column = "連携パスワード", .text = &LinkedSystem::連携パスワード},
    {.column = "連携アプリフォルダ", .text = &LinkedSystem::連携アプリフォルダ},
    {.column = "顧客更新有無区分", .digit = &LinkedSystem::顧客更新有無区分},
    {.column = "得意先更新有無区分", .digit = &LinkedSystem::得意先更新有無区分},
    {.column = "納品先更新有無区分", .digit = &LinkedSystem::納品先更新有無区分},
    {.column = "仕入先更新有無区分", .digit = &LinkedSystem::仕入先更新有無区分},
    {.column = "メーカ更新有無区分", .digit = &LinkedSystem::メーカ更新有無区分},
    {.column = "対応先更新有無区分", .digit = &LinkedSystem::対応先更新有無区分},
    {.column = "商品更新有無区分", .digit = &LinkedSystem::商品更新有無区分},
    {.column = "社員更新有無区分", .digit = &LinkedSystem::社員更新有無区分},
}};

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
    return 主DB読込(rs, "SELECT * FROM M事業所 WHERE コード = '" + code + "'");
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
        if (主DB読込(rs,
                     std::string("SELECT TOP 1 * FROM M他業務連携 WHERE コード = '") + link_keys[slot] + "'"))
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
    設定DB実行記録("UPDATE 動作環境定義 SET  運用事業所コード = '" + code + "' WHERE 動作環境定義ID = '001'");
}

}  // namespace kalvane
