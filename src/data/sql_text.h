// Pieces of statement texts.
#pragma once
#include <initializer_list>
#include <string>
#include <string_view>

namespace kalvane {

// Each ' becomes '', then trailing blanks are cut.
std::string 引用符二重化(std::string_view text);
void append_doubled(std::string& out, std::string_view text);
// A value as it stands in a statement, wherever it came from: between quotes with its own doubled, trailing
// blanks and all; with a NUL byte in it, which would end the statement, in digits that give the same text.
// Appending makes no text of its own.
std::string literal(std::string_view text);
void append_literal(std::string& out, std::string_view text);
std::string literals(std::initializer_list<std::string_view> values, std::string_view between = ", ");
// The same for free text: trailing blanks are cut.
std::string name_literal(std::string_view text);
void append_name_literal(std::string& out, std::string_view text);
// n zeros; "" below 1.
std::string ゼロ文字列(int n);

// Now as "yyyymmdd hhnnss", and today as "yyyymmdd", by the clock.
std::string 現在日時();
std::string 現在日付();

}  // namespace kalvane
