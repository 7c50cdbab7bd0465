// btn_画面クリア.
#pragma once
#include <string>

namespace kalvane {

// With unsaved input asks whether to go on ("入力がありました。", a line break, the question). True without
// unsaved input and on yes; on no the focus is back on the field that was left.
bool 入力破棄確認(const std::string& question);
void 画面クリア();

}  // namespace kalvane
