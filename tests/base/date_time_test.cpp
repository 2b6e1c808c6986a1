// Civil dates: ISO text in and out, calendar validity, the local clock.
#include <gtest/gtest.h>

#include "base/date_time.h"

namespace quillon {
namespace {

TEST(DateTimeParseIso, AcceptsDatesAndDateTimes) {
    struct Case {
        const char* text;
        DateTime value;
    };
    const Case cases[] = {
        {"2024-02-29", {2024, 2, 29, 0, 0, 0}},          {"2000-02-29", {2000, 2, 29, 0, 0, 0}},
        {"2024-12-31", {2024, 12, 31, 0, 0, 0}},         {"2024-03-05 14:07:09", {2024, 3, 5, 14, 7, 9}},
        {"2024-03-05T14:07:09", {2024, 3, 5, 14, 7, 9}}, {"2024-03-05 14:07:09.123", {2024, 3, 5, 14, 7, 9}},
        {"2024-03-05 14:07", {2024, 3, 5, 14, 7, 0}},    {"2024-03-05 23:59:59", {2024, 3, 5, 23, 59, 59}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const auto parsed = DateTime::ParseIso(c.text);
        ASSERT_TRUE(parsed.has_value());
        EXPECT_EQ(parsed->ToIso(), c.value.ToIso());
        EXPECT_TRUE(*parsed == c.value);
    }
}

TEST(DateTimeParseIso, RejectsWhatIsNoCalendarDate) {
    struct Case {
        const char* why;
        const char* text;
    };
    const Case cases[] = {
        {"February has no 30th", "2024-02-30"},
        {"2023 is no leap year", "2023-02-29"},
        {"1900 is no leap year", "1900-02-29"},
        {"month 13", "2024-13-01"},
        {"month 0", "2024-00-10"},
        {"day 0", "2024-01-00"},
        {"April has 30 days", "2024-04-31"},
        {"garbage", "garbage"},
        {"empty", ""},
        {"one-digit month and day", "2024-3-5"},
        {"compact form", "20240305"},
        {"trailing junk", "2024-03-05x"},
        {"hour 24", "2024-03-05 24:00:00"},
        {"minute 60", "2024-03-05 12:60:00"},
        {"second 60", "2024-03-05 12:00:60"},
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

TEST(DateTimeToIso, AddsTheTimeOnlyWhenNotMidnight) {
    struct Case {
        DateTime value;
        const char* text;
    };
    const Case cases[] = {
        {{2024, 3, 5, 0, 0, 0}, "2024-03-05"},
        {{2024, 3, 5, 14, 7, 9}, "2024-03-05 14:07:09"},
        {{2024, 3, 5, 0, 0, 1}, "2024-03-05 00:00:01"},
        {{987, 1, 2, 0, 0, 0}, "0987-01-02"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(c.value.ToIso(), c.text);
    }
}

TEST(DaysInMonth, KnowsLeapYears) {
    struct Case {
        int year, month, days;
    };
    const Case cases[] = {
        {2024, 2, 29},  {2023, 2, 28}, {1900, 2, 28}, {2000, 2, 29}, {2024, 4, 30},
        {2024, 12, 31}, {2024, 1, 31}, {2024, 13, 0}, {2024, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.year << "-" << c.month);
        EXPECT_EQ(DaysInMonth(c.year, c.month), c.days);
    }
    EXPECT_TRUE(IsValidCivilDate(2024, 2, 29));
    EXPECT_FALSE(IsValidCivilDate(2024, 2, 30));
    EXPECT_FALSE(IsValidCivilDate(2024, 6, 0));
}

TEST(DateTimeClock, TodayIsNowWithoutTheTime) {
    const DateTime before = DateTime::Now();
    const DateTime today = DateTime::Today();
    const DateTime after = DateTime::Now();
    EXPECT_FALSE(today.HasTime());
    EXPECT_TRUE(IsValidCivilDate(today.year, today.month, today.day));
    // Both readings only differ when the clock passed midnight between them.
    EXPECT_TRUE(today == before.DateOnly() || today == after.DateOnly()) << today.ToIso();
    EXPECT_LE(before, after);
}

} // namespace
} // namespace quillon
