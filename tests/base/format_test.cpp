// Number patterns.
#include "base/format.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/failure.h"
#include "support/table.h"

namespace kalvane {
namespace {

// Half away from zero, also from an even digit; no minus in front of a zero.
TEST(Format, Currency) {
    for (const auto& r : test::table(R"(0|0|0 ; 0|###| ; 4999|###| ; -4999|###| ; 5000|###|1 ; 70000|###|7
        0|##0|0 ; 125000|0|13 ; -125000|0|-13 ; 135000|0|14 ; 124999|0|12 ; -4000|0|0 ; -40|0.00|0.00
        -50|0.00|-0.01 ; -5000|##########0.00|-0.50 ; 123456|000|012 ; -50000|000|-005
        120000|00000000|00000012 ; 12345678900000|00000000|1234567890 ; 9999999999|#,###,###,##0|1,000,000
        9990000|#,###,###,##0|999 ; -12345678995|#,###,###,##0.00|-1,234,567.90
        12345678945|#,###,###,##0.000|1,234,567.895 ; 5|#,###,###,##0.0000|0.0005 ; 12345|0.000000|1.234500
        99999|###########0.0|10.0 ; 9223372036854775807|###########0.0000|922337203685477.5807
        -9223372036854775808|###########0|-922337203685478)"))
        EXPECT_EQ(Format(通貨::from_units(std::stoll(r[0])), r[1]), r[2]) << r[0] << ' ' << r[1];
}

TEST(Format, Patterns) {
    for (const auto& r : test::table("0|# ; 1|#|.0 ; 2||.00 ; 3||.000 ; 4||.0000 ; 5|# ; -1|#")) {
        const std::string tail = r.size() > 2 ? r[2] : "";
        EXPECT_EQ(数値表示書式(std::stoi(r[0])), "#,###,###,##0" + tail);
        EXPECT_EQ(数値SQL書式(std::stoi(r[0])), r[1] + "##########0" + tail);
    }
}

TEST(Format, WholeNumbers) {
    for (const auto& r : test::table(R"(7|00|07 ; -7|##0|-7 ; 0|###| ; 100000000|00000000|100000000
        1234567|###,##0|1,234,567 ; 3|0.0|3.0 ; -9223372036854775808|0|-9223372036854775808)"))
        EXPECT_EQ(Format(static_cast<std::int64_t>(std::stoll(r[0])), r[1]), r[2]) << r[0] << ' ' << r[1];
}

// A double rounds its decimal digits: 1.005 is 1.00499… in binary.
TEST(Format, Double) {
    for (const auto& r : test::table(R"(0.5|0|1 ; 2.5|0|3 ; -2.5|0|-3 ; 1.005|0.00|1.01 ; -0.004|0.00|0.00
        -0.0|0|0 ; 0.3|###| ; 999.995|#,##0.00|1,000.00 ; 0.95|0.0|1.0 ; 33.25|##0.0000|33.2500
        1e15|0|1000000000000000 ; 1e22|#,##0|10,000,000,000,000,000,000,000 ; 1e-300|0.00|0.00
        1.5|000|002)"))
        EXPECT_EQ(Format(std::stod(r[0]), r[1]), r[2]) << r[0] << ' ' << r[1];
    EXPECT_THROW(Format(HUGE_VAL, "0"), RunFailure);
}

TEST(Format, AppendsAndPlainNumbers) {
    std::string sql = "VALUES ('1',";
    append_format(sql, 通貨::from_units(-15000), "###########0.0");
    EXPECT_EQ(sql, "VALUES ('1',-1.5");
    EXPECT_EQ(plain_number(通貨::whole(1200)), "1200");
    EXPECT_EQ(plain_number(通貨::from_units(-5000)), "-0.5");
    for (const auto& r : test::table("33.25|33.25 ; -0.0|0 ; 0.1|0.1 ; 12e20|1200000000000000000000"))
        EXPECT_EQ(plain_number(std::stod(r[0])), r[1]);
}

}  // namespace
}  // namespace kalvane
