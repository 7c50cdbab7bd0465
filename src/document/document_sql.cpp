// Walks the column tables to build INSERT texts.
#include "document/document_sql.h"

#include <charconv>

#include "base/format.h"
#include "data/sql_text.h"
#include "records/columns.h"
#include "rules/field_text.h"

namespace kalvane {
namespace {

template <class Columns>
std::string insert_head(const char* table, const Columns& columns, bool history) {
    std::string sql = std::string("INSERT INTO [") + table + "] (";
    std::size_t position = 0;
    for (const auto& c : columns) {
        if (history && position == history_position)
            for (std::string_view name : history_columns) (sql += "[").append(name) += "],";
        (sql += "[").append(c.field.column) += ++position < columns.size() ? "]," : "]";
    }
    return sql + ") VALUES (";
}

// Heads of the four statements; a statement of a long document is built two thousand times in one save.
const std::string& header_head(bool history) {
    static const std::string live = insert_head("T営業請求", header_columns, false);
    static const std::string journal = insert_head("R営業請求", header_columns, true);
    return history ? journal : live;
}
const std::string& line_head(bool history) {
    static const std::string live = insert_head("T営業請求明細", line_columns, false);
    static const std::string journal = insert_head("R営業請求明細", line_columns, true);
    return history ? journal : live;
}

const char* number_pattern(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::quantity_sale:
            return 数値SQL書式(実行環境.請求数量桁数);
        case ColumnKind::price_sale:
            return 数値SQL書式(実行環境.請求単価桁数);
        case ColumnKind::quantity_purchase:
            return 数値SQL書式(実行環境.仕入数量桁数);
        case ColumnKind::price_purchase:
            return 数値SQL書式(実行環境.仕入単価桁数);
        default:
            return "##########0";
    }
}

void append_digit(std::string& sql, int n) {
    char buffer[8];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, n).ptr;
    append_literal(sql, std::string_view(buffer, static_cast<std::size_t>(end - buffer)));
}

// The member that the kind of the column promises.
template <class T, class Record, class... Records>
const T& held(const Column<Records...>& c, const Record& record) {
    return record.*std::get<T Record::*>(c.field.member);
}

template <class Record, class... Others>
void append_value(std::string& sql, const Column<Record, Others...>& c, const Record& record,
                  const std::string& now) {
    switch (c.kind) {
        case ColumnKind::key:
            append_literal(sql, held<std::string>(c, 実行環境));
            break;
        case ColumnKind::head_text:
            append_literal(sql, held<std::string>(c, 請求ヘッダ));
            break;
        case ColumnKind::text:
            append_literal(sql, held<std::string>(c, record));
            break;
        case ColumnKind::name:
            append_name_literal(sql, held<std::string>(c, record));
            break;
        case ColumnKind::digit:
        case ColumnKind::number_text:
            append_digit(sql, held<std::int16_t>(c, record));
            break;
        case ColumnKind::stamp:
            append_literal(sql, 更新者());
            break;
        case ColumnKind::now:
            append_literal(sql, now);
            break;
        default:
            append_format(sql, held<通貨>(c, record), number_pattern(c.kind));
    }
}

template <class... Records>
void append_copy(std::string& sql, const Column<Records...>& c, const ado::Value& v) {
    if (c.kind == ColumnKind::name)
        append_name_literal(sql, v.text());
    else if (is_quoted(c.kind))
        append_literal(sql, v.text());
    else
        append_format(sql, v.currency(), number_pattern(c.kind));
}

void append_mark(std::string& sql, const HistoryMark& mark) {
    append_literal(sql, mark.number);
    sql += ',';
    append_literal(sql, mark.red_black);
    sql += ',';
}

// Values of all columns in order; the mark of a history row stands where its columns do.
template <class Columns, class Append>
std::string statement(const std::string& head, const Columns& columns, const HistoryMark* mark,
                      Append append) {
    std::string sql;
    sql.reserve(head.size() + 1024);
    sql = head;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (mark && i == history_position) append_mark(sql, *mark);
        append(sql, columns[i]);
        sql += i + 1 < columns.size() ? ',' : ')';
    }
    return sql;
}

}  // namespace

std::string 更新者() {
    return 実行環境.ユーザID + 実行環境.起動担当者コード + 実行環境.コンピュータID;
}

std::string header_insert(const HistoryMark* history) {
    return statement(header_head(history != nullptr), header_columns, history,
                     [](std::string& sql, const HeaderColumn& c) {
                         append_value(sql, c, 請求ヘッダ, 請求ヘッダ.登録日付);
                     });
}

std::string line_insert(int i, const std::string& now, const HistoryMark* history) {
    const LineRecord& line = 請求明細行[i];
    return statement(line_head(history != nullptr), line_columns, history,
                     [&](std::string& sql, const LineColumn& c) { append_value(sql, c, line, now); });
}

std::string header_copy(const ado::Recordset& row, const HistoryMark& history) {
    return statement(
        header_head(true), header_columns, &history,
        [&](std::string& sql, const HeaderColumn& c) { append_copy(sql, c, row.Fields(c.field.column)); });
}

std::string line_copy(const ado::Recordset& row, const HistoryMark& history, const std::string& now) {
    return statement(line_head(true), line_columns, &history, [&](std::string& sql, const LineColumn& c) {
        if (c.field.column == "更新日付")
            append_literal(sql, now);
        else
            append_copy(sql, c, row.Fields(c.field.column));
    });
}

}  // namespace kalvane
