// The search-and-pick windows.
#pragma once
#include "platform/screen/control.h"

namespace kalvane {

// Opens the list that belongs to a field of the entry screen, modally. A field without one opens nothing.
void 一覧表示(Control& field);

}  // namespace kalvane
