// Faces of fields, buttons, combos and the bar.
#include "window/widgets.h"

#include <QMimeData>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "window/look.h"

namespace kalvane {
namespace {

int px(double scale, int design) {
    return std::max(1, static_cast<int>(std::lround(design * scale)));
}

// Text on one line, in smaller letters where it would not fit.
void draw_fitting(QPainter& p, const QRect& r, int flags, const QString& text) {
    QFont font = p.font();
    for (int size = font.pixelSize(); size > 8 && p.fontMetrics().horizontalAdvance(text) > r.width();
         --size) {
        font.setPixelSize(size - 1);
        p.setFont(font);
    }
    p.drawText(r, flags, text);
}

void set_font(QPainter& p, const QWidget& w, bool bold, bool italic, double factor = 1) {
    QFont font = w.font();
    font.setBold(bold);
    font.setItalic(italic);
    font.setPixelSize(std::max(7, static_cast<int>(font.pixelSize() * factor)));
    p.setFont(font);
}

// Two sheets: something behind this panel can be opened.
void draw_opens(QPainter& p, const QRect& r, double scale, const QColor& ink) {
    const int size = px(scale, 10);
    const QRect box(r.center().x() - size / 2, r.center().y() - size / 2, size, size);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(ink, std::max(1.0, 1.2 * scale)));
    p.setBrush(Qt::NoBrush);
    const int step = px(scale, 3);
    p.drawLine(box.bottomLeft(), box.topRight());
    p.drawLine(box.topRight(), box.topRight() + QPoint(-2 * step, 0));
    p.drawLine(box.topRight(), box.topRight() + QPoint(0, 2 * step));
}

void draw_key(QPainter& p, QRect& r, int key, double scale, const QColor& ink) {
    const QString text = QStringLiteral("F%1").arg(key);
    QFont font = p.font();
    font.setBold(true);
    font.setPixelSize(std::max(7, static_cast<int>(font.pixelSize() * 0.85)));
    const QFont before = p.font();
    p.setFont(font);
    const int w = p.fontMetrics().horizontalAdvance(text) + px(scale, 8), h = px(scale, 16);
    const QRect chip(r.left() + px(scale, 5), r.center().y() - h / 2, w, h);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(ink, std::max(1.0, scale)));
    p.drawRoundedRect(chip, 3 * scale, 3 * scale);
    p.drawText(chip, Qt::AlignCenter, text);
    p.setFont(before);
    r.setLeft(chip.right() + px(scale, 2));
}

}  // namespace

void FieldWidget::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (m.control().select_all && !m.touched) selectAll();
}

// By itself a field wants an input method whatever its attribute says.
QVariant FieldWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
    return query == Qt::ImEnabled ? uses_input_method(m.control()) : QLineEdit::inputMethodQuery(query);
}

void FieldWidget::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter p(this);
    look::draw_frame(p, rect(), look::field_look(m.control()), m.scale);
}

// What has nothing that the text takes leaves the selection.
void MemoWidget::insertFromMimeData(const QMimeData* source) {
    Control probe = m.control();
    probe.form = nullptr;
    probe.Change = nullptr;
    probe.text.clear();
    paste_text(probe, look::utf8(source->text()));
    if (!probe.text.empty()) insertPlainText(look::text(probe.text));
}

void MemoWidget::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
    QPainter p(viewport());
    look::draw_frame(p, viewport()->rect(), look::field_look(m.control()), m.scale);
}

void draw_button(QPainter& p, const QPushButton& button, const ButtonLook& l) {
    QColor area = l.in_row ? look::link : look::button, ink = look::link_ink;
    const bool enabled = button.isEnabled();
    if (l.accent) area = look::focus, ink = Qt::white;
    if (button.underMouse() && !l.accent) area = look::hover;
    if (button.isDown()) area = l.accent ? look::bar : look::pressed;
    if (!enabled) area = look::dull, ink = look::quiet;
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(enabled ? look::link_ink : look::line, std::max(1.0, l.scale) * 0.8,
                  enabled ? Qt::SolidLine : Qt::DotLine));
    p.setBrush(area);
    p.drawRoundedRect(QRectF(button.rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4 * l.scale, 4 * l.scale);
    set_font(p, button, l.accent || l.focused, !enabled);
    p.setPen(ink);
    QRect r = button.rect().adjusted(px(l.scale, 2), 0, -px(l.scale, 2), 0);
    if (l.function_key > 0) draw_key(p, r, l.function_key, l.scale, ink);
    p.setPen(ink);
    draw_fitting(p, r, Qt::AlignCenter, l.caption);
    if (!l.focused) return;
    p.setRenderHint(QPainter::Antialiasing, false);
    look::draw_focus(p, button.rect().adjusted(1, 1, -1, -1), l.scale);
    if (!l.accent) return;
    p.setPen(QPen(Qt::white, 1));
    const int in = px(l.scale, 4);
    p.drawRect(button.rect().adjusted(in, in, -in - 1, -in - 1));
}

void ButtonWidget::paintEvent(QPaintEvent*) {
    const Control& c = m.control();
    QPainter p(this);
    const bool accent = m.role() == Role::accent;
    draw_button(p, *this,
                {.caption = look::text(c.caption),
                 .function_key = c.function_key,
                 .scale = m.scale,
                 .accent = accent,
                 .in_row = c.row >= 0,
                 .focused = c.form && c.form->active == &c});
}

void PanelWidget::paintEvent(QPaintEvent*) {
    const Control& c = m.control();
    QPainter p(this);
    const Role role = m.role();
    const QString caption = look::text(c.caption).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    const int pad = px(m.scale, 10);
    if (role == Role::title) {
        p.fillRect(rect(), look::bar);
        set_font(p, *this, true, false, 1.08);
        p.setPen(Qt::white);
        p.drawText(rect().adjusted(pad, 0, -pad, 0), Qt::AlignVCenter | Qt::AlignLeft, caption);
        return;
    }
    if (role == Role::message) {
        p.setPen(look::readable(look::colour_of(c.fore, look::ink), look::page));
        set_font(p, *this, c.fore.kind == Colour::Kind::rgb, false, 1.08);
        p.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap, caption);
        return;
    }
    if (role == Role::notice) {
        p.fillRect(rect(), caption.isEmpty() ? look::dull : look::notice);
        if (!caption.isEmpty()) p.fillRect(QRect(0, 0, px(m.scale, 5), height()), QColor(0x8a, 0x5a, 0x00));
        p.setPen(look::ink);
        set_font(p, *this, true, false);
        p.drawText(rect().adjusted(pad, 0, -pad, 0), Qt::AlignVCenter | Qt::AlignLeft, caption);
        return;
    }
    const bool opens = c.Click != nullptr;
    QColor area = opens && underMouse() ? look::hover : look::panel;
    if (role == Role::row_number) {
        const bool current = m.current;
        area = current ? look::focus : look::panel;
        const QColor own = look::readable(look::colour_of(c.fore, look::ink), look::panel);
        p.fillRect(rect(), area);
        if (c.fore.kind == Colour::Kind::rgb) p.fillRect(QRect(0, 0, px(m.scale, 4), height()), own);
        set_font(p, *this, true, false);
        p.setPen(current ? QColor(Qt::white) : own);
        p.drawText(rect(), Qt::AlignCenter, caption);
        return;
    }
    p.fillRect(rect(), area);
    if (c.kind != ControlKind::SSPanel && caption.isEmpty()) return;
    if (caption.isEmpty()) return draw_opens(p, rect(), m.scale, look::link_ink);
    set_font(p, *this, false, !c.enabled);
    p.setPen(c.enabled ? look::readable(look::colour_of(c.fore, look::ink), area) : look::quiet);
    draw_fitting(p, rect().adjusted(px(m.scale, 3), 0, -px(m.scale, 3), 0), Qt::AlignCenter, caption);
}

void CheckWidget::paintEvent(QPaintEvent*) {
    const Control& c = m.control();
    QPainter p(this);
    const int size = px(m.scale, 16);
    const QString caption = look::text(c.caption);
    const int left = caption.isEmpty() ? (width() - size) / 2 : px(m.scale, 4);
    const QRect box(left, (height() - size) / 2, size, size);
    const look::FieldLook l = look::field_look(c);
    p.fillRect(box, l.area);
    look::draw_frame(p, box, l, m.scale);
    if (c.number != 0) {
        p.setRenderHint(QPainter::Antialiasing, true);
        p.setPen(QPen(l.text, 2.2 * m.scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF at = box.topLeft();
        const double s = size;
        p.drawPolyline(QPolygonF(
            {at + QPointF(s * .22, s * .52), at + QPointF(s * .43, s * .74), at + QPointF(s * .8, s * .27)}));
    }
    set_font(p, *this, false, !c.enabled);
    p.setPen(l.text);
    const int text_left = box.right() + px(m.scale, 5);
    draw_fitting(p, QRect(text_left, 0, width() - text_left, height()), Qt::AlignVCenter | Qt::AlignLeft,
                 caption);
}

void ComboWidget::paintEvent(QPaintEvent*) {
    const Control& c = m.control();
    QPainter p(this);
    const look::FieldLook l = look::field_look(c);
    p.fillRect(rect(), l.area);
    look::draw_frame(p, rect(), l, m.scale);
    const int arrow = px(m.scale, 14), pad = px(m.scale, 5);
    set_font(p, *this, false, !c.enabled);
    p.setPen(l.text);
    draw_fitting(p, rect().adjusted(pad, 0, -arrow, 0), Qt::AlignVCenter | Qt::AlignLeft,
                 look::text(shown_text(c)));
    if (!c.enabled) return;
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(look::quiet, 1.4 * m.scale));
    const QPointF at(width() - arrow * 0.6, height() / 2.0 + m.scale);
    p.drawPolyline(QPolygonF(
        {at + QPointF(-3.5, -2) * m.scale, at + QPointF(0, 2) * m.scale, at + QPointF(3.5, -2) * m.scale}));
}

QSize TabWidget::tabSizeHint(int) const {
    return {count() > 0 ? width() / count() : width(), height()};
}

void TabWidget::paintEvent(QPaintEvent*) {
    const Control& c = m.control();
    QPainter p(this);
    const int unit = px(m.scale, 1);
    for (int i = 0; i < count(); ++i) {
        const QRect r = tabRect(i).adjusted(0, 0, -px(m.scale, 2), 0);
        const bool on = i == c.number;
        p.fillRect(r, on ? QColor(Qt::white) : look::panel);
        if (on)
            p.fillRect(QRect(r.left(), r.top(), r.width(), 3 * unit), c.enabled ? look::focus : look::line);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(look::line, unit, c.enabled ? Qt::SolidLine : Qt::DotLine));
        // the page in front is open toward its frame
        p.drawRect(r.adjusted(0, 0, -1, on ? unit : -unit - 1));
        set_font(p, *this, on, !c.enabled);
        p.setPen(c.enabled ? look::ink : look::quiet);
        draw_fitting(p, r, Qt::AlignCenter, tabText(i));
    }
}

}  // namespace kalvane
