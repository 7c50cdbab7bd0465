// The switch of the operator's input method.
#pragma once

namespace kalvane {

// The operator came into a field: the input method of the session is asked to compose Japanese where the
// field wants that. Nothing happens where there is none. Elsewhere what was asked before is given up.
void turn_input_method(bool on);

}  // namespace kalvane
