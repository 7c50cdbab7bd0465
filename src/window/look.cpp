// Style, colours and frames.
#include "window/look.h"

#include <algorithm>
#include <cmath>

namespace kalvane::look {
namespace {

double luminance(const QColor& c) {
    const auto linear = [](double v) {
        return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
    const double x = luminance(a), y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

QColor readable(QColor colour, const QColor& ground) {
    constexpr double enough = 4.6;
    for (int step = 0; step < 40 && contrast(colour, ground) < enough; ++step) colour = colour.darker(106);
    return colour;
}

QColor colour_of(Colour c, const QColor& system) {
    return c.kind == Colour::Kind::rgb ? QColor::fromRgb(static_cast<QRgb>(c.rgb)) : system;
}

FieldLook field_look(const Control& c) {
    FieldLook l;
    l.enabled = c.enabled;
    l.focused = c.form && c.form->active == &c;
    l.shown_only = takes_text(c) && (c.read_only || c.mode == InputMode::none);
    l.marked = c.fore.kind == Colour::Kind::rgb;
    l.tinted = c.input_area.kind == Colour::Kind::rgb;
    l.area = colour_of(c.input_area, !c.enabled || l.shown_only ? dull : field);
    if (l.focused && !l.tinted) l.area = focus_area;
    l.text = readable(colour_of(c.fore, c.enabled ? ink : quiet), l.area);
    return l;
}

void draw_frame(QPainter& p, const QRect& r, const FieldLook& l, double scale) {
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setBrush(Qt::NoBrush);
    const QRect frame = r.adjusted(0, 0, -1, -1);
    const int unit = std::max(1, static_cast<int>(scale));
    if (l.shown_only) {
        p.fillRect(QRect(r.left(), r.bottom() - unit + 1, r.width(), unit), line);
    } else {
        p.setPen(QPen(line, unit, l.enabled ? Qt::SolidLine : Qt::DotLine));
        p.drawRect(frame);
    }
    if (l.tinted) p.fillRect(QRect(r.left(), r.top(), 3 * unit, r.height()), quiet);
    if (l.marked) {
        const int corner = static_cast<int>(7 * scale);
        p.setPen(Qt::NoPen);
        p.setBrush(l.text);
        p.drawPolygon(
            QPolygon({r.topLeft(), r.topLeft() + QPoint(corner, 0), r.topLeft() + QPoint(0, corner)}));
    }
    if (l.focused) draw_focus(p, r, scale);
}

void draw_focus(QPainter& p, const QRect& r, double scale) {
    const int thick = std::max(2, static_cast<int>(2 * scale));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(focus, thick, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const int inset = thick / 2;
    p.drawRect(r.adjusted(inset, inset, -inset - thick % 2, -inset - thick % 2));
}

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string utf8(const QString& text) {
    return text.toStdString();
}

}  // namespace kalvane::look
