// Accessible interfaces of rows, windows and panels.
#include "window/accessible.h"

#include <QAccessibleWidget>

#include "window/box_view.h"
#include "window/widgets.h"
#include "window/windows.h"

namespace kalvane {
namespace {

struct PressablePanel : QAccessibleWidget {
    Mirror& m;
    explicit PressablePanel(PanelWidget& panel)
        : QAccessibleWidget(&panel, QAccessible::Button), m(panel.m) {}
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        Control& c = *m.placed.control;
        if (action == pressAction() && takes_input(*c.form)) act([&c] { click(c); });
    }
};

// The platform's own tells the entry in place of the name.
struct NamedCombo : QAccessibleWidget {
    ComboWidget& combo;
    explicit NamedCombo(ComboWidget& widget)
        : QAccessibleWidget(&widget, QAccessible::ComboBox), combo(widget) {}
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? combo.currentText() : QAccessibleWidget::text(which);
    }
    QStringList actionNames() const override { return {showMenuAction()}; }
    void doAction(const QString& action) override {
        const Control& c = combo.m.control();
        if (action == showMenuAction() && c.enabled && takes_input(*c.form)) combo.showPopup();
    }
};

QAccessibleInterface* accessible_of(const QString&, QObject* object) {
    if (auto* row = dynamic_cast<RowWidget*>(object)) return new QAccessibleWidget(row, QAccessible::Row);
    if (auto* box = dynamic_cast<BoxView*>(object))
        return new QAccessibleWidget(box, QAccessible::AlertMessage);
    if (auto* view = dynamic_cast<FormView*>(object))
        return new QAccessibleWidget(view, view->parentWidget() ? QAccessible::Dialog : QAccessible::Window);
    if (auto* panel = dynamic_cast<PanelWidget*>(object); panel && panel->m.control().Click)
        return new PressablePanel(*panel);
    if (auto* combo = dynamic_cast<ComboWidget*>(object)) return new NamedCombo(*combo);
    return nullptr;  // the platform's own
}

}  // namespace

void install_accessibility() {
    QAccessible::installFactory(accessible_of);
}

}  // namespace kalvane
