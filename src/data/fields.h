// Columns into members: a NULL leaves the member as it was.
#pragma once
#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

#include "base/currency.h"
#include "platform/ado/ado.h"
#include "records/field.h"

namespace kalvane {

void take(const ado::Value& v, std::string& member);
void take(const ado::Value& v, std::int16_t& member);  // numeric value of the text, to 16 bits
void take(const ado::Value& v, 通貨& member);

// Into the record's member; a field of another record takes nothing.
template <class... Records, class Record>
void take(const ado::Value& v, const Field<Records...>& f, Record& record) {
    const auto into = [&v, &record](auto member) {
        if constexpr (requires { record.*member; }) take(v, record.*member);
    };
    std::visit(into, f.member);
}
// The same from the column that the field names.
template <class... Records, class Record>
void take(const ado::Recordset& rs, const Field<Records...>& f, Record& record) {
    take(rs.Fields(f.column), f, record);
}
template <class Table, class Record>
void take_all(const ado::Recordset& rs, const Table& table, Record& record) {
    for (const auto& f : table) take(rs, f, record);
}

// Whether the row has every one of the columns. Where rights are asked for, a row that lacks one allows
// nothing.
bool has_columns(const ado::Recordset& rs, std::initializer_list<std::string_view> names);
template <class Table>
bool has_all(const ado::Recordset& rs, const Table& table) {
    return std::ranges::all_of(table, [&rs](const auto& f) { return rs.column_index(f.column) >= 0; });
}

// Text of a column, "" for NULL.
std::string text_of(const ado::Recordset& rs, std::string_view column);

}  // namespace kalvane
