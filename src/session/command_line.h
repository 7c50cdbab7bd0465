// The positional command line: the key of an invoice, and behind it the keys of source documents.
#pragma once
#include <string>

#include "records/run_context.h"

namespace kalvane {

// Site, base date and number at a position (from 1) of the trimmed text: 3, 8 and 8 characters, what is
// there. A part with a character that no code field takes makes the whole key empty.
DocumentKey 伝票キー切出(const std::string& trimmed_text, std::size_t position);
// Cuts the invoice's key into the run context and sets 引数起動, 引用起動 and 新規入力中.
void コマンドライン切出(const std::string& trimmed_text);

}  // namespace kalvane
