// Control names and values as a script writes them.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "platform/screen/form.h"

namespace kalvane::script {

// "name", or "name[row]" for a control that stands several times.
std::string label_of(const Control& c);
// The control of that label: on the form on top, else on the first form that was opened. nullptr: none.
Control* control_of(std::string_view label);
// The property that is meant where none is named: Text, Value, Caption or Tab; "" for a list.
std::string_view default_property(const Control& c);
// A property as text. No value when the control has no such property.
std::optional<std::string> property_text(const Control& c, std::string_view property);

// Blanks at both ends cut.
std::string cell_text(std::string_view text);
// On one line: "\n" for a line break, "\\" for a backslash.
std::string on_one_line(std::string_view text);
// A list's cell, row and column from 0; "" where the row has no such column.
std::string list_cell(const Control& list, int row, int column);

// The form as text: a title line, then each visible control with its value, by tab order; a screen row's
// controls on one line, disabled ones in parentheses, the one with the focus behind an asterisk.
std::string form_text(const Form& form);

}  // namespace kalvane::script
