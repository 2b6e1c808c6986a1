// date_time.cpp — calendar checks, ISO text in and out, and the local clock.
#include "base/date_time.h"

#include <cstdio>
#include <ctime>

namespace quillon {

namespace {

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Reads exactly `count` ASCII digits at `pos`; false when any of them is not a digit.
bool ReadDigits(std::string_view text, std::size_t pos, std::size_t count, int& out) {
    if (pos + count > text.size()) return false;
    int value = 0;
    for (std::size_t i = pos; i < pos + count; ++i) {
        char c = text[i];
        if (c < '0' || c > '9') return false;
        value = value * 10 + (c - '0');
    }
    out = value;
    return true;
}

DateTime FromTm(const std::tm& tm) {
    return DateTime{tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

std::tm LocalNow() {
    std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    return tm;
}

} // namespace

int DaysInMonth(int year, int month) {
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12) return 0;
    if (month == 2 && IsLeapYear(year)) return 29;
    return kDays[month - 1];
}

// Years 1 to 9999: the range a four-digit ISO year can carry.
bool IsValidCivilDate(int year, int month, int day) {
    return year >= 1 && year <= 9999 && day >= 1 && day <= DaysInMonth(year, month);
}

std::optional<DateTime> DateTime::ParseIso(std::string_view text) {
    DateTime d;
    if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    if (!ReadDigits(text, 0, 4, d.year) || !ReadDigits(text, 5, 2, d.month) || !ReadDigits(text, 8, 2, d.day))
        return std::nullopt;
    if (!IsValidCivilDate(d.year, d.month, d.day)) return std::nullopt;
    if (text.size() == 10) return d;

    // Time part: "hh:mm", "hh:mm:ss" or "hh:mm:ss.fff" (the server's datetime text).
    if (text[10] != ' ' && text[10] != 'T') return std::nullopt;
    if (text.size() < 16 || text[13] != ':') return std::nullopt;
    if (!ReadDigits(text, 11, 2, d.hour) || !ReadDigits(text, 14, 2, d.minute)) return std::nullopt;
    std::size_t pos = 16;
    if (pos < text.size()) {
        if (text[pos] != ':' || !ReadDigits(text, pos + 1, 2, d.second)) return std::nullopt;
        pos += 3;
        if (pos < text.size()) {
            if (text[pos] != '.' || pos + 1 == text.size()) return std::nullopt;
            for (++pos; pos < text.size(); ++pos)
                if (text[pos] < '0' || text[pos] > '9') return std::nullopt;
        }
    }
    if (d.hour > 23 || d.minute > 59 || d.second > 59) return std::nullopt;
    return d;
}

std::string DateTime::ToIso() const {
    char buf[32];
    if (HasTime())
        std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", year, month, day, hour, minute,
                      second);
    else
        std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", year, month, day);
    return buf;
}

DateTime DateTime::Today() {
    return FromTm(LocalNow()).DateOnly();
}

DateTime DateTime::Now() {
    return FromTm(LocalNow());
}

} // namespace quillon
