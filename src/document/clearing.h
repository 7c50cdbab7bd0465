// Clearing the document. 新規伝票初期化 is the start and the clear button, 文書初期化 what follows a save, a
// delete or a missed number; they differ in one total alone.
#pragma once
#include "records/document.h"

namespace kalvane {

void 新規伝票初期化();
void 文書初期化();  // leaves 仕入数量合計, which gets its value from the next total
// A new document with the date of the last one (today's at first), its base date and a preview of its number.
void 新規項目クリア();
void 明細全クリア();  // lines 0 to 997 and the screen position; line 998 keeps what it holds
void 合計クリア();    // remarks and totals
void 明細初期化(int i);
// Nothing was entered on one side of the line: no code, no name, no unit, no figure.
bool sale_empty(const LineRecord& line);
bool purchase_empty(const LineRecord& line);
// What identifies a saved line and must not travel with a copy.
void 明細固有項目初期化(int i);

}  // namespace kalvane
