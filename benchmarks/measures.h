// The measurements. Absolute figures are reported; only a ratio can fail the run.
#pragma once
#include "desk.h"

namespace kalvane::bench {

// Registering a document of 998 lines against the bare engine on the same statement texts. False when the
// program takes too much longer.
bool measure_registration(const Installation& at);
// Memory of the scripted operator that types such a document and registers it. To be called before this
// process has grown: a child counts its parent's memory as its own at its start.
void measure_memory(const Installation& at, const std::string& folder);
// Google Benchmark's part: leaving fields, the change of a date, and the small routines.
void add_figures(const Installation& at);
void end_figures();

}  // namespace kalvane::bench
