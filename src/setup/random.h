// A small generator of its own, so that a seed gives the same rows with every library.
#pragma once
#include <cstdint>

namespace kalvane::setup {

class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    // Any of 0 .. count-1; count is above 0.
    std::uint64_t below(std::uint64_t count) { return next() % count; }
    // Any of low .. high.
    std::int64_t between(std::int64_t low, std::int64_t high) {
        return low + static_cast<std::int64_t>(below(static_cast<std::uint64_t>(high - low) + 1));
    }

  private:
    std::uint64_t next() {  // SplitMix64
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15u);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    std::uint64_t state_;
};

}  // namespace kalvane::setup
