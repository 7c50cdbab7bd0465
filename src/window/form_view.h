// A form's window: mirrors for its controls, keys and clicks passed on as the operator events of the form,
// the focus of the platform kept on the control that has it in the model.
#pragma once
#include <QWidget>
#include <deque>
#include <unordered_map>
#include <vector>

#include "window/mirror.h"

namespace kalvane {

class FormView : public QWidget {
  public:
    FormView(Form& form, QWidget* parent);
    void sync();
    // Puts the controls in their places, where other ones came or texts that take room.
    void rearrange();
    Form& form() const { return form_; }
    // The mirror of a control; nullptr while it has no widget.
    Mirror* mirror_of(const Control& c);
    QWidget* widget_of(const Control& c);
    QSize design() const { return {arrangement_.width, arrangement_.height}; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    bool controls_changed() const;
    void build();
    void make(Mirror& m);
    void place(Mirror& m);
    void name(Mirror& m);
    void name_window();
    void mark_current();
    QWidget* row_of(const Mirror& m);
    bool rows_on_show() const;
    bool seen(const Mirror& m, bool rows) const;
    void rescale();
    void start_afresh();
    void follow_focus();
    void keep_selection(bool entered);
    void finish_composition();
    void turn_on_where_japanese();
    QRect scaled(const Area2& at) const;
    void paint_headings(QPainter& p) const;
    bool key(Mirror* m, QKeyEvent& event);
    bool mouse(Mirror& m, QEvent& event);
    bool wheel(Mirror* m, QWheelEvent& event);
    bool drop(Mirror& m, QDropEvent& event);
    bool compose(Mirror& m, QInputMethodEvent& event);
    void let_go(const QKeyEvent& event);

    Form& form_;
    Arrangement arrangement_;
    std::deque<Mirror> mirrors_;
    std::vector<const Control*> built_;
    std::unordered_map<const QObject*, Mirror*> watched_;
    std::unordered_map<const Control*, Mirror*> by_control_;
    std::vector<QWidget*> rows_;  // of the lines, where the form has any
    unsigned revision_ = 0, focus_moves_ = 0;
    int current_row_ = -1;
    int wheel_rest_ = 0;
    bool lone_ctrl_ = false;  // Ctrl is held down, and nothing else was done since
    QString late_;            // committed when the field was left: may come once more from the input method
    bool fresh_ = true;
    double x_scale_ = 1, y_scale_ = 1, scale_ = 1;
};

}  // namespace kalvane
