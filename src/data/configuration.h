// Finds the installation from the program's own folder, reads which business database to use, and opens
// the two connections.
#pragma once

namespace kalvane {

// Folders, the configuration connection, データベース定義 and 動作環境定義 into the run context. False when
// no installation or no configuration database was found, or it cannot be opened (a box tells). A failure
// behind the first opening rises to the caller.
bool 環境定義読込();
// Opens 主接続 by the kind in db. With an unknown kind nothing is opened and the result is true all the
// same. A failure leaves a row in the run history and gives false.
bool 主DB接続();
// Closes and opens 設定接続, so that what was written reaches other programs and theirs is seen.
bool 設定DB再接続();
// The per-user copies of the configuration and report databases; a copy that exists is never refreshed.
void ユーザ別環境準備();

}  // namespace kalvane
