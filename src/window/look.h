// The look of the window: its colours, and the drawing of frames that tell fields apart by more than colour.
#pragma once
#include <QColor>
#include <QPainter>
#include <QRect>
#include <QString>

#include "platform/screen/form.h"

namespace kalvane::look {

inline const QColor page(0xf3, 0xf5, 0xf8), panel(0xe2, 0xe7, 0xee), ink(0x1a, 0x1f, 0x29),
    quiet(0x4d, 0x57, 0x66), line(0x8b, 0x96, 0xa6), field(0xff, 0xff, 0xff), dull(0xec, 0xef, 0xf3),
    focus(0x0b, 0x57, 0xd0), focus_area(0xff, 0xfc, 0xe8), bar(0x12, 0x3f, 0x7d), band(0xcf, 0xdf, 0xf8),
    notice(0xff, 0xf3, 0xc9), button(0xff, 0xff, 0xff), link(0xdf, 0xea, 0xfb), link_ink(0x0b, 0x3f, 0x94),
    pressed(0xc3, 0xd6, 0xf3), hover(0xee, 0xf4, 0xfe);

// Contrast of two colours, 1 to 21.
double contrast(const QColor& a, const QColor& b);
// The colour, made darker until it reads well on the ground.
QColor readable(QColor colour, const QColor& ground);

QColor colour_of(Colour c, const QColor& system);

// How a field is shown; each state has its own frame.
struct FieldLook {
    bool focused = false;     // thick frame
    bool enabled = true;      // else dotted frame, slanted text
    bool shown_only = false;  // takes no input: no frame but a line below
    bool marked = false;      // a colour of its own: a corner is cut
    bool tinted = false;      // an area of its own: a stripe at its left
    QColor text = ink, area = field;
};
FieldLook field_look(const Control& c);
void draw_frame(QPainter& p, const QRect& r, const FieldLook& l, double scale);
void draw_focus(QPainter& p, const QRect& r, double scale);

QString text(std::string_view utf8);
std::string utf8(const QString& text);

}  // namespace kalvane::look
