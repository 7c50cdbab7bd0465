// The window system of this test process, without a display, and an operator's hands on it.
#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "operator/operator.h"
#include "support/seat.h"
#include "window/hands.h"
#include "window/windows.h"

namespace kalvane::test {

inline const Installation& demonstration() {
    static const Installation made;
    return made;
}

struct WindowSystem : testing::Environment {
    void TearDown() override { stop_window_system(); }
};

// One for the process; the platform cannot be started twice.
inline const Hands& real_hands() {
    static const Hands hands = [] {
        setenv("QT_QPA_PLATFORM", std::getenv("KALVANE_INPUT_METHOD") ? "xcb" : "offscreen", 1);
        static int one = 1;
        static char name[] = "test_window";
        static char* names[] = {name, nullptr};
        if (!start_window_system(one, names, {1366, 768})) std::abort();
        testing::AddGlobalTestEnvironment(new WindowSystem);
        return window_hands();
    }();
    return hands;
}

struct Played {
    int status = 0;
    std::string out, err;
};

inline Played play(const std::string& text, const Hands* hands, const std::string& file = "s") {
    demonstration().restore();
    ScriptRun run;
    run.file = file;
    run.text = text;
    run.program_path = demonstration().root() + "/prgbin/KalvaneInvoiceEntry";
    run.hands = hands;
    std::ostringstream out, err;
    Played played;
    played.status = run_script(run, out, err);
    played.out = out.str();
    played.err = err.str();
    return played;
}

}  // namespace kalvane::test
