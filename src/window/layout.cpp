// Finds, scales and invents rectangles.
#include "window/layout.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace kalvane {
namespace {

constexpr int margin = 12, gap = 6, line = 28, column = 7;

bool is_wide(const Control& c) {
    return c.kind == ControlKind::ListView || c.kind == ControlKind::xText;
}

// Half-width columns that a control's content wants.
int columns_of(const Control& c) {
    if (takes_text(c)) return std::clamp(c.max_length, 4, 60) + 2;
    if (c.kind == ControlKind::combo) {
        std::size_t widest = 8;
        for (const std::string& entry : c.entries) widest = std::max(widest, ByteLen(entry));
        return static_cast<int>(widest) + 5;
    }
    return std::clamp(static_cast<int>(ByteLen(c.caption)), 2, 80) + 4;
}

int width_of(const Control& c) {
    if (c.kind == ControlKind::scroll) return 16;
    int width = columns_of(c) * column;
    if (c.kind == ControlKind::check || c.kind == ControlKind::option) width += 16;
    if (c.function_key > 0) width += 30;
    return is_button(c) ? std::max(width, 80) : width;
}

// Puts controls one behind the other, line under line.
struct Flow {
    int left = margin, right = 0, x = margin, y = margin, height = line;
    void next_line() {
        x = left;
        y += height + gap;
    }
    Area2 take(int w) {
        w = std::min(w, right - left);
        if (x > left && x + w > right) next_line();
        const Area2 at{x, y, w, height};
        x += w + gap;
        return at;
    }
};

int wanted_width(const Form& form) {
    bool list = false;
    int fields = 0;
    for (const Control* c : form.controls) {
        if (c->kind == ControlKind::ListView) list = true;
        if (!is_wide(*c)) fields += width_of(*c) + gap;
    }
    return list ? 980 : std::clamp(fields / 2, 360, 900);
}

Arrangement flow_of(Form& form) {
    Arrangement out;
    out.width = wanted_width(form);
    Flow fields{.right = out.width - margin};
    std::vector<Control*> wide, buttons;
    for (Control* c : form.controls) {
        if (is_wide(*c))
            wide.push_back(c);
        else if (is_button(*c))
            buttons.push_back(c);
        else
            out.controls.push_back({c, fields.take(width_of(*c)), nullptr});
    }
    if (fields.x > fields.left) fields.next_line();
    int y = fields.y;
    for (Control* c : wide) {
        const int height = c->kind == ControlKind::ListView ? 420 : 120;
        out.controls.push_back({c, {margin, y, out.width - 2 * margin, height}, nullptr});
        y += height + gap;
    }
    Flow row{.right = out.width - margin, .y = y, .height = 32};
    for (Control* c : buttons) out.controls.push_back({c, row.take(width_of(*c)), nullptr});
    out.height = (buttons.empty() ? y : row.y + row.height + gap) + margin - gap;
    return out;
}

}  // namespace

Arrangement arrange(Form& form) {
    const Layout* layout = layout_of(form.name);
    if (!layout) return flow_of(form);
    Arrangement out;
    out.layout = layout;
    out.width = layout->width;
    out.height = layout->height;
    for (Control* c : form.controls) {
        const Place* place = place_of(*layout, c->name);
        if (!place) continue;
        Area2 at = place->at;
        if (c->row > 0) at.y += c->row * layout->row_step;
        out.controls.push_back({c, at, place});
    }
    for (const Placed& empty : out.controls) {
        if (!empty.place->folds || !empty.control->caption.empty()) continue;
        const int room = empty.at.h + gap;
        out.height -= room;
        for (Placed& below : out.controls)
            if (below.at.y > empty.at.y) below.at.y -= room;
    }
    return out;
}

std::string plain_name(std::string_view name) {
    constexpr std::array<std::string_view, 9> prefixes{"itm_ttl_", "wnd_", "btn_", "bak_", "chb_",
                                                       "opb_",     "lab_", "Lab_", "tab_"};
    for (std::string_view prefix : prefixes)
        if (name.starts_with(prefix)) return std::string(name.substr(prefix.size()));
    return std::string(name);
}

std::string spoken_name(Form& form, const Control& c, const Place* place) {
    std::string name;
    if (place && !place->caption.empty())
        if (const Control* caption = find_control(form, place->caption)) name = caption->caption;
    if (name.empty() && ByteLen(c.caption) > 2) name = c.caption;
    if (name.empty()) name = plain_name(c.name);
    if (place && !place->unit.empty()) name.append(" ").append(place->unit);
    if (c.row < 0) return name;
    const Control* number = find_control(form, "Lab_行No", c.row);
    return name + " " + (number ? number->caption : std::to_string(c.row + 1));
}

}  // namespace kalvane
