#include "rules/closing_dates.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "startup/run_context.h"

namespace kalvane {
namespace {

void set_closing(std::int16_t month, std::int16_t day) {
    実行環境.決算月 = month;
    実行環境.決算日 = day;
}

TEST(ClosingDates, WorkedValues) {
    struct Row {
        std::string (*routine)(const std::string&);
        const char* date;
        std::int16_t month, day;
        const char* result;
    };
    const Row rows[] = {
        {月締日付, "20240215", 3, 31, "20240229"},
        {月締日付, "20240320", 3, 20, "20240320"},
        {月締日付, "20240321", 3, 20, "20240420"},
        {月締日付, "20231221", 3, 20, "20240120"},
        {月締日付, "20240215", 2, 28, "20240229"},
        {月締日付, "20240210", 3, 30, "20240301"},
        {月締日付, "20240131", 3, 30, "20240301"},
        {月締日付, "20230228", 3, 30, "20230302"},
        {月締日付, "20240315", 0, 0, "20240331"},
        {月締日付, "", 3, 31, "19991231"},
        {月締日付, "00000000", 3, 20, "19991220"},
        {期首日付, "20240315", 3, 31, "20230401"},
        {期首日付, "20240401", 3, 31, "20240401"},
        {期首日付, "20240321", 3, 20, "20240321"},
        {期首日付, "20240320", 3, 20, "20230321"},
        {期首日付, "20240101", 12, 31, "20240101"},
        {期首日付, "20240229", 2, 28, "20230301"},
        {期首日付, "20240105", 12, 20, "20231221"},
        {期首日付, "", 3, 31, "19990401"},
        {決算期末日付, "20240515", 3, 31, "20250331"},
        {決算期末日付, "20240331", 3, 31, "20240331"},
        {決算期末日付, "20240321", 3, 20, "20250320"},
        {決算期末日付, "20230301", 2, 28, "20240229"},
        {決算期末日付, "20240228", 2, 29, "20240229"},
        {決算期末日付, "20240301", 2, 30, "20240301"},
        {決算期末日付, "20240302", 2, 30, "20250302"},
        {決算期末日付, "20231221", 12, 20, "20241220"},
    };
    for (const Row& r : rows) {
        set_closing(r.month, r.day);
        EXPECT_EQ(r.routine(r.date), r.result) << r.date << " closing " << r.month << '/' << r.day;
    }
    EXPECT_THROW(決算期末日付("99991231"), RunFailure);  // 12/20 of the year 10000
}

TEST(ClosingDates, EveryMonthEndPairClosesOnTheLastDay) {
    const int last[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (std::int16_t month = 1; month <= 12; ++month) {
        set_closing(month, static_cast<std::int16_t>(last[month - 1]));
        EXPECT_EQ(月締日付("20230203"), "20230228") << month;
        set_closing(month, static_cast<std::int16_t>(last[month - 1] - 1));
        EXPECT_NE(月締日付("20230203"), "20230228") << month << ": the day before is a day like any other";
    }
}

TEST(ClosingDates, 日付補正) {
    struct Row {
        const char *year, *month, *day, *result;
    };
    const Row rows[] = {
        {"2024", "02", "30", "2024 02 29"}, {"2023", "02", "29", "2023 02 28"},
        {"2024", "13", "05", "2025 01 05"}, {"2024", "13", "28", "2025 01 31"},
        {"2024", "00", "31", "2023 12 31"}, {"2024", "05", "00", "2024 04 30"},
        {"0000", "00", "00", "0000 00 00"}, {"0024", "03", "15", "2024 03 15"},
        {"0024", "03", "28", "2024 03 31"}, {"2024", "02", "99", "2024 02 29"},
        {"0000", "00", "05", "1999 12 05"}, {"2024", "02", "28", "2024 02 28"},
        {"2024", "3", "5", "2024 3 5"},     {"", "", "", "  "},
    };
    for (const Row& r : rows) {
        std::string year = r.year, month = r.month, day = r.day;
        日付補正(year, month, day);
        EXPECT_EQ(year + " " + month + " " + day, r.result) << r.year << r.month << r.day;
    }
    std::string year = "9999", month = "13", day = "01";
    EXPECT_THROW(日付補正(year, month, day), RunFailure);
    EXPECT_EQ(year + month + day, "99991301") << "a failure changes nothing";
}

TEST(ClosingDates, 登録可能期間) {
    struct Row {
        const char* today;
        std::int16_t month, day;
        const char *low, *high;
    };
    const Row rows[] = {
        {"20240415", 3, 31, "20230401", "20270331"},
        {"20240531", 3, 31, "20230401", "20270331"},
        {"20240601", 3, 31, "20240401", "20270331"},
        {"20240520", 3, 20, "20230321", "20270320"},
        {"20240521", 3, 20, "20240321", "20270320"},
        {"20240315", 2, 28, "20230301", "20270228"},
        {"20250115", 12, 31, "20240101", "20271231"},
        {"20250601", 2, 28, "20250301", "20280229"},  // year end 20260228, two years on a leap year
    };
    for (const Row& r : rows) {
        set_closing(r.month, r.day);
        const DateWindow w = 登録可能期間(r.today);
        EXPECT_EQ(w.low, r.low) << r.today;
        EXPECT_EQ(w.high, r.high) << r.today;
    }
}

}  // namespace
}  // namespace kalvane
