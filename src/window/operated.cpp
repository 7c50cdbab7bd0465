// The hands of the scripted operator on the window: each act is made of the events that a person's hand makes
// on the same widget. Where a control has no widget, or the hand none that fits, the model is told directly.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QWheelEvent>
#include <algorithm>
#include <array>

#include "base/text.h"
#include "window/box_view.h"
#include "window/hands.h"
#include "window/look.h"
#include "window/qt_host.h"
#include "window/windows.h"

namespace kalvane {
namespace {

// The widget under the hands may be gone when an event returns: what it started may have closed it.
void send_key(const QPointer<QWidget>& to, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
              const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text),
        release(QEvent::KeyRelease, key, modifiers, text);
    if (to) QCoreApplication::sendEvent(to, &press);
    if (to) QCoreApplication::sendEvent(to, &release);
}

void send_mouse(const QPointer<QWidget>& to, QEvent::Type type, const QPoint& at) {
    if (!to) return;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, to->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(to, &event);
}

void send_click(const QPointer<QWidget>& to, const QPoint& at) {
    send_mouse(to, QEvent::MouseButtonPress, at);
    send_mouse(to, QEvent::MouseButtonRelease, at);
}

Mirror* seen(Control& c) {
    sync_windows();
    FormView* view = c.form ? view_of(*c.form) : nullptr;
    Mirror* m = view ? view->mirror_of(c) : nullptr;
    return m && !m->widget->isHidden() ? m : nullptr;
}

// Where the keys of a form go: the widget of its active control, else the window itself.
QWidget* key_target(Form& form) {
    sync_windows();
    FormView* view = view_of(form);
    if (!view) return nullptr;
    QWidget* widget = form.active ? view->widget_of(*form.active) : nullptr;
    return widget && !widget->isHidden() ? widget : view;
}

Mirror* active_editor(Form& form) {
    Mirror* m = form.active && takes_text(*form.active) ? seen(*form.active) : nullptr;
    return m && m->widget->isEnabled() ? m : nullptr;
}

struct QtKey {
    Key key;
    int qt;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    const char* text = "";
};
constexpr std::array qt_keys{
    QtKey{Key::Enter, Qt::Key_Return, Qt::NoModifier, "\r"},
    QtKey{Key::Tab, Qt::Key_Tab, Qt::NoModifier, "\t"},
    QtKey{Key::ShiftTab, Qt::Key_Backtab, Qt::ShiftModifier},
    QtKey{Key::Up, Qt::Key_Up},
    QtKey{Key::Down, Qt::Key_Down},
    QtKey{Key::Escape, Qt::Key_Escape},
    QtKey{Key::Ctrl, Qt::Key_Control, Qt::ControlModifier},
    QtKey{Key::Space, Qt::Key_Space, Qt::NoModifier, " "},
    QtKey{Key::Delete, Qt::Key_Delete},
};

void press_real_key(Form& form, Key key) {
    QWidget* to = key_target(form);
    if (!to) return press_key(form, key);
    if (key == Key::Delete)  // "empties the field"
        if (Mirror* m = active_editor(form)) select_content(*m);
    const auto named =
        std::find_if(qt_keys.begin(), qt_keys.end(), [key](const QtKey& k) { return k.key == key; });
    if (named != qt_keys.end())
        return send_key(to, named->qt, named->modifiers, QString::fromLatin1(named->text));
    send_key(to, Qt::Key_F1 + static_cast<int>(key) - static_cast<int>(Key::F1));
}

void type_real_text(Form& form, std::string_view text) {
    Mirror* m = active_editor(form);
    if (!m) return;
    select_content(*m);
    for (std::string_view character : characters(text)) {
        if (valid_utf8(character) != character) continue;
        if (character == "\n" && form.active->kind != ControlKind::xText) continue;  // no character of a line
        const char32_t code = code_point(character);
        const int key = code < 0x80 ? QChar(static_cast<char16_t>(code)).toUpper().unicode() : 0;
        if (QWidget* to = key_target(form))
            send_key(to, character == "\n" ? Qt::Key_Return : key, Qt::NoModifier, look::text(character));
    }
}

void paste_real_text(Form& form, std::string_view text) {
    Mirror* m = active_editor(form);
    if (!m) return;
    QGuiApplication::clipboard()->setText(look::text(valid_utf8(text)));
    const bool selected = form.active->select_all;
    const std::string before = widget_text(*m);
    select_content(*m);
    send_key(m->widget, Qt::Key_V, Qt::ControlModifier);
    // what is refused leaves the cursor where it was
    m = active_editor(form);
    if (!m || selected || widget_text(*m) != before) return;
    if (auto* memo = dynamic_cast<QPlainTextEdit*>(m->widget)) memo->moveCursor(QTextCursor::End);
    if (auto* edit = dynamic_cast<QLineEdit*>(m->widget)) edit->end(false);
}

void press_into(Control& c) {
    Mirror* m = takes_text(c) ? seen(c) : nullptr;
    if (!m) return act([&] { press_focus(c); });
    send_click(m->input, m->input->rect().center());
}

// Middle of the row of a list; of the whole widget without one.
QPoint row_of(const Mirror& m, int row) {
    auto* list = dynamic_cast<QTableView*>(m.widget);
    if (!list || row < 0) return m.input->rect().center();
    const QModelIndex at = list->model()->index(row, 0);
    list->scrollTo(at);
    return list->visualRect(at).center();
}

void click_real(Control& c) {
    Mirror* m = seen(c);
    if (!m || (c.kind == ControlKind::ListView && c.selected < 0)) return act([&] { click(c); });
    send_click(m->input, row_of(*m, c.kind == ControlKind::ListView ? c.selected : -1));
}

void double_click_real(Control& c) {
    Mirror* m = seen(c);
    if (!m || (c.kind == ControlKind::ListView && c.selected < 0) ||
        (c.kind != ControlKind::ListView && !takes_text(c)))
        return act([&] { double_click(c); });
    const QPoint at = row_of(*m, c.selected);
    const QPointer<QWidget> to = m->input;
    send_click(to, at);
    send_mouse(to, QEvent::MouseButtonDblClick, at);
    send_mouse(to, QEvent::MouseButtonRelease, at);
}

void drop_down_real(Form& form) {
    if (QWidget* to = key_target(form)) send_key(to, Qt::Key_Down, Qt::AltModifier);
}

void choose_real(Control& c, int entry) {
    Mirror* m = seen(c);
    if (auto* tabs = m ? dynamic_cast<QTabBar*>(m->widget) : nullptr; tabs && entry < tabs->count())
        return send_click(tabs, tabs->tabRect(entry).center());
    if (auto* combo = m ? dynamic_cast<QComboBox*>(m->widget) : nullptr; combo && combo->isEnabled())
        return emit combo->activated(entry);
    act([&] { choose(c, entry); });
}

void select_real(Control& list, int item) {
    Mirror* m = seen(list);
    if (!m || item < 0) return act([&] { select_item(list, item); });
    send_click(m->input, row_of(*m, item));
}

void wheel_real(Form& form, int notches) {
    FormView* view = view_of(form);
    if (!view) return turn_wheel(form, notches);
    // the entries of a combo that were opened before would take the turn, as they go when a hand moves on
    if (QWidget* entries = QApplication::activePopupWidget()) entries->close();
    const int notch = notches < 0 ? -120 : 120;
    const QPoint at;  // the form itself, not a list or a text that scrolls by itself
    for (int turned = std::abs(notches); turned > 0 && !process_ended(); --turned) {
        QWheelEvent event(at, view->mapToGlobal(at), {}, {0, notch}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &event);
    }
}

void scroll_real(Control& bar, int position) {
    Mirror* m = seen(bar);
    auto* widget = m ? dynamic_cast<QScrollBar*>(m->widget) : nullptr;
    if (!widget || !widget->isEnabled() ||
        widget->value() == std::clamp(position, widget->minimum(), widget->maximum()))
        return act([&] { scroll_to(bar, position); });
    widget->setValue(position);
}

bool close_real(Form& form) {
    if (FormView* view = view_of(form))
        view->close();
    else
        close_form(form);
    return !form.visible;
}

void answer_box(bool yes) {
    QPushButton* button = window_state.boxes.empty() ? nullptr : window_state.boxes.back()->button(yes);
    if (button) send_click(button, button->rect().center());
}

void close_box() {
    if (!window_state.boxes.empty()) window_state.boxes.back()->close();
}

void settle() {
    sync_windows();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    sync_windows();
}

// All windows as they stand over each other.
bool write_picture(const std::string& path) {
    settle();
    std::vector<QWidget*> shown;
    for (Form* form : open_forms)
        if (FormView* view = view_of(*form); view && view->isVisible()) shown.push_back(view);
    for (BoxView* box : window_state.boxes) shown.push_back(box);
    if (shown.empty()) return false;
    QPixmap picture = shown.front()->grab();
    QPainter p(&picture);
    for (std::size_t i = 1; i < shown.size(); ++i) {
        const QPixmap window = shown[i]->grab();
        const QSizeF room = picture.deviceIndependentSize() - window.deviceIndependentSize();
        p.fillRect(picture.rect(), QColor(0, 0, 0, 70));
        p.drawPixmap(QPointF(room.width() / 2, room.height() / 2), window);
    }
    p.end();
    return picture.save(look::text(path), "PNG");
}

}  // namespace

Hands window_hands() {
    return {.press_key = press_real_key,
            .type_text = type_real_text,
            .paste_into = paste_real_text,
            .press_focus = press_into,
            .click = click_real,
            .double_click = double_click_real,
            .drop_down = drop_down_real,
            .choose = choose_real,
            .select_item = select_real,
            .turn_wheel = wheel_real,
            .scroll_to = scroll_real,
            .close_form = close_real,
            .host = window_host(),
            .set_turn = [](void (*turn)()) { window_state.turn = turn; },
            .answer_box = answer_box,
            .close_box = close_box,
            .settle = settle,
            .screenshot = write_picture};
}

}  // namespace kalvane
