// The machine asks the process to end: a signal becomes a readable handle, so that it is met by the loop of
// the front end and never in the middle of a statement.
#pragma once

namespace kalvane::os {

// Catches the signals that ask for the end (terminate, hang-up, interrupt) from now on. A descriptor that
// becomes readable at the first of them; -1 when none can be made, the signals then end the process.
int catch_termination();

}  // namespace kalvane::os
