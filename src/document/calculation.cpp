// Lines: taxes, prices, amounts, subtotals.
#include "document/calculation.h"

#include "records/document.h"
#include "records/run_context.h"
#include "rules/consumption_tax.h"

namespace kalvane {
namespace {

struct Rounding {
    std::int16_t method, position;
};
Rounding customer_rounding(const LineRecord&) {
    return {請求ヘッダ.得意先消費税丸め方法, 請求ヘッダ.得意先消費税丸め桁位置};
}
Rounding supplier_rounding(const LineRecord& line) {
    return {line.仕入先消費税丸め方法, line.仕入先消費税丸め桁位置};
}
Rounding fixed_rounding(const LineRecord&) {
    return {5, 0};
}

// The sale and the purchase half of a line. They calculate alike but for what stands here and below.
struct Side {
    通貨 LineRecord::*quantity, LineRecord::*price, LineRecord::*amount, LineRecord::*tax;
    通貨 LineRecord::*price_out, LineRecord::*price_in;  // working prices
    std::int16_t LineRecord::*taxation, LineRecord::*kind;
    std::int16_t LineRecord::*product_taxation, LineRecord::*product_kind;
    std::int16_t RunContext::*amount_rounding;  // tenths added before the cut
    void (*set_classes)(int);
    Rounding (*line_tax)(const LineRecord&);   // of the line's tax
    Rounding (*converted)(const LineRecord&);  // of a price or amount that turns between tax-in and tax-out
    // rate of an amount of class 2 that turns from tax-out to tax-in
    std::int16_t previous_rate_of_amount;
};

constexpr Side sale{.quantity = &LineRecord::請求数量,
                    .price = &LineRecord::請求単価,
                    .amount = &LineRecord::請求金額,
                    .tax = &LineRecord::請求消費税,
                    .price_out = &LineRecord::商品税抜販売単価,
                    .price_in = &LineRecord::商品税込販売単価,
                    .taxation = &LineRecord::売上課税区分,
                    .kind = &LineRecord::売上消費税区分,
                    .product_taxation = &LineRecord::商品売上課税区分,
                    .product_kind = &LineRecord::商品売上消費税区分,
                    .amount_rounding = &RunContext::売上金額丸め方法,
                    .set_classes = 売上税区分設定,
                    .line_tax = customer_rounding,
                    .converted = customer_rounding,
                    .previous_rate_of_amount = 1};

// The tax of a line does not follow the supplier's rounding, only the conversions do; and an amount (not a
// price) of class 2 that turns from tax-out to tax-in takes the rate in force.
constexpr Side purchase{.quantity = &LineRecord::仕入数量,
                        .price = &LineRecord::仕入単価,
                        .amount = &LineRecord::仕入金額,
                        .tax = &LineRecord::仕入消費税,
                        .price_out = &LineRecord::商品税抜仕入単価,
                        .price_in = &LineRecord::商品税込仕入単価,
                        .taxation = &LineRecord::仕入課税区分,
                        .kind = &LineRecord::仕入消費税区分,
                        .product_taxation = &LineRecord::商品仕入課税区分,
                        .product_kind = &LineRecord::商品仕入消費税区分,
                        .amount_rounding = &RunContext::仕入金額丸め方法,
                        .set_classes = 仕入税区分設定,
                        .line_tax = fixed_rounding,
                        .converted = supplier_rounding,
                        .previous_rate_of_amount = 0};

bool taxed(std::int16_t taxation) {
    return taxation == current_rate || taxation == previous_rate;
}
std::int16_t rate_flag(std::int16_t taxation) {
    return taxation == previous_rate ? 1 : 0;
}

通貨 tax_of(通貨 amount, std::int16_t kind, Rounding r, std::int16_t flag) {
    return 消費税計算(amount, kind, r.method, r.position, 請求ヘッダ.営業請求日付, flag);
}

// The product decides on its kind of price; one that does not leaves it to the partner.
void set_classes(const Side& s, LineRecord& line, bool untaxed, std::int16_t partner_kind) {
    const std::int16_t own = line.*s.product_kind;
    line.*s.kind = untaxed ? tax_out : own != 0 ? own : partner_kind;
    line.*s.taxation = untaxed ? not_taxed : line.*s.product_taxation;
}

bool has_quantity_and_price(const Side& s, const LineRecord& line) {
    return !(line.*s.quantity).is_zero() && !(line.*s.price).is_zero();
}

通貨 amount_of(const Side& s, const LineRecord& line) {
    const 通貨 exact = line.*s.quantity * line.*s.price;
    const 通貨 added = 通貨::from_units(1000LL * (実行環境.*s.amount_rounding));
    return Fix(exact < 通貨() ? exact - added : exact + added);
}

// A line without quantity or price keeps the amount that was typed.
void calculate_amount(const Side& s, LineRecord& line) {
    if (has_quantity_and_price(s, line)) line.*s.amount = amount_of(s, line);
}

void calculate_tax(const Side& s, int i) {
    s.set_classes(i);
    LineRecord& line = 請求明細行[i];
    line.*s.tax = 通貨();
    const std::int16_t taxation = line.*s.taxation;
    if (taxed(taxation))
        line.*s.tax = tax_of(line.*s.amount, line.*s.kind, s.line_tax(line), rate_flag(taxation));
}

// A typed price is rounded by the customer's settings on both sides.
void price_typed(const Side& s, LineRecord& line) {
    const std::int16_t taxation = line.*s.taxation;
    const 通貨 price = line.*s.price;
    const Rounding r = customer_rounding(line);
    if (taxation == not_taxed) {
        line.*s.price_in = line.*s.price_out = price;
    } else if (taxed(taxation) && line.*s.kind == tax_in) {
        line.*s.price_in = price;
        line.*s.price_out = price - tax_of(price, tax_in, r, rate_flag(taxation));
    } else if (taxed(taxation)) {
        line.*s.price_out = price;
        line.*s.price_in = price + tax_of(price, tax_out, r, rate_flag(taxation));
    }
}

// The customer's kind of price decides on both sides.
bool as_customer(const Side& s, const LineRecord& line) {
    return line.*s.kind == 請求ヘッダ.得意先消費税区分;
}

// Turns a figure from the line's kind of price into the other one.
void convert(const Side& s, const LineRecord& line, 通貨& figure, std::int16_t flag_from_out) {
    const std::int16_t taxation = line.*s.taxation;
    if (!taxed(taxation)) return;
    if (line.*s.kind == tax_in)
        figure -= tax_of(figure, tax_in, s.converted(line), rate_flag(taxation));
    else if (line.*s.kind == tax_out)
        figure += tax_of(figure, tax_out, s.converted(line), flag_from_out);
}

void recalculate_price(const Side& s, LineRecord& line) {
    if ((line.*s.price).is_zero() || as_customer(s, line)) return;
    実行環境.入力変更あり = true;
    convert(s, line, line.*s.price, rate_flag(line.*s.taxation));
}

void recalculate_amount(const Side& s, LineRecord& line) {
    if (has_quantity_and_price(s, line)) {
        line.*s.amount = amount_of(s, line);
        return;
    }
    if ((line.*s.amount).is_zero() || as_customer(s, line)) return;
    convert(s, line, line.*s.amount, line.*s.taxation == previous_rate ? s.previous_rate_of_amount : 0);
}

}  // namespace

void 明細税区分設定(int i) {
    売上税区分設定(i);
    仕入税区分設定(i);
}

void 売上税区分設定(int i) {
    LineRecord& line = 請求明細行[i];
    const bool untaxed = line.商品売上課税区分 == not_taxed || 請求ヘッダ.得意先消費税算出区分 == no_tax;
    set_classes(sale, line, untaxed, 請求ヘッダ.得意先消費税区分);
}

void 仕入税区分設定(int i) {
    LineRecord& line = 請求明細行[i];
    if (line.仕入先コード.empty()) {
        // nobody to ask: an untaxed product keeps its kind of price
        set_classes(purchase, line, false, tax_out);
        return;
    }
    const bool untaxed = line.仕入先消費税算出区分 == no_tax || line.商品仕入課税区分 == not_taxed;
    set_classes(purchase, line, untaxed, line.仕入先消費税区分);
}

// The tax-in price comes from the tax-out one by the customer's rounding, never from the product's own.
void 請求単価設定(int i) {
    LineRecord& line = 請求明細行[i];
    const 通貨 price = line.商品税抜販売単価;
    if (line.行区分 != ordinary_line || line.商品コード.empty() || price.is_zero()) return;
    if (line.売上消費税区分 != tax_in) {
        line.請求単価 = price;
        return;
    }
    通貨 with_tax;
    if (line.売上課税区分 == not_taxed) with_tax = price;
    if (taxed(line.売上課税区分))
        with_tax = price + tax_of(price, tax_out, customer_rounding(line), rate_flag(line.売上課税区分));
    line.請求単価 = with_tax;
}

// Unlike the sale price: starts from nothing, asks neither for the kind of row nor for a price, and takes the
// product's tax-in price unless an earlier rate applies.
void 仕入単価設定(int i) {
    LineRecord& line = 請求明細行[i];
    const 通貨 price = line.商品税抜仕入単価;
    const bool with_tax = line.仕入消費税区分 == tax_in;
    line.仕入単価 = 通貨();
    switch (line.仕入課税区分) {
        case current_rate:
            line.仕入単価 = with_tax ? line.商品税込仕入単価 : price;
            break;
        case not_taxed:
            line.仕入単価 = price;
            break;
        case previous_rate:
            line.仕入単価 = with_tax ? price + tax_of(price, tax_out, fixed_rounding(line), 1) : price;
            break;
        default:
            break;
    }
}

void 請求金額計算(int i) {
    calculate_amount(sale, 請求明細行[i]);
}
void 仕入金額計算(int i) {
    calculate_amount(purchase, 請求明細行[i]);
}
void 請求消費税計算(int i) {
    calculate_tax(sale, i);
}
void 仕入消費税計算(int i) {
    calculate_tax(purchase, i);
}
void 請求単価入力(int i) {
    price_typed(sale, 請求明細行[i]);
}
void 仕入単価入力(int i) {
    price_typed(purchase, 請求明細行[i]);
}
void 請求単価再計算(int i) {
    recalculate_price(sale, 請求明細行[i]);
}
void 請求金額再計算(int i) {
    recalculate_amount(sale, 請求明細行[i]);
}
void 仕入単価再計算(int i) {
    recalculate_price(purchase, 請求明細行[i]);
}
void 仕入金額再計算(int i) {
    recalculate_amount(purchase, 請求明細行[i]);
}

void 全行税再計算() {
    if (実行環境.最終行 < 0) return;
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        明細税区分設定(i);
        請求消費税計算(i);
        仕入消費税計算(i);
    }
    合計計算();
}

}  // namespace kalvane
