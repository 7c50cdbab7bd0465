// Cuts SQL into words and signs.
#include "platform/ado/sql_tokens.h"

#include <algorithm>

#include "base/text.h"

namespace kalvane::ado {
namespace {

bool word_byte(char c) {
    const auto b = static_cast<unsigned char>(c);
    return b >= 0x80 || (b >= '0' && b <= '9') || (b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z') ||
           b == '_' || b == '$' || b == '#' || b == '@';
}

bool blank_byte(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

// One past the closing quote, a doubled one standing for itself; npos when it is missing.
std::size_t behind_quote(std::string_view sql, std::size_t i, char quote) {
    for (++i; i < sql.size(); ++i) {
        if (sql[i] != quote) continue;
        if (quote == ']' || i + 1 >= sql.size() || sql[i + 1] != quote) return i + 1;
        ++i;
    }
    return std::string_view::npos;
}

}  // namespace

SqlTokens::SqlTokens(std::string_view sql) : sql_(sql) {
    tokens_.reserve(sql.size() / 8);
    std::size_t i = 0;
    while (i < sql.size()) {
        const char c = sql[i];
        if (blank_byte(c)) {
            ++i;
            continue;
        }
        if (sql.substr(i, 2) == "--" || sql.substr(i, 2) == "/*") {
            const std::string_view close = c == '-' ? "\n" : "*/";
            const std::size_t end = sql.find(close, i + 2);
            i = end == std::string_view::npos ? sql.size() : end + close.size();
            continue;
        }
        Token token{Token::Kind::sign, i, i + 1};
        if (c == '\'') {
            token = {Token::Kind::text, i, behind_quote(sql, i, c)};
        } else if (c == '"' || c == '`') {
            token = {Token::Kind::name, i, behind_quote(sql, i, c)};
        } else if (c == '[') {
            token = {Token::Kind::name, i, behind_quote(sql, i, ']')};
        } else if (word_byte(c)) {
            const auto* end = std::find_if_not(sql.begin() + i, sql.end(), word_byte);
            token = {Token::Kind::word, i, static_cast<std::size_t>(end - sql.begin())};
        }
        if (token.end == std::string_view::npos) {
            valid_ = false;
            return;
        }
        tokens_.push_back(token);
        i = token.end;
    }
}

std::string_view SqlTokens::text(std::size_t i) const {
    return i < tokens_.size() ? sql_.substr(tokens_[i].begin, tokens_[i].end - tokens_[i].begin)
                              : std::string_view();
}

std::string_view SqlTokens::span(std::size_t first, std::size_t last) const {
    if (first >= last) return {};
    return sql_.substr(tokens_[first].begin, tokens_[last - 1].end - tokens_[first].begin);
}

bool SqlTokens::is(std::size_t i, std::string_view keyword) const {
    return i < tokens_.size() && tokens_[i].kind == Token::Kind::word && equal_fold(text(i), keyword);
}

bool SqlTokens::is_any(std::size_t i, std::initializer_list<std::string_view> keywords) const {
    return std::any_of(keywords.begin(), keywords.end(), [&](std::string_view k) { return is(i, k); });
}

bool SqlTokens::sign(std::size_t i, char c) const {
    return i < tokens_.size() && tokens_[i].kind == Token::Kind::sign && sql_[tokens_[i].begin] == c;
}

bool SqlTokens::identifier(std::size_t i) const {
    return i < tokens_.size() &&
           (tokens_[i].kind == Token::Kind::word || tokens_[i].kind == Token::Kind::name);
}

std::size_t SqlTokens::behind_parenthesis(std::size_t i) const {
    int depth = 0;
    for (; i < tokens_.size(); ++i) {
        if (sign(i, '(')) ++depth;
        if (sign(i, ')') && --depth == 0) return i + 1;
    }
    return i;
}

}  // namespace kalvane::ado
