// Starts of the suite's other programs.
#include "events/launching.h"

namespace kalvane {

void 請求書印刷() {}

}  // namespace kalvane
