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

}  // namespace

void append_doubled(std::string& out, std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    append_quotes_doubled(out, text);
}

void append_literal(std::string& out, std::string_view text) {
    out += '\'';
    append_quotes_doubled(out, text);
    out += '\'';
}

std::string literal(std::string_view text) {
    std::string out;
    append_literal(out, text);
    return out;
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
