// Columns that others name, keys, and the indexes that answer.
#include "installation.h"
#include "support/table.h"

namespace kalvane {
namespace {

using namespace test;

// What the list windows, attached documents and sibling programs name, where no statement of the program
// does.
TEST(Schema, HoldsTheColumnsThatOthersName) {
    ado::Connection main;
    setup::open_database(main, demo().root(), setup::main_file, ado::Access::program);
    for (const auto& r : table(R"(M得意先|@partner ; M納品先|@partner ; M仕入先|@partner ; Mメーカ|@partner
        M対応先|@partner, 得意先コード, 仕入先コード ; M得意先御担当者|カナ, 電話, 電話番号, EMAIL
        M担当者|カナ, 在籍区分, 社員区分 ; M部門|稼動状況区分 ; Mセクション|稼動状況区分
        M商品分類|コード, 名称, 使用状況区分 ; K品区分|区分, 名称
        M商品|カナ, 商品分類コード, 品区分, 税抜販売定価, 仕入先コード, メーカコード, 得意先コード, 在庫管理区分, \
          取扱状況区分
        M付属書類|情報名, 情報識別ID, SEQNo, 書類名, タイトル, 伝票番号ID, 伝票事業所コード, 伝票番号基準日付, \
          伝票No, 伝票日付, 対応先コード, 得意先コード, 納品先コード, 仕入先コード, 銀行コード, 科目コード, \
          社員コード, 担当者コード, 部門コード, セクションコード, 商品コード, メーカコード, 対象金額, ユーザID, \
          登録日付
        T顧客注文|得意先対応先区分, 納品先対応先区分, 注文伝票備考A, 税抜注文金額合計, 税抜仕入金額合計
        T営業納品|得意先コード, 納品先コード, 納品伝票備考B, 税込納品金額合計, 税込仕入金額合計)",
                               {{"@partner",
                                 "コード, 略称, カナ, 電話, 電話番号, 郵便番号, 住所A, 住所B, 住所C, "
                                 "担当者コード, 名称A, 名称B, 取引状況区分"}}))
        EXPECT_NO_THROW(rows_of(main, "SELECT " + r[1] + " FROM " + r[0])) << r[0];
}

TEST(Schema, OnlyKeysAreNotNullAndNothingHasADefault) {
    for (const auto& r : table(R"(T営業請求|事業所コード/番号基準日付/営業請求No
        T営業請求明細|事業所コード/番号基準日付/営業請求No/営業請求固有行No
        R営業請求| ; R営業請求明細|
        T営業見積明細|事業所コード/番号基準日付/営業見積No/営業見積固有行No ; T顧客注文|事業所コード/番号基準日付/顧客注文No
        M得意先御担当者|得意先コード/御担当者コード ; M付属書類|情報名/情報識別ID/SEQNo ; 未集計情報| ; 使用状況|
        T閲覧|事業所コード/番号基準日付/閲覧No ; G消費税|施行日)"))
        EXPECT_EQ(Replace(demo().main("SELECT name FROM pragma_table_info('" + r[0] +
                                      "') WHERE pk > 0 ORDER BY pk"),
                          "\n", "/"),
                  r[1])
            << r[0];
    constexpr const char* others =
        "SELECT t.name, c.name FROM sqlite_master AS t, pragma_table_info(t.name) AS c WHERE t.type = "
        "'table' "
        "AND (c.\"notnull\" <> (c.pk > 0) OR c.dflt_value IS NOT NULL OR c.type NOT IN ('TEXT', 'NUMERIC'))";
    EXPECT_EQ(demo().main(others) + demo().config(others), "");
}

// Codes are one whatever the case of their letters; keys and numbers of documents are not, nor is other text.
TEST(Schema, CodesFoldTheirCase) {
    for (const auto& r : table(R"(M商品|コード|yes ; M得意先|担当者コード|yes ; M担当者|事業所コード|yes
        M得意先御担当者|御担当者コード|yes ; 担当者別操作許可プログラム|担当者コード|yes ; M得意先|名称A|no
        T営業請求|得意先コード|yes ; T営業請求明細|商品コード|yes ; R営業請求明細|仕入先コード|yes
        T顧客注文|納品先コード|yes ; T営業請求|事業所コード|no ; T営業請求|営業請求No|no
        T営業請求|参照営業請求事業所コード|no ; M付属書類|伝票事業所コード|no ; A事業所別番号情報|事業所コード|no)")) {
        const std::string sql = demo().main("SELECT sql FROM sqlite_master WHERE name = '" + r[0] + "'");
        EXPECT_EQ(contains(sql, "[" + r[1] + "] TEXT COLLATE NOCASE"), r[2] == "yes") << r[0] << " " << r[1];
    }
}

// Answered in the order of an index, without sorting and without walking the table itself: the words behind
// SELECT, and what the index is asked for.
TEST(Schema, AnswersByAnIndex) {
    for (const auto& r : table(R"(
        * FROM G消費税 WHERE 施行日 <= 'd' ORDER BY 施行日 DESC|(施行日<?)
        * FROM T営業請求 WHERE 営業請求日付 >= 'd' @dated|(営業請求日付>?)
        * FROM T営業請求 WHERE 事業所コード = '1' AND 営業請求日付 >= 'd' @dated|(事業所コード=? AND 営業請求日付>?)
        * FROM T営業請求 WHERE 得意先コード = 'c' @dated|(得意先コード=?)
        * FROM T営業請求 WHERE 納品先コード = 'c' @dated|(納品先コード=?)
        * FROM T営業請求 WHERE 営業請求No >= '5' ORDER BY 営業請求No|(営業請求No>?)
        * FROM T営業請求 WHERE 参照営業請求事業所コード = 'a' AND 参照営業請求番号基準日付 = 'b' AND 参照営業請求No = \
          'c'|(参照営業請求事業所コード=? AND 参照営業請求番号基準日付=? AND 参照営業請求No=?)
        * FROM R営業請求 WHERE 事業所コード = 'a' AND 番号基準日付 = 'b' AND 営業請求履歴No = \
          'c'|(事業所コード=? AND 番号基準日付=? AND 営業請求履歴No=?)
        * FROM M得意先 INNER JOIN M担当者 ON M担当者.コード = M得意先.担当者コード WHERE M得意先.コード = 'c'|M担当者 \
          USING INDEX sqlite_autoindex_M担当者_1 (コード=?)
        DISTINCT タイトル FROM T営業請求 WHERE 営業請求日付 <> '' AND タイトル <> '' AND タイトル LIKE '%x%' ORDER BY \
          タイトル|索引_T営業請求_タイトル_営業請求日付
        DISTINCT 商品名 FROM T営業請求明細 WHERE 営業請求日付 >= 'a' AND 営業請求日付 <= 'b' AND 商品名 <> '' ORDER BY \
          商品名|索引_T営業請求明細_商品名_営業請求日付
        DISTINCT タイトル FROM T営業見積 WHERE 営業見積日付 <> '' AND タイトル <> '' ORDER BY \
          タイトル|索引_T営業見積_タイトル_営業見積日付)",
                               {{"@dated", "ORDER BY 営業請求日付 DESC, 営業請求No DESC LIMIT 1000"}})) {
        const std::string plan = demo().main("EXPLAIN QUERY PLAN SELECT " + r[0]);
        EXPECT_NE(plan.find(r[1]), std::string::npos) << r[0] << " " << plan;
        EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << r[0] << " " << plan;
    }
}

}  // namespace
}  // namespace kalvane
