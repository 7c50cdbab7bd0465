// KalvaneInvoiceEntry: the entry screen in its window.
#include <QApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <cstdlib>
#include <iostream>

#include "entry/entry.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "platform/os/termination.h"
#include "records/run_context.h"
#include "screen/screen_model.h"
#include "window/hands.h"
#include "window/qt_host.h"
#include "window/windows.h"

namespace {

using namespace kalvane;

// What is still open is closed in order.
void finish() {
    end_process();
    if (実行環境.主接続中 || 実行環境.設定接続中) 強制終了();
}

// The platform ends the process by itself when its display goes away, windows and all.
void finish_at_exit() {
    finish();
    if (!window_state.application) return;
    std::cerr << "the display has gone away" << std::endl;
    std::_Exit(EXIT_FAILURE);
}

// The operator is asked where the session lets him answer.
void session_ends(QSessionManager& session) {
    if (session.allowsInteraction() && takes_input(frmKalvaneInvoiceEntry)) {
        bool closed = false;
        act([&closed] { closed = close_form(frmKalvaneInvoiceEntry); });
        if (!closed) session.cancel();
        session.release();
    } else if (session.allowsErrorInteraction() && !open_forms.empty() && !process_ended()) {
        session.cancel();
        session.release();
    } else {
        end_process();
    }
}

std::string joined(int argc, char** argv) {
    std::string text;
    for (int i = 1; i < argc; ++i) text.append(i > 1 ? " " : "").append(argv[i]);
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    // the command line is the program's own: none of it is the platform's
    int one = 1;
    if (!start_window_system(one, argv, {})) return EXIT_FAILURE;
    os::set_executable_path(argv[0]);
    os::set_command_line(joined(argc, argv));
    host = window_host();
    std::atexit(finish_at_exit);
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, qApp, session_ends);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp, [] { end_process(); });
    const int handle = os::catch_termination();
    QSocketNotifier termination(handle, QSocketNotifier::Read);
    QObject::connect(&termination, &QSocketNotifier::activated, qApp, [&termination] {
        termination.setEnabled(false);
        end_process();
    });
    reset_run();
    起動処理();
    while (!process_ended()) wait_turn();
    finish();
    termination.setEnabled(false);
    host = {};
    stop_window_system();
    return EXIT_SUCCESS;
}
