// calendar.h — model layer, demo data: days counted from 1970-01-01 (proleptic Gregorian), the
// span of the demo's books, and the ISO texts the billing tables store dates in.
#pragma once

#include <string>

namespace quillon::demo {

constexpr int DaysFromCivil(int y, int m, int d) {
    y -= m <= 2;
    const int era = (y >= 0 ? y : y - 399) / 400;
    const int yoe = y - era * 400;
    const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

struct Civil {
    int y, m, d;
};

Civil CivilFromDays(int z);

inline constexpr int kFirstDay = DaysFromCivil(2024, 1, 1);
inline constexpr int kLastDay = DaysFromCivil(2025, 12, 31);
// The day the data were taken: nothing happened after it.
inline constexpr int kCutDay = DaysFromCivil(2026, 1, 10);

// Day of an ISO date text "yyyy-mm-dd".
int DayOf(const char* iso);
// "yyyy-mm-dd".
std::string IsoDate(int day);
// "yyyy-mm-dd hh:mm:ss", `second` counted from midnight.
std::string IsoDateTime(int day, int second);
// Months counted from year 0: year * 12 + month - 1.
int MonthIndex(int day);
// "yyyymm" of a month index.
std::string YearMonthText(int monthIndex);
int LastDayOfMonth(int day);
// First and last day of the day's year.
int FirstDayOfYear(int day);
int LastDayOfYear(int day);

} // namespace quillon::demo
