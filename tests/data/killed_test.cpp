// A process killed in the middle of its work: the databases open again, and every statement that had
// returned is there.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/text.h"
#include "startup/start_run.h"
#include "support/seat.h"

namespace kalvane {
namespace {

using test::Installation;
using test::lines_of;
using test::Seat;

// In the child: a registration that ends in a SIGKILL before its n-th writing statement. Tells each writing
// statement through the pipe once it has returned; the status is 0 when there was no n-th.
[[noreturn]] void register_and_die(const Installation& at, int n, int pipe_end) {
    Seat seat(at);
    int writes = 0;
    std::string running;
    ado::hook.before = [&](const ado::Connection& c, std::string_view text) {
        if (c.name != "main" && c.name != "config") return;
        if (!running.empty()) {
            running += '\n';
            if (write(pipe_end, running.data(), running.size()) < 0) _exit(2);
            running.clear();
        }
        if (text.starts_with("SELECT")) return;
        if (writes++ == n) raise(SIGKILL);
        running = c.name + " " + std::string(text.substr(0, text.find('(')));
    };
    seat.enter(seat.screen().得意先コード, "19");
    seat.line(0, "P0043", "3");
    seat.line(1, "P0049", "12");
    click(seat.screen().btn_登録);
    _exit(0);  // without an orderly end
}

std::string read_all(int end) {
    std::string text;
    char buffer[4096];
    for (ssize_t got; (got = read(end, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

int number(const std::string& text) {
    return static_cast<int>(Val(text));
}
int times(const std::vector<std::string>& lines, const std::string& head) {
    return static_cast<int>(
        std::count_if(lines.begin(), lines.end(), [&](const std::string& l) { return l.starts_with(head); }));
}

TEST(強制終了, 登録の途中) {
    const Installation at;
    const std::vector<std::string> tables{"T営業請求", "T営業請求明細", "R営業請求", "R営業請求明細",
                                          "未集計情報"};
    std::vector<int> before;
    for (const std::string& table : tables)
        before.push_back(number(at.main("SELECT COUNT(*) FROM " + table)));
    const std::string document_counter = "SELECT 連番 FROM A番号情報 WHERE 番号ID = '16240'",
                      history_counter = "SELECT 履歴連番 FROM A番号情報 WHERE 番号ID = '16240'";
    const int documents = number(at.main(document_counter)), histories = number(at.main(history_counter));
    bool killed = true;
    int n = 0;
    for (; killed && n < 100; ++n) {
        SCOPED_TRACE(n);
        at.restore();
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(ends[0]);
            register_and_die(at, n, ends[1]);
        }
        close(ends[1]);
        const std::vector<std::string> returned = lines_of(read_all(ends[0]));
        close(ends[0]);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        killed = WIFSIGNALED(status);
        ASSERT_TRUE(killed ? WTERMSIG(status) == SIGKILL : status == 0);

        for (std::size_t i = 0; i < tables.size(); ++i)
            EXPECT_EQ(number(at.main("SELECT COUNT(*) FROM " + tables[i])),
                      before[i] + times(returned, "main INSERT INTO [" + tables[i] + "]"))
                << tables[i];
        const int counted = times(returned, "main UPDATE A番号情報");  // the document, then its history
        EXPECT_EQ(number(at.main(document_counter)), documents + (counted > 0 ? 1 : 0));
        EXPECT_EQ(number(at.main(history_counter)), histories + (counted > 1 ? 1 : 0));
        // the start row was written before the watch began, and the child closes nothing
        EXPECT_EQ(at.config("SELECT COUNT(*) FROM プログラム稼動履歴"),
                  std::to_string(1 + times(returned, "config INSERT INTO プログラム稼動履歴")));
        EXPECT_EQ(at.main("SELECT * FROM pragma_integrity_check"), "ok");
        EXPECT_EQ(at.config("SELECT * FROM pragma_integrity_check"), "ok");
        if (n % 4 == 0) {
            test::Start start(at.root());
            EXPECT_TRUE(start.running());
            EXPECT_TRUE(test::Start::boxes.empty());
        }
    }
    EXPECT_FALSE(killed);
    EXPECT_GT(n, 9);  // numbers, head, lines and history rows were all reached
}

}  // namespace
}  // namespace kalvane
