#include "invoice/calculation.h"

#include "base/failure.h"
#include "master_database.h"

namespace kalvane {
namespace {

using i16 = std::int16_t;

struct Calculation : MasterDatabase {
    // Makes line 0 the one ordinary line of the document.
    LineRecord& only_line() {
        請求明細行[0] = LineRecord();
        実行環境.最終行 = 0;
        return 請求明細行[0];
    }
    LineRecord& add_line(const char* amount, i16 kind = 1) {
        LineRecord& line = 請求明細行[++実行環境.最終行];
        line.請求金額 = to_currency(amount);
        line.商品売上消費税区分 = kind;
        return line;
    }
    static void customer(i16 calculation, i16 kind, i16 method = 0, i16 position = 0, i16 adjust = 0) {
        請求ヘッダ.得意先消費税算出区分 = calculation;
        請求ヘッダ.得意先消費税区分 = kind;
        請求ヘッダ.得意先消費税丸め方法 = method;
        請求ヘッダ.得意先消費税丸め桁位置 = position;
        請求ヘッダ.得意先消費税端数調整区分 = adjust;
    }
};

TEST_F(Calculation, ClassesComeFromProductCustomerAndSupplier) {
    struct Row {
        bool purchase;
        const char* supplier;
        i16 calculation, partner, taxation, product;
        i16 line_taxation, line_kind;
    };
    const Row rows[] = {
        // sale: the customer's calculation and kind
        {false, "", 2, 1, 0, 0, 0, 1},
        {false, "", 2, 2, 0, 0, 0, 2},
        {false, "", 2, 1, 2, 2, 2, 2},
        {false, "", 2, 2, 1, 2, 1, 1},
        {false, "", 0, 2, 0, 2, 1, 1},
        {false, "", 1, 2, 3, 1, 3, 1},
        // purchase without a supplier: the product alone, and an untaxed one keeps its kind
        {true, "", 0, 2, 0, 0, 0, 1},
        {true, "", 0, 1, 1, 2, 1, 2},
        {true, "", 2, 1, 2, 2, 2, 2},
        // purchase with a supplier
        {true, "000001", 2, 2, 0, 0, 0, 2},
        {true, "000001", 2, 2, 2, 1, 2, 1},
        {true, "000001", 0, 2, 0, 2, 1, 1},
        {true, "000001", 2, 2, 1, 2, 1, 1},
    };
    for (const Row& r : rows) {
        LineRecord& line = only_line();
        line.仕入先コード = r.supplier;
        // the other side's partner must not matter
        customer(r.purchase ? 0 : r.calculation, r.purchase ? 2 : r.partner);
        line.仕入先消費税算出区分 = r.purchase ? r.calculation : i16{0};
        line.仕入先消費税区分 = r.purchase ? r.partner : i16{2};
        (r.purchase ? line.商品仕入課税区分 : line.商品売上課税区分) = r.taxation;
        (r.purchase ? line.商品仕入消費税区分 : line.商品売上消費税区分) = r.product;
        明細税区分設定(0);
        const auto where = &r - rows;
        EXPECT_EQ(r.purchase ? line.仕入課税区分 : line.売上課税区分, r.line_taxation) << where;
        EXPECT_EQ(r.purchase ? line.仕入消費税区分 : line.売上消費税区分, r.line_kind) << where;
    }
}

TEST_F(Calculation, SalePriceFromTheTaxOutPrice) {
    struct Row {
        i16 row, taxation, kind, method, position;
        const char *code, *product_price, *price;
    };
    const Row rows[] = {
        {1, 0, 1, 0, 0, "P", "1234.5", "1234.5"}, {1, 0, 2, 0, 0, "P", "1234.5", "1357.5"},  // 123.45 cut
        {1, 0, 2, 9, 1, "P", "1234.5", "1364.5"},  // 12.345 + 0.9, cut, tens: 130
        {1, 2, 2, 5, 0, "P", "1234.5", "1333.5"},  // 8 per cent, 98.76
        {1, 1, 2, 0, 0, "P", "1234.5", "1234.5"}, {1, 3, 1, 0, 0, "P", "1234.5", "1234.5"},
        {1, 3, 2, 0, 0, "P", "1234.5", "0"},      {1, 0, 2, 0, 0, "P", "-1234.5", "-1357.5"},
        {1, 0, 2, 0, 0, "P", "0", "7"},           {1, 0, 1, 0, 0, "", "1234.5", "7"},
        {2, 0, 1, 0, 0, "P", "1234.5", "7"},
    };
    for (const Row& r : rows) {
        LineRecord& line = only_line();
        customer(2, 1, r.method, r.position);
        line.行区分 = r.row;
        line.売上課税区分 = r.taxation;
        line.売上消費税区分 = r.kind;
        line.商品コード = r.code;
        line.商品税抜販売単価 = to_currency(r.product_price);
        line.商品税込販売単価 = 通貨::whole(9999);  // never the source
        line.請求単価 = 通貨::whole(7);
        請求単価設定(0);
        EXPECT_EQ(plain_number(line.請求単価), r.price) << &r - rows;
    }
}

TEST_F(Calculation, PurchasePriceStartsFromNothing) {
    struct Row {
        i16 taxation, kind;
        const char *out, *in, *price;
    };
    const Row rows[] = {
        {0, 1, "200.5", "222", "200.5"}, {0, 2, "200.5", "222", "222"},   {1, 2, "200.5", "222", "200.5"},
        {2, 1, "200.5", "222", "200.5"}, {2, 2, "200.5", "222", "216.5"},  // 16.04; the supplier's 9 gives 17
        {3, 2, "200.5", "222", "0"},     {0, 1, "0", "222", "0"},
    };
    for (const Row& r : rows) {
        LineRecord& line = only_line();
        line.行区分 = 2;  // neither the kind of row nor a product is asked for
        customer(2, 1, 9, 1);
        line.仕入先消費税丸め方法 = 9;
        line.仕入課税区分 = r.taxation;
        line.仕入消費税区分 = r.kind;
        line.商品税抜仕入単価 = to_currency(r.out);
        line.商品税込仕入単価 = to_currency(r.in);
        line.仕入単価 = 通貨::whole(7);
        仕入単価設定(0);
        EXPECT_EQ(plain_number(line.仕入単価), r.price) << &r - rows;
    }
}

TEST_F(Calculation, AmountIsWholeByTheCompanysRounding) {
    struct Row {
        const char *quantity, *price;
        i16 method;
        const char* amount;
    };
    const Row rows[] = {
        {"2.5", "1", 5, "3"},      {"-2.5", "1", 5, "-3"},       {"2.5", "1", 0, "2"},
        {"-2.5", "1", 0, "-2"},    {"1.1", "1", 9, "2"},         {"1.0999", "1", 9, "1"},
        {"-1.1", "1", 9, "-2"},    {"1.7", "1", 3, "2"},         {"0", "100", 5, "777"},
        {"3", "0", 5, "777"},      {"0.9999", "1.0001", 0, "1"},  // 0.99999999
        {"0.0005", "0.1", 0, "0"}, {"1", "1", 10, "2"},
    };
    for (const Row& r : rows) {
        LineRecord& line = only_line();
        line.請求数量 = line.仕入数量 = to_currency(r.quantity);
        line.請求単価 = line.仕入単価 = to_currency(r.price);
        line.請求金額 = line.仕入金額 = 通貨::whole(777);
        実行環境.売上金額丸め方法 = r.method;
        実行環境.仕入金額丸め方法 = 0;
        請求金額計算(0);
        EXPECT_EQ(plain_number(line.請求金額), r.amount) << &r - rows;
        EXPECT_EQ(plain_number(line.仕入金額), "777");
        std::swap(実行環境.売上金額丸め方法, 実行環境.仕入金額丸め方法);
        仕入金額計算(0);
        EXPECT_EQ(plain_number(line.仕入金額), r.amount) << &r - rows;
    }
}

TEST_F(Calculation, LineTax) {
    請求ヘッダ.営業請求日付 = "20000101";  // 5 per cent, 3 before
    struct Row {
        const char* amount;
        i16 taxation, kind, method;
        const char *sale, *purchase;  // the purchase always rounds at the half
    };
    const Row rows[] = {
        {"1234", 0, 1, 0, "61", "62"}, {"1234", 0, 1, 5, "62", "62"}, {"-1234", 0, 1, 5, "-62", "-62"},
        {"1050", 0, 2, 9, "50", "50"}, {"1234", 2, 1, 9, "37", "37"},  // 37.02
        {"1234", 1, 1, 9, "0", "0"},   {"1234", 3, 1, 9, "0", "0"},   {"0", 0, 1, 5, "0", "0"},
    };
    for (const Row& r : rows) {
        LineRecord& line = only_line();
        customer(2, 1, r.method);
        line.仕入先消費税丸め方法 = 9;
        line.仕入先消費税丸め桁位置 = 1;
        line.請求金額 = line.仕入金額 = to_currency(r.amount);
        line.商品売上課税区分 = line.商品仕入課税区分 = r.taxation;
        line.商品売上消費税区分 = line.商品仕入消費税区分 = r.kind;
        line.請求消費税 = line.仕入消費税 = 通貨::whole(7);
        請求消費税計算(0);
        仕入消費税計算(0);
        EXPECT_EQ(plain_number(line.請求消費税), r.sale) << &r - rows;
        EXPECT_EQ(plain_number(line.仕入消費税), r.purchase) << &r - rows;
    }
    // computed whatever the customer's calculation is, but nothing for one who bears none
    LineRecord& line = only_line();
    line.請求金額 = 通貨::whole(1000);
    for (const auto& [calculation, tax] : {std::pair<i16, int>{1, 50}, {2, 50}, {3, 50}, {0, 0}}) {
        customer(calculation, 1);
        請求消費税計算(0);
        EXPECT_EQ(line.請求消費税, 通貨::whole(tax)) << calculation;
    }
    // no rate before the one in force
    請求ヘッダ.営業請求日付 = "19890401";
    customer(2, 1);
    line.商品売上課税区分 = 2;
    請求消費税計算(0);
    EXPECT_TRUE(line.請求消費税.is_zero());
}

TEST_F(Calculation, TypedPriceCarriesTheWorkingPrices) {
    請求ヘッダ.営業請求日付 = "20000101";
    struct Row {
        i16 taxation, kind, method;
        const char *out, *in;
    };
    const Row rows[] = {
        {1, 2, 0, "1050", "1050"}, {0, 2, 0, "1000", "1050"}, {2, 2, 0, "1020", "1050"},  // 30.58 cut
        {0, 1, 0, "1050", "1102"},                                                        // 52.5
        {0, 1, 5, "1050", "1103"}, {2, 0, 5, "1050", "1082"},                             // 31.5
        {3, 1, 0, "7", "8"},
    };
    for (const Row& r : rows) {
        LineRecord& line = only_line();
        customer(2, 1, r.method);
        line.仕入先消費税丸め方法 = 9;  // not asked, on the purchase side neither
        line.仕入先消費税丸め桁位置 = 2;
        line.売上課税区分 = line.仕入課税区分 = r.taxation;
        line.売上消費税区分 = line.仕入消費税区分 = r.kind;
        line.請求単価 = line.仕入単価 = 通貨::whole(1050);
        line.商品税抜販売単価 = line.商品税抜仕入単価 = 通貨::whole(7);
        line.商品税込販売単価 = line.商品税込仕入単価 = 通貨::whole(8);
        請求単価入力(0);
        仕入単価入力(0);
        EXPECT_EQ(plain_number(line.商品税抜販売単価), r.out) << &r - rows;
        EXPECT_EQ(plain_number(line.商品税込販売単価), r.in) << &r - rows;
        EXPECT_EQ(plain_number(line.商品税抜仕入単価), r.out) << &r - rows;
        EXPECT_EQ(plain_number(line.商品税込仕入単価), r.in) << &r - rows;
        EXPECT_FALSE(実行環境.入力変更あり);
    }
}

// A price turns from the line's kind to the customer's; customer's rounding 0, supplier's 9.
TEST_F(Calculation, PricesTurnWithTheCustomersKind) {
    struct Row {
        i16 customer_kind, kind, taxation;
        const char *before, *sale, *purchase;
        bool marked;
    };
    const Row rows[] = {
        {1, 2, 0, "1005", "914", "913", true},  // 91.36
        {1, 2, 2, "1080", "1000", "1000", true},  {2, 1, 0, "1005", "1105", "1106", true},
        {2, 1, 2, "1000", "1080", "1080", true},  {2, 1, 1, "1000", "1000", "1000", true},
        {2, 1, 3, "1000", "1000", "1000", true},  {2, 3, 0, "1000", "1000", "1000", true},
        {2, 2, 0, "1005", "1005", "1005", false}, {2, 1, 0, "0", "0", "0", false},
    };
    for (const Row& r : rows)
        for (const bool purchase : {false, true}) {
            LineRecord& line = only_line();
            customer(2, r.customer_kind);
            line.仕入先消費税区分 = r.kind;  // not compared
            line.仕入先消費税丸め方法 = 9;
            line.売上消費税区分 = purchase ? r.customer_kind : r.kind;
            line.仕入消費税区分 = purchase ? r.kind : r.customer_kind;
            line.売上課税区分 = line.仕入課税区分 = r.taxation;
            line.請求単価 = line.仕入単価 = to_currency(r.before);
            実行環境.入力変更あり = false;
            請求単価再計算(0);
            仕入単価再計算(0);
            EXPECT_EQ(plain_number(line.請求単価), purchase ? r.before : r.sale) << &r - rows;
            EXPECT_EQ(plain_number(line.仕入単価), purchase ? r.purchase : r.before) << &r - rows;
            EXPECT_EQ(実行環境.入力変更あり, r.marked) << &r - rows;
        }
}

TEST_F(Calculation, AmountsTurnUnlessTheyComeFromAPrice) {
    struct Row {
        i16 customer_kind, kind, taxation;
        const char *quantity, *before, *sale, *purchase;
    };
    const Row rows[] = {
        {1, 2, 0, "0", "1005", "914", "913"},
        {1, 2, 2, "0", "1080", "1000", "1000"},
        {2, 1, 0, "0", "1000", "1100", "1100"},
        {2, 1, 2, "0", "1000", "1080", "1100"},  // the purchase takes the rate in force
        {2, 1, 1, "0", "1000", "1000", "1000"},
        {2, 3, 0, "0", "1000", "1000", "1000"},
        {1, 1, 0, "0", "1005", "1005", "1005"},
        {1, 2, 0, "0", "0", "0", "0"},
        {1, 2, 0, "2.5", "1005", "8", "7"},  // 2.5 x 3, sale rounds at the half
        {1, 1, 0, "2.5", "1005", "8", "7"},
    };
    for (const Row& r : rows) {
        LineRecord& line = only_line();
        customer(2, r.customer_kind);
        実行環境.売上金額丸め方法 = 5;
        実行環境.仕入金額丸め方法 = 0;
        line.仕入先消費税丸め方法 = 9;
        line.売上消費税区分 = line.仕入消費税区分 = r.kind;
        line.売上課税区分 = line.仕入課税区分 = r.taxation;
        line.請求数量 = line.仕入数量 = to_currency(r.quantity);
        line.請求単価 = line.仕入単価 = 通貨::whole(3);
        line.請求金額 = line.仕入金額 = to_currency(r.before);
        請求金額再計算(0);
        仕入金額再計算(0);
        EXPECT_EQ(plain_number(line.請求金額), r.sale) << &r - rows;
        EXPECT_EQ(plain_number(line.仕入金額), r.purchase) << &r - rows;
        EXPECT_FALSE(実行環境.入力変更あり);
    }
}

TEST_F(Calculation, TotalsGatherTheCountedLinesByClass) {
    struct Row {
        i16 counted, row, quantity, amount, tax, taxation, kind;
    };
    const Row rows[] = {
        {1, 1, 2, 1000, 100, 0, 1}, {1, 1, 1, 1100, 100, 0, 2}, {1, 1, 1, 500, 40, 2, 1},
        {1, 1, 1, 540, 40, 2, 2},   {1, 1, 1, 300, 0, 1, 2},    {0, 1, 9, 9999, 999, 0, 1},
        {1, 1, 1, 70, 7, 0, 3},     {1, 0, 5, 5555, 55, 0, 1},  {1, 2, 0, 0, 0, 0, 1},
    };
    for (const Row& r : rows) {
        LineRecord& line = 請求明細行[++実行環境.最終行];
        line.計区分 = r.counted;
        line.行区分 = r.row;
        line.請求数量 = 通貨::whole(r.quantity);
        line.請求金額 = 通貨::whole(r.amount);
        line.請求消費税 = 通貨::whole(r.tax);
        line.仕入数量 = 通貨::whole(r.quantity * 10);
        line.仕入金額 = 通貨::whole(r.amount * 10);
        line.仕入消費税 = 通貨::whole(r.tax * 10);
        line.売上課税区分 = line.仕入課税区分 = r.taxation;
        line.売上消費税区分 = line.仕入消費税区分 = r.kind;
    }
    customer(2, 1);
    合計計算();
    合計計算();  // rebuilt, not added to
    const HeaderRecord& h = 請求ヘッダ;
    const auto text = [](std::initializer_list<通貨> values) {
        std::string s;
        for (const 通貨 v : values) s += plain_number(v) + " ";
        return s;
    };
    EXPECT_EQ(
        text({h.請求数量合計, h.請求金額合計, h.税抜請求金額合計, h.請求消費税合計, h.税込請求金額合計}),
        "7 3510 3300 287 3580 ");
    EXPECT_EQ(
        text({h.仕入数量合計, h.仕入金額合計, h.税抜仕入金額合計, h.仕入消費税合計, h.税込仕入金額合計}),
        "70 35100 33000 2870 35800 ");
    EXPECT_EQ(text({h.売上課税外税額, h.売上課税内税額, h.売上旧税外税額, h.売上旧税内税額, h.売上非課税額}),
              "1000 1100 500 540 300 ");
    EXPECT_EQ(text({h.仕入課税外税額, h.仕入課税内税額, h.仕入旧税外税額, h.仕入旧税内税額, h.仕入非課税額}),
              "10000 11000 5000 5400 3000 ");
    const LineRecord& sum = 請求明細行[実行環境.最終行];
    EXPECT_EQ(text({sum.請求数量, sum.請求金額, sum.請求消費税, sum.仕入数量, sum.仕入金額, sum.仕入消費税}),
              "7 3510 287 70 35100 2870 ");
    EXPECT_EQ(plain_number(h.計算消費税合計), "280");  // 100 + 100 + 40 + 40
    EXPECT_EQ(plain_number(消費税差額計算()), "-7");

    statements.clear();
    合計計算();
    EXPECT_EQ(tax_reads(), 4);
    customer(1, 1);
    statements.clear();
    EXPECT_EQ(消費税差額計算(), 通貨());
    EXPECT_EQ(plain_number(h.計算消費税合計), "287");
    EXPECT_TRUE(statements.empty());
}

TEST_F(Calculation, TheDifferenceGoesToOneLine) {
    struct Row {
        std::vector<const char*> amounts;
        i16 adjust, kind;
        bool first_counted;
        const char *first_tax, *total, *without, *with, *difference;
    };
    const Row rows[] = {
        {{"100", "100", "100"}, 1, 1, true, "5", "15", "300", "315", "0"},
        {{"33", "33", "34"}, 0, 1, true, "1", "3", "100", "103", "2"},
        {{"33", "33", "34"}, 1, 1, true, "3", "5", "100", "105", "0"},
        {{"30", "30", "30"}, 1, 2, true, "2", "4", "86", "90", "0"},   // 1.43 each, 4.29 on the whole
        {{"33", "33", "34"}, 1, 1, false, "2", "3", "67", "70", "0"},  // a line left out takes it all the
                                                                       // same
        {{"0", "33", "33", "34"}, 1, 1, true, "0", "5", "100", "105", "0"},
        {{"0", "0"}, 1, 1, true, "0", "0", "0", "0", "0"},
    };
    請求ヘッダ.営業請求日付 = "20000101";
    for (const Row& r : rows) {
        実行環境.最終行 = -1;
        for (int i = 0; i < 4; ++i) 請求明細行[i] = LineRecord();
        customer(2, 1, 0, 0, r.adjust);
        for (const char* amount : r.amounts) add_line(amount, r.kind);
        if (!r.first_counted) 請求明細行[0].計区分 = 0;
        全行税再計算();
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(plain_number(請求明細行[0].請求消費税), r.first_tax) << &r - rows;
            EXPECT_EQ(plain_number(請求ヘッダ.請求消費税合計), r.total) << &r - rows;
            if (times == 0 || r.first_counted) {
                EXPECT_EQ(plain_number(請求ヘッダ.税抜請求金額合計), r.without) << &r - rows;
                EXPECT_EQ(plain_number(請求ヘッダ.税込請求金額合計), r.with) << &r - rows;
                if (r.first_counted) EXPECT_EQ(plain_number(消費税差額計算()), r.difference) << &r - rows;
            }
            if (!r.first_counted) break;
        }
    }
    // rounding that makes tax of nothing: without any amount it stays out of the document, with a sum row's
    // amount alone the total takes it and no line does
    for (const i16 row : {ordinary_line, grand_total_line}) {
        LineRecord& line = only_line();
        customer(2, 1, 10, 0, 1);
        line.行区分 = row;
        if (row != ordinary_line) line.請求金額 = 通貨::whole(100);
        合計計算();
        EXPECT_EQ(plain_number(請求ヘッダ.計算消費税合計), "4");
        EXPECT_EQ(plain_number(請求ヘッダ.請求消費税合計), row == ordinary_line ? "0" : "4");
        EXPECT_TRUE(line.請求消費税.is_zero());
    }
}

// Rows as digits of 行区分, "x" an ordinary line that is not counted; line n has the amount 10 to the power
// n, rows of sums hold 777 before.
TEST_F(Calculation, SumRowsAddTheRowsAbove) {
    struct Row {
        const char* kinds;
        int row;
        const char* amount;
    };
    const Row rows[] = {
        {"2", 0, "777"},          {"3", 0, "777"},         {"13", 1, "777"},
        {"113", 2, "0"},          {"114", 2, "777"},       {"1114", 3, "0"},
        {"5", 0, "777"},          {"15", 1, "1"},          {"12", 1, "1"},
        {"1122", 2, "11"},        {"1122", 3, "0"},        {"1x2", 2, "1"},
        {"x5", 1, "0"},           {"102", 2, "1"},         {"162", 2, "0"},
        {"1625", 3, "1"},         {"1213", 3, "1"},        {"12123", 4, "101"},
        {"123123", 5, "1000"},    {"1234", 3, "1"},        {"12341234", 6, "10000"},
        {"12341234", 7, "10000"}, {"12312341", 6, "1001"}, {"12x31415", 7, "1010001"},
    };
    customer(1, 1);
    for (const Row& r : rows) {
        実行環境.最終行 = -1;
        std::int64_t power = 1;
        for (const char* k = r.kinds; *k; ++k, power *= 10) {
            LineRecord& line = 請求明細行[++実行環境.最終行] = LineRecord();
            line.行区分 = static_cast<i16>(*k == 'x' ? 1 : *k - '0');
            line.計区分 = *k == 'x' ? 0 : 1;
            line.請求金額 = 通貨::whole(line.行区分 > 1 ? 777 : power);
        }
        合計計算();
        EXPECT_EQ(plain_number(請求明細行[r.row].請求金額), r.amount) << r.kinds << " row " << r.row;
    }
}

TEST_F(Calculation, SettingTheKindOfARow) {
    struct Row {
        i16 kind;
        int row;
        const char* name;  // behind its spaces
        int spaces;
        const char* amount;
        i16 counted;
    };
    const Row rows[] = {
        {2, 0, "＊小計＊", 21, "777", 0},
        {2, 2, "＊小計＊", 21, "200", 0},
        {3, 1, "＊＊中計＊＊", 19, "777", 0},
        {3, 2, "＊＊中計＊＊", 19, "0", 0},
        {4, 2, "＊＊＊大計＊＊＊", 17, "777", 0},
        {4, 3, "＊＊＊大計＊＊＊", 17, "0", 0},
        {5, 0, "＊＊＊＊合計＊＊＊＊", 15, "777", 0},
        {5, 1, "＊＊＊＊合計＊＊＊＊", 15, "100", 0},
        {1, 2, "kept", 0, "777", 1},
        {0, 2, "kept", 0, "777", 7},
        {6, 2, "kept", 0, "777", 7},
    };
    for (const Row& r : rows) {
        fresh_document();
        実行環境.最終行 = 3;
        for (int i = 0; i < r.row; ++i) 請求明細行[i].請求金額 = 通貨::whole(100);
        customer(2, 2);
        LineRecord& line = 請求明細行[r.row];
        line.行区分 = r.kind;
        line.計区分 = 7;
        line.商品名 = "kept";
        line.請求金額 = 通貨::whole(777);
        行区分設定(r.row);
        std::string name;
        for (int n = 0; n < r.spaces; ++n) name += "　";
        EXPECT_EQ(line.商品名, name + r.name) << &r - rows;
        EXPECT_TRUE(r.spaces == 0 || Len(line.商品名) == 25) << &r - rows;
        EXPECT_EQ(plain_number(line.請求金額), r.amount) << &r - rows;
        EXPECT_EQ(line.計区分, r.counted) << &r - rows;
        EXPECT_EQ(line.売上消費税区分, r.spaces ? 2 : 1) << &r - rows;
        EXPECT_FALSE(実行環境.入力変更あり);
    }
}

TEST_F(Calculation, EveryTaxFollowsTheDate) {
    全行税再計算();
    EXPECT_TRUE(statements.empty());
    customer(2, 1);
    for (int i = 0; i < 998; ++i) add_line("1000").仕入金額 = 通貨::whole(500);
    statements.clear();
    全行税再計算();
    EXPECT_LE(tax_reads(), 2 * 998 + 4);
    EXPECT_EQ(tax_reads(), static_cast<long>(statements.size()));
    EXPECT_EQ(plain_number(請求ヘッダ.請求消費税合計), "99800");
    EXPECT_EQ(plain_number(請求ヘッダ.仕入消費税合計), "49900");
    EXPECT_EQ(消費税差額計算(), 通貨());
    請求ヘッダ.営業請求日付 = "20190930";
    全行税再計算();
    EXPECT_EQ(plain_number(請求明細行[997].請求消費税), "80");
    EXPECT_EQ(plain_number(請求ヘッダ.請求消費税合計), "79840");
    EXPECT_EQ(plain_number(請求ヘッダ.計算消費税合計), "79840");
}

TEST_F(Calculation, OutsideTheBoundsIsAFailure) {
    for (const int i : {-1, 999}) {
        EXPECT_THROW(明細税区分設定(i), RunFailure);
        EXPECT_THROW(請求金額計算(i), RunFailure);
        EXPECT_THROW(仕入単価設定(i), RunFailure);
        EXPECT_THROW(行区分設定(i), RunFailure);
        EXPECT_THROW(小計行計算(i), RunFailure);
    }
    EXPECT_NO_THROW(明細税区分設定(998));
    LineRecord& line = only_line();
    line.請求数量 = line.請求単価 = 通貨::whole(100000000);
    EXPECT_THROW(請求金額計算(0), RunFailure);
    実行環境.最終行 = 1;
    請求明細行[0].請求金額 = 請求明細行[1].請求金額 = 通貨::from_units(INT64_MAX / 2 + 1);
    EXPECT_THROW(合計計算(), RunFailure);
}

}  // namespace
}  // namespace kalvane
