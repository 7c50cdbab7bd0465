// A program at its first field, the window's own host in front of it, and events as the platform sends them.
#pragma once
#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>

#include "screen/screen_model.h"
#include "window/qt_host.h"
#include "window/seat.h"

namespace kalvane::test {

struct AtTheWindow : testing::Test {
    const Hands& hands = real_hands();
    EntryScreen& s = frmKalvaneInvoiceEntry;

    AtTheWindow() {
        demonstration().restore();
        start();
    }
    ~AtTheWindow() override { finish(); }
    void start() {
        reset_run();
        host = window_host();
        os::freeze_clock({{2024, 4, 10}, 9, 30, 0});
        os::set_user_name("tanaka");
        os::set_computer_name("SEAT01");
        os::set_previous_instance(false);
        os::set_executable_path(demonstration().root() + "/prgbin/KalvaneInvoiceEntry");
        os::set_command_line("");
        起動処理();
        hands.settle();
    }
    static void finish() {
        end_process();
        if (実行環境.主接続中 || 実行環境.設定接続中) 強制終了();
        sync_windows();
        window_state.turn = nullptr;
        host = {};
        os::release_clock();
        reset_run();
    }
    FormView& view() { return *view_of(s); }
    QLineEdit& edit(Control& c) { return *static_cast<QLineEdit*>(view().widget_of(c)); }
    static void key(QWidget* to, int key, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(to, &event);
    }
    static void press(QWidget* to) {
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(1, 1), to->mapToGlobal(QPointF(1, 1)),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(to, &event);
    }
    static void compose(QWidget* to, const QString& shown, const QString& committed) {
        QInputMethodEvent event(shown, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(to, &event);
    }
    static void drop(const QPointer<QWidget>& to, const QString& text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(to, &enter);
        QDropEvent event(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (to && enter.isAccepted()) QCoreApplication::sendEvent(to, &event);
    }
    void enter(Control& c) {
        press_focus(c);
        hands.settle();
    }
    void fill_head() {
        enter(s.得意先コード);
        hands.type_text(s, "3");
        hands.press_key(s, Key::Enter);
    }
};

}  // namespace kalvane::test
