// The operator's keys into one control: what its mode takes, and what becomes of it.
#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/format.h"
#include "base/text.h"
#include "platform/screen/control.h"
#include "platform/screen/form.h"

namespace kalvane {
namespace {

bool is_control_character(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

// The value of a typed number; none while it is only a sign or a point, and when it is out of range.
std::optional<通貨> number_of(const std::string& typed) {
    if (!typed.empty() && std::none_of(typed.begin(), typed.end(), is_digit)) return std::nullopt;
    try {
        return to_currency(typed);
    } catch (const RunFailure&) {
        return std::nullopt;
    }
}

bool within_limits(const Control& c, 通貨 value) {
    return (!c.smallest || value >= *c.smallest) && (!c.largest || value <= *c.largest);
}

// A sign in front, digits, one point, no more decimals than the control has.
bool is_number_form(const std::string& text, int decimals) {
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    while (i < text.size() && is_digit(text[i])) ++i;
    if (i == text.size()) return true;
    if (text[i] != '.' || decimals <= 0) return false;
    const std::size_t point = i++;
    while (i < text.size() && is_digit(text[i])) ++i;
    return i == text.size() && i - point - 1 <= static_cast<std::size_t>(decimals);
}

bool number_takes(const Control& c, const std::string& text) {
    if (!is_number_form(text, c.decimals)) return false;
    if (std::none_of(text.begin(), text.end(), is_digit)) return true;
    const std::optional<通貨> value = number_of(text);
    return value && within_limits(c, *value);
}

// Whether one more character may stand behind content, by the mode alone.
bool mode_takes_next(const Control& c, const std::string& content, std::string_view character) {
    const char ch = character.size() == 1 ? character[0] : '\0';
    switch (c.mode) {
        case InputMode::none:
            return false;
        case InputMode::digits:
            return is_digit(ch);
        case InputMode::code:
            return is_code_character(ch);
        case InputMode::number:
            return number_takes(c, content + std::string(character));
        case InputMode::japanese:
        case InputMode::plain:
            if (ch == '\n' && c.kind == ControlKind::xText) return true;
            return !is_control_character(code_point(character));
    }
    return false;
}

bool takes_next(const Control& c, const std::string& content, std::string_view character) {
    if (!mode_takes_next(c, content, character)) return false;
    const bool bounded = c.mode == InputMode::digits || c.mode == InputMode::code;
    return !bounded || c.max_length <= 0 ||
           ByteLen(content) + ByteLen(character) <= static_cast<std::size_t>(c.max_length);
}

bool takes_keys(const Control& c) {
    return takes_text(c) && !c.read_only && c.mode != InputMode::none;
}

void write_content(Control& c, std::string content) {
    c.select_all = false;
    if (c.kind != ControlKind::xNum) {
        set_text(c, content);
        return;
    }
    const std::optional<通貨> value = number_of(content);
    c.typed = std::move(content);
    ++c.revision;
    if (!value || !within_limits(c, *value) || *value == c.value) return;
    c.value = *value;
    if (c.Change) c.Change(c);
}

// What a further key is put behind.
std::string content_for_key(const Control& c) {
    if (c.select_all) return "";
    if (c.kind != ControlKind::xNum) return c.text;
    return c.typed ? *c.typed : plain_number(c.value);
}

void typed_into(Control& c) {
    if (c.form && c.form->active == &c) c.form->left = false;
}

}  // namespace

bool type_character(Control& c, std::string_view character) {
    if (!takes_keys(c) || character.empty() || valid_utf8(character) != character) return false;
    std::string content = content_for_key(c);
    if (!takes_next(c, content, character)) return false;
    typed_into(c);
    content += character;
    write_content(c, std::move(content));
    return true;
}

void paste_text(Control& c, std::string_view text) {
    if (!takes_keys(c)) return;
    std::string clean = valid_utf8(text);
    if (c.kind == ControlKind::xText) clean = unix_lines(clean);
    std::string content;
    for (std::string_view character : characters(clean))
        if (takes_next(c, content, character)) content += character;
    if (content.empty()) return;
    typed_into(c);
    write_content(c, std::move(content));
}

void delete_content(Control& c) {
    if (!takes_keys(c)) return;
    typed_into(c);
    write_content(c, "");
}

bool mode_takes(const Control& c, std::string_view text) {
    if (valid_utf8(text) != text) return false;
    std::string content;
    for (std::string_view character : characters(text)) {
        if (!mode_takes_next(c, content, character)) return false;
        content += character;
    }
    return true;
}

}  // namespace kalvane
