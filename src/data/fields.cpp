// Conversions from column values into members.
#include "data/fields.h"

namespace kalvane {

void take(const ado::Value& v, std::string& member) {
    if (!v.is_null()) member = v.text();
}
void take(const ado::Value& v, std::int16_t& member) {
    if (!v.is_null()) member = to_i16(v.number());
}
void take(const ado::Value& v, 通貨& member) {
    if (!v.is_null()) member = v.currency();
}

bool has_columns(const ado::Recordset& rs, std::initializer_list<std::string_view> names) {
    return std::ranges::all_of(names, [&rs](auto name) { return rs.column_index(name) >= 0; });
}

std::string text_of(const ado::Recordset& rs, std::string_view column) {
    return rs.Fields(column).text();
}

}  // namespace kalvane
