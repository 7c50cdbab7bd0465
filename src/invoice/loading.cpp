#include "invoice/loading.h"

#include "invoice/clearing.h"
#include "rules/number_allocation.h"
#include "startup/run_context.h"

namespace kalvane {

bool 起動読込() {
    文書初期化();
    return false;
}
void 起動参照読込() {}
bool 営業請求No変更(const std::string& text) {
    if (text == 実行環境.営業請求No) return false;
    実行環境.入力変更あり = true;
    実行環境.案内メッセージ.clear();
    if (text.empty()) 実行環境.営業請求No = 次番号参照(請求番号ID, 実行環境.番号基準日付, 実行環境.事業所コード);
    return true;
}
bool 営業見積No変更(const std::string&) { return false; }
bool 顧客注文No変更(const std::string&) { return false; }
bool 営業納品No変更(const std::string&) { return false; }
bool 参照営業請求No変更(const std::string&) { return false; }

}  // namespace kalvane
