// Numbers into text by the patterns that the program uses: "0", "000", "00000000", "##0",
// "#,###,###,##0.00", "###########0", "###". Rounded half away from zero on the decimal digits; a minus
// sign stands in front; a value that rounds to zero has none; "###" of 0 is empty.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "base/currency.h"

namespace kalvane {

std::string Format(通貨 value, std::string_view pattern);
std::string Format(std::int64_t value, std::string_view pattern);
inline std::string Format(int value, std::string_view pattern) {
    return Format(static_cast<std::int64_t>(value), pattern);
}
// The shortest decimal that reads back as the same double decides which digits are rounded.
std::string Format(double value, std::string_view pattern);
// Appends instead of returning; the road of the SQL values.
void append_format(std::string& out, 通貨 value, std::string_view pattern);
// Patterns by count of decimals, 0 to 4; any other count gives the one for 0. For the screen, and for
// statements.
const char* 数値表示書式(int decimals);
const char* 数値SQL書式(int decimals);
// Shortest decimal without separators: 12, -0.5, 33.25.
std::string plain_number(通貨 value);
std::string plain_number(double value);

}  // namespace kalvane
