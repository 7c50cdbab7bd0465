// One start of the program with all that surrounds it in the test's hands, and a record of the statements
// that it sends.
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

// Told the position of a statement (from 0) and the statement, "main SELECT …", "config …"; true makes it
// fail.
using Fails = std::function<bool(std::size_t, const std::string&)>;

inline constexpr const char* failure_text = "倒れました";

struct StatementRecord {
    std::vector<std::string> statements;

    explicit StatementRecord(Fails fails) {
        ado::hook.before = [this, fails = std::move(fails)](const ado::Connection& c, std::string_view text) {
            if (c.name != "main" && c.name != "config") return;
            statements.push_back(c.name + " " + std::string(text));
            if (fails && fails(statements.size() - 1, statements.back())) throw ado::Error(7, failure_text);
        };
    }
};

class Start : public StatementRecord, public Seat {
  public:
    explicit Start(const std::string& root, const SeatSettings& settings = {}, Fails fails = nullptr)
        : StatementRecord(std::move(fails)), Seat(root, settings) {}
    ~Start() {
        end();
        os::file_hook = {};
        ado::lock_wait_scale = 1.0;
    }

    bool running() const { return !process_ended() && frmKalvaneInvoiceEntry.visible; }
    void end() const {
        if (!process_ended()) 強制終了();
    }
};

inline bool all_closed() {
    return !(実行環境.主接続.is_open() || 実行環境.設定接続.is_open() || 実行環境.主接続中 ||
             実行環境.設定接続中);
}

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
