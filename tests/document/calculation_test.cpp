// Amounts, taxes and totals, worked by hand.
#include "document/calculation.h"

#include "base/failure.h"
#include "base/text.h"
#include "support/program_database.h"

namespace kalvane {
namespace {

using namespace test;

struct Calculation : ProgramDatabase {
    static void add_line(const std::string& text) { set(text, ++実行環境.最終行); }
};

// One routine on one line: what the line, the customer and the company hold before, and what must stand
// after. The day has 10 per cent, 8 before; where 20000101 stands, 5 and 3.
const std::pair<void (*)(int), const char*> line_cases[] = {
    // classes of the sale: the product's kind, else the customer's
    // of the purchase: without a supplier the product alone decides, and an untaxed one keeps its kind
    {明細税区分設定,
     R"(得意先消費税区分=2|売上課税区分=0 売上消費税区分=2 ; 仕入先消費税区分=2 得意先消費税区分=2|仕入課税区分=0 仕入消費税区分=1)"},
    {売上税区分設定,
     R"(得意先消費税区分=2 商品売上消費税区分=1 商品売上課税区分=3|売上課税区分=3 売上消費税区分=1
      得意先消費税区分=2 商品売上課税区分=1 商品売上消費税区分=2|売上課税区分=1 売上消費税区分=1
      得意先消費税算出区分=0 得意先消費税区分=2 商品売上消費税区分=2|売上課税区分=1 売上消費税区分=1
      得意先消費税算出区分=0 商品売上課税区分=2|売上課税区分=1 ; 得意先消費税区分=2 商品売上消費税区分=3|売上消費税区分=3)"},
    {仕入税区分設定,
     R"(仕入先消費税算出区分=0 得意先消費税算出区分=0 商品仕入消費税区分=2|仕入課税区分=0 仕入消費税区分=2 ; 商品仕入課税区分=1 商品仕入消費税区分=2|仕入課税区分=1 仕入消費税区分=2
      仕入先コード=1 仕入先消費税区分=2 商品仕入消費税区分=1|仕入課税区分=0 仕入消費税区分=1
      仕入先コード=1 仕入先消費税算出区分=0 商品仕入消費税区分=2|仕入課税区分=1 仕入消費税区分=1
      仕入先コード=1 商品仕入課税区分=1 商品仕入消費税区分=2|仕入課税区分=1 仕入消費税区分=1)"},
    // sale price from the tax-out price; the product's tax-in price is never the source
    // 12.345 + 0.9, cut, tens
    {請求単価設定, R"(商品コード=P 商品税抜販売単価=1234.5 商品税込販売単価=9|請求単価=1234.5
      商品コード=P 商品税抜販売単価=1234.5 商品税込販売単価=9 売上消費税区分=2|請求単価=1357.5
      商品コード=P 商品税抜販売単価=-1234.5 売上消費税区分=2|請求単価=-1357.5
      商品コード=P 商品税抜販売単価=1234.5 売上消費税区分=2 得意先消費税丸め方法=9 \
          得意先消費税丸め桁位置=1|請求単価=1364.5
      商品コード=P 商品税抜販売単価=1234.5 売上消費税区分=2 売上課税区分=2|請求単価=1332.5
      商品コード=P 商品税抜販売単価=1234.5 売上消費税区分=2 売上課税区分=3|請求単価=0
      商品コード=P 商品税抜販売単価=1234.5 売上消費税区分=1 売上課税区分=3|請求単価=1234.5
      商品コード=P 請求単価=7|請求単価=7 ; 商品税抜販売単価=1234.5 請求単価=7|請求単価=7
      商品コード=P 商品税抜販売単価=1234.5 請求単価=7 行区分=2|請求単価=7)"},
    // purchase price: starts from nothing, whatever the row; 16.04 to the nearest, not by the supplier's 9
    {仕入単価設定, R"(商品税抜仕入単価=200.5 商品税込仕入単価=222|仕入単価=200.5
      商品税抜仕入単価=200.5 商品税込仕入単価=222 仕入消費税区分=2 行区分=2|仕入単価=222
      商品税抜仕入単価=200.5 商品税込仕入単価=222 仕入消費税区分=2 仕入課税区分=1|仕入単価=200.5
      商品税抜仕入単価=200.5 仕入消費税区分=2 仕入課税区分=2 仕入先消費税丸め方法=9|仕入単価=216.5 ; 商品税抜仕入単価=200.5 仕入課税区分=3 仕入単価=7|仕入単価=0
      商品税込仕入単価=222 仕入単価=7|仕入単価=0)"},
    // amounts: whole, the company's tenths added to the magnitude
    // 0.99999999 to four places
    {請求金額計算,
     R"(請求数量=2.5 請求単価=1 売上金額丸め方法=5|請求金額=3 ; 請求数量=-2.5 請求単価=1 売上金額丸め方法=5|請求金額=-3
      請求数量=2.5 請求単価=1 仕入金額丸め方法=5|請求金額=2 ; 請求数量=-2.5 請求単価=1|請求金額=-2 ; 請求数量=1.1 請求単価=1 売上金額丸め方法=9|請求金額=2
      請求数量=1.0999 請求単価=1 売上金額丸め方法=9|請求金額=1 ; 請求数量=0.9999 請求単価=1.0001|請求金額=1 ; 請求単価=5 請求金額=777|請求金額=777
      請求数量=5 請求金額=777|請求金額=777)"},
    {仕入金額計算,
     R"(仕入数量=2.5 仕入単価=-1 仕入金額丸め方法=5|仕入金額=-3 ; 仕入数量=2.5 仕入単価=1 売上金額丸め方法=5 請求金額=8|仕入金額=2 請求金額=8)"},
    // the line's tax; on the purchase side always to the nearest unit
    {請求消費税計算,
     R"(営業請求日付=20000101 請求金額=1234|請求消費税=61 ; 営業請求日付=20000101 請求金額=-1234 得意先消費税丸め方法=5|請求消費税=-62
      営業請求日付=20000101 請求金額=1050 商品売上消費税区分=2|請求消費税=50 ; 営業請求日付=20000101 請求金額=1234 商品売上課税区分=2|請求消費税=37
      請求金額=1234 商品売上課税区分=1 請求消費税=7|請求消費税=0 売上課税区分=1 ; 請求金額=1234 商品売上課税区分=3 請求消費税=7|請求消費税=0
      請求金額=1000 得意先消費税算出区分=1|請求消費税=100 ; 請求金額=1000 得意先消費税算出区分=3|請求消費税=100 ; 請求金額=1000 得意先消費税算出区分=0|請求消費税=0
      営業請求日付=19890401 請求金額=1000 商品売上課税区分=2|請求消費税=0)"},
    // no rate before
    {仕入消費税計算, R"(営業請求日付=20000101 仕入金額=1234 仕入先消費税丸め桁位置=1|仕入消費税=62
      営業請求日付=20000101 仕入金額=1234 商品仕入課税区分=2 仕入先消費税丸め方法=9|仕入消費税=37)"},
    // a typed price carries the working prices, on both sides by the customer's rounding
    {請求単価入力,
     R"(請求単価=1050 売上課税区分=1 売上消費税区分=2|商品税抜販売単価=1050 商品税込販売単価=1050
      請求単価=1100 売上消費税区分=2|商品税抜販売単価=1000 商品税込販売単価=1100
      請求単価=1050 売上消費税区分=2 売上課税区分=2|商品税抜販売単価=973 商品税込販売単価=1050
      請求単価=1055|商品税抜販売単価=1055 商品税込販売単価=1160 入力変更あり=0
      請求単価=1055 売上課税区分=3 商品税抜販売単価=7|商品税抜販売単価=7 商品税込販売単価=0)"},
    {仕入単価入力,
     R"(仕入単価=1055 仕入消費税区分=2 仕入先消費税丸め方法=9|商品税抜仕入単価=960 商品税込仕入単価=1055)"},
    // prices turn to the customer's kind: sale by the customer's rounding (0), purchase by the supplier's (9)
    // 91.36
    {請求単価再計算, R"(得意先消費税区分=1 売上消費税区分=2 請求単価=1005|請求単価=914 入力変更あり=1
      得意先消費税区分=2 売上消費税区分=1 請求単価=1005|請求単価=1105 入力変更あり=1 ; 得意先消費税区分=2 売上消費税区分=1 売上課税区分=2 請求単価=1000|請求単価=1080
      得意先消費税区分=2 売上消費税区分=1 売上課税区分=1 請求単価=1000|請求単価=1000 入力変更あり=1
      得意先消費税区分=2 売上消費税区分=3 請求単価=1000|請求単価=1000 入力変更あり=1 ; 得意先消費税区分=2 売上消費税区分=2 請求単価=1000|請求単価=1000 入力変更あり=0
      得意先消費税区分=2 売上消費税区分=1|請求単価=0 入力変更あり=0)"},
    {仕入単価再計算,
     R"(仕入消費税区分=2 仕入先消費税区分=2 仕入先消費税丸め方法=9 仕入単価=1005|仕入単価=913 入力変更あり=1
      得意先消費税区分=2 仕入先消費税丸め方法=9 仕入単価=1005|仕入単価=1106 入力変更あり=1 ; 得意先消費税区分=2 仕入課税区分=2 仕入単価=1000|仕入単価=1080
      仕入先消費税区分=2 仕入単価=1005|仕入単価=1005 入力変更あり=0)"},
    // amounts likewise, unless quantity and price give them; a purchase of class 2 takes the rate in force
    {請求金額再計算,
     R"(売上消費税区分=2 請求金額=1005|請求金額=914 入力変更あり=0 ; 得意先消費税区分=2 売上課税区分=2 請求金額=1000|請求金額=1080
      売上消費税区分=2 売上課税区分=1 請求金額=1005|請求金額=1005 ; 売上消費税区分=2 請求数量=2.5 請求単価=3 請求金額=9|請求金額=7)"},
    {仕入金額再計算,
     R"(得意先消費税区分=2 仕入課税区分=2 仕入金額=1000|仕入金額=1100 ; 仕入消費税区分=2 仕入課税区分=2 仕入金額=1080|仕入金額=1000
      仕入消費税区分=2 仕入先消費税丸め方法=9 仕入金額=1005|仕入金額=913 入力変更あり=0 ; 仕入消費税区分=2 仕入数量=2.5 仕入単価=3 仕入金額丸め方法=5|仕入金額=8)"}};

TEST_F(Calculation, OneLine) {
    for (const auto& [routine, rows] : line_cases)
        for (const auto& r : table(rows)) {
            fresh_document(1);
            set(r[0]);
            routine(0);
            EXPECT_EQ(seen(r[1]), r[1]) << r[0];
        }
}

// Each line on both sides alike, the purchase side with ten times the figures.
TEST_F(Calculation, TotalsGatherTheCountedLinesByClass) {
    for (const auto& r : table(R"(数量=2 #金額=1000 #消費税=100 ; 数量=1 #金額=1100 #消費税=100 @消費税区分=2
        数量=1 #金額=500 #消費税=40 @課税区分=2 ; 数量=1 #金額=540 #消費税=40 @課税区分=2 @消費税区分=2
        数量=1 #金額=300 @課税区分=1 @消費税区分=2 ; 数量=9 #金額=9999 #消費税=999 計区分=0
        数量=1 #金額=70 #消費税=7 @消費税区分=3 ; 数量=1 #金額=30 #消費税=3 @課税区分=2 @消費税区分=3
        数量=5 #金額=5555 #消費税=55 行区分=0 ; 数量=1 #金額=60 @課税区分=3 ; 数量=0 行区分=2 計区分=0)")) {
        const std::string line = "#" + r[0];
        add_line(Replace(Replace(line, "#", "請求"), "@", "売上") + " " +
                 Replace(Replace(line, "#", "仕入"), "@", "仕入"));
        LineRecord& added = 請求明細行[実行環境.最終行];
        for (通貨* m : {&added.仕入数量, &added.仕入金額, &added.仕入消費税}) *m = times(*m, 10);
    }
    合計計算();
    合計計算();  // rebuilt, not added to
    for (
        const auto& r : table(
            R"(請求数量合計=9 請求金額合計=3600 税抜請求金額合計=3360 請求消費税合計=290 税込請求金額合計=3640
        仕入数量合計=90 仕入金額合計=36000 税抜仕入金額合計=33600 仕入消費税合計=2900 税込仕入金額合計=36400
        売上課税外税額=1000 売上課税内税額=1100 売上旧税外税額=500 売上旧税内税額=540 売上非課税額=300
        仕入課税外税額=10000 仕入課税内税額=11000 仕入旧税外税額=5000 仕入旧税内税額=5400 仕入非課税額=3000
        請求数量=9 請求金額=3600 請求消費税=290 仕入数量=90 仕入金額=36000 仕入消費税=2900 計算消費税合計=280)"))
        EXPECT_EQ(seen(r[0], 実行環境.最終行), r[0]);  // the tax of the document: 100 + 100 + 40 + 40
    EXPECT_EQ(消費税差額計算(), 通貨::whole(-10));

    statements.clear();
    合計計算();
    EXPECT_EQ(statements.size(), 4U);
    set("得意先消費税算出区分=1");
    statements.clear();
    EXPECT_EQ(消費税差額計算(), 通貨());
    EXPECT_EQ(seen("計算消費税合計"), "計算消費税合計=290");
    EXPECT_TRUE(statements.empty());
}

// Lines at 5 per cent, cut; what the document holds; the first line's tax and the totals; the difference
// left. The fourth: 1.43 each, 4.29 together; the next, by tens: 15 each, 45 together. Then: a line without
// an amount is passed over, one that does not count or is not taxed takes the difference. The last two:
// rounding that makes a tax of 1 of nothing, four times. Without any amount the total does without; with the
// amount of a sum row alone it takes the difference, and no line does.
TEST_F(Calculation, TheDifferenceGoesToOneLine) {
    for (const auto& r :
         table(R"(100|100|100|端数調整区分=1|請求消費税=5 請求消費税合計=15 税込請求金額合計=315|0
        33|33|34|端数調整区分=0|請求消費税=1 請求消費税合計=3 税込請求金額合計=103|2
        33|33|34|端数調整区分=1|請求消費税=3 請求消費税合計=5 税抜請求金額合計=100 税込請求金額合計=105|0
        30|30|30|端数調整区分=1 得意先消費税区分=2|請求消費税=2 請求消費税合計=4 税抜請求金額合計=86 税込請求金額合計=90|0
        300|300|300|端数調整区分=1 得意先消費税丸め桁位置=1|請求消費税=20 請求消費税合計=40 税込請求金額合計=940|0
        0|33|67|端数調整区分=1|請求消費税=0 請求消費税合計=5|0
        33 計区分=0|33|34|端数調整区分=1|請求消費税=2 請求消費税合計=3 税込請求金額合計=70|0
        9 商品売上課税区分=1|16|16|端数調整区分=1|請求消費税=1 請求消費税合計=1 税込請求金額合計=42|0
        0|0|0|端数調整区分=1|請求消費税=0 請求消費税合計=0|0
        0|0|0|端数調整区分=1 得意先消費税丸め方法=10|計算消費税合計=4 請求消費税合計=0 請求消費税=0|4
        9 行区分=5|0 行区分=0|0 行区分=0|端数調整区分=1 得意先消費税丸め方法=10|計算消費税合計=4 請求消費税合計=4 請求消費税=0|0)")) {
        fresh_document();
        set("営業請求日付=20000101 得意先消費税" + r[3]);
        for (int i : {0, 1, 2}) add_line("請求金額=" + r[static_cast<std::size_t>(i)]);
        contains(r[3], "丸め方法=10") ? 合計計算() : 全行税再計算();
        EXPECT_EQ(seen(r[4]), r[4]) << r[0] << r[3];
        EXPECT_EQ(plain_number(消費税差額計算()), r[5]) << r[0] << r[3];
    }
}

// Rows as digits of 行区分, "x" an ordinary line that is not counted; line n has the amount 10 to the power
// n, the other rows hold 777 before.
TEST_F(Calculation, SumRowsAddTheRowsAbove) {
    for (const auto& r :
         table(R"(2|0|777 ; 13|1|777 ; 114|2|777 ; 5|0|777 ; 12|1|1 ; 1122|2|11 ; 1122|3|0 ; 1x2|2|1
        102|2|1 ; 162|2|0 ; 1625|3|1 ; 113|2|0 ; 12123|4|101 ; 1213|3|1 ; 123123|5|1000
        1114|3|0 ; 12341234|7|10000 ; 12312341|6|1001 ; x5|1|0 ; 12x31415|7|1010001)")) {
        fresh_document();
        std::string amount = "1";
        for (const char* k = r[0].c_str(); *k; ++k, amount += "0") {
            const std::string kind = *k == 'x' ? "1 計区分=0" : std::string(1, *k);
            add_line("行区分=" + kind + " 請求金額=" + (kind[0] == '1' ? amount : "777"));
        }
        合計計算();
        EXPECT_EQ(plain_number(請求明細行[std::stoi(r[1])].請求金額), r[2]) << r[0] << " row " << r[1];
    }
}

// Row among lines of 100, what it holds beside 777, its amount, the spaces of its name.
TEST_F(Calculation, SettingTheKindOfARow) {
    for (const auto& r : table(R"(0|行区分=2|777 0 2|＊小計＊|21 ; 2|行区分=2|200 0 2|＊小計＊|21
        1|行区分=3|777 0 2|＊＊中計＊＊|19 ; 2|行区分=3|0 0 2|＊＊中計＊＊|19 ; 2|行区分=4|777 0 2|＊＊＊大計＊＊＊|17
        3|行区分=4|0 0 2|＊＊＊大計＊＊＊|17 ; 0|行区分=5|777 0 2|＊＊＊＊合計＊＊＊＊|15
        1|行区分=5|100 0 2|＊＊＊＊合計＊＊＊＊|15 ; 2|行区分=1 計区分=0 商品名=kept|777 1 1|kept|0
        2|行区分=0 計区分=0 商品名=kept|777 0 1|kept|0 ; 2|行区分=6 商品名=kept|777 1 1|kept|0)")) {
        const int row = std::stoi(r[0]);
        fresh_document(4);
        for (int i = 0; i < row; ++i) set("請求金額=100", i);
        set("得意先消費税区分=2 請求金額=777 " + r[1], row);
        行区分設定(row);
        EXPECT_EQ(values("請求金額 計区分 売上消費税区分", row, " "), r[2]) << r[0] << r[1];
        EXPECT_EQ(Replace(請求明細行[row].商品名, "　", ""), r[3]);
        EXPECT_EQ(Len(請求明細行[row].商品名) - Len(r[3]), std::stoul(r[4]));
        EXPECT_FALSE(実行環境.入力変更あり);
    }
}

TEST_F(Calculation, OutsideTheBoundsIsAFailure) {
    for (const int i : {-1, 999})
        for (auto routine : {明細税区分設定, 請求金額計算, 仕入単価設定, 行区分設定, 小計行計算})
            EXPECT_THROW(routine(i), RunFailure);
    EXPECT_NO_THROW(明細税区分設定(998));
    set("請求数量=100000000 請求単価=100000000");
    EXPECT_THROW(請求金額計算(0), RunFailure);
    fresh_document(2);
    請求明細行[0].請求金額 = 請求明細行[1].請求金額 = 通貨::from_units(INT64_MAX / 2 + 1);
    EXPECT_THROW(合計計算(), RunFailure);
}

}  // namespace
}  // namespace kalvane
