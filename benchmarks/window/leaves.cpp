// KalvaneWindowLeaves ROOT TIMES: types quantities into a document of 998 lines on the real window, and
// prints the seconds of each Enter that leaves the field, up to the end of the painting.
#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>

#include "desk.h"
#include "screen/screen_model.h"
#include "window/hands.h"
#include "window/qt_host.h"

namespace {

using namespace kalvane;

struct PaintCount : QObject {
    int painted = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        painted += event->type() == QEvent::Paint;
        return false;
    }
};

void measure(const std::string& root, int times) {
    const Hands hands = window_hands();
    const bench::Desk desk(root, window_host());
    desk.fill_document();
    EntryScreen& screen = frmKalvaneInvoiceEntry;
    hands.scroll_to(screen.scl_行, bench::QuantityEntry::first_line);
    PaintCount paints;
    qApp->installEventFilter(&paints);
    for (int n = 0; n < times; ++n) {
        const bench::QuantityEntry entry(n);
        hands.press_focus(screen.請求数量[static_cast<std::size_t>(entry.row)]);
        hands.type_text(screen, std::to_string(entry.quantity));
        hands.settle();
        paints.painted = 0;
        const double seconds = bench::seconds_of([&] {
            hands.press_key(screen, Key::Enter);
            hands.settle();
        });
        if (!entry.arrived()) throw std::runtime_error("the text did not arrive in the document");
        if (paints.painted == 0) throw std::runtime_error("nothing was painted");
        std::printf("%.9f\n", seconds);
    }
}

}  // namespace

int main(int argc, char** argv) {
    int one = 1;
    if (argc != 3 || !start_window_system(one, argv, {})) return EXIT_FAILURE;
    int status = EXIT_SUCCESS;
    try {
        measure(argv[1], std::atoi(argv[2]));
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        status = EXIT_FAILURE;
    }
    stop_window_system();
    return status;
}
