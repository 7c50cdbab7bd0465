// Two sides in interleaved rounds, and the shape in which figures are printed.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "figures.h"

namespace kalvane::bench {

inline constexpr int rounds = 9;

struct Side {
    std::string name;
    std::function<Took()> run;  // one round: makes ready, and takes the time of the act alone
};
// A side against its yardstick.
struct Contest {
    std::string title;
    Side measured, yardstick;
    double highest_ratio;        // of their medians
    std::size_t statements = 0;  // of the act; 0 leaves the time of one untold
};
// Each side runs once unmeasured, then the rounds, in turn who goes first. Prints what came of it; false when
// the ratio is too high.
bool contend(const Contest& contest);

// One line: median, 99th percentile and maximum of times in seconds; target_ms 0 for none.
void print_times(const std::string& name, const std::vector<double>& seconds, double target_ms,
                 const std::string& remark = "");

}  // namespace kalvane::bench
