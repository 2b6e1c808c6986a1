// The demo's books moved by whole months on their way out: the same day of the month, or the
// month's last day where it is shorter.
#include "model/demo/calendar.h"

#include <gtest/gtest.h>

namespace quillon::demo {
namespace {

TEST(BookCalendar, MovesDatesByWholeMonthsKeepingTheDayOrTheMonthsEnd) {
    struct Case {
        const char* why;
        int months;
        const char* from;
        const char* to;
    };
    const Case cases[] = {
        {"unmoved", 0, "2024-01-31", "2024-01-31"},
        {"into a leap February", 1, "2024-01-31", "2024-02-29"},
        {"into a common February", 13, "2024-01-31", "2025-02-28"},
        {"the books' last day onto November's last", 11, "2025-12-31", "2026-11-30"},
        {"a mid-month day keeps its day", 11, "2024-03-15", "2025-02-15"},
        {"back in time, across a year", -6, "2024-01-15", "2023-07-15"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const BookCalendar calendar(c.months);
        EXPECT_EQ(calendar.Date(DayOf(c.from)), c.to);
        EXPECT_EQ(calendar.Date(c.from), std::optional<std::string>(c.to));
        EXPECT_EQ(calendar.DateTime(DayOf(c.from), 3661), std::string(c.to) + " 01:01:01");
    }
    EXPECT_EQ(BookCalendar(11).Date(nullptr), std::nullopt) << "no date stays no date";
    EXPECT_EQ(BookCalendar(11).YearMonth(MonthIndex(DayOf("2024-12-05"))), "202511");
}

TEST(BookCalendar, ShiftThatEndsTheBooksInAMonth) {
    EXPECT_EQ(BookCalendar::ShiftEndingIn(2025, 12), 0);
    EXPECT_EQ(BookCalendar::ShiftEndingIn(2026, 11), 11);
    EXPECT_EQ(BookCalendar::ShiftEndingIn(2025, 1), -11);
}

} // namespace
} // namespace quillon::demo
