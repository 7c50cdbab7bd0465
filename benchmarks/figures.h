// Time and order figures.
#pragma once
#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <vector>

namespace kalvane::bench {

// What an act took: by the clock, and of the processor alone, which the disk's moods leave alone.
struct Took {
    double seconds = 0, processor = 0;
};
inline double processor_seconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}
template <class Act>
double seconds_of(Act act) {
    const auto start = std::chrono::steady_clock::now();
    act();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

template <class Act>
Took time_of(Act act) {
    const double before = processor_seconds();
    const double seconds = seconds_of(act);
    return {seconds, processor_seconds() - before};
}

// The value that the share p (0 to 1) of them does not pass.
inline double percentile(std::vector<double> values, double p) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const double rank = std::ceil(p * static_cast<double>(values.size()));
    return values[static_cast<std::size_t>(std::max(1.0, rank)) - 1];
}
inline double median(const std::vector<double>& values) {
    return percentile(values, 0.5);
}

}  // namespace kalvane::bench
