// The machine's clock, or the frozen one.
#include "platform/os/clock.h"

#include <ctime>
#include <optional>

#include "platform/os/native.h"

namespace kalvane::os {
namespace {

struct Frozen {
    DateTime start;
    long long milliseconds = 0;  // since start
};

std::optional<Frozen> frozen;

}  // namespace

DateTime local_time(std::time_t seconds) {
    std::tm tm{};
    localtime_r(&seconds, &tm);
    return {{tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday}, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

DateTime now() {
    if (frozen) return add_seconds(frozen->start, frozen->milliseconds / 1000);
    return local_time(std::time(nullptr));
}

void freeze_clock(const DateTime& t) {
    frozen = Frozen{t};
}

void advance_clock(long long milliseconds) {
    if (frozen) frozen->milliseconds += milliseconds;
}

void release_clock() {
    frozen.reset();
}
bool clock_frozen() {
    return frozen.has_value();
}

}  // namespace kalvane::os
