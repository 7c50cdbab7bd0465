// Start and end of a run in the run history, the usage row of the seat, and the retention of old rows.
// Failures are passed over.
#pragma once
#include <string>

namespace kalvane {

// "開始 " and the command line; reads the saved operator first, so that the row carries it.
void 稼動履歴開始記録(const std::string& trimmed_command_line);
// "終了", then 使用終了記録 unless the row was lost.
void 稼動履歴終了記録();
// The row of 使用状況 of this computer and user: what was started last, and what ended last.
void 使用開始記録();
void 使用終了記録();
// Drops usage rows that ended more than a month ago.
void 使用状況整理();
// The retention deletes; the family's menu program owns them.
void 履歴整理();

}  // namespace kalvane
