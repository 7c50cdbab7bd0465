// The lines of a found document into the line arrays.
#pragma once
#include "records/source_kinds.h"

namespace kalvane {

// The stored lines as they stand; 新規入力中 follows from whether there are any.
void stored_lines();
// The lines of a source as new lines, computed anew. Nothing while the document has lines.
void source_lines(const SourceRow& source);

}  // namespace kalvane
