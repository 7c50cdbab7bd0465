// The mouse wheel moves the line scroll bar of the entry screen.
#pragma once
#include "platform/screen/form.h"

namespace kalvane {

// One notch over the form moves the bar by step lines, whatever the notch's size: away from the operator
// up, else down. Nothing while the bar is disabled.
bool マウスホイール開始(Form& form, Control& bar, int step);
bool マウスホイール終了();

}  // namespace kalvane
