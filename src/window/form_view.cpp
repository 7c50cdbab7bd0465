#include "window/form_view.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "window/look.h"
#include "window/windows.h"

namespace kalvane {
namespace {

// One direction is stretched against the other up to this factor, to fill a screen of another shape.
constexpr double most_stretch = 1.2;

void edited(Mirror& m, const std::string& text) {
    Control& c = *m.placed.control;
    if (window_state.syncing) return;
    if (!takes_input(*c.form) || c.form->active != &c || text == model_text(c)) {
        sync_widget(m, false);
        return;
    }
    act([&] {
        if (text.empty())
            press_key(*c.form, Key::Delete);
        else
            paste_into(*c.form, text);
    });
    // what was refused left the model as it was, and its revision too
    if (m.widget && widget_text(m) != model_text(c)) sync_widget(m, true);
}

void clicked(Mirror& m) {
    Control& c = *m.placed.control;
    if (takes_input(*c.form)) act([&] { click(c); });
    sync_widget(m, false);
}

void chosen(Mirror& m, int entry) {
    Control& c = *m.placed.control;
    if (takes_input(*c.form)) act([&] { choose(c, entry); });
    sync_widget(m, false);
}

void scrolled(Mirror& m, int position) {
    Control& c = *m.placed.control;
    if (window_state.syncing) return;
    if (takes_input(*c.form)) act([&] { scroll_to(c, position); });
    sync_widget(m, false);
}

constexpr MirrorActs mirror_acts{edited, clicked, chosen, scrolled};

}  // namespace

FormView::FormView(Form& form, QWidget* parent) : QWidget(parent), form_(form) {
    setFocusPolicy(Qt::TabFocus);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, look::page);
    setPalette(palette);
    build();
}

bool FormView::controls_changed() const {
    return !std::equal(built_.begin(), built_.end(), form_.controls.begin(), form_.controls.end());
}

void FormView::build() {
    for (Mirror& m : mirrors_) delete m.widget;
    mirrors_.clear();
    watched_.clear();
    by_control_.clear();
    built_.assign(form_.controls.begin(), form_.controls.end());
    arrangement_ = arrange(form_);
    for (const Placed& placed : arrangement_.controls) {
        Mirror& m = mirrors_.emplace_back();
        m.placed = placed;
        by_control_[placed.control] = &m;
    }
    setAccessibleName(look::text(form_.name));
    fresh_ = true;
}

Mirror* FormView::mirror_of(const Control& c) {
    const auto found = by_control_.find(&c);
    return found == by_control_.end() || !found->second->widget ? nullptr : found->second;
}

QWidget* FormView::widget_of(const Control& c) {
    const Mirror* m = mirror_of(c);
    return m ? m->widget : nullptr;
}

void FormView::make(Mirror& m) {
    make_widget(m, this, mirror_acts);
    watched_[m.widget] = &m;
    m.widget->installEventFilter(this);
    if (m.input != m.widget) {
        watched_[m.input] = &m;
        m.input->installEventFilter(this);
    }
    m.widget->setAccessibleName(look::text(spoken_name(form_, m.control(), m.placed.place)));
    place(m);
}

QRect FormView::scaled(const Area2& at) const {
    const int left = static_cast<int>(std::lround(at.x * x_scale_)),
              top = static_cast<int>(std::lround(at.y * y_scale_));
    const int right = static_cast<int>(std::lround((at.x + at.w) * x_scale_));
    const int bottom = static_cast<int>(std::lround((at.y + at.h) * y_scale_));
    return {left, top, right - left, bottom - top};
}

void FormView::place(Mirror& m) {
    m.scale = scale_;
    m.widget->setGeometry(scaled(m.placed.at));
}

void FormView::rescale() {
    const double x = static_cast<double>(width()) / arrangement_.width,
                 y = static_cast<double>(height()) / arrangement_.height;
    scale_ = std::max(0.3, std::min(x, y));
    const double was_x = x_scale_, was_y = y_scale_;
    x_scale_ = std::min(x, scale_ * most_stretch);
    y_scale_ = std::min(y, scale_ * most_stretch);
    QFont font = this->font();
    font.setPixelSize(std::max(7, static_cast<int>(design_font * scale_ + 0.2)));
    if (font != this->font()) setFont(font);
    if (was_x == x_scale_ && was_y == y_scale_) return;
    for (Mirror& m : mirrors_) {
        if (!m.widget) continue;
        place(m);
        sync_widget(m, false);
    }
}

void FormView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    rescale();
}

void FormView::sync() {
    if (controls_changed()) build();
    // a form that comes anew may be another than the one that went, whatever its revisions say
    if (!isVisible()) fresh_ = true;
    if (fresh_) {
        rescale();
        wheel_rest_ = 0;
        current_row_ = -1;
        for (Mirror& m : mirrors_) start_afresh(m);
    }
    if (fresh_ || form_.revision != revision_) {
        const QString title = look::text(form_.caption);
        if (windowTitle() != title) setWindowTitle(title);
        revision_ = form_.revision;
    }
    const bool entered = fresh_ || form_.focus_moves != focus_moves_;
    focus_moves_ = form_.focus_moves;
    const int row = form_.active ? form_.active->row : -1;
    if (row >= 0 && row != current_row_) {
        current_row_ = row;
        update();
    }
    for (Mirror& m : mirrors_) {
        const Control& c = m.control();
        const bool show = on_show(c) && m.role() != Role::hidden;
        if (!m.widget && !show) continue;
        const bool made = !m.widget;
        if (made) make(m);
        if (made || fresh_ || m.revision != c.revision) {
            m.revision = c.revision;
            sync_widget(m, entered && form_.active == &c);
        } else if (m.role() == Role::row_number && entered) {
            m.widget->update();
        }
        if (made || m.shown != show) {
            m.shown = show;
            m.widget->setVisible(show);
        }
    }
    if (form_.tab_strip && entered) update();
    fresh_ = false;
    follow_focus();
    keep_selection(entered);
}

// A composition that the last showing left behind is given up.
void FormView::start_afresh(Mirror& m) {
    m.touched = false;
    if (!m.widget || !m.composing) return;
    m.composing = false;
    QInputMethodEvent none;
    m.widget->removeEventFilter(this);
    QCoreApplication::sendEvent(m.widget, &none);
    m.widget->installEventFilter(this);
}

// The platform drops a selection when the focus comes and goes by its own moves; the model's stays until the
// operator sets the cursor.
void FormView::keep_selection(bool entered) {
    Mirror* m = form_.active ? mirror_of(*form_.active) : nullptr;
    if (!m) return;
    if (entered) m->touched = false;
    const auto* edit = dynamic_cast<const QLineEdit*>(m->widget);
    if (edit && form_.active->select_all && !m->touched && !m->composing &&
        edit->selectedText() != edit->text())
        select_content(*m);
}

void FormView::follow_focus() {
    QWidget* wanted = form_.active ? widget_of(*form_.active) : nullptr;
    if (!wanted || !wanted->isEnabled() || wanted->isHidden()) wanted = this;
    if (focusWidget() != wanted || (isActiveWindow() && !wanted->hasFocus()))
        wanted->setFocus(Qt::OtherFocusReason);
}

void FormView::paint_headings(QPainter& p) const {
    const Layout& layout = *arrangement_.layout;
    const int page = form_.tab_strip ? form_.tab_strip->number : 0;
    QFont font = this->font();
    font.setPixelSize(std::max(7, static_cast<int>(12 * scale_)));
    p.setFont(font);
    for (const Mirror& m : mirrors_) {
        if (!m.placed.place || !on_show(m.control())) continue;
        const Place& place = *m.placed.place;
        if (place.heading > 0 && m.control().row == 0 && m.control().page == page) {
            const QRect r = scaled({place.at.x, layout.heading.y, place.heading, layout.heading.h});
            p.fillRect(r, look::panel);
            p.setPen(look::ink);
            p.drawText(r, Qt::AlignCenter, look::text(plain_name(place.control)));
        }
        if (!place.unit.empty()) {
            p.setPen(look::quiet);
            p.drawText(scaled({place.at.x + place.at.w, place.at.y, 18, place.at.h}), Qt::AlignCenter,
                       look::text(place.unit));
        }
    }
    if (layout.echo.page != page) return;
    for (const Mirror& m : mirrors_) {
        if (m.control().name != layout.echo.control) continue;
        Area2 at = layout.echo.at;
        at.y += std::max(0, m.control().row) * layout.row_step;
        const bool current = m.control().row == current_row_;
        p.fillRect(scaled(at), current ? look::focus : look::panel);
        p.setPen(current ? QColor(Qt::white) : look::ink);
        p.drawText(scaled(at), Qt::AlignCenter, look::text(m.control().caption));
    }
}

void FormView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), look::page);
    const Layout* layout = arrangement_.layout;
    if (!layout) return;
    if (layout->frame.w > 0) {
        p.fillRect(scaled(layout->frame), Qt::white);
        p.setPen(look::line);
        p.drawRect(scaled(layout->frame).adjusted(0, 0, -1, -1));
    }
    const int page = form_.tab_strip ? form_.tab_strip->number : 0;
    if (layout->row_step > 0 && page <= 1) {
        // stripes lead the eye along a row; the current one stands out
        const int first = layout->echo.at.y - 4;
        for (int row = 0; row < 10; ++row) {
            const Area2 band{layout->heading.x - 2, first + row * layout->row_step, layout->heading.w + 2,
                             layout->row_step};
            if (row == current_row_)
                p.fillRect(scaled(band), look::band);
            else if (row % 2 == 1)
                p.fillRect(scaled(band), look::page);
        }
    }
    paint_headings(p);
}

void FormView::closeEvent(QCloseEvent* event) {
    event->ignore();  // the model closes, the view follows
    if (takes_input(form_)) act([this] { close_form(form_); });
}

}  // namespace kalvane
