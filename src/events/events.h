// The events of the entry screen: every handler begins with the same guard, and says in one line what it
// starts.
#pragma once

namespace kalvane {

// Sets the handlers of the entry screen's controls; behind build_entry_screen.
void 画面イベント設定();
// Puts the kept records back after a failed event, and draws them.
void install_event_copies();

}  // namespace kalvane
