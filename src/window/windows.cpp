// Keeps the windows, and runs their loops.
#include "window/windows.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

#include "window/box_view.h"

namespace kalvane {
namespace {

bool is_open(const Form& form) {
    return std::find(open_forms.begin(), open_forms.end(), &form) != open_forms.end();
}

QWidget* parent_for(const Form& form) {
    if (open_forms.front() == &form) return nullptr;
    for (Form* below : open_forms)
        if (FormView* view = view_of(*below); view && view->isVisible()) return view;
    return nullptr;
}

bool fills_screen(const FormView& view, const QWidget* parent) {
    return !parent && view.design().width() >= design_width && window_state.size.isEmpty();
}

// The first form is the place of work and fills its screen; the others stand over its middle.
void size_view(FormView& view, QWidget* parent) {
    const QSize design = view.design();
    if (fills_screen(view, parent))
        view.resize(QGuiApplication::primaryScreen()->availableSize());
    else if (!parent && design.width() >= design_width)
        view.resize(window_state.size);
    else if (parent)
        view.resize(design * scale_over(parent->width(), parent->height()));
    else
        view.resize(design);
    if (parent) view.move(parent->mapToGlobal(parent->rect().center()) - view.rect().center());
}

void show_view(Form& form) {
    std::unique_ptr<FormView>& view = window_state.views[&form];
    QWidget* parent = parent_for(form);
    if (!view) view = std::make_unique<FormView>(form, nullptr);
    if (view->isVisible()) return view->sync();
    const Qt::WindowFlags top = form.on_top ? Qt::WindowStaysOnTopHint : Qt::WindowFlags();
    view->setParent(parent, (parent ? Qt::Dialog : Qt::Window) | top);
    // a window that takes no keys leaves them with the one below: what is typed meanwhile waits there
    const bool takes_keys = form.active || !parent;
    view->setAttribute(Qt::WA_ShowWithoutActivating, !takes_keys);
    view->setWindowModality(form.modal ? Qt::ApplicationModal : Qt::NonModal);
    view->rearrange();
    size_view(*view, parent);
    view->sync();
    if (fills_screen(*view, parent))
        view->showMaximized();
    else
        view->show();
    view->sync();
    // a platform without a screen says that it cannot
    if (form.on_top && QGuiApplication::platformName() != QLatin1String("offscreen")) view->raise();
    if (takes_keys) view->activateWindow();
}

}  // namespace

FormView* view_of(Form& form) {
    const auto found = window_state.views.find(&form);
    return found == window_state.views.end() ? nullptr : found->second.get();
}

void sync_windows() {
    if (window_state.syncing || !window_state.application) return;
    window_state.syncing = true;
    bool gone = false;
    // a child goes before the window that it stands on
    for (auto& [form, view] : window_state.views)
        if (view->parentWidget() && !is_open(*form)) {
            gone = gone || view->isVisible();
            view->hide();
            view->setParent(nullptr);
        }
    for (auto& [form, view] : window_state.views) {
        if (is_open(*form)) continue;
        gone = gone || view->isVisible();
        view->hide();
    }
    for (std::size_t i = 0; i < open_forms.size(); ++i) show_view(*open_forms[i]);
    if (gone) give_keys_to_top();
    window_state.syncing = false;
}

void wait_turn() {
    sync_windows();
    if (window_state.turn) {
        window_state.turn();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    } else {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    sync_windows();
}

bool takes_input(const Form& form) {
    return !process_ended() && window_state.boxes.empty() && window_state.dialogs == 0 && form.visible &&
           form.enabled && top_form() == &form;
}

void give_keys_to_top() {
    QWidget* top = window_state.boxes.empty() ? nullptr : window_state.boxes.back();
    for (auto form = open_forms.rbegin(); form != open_forms.rend() && !top; ++form)
        if ((*form)->active) top = view_of(**form);
    if (top && top->isVisible()) top->activateWindow();
}

QWidget* window_on_top() {
    if (!window_state.boxes.empty()) return window_state.boxes.back();
    for (auto form = open_forms.rbegin(); form != open_forms.rend(); ++form)
        if (FormView* view = view_of(**form); view && view->isVisible()) return view;
    return nullptr;
}

}  // namespace kalvane
