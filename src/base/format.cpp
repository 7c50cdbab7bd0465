// Number patterns, digit by digit.
#include "base/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/failure.h"

namespace kalvane {

namespace {

struct Pattern {
    std::size_t digits = 0;    // least digits in front of the point
    std::size_t decimals = 0;  // digits behind it
    bool commas = false;
};

Pattern read(std::string_view pattern) {
    Pattern p;
    bool behind = false;
    for (const char c : pattern) {
        if (c == '.') behind = true;
        if (c == ',') p.commas = true;
        if (c == '0') ++(behind ? p.decimals : p.digits);
    }
    return p;
}

// Digits without leading zeros; decimals already rounded to as many as stand in the pattern.
void append(std::string& out, bool minus, std::string_view whole, std::string_view decimals,
            const Pattern& p) {
    const bool zero = decimals.find_first_not_of('0') == std::string_view::npos && whole.empty();
    if (minus && !zero) out += '-';
    const std::size_t width = std::max(whole.size(), p.digits);
    const std::size_t fill = width - whole.size();
    if (p.commas) {
        for (std::size_t i = 0; i < width; ++i) {
            if (i > 0 && (width - i) % 3 == 0) out += ',';
            out += i < fill ? '0' : whole[i - fill];
        }
    } else {
        out.append(fill, '0');
        out.append(whole);
    }
    if (p.decimals == 0) return;
    out += '.';
    out.append(decimals);
    out.append(p.decimals - decimals.size(), '0');
}

std::string_view digits_of(std::uint64_t n, char (&buffer)[24]) {
    if (n == 0) return {};
    const char* end = std::to_chars(buffer, buffer + sizeof buffer, n).ptr;
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

constexpr std::uint64_t magnitude(std::int64_t n) {
    return n < 0 ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n);
}

constexpr auto powers = std::to_array<std::uint64_t>({1, 10, 100, 1000, 10000});

struct Patterns {
    const char *display, *sql;
};
constexpr auto patterns = std::to_array<Patterns>({
    {.display = "#,###,###,##0", .sql = "###########0"},
    {.display = "#,###,###,##0.0", .sql = "###########0.0"},
    {.display = "#,###,###,##0.00", .sql = "##########0.00"},
    {.display = "#,###,###,##0.000", .sql = "##########0.000"},
    {.display = "#,###,###,##0.0000", .sql = "##########0.0000"},
});

const Patterns& patterns_for(int decimals) {
    return patterns[decimals >= 1 && decimals <= 4 ? static_cast<std::size_t>(decimals) : 0];
}

// Adds one to a row of digits, front digit first; true when all of them were nines.
bool carry(std::string& digits) {
    for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
        if (*it != '9') {
            ++*it;
            return false;
        }
        *it = '0';
    }
    return true;
}

}  // namespace

void append_format(std::string& out, 通貨 value, std::string_view pattern) {
    const Pattern p = read(pattern);
    const std::size_t kept = std::min<std::size_t>(p.decimals, 4);
    const std::uint64_t cut = powers[4 - kept], m = magnitude(value.units());
    const std::uint64_t rounded = m / cut + (m % cut * 2 >= cut ? 1 : 0);
    std::uint64_t behind = rounded % powers[kept];
    char decimals[4];
    for (std::size_t i = kept; i-- > 0; behind /= 10) decimals[i] = static_cast<char>('0' + behind % 10);
    char buffer[24];
    append(out, value.units() < 0, digits_of(rounded / powers[kept], buffer), {decimals, kept}, p);
}

std::string Format(通貨 value, std::string_view pattern) {
    std::string out;
    append_format(out, value, pattern);
    return out;
}

std::string Format(std::int64_t value, std::string_view pattern) {
    std::string out;
    char buffer[24];
    append(out, value < 0, digits_of(magnitude(value), buffer), {}, read(pattern));
    return out;
}

std::string Format(double value, std::string_view pattern) {
    if (!std::isfinite(value)) throw RunFailure(overflow_text);
    const Pattern p = read(pattern);
    char buffer[1100];  // the longest double without exponent
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::fixed);
    std::string_view text(buffer, static_cast<std::size_t>(end.ptr - buffer));
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string whole(text.substr(0, point));
    std::string decimals(text.substr(std::min(point + 1, text.size())));
    if (decimals.size() > p.decimals) {
        const bool up = decimals[p.decimals] >= '5';
        decimals.resize(p.decimals);
        if (up && carry(decimals) && carry(whole)) whole.insert(0, 1, '1');
    }
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    std::string out;
    append(out, std::signbit(value), whole, decimals, p);
    return out;
}

const char* 数値表示書式(int decimals) {
    return patterns_for(decimals).display;
}
const char* 数値SQL書式(int decimals) {
    return patterns_for(decimals).sql;
}

std::string plain_number(通貨 value) {
    std::string out = Format(value, "0.0000");
    out.erase(out.find_last_not_of('0') + 1);
    if (out.back() == '.') out.pop_back();
    return out;
}

std::string plain_number(double value) {
    if (value == 0) return "0";  // minus zero too
    char buffer[1100];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return std::string(buffer, end.ptr);
}

}  // namespace kalvane
