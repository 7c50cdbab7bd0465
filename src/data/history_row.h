// Single rows of プログラム稼動履歴, the program's log. A row is written straight to 設定接続; any failure is
// passed over and the row is lost.
#pragma once
#include <string>
#include <string_view>

namespace kalvane {

// Counts the row and writes it; its 摘要 is the kind and the text, without trailing blanks and NUL bytes.
// False when the row was lost.
bool history_row(std::string_view kind, std::string_view text = "");
// "出力終了 " and the statement, unless the suite's update monitor logs its own queue traffic.
void 稼動履歴出力記録(const std::string& sql);
// "エラー " and the text.
void 稼動履歴エラー記録(const std::string& text);

}  // namespace kalvane
