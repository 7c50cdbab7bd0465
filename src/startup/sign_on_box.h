// msg暗証番号確認: the box that asks for an operator code and a PIN.
#pragma once
#include <string>

namespace kalvane {

// Asks the operator to sign on; 暗証番号確認済 tells the outcome. Nobody can sign on here yet: it stays as
// it is.
void 暗証番号確認表示(const std::string& caption);

}  // namespace kalvane
