// The line scroll bar: which of the document's lines the ten screen rows show.
#pragma once
#include "platform/screen/form.h"

namespace kalvane {

// The last position of the bar by the number of lines.
int スクロール終端();
// Enabled, range and position of the bar by the number of lines; below ten lines disabled at 0.
void スクロール設定();
// The bar has moved: the rows follow, the focus stays where it is.
void 行スクロール変更();
// Moves the bar by code, raising its range first when the position lies behind it.
void 行スクロール(int position);

// Everything anew after another document has come: all areas, the bar, the buttons.
void 画面再表示();
// Runs work that loads a document. A loader that fails has cleared the document: it is shown so and stays so,
// and the failure goes on.
template <class Work>
void 読込表示(Work work) {
    try {
        work();
    } catch (...) {
        画面再表示();
        if (event_copies.keep)
            event_copies.keep();  // the end of the event must not bring the old document back
        throw;
    }
}

}  // namespace kalvane
