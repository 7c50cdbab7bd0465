// The demonstration company holds together.
#include "installation.h"

namespace kalvane {
namespace {

using namespace test;

TEST(Demo, IsTheSameEveryTimeAndHoldsNoNull) {
    const Installation one, other;
    for (const setup::TableDefinition& table : setup::schema_tables()) {
        // the time, PINs and the installation's own path
        if (table.name == "セットアップ情報" || table.name == "M担当者" || table.name == "Mユーザ" ||
            !(table.databases & setup::main_database))
            continue;
        const std::string rows = one.main("SELECT * FROM " + table.name);
        EXPECT_EQ(rows, other.main("SELECT * FROM " + table.name));
        EXPECT_EQ(rows.find("NULL"), std::string::npos) << table.name;
    }
}

// What stands behind SELECT COUNT(*) FROM, and the count. Of the history 60 rows are black, and each change
// has left a red and a black one.
const auto counts = table(
    R"(M事業所|3 ; M担当者 WHERE コード BETWEEN '00001' AND '00012'|12
    M得意先 WHERE コード BETWEEN '000001' AND '000040'|40 ; M得意先 WHERE 取引状況区分 = '3'|1 ; M納品先|20
    M仕入先|15 ; M商品 WHERE コード BETWEEN 'P0001' AND 'P0080'|80
    M商品 WHERE 名称A LIKE '%''%'|3 ; M商品 WHERE 名称A IN ('備考', '摘要') AND 名称B = ''|2
    M商品 WHERE 売上課税区分 = '1'|3 ; M商品 WHERE 売上課税区分 = '2' AND 売上消費税区分 = '0'|8
    M商品 WHERE 売上課税区分 = '0' AND 売上消費税区分 = '2'|6
    M担当者 WHERE 在籍区分 = '1' AND 退社日付 <> ''|1 ; M担当者 WHERE 暗証番号 <> ''|2
    M得意先 WHERE REPLACE(電話, '-', '') <> 電話番号 OR 電話番号 = ''|0
    T営業請求|60 ; T営業請求 WHERE 参照営業請求No <> ''|6 ; T営業請求 WHERE 営業請求日付 >= '20240410'|0
    (SELECT DISTINCT SUBSTR(営業請求日付, 1, 4) - (SUBSTR(営業請求日付, 5, 2) < '04') FROM T営業請求)|3
    T営業請求 AS T WHERE 参照営業請求No <> '' AND NOT EXISTS (SELECT * FROM T営業請求 AS A WHERE A.事業所コード = \
      T.参照営業請求事業所コード AND A.番号基準日付 = T.参照営業請求番号基準日付 AND A.営業請求No = \
      T.参照営業請求No)|0
    T営業請求 AS T WHERE NOT EXISTS (SELECT * FROM R営業請求 AS R WHERE R.営業請求No = T.営業請求No AND R.赤黒区分 \
      = '1' AND R.請求金額合計 = T.請求金額合計 AND R.請求消費税合計 = T.請求消費税合計 AND R.仕入金額合計 = \
      T.仕入金額合計 AND R.登録日付 = T.登録日付 AND R.営業請求履歴No = @newest)|0
    T営業請求明細 AS T WHERE NOT EXISTS (SELECT * FROM R営業請求明細 AS R WHERE R.営業請求No = T.営業請求No AND \
      R.赤黒区分 = '1' AND R.営業請求固有行No = T.営業請求固有行No AND R.請求金額 = T.請求金額 AND \
      R.営業請求履歴No = @newest)|0
    R営業請求 WHERE 赤黒区分 = '0' AND 営業請求No IN (SELECT 営業請求No FROM T営業請求)|5
    未集計情報 AS Q INNER JOIN R営業請求 AS R ON R.営業請求履歴No = Q.履歴No AND R.赤黒区分 = Q.赤黒区分 AND \
      R.営業請求No = Q.伝票No|70
    A番号情報 WHERE 番号ID = '16240' AND 連番 = (SELECT MAX(営業請求No) FROM R営業請求) AND 履歴連番 = (SELECT \
      MAX(営業請求履歴No) FROM R営業請求)|1
    A番号情報 WHERE (番号ID = '16210' AND 連番 = (SELECT MAX(営業見積No) FROM T営業見積)) OR (番号ID = '16220' AND \
      連番 = (SELECT MAX(顧客注文No) FROM T顧客注文)) OR (番号ID = '16250' AND 連番 = (SELECT MAX(営業納品No) FROM \
      T営業納品))|3
    T営業見積|30 ; T顧客注文|30 ; T営業納品|30
    T営業納品 WHERE 営業納品No NOT IN (SELECT 営業納品No FROM T営業納品明細)|1
    T営業見積 WHERE 得意先対応先区分 = '1' AND 得意先コード IN (SELECT コード FROM M対応先)|3
    T顧客注文 WHERE 得意先対応先区分 = '1' AND 得意先コード IN (SELECT コード FROM M対応先)|3)",
    {{"@newest", "(SELECT MAX(営業請求履歴No) FROM R営業請求 AS N WHERE N.営業請求No = T.営業請求No)"}});

TEST(Demo, HoldsWhatIsWanted) {
    for (const auto& c : counts) EXPECT_EQ(demo().main("SELECT COUNT(*) FROM " + c[0]), c[1]) << c[0];
}

// A table, a column, and the codes that it may hold.
TEST(Demo, NothingPointsToWhatIsNotThere) {
    for (const auto& r : table(R"(M得意先|担当者コード|コード FROM M担当者 WHERE 在籍区分 = '0'
        M納品先|担当者コード|コード FROM M担当者 WHERE 在籍区分 = '0' ; M担当者|事業所コード|コード FROM M事業所
        M担当者|部門コード|コード FROM M部門 ; M担当者|セクションコード|コード FROM Mセクション
        M得意先御担当者|得意先コード|コード FROM M得意先 ; M商品|商品分類コード|コード FROM M商品分類
        M商品|品区分|区分 FROM K品区分 ; M商品|仕入先コード|コード FROM M仕入先 UNION SELECT ''
        M商品|メーカコード|コード FROM Mメーカ UNION SELECT '' ; M商品|得意先コード|コード FROM M得意先 UNION SELECT ''
        M対応先|得意先コード|コード FROM M得意先 UNION SELECT ''
        M対応先|仕入先コード|コード FROM M仕入先 UNION SELECT '')"))
        EXPECT_EQ(demo().main("SELECT " + r[1] + " FROM " + r[0] + " WHERE " + r[1] + " NOT IN (SELECT " +
                              r[2] + ")"),
                  "")
            << r[0] << " " << r[1];
}

// The totals of a header are the sums of its ordinary lines that count.
TEST(Demo, TotalsAreTheSumsOfTheLines) {
    for (const auto& r : table(R"(T営業請求|営業請求No|請求金額 ; T営業請求|営業請求No|仕入金額
        T営業見積|営業見積No|見積金額 ; T顧客注文|顧客注文No|注文金額 ; T営業納品|営業納品No|納品金額)"))
        EXPECT_EQ(demo().main("SELECT H." + r[1] + " FROM " + r[0] + " AS H WHERE H." + r[2] +
                              "合計 <> (SELECT COALESCE(SUM(L." + r[2] + "), 0) FROM " + r[0] +
                              "明細 AS L WHERE L." + r[1] + " = H." + r[1] +
                              " AND L.行区分 = '1' AND L.計区分 = '1')"),
                  "")
            << r[0] << " " << r[2];
}

// Hundredths stay where the price has them; whole yen are cut.
TEST(Demo, TaxInPricesFollowTheClass) {
    EXPECT_EQ(demo().main("SELECT 名称A, 税抜販売単価, 税込販売単価 FROM M商品 WHERE コード IN "
                          "('P0001', 'P0014', 'P0043', 'P0049', 'P0073') ORDER BY コード"),
              "油性ボールペン 黒|96|105\n再生紙 A4|0.75|0.82\n実務会計入門|2400|2640\n天然水|615|664\n"
              "収入印紙|200|200");
}

// Names fit the fields into which the look-ups bring them; sizes in bytes of the page.
TEST(Demo, NamesFitTheirFields) {
    for (const auto& r : table(R"(M得意先|名称A|32 ; M得意先|名称B|32 ; M得意先|御担当者名|40
        M納品先|名称A|32 ; M納品先|名称B|32 ; M仕入先|名称A|40 ; M商品|PRINTF('%s%s', 名称A, 名称B)|60 ; M商品|単位|4
        M得意先御担当者|氏名|40)"))
        for (const auto& name : table(demo().main("SELECT " + r[1] + " FROM " + r[0])))
            EXPECT_LE(ByteLen(name[0]), std::stoul(r[2])) << r[0] << " " << name[0];
}

}  // namespace
}  // namespace kalvane
