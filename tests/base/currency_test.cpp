// Ranges, rounding and conversions of 通貨.
#include "base/currency.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "base/failure.h"
#include "support/table.h"

namespace kalvane {
namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
constexpr auto units = &通貨::from_units;

// Ties go to even in plain double: 0.00015 is 1.4999999999999998 units, 26.49995 is 264999.5.
TEST(Currency, FromDouble) {
    for (const auto& r : test::table(R"(0|0 ; 12.5|125000 ; -12.5|-125000 ; 0.00005|0 ; 0.00015|1 ; 0.00075|8
        0.00025|2 ; -0.00025|-2 ; 0.49995|5000 ; 0.49985|4998 ; 26.49995|265000 ; 10.499949999999998|104999
        1099511627776|10995116277760000)"))
        EXPECT_EQ(通貨::from_double(std::stod(r[0])).units(), std::stoll(r[1])) << r[0];
    EXPECT_EQ(通貨::from_double(-12.3456).to_double(), -12.3456);
}

TEST(Currency, Products) {
    for (const auto& r : test::table(R"(125000|30000|375000 ; 5|1000|0 ; 5|3000|2 ; -5|3000|-2 ; 5|5000|2
        5|7000|4 ; 5|7001|4 ; -5|-7000|4 ; 5|1001|1 ; 9223372036854775807|10000|9223372036854775807
        -9223372036854775808|10000|-9223372036854775808)"))
        EXPECT_EQ((units(std::stoll(r[0])) * units(std::stoll(r[1]))).units(), std::stoll(r[2])) << r[0];
    EXPECT_EQ(times(units(12345), -10).units(), -123450);
    for (const auto& r : test::table("129999|120000 ; -129999|-120000 ; 9999|0 ; -9999|0 ; -10000|-10000"))
        EXPECT_EQ(Fix(units(std::stoll(r[0]))).units(), std::stoll(r[1])) << r[0];
}

TEST(Currency, LeavingTheRangeIsAFailure) {
    const std::vector<std::function<void()>> beyond = {[] { units(most) + units(1); },
                                                       [] { units(least) - units(1); },
                                                       [] { -units(least); },
                                                       [] { units(most) * units(10001); },
                                                       [] { units(least) * units(-10000); },
                                                       [] { times(units(most / 2 + 1), 2); },
                                                       [] { 通貨::whole(922337203685478); },
                                                       [] { 通貨::from_double(922337203685477.6); },
                                                       [] { 通貨::from_double(std::nan("")); },
                                                       [] { to_currency("9999999999999999"); },
                                                       [] { to_i16(32767.5); },
                                                       [] { to_i16(-32768.6); },
                                                       [] { to_i16(std::nan("")); },
                                                       [] { to_i16(通貨::whole(32768)); },
                                                       [] { to_i16("99999"); }};
    for (std::size_t i = 0; i < beyond.size(); ++i) EXPECT_THROW(beyond[i](), RunFailure) << i;
    EXPECT_EQ((units(least) + units(most)).units(), -1);
    EXPECT_EQ(通貨::whole(922337203685477).units(), 9223372036854770000);
    通貨 kept = units(most);
    EXPECT_THROW(kept += units(1), RunFailure);
    EXPECT_EQ(kept.units(), most);
}

TEST(Currency, SixteenBits) {
    for (const auto& r :
         test::table("0.5|0 ; 1.5|2 ; 2.5|2 ; -0.5|0 ; -1.5|-2 ; 32767.4|32767 ; -32768.5|-32768")) {
        EXPECT_EQ(to_i16(std::stod(r[0])), std::stoi(r[1])) << r[0];
        EXPECT_EQ(to_i16(通貨::from_double(std::stod(r[0]))), std::stoi(r[1])) << r[0];
    }
    EXPECT_EQ(to_i16(" -3277円"), -3277);
    EXPECT_EQ(to_i16(""), 0);
    EXPECT_EQ(to_currency("-1234.56789").units(), -12345679);
}

}  // namespace
}  // namespace kalvane
