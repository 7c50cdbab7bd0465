#include "platform/os/secrets.h"

namespace kalvane::os {

std::string 復号(std::string_view) {
    return {};
}

}  // namespace kalvane::os
