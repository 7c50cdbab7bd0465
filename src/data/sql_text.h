// Pieces of statement texts.
#pragma once
#include <string>
#include <string_view>

namespace kalvane {

// Each ' becomes '', then trailing blanks are cut.
std::string 引用符二重化(std::string_view text);
void append_doubled(std::string& out, std::string_view text);
// The text as a literal, its quotes doubled, trailing blanks and all.
std::string literal(std::string_view text);
void append_literal(std::string& out, std::string_view text);
// n zeros; "" below 1.
std::string ゼロ文字列(int n);

// Now as "yyyymmdd hhnnss", and today as "yyyymmdd", by the clock.
std::string 現在日時();
std::string 現在日付();

}  // namespace kalvane
