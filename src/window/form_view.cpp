// Builds and follows the mirrors of one form.
#include "window/form_view.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "base/text.h"
#include "window/input_method.h"
#include "window/look.h"
#include "window/widgets.h"
#include "window/windows.h"

namespace kalvane {
namespace {

// One direction is stretched against the other up to this factor, to fill a screen of another shape.
constexpr double most_stretch = 1.2;

// Whether the control would hold exactly this text after it.
bool takes_whole(const Control& c, const std::string& text) {
    Control probe = c;
    probe.form = nullptr;
    probe.Change = nullptr;
    probe.text.clear();
    probe.typed = "";
    paste_text(probe, text);
    return (c.kind == ControlKind::xNum ? *probe.typed : probe.text) == text;
}

std::string without_separators(const Control& c, const QString& text) {
    return c.kind == ControlKind::xNum ? Replace(look::utf8(text), ",", "") : look::utf8(text);
}

// The content that the operator's editing leaves. Of the characters that came new, by key or by paste, those
// count that fit between what stands around the selection; none of them pushes another one out. No value:
// nothing of what came is taken, and the selection stays.
std::optional<std::string> taken(const Mirror& m, const QString& now) {
    const Control& c = m.control();
    const QString old = look::text(model_text(c));
    const qsizetype added = now.size() - (old.size() - (m.to - m.from));
    const QString front = old.left(m.from), back = old.mid(m.to);
    if (added <= 0 || !now.startsWith(front) || !now.endsWith(back)) {
        const std::string left = without_separators(c, now);
        if (now.size() < old.size() || takes_whole(c, left)) return left;
        return std::nullopt;
    }
    const bool by_itself = c.mode == InputMode::japanese || c.mode == InputMode::plain;
    std::string kept = without_separators(c, front);
    const std::string tail = without_separators(c, back), came = look::utf8(now.mid(m.from, added));
    const std::size_t before = kept.size();
    for (std::string_view character : characters(came)) {
        const std::string one(character);
        if (takes_whole(c, by_itself ? one : kept + one + tail)) kept += one;
    }
    if (kept.size() == before) return std::nullopt;
    return kept + tail;
}

void edited(Mirror& m, const std::string& typed) {
    Control& c = *m.placed.control;
    if (window_state.syncing || !m.composing.isEmpty()) return;
    const std::optional<std::string> text =
        c.kind == ControlKind::xText ? typed : taken(m, look::text(typed));
    if (!text || !takes_input(*c.form) || c.form->active != &c) return take_back(m);
    act([&] {
        if (text->empty())
            press_key(*c.form, Key::Delete);
        else
            paste_into(*c.form, *text);
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
    // let go over a box that came meanwhile: the pressed bar would go on by itself
    if (!(QGuiApplication::mouseButtons() & Qt::LeftButton)) m.widget->setEnabled(false);
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
    for (QWidget* row : rows_) delete row;
    mirrors_.clear();
    rows_.clear();
    watched_.clear();
    by_control_.clear();
    built_.assign(form_.controls.begin(), form_.controls.end());
    arrangement_ = arrange(form_);
    for (const Placed& placed : arrangement_.controls) {
        Mirror& m = mirrors_.emplace_back();
        m.placed = placed;
        by_control_[placed.control] = &m;
    }
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
    QWidget* row = row_of(m);
    make_widget(m, row ? row : this, mirror_acts);
    watched_[m.widget] = &m;
    m.widget->installEventFilter(this);
    if (m.input != m.widget) {
        watched_[m.input] = &m;
        m.input->installEventFilter(this);
    }
    place(m);
}

void FormView::name(Mirror& m) {
    const QString spoken = look::text(spoken_name(form_, m.control(), m.placed.place));
    if (m.widget->accessibleName() != spoken) m.widget->setAccessibleName(spoken);
    if (m.role() != Role::row_number) return;
    row_of(m)->setAccessibleName(spoken);
    for (Mirror& cell : mirrors_)
        if (cell.control().row == m.control().row && cell.widget && &cell != &m) name(cell);
}

// A box is heard by its message.
void FormView::name_window() {
    QString spoken = look::text(form_.caption);
    for (const Mirror& m : mirrors_)
        if (m.role() == Role::message) spoken += QLatin1Char(' ') + look::text(m.control().caption);
    setAccessibleName(spoken.trimmed());
}

// The widget that a control of a line stands on; nullptr for any other.
QWidget* FormView::row_of(const Mirror& m) {
    const Layout* layout = arrangement_.layout;
    if (!layout || layout->row_step == 0 || m.control().row < 0) return nullptr;
    const auto row = static_cast<std::size_t>(m.control().row);
    while (rows_.size() <= row) {
        auto* band = rows_.emplace_back(new RowWidget(this));
        band->setVisible(rows_on_show());
    }
    return rows_[row];
}

bool FormView::rows_on_show() const {
    return std::any_of(mirrors_.begin(), mirrors_.end(), [](const Mirror& m) {
        return m.control().row == 0 && m.role() != Role::hidden && on_show(m.control());
    });
}

bool FormView::seen(const Mirror& m, bool rows) const {
    switch (m.role()) {
        case Role::hidden:
            return false;
        case Role::with_rows:
        case Role::row_number:
            return rows && m.control().visible;
        default:
            return on_show(m.control());
    }
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
    QRect at = scaled(m.placed.at);
    if (QWidget* row = row_of(m)) {
        Area2 band = arrangement_.layout->row;
        band.y += m.control().row * arrangement_.layout->row_step;
        row->setGeometry(scaled(band));
        at.translate(-row->pos());
    }
    m.widget->setGeometry(at);
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

void FormView::rearrange() {
    if (controls_changed() || (!isVisible() && arrange(form_).height != arrangement_.height)) build();
}

void FormView::sync() {
    rearrange();
    if (!isVisible() || fresh_) start_afresh();
    if (fresh_ || form_.revision != revision_) {
        const QString title = look::text(form_.caption);
        if (windowTitle() != title) setWindowTitle(title);
        name_window();
        revision_ = form_.revision;
    }
    const bool entered = fresh_ || form_.focus_moves != focus_moves_;
    focus_moves_ = form_.focus_moves;
    if (entered) mark_current();
    const bool rows = rows_on_show();
    for (QWidget* row : rows_)
        if (row->isHidden() == rows) row->setVisible(rows);
    bool others_on_show = false;
    for (Mirror& m : mirrors_) {
        const Control& c = m.control();
        const bool show = seen(m, rows);
        if (!m.widget && !show) continue;
        const bool made = !m.widget;
        if (made) make(m);
        if (made || fresh_ || m.revision != c.revision) {
            m.revision = c.revision;
            sync_widget(m, entered && form_.active == &c);
            if (made || fresh_ || !c.caption.empty()) name(m);
        }
        if (made || m.shown != show) {
            m.shown = show;
            m.widget->setVisible(show);
            others_on_show = true;
        }
    }
    if (others_on_show) update();  // the headings and units of what came or went
    fresh_ = false;
    follow_focus();
    keep_selection(entered);
    if (entered) turn_on_where_japanese();
}

void FormView::turn_on_where_japanese() {
    const Control* c = form_.active;
    turn_input_method(c && c->mode == InputMode::japanese && uses_input_method(*c) && isActiveWindow());
}

// A form that comes anew may be another than the one that went, whatever its revisions say; a composition
// that the last showing left behind is given up.
void FormView::start_afresh() {
    fresh_ = true;
    lone_ctrl_ = false;
    rescale();
    wheel_rest_ = 0;
    current_row_ = -1;
    for (Mirror& m : mirrors_) {
        m.touched = m.current = false;
        if (!m.widget || m.composing.isEmpty()) continue;
        m.composing.clear();
        QInputMethodEvent none;
        m.widget->removeEventFilter(this);
        QCoreApplication::sendEvent(m.widget, &none);
        m.widget->installEventFilter(this);
    }
}

// The line stays marked while buttons and pages have the focus: the line tools work on it.
void FormView::mark_current() {
    const Control* active = form_.active;
    int row = current_row_;
    if (active && (active->row >= 0 || takes_text(*active))) row = active->row;
    if (row == current_row_) return;
    for (const int changed : {current_row_, row})
        if (changed >= 0 && changed < static_cast<int>(rows_.size()))
            update(rows_[static_cast<std::size_t>(changed)]->geometry());
    current_row_ = row;
    for (Mirror& m : mirrors_) m.current = m.role() == Role::row_number && m.control().row == row;
}

// The platform drops a selection when the focus comes and goes by its own moves; the model's stays until the
// operator sets the cursor.
void FormView::keep_selection(bool entered) {
    Mirror* m = form_.active ? mirror_of(*form_.active) : nullptr;
    if (!m) return;
    if (entered) m->touched = false;
    const auto* edit = dynamic_cast<const QLineEdit*>(m->widget);
    if (edit && form_.active->select_all && !m->touched && m->composing.isEmpty() &&
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
            const QRect r =
                scaled({place.at.x - place.heading_lead, layout.heading.y, place.heading, layout.heading.h});
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
}

void FormView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), look::page);
    if (isWindow() && parentWidget()) {
        p.setPen(QPen(look::bar, 2));
        p.drawRect(rect().adjusted(1, 1, -1, -1));
    }
    const Layout* layout = arrangement_.layout;
    if (!layout) return;
    if (layout->frame.w > 0) {
        p.fillRect(scaled(layout->frame), Qt::white);
        p.setPen(look::line);
        p.drawRect(scaled(layout->frame).adjusted(0, 0, -1, -1));
    }
    // stripes lead the eye along a row; the current one stands out
    for (std::size_t row = 0; row < rows_.size() && !rows_[row]->isHidden(); ++row) {
        const bool current = static_cast<int>(row) == current_row_;
        if (current || row % 2 == 1) p.fillRect(rows_[row]->geometry(), current ? look::band : look::page);
    }
    paint_headings(p);
}

void FormView::closeEvent(QCloseEvent* event) {
    event->ignore();  // the model closes, the view follows
    if (!takes_input(form_)) return;
    finish_composition();
    act([this] { close_form(form_); });
}

}  // namespace kalvane
