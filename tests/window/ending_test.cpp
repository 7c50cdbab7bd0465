// The program's own process, ended from outside: by a signal, by the end of the desktop's session, by the
// loss of its display. Each way leads to the end row.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSessionManager>
#include <cstdlib>

#include "window/seat.h"

int kalvane_main(int argc, char** argv);  // the program's main, built under this name

namespace kalvane {
namespace {

std::string ending;

// In the child: the program, which meets its end at its first turn.
[[noreturn]] void run_program() {
    ending = std::getenv("KALVANE_ENDING");
    window_state.turn = [] {
        window_state.turn = nullptr;
        if (ending == "signal") raise(SIGTERM);
        if (ending == "session") qApp->commitDataRequest(*qApp->findChild<QSessionManager*>());
        if (ending == "display") std::exit(EXIT_FAILURE);  // as the platform does
    };
    char* arguments[] = {std::getenv("KALVANE_PROGRAM"), nullptr};
    _exit(kalvane_main(1, arguments));
}

TEST(Ending, ReachesTheEndRow) {
    if (std::getenv("KALVANE_ENDING")) run_program();
    const test::Installation at;
    for (const auto& [way, status] : {std::pair{"signal", 0}, {"session", 0}, {"display", EXIT_FAILURE}}) {
        SCOPED_TRACE(way);
        at.restore();
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            setenv("KALVANE_ENDING", way, 1);
            setenv("KALVANE_PROGRAM", (at.root() + "/prgbin/KalvaneInvoiceEntry").c_str(), 1);
            setenv("QT_QPA_PLATFORM", "offscreen", 1);
            alarm(60);  // one that does not end
            execl("/proc/self/exe", "test_window", "--gtest_filter=Ending.*", nullptr);
            _exit(127);
        }
        int ended = -1;
        ASSERT_EQ(waitpid(child, &ended, 0), child);
        EXPECT_TRUE(WIFEXITED(ended) && WEXITSTATUS(ended) == status) << ended;
        EXPECT_EQ(at.config("SELECT 摘要 FROM プログラム稼動履歴 ORDER BY rowid"), "開始 \n終了");
        EXPECT_EQ(at.main("SELECT COUNT(*) FROM 使用状況 WHERE 終了日時 <> ''"), "1");
    }
}

}  // namespace
}  // namespace kalvane
