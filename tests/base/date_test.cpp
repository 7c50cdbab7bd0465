// Calendar arithmetic and date texts.
#include "base/date.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/text.h"
#include "support/table.h"

namespace kalvane {
namespace {

TEST(Date, SerialCarries) {
    for (const auto& r :
         test::table(R"(2024|3|15|20240315 ; 2024|2|30|20240301 ; 2023|2|29|20230301 ; 2024|3|0|20240229
        2100|3|0|21000228 ; 2000|3|0|20000229 ; 2024|13|1|20250101 ; 2024|0|31|20231231 ; 2024|-11|1|20230101
        2024|-12|1|20221201 ; 2024|25|-1|20251230 ; 2024|1|366|20241231 ; 0|0|5|19991205 ; 0|1|0|19991231
        29|1|1|20290101 ; 30|1|1|19300101 ; 99|12|32|20000101 ; 100|1|1|01000101 ; 9999|12|31|99991231
        10000|0|1|99991201)"))
        EXPECT_EQ(date_text(DateSerial(std::stoi(r[0]), std::stoi(r[1]), std::stoi(r[2]))), r[3]);
}

TEST(Date, OutsideTheYearsIsAFailure) {
    const Date beyond[] = {{9999, 12, 32}, {9999, 13, 1}, {100, 1, 0},
                           {100, 0, 1},    {-1, 1, 1},    {2147483647, 1, 1}};
    for (const Date& d : beyond) EXPECT_THROW(DateSerial(d.year, d.month, d.day), RunFailure) << d.year;
    EXPECT_THROW(add_days({9999, 12, 31}, 1), RunFailure);
    EXPECT_THROW(shift_months(Date{100, 1, 15}, -1), RunFailure);
}

TEST(Date, MonthsAreHeldToTheLastDay) {
    for (const auto& r : test::table(
             R"(20240331|-1|20240229 ; 20230331|-1|20230228 ; 20240229|-12|20230228 ; 20240229|48|20280229
        20240131|1|20240229 ; 20241231|2|20250228 ; 20240315|-3|20231215 ; 20240315|-36|20210315
        20240315|0|20240315 ; 20240131|-2|20231130)"))
        EXPECT_EQ(date_text(shift_months(parts_of(r[0]), std::stoi(r[1]))), r[2]) << r[0];
    EXPECT_EQ(date_time_text(shift_months(DateTime{{2024, 3, 31}, 23, 59, 58}, -1)), "20240229 235958");
}

TEST(Date, DaysAndSeconds) {
    EXPECT_EQ(date_text(add_days({2024, 2, 28}, 2)), "20240301");
    EXPECT_EQ(date_text(add_days({2024, 1, 1}, -1)), "20231231");
    const DateTime evening{{2024, 12, 31}, 23, 59, 30};
    EXPECT_EQ(date_time_text(add_seconds(evening, 45)), "20250101 000015");
    EXPECT_EQ(date_time_text(add_seconds(evening, -86400)), "20241230 235930");
    EXPECT_EQ(date_time_text(add_seconds({{2024, 1, 1}, 0, 0, 10}, -60)), "20231231 235910");
}

TEST(Date, PartsAndTexts) {
    EXPECT_EQ(parts_of("00000000"), (Date{0, 0, 0}));
    EXPECT_EQ(parts_of("2024"), (Date{2024, 0, 0}));
    EXPECT_EQ(parts_of("2024ab1x"), (Date{2024, 0, 1}));
    EXPECT_EQ(date_text({24, 3, 5}), "00240305");
    EXPECT_EQ(date_time_text({{2024, 3, 5}, 7, 8, 9}), "20240305 070809");
    EXPECT_EQ(time_text({{2024, 3, 5}, 17, 0, 9}), "17:00:09");
}

TEST(Date, Parse) {
    for (const auto& r :
         test::table(R"(20240229||y ; 20240229|235959|y ; 20230229|| ; 20241301|| ; 20240001|| ; 20240100||
        2024010|| ; 202401011|| ; 2024 101|| ; 00240101|| ; 20240101|240000| ; 20240101|006000|
        20240101|000060| ; 20240101|0000| ; 20240101|-10000|)")) {
        DateTime t{{1, 1, 1}};
        EXPECT_EQ(parse_date(r[0], r[1], t), r[2] == "y") << r[0] << r[1];
        EXPECT_EQ(date_text(t.date), r[2] == "y" ? r[0] : "00010101") << "touched by " << r[0];
    }
    DateTime t;
    ASSERT_TRUE(parse_date("20240131", "123456", t));
    EXPECT_EQ(t, (DateTime{{2024, 1, 31}, 12, 34, 56}));
}

}  // namespace
}  // namespace kalvane
