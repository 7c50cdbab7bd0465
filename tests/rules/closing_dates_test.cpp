// Closings, fiscal years and repaired dates, worked by hand.
#include "rules/closing_dates.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/format.h"
#include "records/run_context.h"
#include "support/table.h"

namespace kalvane {
namespace {

void set_closing(std::int16_t month, std::int16_t day) {
    実行環境.決算月 = month;
    実行環境.決算日 = day;
}

// Date, closing month and day, result.
TEST(ClosingDates, WorkedValues) {
    const std::tuple<std::string (*)(const std::string&), const char*> routines[] = {
        {月締日付, R"(20240215|3|31|20240229 ; 20240320|3|20|20240320 ; 20240321|3|20|20240420
        20231221|3|20|20240120 ; 20240215|2|28|20240229 ; 20240210|3|30|20240301
        20240131|3|30|20240301 ; 20230228|3|30|20230302 ; 20240315|0|0|20240331 ; |3|31|19991231
        00000000|3|20|19991220)"},
        {期首日付, R"(20240315|3|31|20230401 ; 20240401|3|31|20240401 ; 20240321|3|20|20240321
        20240320|3|20|20230321 ; 20240101|12|31|20240101 ; 20240229|2|28|20230301
        20240105|12|20|20231221 ; |3|31|19990401)"},
        {決算期末日付, R"(20240515|3|31|20250331 ; 20240331|3|31|20240331 ; 20240321|3|20|20250320
        20230301|2|28|20240229 ; 20240228|2|29|20240229 ; 20240301|2|30|20240301
        20240302|2|30|20250302 ; 20231221|12|20|20241220)"}};
    for (const auto& [routine, rows] : routines)
        for (const auto& r : test::table(rows)) {
            set_closing(to_i16(r[1]), to_i16(r[2]));
            EXPECT_EQ(routine(r[0]), r[3]) << r[0] << " closing " << r[1] << '/' << r[2];
        }
    EXPECT_THROW(決算期末日付("99991231"), RunFailure);  // 12/20 of the year 10000
}

// The day before the last of a month is a day like any other.
TEST(ClosingDates, EveryMonthEndPairClosesOnTheLastDay) {
    const int last[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (std::int16_t month = 1; month <= 12; ++month)
        for (const int day : {last[month - 1], last[month - 1] - 1}) {
            set_closing(month, static_cast<std::int16_t>(day));
            EXPECT_EQ(月締日付("20230203") == "20230228", day == last[month - 1]) << month << '/' << day;
        }
}

TEST(ClosingDates, 日付補正) {
    for (const auto& r : test::table(R"(2024|02|30|2024 02 29 ; 2023|02|29|2023 02 28 ; 2024|13|05|2025 01 05
        2024|13|28|2025 01 31 ; 2024|00|31|2023 12 31 ; 2024|05|00|2024 04 30
        0000|00|00|0000 00 00 ; 0024|03|15|2024 03 15 ; 0024|03|28|2024 03 31
        2024|02|99|2024 02 29 ; 0000|00|05|1999 12 05 ; 2024|02|28|2024 02 28 ; 2024|3|5|2024 3 5
        |||  )")) {
        std::string year = r[0], month = r[1], day = r[2];
        日付補正(year, month, day);
        EXPECT_EQ(year + " " + month + " " + day, r[3]) << r[0] << r[1] << r[2];
    }
    std::string year = "9999", month = "13", day = "01";
    EXPECT_THROW(日付補正(year, month, day), RunFailure);
    EXPECT_EQ(year + month + day, "99991301") << "a failure changes nothing";
}

TEST(ClosingDates, 登録可能期間) {
    // the last: year end 20260228, two years on a leap year
    for (const auto& r : test::table(R"(20240415|3|31|20230401|20270331 ; 20240531|3|31|20230401|20270331
        20240601|3|31|20240401|20270331 ; 20240520|3|20|20230321|20270320
        20240521|3|20|20240321|20270320 ; 20240315|2|28|20230301|20270228
        20250115|12|31|20240101|20271231 ; 20250601|2|28|20250301|20280229)")) {
        set_closing(to_i16(r[1]), to_i16(r[2]));
        const DateWindow w = 登録可能期間(r[0]);
        EXPECT_EQ(w.low + " " + w.high, r[3] + " " + r[4]) << r[0];
    }
}

}  // namespace
}  // namespace kalvane
