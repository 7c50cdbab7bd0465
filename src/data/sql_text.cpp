// Quoting and stamps for statement texts.
#include "data/sql_text.h"

#include "platform/os/clock.h"

namespace kalvane {

namespace {

void append_quotes_doubled(std::string& out, std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t quote = text.find('\'', at);
        if (quote == std::string_view::npos) {
            out.append(text.substr(at));
            return;
        }
        out.append(text.substr(at, quote - at + 1));
        out.push_back('\'');
        at = quote + 1;
    }
}

std::string_view without_trailing_blanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

void append_bytes(std::string& out, std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    out += "CAST(X'";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        out += digits[byte >> 4];
        out += digits[byte & 15];
    }
    out += "' AS TEXT)";
}

}  // namespace

void append_doubled(std::string& out, std::string_view text) {
    append_quotes_doubled(out, without_trailing_blanks(text));
}

void append_literal(std::string& out, std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        append_bytes(out, text);
        return;
    }
    out += '\'';
    append_quotes_doubled(out, text);
    out += '\'';
}

std::string literal(std::string_view text) {
    std::string out;
    append_literal(out, text);
    return out;
}

std::string literals(std::initializer_list<std::string_view> values, std::string_view between) {
    std::string out;
    for (const std::string_view value : values) {
        if (!out.empty()) out += between;
        append_literal(out, value);
    }
    return out;
}

void append_name_literal(std::string& out, std::string_view text) {
    append_literal(out, without_trailing_blanks(text));
}

std::string name_literal(std::string_view text) {
    return literal(without_trailing_blanks(text));
}

std::string 引用符二重化(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 8);
    append_doubled(out, text);
    return out;
}

std::string ゼロ文字列(int n) {
    return n < 1 ? std::string() : std::string(static_cast<std::size_t>(n), '0');
}

std::string 現在日時() {
    return date_time_text(os::now());
}
std::string 現在日付() {
    return date_text(os::today());
}

}  // namespace kalvane
