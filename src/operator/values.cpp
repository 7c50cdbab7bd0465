// Finds controls by name, prints properties and windows.
#include "operator/values.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/format.h"
#include "base/text.h"

namespace kalvane::script {
namespace {

using Kind = ControlKind;

bool holds_number(const Control& c) {
    return c.kind == Kind::check || c.kind == Kind::option || c.kind == Kind::scroll;
}

std::string flag(bool on) {
    return on ? "true" : "false";
}

using Text = std::optional<std::string>;

Text only_for(bool applies, std::string text) {
    return applies ? Text(std::move(text)) : std::nullopt;
}

struct Property {
    std::string_view name;
    Text (*text)(const Control& c);
};

// Of a scroll bar, or of a number field that has one.
Text bound(const Control& c, int bar, const std::optional<通貨>& number) {
    if (c.kind == Kind::scroll) return std::to_string(bar);
    return number ? Text(plain_number(*number)) : Text();
}

// How to add one: a row here, and its name in the operator script's manual.
constexpr std::array properties{
    Property{"Text",
             [](const Control& c) {
                 if (c.kind == Kind::xNum || c.kind == Kind::combo) return Text(shown_text(c));
                 return only_for(takes_text(c), c.text);
             }},
    Property{"Value",
             [](const Control& c) {
                 if (c.kind == Kind::xNum) return Text(plain_number(c.value));
                 return only_for(holds_number(c), std::to_string(c.number));
             }},
    Property{"Caption", [](const Control& c) { return Text(c.caption); }},
    Property{"Enabled", [](const Control& c) { return Text(flag(c.enabled)); }},
    Property{"Visible", [](const Control& c) { return Text(flag(c.visible)); }},
    Property{"TabStop", [](const Control& c) { return Text(flag(c.tab_stop)); }},
    Property{"TabIndex", [](const Control& c) { return Text(std::to_string(c.tab_index)); }},
    Property{"MaxLength", [](const Control& c) { return Text(std::to_string(c.max_length)); }},
    Property{"ForeColor", [](const Control& c) { return Text(colour_text(c.fore)); }},
    Property{"InputAreaColor", [](const Control& c) { return Text(colour_text(c.input_area)); }},
    Property{"ListIndex",
             [](const Control& c) { return only_for(c.kind == Kind::combo, std::to_string(c.list_index)); }},
    Property{"Tab",
             [](const Control& c) { return only_for(c.kind == Kind::SSTab, std::to_string(c.number)); }},
    Property{"Min", [](const Control& c) { return bound(c, c.scroll_min, c.smallest); }},
    Property{"Max", [](const Control& c) { return bound(c, c.scroll_max, c.largest); }},
};

std::string shown_entry(const Form& form, const Control& c) {
    const bool focused = form.active == &c;
    const std::string value = property_text(c, default_property(c)).value_or("");
    if (value.empty() && (is_button(c) || is_panel(c)) && !focused) return "";
    std::string text = label_of(c) + "=" + on_one_line(value);
    if (holds_number(c) && !c.caption.empty()) text += " " + on_one_line(c.caption);
    if (!c.enabled) text = "(" + text + ")";
    return focused ? "*" + text : text;
}

std::string shown_list(const Form& form, const Control& c) {
    std::string text = label_of(c) + "=" + std::to_string(c.items.size()) + " rows";
    if (!c.enabled) text = "(" + text + ")";
    if (form.active == &c) text = "*" + text;
    for (std::size_t i = 0; i < c.columns.size(); ++i)
        text += (i == 0 ? "\n    " : " | ") + c.columns[i].text;
    for (std::size_t row = 0; row < c.items.size(); ++row) {
        text += static_cast<int>(row) == c.selected ? "\n  > " : "\n    ";
        const std::size_t width = std::max(c.columns.size(), c.items[row].sub_items.size() + 1);
        for (std::size_t column = 0; column < width; ++column) {
            if (column > 0) text += " | ";
            text += on_one_line(list_cell(c, static_cast<int>(row), static_cast<int>(column)));
        }
    }
    return text;
}

}  // namespace

std::string label_of(const Control& c) {
    return c.row < 0 ? c.name : c.name + "[" + std::to_string(c.row) + "]";
}

Control* control_of(std::string_view label) {
    int row = -1;
    if (const std::size_t open = label.find('['); open != std::string_view::npos && label.ends_with(']')) {
        const std::string_view number = label.substr(open + 1, label.size() - open - 2);
        const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), row);
        if (failure != std::errc() || end != number.data() + number.size() || row < 0) return nullptr;
        label = label.substr(0, open);
    }
    if (open_forms.empty()) return nullptr;
    Control* c = find_control(*open_forms.back(), label, row);
    return c ? c : find_control(*open_forms.front(), label, row);
}

std::string_view default_property(const Control& c) {
    if (c.kind == Kind::SSTab) return "Tab";
    if (c.kind == Kind::xNum || holds_number(c)) return "Value";
    if ((is_button(c) || is_panel(c))) return "Caption";
    return c.kind == Kind::ListView ? "" : "Text";
}

std::optional<std::string> property_text(const Control& c, std::string_view property) {
    for (const Property& p : properties)
        if (p.name == property) return p.text(c);
    return std::nullopt;
}

std::string cell_text(std::string_view text) {
    return Trim(text);
}

std::string on_one_line(std::string_view text) {
    return Replace(Replace(unix_lines(text), "\\", "\\\\"), "\n", "\\n");
}

std::string list_cell(const Control& list, int row, int column) {
    if (row < 0 || row >= static_cast<int>(list.items.size()) || column < 0) return "";
    const ListItem& item = list.items[static_cast<std::size_t>(row)];
    if (column == 0) return cell_text(item.text);
    const auto sub = static_cast<std::size_t>(column - 1);
    return sub < item.sub_items.size() ? cell_text(item.sub_items[sub]) : "";
}

std::string form_text(const Form& form) {
    std::vector<const Control*> shown;
    for (const Control* c : form.controls)
        if (on_show(*c)) shown.push_back(c);
    // in the order of their making, the fields of a screen row together
    const auto in_row = [](const Control* c) { return c->row >= 0; };
    for (auto from = shown.begin(); from != shown.end();) {
        from = std::find_if(from, shown.end(), in_row);
        const auto to = std::find_if_not(from, shown.end(), in_row);
        std::stable_sort(from, to, [](const Control* a, const Control* b) { return a->row < b->row; });
        from = to;
    }
    std::string text = "window " + form.name + " " + on_one_line(form.caption) + "\n";
    int row = -1;  // of the line being built
    bool begun = false;
    for (const Control* c : shown) {
        const std::string entry = c->kind == Kind::ListView ? shown_list(form, *c) : shown_entry(form, *c);
        if (entry.empty()) continue;
        if (begun) text += c->row >= 0 && c->row == row ? "  " : "\n";
        text += entry;
        row = c->row;
        begun = true;
    }
    return begun ? text + "\n" : text;
}

}  // namespace kalvane::script
