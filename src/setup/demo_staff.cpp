// The demonstration company: its row, sites, departments, sections and operators.
//
// How to add an operator: put a row into the table; a right of '0' allows, every other value denies. Raise
// schema_version.
#include <array>
#include <string>

#include "setup/content.h"
#include "setup/seed.h"

namespace kalvane::setup {
namespace {

constexpr auto seeds = std::to_array<Seed>({
    {"Mユーザ",
     "ID 名称 郵便番号 住所A 住所B 代表者名 電話 FAX HOMEPAGE EMAIL 銀行口座A 銀行口座B 決算月 決算日 "
     "締日区分 締日 "
     "決済方法 決済月 決済日 手形サイト 現金決済金額 売上金額丸め方法 仕入金額丸め方法 在庫評価方法 "
     "売上数量少数以下桁数 売上単価少数以下桁数 仕入数量少数以下桁数 仕入単価少数以下桁数 "
     "在庫数量少数以下桁数 "
     "在庫単価少数以下桁数 重量少数以下桁数 得意先単価自動更新区分 納品先単価自動更新区分 "
     "仕入先単価自動更新区分 "
     "明細保存月数 統計保存年数 整理実施可能日自 整理実施可能日至 整理実施可能時刻 伝票番号管理区分 "
     "暗証番号有無 "
     "更新実行区分 登録日付",
     "0001|株式会社みなと商会|221-0052|神奈川県横浜市神奈川区栄町5-1|みなとビル7階|佐藤 "
     "誠|045-000-1100|045-000-1101|"
     "https://minato-shokai.example|info@minato-shokai.example|みなと銀行 横浜支店 普通 0001234|"
     "かもめ信用金庫 神奈川支店 当座 "
     "0005678|3|31|0|31|1|1|31|0|0|0|0|1|1|2|1|2|1|2|1|0|0|0|36|10|1|31|20|0|0|1|"
     "20240401 090000"},
    {"M事業所",
     "コード 名称 郵便番号 住所A 住所B 代表者名 電話 FAX 登録番号 EMAIL 銀行口座A 地区コード 暗証番号有無 "
     "更新実行区分",
     "000|本社|221-0052|神奈川県横浜市神奈川区栄町5-1|みなとビル7階|佐藤 誠|045-000-1100|045-000-1101|"
     "T0000000000001|info@minato-shokai.example|みなと銀行 横浜支店 普通 0001234|01|0|1\n"
     "001|大阪営業所|530-0001|大阪府大阪市北区梅田2-8-4|梅田東ビル3階|高橋 健一|06-0000-2200|06-0000-2201|"
     "T0000000000001|osaka@minato-shokai.example|みなと銀行 大阪支店 普通 0002345|02|0|1\n"
     "002|福岡営業所|812-0011|福岡県福岡市博多区博多駅前3-6-12|駅前第二ビル5階|松本 "
     "大輔|092-000-3300|092-000-3301|"
     "T0000000000001|fukuoka@minato-shokai.example|みなと銀行 福岡支店 普通 0003456|03|0|1"},
    {"M部門", "コード 名称 稼動状況区分", "001|営業部|0\n002|業務部|0\n003|管理部|0\n004|通信販売部|1"},
    {"Mセクション", "コード 名称 稼動状況区分",
     "001|法人第一課|0\n002|法人第二課|0\n003|公共課|0\n004|受注課|0\n005|購買課|0\n006|総務課|0\n007|催事課|"
     "1"},
    {"M他業務連携", "コード 業務名 連携有無区分",
     "002|購買管理|0\n003|財務会計|0\n004|給与計算|0\n005|固定資産|0"},
    // overrides of an operator's rights for one program
    {"担当者別操作許可プログラム",
     "担当者コード 業務メニュ プログラムID 操作許可 入力許可 修正許可 削除許可 印刷許可 プレビュ許可 "
     "テキスト出力許可 イメージ出力許可",
     "00006|Kalvane|KalvaneInvoiceEntry|0|0|0|1|0|0|0|0\n"
     "00009|Kalvane|KalvaneInvoicePrint|0|0|0|0|1|0|1|1"},
});

// menu: the rights to the ten classes of programs, acts: those to start, input, modify, delete, print,
// preview, text output, image output; '0' allows.
struct Operator {
    std::string_view code, name, kana, site, department, section, kind, employed, left, login, level;
    std::string_view menu = "0000000000", acts = "00000000";
};

constexpr auto operators = std::to_array<Operator>({
    {"00001", "佐藤 誠", "ｻﾄｳ ﾏｺﾄ", "000", "003", "006", "0", "0", "", "sato", "6"},
    {"00002", "鈴木 陽子", "ｽｽﾞｷ ﾖｳｺ", "000", "001", "001", "0", "0", "", "suzuki", "3"},
    {"00003", "田中 浩二", "ﾀﾅｶ ｺｳｼﾞ", "000", "001", "002", "0", "0", "", "tanaka", "3"},
    {"00004", "渡辺 美咲", "ﾜﾀﾅﾍﾞ ﾐｻｷ", "000", "001", "003", "0", "0", "", "watanabe", "1", "0000000000",
     "00010000"},
    {"00005", "高橋 健一", "ﾀｶﾊｼ ｹﾝｲﾁ", "001", "001", "001", "0", "0", "", "takahashi", "6"},
    {"00006", "伊藤 直樹", "ｲﾄｳ ﾅｵｷ", "001", "001", "002", "0", "0", "", "ito", "3"},
    {"00007", "山本 恵", "ﾔﾏﾓﾄ ﾒｸﾞﾐ", "001", "002", "004", "1", "0", "", "yamamoto", "1", "0000000000",
     "00110000"},
    {"00008", "松本 大輔", "ﾏﾂﾓﾄ ﾀﾞｲｽｹ", "002", "001", "001", "0", "0", "", "matsumoto", "6"},
    {"00009", "井上 さくら", "ｲﾉｳｴ ｻｸﾗ", "002", "002", "004", "2", "0", "", "inoue", "0", "0001000000",
     "01110011"},
    // looks at documents only
    {"00010", "木村 隆", "ｷﾑﾗ ﾀｶｼ", "000", "003", "006", "0", "0", "", "kimura", "0", "0000000000",
     "01111111"},
    // may not start the invoice entry
    {"00011", "林 千夏", "ﾊﾔｼ ﾁﾅﾂ", "000", "002", "005", "3", "0", "", "hayashi", "0", "1111111111",
     "11111111"},
    // has left
    {"00012", "清水 勇", "ｼﾐｽﾞ ｲｻﾑ", "000", "001", "001", "0", "1", "20230331", "", "0"},
});

}  // namespace

void fill_demo_staff(ado::Connection& main) {
    for (const Seed& seed : seeds) insert_seed(main, seed);
    std::vector<Row> rows;
    for (const Operator& o : operators) {
        Row row;
        for (std::string_view text : {o.code, o.name, o.kana, o.site, o.department, o.section, o.kind,
                                      o.employed, o.left, o.login, o.level})
            row.emplace_back(text);
        for (char right : o.menu) row.emplace_back(1, right);
        for (char right : o.acts) row.emplace_back(1, right);
        rows.push_back(std::move(row));
    }
    insert_rows(
        main, "M担当者",
        "コード 氏名 カナ 事業所コード 部門コード セクションコード 社員区分 在籍区分 退社日付 ログインID "
        "アクセス権限 処理分類0操作許可 処理分類1操作許可 処理分類2操作許可 処理分類3操作許可 "
        "処理分類4操作許可 処理分類5操作許可 処理分類6操作許可 処理分類7操作許可 処理分類8操作許可 "
        "処理分類9操作許可 操作許可 入力許可 修正許可 削除許可 印刷許可 プレビュ許可 テキスト出力許可 "
        "イメージ出力許可",
        rows);
}

void fill_demo_company(ado::Connection& main) {
    fill_demo_staff(main);
    fill_demo_partners(main);
    fill_demo_products(main);
}

}  // namespace kalvane::setup
