// How to add a kind of control: a row in `kinds` with the making and the showing of its widget.
#include "window/mirror.h"

#include <QAccessible>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <array>

#include "base/text.h"
#include "window/list_view.h"
#include "window/look.h"
#include "window/widgets.h"

namespace kalvane {
namespace {

QLineEdit& field(const Mirror& m) {
    return *static_cast<QLineEdit*>(m.widget);
}

void set_slant(Mirror& m, bool italic) {
    if (m.italic == italic) return;
    m.italic = italic;
    QFont font;
    font.setItalic(italic);
    m.widget->setFont(font);
}

void set_palette(Mirror& m) {
    const look::FieldLook l = look::field_look(m.control());
    QPalette palette = m.widget->palette();
    if (palette.color(QPalette::Base) != l.area || palette.color(QPalette::Text) != l.text) {
        palette.setColor(QPalette::Base, l.area);
        palette.setColor(QPalette::Text, l.text);
        m.widget->setPalette(palette);
    }
    set_slant(m, !m.control().enabled);
}

// Where the cursor stands when the text in front of it has become part of another: behind those of its
// characters that were kept.
int kept_position(const QString& front, const QString& text) {
    qsizetype at = 0;
    for (const QChar ch : front)
        if (at < text.size() && text[at] == ch) ++at;
    return static_cast<int>(at);
}

// --- fields of one line
void make_field(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    auto* edit = new FieldWidget(m, parent);
    m.widget = edit;
    edit->setFrame(false);
    edit->setDragEnabled(false);
    if (m.control().kind == ControlKind::xNum && m.control().max_length != 1)
        edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (m.control().kind == ControlKind::xPass) edit->setEchoMode(QLineEdit::Password);
    auto* to = &m;
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [to, act = acts.edited](const QString& text) { act(*to, look::utf8(text)); });
    // the platform tells of the new text before it tells where the cursor stands in it
    const auto keep = [to] {
        if (to->composing.isEmpty() && !to->committing) note_selection(*to);
    };
    QObject::connect(edit, &QLineEdit::selectionChanged, edit, keep);
    QObject::connect(edit, &QLineEdit::cursorPositionChanged, edit, keep);
}

void show_field(Mirror& m, bool entered) {
    const Control& c = m.control();
    QLineEdit& edit = field(m);
    const QString text = look::text(model_text(c));
    const bool other = edit.text() != text && m.composing.isEmpty();
    if (other) {
        const int cursor =
            c.form->active == &c ? kept_position(edit.text().left(edit.cursorPosition()), text) : 0;
        edit.setText(text);
        edit.setCursorPosition(cursor);
    }
    edit.setReadOnly(c.read_only || c.mode == InputMode::none);
    edit.setAttribute(Qt::WA_InputMethodEnabled, uses_input_method(c));
    const int pad = static_cast<int>(4 * m.scale);
    edit.setTextMargins(pad, 0, pad, 0);
    set_palette(m);
    if (c.form->active == &c) {
        if (c.select_all && (entered || other)) edit.selectAll();
    } else if (edit.hasSelectedText() || edit.cursorPosition() != 0) {
        edit.deselect();
        edit.setCursorPosition(0);
    }
}

// --- text over several lines
void make_memo(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    auto* edit = new MemoWidget(m, parent);
    m.widget = edit;
    m.input = edit->viewport();
    edit->setFrameShape(QFrame::NoFrame);
    edit->setTabChangesFocus(false);
    auto* to = &m;
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit,
                     [to, edit, act = acts.edited] { act(*to, look::utf8(edit->toPlainText())); });
}

void show_memo(Mirror& m, bool) {
    auto& edit = *static_cast<QPlainTextEdit*>(m.widget);
    const Control& c = m.control();
    const QString text = look::text(model_text(c));
    const double margin = 6 * m.scale;
    if (edit.document()->documentMargin() != margin) {
        const QSignalBlocker quiet(edit);
        edit.document()->setDocumentMargin(margin);
    }
    if (edit.toPlainText() != text && m.composing.isEmpty()) {
        const QSignalBlocker quiet(edit);
        const int position = kept_position(edit.toPlainText().left(edit.textCursor().position()), text);
        edit.setPlainText(text);
        QTextCursor cursor = edit.textCursor();
        cursor.setPosition(position);
        edit.setTextCursor(cursor);
    }
    if (c.form->active != &c && edit.textCursor().hasSelection()) {
        QTextCursor cursor = edit.textCursor();
        cursor.clearSelection();
        edit.setTextCursor(cursor);
    }
    edit.setReadOnly(c.read_only || c.mode == InputMode::none);
    set_palette(m);
}

// --- buttons, panels, checks
void make_button(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    auto* button = new ButtonWidget(m, parent);
    m.widget = button;
    button->setAutoDefault(false);
    button->setAttribute(Qt::WA_Hover);
    auto* to = &m;
    QObject::connect(button, &QPushButton::clicked, button, [to, act = acts.clicked] { act(*to); });
}

void show_button(Mirror& m, bool) {
    static_cast<QPushButton*>(m.widget)->setText(
        look::text(m.control().caption).replace(QLatin1Char('&'), QLatin1String("&&")));
}

void make_panel(Mirror& m, QWidget* parent, const MirrorActs&) {
    auto* panel = new PanelWidget(m, parent);
    m.widget = panel;
    panel->setTextFormat(Qt::PlainText);
    if (m.control().Click) {
        panel->setAttribute(Qt::WA_Hover);
        panel->setCursor(Qt::PointingHandCursor);
    }
}

void show_panel(Mirror& m, bool) {
    auto& panel = *static_cast<QLabel*>(m.widget);
    const QString text = look::text(m.control().caption).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (panel.text() == text) return;
    panel.setText(text);
    if (m.role() != Role::notice || text.isEmpty()) return;
    QAccessibleEvent speak(&panel, QAccessible::Alert);
    QAccessible::updateAccessibility(&speak);
}

template <class Button>
void make_check(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    QAbstractButton* button = nullptr;
    if constexpr (std::is_same_v<Button, CheckWidget>)
        button = new CheckWidget(m, parent);
    else
        button = new Button(parent);
    m.widget = button;
    button->setAutoExclusive(false);
    auto* to = &m;
    QObject::connect(button, &QAbstractButton::clicked, button, [to, act = acts.clicked] { act(*to); });
}

void show_check(Mirror& m, bool) {
    auto& button = *static_cast<QAbstractButton*>(m.widget);
    const QSignalBlocker quiet(button);
    button.setText(look::text(m.control().caption));
    button.setCheckable(true);
    button.setChecked(m.control().number != 0);
}

// --- combos, tabs, lists, the scroll bar
QStringList entries_of(const Control& c) {
    QStringList list;
    for (const std::string& entry : c.entries) list << look::text(entry);
    return list;
}

void make_combo(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    auto* combo = new ComboWidget(m, parent);
    m.widget = combo;
    combo->setMaxVisibleItems(20);
    auto* to = &m;
    QObject::connect(combo, &QComboBox::activated, combo,
                     [to, act = acts.chosen](int entry) { act(*to, entry); });
}

void show_combo(Mirror& m, bool) {
    auto& combo = *static_cast<QComboBox*>(m.widget);
    const QSignalBlocker quiet(combo);
    const QStringList entries = entries_of(m.control());
    bool same = combo.count() == entries.size();
    for (int i = 0; same && i < combo.count(); ++i) same = combo.itemText(i) == entries[i];
    if (!same) {
        combo.clear();
        combo.addItems(entries);
    }
    combo.setCurrentIndex(m.control().list_index);
    if (!m.control().enabled && combo.view()->isVisible()) combo.hidePopup();
}

void make_tabs(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    auto* tabs = new TabWidget(m, parent);
    m.widget = tabs;
    tabs->setDrawBase(false);
    tabs->setExpanding(false);
    tabs->setUsesScrollButtons(false);
    // by assistance; the mouse is the form's
    auto* to = &m;
    QObject::connect(tabs, &QTabBar::currentChanged, tabs,
                     [to, act = acts.chosen](int page) { act(*to, page); });
}

void show_tabs(Mirror& m, bool) {
    auto& tabs = *static_cast<QTabBar*>(m.widget);
    const QSignalBlocker quiet(tabs);
    const QStringList entries = entries_of(m.control());
    while (tabs.count() > entries.size()) tabs.removeTab(tabs.count() - 1);
    for (int i = 0; i < entries.size(); ++i) {
        if (i >= tabs.count()) tabs.addTab(entries[i]);
        if (tabs.tabText(i) != entries[i]) tabs.setTabText(i, entries[i]);
    }
    tabs.setCurrentIndex(m.control().number);
}

void make_list(Mirror& m, QWidget* parent, const MirrorActs&) {
    auto* list = new ListWidget(m, parent);
    m.widget = list;
    m.input = list->viewport();
}

void show_list(Mirror& m, bool) {
    static_cast<ListWidget*>(m.widget)->sync();
}

void make_bar(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    auto* bar = new QScrollBar(Qt::Vertical, parent);
    m.widget = bar;
    auto* to = &m;
    QObject::connect(bar, &QScrollBar::valueChanged, bar,
                     [to, act = acts.scrolled](int position) { act(*to, position); });
}

void show_bar(Mirror& m, bool) {
    auto& bar = *static_cast<QScrollBar*>(m.widget);
    const Control& c = m.control();
    const QSignalBlocker quiet(bar);
    bar.setRange(std::min(c.scroll_min, c.scroll_max), std::max(c.scroll_min, c.scroll_max));
    bar.setPageStep(std::max(1, c.large_change));
    bar.setValue(c.number);
}

struct Kind {
    ControlKind first, last;  // of the enumeration, both included
    void (*make)(Mirror& m, QWidget* parent, const MirrorActs& acts);
    void (*show)(Mirror& m, bool entered);
};
constexpr std::array kinds{
    Kind{ControlKind::xField, ControlKind::xNum, make_field, show_field},
    Kind{ControlKind::xText, ControlKind::xText, make_memo, show_memo},
    Kind{ControlKind::xLabel, ControlKind::xLabel, make_panel, show_panel},
    Kind{ControlKind::xPass, ControlKind::xTel, make_field, show_field},
    Kind{ControlKind::SSCommand, ControlKind::CommandButton, make_button, show_button},
    Kind{ControlKind::SSPanel, ControlKind::label, make_panel, show_panel},
    Kind{ControlKind::check, ControlKind::check, make_check<CheckWidget>, show_check},
    Kind{ControlKind::option, ControlKind::option, make_check<QRadioButton>, show_check},
    Kind{ControlKind::combo, ControlKind::combo, make_combo, show_combo},
    Kind{ControlKind::SSTab, ControlKind::SSTab, make_tabs, show_tabs},
    Kind{ControlKind::ListView, ControlKind::ListView, make_list, show_list},
    Kind{ControlKind::scroll, ControlKind::scroll, make_bar, show_bar},
};

constexpr bool every_kind_once() {
    int next = 0;
    for (const Kind& k : kinds) {
        if (static_cast<int>(k.first) != next) return false;
        next = static_cast<int>(k.last) + 1;
    }
    return next == static_cast<int>(ControlKind::scroll) + 1;
}
static_assert(every_kind_once());

const Kind& kind_of(const Control& c) {
    return *std::find_if(kinds.begin(), kinds.end(), [&c](const Kind& k) { return c.kind <= k.last; });
}

}  // namespace

void make_widget(Mirror& m, QWidget* parent, const MirrorActs& acts) {
    kind_of(m.control()).make(m, parent, acts);
    if (!m.input) m.input = m.widget;
    // the model gives the focus, never the platform
    m.widget->setFocusPolicy(can_take_focus(m.control()) || takes_text(m.control()) ? Qt::TabFocus
                                                                                    : Qt::NoFocus);
}

void sync_widget(Mirror& m, bool entered) {
    if (m.widget->isEnabled() != m.control().enabled) m.widget->setEnabled(m.control().enabled);
    kind_of(m.control()).show(m, entered);
    m.widget->update();
    if (m.input != m.widget) m.input->update();
}

void note_selection(Mirror& m) {
    const auto* edit = dynamic_cast<const QLineEdit*>(m.widget);
    if (!edit) return;
    m.from = edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
    m.to = edit->hasSelectedText() ? edit->selectionEnd() : m.from;
}

void take_back(Mirror& m) {
    auto* edit = dynamic_cast<QLineEdit*>(m.widget);
    if (!edit) return sync_widget(m, false);
    const int from = m.from, to = m.to;
    edit->setText(look::text(model_text(m.control())));
    if (from < to)
        edit->setSelection(from, to - from);
    else
        edit->setCursorPosition(from);
}

bool uses_input_method(const Control& c) {
    if (!c.enabled || c.read_only) return false;
    return c.mode == InputMode::japanese || (c.mode == InputMode::plain && c.kind != ControlKind::xPass);
}

std::string model_text(const Control& c) {
    if (c.kind == ControlKind::xText) return unix_lines(c.text);
    return c.kind == ControlKind::xPass ? c.text : shown_text(c);
}

std::string widget_text(const Mirror& m) {
    if (const auto* memo = dynamic_cast<const QPlainTextEdit*>(m.widget))
        return look::utf8(memo->toPlainText());
    const auto* edit = dynamic_cast<const QLineEdit*>(m.widget);
    return edit ? look::utf8(edit->text()) : "";
}

void select_content(Mirror& m) {
    if (auto* memo = dynamic_cast<QPlainTextEdit*>(m.widget)) memo->selectAll();
    if (auto* edit = dynamic_cast<QLineEdit*>(m.widget)) edit->selectAll();
}

}  // namespace kalvane
