// The columns of the document tables, in the order of their statements. Insert, red copy, load and clear
// all walk these tables.
//
// How to add a column: put a row where it stands in the statement, add the member to the record of
// records/document.h, and raise the schema version in setup/schema.h.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/currency.h"
#include "records/document.h"
#include "records/run_context.h"

namespace kalvane {

// How a value stands in a statement.
enum class ColumnKind {
    key,            // a part of the document key, from the run context; quoted
    text,           // quoted as it is: codes, numbers, dates
    name,           // quoted, its quotes doubled and trailing blanks cut: free text
    head_text,      // a line's copy of a header text; quoted
    digit,          // 16-bit integer, quoted
    number_text,    // 16-bit integer without a format, quoted
    money,          // whole units, bare
    quantity_sale,  // bare, with the decimals of the company's settings
    quantity_purchase,
    price_sale,
    price_purchase,
    stamp,           // logon name, operator and computer; quoted
    now,             // date-time of the statement; quoted
    history_number,  // history tables only
    red_black,       // history tables only
};

template <class Record>
struct Column {
    std::string_view name;
    ColumnKind kind;
    std::string RunContext::*key = nullptr;
    std::string HeaderRecord::*head = nullptr;
    std::string Record::*text = nullptr;
    std::int16_t Record::*digit = nullptr;
    通貨 Record::*money = nullptr;
};

using HeaderColumn = Column<HeaderRecord>;
using LineColumn = Column<LineRecord>;

inline constexpr std::array<HeaderColumn, 61> header_columns{{
    {.name = "事業所コード", .kind = ColumnKind::key, .key = &RunContext::事業所コード},
    {.name = "番号基準日付", .kind = ColumnKind::key, .key = &RunContext::番号基準日付},
    {.name = "営業請求No", .kind = ColumnKind::key, .key = &RunContext::営業請求No},
    {.name = "営業見積事業所コード", .kind = ColumnKind::text, .text = &HeaderRecord::営業見積事業所コード},
    {.name = "営業見積番号基準日付", .kind = ColumnKind::text, .text = &HeaderRecord::営業見積番号基準日付},
    {.name = "営業見積No", .kind = ColumnKind::text, .text = &HeaderRecord::営業見積No},
    {.name = "顧客注文事業所コード", .kind = ColumnKind::text, .text = &HeaderRecord::顧客注文事業所コード},
    {.name = "顧客注文番号基準日付", .kind = ColumnKind::text, .text = &HeaderRecord::顧客注文番号基準日付},
    {.name = "顧客注文No", .kind = ColumnKind::text, .text = &HeaderRecord::顧客注文No},
    {.name = "営業納品事業所コード", .kind = ColumnKind::text, .text = &HeaderRecord::営業納品事業所コード},
    {.name = "営業納品番号基準日付", .kind = ColumnKind::text, .text = &HeaderRecord::営業納品番号基準日付},
    {.name = "営業納品No", .kind = ColumnKind::text, .text = &HeaderRecord::営業納品No},
    {.name = "参照営業請求事業所コード",
     .kind = ColumnKind::text,
     .text = &HeaderRecord::参照営業請求事業所コード},
    {.name = "参照営業請求番号基準日付",
     .kind = ColumnKind::text,
     .text = &HeaderRecord::参照営業請求番号基準日付},
    {.name = "参照営業請求No", .kind = ColumnKind::text, .text = &HeaderRecord::参照営業請求No},
    {.name = "営業請求日付", .kind = ColumnKind::text, .text = &HeaderRecord::営業請求日付},
    {.name = "得意先コード", .kind = ColumnKind::text, .text = &HeaderRecord::得意先コード},
    {.name = "得意先名称A", .kind = ColumnKind::name, .text = &HeaderRecord::得意先名称A},
    {.name = "得意先名称B", .kind = ColumnKind::name, .text = &HeaderRecord::得意先名称B},
    {.name = "得意先御担当者コード", .kind = ColumnKind::text, .text = &HeaderRecord::得意先御担当者コード},
    {.name = "御担当者名", .kind = ColumnKind::name, .text = &HeaderRecord::御担当者名},
    {.name = "担当者コード", .kind = ColumnKind::text, .text = &HeaderRecord::担当者コード},
    {.name = "部門コード", .kind = ColumnKind::text, .text = &HeaderRecord::部門コード},
    {.name = "セクションコード", .kind = ColumnKind::text, .text = &HeaderRecord::セクションコード},
    {.name = "納品先コード", .kind = ColumnKind::text, .text = &HeaderRecord::納品先コード},
    {.name = "納品先名称A", .kind = ColumnKind::name, .text = &HeaderRecord::納品先名称A},
    {.name = "納品先名称B", .kind = ColumnKind::name, .text = &HeaderRecord::納品先名称B},
    {.name = "タイトル", .kind = ColumnKind::name, .text = &HeaderRecord::タイトル},
    {.name = "支払条件", .kind = ColumnKind::name, .text = &HeaderRecord::支払条件},
    {.name = "消費税表示区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::消費税表示区分},
    {.name = "合計表示区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::合計表示区分},
    {.name = "請求伝票備考A", .kind = ColumnKind::name, .text = &HeaderRecord::請求伝票備考A},
    {.name = "請求伝票備考B", .kind = ColumnKind::name, .text = &HeaderRecord::請求伝票備考B},
    {.name = "請求数量合計", .kind = ColumnKind::quantity_sale, .money = &HeaderRecord::請求数量合計},
    {.name = "請求金額合計", .kind = ColumnKind::money, .money = &HeaderRecord::請求金額合計},
    {.name = "税抜請求金額合計", .kind = ColumnKind::money, .money = &HeaderRecord::税抜請求金額合計},
    {.name = "請求消費税合計", .kind = ColumnKind::money, .money = &HeaderRecord::請求消費税合計},
    {.name = "税込請求金額合計", .kind = ColumnKind::money, .money = &HeaderRecord::税込請求金額合計},
    {.name = "仕入数量合計", .kind = ColumnKind::quantity_purchase, .money = &HeaderRecord::仕入数量合計},
    {.name = "仕入金額合計", .kind = ColumnKind::money, .money = &HeaderRecord::仕入金額合計},
    {.name = "税抜仕入金額合計", .kind = ColumnKind::money, .money = &HeaderRecord::税抜仕入金額合計},
    {.name = "仕入消費税合計", .kind = ColumnKind::money, .money = &HeaderRecord::仕入消費税合計},
    {.name = "税込仕入金額合計", .kind = ColumnKind::money, .money = &HeaderRecord::税込仕入金額合計},
    {.name = "得意先消費税区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::得意先消費税区分},
    {.name = "得意先消費税算出区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::得意先消費税算出区分},
    {.name = "得意先消費税丸め方法", .kind = ColumnKind::digit, .digit = &HeaderRecord::得意先消費税丸め方法},
    {.name = "得意先消費税丸め桁位置",
     .kind = ColumnKind::digit,
     .digit = &HeaderRecord::得意先消費税丸め桁位置},
    {.name = "得意先消費税端数調整区分",
     .kind = ColumnKind::digit,
     .digit = &HeaderRecord::得意先消費税端数調整区分},
    {.name = "得意先名称入力区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::得意先名称入力区分},
    {.name = "納品先名称入力区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::納品先名称入力区分},
    {.name = "出荷完了区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::出荷完了区分},
    {.name = "売上完了区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::売上完了区分},
    {.name = "完了フラグ", .kind = ColumnKind::text, .text = &HeaderRecord::完了フラグ},
    {.name = "伝票発行区分", .kind = ColumnKind::digit, .digit = &HeaderRecord::伝票発行区分},
    {.name = "営業請求メモ", .kind = ColumnKind::name, .text = &HeaderRecord::営業請求メモ},
    {.name = "承認日付", .kind = ColumnKind::text, .text = &HeaderRecord::承認日付},
    {.name = "承認者コード", .kind = ColumnKind::text, .text = &HeaderRecord::承認者コード},
    {.name = "承認区分", .kind = ColumnKind::text, .text = &HeaderRecord::承認区分},
    {.name = "ユーザID", .kind = ColumnKind::stamp},
    {.name = "登録日付", .kind = ColumnKind::now, .text = &HeaderRecord::登録日付},
    {.name = "更新日付", .kind = ColumnKind::text, .text = &HeaderRecord::更新日付},
}};

inline constexpr std::array<LineColumn, 61> line_columns{{
    {.name = "事業所コード", .kind = ColumnKind::key, .key = &RunContext::事業所コード},
    {.name = "番号基準日付", .kind = ColumnKind::key, .key = &RunContext::番号基準日付},
    {.name = "営業請求No", .kind = ColumnKind::key, .key = &RunContext::営業請求No},
    {.name = "営業請求固有行No", .kind = ColumnKind::text, .text = &LineRecord::営業請求固有行No},
    {.name = "営業請求行No", .kind = ColumnKind::text, .text = &LineRecord::営業請求行No},
    {.name = "営業請求日付", .kind = ColumnKind::head_text, .head = &HeaderRecord::営業請求日付},
    {.name = "得意先コード", .kind = ColumnKind::head_text, .head = &HeaderRecord::得意先コード},
    {.name = "担当者コード", .kind = ColumnKind::head_text, .head = &HeaderRecord::担当者コード},
    {.name = "部門コード", .kind = ColumnKind::head_text, .head = &HeaderRecord::部門コード},
    {.name = "セクションコード", .kind = ColumnKind::head_text, .head = &HeaderRecord::セクションコード},
    {.name = "納品先コード", .kind = ColumnKind::head_text, .head = &HeaderRecord::納品先コード},
    {.name = "行区分", .kind = ColumnKind::number_text, .digit = &LineRecord::行区分},
    {.name = "商品コード", .kind = ColumnKind::text, .text = &LineRecord::商品コード},
    {.name = "商品名", .kind = ColumnKind::name, .text = &LineRecord::商品名},
    {.name = "請求数量", .kind = ColumnKind::quantity_sale, .money = &LineRecord::請求数量},
    {.name = "請求単位", .kind = ColumnKind::name, .text = &LineRecord::請求単位},
    {.name = "請求単価", .kind = ColumnKind::price_sale, .money = &LineRecord::請求単価},
    {.name = "請求金額", .kind = ColumnKind::money, .money = &LineRecord::請求金額},
    {.name = "請求消費税", .kind = ColumnKind::money, .money = &LineRecord::請求消費税},
    {.name = "売上課税区分", .kind = ColumnKind::digit, .digit = &LineRecord::売上課税区分},
    {.name = "売上消費税区分", .kind = ColumnKind::digit, .digit = &LineRecord::売上消費税区分},
    {.name = "仕入先コード", .kind = ColumnKind::text, .text = &LineRecord::仕入先コード},
    {.name = "仕入先名称A", .kind = ColumnKind::name, .text = &LineRecord::仕入先名称A},
    {.name = "仕入数量", .kind = ColumnKind::quantity_purchase, .money = &LineRecord::仕入数量},
    {.name = "仕入単位", .kind = ColumnKind::name, .text = &LineRecord::仕入単位},
    {.name = "仕入単価", .kind = ColumnKind::price_purchase, .money = &LineRecord::仕入単価},
    {.name = "仕入金額", .kind = ColumnKind::money, .money = &LineRecord::仕入金額},
    {.name = "仕入消費税", .kind = ColumnKind::money, .money = &LineRecord::仕入消費税},
    {.name = "仕入課税区分", .kind = ColumnKind::digit, .digit = &LineRecord::仕入課税区分},
    {.name = "仕入消費税区分", .kind = ColumnKind::digit, .digit = &LineRecord::仕入消費税区分},
    {.name = "計区分", .kind = ColumnKind::digit, .digit = &LineRecord::計区分},
    {.name = "商品売上課税区分", .kind = ColumnKind::digit, .digit = &LineRecord::商品売上課税区分},
    {.name = "商品売上消費税区分", .kind = ColumnKind::digit, .digit = &LineRecord::商品売上消費税区分},
    {.name = "商品仕入課税区分", .kind = ColumnKind::digit, .digit = &LineRecord::商品仕入課税区分},
    {.name = "商品仕入消費税区分", .kind = ColumnKind::digit, .digit = &LineRecord::商品仕入消費税区分},
    {.name = "商品税抜販売単価", .kind = ColumnKind::price_sale, .money = &LineRecord::商品税抜販売単価},
    {.name = "商品税抜仕入単価", .kind = ColumnKind::price_purchase, .money = &LineRecord::商品税抜仕入単価},
    {.name = "商品税込販売単価", .kind = ColumnKind::price_sale, .money = &LineRecord::商品税込販売単価},
    {.name = "商品税込仕入単価", .kind = ColumnKind::price_purchase, .money = &LineRecord::商品税込仕入単価},
    {.name = "商品名称入力区分", .kind = ColumnKind::digit, .digit = &LineRecord::商品名称入力区分},
    {.name = "仕入先消費税区分", .kind = ColumnKind::digit, .digit = &LineRecord::仕入先消費税区分},
    {.name = "仕入先消費税算出区分", .kind = ColumnKind::digit, .digit = &LineRecord::仕入先消費税算出区分},
    {.name = "仕入先消費税丸め方法", .kind = ColumnKind::digit, .digit = &LineRecord::仕入先消費税丸め方法},
    {.name = "仕入先消費税丸め桁位置",
     .kind = ColumnKind::digit,
     .digit = &LineRecord::仕入先消費税丸め桁位置},
    {.name = "仕入先消費税端数調整区分",
     .kind = ColumnKind::digit,
     .digit = &LineRecord::仕入先消費税端数調整区分},
    {.name = "仕入先名称入力区分", .kind = ColumnKind::digit, .digit = &LineRecord::仕入先名称入力区分},
    {.name = "出荷数量", .kind = ColumnKind::quantity_sale, .money = &LineRecord::出荷数量},
    {.name = "税抜出荷金額", .kind = ColumnKind::money, .money = &LineRecord::税抜出荷金額},
    {.name = "税込出荷金額", .kind = ColumnKind::money, .money = &LineRecord::税込出荷金額},
    {.name = "売上数量", .kind = ColumnKind::quantity_sale, .money = &LineRecord::売上数量},
    {.name = "税抜売上金額", .kind = ColumnKind::money, .money = &LineRecord::税抜売上金額},
    {.name = "税込売上金額", .kind = ColumnKind::money, .money = &LineRecord::税込売上金額},
    {.name = "明細完了区分", .kind = ColumnKind::digit, .digit = &LineRecord::明細完了区分},
    {.name = "明細完了日付", .kind = ColumnKind::text, .text = &LineRecord::明細完了日付},
    {.name = "明細メモ", .kind = ColumnKind::name, .text = &LineRecord::明細メモ},
    {.name = "承認日付", .kind = ColumnKind::text, .text = &LineRecord::承認日付},
    {.name = "承認者コード", .kind = ColumnKind::text, .text = &LineRecord::承認者コード},
    {.name = "承認区分", .kind = ColumnKind::text, .text = &LineRecord::承認区分},
    {.name = "ユーザID", .kind = ColumnKind::stamp},
    {.name = "登録日付", .kind = ColumnKind::now, .text = &LineRecord::登録日付},
    {.name = "更新日付", .kind = ColumnKind::text, .text = &LineRecord::更新日付},
}};

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
            if (t[i].name == t[j].name) return false;
    return true;
}
}  // namespace detail
static_assert(detail::columns_unique(header_columns) && detail::columns_unique(line_columns));
static_assert(header_columns[2].name == "営業請求No" && line_columns[3].name == "営業請求固有行No");
static_assert(header_columns.back().name == "更新日付" && line_columns.back().name == "更新日付");

}  // namespace kalvane
