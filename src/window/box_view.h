// A message box: a text and its buttons, over the window on top.
#pragma once
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <string>

#include "platform/screen/host.h"

namespace kalvane {

struct BoxButton : QPushButton {
    double scale = 1;
    void paintEvent(QPaintEvent* event) override;
};

class BoxView : public QWidget {
  public:
    BoxView(const std::string& text, Buttons buttons, bool default_yes, QWidget* parent);
    bool answered() const { return answered_; }
    bool yes() const { return yes_; }
    void answer(bool yes);
    QPushButton* button(bool yes);  // nullptr where the box has none

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    bool key(const QKeyEvent& event);
    void move_focus();
    QLabel text_;
    BoxButton yes_button_, no_button_;
    bool asks_, answered_ = false, yes_ = false;
};

}  // namespace kalvane
