// Random documents against a second calculation, kept plain and apart: counts of ten-thousandths, the two
// halves of a line by number (0 sale, 1 purchase).
#include <cmath>
#include <random>

#include "invoice/calculation.h"
#include "support/program_database.h"

namespace kalvane {
namespace {

using namespace test;

using Count = std::int64_t;

struct Half {
    Count quantity, price, amount, tax;
    int product_taxation, product_kind;
    int taxation = 0, kind = 0;
};
struct Line {
    int row, counted;
    bool supplier;
    Half half[2];
};
struct Sums {
    Count quantity = 0, amount = 0, out = 0, tax = 0, in = 0;
    Count by_class[3][4] = {};  // 課税区分, 消費税区分
};

// Rates 10 and 8, positions 0, 1 and -1.
Count tax(Count amount, int kind, int method, int position, bool previous) {
    const double rate = previous ? 8 : 10, m = static_cast<double>(std::abs(amount)) / 10000.0;
    const double exact = kind == 1 ? rate * m / 100.0 : kind == 2 ? rate * m / (rate + 100.0) : 0.0;
    const Count t = std::llrint(exact * 10000.0), unit = position == 1 ? 100000 : 10000;
    const Count result = position < 0 ? (-10 * t + method * 1000) / 10000 * 10000 / -10
                                      : (t + method * unit / 10) / unit * unit;
    return amount < 0 ? -result : result;
}

struct Reference {
    std::vector<Line> lines;
    Sums sums[2];
    Count document_tax = 0;

    static Count customer_tax(Count amount, int kind, bool previous) {
        return tax(amount, kind, 請求ヘッダ.得意先消費税丸め方法, 請求ヘッダ.得意先消費税丸め桁位置,
                   previous);
    }

    static void calculate_line(Line& l, int side, int supplier_calculation, int supplier_kind) {
        Half& h = l.half[side];
        const int rounding = side ? 実行環境.仕入金額丸め方法 : 実行環境.売上金額丸め方法;
        if (h.quantity != 0 && h.price != 0) {
            const Count product = h.quantity * h.price, rest = std::abs(product % 10000);
            Count a = product / 10000;
            if (rest > 5000 || (rest == 5000 && a % 2 != 0)) a += product < 0 ? -1 : 1;
            h.amount = (a + (a < 0 ? -1000 : 1000) * rounding) / 10000 * 10000;
        }
        bool untaxed = h.product_taxation == 1 || 請求ヘッダ.得意先消費税算出区分 == 0;
        int partner = 請求ヘッダ.得意先消費税区分;
        if (side) {
            untaxed = l.supplier && (h.product_taxation == 1 || supplier_calculation == 0);
            partner = l.supplier ? supplier_kind : 1;
        }
        h.taxation = untaxed ? 1 : h.product_taxation;
        h.kind = untaxed ? 1 : h.product_kind != 0 ? h.product_kind : partner;
        const bool previous = h.taxation == 2;
        h.tax = 0;
        if (h.taxation == 0 || previous)
            h.tax = side ? tax(h.amount, h.kind, 5, 0, previous) : customer_tax(h.amount, h.kind, previous);
    }

    void sum_row(std::size_t r) {
        const int kind = lines[r].row, least = kind == 5 ? 1 : kind - 1;
        if (kind > 5 || static_cast<int>(r) < least) return;
        Half total[2] = {};
        for (std::size_t i = r; i-- > 0;) {
            const Line& l = lines[i];
            if (kind < 5 && l.row >= kind) break;
            const bool ordinary = l.row == 1 && l.counted == 1;
            if (kind == 2 || kind == 5 ? !ordinary : l.row != kind - 1) continue;
            for (const int side : {0, 1}) {
                total[side].quantity += l.half[side].quantity;
                total[side].amount += l.half[side].amount;
                total[side].tax += l.half[side].tax;
            }
        }
        for (const int side : {0, 1}) {
            lines[r].half[side].quantity = total[side].quantity;
            lines[r].half[side].amount = total[side].amount;
            lines[r].half[side].tax = total[side].tax;
        }
    }

    void totals() {
        for (std::size_t r = 0; r < lines.size(); ++r) {
            if (lines[r].row > 1) sum_row(r);
            if (lines[r].row != 1 || lines[r].counted != 1) continue;
            for (const int side : {0, 1}) {
                const Half& h = lines[r].half[side];
                Sums& s = sums[side];
                s.quantity += h.quantity;
                s.amount += h.amount;
                s.tax += h.tax;
                if (h.kind == 1 || h.kind == 2) s.out += h.kind == 2 ? h.amount - h.tax : h.amount;
                if (h.kind == 1 || h.kind == 2) s.in += h.kind == 1 ? h.amount + h.tax : h.amount;
                if (h.taxation < 3) s.by_class[h.taxation][h.kind] += h.amount;
            }
        }
        Sums& s = sums[0];
        document_tax = s.tax;
        if (請求ヘッダ.得意先消費税算出区分 != 1) {
            document_tax = 0;
            for (const int taxation : {0, 2})
                for (const int kind : {1, 2})
                    document_tax += customer_tax(s.by_class[taxation][kind], kind, taxation == 2);
        }
        const auto has_amount = [](const Line& l) { return l.half[0].amount != 0; };
        const Count difference = document_tax - s.tax;
        if (請求ヘッダ.得意先消費税端数調整区分 != 1 || std::ranges::none_of(lines, has_amount)) return;
        s.tax = document_tax;
        const auto taker =
            std::ranges::find_if(lines, [&](const Line& l) { return l.row == 1 && has_amount(l); });
        if (taker == lines.end()) return;
        taker->half[0].tax += difference;
        if (taker->half[0].kind == 1) s.in += difference;
        if (taker->half[0].kind == 2) s.out -= difference;
    }
};

struct CalculationReference : ProgramDatabase {
    std::mt19937 random;

    std::int16_t pick(std::initializer_list<int> values) {
        return static_cast<std::int16_t>(values.begin()[random() % values.size()]);
    }
    // 0, whole, with decimals, negative
    通貨 figure(int largest) {
        const auto number = static_cast<Count>(random() % static_cast<unsigned>(largest * 10000));
        return 通貨::from_units(
            std::array{Count{0}, number / 10000 * 10000, number, number, -number}[random() % 5]);
    }

    void make_document() {
        fresh_document(pick({1, 2, 3, 5, 8, 12}));
        HeaderRecord& h = 請求ヘッダ;
        h.得意先消費税算出区分 = pick({0, 1, 2, 2, 2, 3});
        h.得意先消費税区分 = pick({1, 2});
        h.得意先消費税丸め方法 = pick({0, 5, 9});
        h.得意先消費税丸め桁位置 = pick({0, 0, 0, 1, -1});
        h.得意先消費税端数調整区分 = pick({0, 1});
        実行環境.売上金額丸め方法 = pick({0, 5, 9});
        実行環境.仕入金額丸め方法 = pick({0, 5, 9});
        for (int i = 0; i <= 実行環境.最終行; ++i) {
            LineRecord& l = 請求明細行[i];
            l.行区分 = pick({1, 1, 1, 1, 1, 2, 2, 3, 4, 5, 0, 6});
            l.計区分 = pick({1, 1, 1, 0});
            l.仕入先コード = pick({0, 1}) ? "000001" : "";
            l.請求数量 = figure(50);
            l.仕入数量 = figure(50);
            l.請求単価 = figure(3000);
            l.仕入単価 = figure(3000);
            l.請求金額 = Fix(figure(9000));
            l.仕入金額 = Fix(figure(9000));
            l.商品売上課税区分 = pick({0, 0, 1, 2, 2, 3});
            l.商品仕入課税区分 = pick({0, 0, 1, 2, 2, 3});
            l.商品売上消費税区分 = pick({0, 1, 2, 2, 3});
            l.商品仕入消費税区分 = pick({0, 1, 2, 2, 3});
            l.仕入先消費税算出区分 = pick({0, 1, 2});
            l.仕入先消費税区分 = pick({1, 2});
        }
    }

    static Reference reference() {
        Reference r;
        for (int i = 0; i <= 実行環境.最終行; ++i) {
            const LineRecord& l = 請求明細行[i];
            r.lines.push_back({l.行区分,
                               l.計区分,
                               !l.仕入先コード.empty(),
                               {{l.請求数量.units(), l.請求単価.units(), l.請求金額.units(), 0,
                                 l.商品売上課税区分, l.商品売上消費税区分},
                                {l.仕入数量.units(), l.仕入単価.units(), l.仕入金額.units(), 0,
                                 l.商品仕入課税区分, l.商品仕入消費税区分}}});
            for (const int side : {0, 1})
                Reference::calculate_line(r.lines.back(), side, l.仕入先消費税算出区分, l.仕入先消費税区分);
        }
        r.totals();
        return r;
    }

    static void compare(const Reference& r) {
        const HeaderRecord& h = 請求ヘッダ;
        using Counts = std::vector<Count>;
        for (std::size_t i = 0; i < r.lines.size(); ++i) {
            const LineRecord& l = 請求明細行[static_cast<int>(i)];
            const Half &s = r.lines[i].half[0], &p = r.lines[i].half[1];
            ASSERT_EQ((Counts{l.請求数量.units(), l.請求金額.units(), l.請求消費税.units(), l.売上課税区分,
                              l.売上消費税区分}),
                      (Counts{s.quantity, s.amount, s.tax, s.taxation, s.kind}))
                << "line " << i;
            ASSERT_EQ((Counts{l.仕入数量.units(), l.仕入金額.units(), l.仕入消費税.units(), l.仕入課税区分,
                              l.仕入消費税区分}),
                      (Counts{p.quantity, p.amount, p.tax, p.taxation, p.kind}))
                << "line " << i;
        }
        const Sums &s = r.sums[0], &p = r.sums[1];
        ASSERT_EQ((Counts{h.請求数量合計.units(), h.請求金額合計.units(), h.税抜請求金額合計.units(),
                          h.請求消費税合計.units(), h.税込請求金額合計.units(), h.計算消費税合計.units()}),
                  (Counts{s.quantity, s.amount, s.out, s.tax, s.in, r.document_tax}));
        ASSERT_EQ((Counts{h.仕入数量合計.units(), h.仕入金額合計.units(), h.税抜仕入金額合計.units(),
                          h.仕入消費税合計.units(), h.税込仕入金額合計.units()}),
                  (Counts{p.quantity, p.amount, p.out, p.tax, p.in}));
    }
};

TEST_F(CalculationReference, RandomDocumentsAgree) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(seed);
        random.seed(seed);
        make_document();
        const Reference expected = reference();
        for (int i = 0; i <= 実行環境.最終行; ++i) {
            請求金額計算(i);
            仕入金額計算(i);
        }
        全行税再計算();
        compare(expected);
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace kalvane
