// Closings and fiscal years from 決算月 and 決算日.
#include "rules/closing_dates.h"

#include <algorithm>
#include <array>

#include "base/currency.h"
#include "base/date.h"
#include "base/format.h"
#include "records/run_context.h"

namespace kalvane {

namespace {

struct MonthEnd {
    int month, day;
};
constexpr auto month_ends = std::to_array<MonthEnd>({{1, 31},
                                                     {2, 28},
                                                     {2, 29},
                                                     {3, 31},
                                                     {4, 30},
                                                     {5, 31},
                                                     {6, 30},
                                                     {7, 31},
                                                     {8, 31},
                                                     {9, 30},
                                                     {10, 31},
                                                     {11, 30},
                                                     {12, 31}});

bool month_end_pair() {
    return std::ranges::any_of(
        month_ends, [](const MonthEnd& e) { return e.month == 実行環境.決算月 && e.day == 実行環境.決算日; });
}

// Numeric parts, the year in full.
Date parts(const std::string& date) {
    Date d = parts_of(date);
    d.year = DateSerial(d.year, 1, 1).year;
    return d;
}

std::string year_begin(int year) {
    return date_text(month_end_pair() ? DateSerial(year, 実行環境.決算月 + 1, 1)
                                      : DateSerial(year, 実行環境.決算月, 実行環境.決算日 + 1));
}

std::string year_end(int year) {
    return date_text(month_end_pair() ? DateSerial(year, 実行環境.決算月 + 1, 0)
                                      : DateSerial(year, 実行環境.決算月, 実行環境.決算日));
}

}  // namespace

std::string 月締日付(const std::string& 日付) {
    const Date d = parts(日付);
    if (month_end_pair()) return date_text(DateSerial(d.year, d.month + 1, 0));
    return date_text(DateSerial(d.year, d.month + (実行環境.決算日 >= d.day ? 0 : 1), 実行環境.決算日));
}

std::string 期首日付(const std::string& 日付) {
    const int year = parts(日付).year;
    const std::string begin = year_begin(year);
    return begin > 日付 ? year_begin(year - 1) : begin;
}

std::string 決算期末日付(const std::string& 日付) {
    const int year = parts(日付).year;
    const std::string end = year_end(year);
    return end < 日付 ? year_end(year + 1) : end;
}

void 日付補正(std::string& 年, std::string& 月, std::string& 日) {
    const Date typed{.year = to_i16(年), .month = to_i16(月), .day = to_i16(日)};
    if (typed == Date{}) return;
    Date d = DateSerial(typed.year, typed.month, typed.day);
    if (d == typed) return;
    if (typed.day > 27) d = DateSerial(typed.year, typed.month + 1, 0);
    年 = Format(d.year, "0000");
    月 = Format(d.month, "00");
    日 = Format(d.day, "00");
}

DateWindow 登録可能期間(const std::string& today) {
    const std::string begin = 期首日付(today);
    const Date b = parts_of(begin);
    const bool settled = today >= date_text(DateSerial(b.year, b.month + 2, b.day));
    const Date end = parts_of(決算期末日付(settled ? today : begin));
    return {.low = settled ? begin : date_text(DateSerial(b.year - 1, b.month, b.day)),
            .high = 月締日付(date_text(DateSerial(end.year + 2, end.month, 1)))};
}

}  // namespace kalvane
