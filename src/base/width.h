// Half-width text into full-width characters.
#pragma once
#include <string>
#include <string_view>

namespace kalvane {

// Digits, Latin letters, the signs of the table and half-width katakana (with a voiced or semi-voiced mark
// behind them as one character) go to their full-width forms; everything else is copied.
std::string 全角変換(std::string_view text);

}  // namespace kalvane
