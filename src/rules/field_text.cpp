// Masks, byte lengths, number patterns, full-width text.
#include "rules/field_text.h"

#include <algorithm>
#include <array>

#include "base/format.h"
#include "base/text.h"
#include "data/query.h"
#include "platform/screen/form.h"

namespace kalvane {

namespace {

constexpr bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// Bytes of the head of the text that ends with the character passing the limit.
std::size_t passing_prefix(std::string_view text, int limit) {
    std::size_t end = 0;
    for (int bytes = 0; end < text.size() && bytes <= limit;) {
        const std::size_t size = character_size(text.substr(end));
        bytes += static_cast<int>(ByteLen(text.substr(end, size)));
        end += size;
    }
    return end;
}

bool fits(std::string_view text, int limit) {
    return static_cast<long long>(ByteLen(text)) <= limit;
}

struct Patterns {
    const char* display;
    const char* sql;
};
constexpr std::array<Patterns, 5> patterns = {{
    {.display = "#,###,###,##0", .sql = "###########0"},
    {.display = "#,###,###,##0.0", .sql = "###########0.0"},
    {.display = "#,###,###,##0.00", .sql = "##########0.00"},
    {.display = "#,###,###,##0.000", .sql = "##########0.000"},
    {.display = "#,###,###,##0.0000", .sql = "##########0.0000"},
}};

const Patterns& patterns_for(int decimals) {
    return patterns[decimals >= 1 && decimals <= 4 ? static_cast<std::size_t>(decimals) : 0];
}

std::string repeated(int n, char c) {
    return n > 0 ? std::string(static_cast<std::size_t>(n), c) : std::string();
}

// A sign, digits and one point, with a digit at least.
bool plain_number_text(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const auto digits = std::count_if(text.begin(), text.end(), is_digit);
    const auto points = std::count(text.begin(), text.end(), '.');
    return digits > 0 && points <= 1 && static_cast<std::size_t>(digits + points) == text.size();
}

}  // namespace

int 文字数超過(std::string_view text, int limit) {
    if (fits(text, limit)) return 0;
    return static_cast<int>(Len(text.substr(passing_prefix(text, limit)))) + 1;
}

void 文字数確認(std::string_view text, int limit) {
    const int over = 文字数超過(text, limit);
    set_notice_of_active_form(over == 0 ? std::string() : Format(over, "##0") + "文字オーバーです。");
}

std::string 文字数切詰(std::string_view text, int limit) {
    if (fits(text, limit)) return std::string(text);
    const std::size_t kept = Len(text.substr(0, passing_prefix(text, limit)));
    return Left(text, kept > 0 ? kept - 1 : 0);
}

const char* 数値表示書式(int decimals) {
    return patterns_for(decimals).display;
}
const char* 数値SQL書式(int decimals) {
    return patterns_for(decimals).sql;
}

std::string 九文字列(int n) {
    return repeated(n, '9');
}
std::string Z文字列(int n) {
    return repeated(n, 'Z');
}
std::string 範囲下限(std::string_view text) {
    return ゼロ文字列(static_cast<int>(Len(text)));
}
std::string 範囲上限(std::string_view text, int length) {
    return text.empty() ? Z文字列(length) : 九文字列(static_cast<int>(Len(text)));
}

std::string 桁揃え(std::string_view value, std::string_view pattern) {
    if (value.empty() || pattern.empty()) return std::string(value);
    return Left(plain_number_text(value) ? Format(Val(value), pattern) : std::string(value), Len(pattern));
}

std::string 数字抽出(std::string_view text) {
    std::string out;
    std::copy_if(text.begin(), text.end(), std::back_inserter(out), is_digit);
    return out;
}

std::string 百分率除去(std::string_view text) {
    return Replace(text, "%", "");
}

std::string 郵便番号編集(std::string_view text) {
    const std::string typed = RTrim(text);
    if (typed.empty() || typed == "   -") return {};
    std::string out;
    bool first = true, hyphen = false;
    for (const std::string_view c : characters(typed)) {
        if (is_digit(c[0])) {
            out += c;
        } else if (!first && !hyphen) {
            out += '-';
            hyphen = true;
        }
        first = false;
    }
    return Trim(out);
}

}  // namespace kalvane
