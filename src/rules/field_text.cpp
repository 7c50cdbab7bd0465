// Byte limits, ranges, masks, postal codes.
#include "rules/field_text.h"

#include <algorithm>

#include "base/format.h"
#include "base/text.h"
#include "data/query.h"
#include "platform/screen/form.h"

namespace kalvane {

namespace {

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
