// The columns of the document tables, in the order of their statements. Insert, red copy, load and clear
// all walk these tables.
//
// How to add a column: put a row where it stands in the statement, add the member to the record of
// records/document.h, and raise the schema version in setup/schema.h. A member that does not fit the kind
// does not compile.
#pragma once
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "records/document.h"
#include "records/field.h"
#include "records/run_context.h"

namespace kalvane {

// How a value stands in a statement, and which member holds it.
enum class ColumnKind {
    key,            // a part of the document key, of the run context; quoted
    text,           // quoted: codes, numbers, dates
    name,           // quoted, trailing blanks cut: free text
    head_text,      // a line's copy of a header text, of the header; quoted
    digit,          // 16-bit integer, quoted
    number_text,    // 16-bit integer without a format, quoted
    money,          // whole units, bare
    quantity_sale,  // bare, with the decimals of the company's settings
    quantity_purchase,
    price_sale,
    price_purchase,
    stamp,  // logon name, operator and computer, of no member; quoted
    now,    // date-time of the statement, read into a text; quoted
};

// Records: that of the row first, then the others that hold some of its values.
template <class... Records>
struct Column {
    Field<Records...> field;
    ColumnKind kind;
};

using HeaderColumn = Column<HeaderRecord, RunContext>;
using LineColumn = Column<LineRecord, HeaderRecord, RunContext>;

inline constexpr auto header_columns = std::to_array<HeaderColumn>({
    {.field = {"事業所コード", &RunContext::事業所コード}, .kind = ColumnKind::key},
    {.field = {"番号基準日付", &RunContext::番号基準日付}, .kind = ColumnKind::key},
    {.field = {"営業請求No", &RunContext::営業請求No}, .kind = ColumnKind::key},
    {.field = {"営業見積事業所コード", &HeaderRecord::営業見積事業所コード}, .kind = ColumnKind::text},
    {.field = {"営業見積番号基準日付", &HeaderRecord::営業見積番号基準日付}, .kind = ColumnKind::text},
    {.field = {"営業見積No", &HeaderRecord::営業見積No}, .kind = ColumnKind::text},
    {.field = {"顧客注文事業所コード", &HeaderRecord::顧客注文事業所コード}, .kind = ColumnKind::text},
    {.field = {"顧客注文番号基準日付", &HeaderRecord::顧客注文番号基準日付}, .kind = ColumnKind::text},
    {.field = {"顧客注文No", &HeaderRecord::顧客注文No}, .kind = ColumnKind::text},
    {.field = {"営業納品事業所コード", &HeaderRecord::営業納品事業所コード}, .kind = ColumnKind::text},
    {.field = {"営業納品番号基準日付", &HeaderRecord::営業納品番号基準日付}, .kind = ColumnKind::text},
    {.field = {"営業納品No", &HeaderRecord::営業納品No}, .kind = ColumnKind::text},
    {.field = {"参照営業請求事業所コード", &HeaderRecord::参照営業請求事業所コード},
     .kind = ColumnKind::text},
    {.field = {"参照営業請求番号基準日付", &HeaderRecord::参照営業請求番号基準日付},
     .kind = ColumnKind::text},
    {.field = {"参照営業請求No", &HeaderRecord::参照営業請求No}, .kind = ColumnKind::text},
    {.field = {"営業請求日付", &HeaderRecord::営業請求日付}, .kind = ColumnKind::text},
    {.field = {"得意先コード", &HeaderRecord::得意先コード}, .kind = ColumnKind::text},
    {.field = {"得意先名称A", &HeaderRecord::得意先名称A}, .kind = ColumnKind::name},
    {.field = {"得意先名称B", &HeaderRecord::得意先名称B}, .kind = ColumnKind::name},
    {.field = {"得意先御担当者コード", &HeaderRecord::得意先御担当者コード}, .kind = ColumnKind::text},
    {.field = {"御担当者名", &HeaderRecord::御担当者名}, .kind = ColumnKind::name},
    {.field = {"担当者コード", &HeaderRecord::担当者コード}, .kind = ColumnKind::text},
    {.field = {"部門コード", &HeaderRecord::部門コード}, .kind = ColumnKind::text},
    {.field = {"セクションコード", &HeaderRecord::セクションコード}, .kind = ColumnKind::text},
    {.field = {"納品先コード", &HeaderRecord::納品先コード}, .kind = ColumnKind::text},
    {.field = {"納品先名称A", &HeaderRecord::納品先名称A}, .kind = ColumnKind::name},
    {.field = {"納品先名称B", &HeaderRecord::納品先名称B}, .kind = ColumnKind::name},
    {.field = {"タイトル", &HeaderRecord::タイトル}, .kind = ColumnKind::name},
    {.field = {"支払条件", &HeaderRecord::支払条件}, .kind = ColumnKind::name},
    {.field = {"消費税表示区分", &HeaderRecord::消費税表示区分}, .kind = ColumnKind::digit},
    {.field = {"合計表示区分", &HeaderRecord::合計表示区分}, .kind = ColumnKind::digit},
    {.field = {"請求伝票備考A", &HeaderRecord::請求伝票備考A}, .kind = ColumnKind::name},
    {.field = {"請求伝票備考B", &HeaderRecord::請求伝票備考B}, .kind = ColumnKind::name},
    {.field = {"請求数量合計", &HeaderRecord::請求数量合計}, .kind = ColumnKind::quantity_sale},
    {.field = {"請求金額合計", &HeaderRecord::請求金額合計}, .kind = ColumnKind::money},
    {.field = {"税抜請求金額合計", &HeaderRecord::税抜請求金額合計}, .kind = ColumnKind::money},
    {.field = {"請求消費税合計", &HeaderRecord::請求消費税合計}, .kind = ColumnKind::money},
    {.field = {"税込請求金額合計", &HeaderRecord::税込請求金額合計}, .kind = ColumnKind::money},
    {.field = {"仕入数量合計", &HeaderRecord::仕入数量合計}, .kind = ColumnKind::quantity_purchase},
    {.field = {"仕入金額合計", &HeaderRecord::仕入金額合計}, .kind = ColumnKind::money},
    {.field = {"税抜仕入金額合計", &HeaderRecord::税抜仕入金額合計}, .kind = ColumnKind::money},
    {.field = {"仕入消費税合計", &HeaderRecord::仕入消費税合計}, .kind = ColumnKind::money},
    {.field = {"税込仕入金額合計", &HeaderRecord::税込仕入金額合計}, .kind = ColumnKind::money},
    {.field = {"得意先消費税区分", &HeaderRecord::得意先消費税区分}, .kind = ColumnKind::digit},
    {.field = {"得意先消費税算出区分", &HeaderRecord::得意先消費税算出区分}, .kind = ColumnKind::digit},
    {.field = {"得意先消費税丸め方法", &HeaderRecord::得意先消費税丸め方法}, .kind = ColumnKind::digit},
    {.field = {"得意先消費税丸め桁位置", &HeaderRecord::得意先消費税丸め桁位置}, .kind = ColumnKind::digit},
    {.field = {"得意先消費税端数調整区分", &HeaderRecord::得意先消費税端数調整区分},
     .kind = ColumnKind::digit},
    {.field = {"得意先名称入力区分", &HeaderRecord::得意先名称入力区分}, .kind = ColumnKind::digit},
    {.field = {"納品先名称入力区分", &HeaderRecord::納品先名称入力区分}, .kind = ColumnKind::digit},
    {.field = {"出荷完了区分", &HeaderRecord::出荷完了区分}, .kind = ColumnKind::digit},
    {.field = {"売上完了区分", &HeaderRecord::売上完了区分}, .kind = ColumnKind::digit},
    {.field = {"完了フラグ", &HeaderRecord::完了フラグ}, .kind = ColumnKind::text},
    {.field = {"伝票発行区分", &HeaderRecord::伝票発行区分}, .kind = ColumnKind::digit},
    {.field = {"営業請求メモ", &HeaderRecord::営業請求メモ}, .kind = ColumnKind::name},
    {.field = {"承認日付", &HeaderRecord::承認日付}, .kind = ColumnKind::text},
    {.field = {"承認者コード", &HeaderRecord::承認者コード}, .kind = ColumnKind::text},
    {.field = {"承認区分", &HeaderRecord::承認区分}, .kind = ColumnKind::text},
    {.field = {"ユーザID"}, .kind = ColumnKind::stamp},
    {.field = {"登録日付", &HeaderRecord::登録日付}, .kind = ColumnKind::now},
    {.field = {"更新日付", &HeaderRecord::更新日付}, .kind = ColumnKind::text},
});

inline constexpr auto line_columns = std::to_array<LineColumn>({
    {.field = {"事業所コード", &RunContext::事業所コード}, .kind = ColumnKind::key},
    {.field = {"番号基準日付", &RunContext::番号基準日付}, .kind = ColumnKind::key},
    {.field = {"営業請求No", &RunContext::営業請求No}, .kind = ColumnKind::key},
    {.field = {"営業請求固有行No", &LineRecord::営業請求固有行No}, .kind = ColumnKind::text},
    {.field = {"営業請求行No", &LineRecord::営業請求行No}, .kind = ColumnKind::text},
    {.field = {"営業請求日付", &HeaderRecord::営業請求日付}, .kind = ColumnKind::head_text},
    {.field = {"得意先コード", &HeaderRecord::得意先コード}, .kind = ColumnKind::head_text},
    {.field = {"担当者コード", &HeaderRecord::担当者コード}, .kind = ColumnKind::head_text},
    {.field = {"部門コード", &HeaderRecord::部門コード}, .kind = ColumnKind::head_text},
    {.field = {"セクションコード", &HeaderRecord::セクションコード}, .kind = ColumnKind::head_text},
    {.field = {"納品先コード", &HeaderRecord::納品先コード}, .kind = ColumnKind::head_text},
    {.field = {"行区分", &LineRecord::行区分}, .kind = ColumnKind::number_text},
    {.field = {"商品コード", &LineRecord::商品コード}, .kind = ColumnKind::text},
    {.field = {"商品名", &LineRecord::商品名}, .kind = ColumnKind::name},
    {.field = {"請求数量", &LineRecord::請求数量}, .kind = ColumnKind::quantity_sale},
    {.field = {"請求単位", &LineRecord::請求単位}, .kind = ColumnKind::name},
    {.field = {"請求単価", &LineRecord::請求単価}, .kind = ColumnKind::price_sale},
    {.field = {"請求金額", &LineRecord::請求金額}, .kind = ColumnKind::money},
    {.field = {"請求消費税", &LineRecord::請求消費税}, .kind = ColumnKind::money},
    {.field = {"売上課税区分", &LineRecord::売上課税区分}, .kind = ColumnKind::digit},
    {.field = {"売上消費税区分", &LineRecord::売上消費税区分}, .kind = ColumnKind::digit},
    {.field = {"仕入先コード", &LineRecord::仕入先コード}, .kind = ColumnKind::text},
    {.field = {"仕入先名称A", &LineRecord::仕入先名称A}, .kind = ColumnKind::name},
    {.field = {"仕入数量", &LineRecord::仕入数量}, .kind = ColumnKind::quantity_purchase},
    {.field = {"仕入単位", &LineRecord::仕入単位}, .kind = ColumnKind::name},
    {.field = {"仕入単価", &LineRecord::仕入単価}, .kind = ColumnKind::price_purchase},
    {.field = {"仕入金額", &LineRecord::仕入金額}, .kind = ColumnKind::money},
    {.field = {"仕入消費税", &LineRecord::仕入消費税}, .kind = ColumnKind::money},
    {.field = {"仕入課税区分", &LineRecord::仕入課税区分}, .kind = ColumnKind::digit},
    {.field = {"仕入消費税区分", &LineRecord::仕入消費税区分}, .kind = ColumnKind::digit},
    {.field = {"計区分", &LineRecord::計区分}, .kind = ColumnKind::digit},
    {.field = {"商品売上課税区分", &LineRecord::商品売上課税区分}, .kind = ColumnKind::digit},
    {.field = {"商品売上消費税区分", &LineRecord::商品売上消費税区分}, .kind = ColumnKind::digit},
    {.field = {"商品仕入課税区分", &LineRecord::商品仕入課税区分}, .kind = ColumnKind::digit},
    {.field = {"商品仕入消費税区分", &LineRecord::商品仕入消費税区分}, .kind = ColumnKind::digit},
    {.field = {"商品税抜販売単価", &LineRecord::商品税抜販売単価}, .kind = ColumnKind::price_sale},
    {.field = {"商品税抜仕入単価", &LineRecord::商品税抜仕入単価}, .kind = ColumnKind::price_purchase},
    {.field = {"商品税込販売単価", &LineRecord::商品税込販売単価}, .kind = ColumnKind::price_sale},
    {.field = {"商品税込仕入単価", &LineRecord::商品税込仕入単価}, .kind = ColumnKind::price_purchase},
    {.field = {"商品名称入力区分", &LineRecord::商品名称入力区分}, .kind = ColumnKind::digit},
    {.field = {"仕入先消費税区分", &LineRecord::仕入先消費税区分}, .kind = ColumnKind::digit},
    {.field = {"仕入先消費税算出区分", &LineRecord::仕入先消費税算出区分}, .kind = ColumnKind::digit},
    {.field = {"仕入先消費税丸め方法", &LineRecord::仕入先消費税丸め方法}, .kind = ColumnKind::digit},
    {.field = {"仕入先消費税丸め桁位置", &LineRecord::仕入先消費税丸め桁位置}, .kind = ColumnKind::digit},
    {.field = {"仕入先消費税端数調整区分", &LineRecord::仕入先消費税端数調整区分}, .kind = ColumnKind::digit},
    {.field = {"仕入先名称入力区分", &LineRecord::仕入先名称入力区分}, .kind = ColumnKind::digit},
    {.field = {"出荷数量", &LineRecord::出荷数量}, .kind = ColumnKind::quantity_sale},
    {.field = {"税抜出荷金額", &LineRecord::税抜出荷金額}, .kind = ColumnKind::money},
    {.field = {"税込出荷金額", &LineRecord::税込出荷金額}, .kind = ColumnKind::money},
    {.field = {"売上数量", &LineRecord::売上数量}, .kind = ColumnKind::quantity_sale},
    {.field = {"税抜売上金額", &LineRecord::税抜売上金額}, .kind = ColumnKind::money},
    {.field = {"税込売上金額", &LineRecord::税込売上金額}, .kind = ColumnKind::money},
    {.field = {"明細完了区分", &LineRecord::明細完了区分}, .kind = ColumnKind::digit},
    {.field = {"明細完了日付", &LineRecord::明細完了日付}, .kind = ColumnKind::text},
    {.field = {"明細メモ", &LineRecord::明細メモ}, .kind = ColumnKind::name},
    {.field = {"承認日付", &LineRecord::承認日付}, .kind = ColumnKind::text},
    {.field = {"承認者コード", &LineRecord::承認者コード}, .kind = ColumnKind::text},
    {.field = {"承認区分", &LineRecord::承認区分}, .kind = ColumnKind::text},
    {.field = {"ユーザID"}, .kind = ColumnKind::stamp},
    {.field = {"登録日付", &LineRecord::登録日付}, .kind = ColumnKind::now},
    {.field = {"更新日付", &LineRecord::更新日付}, .kind = ColumnKind::text},
});

// The history tables hold the same columns and these two behind 番号基準日付.
inline constexpr std::size_t history_position = 2;
inline constexpr std::array<std::string_view, 2> history_columns{"営業請求履歴No", "赤黒区分"};

constexpr bool is_quoted(ColumnKind k) {
    return k < ColumnKind::money || k > ColumnKind::price_purchase;
}

namespace detail {
template <class Table>
constexpr bool columns_unique(const Table& t) {
    for (std::size_t i = 0; i < t.size(); ++i)
        for (std::size_t j = i + 1; j < t.size(); ++j)
            if (t[i].field.column == t[j].field.column) return false;
    return true;
}

// The field holds the one member that its kind is written from.
template <class Record, class... Others>
constexpr bool member_fits(const Column<Record, Others...>& c) {
    switch (c.kind) {
        case ColumnKind::key:
            return c.field.template holds<std::string RunContext::*>();
        case ColumnKind::text:
        case ColumnKind::name:
        case ColumnKind::now:
            return c.field.template holds<std::string Record::*>();
        case ColumnKind::head_text:
            return !std::is_same_v<Record, HeaderRecord> &&
                   c.field.template holds<std::string HeaderRecord::*>();
        case ColumnKind::digit:
        case ColumnKind::number_text:
            return c.field.template holds<std::int16_t Record::*>();
        case ColumnKind::money:
        case ColumnKind::quantity_sale:
        case ColumnKind::quantity_purchase:
        case ColumnKind::price_sale:
        case ColumnKind::price_purchase:
            return c.field.template holds<通貨 Record::*>();
        case ColumnKind::stamp:
            return std::holds_alternative<std::monostate>(c.field.member);
    }
    return false;
}
constexpr auto fits = [](const auto& c) { return member_fits(c); };
}  // namespace detail
static_assert(std::ranges::all_of(header_columns, detail::fits), "the member of a column is not of its kind");
static_assert(std::ranges::all_of(line_columns, detail::fits), "the member of a column is not of its kind");
static_assert(detail::columns_unique(header_columns) && detail::columns_unique(line_columns));
static_assert(header_columns.size() == 61 && line_columns.size() == 61);
static_assert(header_columns[2].field.column == "営業請求No" &&
              line_columns[3].field.column == "営業請求固有行No");
static_assert(header_columns.back().field.column == "更新日付" &&
              line_columns.back().field.column == "更新日付");

}  // namespace kalvane
