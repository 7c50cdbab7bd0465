// Month closings and fiscal years, both from the company's 決算月 and 決算日, the repair of a typed date, and
// the window of dates that may be registered. Dates are "yyyymmdd" and compared as text. A pair that names
// the last day of its month closes every month on its last day, whatever its length; any other pair closes
// on the day 決算日, carried on where a month lacks it. A result outside the years 100-9999 raises
// RunFailure.
#pragma once
#include <string>

namespace kalvane {

// Closing date of the month that holds the date.
std::string 月締日付(const std::string& 日付);
// First and last day of the fiscal year that holds the date.
std::string 期首日付(const std::string& 日付);
std::string 決算期末日付(const std::string& 日付);
// Rewrites year, month and day to a valid date, in four, two and two digits; three zeros and a valid date
// stay as they are. A day above 27 that the month lacks becomes the month's last day, any other impossible
// date carries over.
void 日付補正(std::string& 年, std::string& 月, std::string& 日);

struct DateWindow {
    std::string low, high;  // both included
};
// The window on a day: the fiscal year of the day, in its first two months the year before too, and about
// two years behind its end.
DateWindow 登録可能期間(const std::string& today);

}  // namespace kalvane
