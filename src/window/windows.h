// All windows of the process: one view a form, the message box on top, and the loops that wait.
#pragma once
#include <QApplication>
#include <QSize>
#include <QString>
#include <map>
#include <memory>
#include <vector>

#include "window/form_view.h"

namespace kalvane {

class BoxView;

struct WindowState {
    std::unique_ptr<QApplication> application;
    std::map<Form*, std::unique_ptr<FormView>> views;
    std::vector<BoxView*> boxes;  // message boxes, the one that waits last
    int dialogs = 0;              // file and folder dialogs that are open
    void (*turn)() = nullptr;     // in place of waiting for input
    bool syncing = false;
    QSize size;  // of the main window; empty fills the screen
};
inline WindowState window_state;

// Makes the windows show what the models say: new forms appear, closed ones go.
void sync_windows();
// One turn of a loop: waits for input, or runs what stands in place of it, and shows what came of it.
void wait_turn();
// Whether the operator's input reaches this form now.
bool takes_input(const Form& form);
FormView* view_of(Form& form);  // nullptr while it was never shown
// The widget on which a box or dialog stands; nullptr without a window.
QWidget* window_on_top();
// When a window goes, the platform may give the keys to none: what is typed next would be lost.
void give_keys_to_top();

// Runs an operator event and shows what came of it.
template <class Event>
void act(Event event) {
    event();
    sync_windows();
}

}  // namespace kalvane
