// Columns into members: a NULL leaves the member as it was.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/currency.h"
#include "platform/ado/ado.h"

namespace kalvane {

// One column of a settings table and the member that takes it; `trim` cuts blanks at both ends, `first`
// keeps that many characters.
template <class Record>
struct Field {
    std::string_view column;
    std::string Record::*text = nullptr;
    std::int16_t Record::*digit = nullptr;
    通貨 Record::*money = nullptr;
    bool trim = false;
    std::size_t first = 0;
};

void take(const ado::Value& v, std::string& member);
void take(const ado::Value& v, std::int16_t& member);  // numeric value of the text, to 16 bits
void take(const ado::Value& v, 通貨& member);
std::string shaped(std::string text, bool trim, std::size_t first);

template <class Record>
void take(const ado::Recordset& rs, const Field<Record>& f, Record& record) {
    const ado::Value& v = rs.Fields(f.column);
    if (v.is_null()) return;
    if (f.text) record.*f.text = shaped(v.text(), f.trim, f.first);
    if (f.digit) take(v, record.*f.digit);
    if (f.money) take(v, record.*f.money);
}

template <class Record, class Table>
void take_all(const ado::Recordset& rs, const Table& table, Record& record) {
    for (const Field<Record>& f : table) take(rs, f, record);
}

// Text of a column, "" for NULL.
std::string text_of(const ado::Recordset& rs, std::string_view column);

}  // namespace kalvane
