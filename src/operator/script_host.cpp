// The scripted operator in front of the program: its boxes, loops and launches take the script's lines.
#include <algorithm>

#include "operator/run.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/screen/form.h"

namespace kalvane::script {
namespace {

// Takes lines until the box is answered or the process has ended.
void wait_for(Waiting& box) {
    Run& run = *running;
    Waiting* outer = run.waiting;
    run.waiting = &box;
    while (!box.answered && !process_ended())
        if (!take_line(run)) out_of_lines(run, true);
    run.waiting = outer;
}

bool show_box(const std::string& text, Buttons buttons, bool) {
    Waiting box;
    box.kind = buttons == Buttons::yes_no ? Waiting::Kind::yes_no : Waiting::Kind::ok;
    box.text = text;
    wait_for(box);
    return box.yes;
}

std::optional<std::string> show_dialog() {
    Waiting dialog;
    dialog.kind = Waiting::Kind::dialog;
    wait_for(dialog);
    return dialog.path;
}

// A list window stands open until it is closed; any other modal form is a box that wants its answer.
void run_modal(Form& form) {
    while (form.visible && !process_ended())
        if (!take_line(*running)) out_of_lines(*running, !form.name.starts_with("wnd"));
}

void pump_lines(Pump what) {
    if (what == Pump::all && !process_ended() && !take_line(*running)) out_of_lines(*running, true);
}

void launch(const os::Launch& launch) {
    Run& run = *running;
    if (std::find(run.missing.begin(), run.missing.end(), launch.program) != run.missing.end())
        throw os::FileError(53, "ファイルが見つかりません。");
    run.launched.push_back(launch);
    if (run.launch_real) os::start_program(launch);
}

}  // namespace

void install_host() {
    host = {};
    host.message_box = show_box;
    host.run_modal = run_modal;
    host.pump = pump_lines;
    host.sleep = os::sleep_ms;
    host.pick_file = [](std::string_view, const std::vector<std::pair<std::string, std::string>>&) {
        return show_dialog();
    };
    host.pick_folder = [](std::string_view, std::string_view) { return show_dialog(); };
    os::launcher = launch;
}

void remove_host() {
    host = {};
    os::launcher = nullptr;
}

}  // namespace kalvane::script
