// The browse log: who looked at which document.
#pragma once
#include <string>

namespace kalvane {

// One row of T閲覧, before the document is looked for. A failing insert loses the row; nothing is shown.
void 閲覧記録(const std::string& 閲覧情報, const std::string& 伝票事業所コード,
              const std::string& 伝票番号基準日付, const std::string& 伝票No, const std::string& キー項目);

}  // namespace kalvane
