// The one clock of the program. A run can freeze it; nothing else reads the machine's time.
#pragma once
#include "base/date.h"

namespace kalvane::os {

DateTime now();
inline Date today() {
    return now().date;
}
// Stops the clock at t; it moves only by advance_clock from then on.
void freeze_clock(const DateTime& t);
void advance_clock(long long milliseconds);
// Back to the machine's time.
void release_clock();
bool clock_frozen();

}  // namespace kalvane::os
