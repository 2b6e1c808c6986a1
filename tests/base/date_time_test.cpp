// Civil dates: ISO text in and out, calendar validity (leap years, month lengths, time bounds).
#include <gtest/gtest.h>

#include "base/date_time.h"

namespace quillon {
namespace {

TEST(DateTimeIso, ParsesDatesAndDateTimesAndWritesTheTimeOnlyWhenNotMidnight) {
    struct Case {
        const char* text;
        DateTime value;
        const char* iso;
    };
    const Case cases[] = {
        {"2024-02-29", {2024, 2, 29, 0, 0, 0}, "2024-02-29"},
        {"2000-02-29", {2000, 2, 29, 0, 0, 0}, "2000-02-29"},
        {"2024-03-05T14:07:09", {2024, 3, 5, 14, 7, 9}, "2024-03-05 14:07:09"},
        {"2024-03-05 14:07:09.123", {2024, 3, 5, 14, 7, 9}, "2024-03-05 14:07:09"},
        {"2024-03-05 14:07", {2024, 3, 5, 14, 7, 0}, "2024-03-05 14:07:00"},
        {"2024-03-05 00:00:01", {2024, 3, 5, 0, 0, 1}, "2024-03-05 00:00:01"},
        {"2024-03-05 00:00:00", {2024, 3, 5, 0, 0, 0}, "2024-03-05"},
        {"0987-01-02", {987, 1, 2, 0, 0, 0}, "0987-01-02"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const auto parsed = DateTime::ParseIso(c.text);
        ASSERT_TRUE(parsed.has_value());
        EXPECT_TRUE(*parsed == c.value) << parsed->ToIso();
        EXPECT_EQ(c.value.ToIso(), c.iso);
    }
}

TEST(DateTimeIso, RejectsWhatIsNoCalendarDate) {
    struct Case {
        const char* why;
        const char* text;
    };
    const Case cases[] = {
        {"February has no 30th", "2024-02-30"},
        {"2023 is no leap year", "2023-02-29"},
        {"1900 is no leap year", "1900-02-29"},
        {"month 13", "2024-13-01"},
        {"day 0", "2024-01-00"},
        {"April has 30 days", "2024-04-31"},
        {"empty", ""},
        {"one-digit month and day", "2024-3-5"},
        {"trailing junk", "2024-03-05x"},
        {"hour 24", "2024-03-05 24:00:00"},
        {"minute 60", "2024-03-05 12:60:00"},
        {"point without fraction", "2024-03-05 12:00:00."},
        {"letters in the fraction", "2024-03-05 12:00:00.abc"},
        {"time cut short", "2024-03-05 12"},
        {"year 0", "0000-01-01"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_FALSE(DateTime::ParseIso(c.text).has_value());
    }
}

} // namespace
} // namespace quillon
