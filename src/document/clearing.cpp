// Fresh documents and lines, and what survives a clearing.
//
// A new member of the header is cleared; a row in the kept ones lets it survive.
#include "document/clearing.h"

#include <array>

#include "base/text.h"
#include "document/document_date.h"
#include "records/run_context.h"
#include "rules/closing_dates.h"
#include "rules/number_allocation.h"

namespace kalvane {
namespace {

constexpr auto kept_texts = std::to_array<std::string HeaderRecord::*>({
    &HeaderRecord::営業請求日付,
    &HeaderRecord::営業請求日付年,
    &HeaderRecord::営業請求日付月,
    &HeaderRecord::営業請求日付日,
    &HeaderRecord::請求伝票備考A,
    &HeaderRecord::請求伝票備考B,
    &HeaderRecord::登録情報区分,
    &HeaderRecord::登録結果文言,
});
// The customer's rounding lives on until a customer or a source is read.
constexpr auto kept_digits = std::to_array<std::int16_t HeaderRecord::*>({
    &HeaderRecord::得意先消費税丸め方法,
    &HeaderRecord::得意先消費税丸め桁位置,
    &HeaderRecord::得意先消費税端数調整区分,
    &HeaderRecord::登録結果区分,
});
constexpr auto totals = std::to_array<通貨 HeaderRecord::*>({
    &HeaderRecord::請求数量合計,     &HeaderRecord::請求金額合計,     &HeaderRecord::税抜請求金額合計,
    &HeaderRecord::請求消費税合計,   &HeaderRecord::税込請求金額合計, &HeaderRecord::仕入数量合計,
    &HeaderRecord::仕入金額合計,     &HeaderRecord::税抜仕入金額合計, &HeaderRecord::仕入消費税合計,
    &HeaderRecord::税込仕入金額合計, &HeaderRecord::計算消費税合計,   &HeaderRecord::売上課税外税額,
    &HeaderRecord::売上課税内税額,   &HeaderRecord::売上旧税外税額,   &HeaderRecord::売上旧税内税額,
    &HeaderRecord::売上非課税額,     &HeaderRecord::仕入課税外税額,   &HeaderRecord::仕入課税内税額,
    &HeaderRecord::仕入旧税外税額,   &HeaderRecord::仕入旧税内税額,   &HeaderRecord::仕入非課税額,
});

HeaderRecord cleared(const HeaderRecord& old) {
    HeaderRecord h;
    for (auto m : kept_texts) h.*m = old.*m;
    for (auto m : kept_digits) h.*m = old.*m;
    for (auto m : totals) h.*m = old.*m;
    return h;
}

}  // namespace

void 新規項目クリア() {
    実行環境.新規入力中 = true;
    実行環境.入力変更あり = false;
    HeaderRecord h = cleared(請求ヘッダ);
    if (h.営業請求日付.empty()) set_document_date(h, 実行環境.本日日付);
    請求ヘッダ = h;
    実行環境.番号基準日付 = 番号基準日付取得(請求番号ID, 請求ヘッダ.営業請求日付);
    請求ヘッダ.集計日付 = 月締日付(請求ヘッダ.営業請求日付);
    実行環境.営業請求No = 次番号参照(請求番号ID, 実行環境.番号基準日付, 実行環境.事業所コード);
    実行環境.連番タイプ = 0;
}

void 明細全クリア() {
    実行環境.最終行 = -1;
    実行環境.先頭行 = 実行環境.現在行 = 実行環境.現在画面行 = 0;
    for (int i = 0; i <= last_entry_line; ++i) 明細初期化(i);
}

void 合計クリア() {
    請求ヘッダ.請求伝票備考A.clear();
    請求ヘッダ.請求伝票備考B.clear();
    for (auto m : totals) 請求ヘッダ.*m = {};
}

void 明細初期化(int i) {
    static const LineRecord fresh;
    請求明細行[i] = fresh;
}

bool sale_empty(const LineRecord& line) {
    return blank(line.商品コード) && blank(line.商品名) && blank(line.請求単位) && line.請求数量.is_zero() &&
           line.請求単価.is_zero() && line.請求金額.is_zero();
}
bool purchase_empty(const LineRecord& line) {
    return blank(line.仕入先コード) && blank(line.仕入先名称A) && blank(line.仕入単位) &&
           line.仕入数量.is_zero() && line.仕入単価.is_zero() && line.仕入金額.is_zero();
}

void 明細固有項目初期化(int i) {
    LineRecord& l = 請求明細行[i];
    for (auto m : {&LineRecord::営業請求固有行No, &LineRecord::承認日付, &LineRecord::承認者コード,
                   &LineRecord::登録日付, &LineRecord::更新日付, &LineRecord::仕入先対応先コード})
        (l.*m).clear();
    l.承認区分.assign(1, '0');
}

void 新規伝票初期化() {
    新規項目クリア();
    明細全クリア();
    合計クリア();
}

void 文書初期化() {
    新規項目クリア();
    明細全クリア();
    const 通貨 kept = 請求ヘッダ.仕入数量合計;
    合計クリア();
    請求ヘッダ.仕入数量合計 = kept;
}

}  // namespace kalvane
