// btn_削除: right and date, reference, question, statements, cleared screen.
#pragma once

namespace kalvane {

void 削除処理();

}  // namespace kalvane
