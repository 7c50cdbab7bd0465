// Money, quantities and unit prices: a signed 64-bit count of ten-thousandths. Sums, differences and
// products are checked; leaving the range raises RunFailure and changes nothing.
#pragma once
#include <compare>
#include <cstdint>
#include <string_view>

namespace kalvane {

class 通貨 {
  public:
    constexpr 通貨() = default;
    // The value of a count of ten-thousandths.
    static constexpr 通貨 from_units(std::int64_t ten_thousandths) {
        通貨 c;
        c.units_ = ten_thousandths;
        return c;
    }
    // A whole number of units (yen, pieces). Out of range: RunFailure.
    static 通貨 whole(std::int64_t n);
    // nearbyint(x * 10000.0) in plain double, ties to even. Out of range or not a number: RunFailure.
    static 通貨 from_double(double x);
    constexpr std::int64_t units() const { return units_; }
    double to_double() const { return static_cast<double>(units_) / 10000.0; }
    constexpr bool is_zero() const { return units_ == 0; }

    friend 通貨 operator+(通貨 a, 通貨 b);
    friend 通貨 operator-(通貨 a, 通貨 b);
    friend 通貨 operator-(通貨 a);
    friend 通貨 operator*(通貨 a, 通貨 b);  // exact product to the nearest ten-thousandth, ties to even
    通貨& operator+=(通貨 b) { return *this = *this + b; }
    通貨& operator-=(通貨 b) { return *this = *this - b; }
    friend constexpr bool operator==(通貨, 通貨) = default;
    friend constexpr std::strong_ordering operator<=>(通貨 a, 通貨 b) { return a.units_ <=> b.units_; }

  private:
    std::int64_t units_ = 0;
};

// a times a whole number, exact. Out of range: RunFailure.
通貨 times(通貨 a, std::int16_t n);
// Cut to whole units toward zero.
通貨 Fix(通貨 a);
// The numeric value of a text (Val) as currency. Out of range: RunFailure.
通貨 to_currency(std::string_view text);

// Nearest 16-bit integer, ties to even. Outside -32768..32767 or not a number: RunFailure.
std::int16_t to_i16(double x);
std::int16_t to_i16(通貨 a);
// The numeric value of a text (Val), then as above.
std::int16_t to_i16(std::string_view text);

}  // namespace kalvane
