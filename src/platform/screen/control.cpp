// Property writers and the texts of controls.
#include "platform/screen/control.h"

#include <algorithm>
#include <utility>

#include "base/format.h"
#include "base/text.h"
#include "platform/screen/form.h"

namespace kalvane {
namespace {

// A write into the control that has the focus, other than by its own leave, makes it worth leaving again.
void touch(Control& c) {
    ++c.revision;
    if (c.form && c.form->active == &c && c.form->leaving != &c) c.form->left = false;
}

void raise_change(Control& c) {
    touch(c);
    if (c.Change) c.Change(c);
}

template <class T>
void write(Control& c, T& member, const T& value) {
    if (member == value) return;
    member = value;
    ++c.revision;
}

bool is_entry(const Control& c, int index) {
    return index >= 0 && index < static_cast<int>(c.entries.size());
}

}  // namespace

std::string colour_text(Colour c) {
    switch (c.kind) {
        case Colour::Kind::window_text:
            return "WindowText";
        case Colour::Kind::button_text:
            return "ButtonText";
        case Colour::Kind::window:
            return "Window";
        case Colour::Kind::rgb:
            break;
    }
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4) text += digits[(c.rgb >> shift) & 15];
    return text;
}

void set_text(Control& c, std::string_view text) {
    if (c.text == text) return;
    c.text = std::string(text);
    raise_change(c);
}

void set_value(Control& c, 通貨 value) {
    if (c.value == value) return;
    c.value = value;
    c.typed.reset();
    raise_change(c);
}

void set_number(Control& c, int number) {
    if (c.number == number) return;
    c.number = number;
    raise_change(c);
}

void set_list_index(Control& c, int index) {
    if (!is_entry(c, index)) index = -1;
    if (c.list_index == index) return;
    c.list_index = index;
    raise_change(c);
}

void set_caption(Control& c, std::string_view text) {
    write(c, c.caption, std::string(text));
}

void set_enabled(Control& c, bool on) {
    write(c, c.enabled, on);
}

void set_visible(Control& c, bool on) {
    write(c, c.visible, on);
}

void set_tab_stop(Control& c, bool on) {
    write(c, c.tab_stop, on);
}

void set_fore(Control& c, Colour colour) {
    write(c, c.fore, colour);
}

void set_input_area(Control& c, Colour colour) {
    write(c, c.input_area, colour);
}

void set_scroll_range(Control& c, int smallest, int largest) {
    write(c, c.scroll_min, smallest);
    write(c, c.scroll_max, largest);
}

void set_entries(Control& c, std::vector<std::string> entries) {
    c.entries = std::move(entries);
    if (!is_entry(c, c.list_index)) c.list_index = -1;
    ++c.revision;
}

void set_limits(Control& c, 通貨 smallest, 通貨 largest) {
    c.smallest = smallest;
    c.largest = largest;
    ++c.revision;
}

void set_list(Control& c, std::vector<ListColumn> columns, std::vector<ListItem> items) {
    c.columns = std::move(columns);
    c.items = std::move(items);
    c.selected = -1;
    ++c.revision;
}

bool is_button(const Control& c) {
    return c.kind == ControlKind::SSCommand || c.kind == ControlKind::CommandButton;
}

bool is_panel(const Control& c) {
    return c.kind == ControlKind::SSPanel || c.kind == ControlKind::label || c.kind == ControlKind::xLabel;
}

bool acts_on_space(const Control& c) {
    return is_button(c) || c.kind == ControlKind::check || c.kind == ControlKind::option;
}

std::string shown_text(const Control& c) {
    switch (c.kind) {
        case ControlKind::xNum: {
            if (c.typed) return *c.typed;
            return Format(c.value, 数値表示書式(c.decimals));
        }
        case ControlKind::combo:
            return is_entry(c, c.list_index) ? c.entries[static_cast<std::size_t>(c.list_index)] : "";
        case ControlKind::xPass:
            return std::string(Len(c.text), '*');
        case ControlKind::xField:
        case ControlKind::xText:
        case ControlKind::xZip:
        case ControlKind::xKana:
        case ControlKind::xTel:
            return c.text;
        default:
            return c.caption;
    }
}

bool takes_text(const Control& c) {
    switch (c.kind) {
        case ControlKind::xField:
        case ControlKind::xNum:
        case ControlKind::xText:
        case ControlKind::xPass:
        case ControlKind::xZip:
        case ControlKind::xKana:
        case ControlKind::xTel:
            return true;
        default:
            return false;
    }
}

}  // namespace kalvane
