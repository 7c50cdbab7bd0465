// What a changed field does to the document: stored only when it differs, looked up or recalculated, and
// the part of the screen that shows it drawn anew.
#pragma once
#include "screen/screen_model.h"

namespace kalvane {

// A field has been left. Nothing when its value is the one held.
void 項目離脱処理(Control& c, const ScreenField& f);
// A code or its combo, a line kind or a check box has been changed by the operator.
void 区分変更処理(Control& c, const ScreenField& f);

}  // namespace kalvane
