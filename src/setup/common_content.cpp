// What every installation begins with: codes, number series, tax rates, menu rows.
//
// How to add a code or a series: put a line into the rows of its table; the codes of a table run without a
// gap, since their position in a list is their value. Raise schema_version.
#include <array>

#include "setup/content.h"
#include "setup/seed.h"

namespace kalvane::setup {
namespace {

constexpr auto main_seeds = std::to_array<Seed>({
    {"K消費税区分", "区分 名称", "1|税抜\n2|税込"},
    {"K消費税算出区分", "区分 名称", "0|無\n1|明細単位\n2|伝票単位\n3|請求単位"},
    {"K請求消費税表示区分", "区分 名称", "0|表示しない\n1|表示する"},
    {"K請求合計表示区分", "区分 名称", "0|表示しない\n1|表示する"},
    {"K請求行区分", "区分 名称", "0|　\n1|通常\n2|小計\n3|中計\n4|大計\n5|合計"},
    {"K取引状況区分", "区分 名称", "0|取引中\n1|新規\n2|休止\n3|取引停止"},
    {"K品区分", "区分 名称", "0|商品\n1|製品\n2|部品\n3|役務\n4|諸費用"},
    {"K在庫管理区分", "区分 名称", "0|しない\n1|する"},
    {"K取扱状況区分", "区分 名称", "0|取扱中\n1|新規取扱\n2|在庫限り\n3|取扱中止"},
    {"K在籍区分", "区分 名称", "0|在籍\n1|退社"},
    {"K社員区分", "区分 名称", "0|正社員\n1|契約社員\n2|パート\n3|派遣"},
    {"K使用状況区分", "区分 名称", "0|使用中\n1|使用停止"},
    {"K稼動状況区分", "区分 名称", "0|稼動中\n1|廃止"},

    {"G消費税", "施行日 消費税率", "19890401|3\n19970401|5\n20140401|8\n20191001|10"},
    // quotation, customer order, invoice, delivery, browse log: all continuous
    {"A番号情報", "番号ID 連番種類 連番 履歴連番",
     "16210|0|00000000|00000000\n"
     "16220|0|00000000|00000000\n"
     "16240|0|00000000|00000000\n"
     "16250|0|00000000|00000000\n"
     "01110|0|00000000|00000000"},
});

constexpr auto config_seeds = std::to_array<Seed>({
    // printing asks for a right of its own
    {"Kalvane", "プログラムID 処理分類", "KalvaneInvoiceEntry|1\nKalvaneInvoicePrint|2"},
    {"動作環境定義",
     "動作環境定義ID 運用事業所コード 起動担当者コード インストール区分 CL更新実行区分 バックアップ方法 "
     "バックアップ日指定 月曜バックアップ 火曜バックアップ 水曜バックアップ 木曜バックアップ "
     "金曜バックアップ "
     "土曜バックアップ 日曜バックアップ",
     "001|000|00001|0|0|0|0|0|0|0|0|0|0|0"},
});

}  // namespace

void fill_common(ado::Connection& main, ado::Connection& config) {
    for (const Seed& seed : main_seeds) insert_seed(main, seed);
    for (const Seed& seed : config_seeds) insert_seed(config, seed);
}

void fill_empty_company(ado::Connection& main) {
    constexpr auto seeds = std::to_array<Seed>({
        {"Mユーザ",
         "ID 名称 決算月 決算日 売上金額丸め方法 仕入金額丸め方法 売上数量少数以下桁数 売上単価少数以下桁数 "
         "仕入数量少数以下桁数 仕入単価少数以下桁数 在庫数量少数以下桁数 在庫単価少数以下桁数 "
         "重量少数以下桁数 "
         "伝票番号管理区分 暗証番号有無 更新実行区分",
         "0001|会社名未登録|3|31|0|0|1|2|1|2|1|2|1|0|0|1"},
        {"M事業所", "コード 名称 暗証番号有無 更新実行区分", "000|本社|0|1"},
        {"M担当者",
         "コード 氏名 事業所コード 社員区分 在籍区分 アクセス権限 処理分類0操作許可 処理分類1操作許可 "
         "処理分類2操作許可 処理分類3操作許可 処理分類4操作許可 処理分類5操作許可 処理分類6操作許可 "
         "処理分類7操作許可 処理分類8操作許可 処理分類9操作許可 操作許可 入力許可 修正許可 削除許可 印刷許可 "
         "プレビュ許可 テキスト出力許可 イメージ出力許可",
         "00001|担当者|000|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0"},
    });
    for (const Seed& seed : seeds) insert_seed(main, seed);
}

}  // namespace kalvane::setup
