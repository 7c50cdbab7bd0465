// Boxes, modal loops, waits and file dialogs over Qt.
#include "window/qt_host.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QThread>

#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/os/process.h"
#include "platform/screen/form.h"
#include "window/box_view.h"
#include "window/look.h"
#include "window/windows.h"

namespace kalvane {
namespace {

bool show_box(const std::string& text, Buttons buttons, bool default_yes) {
    sync_windows();
    BoxView box(text, buttons, default_yes, window_on_top());
    window_state.boxes.push_back(&box);
    box.show();
    box.activateWindow();
    while (!box.answered() && !process_ended()) wait_turn();
    window_state.boxes.pop_back();
    box.hide();
    give_keys_to_top();
    return box.yes();
}

void run_modal(Form& form) {
    while (form.visible && !process_ended()) wait_turn();
    sync_windows();
}

void pump_events(Pump what) {
    sync_windows();
    if (what == Pump::paint) {
        // a window that was just opened has to be drawn at once: the loop that does it later does not run
        for (auto& [form, view] : window_state.views)
            if (view->isVisible()) view->repaint();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::ExcludeSocketNotifiers);
        return;
    }
    if (window_state.turn) window_state.turn();
    QCoreApplication::processEvents(window_state.turn ? QEventLoop::ExcludeUserInputEvents
                                                      : QEventLoop::AllEvents);
    sync_windows();
}

// The window goes on painting; keys and clicks are kept for later.
void sleep(int milliseconds) {
    if (os::clock_frozen()) return os::sleep_ms(milliseconds);
    constexpr int slice = 20;
    QElapsedTimer passed;
    passed.start();
    while (passed.elapsed() < milliseconds && !process_ended()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(slice);
    }
}

// Runs the dialog as a loop of this host. "" when it was cancelled.
QString picked(QFileDialog& dialog) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowModality(Qt::ApplicationModal);
    ++window_state.dialogs;
    dialog.show();
    while (dialog.isVisible() && !process_ended()) wait_turn();
    --window_state.dialogs;
    if (process_ended() || dialog.result() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().front();
}

std::optional<std::string> program_file(const QString& native) {
    if (native.isEmpty()) return std::nullopt;
    return os::program_path(look::utf8(native));
}

std::optional<std::string> pick_file(std::string_view start,
                                     const std::vector<std::pair<std::string, std::string>>& filters) {
    QFileDialog dialog(window_on_top(), QString(), look::text(os::native_path(start)));
    dialog.setFileMode(QFileDialog::ExistingFile);
    QStringList names;
    for (const auto& [text, pattern] : filters)
        names << look::text(text) + QStringLiteral(" (") +
                     look::text(pattern).replace(QLatin1Char(';'), QLatin1Char(' ')) + QStringLiteral(")");
    if (!names.isEmpty()) dialog.setNameFilters(names);
    return program_file(picked(dialog));
}

std::optional<std::string> pick_folder(std::string_view title, std::string_view start) {
    QFileDialog dialog(window_on_top(), look::text(title), look::text(os::native_path(start)));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return program_file(picked(dialog));
}

std::optional<Placement> placement(const Control& c) {
    for (const Placed& p : arrange(*c.form).controls)
        if (p.control == &c)
            return Placement{p.at.x * twips_a_pixel, p.at.y * twips_a_pixel, p.at.w * twips_a_pixel,
                             p.at.h * twips_a_pixel};
    return std::nullopt;
}

}  // namespace

ScreenHost window_host() {
    return {.message_box = show_box,
            .run_modal = run_modal,
            .pump = pump_events,
            .sleep = sleep,
            .placement = placement,
            .pick_file = pick_file,
            .pick_folder = pick_folder};
}

}  // namespace kalvane
