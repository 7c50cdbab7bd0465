// Settings of the database client, as the office suite keeps them.
#include "data/client_trust.h"

namespace kalvane {

bool Access信頼設定() {
    return false;
}

}  // namespace kalvane
