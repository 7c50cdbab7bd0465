// The operator's keys, mouse and input method on a form's window.
#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <QTabBar>
#include <QTableView>
#include <algorithm>
#include <array>
#include <optional>

#include "window/form_view.h"
#include "window/look.h"
#include "window/windows.h"

namespace kalvane {
namespace {

struct NamedKey {
    int qt;
    Key key;
};
constexpr std::array keys{
    NamedKey{Qt::Key_Return, Key::Enter},  NamedKey{Qt::Key_Enter, Key::Enter},
    NamedKey{Qt::Key_Tab, Key::Tab},       NamedKey{Qt::Key_Backtab, Key::ShiftTab},
    NamedKey{Qt::Key_Up, Key::Up},         NamedKey{Qt::Key_Down, Key::Down},
    NamedKey{Qt::Key_Escape, Key::Escape}, NamedKey{Qt::Key_Control, Key::Ctrl},
};

std::optional<Key> key_of(const QKeyEvent& event) {
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F12)
        return static_cast<Key>(static_cast<int>(Key::F1) + event.key() - Qt::Key_F1);
    if (event.key() == Qt::Key_Tab && event.modifiers() & Qt::ShiftModifier) return Key::ShiftTab;
    for (const NamedKey& k : keys)
        if (k.qt == event.key()) return k.key;
    return std::nullopt;
}

// Keys that stay with a text over several lines.
bool moves_in_memo(Key key) {
    return key == Key::Enter || key == Key::Up || key == Key::Down;
}

// The item that a page key of a list leads to; none for other keys.
std::optional<int> item_of(const Control& c, const QKeyEvent& event) {
    const int last = static_cast<int>(c.items.size()) - 1;
    constexpr int page = 15;
    if (last < 0) return std::nullopt;
    switch (event.key()) {
        case Qt::Key_PageUp:
            return std::max(0, c.selected - page);
        case Qt::Key_PageDown:
            return std::min(last, c.selected + page);
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return last;
        default:
            return std::nullopt;
    }
}

// Full-width digits, letters and signs as the keys of a half-width field would give them.
QString half_width(QString text) {
    for (QChar& ch : text)
        if (ch >= QChar(0xFF01) && ch <= QChar(0xFF5E)) ch = QChar(ch.unicode() - 0xFF01 + 0x21);
    return text;
}

bool scrolls_itself(const Control& c) {
    return c.kind == ControlKind::ListView || (c.kind == ControlKind::xText && c.form->active == &c);
}

void open_drop_down(FormView& view, Control& c) {
    auto* combo = dynamic_cast<QComboBox*>(view.widget_of(c));
    if (combo && !c.DropDown) return combo->showPopup();
    act([&] { drop_down(view.form()); });
}

}  // namespace

// True when the event goes no further. What is left to the widget is the editing of its text alone.
bool FormView::key(Mirror* m, QKeyEvent& event) {
    event.accept();
    const bool ctrl = event.key() == Qt::Key_Control;
    if (!ctrl || !event.isAutoRepeat()) lone_ctrl_ = ctrl;
    late_.clear();
    if (!takes_input(form_)) return true;
    Control* active = form_.active;
    if (m && !m->composing.isEmpty()) {
        // keys of a running composition are the input method's; Enter only commits it
        if (key_of(event) == Key::Enter) QGuiApplication::inputMethod()->commit();
        return true;
    }
    if (event.modifiers() & Qt::AltModifier) {
        if (event.key() == Qt::Key_Down && active) open_drop_down(*this, *active);
        return true;
    }
    if (const std::optional<Key> key = key_of(event)) {
        if (*key == Key::Ctrl) return true;
        if (active && m && &m->control() == active && active->kind == ControlKind::xText &&
            moves_in_memo(*key))
            return false;
        act([&] { press_key(form_, *key); });
        return true;
    }
    if (!active || !m || &m->control() != active) {
        follow_focus();
        return true;
    }
    if (event.key() == Qt::Key_Space && acts_on_space(*active)) {
        act([&] { press_key(form_, Key::Space); });
        return true;
    }
    if (active->kind == ControlKind::ListView)
        if (const auto item = item_of(*active, event)) act([&] { select_item(*active, *item); });
    m->touched = true;
    // the platform would paste nothing in the place of the selection
    if (event.matches(QKeySequence::Paste) && QGuiApplication::clipboard()->text().isEmpty()) return true;
    return !takes_text(*active) || !active->enabled;
}

// Ctrl acts when it is let go alone: with another key it copies, pastes and takes back.
void FormView::let_go(const QKeyEvent& event) {
    if (event.key() != Qt::Key_Control || event.isAutoRepeat() || !lone_ctrl_) return;
    lone_ctrl_ = false;
    if (takes_input(form_)) act([&] { press_key(form_, Key::Ctrl); });
}

bool FormView::mouse(Mirror& m, QEvent& event) {
    auto& mouse = static_cast<QMouseEvent&>(event);
    Control& c = *m.placed.control;
    lone_ctrl_ = false;
    const bool press = event.type() == QEvent::MouseButtonPress,
               twice = event.type() == QEvent::MouseButtonDblClick;
    if (!takes_input(form_) || (!c.enabled && !is_button(c))) return true;
    if (form_.active != &c) finish_composition();
    if (!c.enabled) {
        // the field that is left may wake the button
        if (press && mouse.button() == Qt::LeftButton) act([&] { click(c); });
        return true;
    }
    if (c.kind == ControlKind::scroll) return false;
    if (mouse.button() != Qt::LeftButton) return !takes_text(c) || form_.active != &c;
    if (is_panel(c)) {
        if (press || twice) act([&] { click(c); });
        return true;
    }
    if (c.kind == ControlKind::SSTab) {
        const int page = static_cast<QTabBar*>(m.widget)->tabAt(mouse.position().toPoint());
        if (press && page >= 0) act([&] { choose(c, page); });
        return true;
    }
    if (acts_on_space(c)) return false;
    if (c.kind == ControlKind::ListView) {
        const QModelIndex at = static_cast<QTableView*>(m.widget)->indexAt(mouse.position().toPoint());
        if (press || twice)
            act([&] {
                if (at.isValid()) select_item(c, at.row());
                if (press && c.Click) click(c);
                if (twice && at.isValid()) double_click(c);
            });
        return true;
    }
    if (twice && (c.DblClick || c.DropDown)) {
        // where the first click was sent elsewhere, the second is not for the control that refused it
        if (form_.active == &c) act([&] { double_click(c); });
        return true;
    }
    if (press && form_.active != &c) {
        act([&] { c.Click ? click(c) : press_focus(c); });
        // the content is selected on entry: the press that entered does not take that away
        return form_.active != &c || c.kind != ControlKind::combo;
    }
    m.touched = true;
    return form_.active != &c;
}

// What is composed becomes part of its text before the focus goes: by the input method, which knows what of
// it is committed; some do so when asked to, others when they are reset, none without one.
void FormView::finish_composition() {
    const auto composing = [this] {
        Mirror* m = form_.active ? mirror_of(*form_.active) : nullptr;
        return m && !m->composing.isEmpty() ? m : nullptr;
    };
    const Mirror* m = composing();
    if (!m) return;
    const QString composed = m->composing;
    QGuiApplication::inputMethod()->commit();
    if (composing()) QGuiApplication::inputMethod()->reset();
    if ((m = composing())) {
        QInputMethodEvent event;
        event.setCommitString(composed);
        QCoreApplication::sendEvent(m->widget, &event);
    }
    late_ = composed;
}

// The editor shows what is composed; the model hears of what is committed.
bool FormView::compose(Mirror& m, QInputMethodEvent& event) {
    const Control& c = m.control();
    if (!takes_input(form_) || form_.active != &c) return true;
    const bool again = !late_.isEmpty() && event.preeditString().isEmpty() && event.commitString() == late_;
    const bool says_nothing = event.preeditString().isEmpty() && event.commitString().isEmpty() &&
                              event.replacementLength() == 0 && event.attributes().isEmpty();
    if (again || !says_nothing) late_.clear();
    // nothing would only take the selection away
    if (again || (says_nothing && m.composing.isEmpty())) return true;
    if (!uses_input_method(c))
        event.setCommitString(half_width(event.commitString()), event.replacementStart(),
                              event.replacementLength());
    m.composing = event.preeditString();
    const QPointer<QWidget> widget = m.widget;
    m.committing = true;
    static_cast<QObject&>(*widget).event(&event);
    if (!widget) return true;
    m.committing = false;
    if (!m.composing.isEmpty()) return true;
    // what is given up leaves what it was to replace
    if (widget_text(m) != model_text(c)) take_back(m);
    note_selection(m);
    return true;
}

// A drop is a paste; into a text over several lines it goes where it was let fall.
bool FormView::drop(Mirror& m, QDropEvent& event) {
    Control& c = *m.placed.control;
    event.ignore();
    if (!takes_input(form_)) return true;
    finish_composition();
    act([&] { press_focus(c); });
    if (!takes_input(form_) || form_.active != &c) return true;
    event.acceptProposedAction();
    if (c.kind == ControlKind::xText) return false;
    act([&] { paste_into(form_, look::utf8(event.mimeData()->text())); });
    return true;
}

bool FormView::wheel(Mirror* m, QWheelEvent& event) {
    event.accept();
    if (!takes_input(form_)) return true;
    if (m && scrolls_itself(m->control())) return false;
    // one event is one step, whatever its size; the small ones of a touchpad add up to one
    constexpr int notch = 120;
    lone_ctrl_ = false;
    wheel_rest_ += event.angleDelta().y();
    if (wheel_rest_ > -notch && wheel_rest_ < notch) return true;
    const int step = wheel_rest_ < 0 ? -1 : 1;
    wheel_rest_ = 0;
    finish_composition();
    act([&] { turn_wheel(form_, step); });
    return true;
}

bool FormView::eventFilter(QObject* object, QEvent* event) {
    const auto found = watched_.find(object);
    if (found == watched_.end()) return QWidget::eventFilter(object, event);
    Mirror& m = *found->second;
    const Control& c = m.control();
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            event->accept();
            return true;
        case QEvent::KeyPress:
            return object == m.widget ? key(&m, static_cast<QKeyEvent&>(*event)) : false;
        case QEvent::KeyRelease:
            if (object == m.widget) let_go(static_cast<QKeyEvent&>(*event));
            return !takes_text(c);
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return (object == m.input || c.kind != ControlKind::ListView) && mouse(m, *event);
        case QEvent::MouseButtonRelease:
            // a button that was pressed is let go, whatever has happened meanwhile
            return !c.enabled && !is_button(c);
        case QEvent::Wheel:
            return wheel(&m, static_cast<QWheelEvent&>(*event));
        case QEvent::InputMethod:
            return object == m.widget ? compose(m, static_cast<QInputMethodEvent&>(*event)) : false;
        case QEvent::FocusOut:
            lone_ctrl_ = false;
            if (m.composing.isEmpty()) return false;
            m.composing.clear();
            if (widget_text(m) != model_text(c)) take_back(m);
            return false;
        case QEvent::DragEnter:
        case QEvent::DragMove:
            if (takes_input(form_) && c.enabled) return false;
            event->ignore();
            return true;
        case QEvent::Drop:
            return drop(m, static_cast<QDropEvent&>(*event));
        case QEvent::ContextMenu:
            return !takes_input(form_) || form_.active != &c;
        default:
            return false;
    }
}

bool FormView::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress: {
            // the focus stands on a control that is not seen
            auto& pressed = static_cast<QKeyEvent&>(*event);
            key(nullptr, pressed);
            return true;
        }
        case QEvent::WindowActivate:
            turn_on_where_japanese();
            return QWidget::event(event);
        case QEvent::KeyRelease:
            let_go(static_cast<QKeyEvent&>(*event));
            return true;
        case QEvent::Wheel: {
            auto& turned = static_cast<QWheelEvent&>(*event);
            event->accept();
            // what a list or a text at its end leaves over is no turn over the lines
            for (QWidget* at = childAt(turned.position().toPoint()); at && at != this;
                 at = at->parentWidget())
                if (const auto found = watched_.find(at); found != watched_.end())
                    if (scrolls_itself(found->second->control())) return true;
            return wheel(nullptr, turned);
        }
        default:
            return QWidget::event(event);
    }
}

}  // namespace kalvane
