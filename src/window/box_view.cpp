// The box's window and its keys.
#include "window/box_view.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "base/text.h"
#include "window/layout.h"
#include "window/look.h"
#include "window/widgets.h"

namespace kalvane {
namespace {

constexpr int font_size = 14;

}  // namespace

void BoxButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    draw_button(p, *this, {.caption = text(), .scale = scale, .focused = window()->focusWidget() == this});
}

BoxView::BoxView(const std::string& text, Buttons buttons, bool default_yes, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowCloseButtonHint | Qt::WindowTitleHint),
      asks_(buttons == Buttons::yes_no) {
    setWindowModality(Qt::ApplicationModal);
    const double scale = parent ? scale_over(parent->window()->width(), parent->window()->height()) : 1.0;
    const auto px = [scale](int design) { return static_cast<int>(design * scale); };
    QFont font = this->font();
    font.setPixelSize(px(font_size));
    setFont(font);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, look::page);
    palette.setColor(QPalette::WindowText, look::ink);
    setPalette(palette);

    text_.setTextFormat(Qt::PlainText);
    text_.setText(look::text(unix_lines(text)));
    text_.setWordWrap(text_.sizeHint().width() > px(560));
    if (text_.wordWrap()) text_.setMinimumWidth(px(560));
    yes_button_.setText(asks_ ? QStringLiteral("はい") : QStringLiteral("OK"));
    no_button_.setText(QStringLiteral("いいえ"));
    setAccessibleName(text_.text());

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(px(28), px(24), px(28), px(18));
    column->setSpacing(px(22));
    column->addWidget(&text_);
    auto* row = new QHBoxLayout;
    row->setSpacing(px(10));
    row->addStretch();
    for (BoxButton* b : {&yes_button_, &no_button_}) {
        b->setMinimumSize(px(104), px(34));
        b->setAutoDefault(false);
        b->scale = scale;
        b->installEventFilter(this);
        row->addWidget(b);
        const bool yes = b == &yes_button_;
        connect(b, &QPushButton::clicked, this, [this, yes] { answer(yes); });
    }
    row->addStretch();
    column->addLayout(row);
    no_button_.setVisible(asks_);
    adjustSize();
    if (parent) move(parent->mapToGlobal(parent->rect().center()) - rect().center());
    (asks_ && !default_yes ? no_button_ : yes_button_).setFocus(Qt::OtherFocusReason);
}

void BoxView::answer(bool yes) {
    yes_ = yes;
    answered_ = true;
}

QPushButton* BoxView::button(bool yes) {
    if (!yes && !asks_) return nullptr;
    return yes ? &yes_button_ : &no_button_;
}

void BoxView::move_focus() {
    if (!asks_) return;
    (focusWidget() == &yes_button_ ? no_button_ : yes_button_).setFocus(Qt::TabFocusReason);
    yes_button_.update();
    no_button_.update();
}

bool BoxView::key(const QKeyEvent& event) {
    const int key = event.key();
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // a key that is still held down from before the question is no answer to it
            if (asks_ && event.isAutoRepeat()) return true;
            answer(focusWidget() != &no_button_);
            return true;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            move_focus();
            return true;
        case Qt::Key_Escape:
            if (!asks_) answer(true);
            return true;
        default:
            return key != Qt::Key_Space;
    }
}

bool BoxView::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) return key(static_cast<QKeyEvent&>(*event));
    return QWidget::eventFilter(object, event);
}

void BoxView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setPen(QPen(look::bar, 2));
    p.drawRect(rect().adjusted(1, 1, -1, -1));
}

void BoxView::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!asks_) answer(true);  // a question can only be answered
}

}  // namespace kalvane
