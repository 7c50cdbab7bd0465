// The stored form of secret texts (PIN columns).
#pragma once
#include <string>
#include <string_view>

namespace kalvane::os {

// Stored text into plain text. Anything that cannot be read gives an empty text, which matches nothing.
// No key file is laid down yet, so every stored text reads as empty.
std::string 復号(std::string_view stored);

}  // namespace kalvane::os
