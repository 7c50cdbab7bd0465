// The acts of a scripted operator as function pointers: straight on the models, or as real events on the
// widgets of the window. No Qt stands in this header, so that the script interpreter needs none.
#pragma once
#include <string>
#include <string_view>

#include "platform/screen/form.h"
#include "platform/screen/host.h"

namespace kalvane {

struct Hands {
    // as the operator events of the forms
    void (*press_key)(Form& form, Key key) = nullptr;
    void (*type_text)(Form& form, std::string_view text) = nullptr;
    void (*paste_into)(Form& form, std::string_view text) = nullptr;
    void (*press_focus)(Control& c) = nullptr;
    void (*click)(Control& c) = nullptr;
    void (*double_click)(Control& c) = nullptr;
    void (*drop_down)(Form& form) = nullptr;
    void (*choose)(Control& c, int entry) = nullptr;
    void (*select_item)(Control& list, int item) = nullptr;
    void (*turn_wheel)(Form& form, int notches) = nullptr;
    void (*scroll_to)(Control& bar, int position) = nullptr;
    bool (*close_form)(Form& form) = nullptr;

    // --- of the window alone
    // Boxes, modal runs and waits as loops of the window; its members are empty without one.
    ScreenHost host;
    // What the loops do at each turn in place of waiting for input; nullptr gives the input back.
    void (*set_turn)(void (*turn)()) = nullptr;
    // Presses the button of the message box on top: OK and はい, or いいえ.
    void (*answer_box)(bool yes) = nullptr;
    void (*close_box)() = nullptr;  // by its frame
    // Draws what the models say; the operator's own keys and clicks wait.
    void (*settle)() = nullptr;
    // Writes the windows on the screen as a PNG. False when the file cannot be written.
    bool (*screenshot)(const std::string& native_path) = nullptr;
};

struct WindowSize {
    int width = 0, height = 0;  // of the main window in pixels; 0 fills the screen
};
// Starts the window system of this process. On failure the reason stands on standard error, false is
// returned or, where the platform allows no other way, the process ends with status 1; nothing has been
// opened yet in either case.
bool start_window_system(int& argc, char** argv, WindowSize size);
void stop_window_system();
// The hands that act on the real window; the window system has been started.
Hands window_hands();

}  // namespace kalvane
