#include "invoice/launching.h"

namespace kalvane {

void 請求書印刷() {}

}  // namespace kalvane
