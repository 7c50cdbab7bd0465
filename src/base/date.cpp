// Calendar arithmetic on days since 1970.
#include "base/date.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/failure.h"
#include "base/text.h"

namespace kalvane {

namespace {

constexpr long long floor_div(long long a, long long b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

// Days since 1970-01-01 of the proleptic Gregorian calendar, counted in eras of 400 years that begin on
// the first of March.
constexpr long long day_number(long long year, long long month, long long day) {
    if (month <= 2) --year;
    const long long era = floor_div(year, 400), of_era = year - era * 400;
    const long long of_year = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5;
    return era * 146097 + of_era * 365 + of_era / 4 - of_era / 100 + of_year + day - 1 - 719468;
}

constexpr long long first_day = day_number(100, 1, 1), last_day = day_number(9999, 12, 31);
static_assert(day_number(1970, 1, 1) == 0 && day_number(2000, 3, 1) == 11017);

Date from_day_number(long long n) {
    if (n < first_day || n > last_day) throw RunFailure(bad_date_text);
    n += 719468;
    const long long era = floor_div(n, 146097), of_era = n - era * 146097;
    const long long year = (of_era - of_era / 1460 + of_era / 36524 - of_era / 146096) / 365;
    const long long of_year = of_era - (365 * year + year / 4 - year / 100);
    const long long month = (5 * of_year + 2) / 153;
    return {.year = static_cast<int>(year + era * 400 + (month >= 10 ? 1 : 0)),
            .month = static_cast<int>(month + (month < 10 ? 3 : -9)),
            .day = static_cast<int>(of_year - (153 * month + 2) / 5 + 1)};
}

struct Month {
    long long year;
    int month;  // 1-12
};

constexpr Month carried(long long year, long long month) {
    const long long years = floor_div(month - 1, 12);
    return {.year = year + years, .month = static_cast<int>(month - years * 12)};
}

constexpr int days_in(Month m) {
    const Month next = carried(m.year, m.month + 1);
    return static_cast<int>(day_number(next.year, next.month, 1) - day_number(m.year, m.month, 1));
}

void put(std::string& out, int number, int width) {
    char buffer[12];
    const char* end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    const auto size = static_cast<std::size_t>(end - buffer);
    if (size < static_cast<std::size_t>(width)) out.append(static_cast<std::size_t>(width) - size, '0');
    out.append(buffer, size);
}

// Two or four digits; -1 when anything else stands there.
int digits(std::string_view text) {
    int n = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return -1;
        n = n * 10 + (c - '0');
    }
    return n;
}

}  // namespace

Date DateSerial(int year, int month, int day) {
    long long y = year;
    if (y >= 0 && y <= 99) y += y <= 29 ? 2000 : 1900;
    const Month m = carried(y, month);
    return from_day_number(day_number(m.year, m.month, 1) + day - 1);
}

Date shift_months(Date d, int months) {
    const Month m = carried(d.year, static_cast<long long>(d.month) + months);
    return from_day_number(day_number(m.year, m.month, std::min(d.day, days_in(m))));
}

Date add_days(Date d, int days) {
    return from_day_number(day_number(d.year, d.month, d.day) + days);
}

DateTime add_seconds(DateTime t, long long seconds) {
    constexpr long long per_day = 24LL * 60 * 60;
    const long long days = floor_div(seconds, per_day);
    long long of_day = seconds - days * per_day + t.hour * 3600LL + t.minute * 60LL + t.second;
    const long long more = floor_div(of_day, per_day);
    of_day -= more * per_day;
    return {.date = from_day_number(day_number(t.date.year, t.date.month, t.date.day) + days + more),
            .hour = static_cast<int>(of_day / 3600),
            .minute = static_cast<int>(of_day / 60 % 60),
            .second = static_cast<int>(of_day % 60)};
}

DateTime shift_months(DateTime t, int months) {
    t.date = shift_months(t.date, months);
    return t;
}

Date parts_of(std::string_view yyyymmdd) {
    const auto part = [yyyymmdd](std::size_t start, std::size_t length) {
        return static_cast<int>(std::nearbyint(Val(Mid(yyyymmdd, start, length))));
    };
    return {.year = part(1, 4), .month = part(5, 2), .day = part(7, 2)};
}

std::string date_text(Date d) {
    std::string out;
    put(out, d.year, 4);
    put(out, d.month, 2);
    put(out, d.day, 2);
    return out;
}

std::string date_time_text(const DateTime& t) {
    std::string out = date_text(t.date);
    out += ' ';
    put(out, t.hour, 2);
    put(out, t.minute, 2);
    put(out, t.second, 2);
    return out;
}

std::string time_text(const DateTime& t) {
    std::string out;
    put(out, t.hour, 2);
    out += ':';
    put(out, t.minute, 2);
    out += ':';
    put(out, t.second, 2);
    return out;
}

bool parse_date(std::string_view yyyymmdd, std::string_view hhnnss, DateTime& out) {
    if (yyyymmdd.size() != 8 || (!hhnnss.empty() && hhnnss.size() != 6)) return false;
    const int year = digits(yyyymmdd.substr(0, 4)), month = digits(yyyymmdd.substr(4, 2)),
              day = digits(yyyymmdd.substr(6, 2));
    if (year < 100 || month < 1 || month > 12 || day < 1) return false;
    if (day > days_in({.year = year, .month = month})) return false;
    DateTime t{.date = {.year = year, .month = month, .day = day}};
    if (!hhnnss.empty()) {
        t.hour = digits(hhnnss.substr(0, 2));
        t.minute = digits(hhnnss.substr(2, 2));
        t.second = digits(hhnnss.substr(4, 2));
        if (t.hour < 0 || t.hour > 23 || t.minute < 0 || t.minute > 59 || t.second < 0 || t.second > 59)
            return false;
    }
    out = t;
    return true;
}

}  // namespace kalvane
