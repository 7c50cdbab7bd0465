// The operator's events, each one dispatch.
#include <algorithm>

#include "base/text.h"
#include "platform/screen/form.h"

namespace kalvane {
namespace {

bool takes_events(const Form& form) {
    return !process_ended() && form.visible && form.enabled && top_form() == &form;
}

bool usable(const Control& c) {
    return c.enabled && on_show(c);
}

// The control that a key or a drop-down goes to.
Control* usable_active(const Form& form) {
    return form.active && usable(*form.active) ? form.active : nullptr;
}

void raise(Handler handler, Control& c) {
    if (handler) handler(c);
}

// Moves the focus to a control before the operator's act on it. False when the act is void: the form or the
// control takes no input any more, or the focus was sent elsewhere on the way.
bool arrive(Control& c) {
    set_focus(c);
    if (!takes_events(*c.form) || !usable(c)) return false;
    return c.form->active == &c || !can_take_focus(c);
}

// The field that is left comes first: it may wake the button, or put it to sleep. A click counts even where a
// leave sent the focus elsewhere: the button was pressed.
void click_button(Control& c) {
    Form& form = *c.form;
    const unsigned moves = form.focus_moves;
    if (form.active != &c) commit_field(form);
    if (!takes_events(form) || !usable(c)) return;
    if (form.focus_moves == moves) set_focus(c);
    if (takes_events(form) && usable(c)) raise(c.Click, c);
}

void toggle(Control& c) {
    if (!arrive(c)) return;
    if (c.kind == ControlKind::option) {
        for (Control* other : c.form->controls)
            if (other != &c && other->kind == ControlKind::option && other->name == c.name)
                set_number(*other, 0);
        set_number(c, 1);
    } else {
        set_number(c, c.number == 0 ? 1 : 0);
    }
    raise(c.Click, c);
}

void click_now(Control& c) {
    switch (c.kind) {
        case ControlKind::SSCommand:
        case ControlKind::CommandButton:
            return click_button(c);
        case ControlKind::label:
        case ControlKind::xLabel:
        case ControlKind::SSPanel:
            if (!c.Click) return;
            commit_field(*c.form);
            if (takes_events(*c.form) && usable(c)) raise(c.Click, c);
            return;
        case ControlKind::check:
        case ControlKind::option:
            return toggle(c);
        case ControlKind::SSTab:
        case ControlKind::scroll:
            return;
        default:
            set_focus(c);
            if (c.form->active == &c) raise(c.Click, c);
    }
}

// Runs the key handler. The operator acted in the field, so it is to be left again.
void key_down(Control& c, int code) {
    if (!c.KeyDown) return;
    c.form->left = false;
    c.KeyDown(c, code);
}

void press_enter(Form& form) {
    Control* c = usable_active(form);
    if (!c) return move_focus(form, true);
    if (c->kind == ControlKind::xText) {
        type_character(*c, "\n");
    } else if (is_button(*c)) {
        click_button(*c);
    } else if (c->kind == ControlKind::ListView) {
        key_down(*c, key_enter);
    } else {
        const unsigned moves = form.focus_moves;
        key_down(*c, key_enter);
        if (takes_events(form) && form.focus_moves == moves) move_focus(form, true);
    }
}

void press_arrow(Form& form, int step) {
    Control* c = usable_active(form);
    const ControlKind kind = c ? c->kind : ControlKind::xField;
    if (kind == ControlKind::xText) return;
    if (kind == ControlKind::combo) {
        const int entry = c->list_index + step;
        if (entry >= 0 && entry < static_cast<int>(c->entries.size())) set_list_index(*c, entry);
    } else if (kind == ControlKind::ListView) {
        const int item = c->selected + step;
        if (item < 0 || item >= static_cast<int>(c->items.size())) return;
        c->selected = item;
        ++c->revision;
    } else {
        move_focus(form, step > 0);
    }
}

void press_escape(Form& form) {
    if (Control* c = usable_active(form)) key_down(*c, key_escape);
    if (takes_events(form) && form.cancel && on_show(*form.cancel)) click_button(*form.cancel);
}

void press_space(Control& c) {
    if (acts_on_space(c))
        click_now(c);
    else
        type_character(c, " ");
}

void press_function_key(Form& form, int number) {
    for (Control* c : form.controls)
        if (c->function_key == number && is_button(*c) && on_show(*c)) return click_button(*c);
}

void press_now(Form& form, Key key) {
    Control* active = usable_active(form);
    switch (key) {
        case Key::Enter:
            return press_enter(form);
        case Key::Tab:
            return move_focus(form, true);
        case Key::ShiftTab:
            return move_focus(form, false);
        case Key::Up:
            return press_arrow(form, -1);
        case Key::Down:
            return press_arrow(form, 1);
        case Key::Escape:
            return press_escape(form);
        case Key::Ctrl:
            if (active) key_down(*active, key_ctrl);
            return;
        case Key::Space:
            if (active) press_space(*active);
            return;
        case Key::Delete:
            if (active) delete_content(*active);
            return;
        default:
            return press_function_key(form, static_cast<int>(key) - static_cast<int>(Key::F1) + 1);
    }
}

// One event of the form: dispatched when the form takes events, and looked at again inside. A control that
// the event has put out of use does not keep the focus.
void form_event(Form& form, const std::function<void()>& event) {
    if (!takes_events(form)) return;
    dispatch([&] {
        event();
        if (takes_events(form) && form.active && !can_take_focus(*form.active)) move_focus(form, true);
    });
}

void control_event(Control& c, const std::function<void()>& event) {
    const bool may = is_button(c) ? on_show(c) : usable(c);  // a button is looked at when it is clicked
    if (c.form && may) form_event(*c.form, event);
}

}  // namespace

void press_key(Form& form, Key key) {
    form_event(form, [&] { press_now(form, key); });
}

void type_text(Form& form, std::string_view text) {
    form_event(form, [&] {
        Control* c = usable_active(form);
        if (!c) return;
        c->select_all = true;
        for (std::string_view character : characters(text)) type_character(*c, character);
    });
}

void paste_into(Form& form, std::string_view text) {
    form_event(form, [&] {
        if (Control* c = usable_active(form)) paste_text(*c, text);
    });
}

void click(Control& c) {
    control_event(c, [&] { click_now(c); });
}

void double_click(Control& c) {
    control_event(c, [&] {
        if (!arrive(c)) return;
        if (c.form->active == &c) c.form->left = false;
        raise(c.DblClick ? c.DblClick : c.DropDown, c);
    });
}

void drop_down(Form& form) {
    form_event(form, [&] {
        Control* c = usable_active(form);
        if (!c || !c->DropDown) return;
        form.left = false;
        c->DropDown(*c);
    });
}

void choose(Control& c, int entry) {
    control_event(c, [&] {
        if (c.kind == ControlKind::option) {
            Control* picked = find_control(*c.form, c.name, entry);
            if (picked && usable(*picked)) toggle(*picked);
            return;
        }
        if (c.kind == ControlKind::SSTab) {
            commit_field(*c.form);
            if (takes_events(*c.form) && usable(c)) set_number(c, entry);
        } else if (arrive(c)) {
            set_list_index(c, entry);
        }
    });
}

void select_item(Control& list, int item) {
    control_event(list, [&] {
        if (!arrive(list)) return;
        if (item < -1 || item >= static_cast<int>(list.items.size())) return;
        list.selected = item;
        ++list.revision;
    });
}

void turn_wheel(Form& form, int delta) {
    if (delta == 0) return;
    form_event(form, [&] {
        commit_field(form);
        if (form.Wheel && takes_events(form)) form.Wheel(form, delta < 0 ? -1 : 1);
    });
}

void scroll_to(Control& bar, int position) {
    control_event(bar, [&] {
        commit_field(*bar.form);
        if (!takes_events(*bar.form) || !usable(bar)) return;
        set_number(bar, std::max(bar.scroll_min, std::min(position, bar.scroll_max)));
    });
}

bool close_form(Form& form) {
    form_event(form, [&] {
        // what is being typed counts as input
        if (form.active && takes_text(*form.active) && !form.active->select_all) commit_field(form);
        if (takes_events(form)) unload_form(form);
    });
    return !form.visible;
}

void press_focus(Control& c) {
    control_event(c, [&] { set_focus(c); });
}

}  // namespace kalvane
