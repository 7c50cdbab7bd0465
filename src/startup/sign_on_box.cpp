#include "startup/sign_on_box.h"

namespace kalvane {

void 暗証番号確認表示(const std::string&) {}

}  // namespace kalvane
