// The control models: one struct for all kinds. The logic and the operator work on these; a front end only
// mirrors them. Writing a property through the routines below raises the control's change event at once, on
// the same stack, when the value differs.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/currency.h"

namespace kalvane {

struct Form;
struct Control;

enum class ControlKind {
    // clang-format off
    xField, xNum, xText, xLabel, xPass, xZip, xKana, xTel,
    SSCommand, CommandButton, SSPanel, label, check, option, combo, SSTab, ListView, scroll
    // clang-format on
};

// What the operator's keys may put into a control.
enum class InputMode {
    none,      // display only: no key is taken
    digits,    // 0-9
    code,      // 0-9 A-Z a-z - _ . /
    number,    // digits, sign, point
    japanese,  // anything but control characters, input method on
    plain,     // anything but control characters
};

// A system colour or 0xRRGGBB.
struct Colour {
    enum class Kind { rgb, window_text, button_text, window } kind = Kind::window_text;
    std::uint32_t rgb = 0;
    friend constexpr bool operator==(Colour, Colour) = default;
};
inline constexpr Colour window_text_colour{Colour::Kind::window_text, 0};
inline constexpr Colour button_text_colour{Colour::Kind::button_text, 0};
inline constexpr Colour window_colour{Colour::Kind::window, 0};
constexpr Colour RGB(unsigned r, unsigned g, unsigned b) {
    return {Colour::Kind::rgb, (r << 16) | (g << 8) | b};
}
// "RRGGBB", or "WindowText", "ButtonText", "Window".
std::string colour_text(Colour c);

struct ListColumn {
    std::string text;
    int width = 0;  // twips
    bool right_aligned = false;
};
struct ListItem {
    std::string key, text;
    std::vector<std::string> sub_items;
};

using Handler = void (*)(Control&);

struct Control {
    std::string name;
    int row = -1;  // screen row or index of a control that stands several times, -1 for one alone
    ControlKind kind = ControlKind::xField;
    Form* form = nullptr;
    int page = -1;  // page of the form's tab strip that it stands on, -1 for none

    // what an operator's input may be
    InputMode mode = InputMode::plain;
    int max_length = 0;  // bytes in the double-byte code page, 0 without limit; code and digit fields refuse
                         // more, text fields take it and cut when they are left
    int decimals = 0;    // xNum
    std::optional<通貨> smallest, largest;  // xNum; a key that would leave them is refused
    bool read_only = false;

    // state: read freely, written through the set_ routines
    std::string text;     // xField, xText, xPass, xZip, combos show entries[list_index]
    通貨 value;           // xNum
    int number = 0;       // check and option 0/1, scroll position, page of an SSTab
    int list_index = -1;  // combo
    std::vector<std::string> entries;
    std::string caption;
    bool enabled = true, visible = true, tab_stop = true;
    int tab_index = 0;
    Colour fore = window_text_colour, input_area = window_colour;
    int scroll_min = 0, scroll_max = 0, large_change = 1;
    std::vector<ListColumn> columns;  // ListView
    std::vector<ListItem> items;
    int selected = -1;

    // typing in progress in an xNum: the typed text, shown in place of the formatted value
    std::optional<std::string> typed;
    bool select_all = false;  // the next key replaces the content
    int function_key = 0;     // 1-12: the key that clicks this button
    unsigned revision = 0;    // counts the changes, for front ends

    Handler Change = nullptr, GotFocus = nullptr, LostFocus = nullptr, Click = nullptr, DblClick = nullptr,
            DropDown = nullptr;
    void (*KeyDown)(Control&, int code) = nullptr;  // codes 17 Ctrl, 13 Enter, 27 Escape
};

inline constexpr int key_ctrl = 17, key_enter = 13, key_escape = 27;

// --- properties; each raises Change when the value differs
void set_text(Control& c, std::string_view text);
void set_value(Control& c, 通貨 value);
void set_number(Control& c, int number);  // check, option, scroll (as given, also outside its limits), SSTab
void set_list_index(Control& c, int index);  // -1, or an entry; anything else shows none
// --- properties without an event
void set_caption(Control& c, std::string_view text);
void set_enabled(Control& c, bool on);
void set_visible(Control& c, bool on);
void set_tab_stop(Control& c, bool on);
void set_fore(Control& c, Colour colour);
void set_input_area(Control& c, Colour colour);
void set_scroll_range(Control& c, int smallest, int largest);
void set_entries(Control& c, std::vector<std::string> entries);
void set_limits(Control& c, 通貨 smallest, 通貨 largest);
void set_list(Control& c, std::vector<ListColumn> columns, std::vector<ListItem> items);

// What the control shows: the typed text or the formatted value of an xNum, the entry of a combo, the text.
std::string shown_text(const Control& c);

// --- the operator's input, filtered by mode, length and limits. False when it was refused.
bool type_character(Control& c, std::string_view character);
// Replaces the content by what the mode takes of the text, as one change.
void paste_text(Control& c, std::string_view text);
void delete_content(Control& c);
// True when the mode would take every character of the text; a pick or reply is refused whole otherwise.
bool mode_takes(const Control& c, std::string_view text);
bool takes_text(const Control& c);  // xField, xNum, xText, xPass, xZip, xKana, xTel
bool is_button(const Control& c);
bool is_panel(const Control& c);       // a panel or a label: shows a caption, never has the focus
bool acts_on_space(const Control& c);  // a button, a check box, an option

}  // namespace kalvane
