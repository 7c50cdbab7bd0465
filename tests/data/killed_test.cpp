// A process killed in the middle of its work: the databases open again, and every statement that had
// returned is there.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/start_run.h"

namespace kalvane {
namespace {

using namespace test;

// In the child: a registration that ends in a SIGKILL before its n-th writing statement. Tells each writing
// statement through the pipe once it has returned; the status is 0 when there was no n-th.
[[noreturn]] void register_and_die(const Installation& at, int n, int pipe_end) {
    Seat seat(at);
    int writes = 0;
    std::string running;
    ado::hook.before = [&](const ado::Connection& c, std::string_view text) {
        if (c.name != "main" && c.name != "config") return;
        if (!running.empty() && write(pipe_end, running.data(), running.size()) < 0) _exit(2);
        running.clear();
        if (text.starts_with("SELECT")) return;
        if (writes++ == n) raise(SIGKILL);
        running = c.name + " " + std::string(text.substr(0, text.find('('))) + "\n";
    };
    seat.enter(seat.screen().得意先コード, "19");
    seat.line(0, "P0043", "3");
    seat.line(1, "P0049", "12");
    click(seat.screen().btn_登録);
    _exit(0);  // without an orderly end
}

// Runs the child to its end; the statements that had returned. Tells whether it was killed.
std::vector<std::string> returned_before_death(const Installation& at, int n, bool& killed) {
    int ends[2], status = 0;
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) register_and_die(at, n, ends[1]);
    close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t got; (got = read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    close(ends[0]);
    EXPECT_EQ(waitpid(child, &status, 0), child);
    killed = WIFSIGNALED(status);
    EXPECT_TRUE(killed ? WTERMSIG(status) == SIGKILL : status == 0);
    return lines_of(text);
}

TEST(強制終了, 登録の途中) {
    const Installation at;
    const std::vector<std::string> tables{"T営業請求", "T営業請求明細", "R営業請求", "R営業請求明細",
                                          "未集計情報"};
    const auto count = [&at](const std::string& table) {
        return std::stoi(at.main("SELECT COUNT(*) FROM " + table));
    };
    const auto counter = [&at](const char* of) {
        return std::stoi(at.main(std::string("SELECT ") + of + " FROM A番号情報 WHERE 番号ID = '16240'"));
    };
    const int documents = counter("連番"), histories = counter("履歴連番");
    std::vector<int> before;
    for (const std::string& table : tables) before.push_back(count(table));
    bool killed = true;
    int n = 0;
    for (; killed && n < 100; ++n) {
        SCOPED_TRACE(n);
        at.restore();
        const auto returned = returned_before_death(at, n, killed);
        const auto times = [&returned](const std::string& head) {
            return static_cast<int>(std::count_if(returned.begin(), returned.end(),
                                                  [&](auto& line) { return line.starts_with(head); }));
        };
        for (std::size_t i = 0; i < tables.size(); ++i)
            EXPECT_EQ(count(tables[i]), before[i] + times("main INSERT INTO [" + tables[i] + "]"))
                << tables[i];
        const int counted = times("main UPDATE A番号情報");  // the document, then its history
        EXPECT_EQ(counter("連番"), documents + (counted > 0 ? 1 : 0));
        EXPECT_EQ(counter("履歴連番"), histories + (counted > 1 ? 1 : 0));
        // the start row was written before the watch began, and the child closes nothing
        EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム稼動履歴"),
                  std::to_string(1 + times("config INSERT INTO プログラム稼動履歴")));
        constexpr const char* check = "SELECT * FROM pragma_integrity_check";
        EXPECT_EQ(at.main(check) + at.config(check), "okok");
        if (n % 4 != 0) continue;
        Start start(at.root());
        EXPECT_TRUE(start.running() && Start::boxes.empty());
    }
    EXPECT_FALSE(killed);
    EXPECT_GT(n, 9);  // numbers, head, lines and history rows were all reached
}

}  // namespace
}  // namespace kalvane
