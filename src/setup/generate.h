// Invoices in volume, for measuring: live rows spread over the three years up to today, for the customers,
// destinations and products of the installation. No history rows and no queue rows come with them.
#pragma once
#include <cstdint>
#include <string>

namespace kalvane::setup {

struct GenerateRequest {
    std::string root;           // native path of an installation of this version
    std::int64_t invoices = 0;  // 1 .. most_invoices
    int lines = 0;              // lines of each, 0 .. most_lines; without lines a header carries an amount
    std::uint64_t seed = 0;
};
inline constexpr std::int64_t most_invoices = 10'000'000;
inline constexpr int most_lines = 998;

// Appends the invoices behind the number given out last and moves the counter along, a batch at a time: when
// this stops on the way, what stands is whole and in step. The same installation, day and seed give the same
// rows. SetupError: not an installation of this version, no customer or product to write about, or a number
// series that is not continuous.
void generate_invoices(const GenerateRequest& request);

}  // namespace kalvane::setup
