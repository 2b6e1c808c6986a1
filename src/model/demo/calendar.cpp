// calendar.cpp — model layer, demo data: civil dates and their texts.
#include "model/demo/calendar.h"

#include <algorithm>
#include <cstdio>

namespace quillon::demo {

Civil CivilFromDays(int z) {
    z += 719468;
    const int era = (z >= 0 ? z : z - 146096) / 146097;
    const int doe = z - era * 146097;
    const int yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int mp = (5 * doy + 2) / 153;
    const int d = doy - (153 * mp + 2) / 5 + 1;
    const int m = mp + (mp < 10 ? 3 : -9);
    return {yoe + era * 400 + (m <= 2), m, d};
}

int DayOf(const char* iso) {
    const std::string t(iso);
    return DaysFromCivil(std::stoi(t.substr(0, 4)), std::stoi(t.substr(5, 2)), std::stoi(t.substr(8, 2)));
}

std::string IsoDate(int day) {
    const Civil c = CivilFromDays(day);
    char buf[16];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", c.y, c.m, c.d);
    return buf;
}

std::string IsoDateTime(int day, int second) {
    const Civil c = CivilFromDays(day);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", c.y, c.m, c.d, second / 3600,
                  second / 60 % 60, second % 60);
    return buf;
}

int MonthIndex(int day) {
    const Civil c = CivilFromDays(day);
    return c.y * 12 + c.m - 1;
}

std::string YearMonthText(int monthIndex) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%04d%02d", monthIndex / 12, monthIndex % 12 + 1);
    return buf;
}

int LastDayOfMonth(int day) {
    const int next = MonthIndex(day) + 1;
    return DaysFromCivil(next / 12, next % 12 + 1, 1) - 1;
}

int FirstDayOfYear(int day) {
    return DaysFromCivil(CivilFromDays(day).y, 1, 1);
}

int LastDayOfYear(int day) {
    return DaysFromCivil(CivilFromDays(day).y, 12, 31);
}

int BookCalendar::ShiftEndingIn(int year, int month) {
    return year * 12 + month - 1 - MonthIndex(kLastDay);
}

int BookCalendar::Day(int day) const {
    if (shift_ == 0) return day;
    const Civil c = CivilFromDays(day);
    const int month = c.y * 12 + c.m - 1 + shift_;
    const int first = DaysFromCivil(month / 12, month % 12 + 1, 1);
    return std::min(first + c.d - 1, LastDayOfMonth(first));
}

std::optional<std::string> BookCalendar::Date(const char* iso) const {
    if (!iso) return std::nullopt;
    return Date(DayOf(iso));
}

} // namespace quillon::demo
