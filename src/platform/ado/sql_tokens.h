// The words and signs of an SQL text, as far as the adaptation needs them.
#pragma once
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace kalvane::ado {

struct Token {
    enum class Kind { word, name, text, sign } kind;  // a name stands in brackets or double quotes
    std::size_t begin, end;                           // bytes in the text
};

class SqlTokens {
  public:
    // Blanks and comments are left out. valid() is false when a quote is not closed.
    explicit SqlTokens(std::string_view sql);
    bool valid() const { return valid_; }
    std::size_t size() const { return tokens_.size(); }
    const Token& operator[](std::size_t i) const { return tokens_[i]; }
    std::string_view text(std::size_t i) const;  // "" past the end
    // The text from token first up to before token last.
    std::string_view span(std::size_t first, std::size_t last) const;
    // Token i is this keyword, without regard to case.
    bool is(std::size_t i, std::string_view keyword) const;
    bool is_any(std::size_t i, std::initializer_list<std::string_view> keywords) const;
    bool sign(std::size_t i, char c) const;
    // A word or a name that is no string and no sign.
    bool identifier(std::size_t i) const;
    // One past the token that closes the parenthesis which opens at i.
    std::size_t behind_parenthesis(std::size_t i) const;

  private:
    std::string_view sql_;
    std::vector<Token> tokens_;
    bool valid_ = true;
};

}  // namespace kalvane::ado
