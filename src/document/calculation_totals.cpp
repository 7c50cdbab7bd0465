// The figures of the whole document: totals, subtotal rows, the tax of the document.
//
// How to add a row of sums: its 行区分 in calculation.h and its row in subtotal_kinds.
#include <array>
#include <limits>

#include "base/text.h"
#include "document/calculation.h"
#include "records/document.h"
#include "records/run_context.h"
#include "rules/consumption_tax.h"

namespace kalvane {
namespace {

constexpr std::int16_t not_counted = 0, counted = 1;  // 計区分

using LineMoney = 通貨 LineRecord::*;
using HeaderMoney = 通貨 HeaderRecord::*;

// One side of the line and where the document gathers it.
struct TotalSide {
    LineMoney quantity, amount, tax;
    std::int16_t LineRecord::*taxation, LineRecord::*kind;
    HeaderMoney quantities, amounts, without_tax, taxes, with_tax;
    HeaderMoney current_out, current_in, previous_out, previous_in, untaxed;  // amounts by class
};

constexpr auto sides = std::to_array<TotalSide>({
    {.quantity = &LineRecord::請求数量,
     .amount = &LineRecord::請求金額,
     .tax = &LineRecord::請求消費税,
     .taxation = &LineRecord::売上課税区分,
     .kind = &LineRecord::売上消費税区分,
     .quantities = &HeaderRecord::請求数量合計,
     .amounts = &HeaderRecord::請求金額合計,
     .without_tax = &HeaderRecord::税抜請求金額合計,
     .taxes = &HeaderRecord::請求消費税合計,
     .with_tax = &HeaderRecord::税込請求金額合計,
     .current_out = &HeaderRecord::売上課税外税額,
     .current_in = &HeaderRecord::売上課税内税額,
     .previous_out = &HeaderRecord::売上旧税外税額,
     .previous_in = &HeaderRecord::売上旧税内税額,
     .untaxed = &HeaderRecord::売上非課税額},
    {.quantity = &LineRecord::仕入数量,
     .amount = &LineRecord::仕入金額,
     .tax = &LineRecord::仕入消費税,
     .taxation = &LineRecord::仕入課税区分,
     .kind = &LineRecord::仕入消費税区分,
     .quantities = &HeaderRecord::仕入数量合計,
     .amounts = &HeaderRecord::仕入金額合計,
     .without_tax = &HeaderRecord::税抜仕入金額合計,
     .taxes = &HeaderRecord::仕入消費税合計,
     .with_tax = &HeaderRecord::税込仕入金額合計,
     .current_out = &HeaderRecord::仕入課税外税額,
     .current_in = &HeaderRecord::仕入課税内税額,
     .previous_out = &HeaderRecord::仕入旧税外税額,
     .previous_in = &HeaderRecord::仕入旧税内税額,
     .untaxed = &HeaderRecord::仕入非課税額},
});

// Where an amount counts by its class; nullptr for a class that is none.
HeaderMoney class_total(const TotalSide& s, std::int16_t taxation, std::int16_t kind) {
    const auto by_kind = [kind](HeaderMoney out, HeaderMoney in) {
        return kind == tax_out ? out : kind == tax_in ? in : nullptr;
    };
    if (taxation == not_taxed) return s.untaxed;
    if (taxation == current_rate) return by_kind(s.current_out, s.current_in);
    if (taxation == previous_rate) return by_kind(s.previous_out, s.previous_in);
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
    if (line.*s.kind == tax_out) {
        head.*s.without_tax += amount;
        head.*s.with_tax += amount + tax;
    } else if (line.*s.kind == tax_in) {
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
    bool counted_only;   // only those counted
    int stop;            // 行区分 from which on the walk up ends
    std::string_view name;
};
constexpr int never = std::numeric_limits<int>::max();
constexpr auto subtotal_kinds = std::to_array<SubtotalKind>({
    {.kind = subtotal_line,
     .first_row = 1,
     .child = ordinary_line,
     .counted_only = true,
     .stop = subtotal_line,
     .name = "＊小計＊"},
    {.kind = middle_total_line,
     .first_row = 2,
     .child = subtotal_line,
     .counted_only = false,
     .stop = middle_total_line,
     .name = "＊＊中計＊＊"},
    {.kind = large_total_line,
     .first_row = 3,
     .child = middle_total_line,
     .counted_only = false,
     .stop = large_total_line,
     .name = "＊＊＊大計＊＊＊"},
    {.kind = grand_total_line,
     .first_row = 1,
     .child = ordinary_line,
     .counted_only = true,
     .stop = never,
     .name = "＊＊＊＊合計＊＊＊＊"},
});
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

constexpr auto summed =
    std::to_array<LineMoney>({&LineRecord::請求数量, &LineRecord::請求金額, &LineRecord::請求消費税,
                              &LineRecord::仕入数量, &LineRecord::仕入金額, &LineRecord::仕入消費税});

// Four calls, each rounded by itself.
通貨 document_tax() {
    const HeaderRecord& head = 請求ヘッダ;
    const auto tax = [](通貨 amount, std::int16_t kind, std::int16_t taxation) {
        return 消費税計算(amount, kind, 請求ヘッダ.得意先消費税丸め方法, 請求ヘッダ.得意先消費税丸め桁位置,
                          請求ヘッダ.営業請求日付, taxation == previous_rate ? 1 : 0);
    };
    通貨 sum = tax(head.売上旧税内税額, tax_in, previous_rate);
    sum += tax(head.売上課税内税額, tax_in, current_rate);
    sum += tax(head.売上旧税外税額, tax_out, previous_rate);
    sum += tax(head.売上課税外税額, tax_out, current_rate);
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
        if (line.売上消費税区分 == tax_out) head.税込請求金額合計 += difference;
        if (line.売上消費税区分 == tax_in) head.税抜請求金額合計 -= difference;
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
        if (line.計区分 == counted && line.行区分 == ordinary_line)
            for (const TotalSide& s : sides) gather(s, line);
        if (line.行区分 > ordinary_line) 小計行計算(i);
    }
    head.計算消費税合計 = head.得意先消費税算出区分 == tax_per_line ? head.請求消費税合計 : document_tax();
    if (head.得意先消費税端数調整区分 == 1 && head.請求消費税合計 != head.計算消費税合計) push_difference();
}

void 小計行計算(int row) {
    LineRecord& line = 請求明細行[row];
    const SubtotalKind* k = subtotal_kind(line.行区分);
    if (!k || row < k->first_row) return;
    std::array<通貨, summed.size()> sums;
    for (int i = row - 1; i >= 0; --i) {
        const LineRecord& above = 請求明細行[i];
        if (above.行区分 >= k->stop) break;
        if (above.行区分 != k->child || (k->counted_only && above.計区分 != counted)) continue;
        for (std::size_t n = 0; n < summed.size(); ++n) sums[n] += above.*summed[n];
    }
    for (std::size_t n = 0; n < summed.size(); ++n) line.*summed[n] = sums[n];
}

void 行区分設定(int i) {
    LineRecord& line = 請求明細行[i];
    if (line.行区分 == ordinary_line) line.計区分 = counted;
    const SubtotalKind* k = subtotal_kind(line.行区分);
    if (!k) return;
    line.計区分 = not_counted;
    line.商品名 = row_name(k->name);
    明細税区分設定(i);
    小計行計算(i);
}

通貨 消費税差額計算() {
    合計計算();
    if (請求ヘッダ.得意先消費税算出区分 == tax_per_line) return 通貨();
    return 請求ヘッダ.計算消費税合計 - 請求ヘッダ.請求消費税合計;
}

}  // namespace kalvane
