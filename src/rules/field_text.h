// Small text routines that screens and statements share. Limits count bytes of the double-byte code page,
// cuts go by characters. None keeps state.
#pragma once
#include <string>
#include <string_view>

namespace kalvane {

// How many characters the text is too long for a limit in bytes, counted from the character that passes the
// limit; 0 within it.
int 文字数超過(std::string_view text, int limit);
// Shows 文字数超過 in お知らせ of the active form, or empties it within the limit. The text stays.
void 文字数確認(std::string_view text, int limit);
// The text cut to fit the limit.
std::string 文字数切詰(std::string_view text, int limit);

// n nines or Zs; "" below 1.
std::string 九文字列(int n);
std::string Z文字列(int n);
// Bounds of a range of codes: as many zeros, or nines, as the text has characters; an empty text gives ""
// below and Zs of the length above.
std::string 範囲下限(std::string_view text);
std::string 範囲上限(std::string_view text, int length);

// A plain number in the pattern, any other text as it is; both cut to the pattern's length from the left.
// An empty text stays empty, an empty pattern leaves the text as it is.
std::string 桁揃え(std::string_view value, std::string_view pattern);
std::string 数字抽出(std::string_view text);    // its digits 0-9
std::string 百分率除去(std::string_view text);  // without "%"
// A postal code: digits, and one "-" in place of whatever else stands behind the first character.
std::string 郵便番号編集(std::string_view text);

}  // namespace kalvane
