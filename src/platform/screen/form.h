// Forms, the focus and the events. Each form keeps its active control; one routine moves the focus and
// raises leave and enter; every operator event enters by one dispatch.
//
// How to build a form: a struct over Form with its controls and one global of it, a constexpr table of Parts
// in the tab order, and build_form() before it is shown. What depends on the moment is written by its Load.
#pragma once
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/screen/control.h"

namespace kalvane {

struct Form {
    std::string name;
    std::string caption;
    bool loaded = false, visible = false, enabled = true, modal = false;
    bool on_top = false;             // stays above the program's other windows
    std::vector<Control*> controls;  // in the order of their making
    Control* active = nullptr;
    Control* tab_strip = nullptr;  // SSTab whose number says which pages' controls are seen
    Control* notice = nullptr;     // label or panel お知らせ, when the form has one
    Control* cancel = nullptr;     // button that Escape clicks
    int width = 0, height = 0;     // twips, 0 when the form does not care
    unsigned revision = 0;

    void (*Load)(Form&) = nullptr;
    void (*QueryUnload)(Form&, bool& cancel) = nullptr;  // may refuse the closing
    void (*Unload)(Form&) = nullptr;                     // after it is gone from the screen
    void (*Wheel)(Form&, int delta) = nullptr;

    // focus bookkeeping
    bool left = false;           // the active control's leave has run, nothing was typed since
    unsigned focus_moves = 0;    // counts the moves, to see one made inside a handler
    Control* leaving = nullptr;  // control whose leave is running; what the leave writes into it is no typing
};

// --- finding controls
// The control of that name and row (-1 for one alone); nullptr when there is none.
Control* find_control(Form& form, std::string_view name, int row = -1);
// Visible itself, and on the page shown.
bool on_show(const Control& c);
bool can_take_focus(const Control& c);
// Among controls with a tab stop that can take the focus, the one with the lowest tab index not lower than
// from. nullptr when there is none.
Control* next_stop(Form& form, int from);

// --- the focus
// Moves it as code does: leave of the active control, then enter of this one. Nothing when it cannot take
// the focus or has it. A leave that moved the focus itself ends the move.
void set_focus(Control& c);
// Runs the leave of the active control without moving on, once per stay unless something is typed, or
// written into it from outside its leave.
void commit_field(Form& form);
// Tab and Shift+Tab: the leave first, then the next stop is looked for, round the end.
void move_focus(Form& form, bool forward);

// --- building a form from a table
struct Part {
    Control* control;
    std::string_view name;
    ControlKind kind;
    std::string_view caption = {};
    InputMode mode = InputMode::none;
    int max_length = 0;
    bool tab_stop = true;
    Handler Click = nullptr, GotFocus = nullptr, LostFocus = nullptr;
    bool cancel = false;  // the button that Escape clicks
    bool first = false;   // has the focus when the form comes up; else the first stop has it
};
// Makes form and controls afresh, whatever they held; the form is not loaded. The tab order is the table's.
void build_form(Form& form, std::string_view name, std::span<const Part> parts, void (*Load)(Form&));
// Enters a control into its form, with its kind, name and row.
Control& add_control(Form& form, Control& c, ControlKind kind, std::string_view name, int row = -1);

// --- the life of forms; open_forms has the one on top last
inline std::vector<Form*> open_forms;
void load_form(Form& form);  // runs Load once
void show_form(Form& form);  // loads, shows, not modal; a form without a focus gives it to its first stop
// Loads, shows and runs the host's modal loop until the form is closed or hidden, or the process ends.
void show_modal(Form& form);
// Asks QueryUnload; false when it refused. Else the form is gone.
bool unload_form(Form& form);
void hide_form(Form& form);  // keeps it loaded
Form* top_form();            // nullptr without one
void set_form_enabled(Form& form, bool on);
void set_form_caption(Form& form, std::string_view caption);
// The caption of お知らせ on the form on top; nothing when it has none.
void set_notice_of_active_form(std::string_view text);
// A fresh start for another run in the same process: no form is loaded (no handler runs), the process has
// not ended, no event has failed, and event_copies is empty. The host stays.
void reset_screen();

// --- the end
// Sets the flag, closes all forms, makes every loop leave. Only main returns a status.
void end_process();
bool process_ended();

// --- dispatch
// What the floor above does around an event: keep a copy of its records, put it back after a failure that
// has written nothing, and draw the screen anew.
struct EventCopies {
    void (*keep)() = nullptr;
    void (*restore)() = nullptr;
};
inline EventCopies event_copies;
// Runs one operator event. A RunFailure, database or file error inside shows its text in a box; at the
// outermost event, when no statement was written to the business database, the kept copies, the focus and
// the page on show are restored first. The logs are forced when the outermost event returns. Nothing runs
// after the end of the process.
void dispatch(const std::function<void()>& event);
// Forces the logs now: before a modal or wait loop takes input, before a sibling starts.
void force_logs_now();
bool failed_in_dispatch();  // an event has failed since the process began

// --- operator events; each is one dispatch. Nothing happens on a form that is disabled, or on a control
// that is disabled or not on show; but a press of a button first commits the active field, which may wake it.
enum class Key {
    // clang-format off
    Enter, Tab, ShiftTab, Up, Down, Escape, Ctrl, Space, Delete,
    F1, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11, F12
    // clang-format on
};
void press_key(Form& form, Key key);
void type_text(Form& form, std::string_view text);   // over the content of the active control, key by key
void paste_into(Form& form, std::string_view text);  // over the content of the active control
void click(Control& c);
void double_click(Control& c);
void drop_down(Form& form);          // of the active control
void choose(Control& c, int entry);  // entry of a combo, page of a tab strip, an option
void select_item(Control& list, int item);
void turn_wheel(Form& form, int delta);  // one step, whatever the size; negative is toward the operator
void scroll_to(Control& bar, int position);
bool close_form(Form& form);   // by its frame; false when it was refused
void press_focus(Control& c);  // a click of the mouse into a field

}  // namespace kalvane
