// Interleaved rounds.
#include "rounds.h"

#include <cstdio>

namespace kalvane::bench {
namespace {

constexpr double restless = 1.3;  // rounds of one side that differ by more tell little

struct Times {
    std::vector<double> seconds, processor;
    void add(const Took& took) {
        seconds.push_back(took.seconds);
        processor.push_back(took.processor);
    }
};

void print_side(const std::string& name, const Times& times, std::size_t statements) {
    const double middle = median(times.seconds);
    std::printf("  %-14s %7.1f ms   rounds %.1f to %.1f ms   processor %.1f ms", name.c_str(), middle * 1e3,
                percentile(times.seconds, 0) * 1e3, percentile(times.seconds, 1) * 1e3,
                median(times.processor) * 1e3);
    if (statements > 0) std::printf("   %.1f us a statement", middle * 1e6 / static_cast<double>(statements));
    std::printf("\n");
}

}  // namespace

bool contend(const Contest& c) {
    c.yardstick.run();
    c.measured.run();
    Times measured, yardstick;
    std::vector<double> ratios;
    for (int i = 0; i < rounds; ++i) {
        if (i % 2) yardstick.add(c.yardstick.run());
        measured.add(c.measured.run());
        if (i % 2 == 0) yardstick.add(c.yardstick.run());
        ratios.push_back(measured.seconds.back() / yardstick.seconds.back());
    }
    const double ratio = median(measured.seconds) / median(yardstick.seconds);
    const bool good = ratio <= c.highest_ratio;
    std::printf("%s, median of %d interleaved rounds\n", c.title.c_str(), rounds);
    print_side(c.measured.name, measured, c.statements);
    print_side(c.yardstick.name, yardstick, c.statements);
    std::printf(
        "  ratio          %7.3f   at most %.2f   rounds %.3f to %.3f   of the processor %.3f   %s\n\n", ratio,
        c.highest_ratio, percentile(ratios, 0), percentile(ratios, 1),
        median(measured.processor) / median(yardstick.processor), good ? "holds" : "FAILS");
    if (percentile(yardstick.seconds, 1) > restless * percentile(yardstick.seconds, 0))
        std::printf("  the machine is not at rest: rounds of \"%s\" alone differ by more than %.1f\n\n",
                    c.yardstick.name.c_str(), restless);
    std::fflush(stdout);
    return good;
}

void print_times(const std::string& name, const std::vector<double>& seconds, double target_ms,
                 const std::string& remark) {
    std::printf("  %-21s p50 %7.2f ms   p99 %7.2f ms   max %7.2f ms", name.c_str(),
                percentile(seconds, 0.5) * 1e3, percentile(seconds, 0.99) * 1e3,
                percentile(seconds, 1) * 1e3);
    if (target_ms > 0) std::printf("   target %.0f ms", target_ms);
    std::printf("%s\n", remark.c_str());
    std::fflush(stdout);
}

}  // namespace kalvane::bench
