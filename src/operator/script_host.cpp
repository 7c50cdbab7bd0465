// The scripted operator in front of the program: its boxes, loops and launches take the script's lines.
#include <algorithm>

#include "operator/run.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/screen/form.h"

namespace kalvane::script {
namespace {

// One turn of a loop of the program: the next line. A list window stands open until it is closed; a box, a
// wait and any other modal form want their answer.
void turn() {
    Run& run = *running;
    const Form* top = top_form();
    if (!take_line(run)) out_of_lines(run, run.waiting || !top || !top->name.starts_with("wnd"));
}

// The box waits while the loop runs.
template <class Loop>
void wait_for(Waiting& box, Loop loop) {
    Run& run = *running;
    Waiting* outer = run.waiting;
    run.waiting = &box;
    loop();
    run.waiting = outer;
}

void take_turns(const Waiting& box) {
    while (!box.answered && !process_ended()) turn();
}

bool show_box(const std::string& text, Buttons buttons, bool default_yes) {
    Waiting box;
    box.kind = buttons == Buttons::yes_no ? Waiting::Kind::yes_no : Waiting::Kind::ok;
    box.text = text;
    const auto shown = running->hands.host.message_box;
    wait_for(box, [&] {
        if (shown)
            box.yes = shown(text, buttons, default_yes);
        else
            take_turns(box);
    });
    return box.yes;
}

std::optional<std::string> show_dialog() {
    Waiting dialog;
    dialog.kind = Waiting::Kind::dialog;
    wait_for(dialog, [&] { take_turns(dialog); });
    return dialog.path;
}

void run_modal(Form& form) {
    while (form.visible && !process_ended()) turn();
}

void pump_lines(Pump what) {
    if (what == Pump::all && !process_ended()) turn();
}

void launch(const os::Launch& launch) {
    Run& run = *running;
    if (std::find(run.missing.begin(), run.missing.end(), launch.program) != run.missing.end())
        throw os::FileError(53, "ファイルが見つかりません。");
    run.launched.push_back(launch);
    if (run.launch_real) os::start_program(launch);
}

}  // namespace

Hands bare_hands() {
    Hands hands;
    hands.press_key = press_key;
    hands.type_text = type_text;
    hands.paste_into = paste_into;
    hands.press_focus = press_focus;
    hands.click = click;
    hands.double_click = double_click;
    hands.drop_down = drop_down;
    hands.choose = choose;
    hands.select_item = select_item;
    hands.turn_wheel = turn_wheel;
    hands.scroll_to = scroll_to;
    hands.close_form = close_form;
    return hands;
}

void install_host() {
    const Hands& hands = running->hands;
    host = {};
    host.message_box = show_box;
    host.run_modal = hands.host.run_modal ? hands.host.run_modal : run_modal;
    host.pump = hands.host.pump ? hands.host.pump : pump_lines;
    host.placement = hands.host.placement;
    if (hands.set_turn) hands.set_turn(turn);
    host.sleep = os::sleep_ms;
    host.pick_file = [](std::string_view, const std::vector<std::pair<std::string, std::string>>&) {
        return show_dialog();
    };
    host.pick_folder = [](std::string_view, std::string_view) { return show_dialog(); };
    os::launcher = launch;
}

void remove_host() {
    if (running->hands.set_turn) running->hands.set_turn(nullptr);
    host = {};
    os::launcher = nullptr;
}

}  // namespace kalvane::script
