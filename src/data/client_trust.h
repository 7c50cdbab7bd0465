// Trust settings of the office suite's database client.
#pragma once

namespace kalvane {

// True when the settings for the version found have been written. No client is known on this platform, so
// nothing is written.
bool Access信頼設定();

}  // namespace kalvane
