// Who refers to the document on the screen.
#pragma once
#include <cstdint>

namespace kalvane {

// 1 when another invoice names this one (by its key as stored) as its 参照営業請求, -1 when none does. A
// failing read reads as none.
std::int16_t 他請求参照確認();
// True when nobody refers to it.
bool 削除可否();

}  // namespace kalvane
