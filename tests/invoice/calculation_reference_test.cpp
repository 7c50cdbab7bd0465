// The calculation against a second one, kept plain and apart: counts of ten-thousandths, two halves of a line
// by number (0 sale, 1 purchase). Random documents, random steps; everything is compared after each.
#include <cmath>
#include <random>

#include "invoice/calculation.h"
#include "master_database.h"

namespace kalvane {
namespace {

using Count = std::int64_t;

struct Half {
    Count quantity, price, amount, tax, out, in;
    int taxation, kind, product_taxation, product_kind;
    bool operator==(const Half&) const = default;
};
struct Line {
    Half half[2];
    int row, counted;
    bool product, supplier;
    int calculation, partner, method, position;  // supplier
    bool operator==(const Line&) const = default;
};
struct Sums {
    Count quantity = 0, amount = 0, out = 0, tax = 0, in = 0;
    Count by_class[5] = {};  // current out, current in, previous out, previous in, untaxed
    bool operator==(const Sums&) const = default;
};
struct Document {
    std::vector<Line> lines;
    Sums sums[2];
    Count document_tax = 0;
    int calculation, kind, method, position, adjust;  // customer
    int rounding[2];                                  // company
    bool marked = false;
    bool operator==(const Document&) const = default;
};

Half half_of(通貨 quantity, 通貨 price, 通貨 amount, 通貨 tax, 通貨 out, 通貨 in, int taxation, int kind,
             int product_taxation, int product_kind) {
    return {quantity.units(), price.units(), amount.units(), tax.units(),      out.units(),
            in.units(),       taxation,      kind,           product_taxation, product_kind};
}

// What the program holds.
Document seen() {
    const HeaderRecord& h = 請求ヘッダ;
    Document d;
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        const LineRecord& l = 請求明細行[i];
        d.lines.push_back({{half_of(l.請求数量, l.請求単価, l.請求金額, l.請求消費税, l.商品税抜販売単価,
                                    l.商品税込販売単価, l.売上課税区分, l.売上消費税区分, l.商品売上課税区分,
                                    l.商品売上消費税区分),
                            half_of(l.仕入数量, l.仕入単価, l.仕入金額, l.仕入消費税, l.商品税抜仕入単価,
                                    l.商品税込仕入単価, l.仕入課税区分, l.仕入消費税区分, l.商品仕入課税区分,
                                    l.商品仕入消費税区分)},
                           l.行区分,
                           l.計区分,
                           !l.商品コード.empty(),
                           !l.仕入先コード.empty(),
                           l.仕入先消費税算出区分,
                           l.仕入先消費税区分,
                           l.仕入先消費税丸め方法,
                           l.仕入先消費税丸め桁位置});
    }
    d.sums[0] = {h.請求数量合計.units(),
                 h.請求金額合計.units(),
                 h.税抜請求金額合計.units(),
                 h.請求消費税合計.units(),
                 h.税込請求金額合計.units(),
                 {h.売上課税外税額.units(), h.売上課税内税額.units(), h.売上旧税外税額.units(),
                  h.売上旧税内税額.units(), h.売上非課税額.units()}};
    d.sums[1] = {h.仕入数量合計.units(),
                 h.仕入金額合計.units(),
                 h.税抜仕入金額合計.units(),
                 h.仕入消費税合計.units(),
                 h.税込仕入金額合計.units(),
                 {h.仕入課税外税額.units(), h.仕入課税内税額.units(), h.仕入旧税外税額.units(),
                  h.仕入旧税内税額.units(), h.仕入非課税額.units()}};
    d.document_tax = h.計算消費税合計.units();
    d.calculation = h.得意先消費税算出区分;
    d.kind = h.得意先消費税区分;
    d.method = h.得意先消費税丸め方法;
    d.position = h.得意先消費税丸め桁位置;
    d.adjust = h.得意先消費税端数調整区分;
    d.rounding[0] = 実行環境.売上金額丸め方法;
    d.rounding[1] = 実行環境.仕入金額丸め方法;
    d.marked = 実行環境.入力変更あり;
    return d;
}

// Rates 10 and 8; positions 0, 1 and -1.
Count tax(Count amount, int kind, int method, int position, bool previous) {
    const double rate = previous ? 8 : 10, m = static_cast<double>(std::abs(amount)) / 10000.0;
    const double exact = kind == 1 ? rate * m / 100.0 : kind == 2 ? rate * m / (rate + 100.0) : 0.0;
    const Count t = std::llrint(exact * 10000.0);
    Count rounded;
    if (position >= 0) {
        const Count unit = position ? 100000 : 10000;
        rounded = (t + method * unit / 10) / unit * unit;
    } else {
        rounded = (-10 * t + method * 1000) / 10000 * 10000 / -10;
    }
    return amount < 0 ? -rounded : rounded;
}

bool taxed(const Half& h) {
    return h.taxation == 0 || h.taxation == 2;
}

struct Reference {
    Document d;

    Count customer_tax(Count amount, int kind, bool previous) const {
        return tax(amount, kind, d.method, d.position, previous);
    }
    Count partner_tax(int side, const Line& l, Count amount, int kind, bool previous) const {
        return side ? tax(amount, kind, l.method, l.position, previous)
                    : customer_tax(amount, kind, previous);
    }

    void classes(int side, Line& l) const {
        Half& h = l.half[side];
        bool untaxed = h.product_taxation == 1;
        int fallback = d.kind;
        if (side == 0) untaxed = untaxed || d.calculation == 0;
        if (side == 1) {
            untaxed = l.supplier && (untaxed || l.calculation == 0);
            fallback = l.supplier ? l.partner : 1;
        }
        h.taxation = untaxed ? 1 : h.product_taxation;
        h.kind = untaxed ? 1 : h.product_kind ? h.product_kind : fallback;
    }
    void sale_price(Line& l) const {
        Half& h = l.half[0];
        if (l.row != 1 || !l.product || h.out == 0) return;
        Count with = 0;
        if (h.taxation == 1) with = h.out;
        if (taxed(h) && h.kind == 2) with = h.out + customer_tax(h.out, 1, h.taxation == 2);
        h.price = h.kind == 2 ? with : h.out;
    }
    static void purchase_price(Line& l) {
        Half& h = l.half[1];
        h.price = 0;
        if (h.taxation == 0) h.price = h.kind == 2 ? h.in : h.out;
        if (h.taxation == 1) h.price = h.out;
        if (h.taxation == 2) h.price = h.kind == 2 ? h.out + tax(h.out, 1, 5, 0, true) : h.out;
    }
    void amount(int side, Line& l) const {
        Half& h = l.half[side];
        if (h.quantity == 0 || h.price == 0) return;
        const __int128 product = static_cast<__int128>(h.quantity) * h.price;
        __int128 a = product / 10000;
        const __int128 rest = (product < 0 ? -product : product) % 10000;
        if (rest > 5000 || (rest == 5000 && a % 2 != 0)) a += product < 0 ? -1 : 1;
        const int added = d.rounding[side] * 1000;
        h.amount = static_cast<Count>((a < 0 ? a - added : a + added) / 10000 * 10000);
    }
    void line_tax(int side, Line& l) const {
        classes(side, l);
        Half& h = l.half[side];
        h.tax = 0;
        if (!taxed(h)) return;
        h.tax = side ? tax(h.amount, h.kind, 5, 0, h.taxation == 2)
                     : customer_tax(h.amount, h.kind, h.taxation == 2);
    }
    void typed(int side, Line& l) const {
        Half& h = l.half[side];
        const bool previous = h.taxation == 2;
        if (h.taxation == 1) h.in = h.out = h.price;
        if (!taxed(h)) return;
        h.in = h.kind == 2 ? h.price : h.price + customer_tax(h.price, 1, previous);
        h.out = h.kind == 2 ? h.price - customer_tax(h.price, 2, previous) : h.price;
    }
    void price_again(int side, Line& l) {
        Half& h = l.half[side];
        if (h.price == 0 || h.kind == d.kind) return;
        d.marked = true;
        if (!taxed(h)) return;
        if (h.kind == 2)
            h.price -= partner_tax(side, l, h.price, 2, h.taxation == 2);
        else if (h.kind == 1)
            h.price += partner_tax(side, l, h.price, 1, h.taxation == 2);
    }
    void amount_again(int side, Line& l) const {
        Half& h = l.half[side];
        if (h.quantity != 0 && h.price != 0) return amount(side, l);
        if (h.amount == 0 || h.kind == d.kind || !taxed(h)) return;
        if (h.kind == 2)
            h.amount -= partner_tax(side, l, h.amount, 2, h.taxation == 2);
        else if (h.kind == 1)
            h.amount += partner_tax(side, l, h.amount, 1, side == 0 && h.taxation == 2);
    }
    void sum_row(std::size_t r) {
        const int kind = d.lines[r].row;
        if (kind > 5 || r < (kind == 5 ? 1U : static_cast<unsigned>(kind - 1))) return;
        Count sums[2][3] = {};
        for (std::size_t i = r; i-- > 0;) {
            const Line& l = d.lines[i];
            if (kind < 5 && l.row >= kind) break;
            const bool child = kind == 2 || kind == 5 ? l.row == 1 && l.counted == 1 : l.row == kind - 1;
            for (int side = 0; child && side < 2; ++side) {
                sums[side][0] += l.half[side].quantity;
                sums[side][1] += l.half[side].amount;
                sums[side][2] += l.half[side].tax;
            }
        }
        for (int side = 0; side < 2; ++side) {
            Half& h = d.lines[r].half[side];
            h.quantity = sums[side][0];
            h.amount = sums[side][1];
            h.tax = sums[side][2];
        }
    }
    void totals() {
        for (int side = 0; side < 2; ++side) {
            Sums s;
            for (const Line& l : d.lines) {
                if (l.counted != 1 || l.row != 1) continue;
                const Half& h = l.half[side];
                s.quantity += h.quantity;
                s.amount += h.amount;
                if (h.kind == 1) s.out += h.amount, s.in += h.amount + h.tax;
                if (h.kind == 2) s.out += h.amount - h.tax, s.in += h.amount;
                s.tax += h.tax;
                if (h.taxation == 1) s.by_class[4] += h.amount;
                if (taxed(h) && (h.kind == 1 || h.kind == 2)) s.by_class[h.taxation + h.kind - 1] += h.amount;
            }
            d.sums[side] = s;
        }
        for (std::size_t r = 0; r < d.lines.size(); ++r)
            if (d.lines[r].row > 1) sum_row(r);
        Sums& s = d.sums[0];
        d.document_tax = s.tax;
        if (d.calculation != 1)
            d.document_tax = customer_tax(s.by_class[3], 2, true) + customer_tax(s.by_class[1], 2, false) +
                             customer_tax(s.by_class[2], 1, true) + customer_tax(s.by_class[0], 1, false);
        const Count difference = d.document_tax - s.tax;
        const auto with_amount = [](const Line& l) { return l.half[0].amount != 0; };
        if (d.adjust != 1 || difference == 0 || std::ranges::none_of(d.lines, with_amount)) return;
        s.tax = d.document_tax;
        for (Line& l : d.lines) {
            if (l.row != 1 || !with_amount(l)) continue;
            l.half[0].tax += difference;
            if (l.half[0].kind == 1) s.in += difference;
            if (l.half[0].kind == 2) s.out -= difference;
            return;
        }
    }
    void all_lines() {
        if (d.lines.empty()) return;
        for (Line& l : d.lines)
            for (const int side : {0, 1}) line_tax(side, l);
        totals();
    }
};

struct Step {
    const char* name;
    void (*program)(int);
    void (*reference)(Reference&, Line&);
};
const Step steps[] = {
    {"classes", 明細税区分設定, [](Reference& r, Line& l) { r.classes(0, l), r.classes(1, l); }},
    {"sale price", 請求単価設定, [](Reference& r, Line& l) { r.sale_price(l); }},
    {"purchase price", 仕入単価設定, [](Reference&, Line& l) { Reference::purchase_price(l); }},
    {"sale amount", 請求金額計算, [](Reference& r, Line& l) { r.amount(0, l); }},
    {"purchase amount", 仕入金額計算, [](Reference& r, Line& l) { r.amount(1, l); }},
    {"sale tax", 請求消費税計算, [](Reference& r, Line& l) { r.line_tax(0, l); }},
    {"purchase tax", 仕入消費税計算, [](Reference& r, Line& l) { r.line_tax(1, l); }},
    {"sale typed", 請求単価入力, [](Reference& r, Line& l) { r.typed(0, l); }},
    {"purchase typed", 仕入単価入力, [](Reference& r, Line& l) { r.typed(1, l); }},
    {"sale price again", 請求単価再計算, [](Reference& r, Line& l) { r.price_again(0, l); }},
    {"purchase price again", 仕入単価再計算, [](Reference& r, Line& l) { r.price_again(1, l); }},
    {"sale amount again", 請求金額再計算, [](Reference& r, Line& l) { r.amount_again(0, l); }},
    {"purchase amount again", 仕入金額再計算, [](Reference& r, Line& l) { r.amount_again(1, l); }},
    {"totals", [](int) { 合計計算(); }, [](Reference& r, Line&) { r.totals(); }},
    {"all lines", [](int) { 全行税再計算(); }, [](Reference& r, Line&) { r.all_lines(); }},
};

struct Random {
    std::mt19937 engine;
    int below(int n) { return static_cast<int>(engine() % static_cast<unsigned>(n)); }
    std::int16_t pick(std::initializer_list<int> values) {
        return static_cast<std::int16_t>(values.begin()[below(static_cast<int>(values.size()))]);
    }
    // often 0, sometimes with decimals, sometimes negative
    通貨 figure(int largest) {
        const int kind = below(6);
        if (kind == 0) return {};
        const Count units = kind < 4 ? below(largest) * 10000LL : below(largest * 10000);
        return 通貨::from_units(kind == 5 ? -units : units);
    }
};

void random_document(Random& r) {
    HeaderRecord& h = 請求ヘッダ;
    h.得意先消費税算出区分 = r.pick({0, 1, 2, 2, 2, 3});
    h.得意先消費税区分 = r.pick({1, 2});
    h.得意先消費税丸め方法 = r.pick({0, 5, 9});
    h.得意先消費税丸め桁位置 = r.pick({0, 0, 0, 1, -1});
    h.得意先消費税端数調整区分 = r.pick({0, 1});
    実行環境.売上金額丸め方法 = r.pick({0, 5, 9});
    実行環境.仕入金額丸め方法 = r.pick({0, 5, 9});
    実行環境.最終行 = static_cast<std::int16_t>(r.below(12));
    for (int i = 0; i <= 実行環境.最終行; ++i) {
        LineRecord& l = 請求明細行[i];
        l.行区分 = r.pick({1, 1, 1, 1, 1, 2, 2, 3, 4, 5, 0, 6});
        l.計区分 = r.pick({1, 1, 1, 0});
        l.商品コード = r.below(4) ? "P" : "";
        l.仕入先コード = r.below(3) ? "000001" : "";
        for (通貨 LineRecord::*quantity : {&LineRecord::請求数量, &LineRecord::仕入数量})
            l.*quantity = r.figure(50);
        for (通貨 LineRecord::*money :
             {&LineRecord::請求単価, &LineRecord::仕入単価, &LineRecord::商品税抜販売単価,
              &LineRecord::商品税込販売単価, &LineRecord::商品税抜仕入単価, &LineRecord::商品税込仕入単価})
            l.*money = r.figure(3000);
        for (通貨 LineRecord::*amount :
             {&LineRecord::請求金額, &LineRecord::仕入金額, &LineRecord::請求消費税, &LineRecord::仕入消費税})
            l.*amount = Fix(r.figure(9000));
        for (std::int16_t LineRecord::*taxation :
             {&LineRecord::売上課税区分, &LineRecord::仕入課税区分, &LineRecord::商品売上課税区分,
              &LineRecord::商品仕入課税区分})
            l.*taxation = r.pick({0, 0, 0, 1, 2, 2, 3});
        for (std::int16_t LineRecord::*kind :
             {&LineRecord::売上消費税区分, &LineRecord::仕入消費税区分, &LineRecord::商品売上消費税区分,
              &LineRecord::商品仕入消費税区分})
            l.*kind = r.pick({0, 1, 1, 2, 2, 3});
        l.仕入先消費税算出区分 = r.pick({0, 1, 2});
        l.仕入先消費税区分 = r.pick({1, 2});
        l.仕入先消費税丸め方法 = r.pick({0, 5, 9});
        l.仕入先消費税丸め桁位置 = r.pick({0, 0, 1, -1});
    }
}

struct CalculationReference : MasterDatabase {};

TEST_F(CalculationReference, RandomDocumentsAgree) {
    for (unsigned seed = 1; seed <= 150; ++seed) {
        Random r{std::mt19937(seed)};
        fresh_document();
        random_document(r);
        Reference reference{seen()};
        std::string steps_so_far;
        for (int n = 0; n < 25; ++n) {
            const Step& step = steps[r.below(static_cast<int>(std::size(steps)))];
            const int i = r.below(実行環境.最終行 + 1);
            steps_so_far += std::string(step.name) + " " + std::to_string(i) + "; ";
            step.program(i);
            step.reference(reference, reference.d.lines[static_cast<std::size_t>(i)]);
            ASSERT_TRUE(seen() == reference.d) << "seed " << seed << ": " << steps_so_far;
        }
    }
}

}  // namespace
}  // namespace kalvane
