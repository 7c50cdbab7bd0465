// The figures of the whole document: totals, subtotal rows, the tax of the document.
#include <limits>

#include "base/text.h"
#include "document/calculation.h"
#include "records/document.h"
#include "records/run_context.h"
#include "rules/consumption_tax.h"

namespace kalvane {
namespace {

using LineMoney = 通貨 LineRecord::*;
using HeaderMoney = 通貨 HeaderRecord::*;

// One side of the line and where the document gathers it.
struct TotalSide {
    LineMoney quantity, amount, tax;
    std::int16_t LineRecord::*taxation, LineRecord::*kind;
    HeaderMoney quantities, amounts, without_tax, taxes, with_tax;
    HeaderMoney current_out, current_in, previous_out, previous_in, untaxed;  // amounts by class
};

constexpr TotalSide sides[] = {
    {&LineRecord::請求数量, &LineRecord::請求金額, &LineRecord::請求消費税, &LineRecord::売上課税区分,
     &LineRecord::売上消費税区分, &HeaderRecord::請求数量合計, &HeaderRecord::請求金額合計,
     &HeaderRecord::税抜請求金額合計, &HeaderRecord::請求消費税合計, &HeaderRecord::税込請求金額合計,
     &HeaderRecord::売上課税外税額, &HeaderRecord::売上課税内税額, &HeaderRecord::売上旧税外税額,
     &HeaderRecord::売上旧税内税額, &HeaderRecord::売上非課税額},
    {&LineRecord::仕入数量, &LineRecord::仕入金額, &LineRecord::仕入消費税, &LineRecord::仕入課税区分,
     &LineRecord::仕入消費税区分, &HeaderRecord::仕入数量合計, &HeaderRecord::仕入金額合計,
     &HeaderRecord::税抜仕入金額合計, &HeaderRecord::仕入消費税合計, &HeaderRecord::税込仕入金額合計,
     &HeaderRecord::仕入課税外税額, &HeaderRecord::仕入課税内税額, &HeaderRecord::仕入旧税外税額,
     &HeaderRecord::仕入旧税内税額, &HeaderRecord::仕入非課税額},
};

HeaderMoney class_total(const TotalSide& s, std::int16_t taxation, std::int16_t kind) {
    if (taxation == 1) return s.untaxed;
    if (taxation == 0) return kind == 1 ? s.current_out : kind == 2 ? s.current_in : nullptr;
    if (taxation == 2) return kind == 1 ? s.previous_out : kind == 2 ? s.previous_in : nullptr;
    return nullptr;
}

void clear(const TotalSide& s) {
    for (const HeaderMoney total : {s.quantities, s.amounts, s.without_tax, s.taxes, s.with_tax,
                                    s.current_out, s.current_in, s.previous_out, s.previous_in, s.untaxed})
        請求ヘッダ.*total = 通貨();
}

void gather(const TotalSide& s, const LineRecord& line) {
    HeaderRecord& head = 請求ヘッダ;
    const 通貨 amount = line.*s.amount, tax = line.*s.tax;
    head.*s.quantities += line.*s.quantity;
    head.*s.amounts += amount;
    if (line.*s.kind == 1) {
        head.*s.without_tax += amount;
        head.*s.with_tax += amount + tax;
    } else if (line.*s.kind == 2) {
        head.*s.without_tax += amount - tax;
        head.*s.with_tax += amount;
    }
    head.*s.taxes += tax;
    if (const HeaderMoney total = class_total(s, line.*s.taxation, line.*s.kind)) head.*total += amount;
}

// The rows of sums.
struct SubtotalKind {
    std::int16_t kind;
    int first_row;       // further up there is nothing to add, and a row keeps its figures
    std::int16_t child;  // 行区分 that it adds
    bool counted_only;   // only those with 計区分 1
    int stop;            // 行区分 from which on the walk up ends
    std::string_view name;
};
constexpr int never = std::numeric_limits<int>::max();
constexpr SubtotalKind subtotal_kinds[] = {
    {subtotal_line, 1, ordinary_line, true, subtotal_line, "＊小計＊"},
    {middle_total_line, 2, subtotal_line, false, middle_total_line, "＊＊中計＊＊"},
    {large_total_line, 3, middle_total_line, false, large_total_line, "＊＊＊大計＊＊＊"},
    {grand_total_line, 1, ordinary_line, true, never, "＊＊＊＊合計＊＊＊＊"},
};
constexpr std::size_t name_width = 25;

const SubtotalKind* subtotal_kind(std::int16_t kind) {
    for (const SubtotalKind& k : subtotal_kinds)
        if (k.kind == kind) return &k;
    return nullptr;
}

// The name at the right end of the field, behind ideographic spaces.
std::string row_name(std::string_view name) {
    std::string text;
    for (std::size_t n = Len(name); n < name_width; ++n) text += "\u3000";
    return text.append(name);
}

constexpr LineMoney summed[] = {&LineRecord::請求数量, &LineRecord::請求金額, &LineRecord::請求消費税,
                                &LineRecord::仕入数量, &LineRecord::仕入金額, &LineRecord::仕入消費税};

// Four calls, each rounded by itself.
通貨 document_tax() {
    const HeaderRecord& head = 請求ヘッダ;
    const auto tax = [](通貨 amount, std::int16_t kind, std::int16_t previous) {
        return 消費税計算(amount, kind, 請求ヘッダ.得意先消費税丸め方法, 請求ヘッダ.得意先消費税丸め桁位置,
                          請求ヘッダ.営業請求日付, previous);
    };
    通貨 sum = tax(head.売上旧税内税額, 2, 1);
    sum += tax(head.売上課税内税額, 2, 0);
    sum += tax(head.売上旧税外税額, 1, 1);
    sum += tax(head.売上課税外税額, 1, 0);
    return sum;
}

// The first ordinary line with an amount takes the whole difference, counted into the totals or not.
void push_difference() {
    HeaderRecord& head = 請求ヘッダ;
    const 通貨 difference = head.計算消費税合計 - head.請求消費税合計;
    bool any_amount = false;
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        LineRecord& line = 請求明細行[i];
        if (line.請求金額.is_zero()) continue;
        any_amount = true;
        if (line.行区分 != ordinary_line) continue;
        line.請求消費税 += difference;
        if (line.売上消費税区分 == 1) head.税込請求金額合計 += difference;
        if (line.売上消費税区分 == 2) head.税抜請求金額合計 -= difference;
        break;
    }
    if (any_amount) head.請求消費税合計 = head.計算消費税合計;
}

}  // namespace

void 合計計算() {
    HeaderRecord& head = 請求ヘッダ;
    for (const TotalSide& s : sides) clear(s);
    head.計算消費税合計 = 通貨();
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        const LineRecord& line = 請求明細行[i];
        if (line.計区分 == 1 && line.行区分 == ordinary_line)
            for (const TotalSide& s : sides) gather(s, line);
        if (line.行区分 > ordinary_line) 小計行計算(i);
    }
    head.計算消費税合計 = head.得意先消費税算出区分 == 1 ? head.請求消費税合計 : document_tax();
    if (head.得意先消費税端数調整区分 == 1 && head.請求消費税合計 != head.計算消費税合計) push_difference();
}

void 小計行計算(int row) {
    LineRecord& line = 請求明細行[row];
    const SubtotalKind* k = subtotal_kind(line.行区分);
    if (!k || row < k->first_row) return;
    通貨 sums[std::size(summed)];
    for (int i = row - 1; i >= 0; --i) {
        const LineRecord& above = 請求明細行[i];
        if (above.行区分 >= k->stop) break;
        if (above.行区分 != k->child || (k->counted_only && above.計区分 != 1)) continue;
        for (std::size_t n = 0; n < std::size(summed); ++n) sums[n] += above.*summed[n];
    }
    for (std::size_t n = 0; n < std::size(summed); ++n) line.*summed[n] = sums[n];
}

void 行区分設定(int i) {
    LineRecord& line = 請求明細行[i];
    if (line.行区分 == ordinary_line) line.計区分 = 1;
    const SubtotalKind* k = subtotal_kind(line.行区分);
    if (!k) return;
    line.計区分 = 0;
    line.商品名 = row_name(k->name);
    明細税区分設定(i);
    小計行計算(i);
}

通貨 消費税差額計算() {
    合計計算();
    if (請求ヘッダ.得意先消費税算出区分 == 1) return 通貨();
    return 請求ヘッダ.計算消費税合計 - 請求ヘッダ.請求消費税合計;
}

}  // namespace kalvane
