// The next number that no row holds, for the callers of the allocator.
#pragma once
#include <string>

namespace kalvane {

// next() allocates, taken(number) looks for its row. The loop ends on a free number, and also on an empty
// text, "00000000" and the same number twice running: an allocator that stands still would keep it for ever.
// The number is then taken as it is.
template <class Next, class Taken>
std::string 空き番号(Next next, Taken taken) {
    std::string number = next();
    for (std::string former; !number.empty() && number != "00000000" && number != former && taken(number);) {
        former = number;
        number = next();
    }
    return number;
}

}  // namespace kalvane
