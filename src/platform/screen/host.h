// The seam to whoever sits in front of the program: a struct of function pointers, filled by the window or
// by the scripted operator. A box, a modal form and a wait are loops of the host.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kalvane {

struct Control;
struct Form;

enum class Buttons { ok, yes_no };
enum class Pump {
    paint,  // draws, takes no input
    all,    // takes input too; for the wait for a sibling program alone
};

// Where a control is drawn on its form before any scaling, in twips.
struct Placement {
    int left = 0, top = 0, width = 0, height = 0;
};

struct ScreenHost {
    // Modal box without a title. True for OK and はい; false for いいえ and when the process ends.
    bool (*message_box)(const std::string& text, Buttons buttons, bool default_yes) = nullptr;
    // Takes input until the form is no longer shown or the process has ended.
    void (*run_modal)(Form& form) = nullptr;
    void (*pump)(Pump what) = nullptr;
    void (*sleep)(int milliseconds) = nullptr;
    // No value: the control is not drawn.
    std::optional<Placement> (*placement)(const Control& c) = nullptr;
    // File dialog: start folder, (text, pattern) pairs, the first as default. No value: cancelled.
    std::optional<std::string> (*pick_file)(
        std::string_view start, const std::vector<std::pair<std::string, std::string>>& filters) = nullptr;
    // Folder dialog: title, start folder. No value: cancelled.
    std::optional<std::string> (*pick_folder)(std::string_view title, std::string_view start) = nullptr;
};
inline ScreenHost host;

// A box with an OK button. Without a host nothing is shown.
void message_box(const std::string& text);
// A box with はい and いいえ. Without a host the answer is no.
bool ask(const std::string& text, bool default_yes);
void pump(Pump what);
void sleep_and_wait(int milliseconds);  // the host's sleep, else that of the clock

}  // namespace kalvane
