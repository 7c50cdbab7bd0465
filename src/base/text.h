// Text by characters: strings are UTF-8, positions and lengths count code points, positions start at 1.
// A byte that belongs to no valid sequence counts as one character and is kept as it is.
// "Trim" cuts U+0020 only; U+3000 and tabs stay.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kalvane {

std::size_t Len(std::string_view text);
// Characters from position start (from 1), at most length of them. A start past the end gives "".
std::string Mid(std::string_view text, std::size_t start, std::size_t length = std::string_view::npos);
std::string Left(std::string_view text, std::size_t length);
std::string Right(std::string_view text, std::size_t length);
// Position of find in text, looking from position start; 0 when it is not there, when start is 0 or past
// the end. An empty find is found at start.
std::size_t InStr(std::size_t start, std::string_view text, std::string_view find);
inline std::size_t InStr(std::string_view text, std::string_view find) {
    return InStr(1, text, find);
}
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);
// True when nothing but U+0020 stands in the text.
bool blank(std::string_view text);
// Numeric value of the leading number: blanks skipped, an optional sign, digits, an optional "." and
// digits; else 0. No exponent, no hexadecimal, no separators. Rounded correctly to double.
double Val(std::string_view text);
constexpr bool is_digit(char c) {
    return c >= '0' && c <= '9';
}
// What codes are made of: digits, Latin letters, "-", "_", "." and "/".
bool is_code_character(char c);
std::string UCase(std::string_view text);  // ASCII letters only
std::string Space(std::size_t n);
std::string Replace(std::string_view text, std::string_view from, std::string_view to);
bool contains(std::string_view text, std::string_view part);
// Line ends "\r\n" and "\r" as "\n".
std::string unix_lines(std::string_view text);
// Equal but for the case of ASCII letters.
bool equal_fold(std::string_view a, std::string_view b);
// Bytes in the double-byte code page: 1 for U+0000-007F and U+FF61-FF9F, 2 for every other character.
std::size_t ByteLen(std::string_view text);
// The characters of the text, each as its own UTF-8 string view into text.
std::vector<std::string_view> characters(std::string_view text);
// Byte length of the character at the head of text (text not empty).
std::size_t character_size(std::string_view text);
// Code point of one character; 0xFFFD for a byte that belongs to no valid sequence.
char32_t code_point(std::string_view character);
std::string to_utf8(char32_t c);
// The text with every byte that belongs to no valid sequence taken out.
std::string valid_utf8(std::string_view text);

}  // namespace kalvane
