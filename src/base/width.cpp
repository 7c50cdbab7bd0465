// The table of full-width forms.
#include "base/width.h"

#include <array>

#include "base/text.h"

namespace kalvane {

namespace {

// U+FF66 to U+FF9D in their order; the lengthening sign stands among them.
constexpr std::u32string_view full_kana =
    U"ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリ"
    U"ルレロワン";
constexpr char32_t first_kana = 0xFF66, last_kana = 0xFF9D;
static_assert(full_kana.size() == last_kana - first_kana + 1);
constexpr char32_t voiced = U'ﾞ', semi_voiced = U'ﾟ';

// ASCII to full width; 0 is copied as it is.
constexpr auto full_ascii = [] {
    std::array<char32_t, 128> table{};
    for (char32_t c = U'!'; c <= U'~'; ++c) table[c] = c + 0xFEE0;
    table[U'\''] = U'’';
    table[U'\\'] = U'￥';
    for (const char32_t copied : U"\"^`") table[copied] = 0;
    return table;
}();
static_assert(full_ascii[U'-'] == U'－' && full_ascii[U'~'] == U'～' && full_ascii[U' '] == 0);

// The one character for a kana with the mark behind it; 0 when the two make none.
constexpr char32_t joined(char32_t kana, char32_t mark) {
    if (mark != voiced && mark != semi_voiced) return 0;
    const char32_t full = full_kana[kana - first_kana];
    const bool h_row = kana >= U'ﾊ' && kana <= U'ﾎ';
    if (mark == semi_voiced) return h_row ? full + 2 : 0;
    if (kana == U'ｳ') return U'ヴ';
    return h_row || (kana >= U'ｶ' && kana <= U'ﾄ') ? full + 1 : 0;
}
static_assert(joined(U'ｶ', voiced) == U'ガ' && joined(U'ﾄ', voiced) == U'ド' &&
              joined(U'ﾎ', semi_voiced) == U'ポ');

}  // namespace

std::string 全角変換(std::string_view text) {
    std::string out;
    out.reserve(text.size() * 3);
    while (!text.empty()) {
        const std::string_view head = text.substr(0, character_size(text));
        const char32_t c = code_point(head);
        text.remove_prefix(head.size());
        if (c < 128 && full_ascii[c] != 0) {
            out += to_utf8(full_ascii[c]);
        } else if (c >= first_kana && c <= last_kana) {
            const std::string_view next = text.substr(0, text.empty() ? 0 : character_size(text));
            const char32_t pair = joined(c, code_point(next));
            if (pair != 0) text.remove_prefix(next.size());
            out += to_utf8(pair != 0 ? pair : full_kana[c - first_kana]);
        } else {
            out += head;
        }
    }
    return out;
}

}  // namespace kalvane
