// Character positions in UTF-8, and the text routines over them.
#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace kalvane {

namespace {

constexpr unsigned char byte(char c) {
    return static_cast<unsigned char>(c);
}
constexpr char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

struct Decoded {
    char32_t c;
    std::size_t size;
    bool valid;
};

// What may stand as the second byte after each kind of lead byte; the bounds keep out overlong forms,
// surrogates and what lies behind U+10FFFF.
struct LeadRow {
    unsigned char first, last;
    std::size_t size;
    unsigned char mask, second_low, second_high;
};
constexpr auto lead_rows = std::to_array<LeadRow>({
    {.first = 0x00, .last = 0x7F, .size = 1, .mask = 0x7F, .second_low = 0, .second_high = 0},
    {.first = 0xC2, .last = 0xDF, .size = 2, .mask = 0x1F, .second_low = 0x80, .second_high = 0xBF},
    {.first = 0xE0, .last = 0xE0, .size = 3, .mask = 0x0F, .second_low = 0xA0, .second_high = 0xBF},
    {.first = 0xE1, .last = 0xEC, .size = 3, .mask = 0x0F, .second_low = 0x80, .second_high = 0xBF},
    {.first = 0xED, .last = 0xED, .size = 3, .mask = 0x0F, .second_low = 0x80, .second_high = 0x9F},
    {.first = 0xEE, .last = 0xEF, .size = 3, .mask = 0x0F, .second_low = 0x80, .second_high = 0xBF},
    {.first = 0xF0, .last = 0xF0, .size = 4, .mask = 0x07, .second_low = 0x90, .second_high = 0xBF},
    {.first = 0xF1, .last = 0xF3, .size = 4, .mask = 0x07, .second_low = 0x80, .second_high = 0xBF},
    {.first = 0xF4, .last = 0xF4, .size = 4, .mask = 0x07, .second_low = 0x80, .second_high = 0x8F},
});

Decoded decode(std::string_view text) {
    constexpr Decoded broken{.c = 0xFFFD, .size = 1, .valid = false};
    const unsigned char head = byte(text[0]);
    if (head < 0x80) return {.c = head, .size = 1, .valid = true};
    const auto* row = std::ranges::find_if(
        lead_rows, [head](const LeadRow& r) { return head >= r.first && head <= r.last; });
    if (row == lead_rows.end() || text.size() < row->size) return broken;
    const unsigned char second = byte(text[1]);
    if (second < row->second_low || second > row->second_high) return broken;
    char32_t c = static_cast<char32_t>(head & row->mask);
    for (std::size_t i = 1; i < row->size; ++i) {
        const unsigned char next = byte(text[i]);
        if ((next & 0xC0) != 0x80) return broken;
        c = (c << 6) | static_cast<char32_t>(next & 0x3F);
    }
    return {.c = c, .size = row->size, .valid = true};
}

// Byte offset behind the first `count` characters.
std::size_t offset_of(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) at += decode(text.substr(at)).size;
    return at;
}

}  // namespace

std::size_t character_size(std::string_view text) {
    return decode(text).size;
}

char32_t code_point(std::string_view character) {
    return character.empty() ? char32_t{0xFFFD} : decode(character).c;
}

std::string to_utf8(char32_t c) {
    std::string out;
    const auto tail = [&out, c](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = 0xFFFD;
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
    return out;
}

std::string valid_utf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Decoded d = decode(text.substr(at));
        if (d.valid) out.append(text, at, d.size);
        at += d.size;
    }
    return out;
}

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); at += out.back().size())
        out.push_back(text.substr(at, decode(text.substr(at)).size));
    return out;
}

std::size_t Len(std::string_view text) {
    std::size_t n = 0;
    for (std::size_t at = 0; at < text.size(); ++n) at += decode(text.substr(at)).size;
    return n;
}

std::string Mid(std::string_view text, std::size_t start, std::size_t length) {
    if (start == 0) return {};
    const std::string_view rest = text.substr(offset_of(text, start - 1));
    return std::string(rest.substr(0, offset_of(rest, length)));
}

std::string Left(std::string_view text, std::size_t length) {
    return Mid(text, 1, length);
}

std::string Right(std::string_view text, std::size_t length) {
    const std::size_t all = Len(text);
    return length >= all ? std::string(text) : Mid(text, all - length + 1);
}

std::size_t InStr(std::size_t start, std::string_view text, std::string_view find) {
    if (start == 0) return 0;
    std::size_t at = offset_of(text, start - 1);
    if (at >= text.size()) return 0;
    // a hit counts only where both of its ends are borders of characters
    for (std::size_t position = start; at < text.size(); ++position) {
        if (text.compare(at, find.size(), find) == 0) {
            std::size_t end = at;
            while (end < at + find.size()) end += decode(text.substr(end)).size;
            if (end == at + find.size()) return position;
        }
        at += decode(text.substr(at)).size;
    }
    return 0;
}

std::string LTrim(std::string_view text) {
    return std::string(text.substr(std::min(text.find_first_not_of(' '), text.size())));
}

std::string RTrim(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string Trim(std::string_view text) {
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    return LTrim(text);
}

bool blank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

double Val(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool minus = text.starts_with('-');
    if (minus || text.starts_with('+')) text.remove_prefix(1);
    std::size_t whole = 0;
    while (whole < text.size() && is_digit(text[whole])) ++whole;
    std::size_t end = whole;
    if (end < text.size() && text[end] == '.') {
        ++end;
        while (end < text.size() && is_digit(text[end])) ++end;
    }
    const std::string_view number = text.substr(0, end);
    double x = 0;
    const auto result =
        std::from_chars(number.data(), number.data() + number.size(), x, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        const bool huge = number.substr(0, whole).find_first_not_of('0') != std::string_view::npos;
        x = huge ? std::numeric_limits<double>::infinity() : 0;
    }
    return minus && x != 0 ? -x : x;
}

bool is_code_character(char c) {
    const char letter = upper(c);
    return is_digit(c) || (letter >= 'A' && letter <= 'Z') || contains("-_./", {&c, 1});
}

std::string UCase(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(), upper);
    return out;
}

std::string Space(std::size_t n) {
    return std::string(n, ' ');
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(text);
    std::string out;
    out.reserve(text.size());
    for (;;) {
        const std::size_t at = text.find(from);
        out.append(text.substr(0, at));
        if (at == std::string_view::npos) return out;
        out.append(to);
        text.remove_prefix(at + from.size());
    }
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string unix_lines(std::string_view text) {
    return Replace(Replace(text, "\r\n", "\n"), "\r", "\n");
}

bool equal_fold(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return upper(x) == upper(y); });
}

std::size_t ByteLen(std::string_view text) {
    std::size_t n = 0;
    for (std::size_t at = 0; at < text.size();) {
        const Decoded d = decode(text.substr(at));
        n += d.c < 0x80 || (d.c >= 0xFF61 && d.c <= 0xFF9F) ? 1 : 2;
        at += d.size;
    }
    return n;
}

}  // namespace kalvane
