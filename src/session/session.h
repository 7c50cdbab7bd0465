// The first half of the start, and the end: both connections, the run history, the link row, the operator.
#pragma once

namespace kalvane {

void 画面情報取得();
// True when the configuration and business databases are open. Runs again after a save that closes and
// opens the databases.
bool データベース起動();
// Answers a waiting caller, writes the end row, closes what is open. Runs also when nothing was opened. The
// caller ends the process right after.
void 終了処理();

}  // namespace kalvane
