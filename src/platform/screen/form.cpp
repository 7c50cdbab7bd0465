// The life of forms.
#include "platform/screen/form.h"

#include <algorithm>
#include <climits>

#include "platform/screen/host.h"
#include "platform/screen/state.h"

namespace kalvane {
namespace {

void close_now(Form& form) {
    std::erase(open_forms, &form);
    std::erase(screen_state.loaded_forms, &form);
    form.loaded = form.visible = form.modal = form.left = false;
    form.enabled = true;
    form.active = form.leaving = nullptr;
    ++form.revision;
}

void unload_now(Form& form) {
    close_now(form);
    if (form.Unload) form.Unload(form);
}

void put_on_top(Form& form) {
    std::erase(open_forms, &form);
    open_forms.push_back(&form);
    form.visible = true;
    ++form.revision;
    if (form.active && can_take_focus(*form.active)) return;
    if (Control* first = next_stop(form, INT_MIN)) set_focus(*first);
}

}  // namespace

Control& add_control(Form& form, Control& c, ControlKind kind, std::string_view name, int row) {
    c.form = &form;
    c.kind = kind;
    c.name = std::string(name);
    c.row = row;
    form.controls.push_back(&c);
    return c;
}

void build_form(Form& form, std::string_view name, std::span<const Part> parts, void (*Load)(Form&)) {
    form = Form{};
    form.name = std::string(name);
    form.Load = Load;
    int tab_index = 0;
    for (const Part& p : parts) {
        Control& c = *p.control;
        c = Control{};
        add_control(form, c, p.kind, p.name);
        c.caption = std::string(p.caption);
        c.mode = p.mode;
        c.max_length = p.max_length;
        c.tab_stop = p.tab_stop;
        c.tab_index = tab_index++;
        c.Click = p.Click;
        c.GotFocus = p.GotFocus;
        c.LostFocus = p.LostFocus;
        if (p.cancel) form.cancel = &c;
        if (p.first) form.active = &c;
    }
}

void load_form(Form& form) {
    if (form.loaded || process_ended()) return;
    form.loaded = true;
    screen_state.loaded_forms.push_back(&form);
    ++form.revision;
    if (!form.Load) return;
    try {
        form.Load(form);
    } catch (...) {
        close_now(form);
        throw;
    }
}

void show_form(Form& form) {
    load_form(form);
    if (!form.loaded) return;
    form.modal = false;
    put_on_top(form);
}

void show_modal(Form& form) {
    load_form(form);
    if (!form.loaded) return;
    form.modal = true;
    put_on_top(form);
    force_logs_now();
    if (form.visible && host.run_modal) host.run_modal(form);
    form.modal = false;
    if (form.visible) hide_form(form);  // nobody takes its input any more
}

bool unload_form(Form& form) {
    if (!form.loaded) return true;
    bool cancel = false;
    if (form.QueryUnload) form.QueryUnload(form, cancel);
    if (cancel) return false;
    if (form.loaded) unload_now(form);
    return true;
}

void hide_form(Form& form) {
    std::erase(open_forms, &form);
    form.visible = false;
    ++form.revision;
}

Form* top_form() {
    return open_forms.empty() ? nullptr : open_forms.back();
}

void set_form_enabled(Form& form, bool on) {
    form.enabled = on;
    ++form.revision;
}

void set_form_caption(Form& form, std::string_view caption) {
    form.caption = std::string(caption);
    ++form.revision;
}

void set_notice_of_active_form(std::string_view text) {
    if (Form* form = top_form(); form && form->notice) set_caption(*form->notice, text);
}

void end_process() {
    if (screen_state.ended) return;
    screen_state.ended = true;
    while (!screen_state.loaded_forms.empty()) unload_now(*screen_state.loaded_forms.back());
}

bool process_ended() {
    return screen_state.ended;
}

void reset_screen() {
    while (!screen_state.loaded_forms.empty()) close_now(*screen_state.loaded_forms.back());
    open_forms.clear();
    screen_state = {};
    event_copies = {};
}

}  // namespace kalvane
