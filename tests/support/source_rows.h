// Rows of source documents and invoices with a value in every column, and the document in memory as text.
#pragma once
#include <string>

#include "document/loading.h"
#include "support/members.h"
#include "support/small_company.h"
#include "support/table.h"

namespace kalvane::test {

// What a kind of source calls its columns, and how to ask for one.
struct Words {
    const char* name;  // ASCII, of the generated test
    SourceKind kind;
    std::string table, own, amounts;  // T<own>, number <own>No; <amounts>数量 and the like
    bool (*change)(const std::string&);
    bool prospects, reference;
    // A text with "#" for own and "$" for amounts.
    std::string of(const std::string& text) const { return Replace(Replace(text, "#", own), "$", amounts); }
};
inline const Words kinds[] = {
    {"quotation", SourceKind::quotation, "T営業見積", "営業見積", "見積", 営業見積No変更, true, false},
    {"order", SourceKind::order, "T顧客注文", "顧客注文", "注文", 顧客注文No変更, true, false},
    {"delivery", SourceKind::delivery, "T営業納品", "営業納品", "納品", 営業納品No変更, false, false},
    {"reference", SourceKind::reference, "T営業請求", "営業請求", "請求", 参照営業請求No変更, false, true}};
// The words of the stored invoice, for its rows.
inline const Words stored{"stored", SourceKind::invoice, "T営業請求", "営業請求",
                          "請求",   営業請求No変更,      false,       false};
inline void PrintTo(const Words& w, std::ostream* out) {
    *out << w.name;
}

// The three key fields of the kind in the header.
inline std::string link(const Words& w) {
    const SourceRow& row = source_row(w.kind);
    return 請求ヘッダ.*row.site + " " + 請求ヘッダ.*row.base_date + " " + 請求ヘッダ.*row.number;
}

// A header, or with its identity a line, of the key and more.
inline void lay_header(const Installation& at, const Words& w, const std::string& number,
                       const std::string& more = "") {
    lay(at, w.table, w.of("事業所コード=000, 番号基準日付=99999999, #No=" + number + more));
}
inline void lay_line(const Installation& at, const Words& w, const std::string& number,
                     const std::string& row, const std::string& more = "") {
    lay(at, w.table + "明細",
        w.of("事業所コード=000, 番号基準日付=99999999, #No=" + number + ", #固有行No=" + row +
             ", #行No=" + row + more));
}

// A header with a value in every column that is taken, and in those that must not be.
inline void lay_full_header(const Installation& at, const Words& w, const std::string& number,
                            const std::string& prospect = "0") {
    lay_header(at, w, number,
               joined(R"(, #日付=20230105, 得意先コード=000555, 得意先名称A=名A, 得意先名称B=名B, \
        得意先御担当者コード=00007, 御担当者名=高木, 担当者コード=00001, 部門コード=010, セクションコード=020, \
        納品先コード=000777, 納品先名称A=納A, 納品先名称B=納B, 納品先名称入力区分=0, タイトル=件名, 支払条件=月末, \
        消費税表示区分=0, 合計表示区分=0, $伝票備考A=備A, $伝票備考B=備B, 税抜$金額合計=1001, $消費税合計=1002, \
        税込$金額合計=1003, 税抜仕入金額合計=1004, 仕入消費税合計=1005, 税込仕入金額合計=1006, 得意先消費税区分=2, \
        得意先消費税算出区分=1, 得意先消費税丸め方法=5, 得意先消費税丸め桁位置=0, 得意先消費税端数調整区分=1, \
        得意先名称入力区分=1, 出荷完了区分=1, 売上完了区分=1, 完了フラグ=1, 伝票発行区分=1, #メモ=秘, \
        承認日付=20230106, 承認者コード=00009, 承認区分=1, 登録日付=20230105 101010, 更新日付=20230107 101010)"));
    if (w.prospects)
        at.main(w.of("UPDATE T# SET 得意先対応先区分 = '" + prospect + "', 納品先対応先区分 = '" + prospect +
                     "' WHERE #No = '" + number + "'"));
}

// 3 at 100 against 50, then a line whose amounts were typed, 500 against 400.
inline void lay_two_lines(const Installation& at, const Words& w, const std::string& number) {
    lay_line(at, w, number, "001",
             joined(R"(, 行区分=1, 商品コード=Q1, 商品名=品一, $数量=3, $単位=箱, $単価=100, \
        $金額=999, $消費税=77, 売上課税区分=1, 売上消費税区分=1, 仕入先コード=000333, 仕入先名称A=仕先, \
        仕入数量=3, 仕入単位=組, 仕入単価=50, 仕入金額=888, 仕入消費税=66, 仕入課税区分=1, 仕入消費税区分=1, \
        計区分=1, 商品売上課税区分=0, 商品売上消費税区分=0, 商品仕入課税区分=0, 商品仕入消費税区分=0, \
        商品税抜販売単価=91, 商品税抜仕入単価=45, 商品税込販売単価=101, 商品税込仕入単価=51, \
        商品名称入力区分=0, 仕入先消費税区分=1, 仕入先消費税算出区分=3, 仕入先消費税丸め方法=9, \
        仕入先消費税丸め桁位置=1, 仕入先消費税端数調整区分=1, 仕入先名称入力区分=1, 出荷数量=2, 税抜出荷金額=20, \
        税込出荷金額=22, 売上数量=1, 税抜売上金額=10, 税込売上金額=11, 明細完了区分=1, 明細完了日付=20230108, \
        明細メモ=内, 承認日付=20230109, 承認者コード=00008, 承認区分=1, 登録日付=20230105 101011, \
        更新日付=20230107 101011)"));
    lay_line(at, w, number, "002",
             joined(R"(, 行区分=1, 商品名=品二, $数量=0, $単価=100, $金額=500, $消費税=7, \
        仕入先コード=T00009, 仕入数量=0, 仕入単価=0, 仕入金額=400, 仕入消費税=6, 計区分=1, 商品売上課税区分=0, \
        商品売上消費税区分=0, 商品仕入課税区分=0, 商品仕入消費税区分=0, 仕入先消費税区分=1, 仕入先消費税算出区分=1)"));
    if (w.prospects)
        at.main(w.of("UPDATE T#明細 SET 仕入先対応先区分 = CASE #行No WHEN '001' THEN '0' ELSE '1' END"));
}

// Members to look at, by group.
inline constexpr const char* customer =
    R"(得意先コード 得意先対応先コード 得意先名称A 得意先名称B 得意先御担当者コード 御担当者名 得意先名称入力区分)";
inline constexpr const char* customer_tax =
    R"(得意先消費税区分 得意先消費税算出区分 得意先消費税丸め方法 得意先消費税丸め桁位置 得意先消費税端数調整区分)";
inline constexpr const char* staff = "担当者コード 担当者名 部門コード 部門名 セクションコード セクション名";
inline constexpr const char* destination =
    R"(納品先コード 納品先対応先コード 納品先名称A 納品先名称B 納品先名称入力区分)";
inline constexpr const char* texts = "タイトル 支払条件 請求伝票備考A 請求伝票備考B";
inline constexpr const char* totals =
    R"(税抜請求金額合計 請求消費税合計 税込請求金額合計 税抜仕入金額合計 仕入消費税合計 税込仕入金額合計)";
// what a source must leave at the values of a new document
inline constexpr const char* never_brought =
    R"(営業請求日付 番号基準日付 営業請求No 営業請求メモ 出荷完了区分 売上完了区分 完了フラグ 伝票発行区分 承認日付 )"
    R"(承認者コード 承認区分 登録日付 更新日付 旧事業所コード 旧番号基準日付 旧営業請求No 旧営業請求日付)";
inline constexpr const char* line_figures =
    R"(商品コード 商品名 請求数量 請求単位 請求単価 請求金額 請求消費税 売上課税区分 売上消費税区分 仕入先コード )"
    R"(仕入先対応先コード 仕入先名称A 仕入数量 仕入単位 仕入単価 仕入金額 仕入消費税 仕入課税区分 仕入消費税区分)";
inline constexpr const char* line_settings =
    R"(行区分 計区分 商品名称入力区分 仕入先消費税区分 仕入先消費税算出区分 仕入先消費税丸め方法 )"
    R"(仕入先消費税丸め桁位置 仕入先消費税端数調整区分 仕入先名称入力区分 商品税抜販売単価 商品税抜仕入単価 )"
    R"(商品税込販売単価 商品税込仕入単価)";
// identity, shipped and sold figures, memo, approvals and stamps of a line
inline constexpr const char* line_own =
    R"(営業請求固有行No 出荷数量 税抜出荷金額 税込出荷金額 売上数量 税抜売上金額 税込売上金額 明細完了区分 )"
    R"(明細完了日付 明細メモ 承認日付 承認者コード 承認区分 登録日付 更新日付)";
// The same of a fresh line.
inline const std::string fresh_figures = ",,0,,0,0,0,0,1,,,,0,,0,0,0,0,1",
                         fresh_settings = "1,1,1,1,1,5,0,0,0,0,0,0,0", fresh_own = ",0,0,0,0,0,0,0,,,,,,,";

// What a document holds of the head that a source or another document may bring.
inline std::string head() {
    std::string all;
    for (const char* group : {customer, customer_tax, staff, destination, texts}) all += values(group) + "\n";
    return all;
}
// The statement that reads the header of a kind of document.
inline std::string header_read(const Words& w, const std::string& site, const std::string& base,
                               const std::string& number) {
    return w.of(
        "SELECT TOP 1 T#.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 AS セクション名 "
        "FROM "
        "Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M担当者 RIGHT JOIN T# ON M担当者.コード = "
        "T#.担当者コード) ON "
        "M部門.コード = T#.部門コード) ON Mセクション.コード = T#.セクションコード WHERE T#.#No = '" +
        number + "' AND T#.事業所コード = '" + site + "' AND T#.番号基準日付 = '" + base + "'");
}
// Lines without more than their keys, from one identity to another.
inline void lay_many_lines(const Installation& at, const Words& w, const std::string& number, int from,
                           int to) {
    at.main(w.of("WITH RECURSIVE n(i) AS (SELECT " + std::to_string(from) +
                 " UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(to) +
                 ") INSERT INTO T#明細 (事業所コード, 番号基準日付, #No, #固有行No, #行No) SELECT "
                 "'000', '99999999', '" +
                 number + "', PRINTF('%03d', i), PRINTF('%03d', i) FROM n"));
}

}  // namespace kalvane::test
