// calendar.h — model layer, demo data: days counted from 1970-01-01 (proleptic Gregorian), the
// span of the demo's books, and the ISO texts the billing tables store dates in.
#pragma once

#include <optional>
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

// The books as they are written: the generator works on its fixed span above and every date is
// moved by whole months on its way out, to the same day of the month, or to the month's last day
// when that month is shorter. So the same seed makes the same books whatever month they end in.
class BookCalendar {
public:
    explicit BookCalendar(int shiftMonths = 0) : shift_(shiftMonths) {}
    // The shift that makes the books' last month year-month (1..12).
    static int ShiftEndingIn(int year, int month);

    int Day(int day) const;
    std::string Date(int day) const { return IsoDate(Day(day)); }
    std::string DateTime(int day, int second) const { return IsoDateTime(Day(day), second); }
    std::string YearMonth(int monthIndex) const { return YearMonthText(monthIndex + shift_); }
    // A "yyyy-mm-dd" of the fixed span moved alike; none stays none.
    std::optional<std::string> Date(const char* iso) const;

private:
    int shift_;
};

} // namespace quillon::demo
