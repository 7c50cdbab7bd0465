// One start of the program with all that surrounds it in the test's hands, and a record of the statements
// that it sends and the boxes that it shows. Yes-no boxes are answered by `yes`.
#pragma once
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/files.h"
#include "support/seat.h"
#include "support/table.h"

namespace kalvane::test {

struct StartSettings {
    std::string command_line = {};
    std::string program = "/prgbin/KalvaneInvoiceEntry";  // below the root
    std::string user = "tanaka";
    bool previous_instance = false;
    bool ends_at_a_box = false;  // somebody ends the process while a box stands
    // told the position of a statement (from 0), its connection and its text; true makes it fail
    std::function<bool(int, std::string_view, std::string_view)> fails = nullptr;
};

inline constexpr const char* failure_text = "倒れました";

class Start {
  public:
    inline static std::vector<std::string> boxes;
    inline static bool yes = false, ends = false;
    std::vector<std::string> statements;  // "main SELECT …", "config …"

    explicit Start(const std::string& root, StartSettings settings = {}) {
        reset_run();
        boxes.clear();
        yes = false;
        host = {};
        ends = settings.ends_at_a_box;
        host.message_box = [](const std::string& text, Buttons buttons, bool) {
            boxes.push_back(text);
            if (ends) 強制終了();
            return buttons == Buttons::ok || yes;
        };
        os::freeze_clock({{2024, 4, 10}, 9, 30, 0});
        os::set_user_name(settings.user);
        os::set_computer_name("SEAT01");
        os::set_previous_instance(settings.previous_instance);
        os::set_executable_path(root + settings.program);
        os::set_command_line(settings.command_line);
        ado::hook.before = [this, fails = settings.fails](const ado::Connection& c, std::string_view text) {
            if (c.name != "main" && c.name != "config") return;
            statements.push_back(c.name + " " + std::string(text));
            if (fails && fails(static_cast<int>(statements.size()) - 1, c.name, text))
                throw ado::Error(7, failure_text);
        };
        起動処理();
    }
    ~Start() {
        end();
        ado::hook = {};
        os::file_hook = {};
        ado::lock_wait_scale = 1.0;
        host = {};
        os::release_clock();
        reset_run();
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    bool running() const { return !process_ended() && frmKalvaneInvoiceEntry.visible; }
    void end() const {
        if (!process_ended()) 強制終了();
    }
};

inline std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(joined(text));
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

// What the run history tells, in the order of writing.
inline std::vector<std::string> history_of(const Installation& at) {
    return lines_of(at.config("SELECT 摘要 FROM プログラム稼動履歴 ORDER BY rowid"));
}

}  // namespace kalvane::test
