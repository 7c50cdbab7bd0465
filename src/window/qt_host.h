// The screen host over Qt: boxes, modal forms and waits are loops on the stack of the event that opened
// them; each leaves when the process ends.
#pragma once
#include "platform/screen/host.h"

namespace kalvane {

ScreenHost window_host();

}  // namespace kalvane
