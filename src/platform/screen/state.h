// What the screen layer itself remembers between calls; for its own files only.
#pragma once
#include <vector>

namespace kalvane {

struct Form;

struct ScreenState {
    std::vector<Form*> loaded_forms;  // shown or hidden
    bool ended = false;
    bool failed = false;  // an event has failed
    int depth = 0;        // events on the stack
};
inline ScreenState screen_state;

}  // namespace kalvane
