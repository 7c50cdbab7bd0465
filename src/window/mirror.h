// Mirrors: a widget that shows a control's model. What the operator does to it is passed on to the model by
// the form's view; a mirror itself decides nothing.
#pragma once
#include <QWidget>
#include <string>

#include "window/layout.h"

namespace kalvane {

struct Mirror {
    Placed placed;
    QWidget* widget = nullptr;  // made when the control is first seen
    QWidget* input = nullptr;   // the part of it that the mouse meets
    unsigned revision = 0;
    bool shown = false;
    bool touched = false;  // the operator has set the cursor by himself since he came
    bool italic = false;
    bool current = false;  // number of the line that the operator works on
    QString composing;     // text of the input method that is not committed
    // of a field of one line: the selection, or the cursor twice, in the text as the model has it
    int from = 0, to = 0;
    bool committing = false;  // an event of the input method is under way
    double scale = 1;
    const Control& control() const { return *placed.control; }
    Role role() const { return placed.place ? placed.place->role : Role::plain; }
};

// What the operator did to a widget by its own means: the events of the models that follow.
struct MirrorActs {
    void (*edited)(Mirror& m, const std::string& text) = nullptr;
    void (*clicked)(Mirror& m) = nullptr;
    void (*chosen)(Mirror& m, int entry) = nullptr;
    void (*scrolled)(Mirror& m, int position) = nullptr;
};

// Makes the widget for the control's kind. The mirror must stay where it is in memory.
void make_widget(Mirror& m, QWidget* parent, const MirrorActs& acts);
// Shows what the model says. The focus was just moved here: the content is selected where the model says so.
void sync_widget(Mirror& m, bool entered);
// Keeps the selection that the next editing meets.
void note_selection(Mirror& m);
// Shows the model's text again with the selection that the refused editing has met.
void take_back(Mirror& m);
bool uses_input_method(const Control& c);
// The text that the model holds for an editor.
std::string model_text(const Control& c);
// What the editor holds now.
std::string widget_text(const Mirror& m);
void select_content(Mirror& m);

}  // namespace kalvane
