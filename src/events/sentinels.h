// The four invisible buttons that end the tab order of an area and turn its end into the next step of the
// work. They never keep the focus.
#pragma once
#include "platform/screen/control.h"

namespace kalvane {

void ヘッド終了到達(Control& sentinel);
void 頁終了到達(Control& sentinel);  // 頁1終了 and 頁2終了
void テイル終了到達(Control& sentinel);
// Behind the last line: on to the tail, or to the kind of the current row.
void 明細終了移動();

}  // namespace kalvane
