// Opening of the list windows.
#include "lists/list_window.h"

namespace kalvane {

void 一覧表示(ListWindow) {}

}  // namespace kalvane
