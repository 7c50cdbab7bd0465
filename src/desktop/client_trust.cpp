#include "desktop/client_trust.h"

namespace kalvane {

bool Access信頼設定() {
    return false;
}

}  // namespace kalvane
