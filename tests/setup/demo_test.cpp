#include <regex>

#include "base/text.h"
#include "installation.h"

namespace kalvane {
namespace {

using test::demo;
using test::Installation;

// Every row of both databases, the root's own path and the encrypted PINs taken out.
std::string everything(const Installation& installation) {
    std::string all;
    for (const setup::TableDefinition& table : setup::schema_tables()) {
        if (table.name == "セットアップ情報") continue;  // holds the time
        for (auto [database, file] : {std::pair{setup::main_database, setup::main_file},
                                      std::pair{setup::config_database, setup::config_file}})
            if (table.databases & database)
                all += table.name + "\n" + installation.rows("SELECT * FROM " + table.name, file) + "\n";
    }
    all = std::regex_replace(all, std::regex("s1:[A-Za-z0-9_-]+"), "PIN");
    return Replace(all, Replace(installation.root, "/", "\\"), "ROOT");
}

TEST(Demo, IsTheSameEveryTimeAndHoldsNoNull) {
    const Installation one, other;
    const std::string rows = everything(one);
    EXPECT_GT(rows.size(), 10'000u);
    EXPECT_EQ(rows, everything(other));
    EXPECT_EQ(rows.find("NULL"), std::string::npos);
}

// Any three of the customers' five tax classes occur together in every way.
TEST(Demo, CustomersCoverTheTaxClasses) {
    struct Class {
        const char* column;
        int values;
    };
    constexpr Class classes[] = {{"消費税算出区分", 4},
                                 {"消費税丸め方法", 3},
                                 {"消費税丸め桁位置", 3},
                                 {"消費税区分", 2},
                                 {"消費税端数調整区分", 2}};
    const auto expect = [](const Class& a, const Class& b, const Class& c) {
        EXPECT_EQ(demo().rows(std::string("SELECT COUNT(*) FROM (SELECT DISTINCT ") + a.column + ", " +
                              b.column + ", " + c.column + " FROM M得意先 WHERE 取引状況区分 <> '3')"),
                  std::to_string(a.values * b.values * c.values))
            << a.column << b.column << c.column;
    };
    for (const Class* a = classes; a < std::end(classes); ++a)
        for (const Class* b = a + 1; b < std::end(classes); ++b)
            for (const Class* c = b + 1; c < std::end(classes); ++c) expect(*a, *b, *c);
    EXPECT_EQ(demo().rows("SELECT DISTINCT 消費税算出区分 FROM M得意先 ORDER BY 1"), "0/1/2/3");
    EXPECT_EQ(demo().rows("SELECT DISTINCT 消費税丸め方法 FROM M得意先 ORDER BY 1"), "0/5/9");
    EXPECT_EQ(demo().rows("SELECT DISTINCT 消費税丸め桁位置 FROM M得意先 ORDER BY 1"), "-1/0/1");
    EXPECT_EQ(demo().rows("SELECT DISTINCT 消費税区分 FROM M得意先 ORDER BY 1"), "1/2");
    EXPECT_EQ(demo().rows("SELECT DISTINCT 名称入力区分 FROM M得意先 ORDER BY 1"), "0/1");
}

struct Count {
    const char* name;
    const char* from;  // behind SELECT COUNT(*) FROM
    const char* count;
};

constexpr Count counts[] = {
    {"sites", "M事業所", "3"},
    {"operators", "M担当者 WHERE コード BETWEEN '00001' AND '00012'", "12"},
    {"customers", "M得意先 WHERE コード BETWEEN '000001' AND '000040'", "40"},
    {"destinations", "M納品先", "20"},
    {"suppliers", "M仕入先", "15"},
    {"products", "M商品 WHERE コード BETWEEN 'P0001' AND 'P0080'", "80"},
    {"closed_customers", "M得意先 WHERE 取引状況区分 = '3'", "1"},
    {"remark_products", "M商品 WHERE 名称A || 名称B IN ('備考', '摘要')", "2"},
    {"untaxed_products", "M商品 WHERE 売上課税区分 = '1'", "3"},
    {"previous_rate_products", "M商品 WHERE 売上課税区分 = '2' AND 売上消費税区分 = '0'", "8"},
    {"tax_in_products", "M商品 WHERE 売上課税区分 = '0' AND 売上消費税区分 = '2'", "6"},
    {"products_with_apostrophe", "M商品 WHERE 名称A LIKE '%''%'", "3"},
    {"departed_operators", "M担当者 WHERE 在籍区分 = '1' AND 退社日付 <> ''", "1"},
    // nothing points to what is not there
    {"customers_without_staff",
     "M得意先 WHERE 担当者コード NOT IN (SELECT コード FROM M担当者 WHERE 在籍区分 = '0')", "0"},
    {"destinations_without_staff",
     "M納品先 WHERE 担当者コード NOT IN (SELECT コード FROM M担当者 WHERE 在籍区分 = '0')", "0"},
    {"staff_without_site", "M担当者 WHERE 事業所コード NOT IN (SELECT コード FROM M事業所)", "0"},
    {"staff_without_section",
     "M担当者 WHERE 部門コード NOT IN (SELECT コード FROM M部門) OR セクションコード NOT IN (SELECT コード "
     "FROM "
     "Mセクション)",
     "0"},
    {"contacts_without_customer", "M得意先御担当者 WHERE 得意先コード NOT IN (SELECT コード FROM M得意先)",
     "0"},
    {"products_without_partner",
     "M商品 WHERE (仕入先コード <> '' AND 仕入先コード NOT IN (SELECT コード FROM M仕入先)) OR (メーカコード "
     "<> '' AND "
     "メーカコード NOT IN (SELECT コード FROM Mメーカ)) OR (得意先コード <> '' AND 得意先コード NOT IN "
     "(SELECT コード FROM "
     "M得意先))",
     "0"},
    {"products_without_class",
     "M商品 WHERE 商品分類コード NOT IN (SELECT コード FROM M商品分類) OR 品区分 NOT IN (SELECT 区分 FROM "
     "K品区分)",
     "0"},
    {"prospects_without_partner",
     "M対応先 WHERE (得意先コード <> '' AND 得意先コード NOT IN (SELECT コード FROM M得意先)) OR "
     "(仕入先コード <> '' AND "
     "仕入先コード NOT IN (SELECT コード FROM M仕入先))",
     "0"},
    // telephones without their signs; a contact has a number that its customer lacks
    {"telephones", "M得意先 WHERE REPLACE(電話, '-', '') <> 電話番号 OR 電話番号 = ''", "0"},
    {"contact_telephones", "M得意先御担当者 WHERE 電話番号 IN (SELECT 電話番号 FROM M得意先)", "0"},
    // documents: one in 25 was deleted, one in twelve changed, one in nine refers to the one before
    {"invoices", "T営業請求", "58"},
    {"referring", "T営業請求 WHERE 参照営業請求No <> ''", "6"},
    {"referring_to_nothing",
     "T営業請求 AS T WHERE 参照営業請求No <> '' AND NOT EXISTS (SELECT * FROM T営業請求 AS A WHERE "
     "A.事業所コード = T.参照営業請求事業所コード AND A.番号基準日付 = T.参照営業請求番号基準日付 AND "
     "A.営業請求No = T.参照営業請求No)",
     "0"},
    {"fiscal_years",
     "(SELECT DISTINCT SUBSTR(営業請求日付, 1, 4) - (SUBSTR(営業請求日付, 5, 2) < '04') FROM T営業請求)",
     "3"},
    {"invoices_after_the_demonstrations_day", "T営業請求 WHERE 営業請求日付 >= '20240410'", "0"},
    // the newest history row of an invoice is black and like it; that of a deleted one is red
    {"invoices_unlike_their_history",
     "T営業請求 AS T WHERE NOT EXISTS (SELECT * FROM R営業請求 AS R WHERE R.営業請求No = T.営業請求No AND "
     "R.赤黒区分 = '1' AND R.請求金額合計 = T.請求金額合計 AND R.請求消費税合計 = T.請求消費税合計 AND "
     "R.仕入金額合計 = T.仕入金額合計 AND R.登録日付 = T.登録日付 AND R.営業請求履歴No = (SELECT "
     "MAX(営業請求履歴No) FROM R営業請求 AS N WHERE N.営業請求No = T.営業請求No))",
     "0"},
    {"lines_unlike_their_history",
     "T営業請求明細 AS T WHERE NOT EXISTS (SELECT * FROM R営業請求明細 AS R WHERE R.営業請求No = "
     "T.営業請求No "
     "AND R.赤黒区分 = '1' AND R.営業請求固有行No = T.営業請求固有行No AND R.請求金額 = T.請求金額 AND "
     "R.営業請求履歴No = (SELECT MAX(営業請求履歴No) FROM R営業請求 AS N WHERE N.営業請求No = T.営業請求No))",
     "0"},
    {"changed", "R営業請求 AS R WHERE 赤黒区分 = '0' AND 営業請求No IN (SELECT 営業請求No FROM T営業請求)",
     "5"},
    {"deleted",
     "R営業請求 AS R WHERE 赤黒区分 = '0' AND 営業請求No NOT IN (SELECT 営業請求No FROM T営業請求)", "2"},
    {"history", "R営業請求", "72"},  // 60 black, and of a change a red and a black one, of a delete a red one
    {"queue",
     "未集計情報 AS Q INNER JOIN R営業請求 AS R ON R.営業請求履歴No = Q.履歴No AND R.赤黒区分 = Q.赤黒区分 "
     "AND "
     "R.営業請求No = Q.伝票No",
     "72"},
    {"counters_in_step",
     "A番号情報 WHERE 番号ID = '16240' AND 連番 = (SELECT MAX(営業請求No) FROM R営業請求) AND 履歴連番 = "
     "(SELECT MAX(営業請求履歴No) FROM R営業請求)",
     "1"},
    {"source_counters_in_step",
     "A番号情報 WHERE (番号ID = '16210' AND 連番 = (SELECT MAX(営業見積No) FROM T営業見積)) OR (番号ID = "
     "'16220' AND 連番 = (SELECT MAX(顧客注文No) FROM T顧客注文)) OR (番号ID = '16250' AND 連番 = (SELECT "
     "MAX(営業納品No) FROM T営業納品))",
     "3"},
    {"quotations", "T営業見積", "30"},
    {"orders", "T顧客注文", "30"},
    {"deliveries", "T営業納品", "30"},
    {"deliveries_without_lines", "T営業納品 WHERE 営業納品No NOT IN (SELECT 営業納品No FROM T営業納品明細)",
     "1"},
    {"quotations_for_prospects",
     "T営業見積 WHERE 得意先対応先区分 = '1' AND 得意先コード IN (SELECT コード FROM M対応先)", "3"},
    {"orders_for_prospects",
     "T顧客注文 WHERE 得意先対応先区分 = '1' AND 得意先コード IN (SELECT コード FROM M対応先)", "3"},
};

TEST(Demo, HoldsWhatIsWanted) {
    for (const Count& c : counts)
        EXPECT_EQ(demo().rows(std::string("SELECT COUNT(*) FROM ") + c.from), c.count) << c.name;
}

// The totals of a header are the sums of its ordinary lines that count.
TEST(Demo, TotalsAreTheSumsOfTheLines) {
    struct Totals {
        const char *table, *number, *amount, *kept = "";
    };
    constexpr Totals documents[] = {
        {"T営業請求", "営業請求No", "請求金額"},
        {"T営業請求", "営業請求No", "仕入金額"},
        {"R営業請求", "営業請求No", "請求金額", " AND L.営業請求履歴No = H.営業請求履歴No"},
        {"T営業見積", "営業見積No", "見積金額"},
        {"T顧客注文", "顧客注文No", "注文金額"},
        {"T営業納品", "営業納品No", "納品金額"}};
    for (const Totals& d : documents) {
        const std::string table = d.table, number = d.number, amount = d.amount;
        EXPECT_EQ(demo().rows("SELECT H." + number + " FROM " + table + " AS H WHERE H." + amount +
                              "合計 <> (SELECT COALESCE(SUM(L." + amount + "), 0) FROM " + table +
                              "明細 AS L WHERE L." + number + " = H." + number + d.kept +
                              " AND L.行区分 = '1' AND L.計区分 = '1')"),
                  "")
            << table << " " << amount;
    }
}

TEST(Demo, TaxInPricesFollowTheClass) {
    // hundredths stay where the price has them; whole yen are cut
    EXPECT_EQ(demo().rows("SELECT 名称A, 税抜販売単価, 税込販売単価 FROM M商品 WHERE コード IN "
                          "('P0001', 'P0014', 'P0043', 'P0049', 'P0073') ORDER BY コード"),
              "油性ボールペン 黒|96|105/再生紙 "
              "A4|0.75|0.82/実務会計入門|2400|2640/天然水|615|664/収入印紙|200|200");
}

// Names fit the fields into which the look-ups bring them.
TEST(Demo, NamesFitTheirFields) {
    struct Field {
        const char* table;
        const char* text;
        std::size_t bytes;
    };
    constexpr Field fields[] = {
        {"M得意先", "名称A", 32},        {"M得意先", "名称B", 32}, {"M得意先", "御担当者名", 40},
        {"M納品先", "名称A", 32},        {"M納品先", "名称B", 32}, {"M仕入先", "名称A", 40},
        {"M商品", "名称A || 名称B", 60}, {"M商品", "単位", 4},     {"M得意先御担当者", "氏名", 40},
    };
    for (const Field& field : fields) {
        ado::Connection main;
        setup::open_database(main, demo().root, setup::main_file, ado::Access::program);
        ado::Recordset rows;
        for (rows.Open(std::string("SELECT ") + field.text + " FROM " + field.table, main); !rows.Eof();
             rows.MoveNext())
            EXPECT_LE(ByteLen(rows.at(0).text()), field.bytes) << field.table << " " << rows.at(0).text();
    }
}

}  // namespace
}  // namespace kalvane
