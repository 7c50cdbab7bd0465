// btn_前No and btn_次No: through the invoices of the document's site by date, then number.
#pragma once

namespace kalvane {

// Does a neighbour exist? Looks only.
bool 前No確認();
bool 次No確認();
// Finds the neighbour again and loads it; nothing when it has gone.
void 前No読込();
void 次No読込();
// The buttons: look, ask about unsaved input, load, draw.
void 前No表示();
void 次No表示();

}  // namespace kalvane
