// The one routine that moves the focus, and the tab order.
#include <climits>
#include <utility>

#include "platform/screen/form.h"

namespace kalvane {
namespace {

// Place in the tab order: the tab index, then the order of making.
using Place = std::pair<int, int>;

Place place_of(const Form& form, const Control* c) {
    for (std::size_t i = 0; i < form.controls.size(); ++i)
        if (form.controls[i] == c) return {c->tab_index, static_cast<int>(i)};
    return {INT_MIN, INT_MIN};
}

Control* stop_from(const Form& form, Place from, bool forward) {
    Control* found = nullptr;
    Place best{};
    for (std::size_t i = 0; i < form.controls.size(); ++i) {
        Control* c = form.controls[i];
        if (!c->tab_stop || !can_take_focus(*c)) continue;
        const Place place{c->tab_index, static_cast<int>(i)};
        const bool fits =
            forward ? place >= from && (!found || place < best) : place <= from && (!found || place > best);
        if (!fits) continue;
        found = c;
        best = place;
    }
    return found;
}

void drop_typed(Control& c) {
    if (!c.typed) return;
    c.typed.reset();
    ++c.revision;
}

struct LeavingGuard {
    Form& form;
    Control* before;
    LeavingGuard(Form& f, Control& c) : form(f), before(f.leaving) { form.leaving = &c; }
    ~LeavingGuard() { form.leaving = before; }
    LeavingGuard(const LeavingGuard&) = delete;
    LeavingGuard& operator=(const LeavingGuard&) = delete;
};

void run_leave(Form& form, Control& c) {
    form.left = true;
    drop_typed(c);
    const LeavingGuard guard(form, c);
    if (c.LostFocus) c.LostFocus(c);
}

}  // namespace

Control* find_control(Form& form, std::string_view name, int row) {
    for (Control* c : form.controls)
        if (c->row == row && c->name == name) return c;
    return nullptr;
}

bool on_show(const Control& c) {
    if (!c.visible) return false;
    const Control* strip = c.form ? c.form->tab_strip : nullptr;
    return c.page < 0 || !strip || (strip->visible && strip->number == c.page);
}

bool can_take_focus(const Control& c) {
    if (is_panel(c) || c.kind == ControlKind::scroll) return false;
    return c.form && c.form->loaded && c.enabled && on_show(c);
}

Control* next_stop(Form& form, int from) {
    return stop_from(form, {from, INT_MIN}, true);
}

void set_focus(Control& c) {
    if (!can_take_focus(c)) return;
    Form& form = *c.form;
    Control* old = form.active;
    if (old == &c) return;
    if (old && !form.left) {
        const unsigned moves = form.focus_moves;
        run_leave(form, *old);
        if (form.focus_moves != moves || !can_take_focus(c)) return;
    }
    if (old) {
        drop_typed(*old);
        old->select_all = false;
        ++old->revision;
    }
    form.active = &c;
    form.left = false;
    ++form.focus_moves;
    c.select_all = takes_text(c) && c.kind != ControlKind::xText;
    ++c.revision;
    if (c.GotFocus) c.GotFocus(c);
}

void commit_field(Form& form) {
    if (form.active && !form.left) run_leave(form, *form.active);
}

void move_focus(Form& form, bool forward) {
    const unsigned moves = form.focus_moves;
    commit_field(form);
    if (form.focus_moves != moves) return;
    const int step = forward ? 1 : -1;
    const int edge = forward ? INT_MIN : INT_MAX;
    Control* to = nullptr;
    if (form.active) {
        Place from = place_of(form, form.active);
        from.second += step;
        to = stop_from(form, from, forward);
    }
    if (!to) to = stop_from(form, {edge, edge}, forward);
    if (to) set_focus(*to);
}

}  // namespace kalvane
