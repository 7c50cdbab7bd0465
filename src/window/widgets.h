// The widgets behind the mirrors. Each draws its own face from the model; none has signals of its own, so
// the meta-object compiler is not needed.
#pragma once
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>

#include "window/mirror.h"

namespace kalvane {

// The face of a button, of a form or of a box.
struct ButtonLook {
    QString caption;
    int function_key = 0;
    double scale = 1;
    bool accent = false, in_row = false, focused = false;
};
void draw_button(QPainter& p, const QPushButton& button, const ButtonLook& look);

// Holds the controls of one line together.
struct RowWidget : QWidget {
    using QWidget::QWidget;
};
struct FieldWidget : QLineEdit {
    Mirror& m;
    FieldWidget(Mirror& mirror, QWidget* parent) : QLineEdit(parent), m(mirror) {}
    void focusInEvent(QFocusEvent* event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void paintEvent(QPaintEvent* event) override;
};
struct MemoWidget : QPlainTextEdit {
    Mirror& m;
    MemoWidget(Mirror& mirror, QWidget* parent) : QPlainTextEdit(parent), m(mirror) {}
    void insertFromMimeData(const QMimeData* source) override;
    void paintEvent(QPaintEvent* event) override;
};
struct ButtonWidget : QPushButton {
    Mirror& m;
    ButtonWidget(Mirror& mirror, QWidget* parent) : QPushButton(parent), m(mirror) {}
    void paintEvent(QPaintEvent* event) override;
};
struct PanelWidget : QLabel {
    Mirror& m;
    PanelWidget(Mirror& mirror, QWidget* parent) : QLabel(parent), m(mirror) {}
    void paintEvent(QPaintEvent* event) override;
};
struct CheckWidget : QCheckBox {
    Mirror& m;
    CheckWidget(Mirror& mirror, QWidget* parent) : QCheckBox(parent), m(mirror) {}
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& at) const override { return rect().contains(at); }
};
struct ComboWidget : QComboBox {
    Mirror& m;
    ComboWidget(Mirror& mirror, QWidget* parent) : QComboBox(parent), m(mirror) {}
    void paintEvent(QPaintEvent* event) override;
    QSize minimumSizeHint() const override { return {0, 0}; }
};
struct TabWidget : QTabBar {
    Mirror& m;
    TabWidget(Mirror& mirror, QWidget* parent) : QTabBar(parent), m(mirror) {}
    void paintEvent(QPaintEvent* event) override;
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
};

}  // namespace kalvane
