// date_time.h — civil date and date-time without time zone, as the billing database stores them.
// Dates cross the database layer as ISO text ("yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss").
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

struct DateTime {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool HasTime() const { return hour != 0 || minute != 0 || second != 0; }
    DateTime DateOnly() const { return DateTime{year, month, day, 0, 0, 0}; }

    // "yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss" (also "T" between, fraction of seconds ignored);
    // nothing when the text is not a valid calendar date.
    static std::optional<DateTime> ParseIso(std::string_view text);
    // "yyyy-mm-dd", with " hh:mm:ss" only when the time part is not midnight.
    std::string ToIso() const;

    static DateTime Today();
    static DateTime Now();

    auto operator<=>(const DateTime&) const = default;
};

bool IsValidCivilDate(int year, int month, int day);
int DaysInMonth(int year, int month);

} // namespace quillon
