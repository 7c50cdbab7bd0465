// The measurements. Absolute figures are reported; only a ratio can fail the run.
#pragma once
#include "desk.h"

namespace kalvane::bench {

// Memory of the scripted operator that types a document of 998 lines and registers it. To be called before
// this process has grown: a child counts its parent's memory as its own at its start.
void measure_memory(const Installation& at, const std::string& folder);
// The window without a display: its start, its memory, and leaving a field, painting included; Qt's own
// figures beside them.
void measure_window(const Installation& at, const std::string& folder);
// Registering a document of 998 lines, and changing one, against the bare engine on the same statement texts.
// False when the program takes too much longer. Keeps a stored document in the installation.
bool measure_saves(const Installation& at);
// Opening such a document among a million invoices against among a thousand: false when it takes too much
// longer. And the steps to the neighbours among the million.
bool measure_volume(const std::string& folder);
// Google Benchmark's part: leaving fields, the change of a date, and the small routines.
void add_figures(const Installation& at);
void end_figures();

}  // namespace kalvane::bench
