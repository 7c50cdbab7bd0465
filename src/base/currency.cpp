// Checked arithmetic and rounding of 通貨, conversion from and to text.
#include "base/currency.h"

#include <cmath>
#include <limits>

#include "base/failure.h"
#include "base/text.h"

namespace kalvane {

namespace {

constexpr std::int64_t scale = 10000;
constexpr double two_to_63 = 9223372036854775808.0;
__extension__ using Wide = __int128;

[[noreturn]] void overflow() {
    throw RunFailure(overflow_text);
}

// The quotient to the nearest whole number, ties to even.
constexpr Wide divide_to_even(Wide n, Wide divisor) {
    const Wide q = n / divisor, rest = n % divisor;
    const Wide twice = 2 * (rest < 0 ? -rest : rest);
    const bool away = twice > divisor || (twice == divisor && q % 2 != 0);
    return away ? q + (n < 0 ? -1 : 1) : q;
}

}  // namespace

通貨 通貨::whole(std::int64_t n) {
    std::int64_t units = 0;
    if (__builtin_mul_overflow(n, scale, &units)) overflow();
    return from_units(units);
}

通貨 通貨::from_double(double x) {
    const double units = std::nearbyint(x * 10000.0);
    if (!(units >= -two_to_63 && units < two_to_63)) overflow();
    return from_units(static_cast<std::int64_t>(units));
}

通貨 operator+(通貨 a, 通貨 b) {
    std::int64_t units = 0;
    if (__builtin_add_overflow(a.units_, b.units_, &units)) overflow();
    return 通貨::from_units(units);
}

通貨 operator-(通貨 a, 通貨 b) {
    std::int64_t units = 0;
    if (__builtin_sub_overflow(a.units_, b.units_, &units)) overflow();
    return 通貨::from_units(units);
}

通貨 operator-(通貨 a) {
    return 通貨() - a;
}

通貨 operator*(通貨 a, 通貨 b) {
    const Wide units = divide_to_even(Wide{a.units_} * b.units_, scale);
    if (units < std::numeric_limits<std::int64_t>::min() || units > std::numeric_limits<std::int64_t>::max())
        overflow();
    return 通貨::from_units(static_cast<std::int64_t>(units));
}

通貨 times(通貨 a, std::int16_t n) {
    std::int64_t units = 0;
    if (__builtin_mul_overflow(a.units(), std::int64_t{n}, &units)) overflow();
    return 通貨::from_units(units);
}

通貨 Fix(通貨 a) {
    return 通貨::from_units(a.units() - a.units() % scale);
}

通貨 to_currency(std::string_view text) {
    return 通貨::from_double(Val(text));
}

std::int16_t to_i16(double x) {
    const double n = std::nearbyint(x);
    if (!(n >= -32768.0 && n <= 32767.0)) overflow();
    return static_cast<std::int16_t>(n);
}

std::int16_t to_i16(通貨 a) {
    const auto n = static_cast<std::int64_t>(divide_to_even(a.units(), scale));
    if (n < -32768 || n > 32767) overflow();
    return static_cast<std::int16_t>(n);
}

std::int16_t to_i16(std::string_view text) {
    return to_i16(Val(text));
}

}  // namespace kalvane
