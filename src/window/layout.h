// Where the controls stand: tables of rectangles in design pixels, one a form. A form without a table gets a
// layout from its controls alone.
#pragma once
#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/screen/form.h"

namespace kalvane {

inline constexpr int design_width = 1366, design_height = 728, design_font = 13;
inline constexpr int twips_a_pixel = 15;

// How much what stands over a window of that size grows with it; 1 at least.
inline double scale_over(int width, int height) {
    return std::max(1.0, std::min(static_cast<double>(width) / design_width,
                                  static_cast<double>(height) / design_height));
}

struct Area2 {
    int x = 0, y = 0, w = 0, h = 0;
};

enum class Role {
    plain,
    title,       // the bar at the head of the form
    notice,      // the line that speaks to the operator
    message,     // text of a box, over several lines
    accent,      // the button that the form is for
    with_rows,   // belongs to the rows: seen on every page that has them
    row_number,  // likewise, number of a line; shows which line is current
    hidden,      // takes the focus on its way elsewhere, is never seen
};

struct Place {
    std::string_view control;
    Area2 at = {};                  // of row 0, where it stands several times
    std::string_view caption = {};  // control whose caption is its name for a screen reader
    Role role = Role::plain;
    int face = 0;                // places of different faces (1, 2) are never seen together
    int heading = 0;             // width of the heading with its name above the column; 0 for none
    int heading_lead = 0;        // how much of that lies in front of the column
    std::string_view unit = {};  // end of its name that is shown behind it
    bool folds = false;          // without a text it takes no room: what stands below moves up
};

struct Layout {
    std::string_view form;
    int width, height;
    std::span<const Place> places;
    int row_step = 0;    // distance of the rows
    Area2 row = {};      // band of the first row
    Area2 heading = {};  // y and h of the headings
    Area2 frame = {};    // around the pages of the tab strip
};

const Layout* layout_of(std::string_view form);  // nullptr for a form without a table
const Place* place_of(const Layout& layout, std::string_view control);

// A control with its rectangle.
struct Placed {
    Control* control = nullptr;
    Area2 at;
    const Place* place = nullptr;
};
struct Arrangement {
    int width = 0, height = 0;
    const Layout* layout = nullptr;
    std::vector<Placed> controls;  // in the order of the form
};
// Controls that no table places are laid out by their kinds: fields in a flow, lists, a row of buttons.
Arrangement arrange(Form& form);

// The name of a control without the prefix of its kind.
std::string plain_name(std::string_view name);
// What a screen reader says: the caption that names the control, with the line for one of the rows.
std::string spoken_name(Form& form, const Control& c, const Place* place);

}  // namespace kalvane
