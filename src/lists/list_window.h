// The search-and-pick windows.
#pragma once
#include "screen/screen_model.h"

namespace kalvane {

// Opens the list, modally: what is picked goes into 一覧戻り先, the focus then to 一覧次項目.
void 一覧表示(ListWindow window);

}  // namespace kalvane
