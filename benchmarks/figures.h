// Time and order figures.
#pragma once
#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

namespace kalvane::bench {

template <class Act>
double seconds_of(Act act) {
    const auto start = std::chrono::steady_clock::now();
    act();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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
