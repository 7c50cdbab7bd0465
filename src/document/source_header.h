// The header of a found document into the header in memory.
#pragma once
#include "records/source_kinds.h"

namespace kalvane {

// Reads the open recordset of a stored invoice, and closes it.
void stored_header();
// Reads the open recordset of a source: what the invoice has already wins. Closes it.
void source_header(const SourceRow& source);

}  // namespace kalvane
