// The process entry: from the start to the first key stroke, and the closing of the main screen.
#pragma once
#include <string>

namespace kalvane {

// Opens everything, tests the right to start, cuts the command line and shows the main screen; returns with
// the screen shown, or with the process ended in order behind a box.
void 起動処理();
// Company, site and today into the run context; false without the company's row.
bool 利用者情報読込();
// The names of this program's keys into its row of the menu family. False when the write fails.
bool 検索条件名登録(const std::string& family, const std::string& program);
// The title of the main screen: program, site, operator.
void タイトル表示();
// The end without a question: the end of the desktop session, a lost display, the end of a script.
void 強制終了();

// A fresh start of the whole process: records, screen models, connections. Tests begin with it.
void reset_run();

}  // namespace kalvane
