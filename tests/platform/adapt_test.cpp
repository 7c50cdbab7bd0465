// Adapted statements, held by the rows they give.
#include "platform/ado/adapt.h"

#include "ado_support.h"
#include "base/text.h"
#include "support/table.h"

namespace kalvane {
namespace {

using namespace test;

// Staff 01 has all of site, department and section; 02 no section of that code; 03 none of the three. P3 has
// a kind that stands nowhere: an inner join drops it.
struct Masters : Database {
    Masters() {
        for (const auto& statement : table(R"(CREATE TABLE M事業所 (コード TEXT, 名称 TEXT)
            CREATE TABLE M部門 (コード TEXT, 名称 TEXT)
            CREATE TABLE Mセクション (コード TEXT, 名称 TEXT)
            CREATE TABLE M担当者 (コード TEXT, 氏名 TEXT, 事業所コード TEXT, 部門コード TEXT, \
              セクションコード TEXT)
            CREATE TABLE M商品分類 (コード TEXT, 名称 TEXT)
            CREATE TABLE K品区分 (区分 TEXT, 名称 TEXT)
            CREATE TABLE M商品 (コード TEXT, 名称A TEXT, 品区分 TEXT, 商品分類コード TEXT)
            CREATE TABLE M得意先 (コード TEXT, 略称 TEXT, 担当者コード TEXT, 部門コード TEXT)
            INSERT INTO M事業所 VALUES ('001', '東京'), ('002', '大阪')
            INSERT INTO M部門 VALUES ('10', '営業部')
            INSERT INTO Mセクション VALUES ('A', '一課')
            INSERT INTO M担当者 VALUES ('01', '甲', '001', '10', 'A'), ('02', '乙', '002', '10', 'Z'), \
              ('03', '丙', '999', '99', '')
            INSERT INTO M商品分類 VALUES ('C1', '工具')
            INSERT INTO K品区分 VALUES ('1', '商品')
            INSERT INTO M商品 VALUES ('P1', 'レンチ', '1', 'C1'), ('P2', 'TOP 5 (+) RIGHT JOIN', '1', 'C9'), \
              ('P3', '釘', '9', 'C1')
            INSERT INTO M得意先 VALUES ('000001', '一番', '01', '77'), ('000002', '二番', '88', '10'))"))
            owner.Execute(statement[0]);
    }
};

// Pieces of the statements of the list windows: joins nested, and the same joins with marks.
const auto pieces = table(R"(
    @staff|TOP 1000 M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,Mセクション.名称 AS \
      セクション名 FROM
    @nested_staff|Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者 ON M事業所.コード = \
      M担当者.事業所コード) ON M部門.コード = M担当者.部門コード) ON Mセクション.コード = M担当者.セクションコード
    @marked_staff|Mセクション,M部門,M事業所,M担当者 WHERE M事業所.コード(+) = M担当者.事業所コード AND \
      M部門.コード(+) = M担当者.部門コード AND Mセクション.コード(+) = M担当者.セクションコード
    @all_staff|01,甲,東京,営業部,一課/02,乙,大阪,営業部,NULL/03,丙,NULL,NULL,NULL
    @products|TOP 1000 M商品.コード, M商品.名称A, M商品分類.名称 AS 商品分類名, K品区分.名称 AS 品区分名 FROM
    @nested_products|M商品分類 RIGHT JOIN (K品区分 INNER JOIN M商品 ON K品区分.区分 = M商品.品区分) ON \
      M商品分類.コード = M商品.商品分類コード
    @marked_products|M商品分類, K品区分, M商品 WHERE K品区分.区分 = M商品.品区分 AND M商品分類.コード(+) = \
      M商品.商品分類コード
    @second_product|P2,TOP 5 (+) RIGHT JOIN,NULL,商品)");

// Statements and the rows that they give, values joined by ",", rows by "/".
const auto cases = table(R"(
    SELECT TOP 1 [M担当者].[コード] FROM [M担当者] ORDER BY [コード] DESC|03
    select top 2 コード from M担当者 order by コード; -- two|01/02
    SELECT DISTINCT TOP 1 部門コード FROM M担当者 ORDER BY 部門コード|10
    SELECT @staff @nested_staff ORDER BY M担当者.コード|@all_staff
    SELECT @staff @marked_staff ORDER BY M担当者.コード|@all_staff
    SELECT @staff @marked_staff AND (M担当者.事業所コード = '002' OR M担当者.事業所コード = '000') AND \
      M担当者.コード BETWEEN '02' AND '03' ORDER BY M担当者.コード|02,乙,大阪,営業部,NULL
    SELECT M担当者.コード FROM @marked_staff AND Mセクション.名称 = '一課'|01
    SELECT M担当者.コード,M事業所.名称 FROM M事業所,M担当者 WHERE M事業所.コード(+) = M担当者.事業所コード AND \
      M事業所.名称(+) = '大阪' ORDER BY M担当者.コード|01,NULL/02,大阪/03,NULL
    SELECT M得意先.コード,M担当者.氏名,M部門.名称 FROM M部門,M担当者,M得意先 WHERE M部門.コード(+) = \
      M担当者.部門コード AND M担当者.コード(+) = M得意先.担当者コード ORDER BY \
      M得意先.コード|000001,甲,営業部/000002,NULL,NULL
    SELECT @products @nested_products ORDER BY M商品.コード|P1,レンチ,工具,商品/@second_product
    SELECT @products @marked_products AND (M商品.名称A LIKE '%(+) right%' OR M商品.名称A LIKE '%''%' OR \
      M商品.コード <> 'P2') ORDER BY M商品.コード|P1,レンチ,工具,商品/@second_product
    SELECT M得意先.コード,M担当者.氏名,M部門.名称,Mセクション.名称 FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN \
      (M担当者 INNER JOIN M得意先 ON M担当者.コード = M得意先.担当者コード) ON M部門.コード = M担当者.部門コード) \
      ON Mセクション.コード = M担当者.セクションコード|000001,甲,営業部,一課
    SELECT M担当者.コード,M部門.名称 FROM M部門 RIGHT OUTER JOIN M担当者 ON (M部門.コード = M担当者.部門コード) \
      WHERE M担当者.コード >= '02' ORDER BY 1|02,営業部/03,NULL
    SELECT t.コード,b.名称 FROM M部門 AS b RIGHT JOIN M担当者 t ON b.コード = t.部門コード ORDER BY \
      t.コード|01,営業部/02,営業部/03,NULL
    SELECT M担当者.コード FROM (M部門 INNER JOIN M事業所 ON M事業所.コード = '001') RIGHT JOIN M担当者 ON \
      M部門.コード = M担当者.部門コード ORDER BY 1|01/02/03
    SELECT コード FROM M商品 WHERE 名称A LIKE '%top%' OR 名称A LIKE '%_チ'|P1/P2
    SELECT COUNT(*) FROM M商品 WHERE '50\%' LIKE '%\%' AND 'a\b' LIKE 'a\_'|3)",
                         pieces);

TEST(Adapt, GivesRows) {
    Masters db;
    for (const auto& c : cases) EXPECT_EQ(Replace(rows_of(db.program, c[0]), "|", ","), c[1]) << c[0];
}

// Why the joins are turned: plain column names, and the columns listed behind T.* win.
TEST(Adapt, NestedJoinKeepsColumnNames) {
    Masters db;
    ado::Recordset rs;
    rs.Open(
        "SELECT M得意先.*, M担当者.氏名 AS 担当者名, M担当者.部門コード FROM M部門 RIGHT JOIN (M担当者 INNER "
        "JOIN M得意先 ON M担当者.コード = M得意先.担当者コード) ON M部門.コード = M担当者.部門コード",
        db.program);
    EXPECT_EQ(rs.columns(), (std::vector<std::string>{"コード", "略称", "担当者コード", "部門コード",
                                                      "担当者名", "部門コード"}));
    EXPECT_EQ(rs.Fields("部門コード").text() + rs.at(3).text(), "1077");
}

TEST(Adapt, LeavesAloneWhatItDoesNotRecognise) {
    for (const auto& row : table(R"(INSERT INTO [T] ([a]) VALUES ('SELECT TOP 1 RIGHT JOIN (+)')
        UPDATE T SET  a = 'TOP 1' WHERE T.a = '(+)'|SELECT * FROM T WHERE TOP = 1|SELECT TOP x FROM T
        SELECT a FROM T WHERE a = 'RIGHT (+)'|SELECT TOP 1 a FROM T WHERE a = 'x
        SELECT a FROM B RIGHT JOIN (C RIGHT JOIN D ON x ON y|SELECT a FROM B RIGHT JOIN
        SELECT a FROM B, C WHERE B.x(+) = C.x OR C.y = 1|SELECT a FROM B, C WHERE B.x(+) = C.x(+)
        SELECT a FROM B, C WHERE B.x(+) = C.x AND C.y(+) = B.y)"))
        for (const std::string& sql : row) {
            std::string storage;
            EXPECT_EQ(ado::adapt(sql, ado::engine_sqlite, storage).data(), sql.data()) << sql;
        }
}

}  // namespace
}  // namespace kalvane
