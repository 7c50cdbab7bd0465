// Dates and times without a time zone, and the arithmetic on them that the business uses.
#pragma once
#include <compare>
#include <string>
#include <string_view>

namespace kalvane {

struct Date {
    int year = 0, month = 0, day = 0;
    friend constexpr auto operator<=>(const Date&, const Date&) = default;
};

struct DateTime {
    Date date;
    int hour = 0, minute = 0, second = 0;
    friend constexpr auto operator<=>(const DateTime&, const DateTime&) = default;
};

// The date of year, month and day, each of which may overflow into the next unit; day 0 is the last day
// of the month before. Years 0-29 mean 2000-2029, 30-99 mean 1930-1999. A result outside the years
// 100-9999 raises RunFailure.
Date DateSerial(int year, int month, int day);
// Whole months on (or back), the day held to the last one of the month reached.
Date shift_months(Date d, int months);
Date add_days(Date d, int days);
DateTime add_seconds(DateTime t, long long seconds);
DateTime shift_months(DateTime t, int months);

// The numeric parts of "yyyymmdd": characters 1-4, 5-6, 7-8 by Val; 0 where nothing stands.
Date parts_of(std::string_view yyyymmdd);
// Year in four digits, month and day in two.
std::string date_text(Date d);                  // "yyyymmdd"
std::string date_time_text(const DateTime& t);  // "yyyymmdd hhnnss"
std::string time_text(const DateTime& t);       // "hh:mm:ss"
// "yyyymmdd" with an optional "hhnnss" into a real date and time; false when it is none.
bool parse_date(std::string_view yyyymmdd, std::string_view hhnnss, DateTime& out);

}  // namespace kalvane
