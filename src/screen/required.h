// The mandatory check of a document.
#pragma once
#include "screen/screen_model.h"

namespace kalvane {

// The first gap: the area, and in the head the number 1 to 8 of the required field, in the lines the index
// of the line. Area none: no gap.
struct Gap {
    Area area = Area::none;
    int place = 0;
};
Gap 必須項目確認();
int head_gap();                       // 1 to 8, 0 when the head is complete
Control& required_head_field(int n);  // 1 to 8

}  // namespace kalvane
