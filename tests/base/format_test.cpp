// Format on numbers, dates and text: every expected text worked out by hand from the
// 15-digit-then-half-away rule and the date tokens.
#include <gtest/gtest.h>

#include "base/vb_number.h"

namespace quillon {
namespace {

TEST(FormatMoney, RoundsTheFifteenDigitDecimalHalfAwayFromZero) {
    struct Case {
        const char* why;
        double value;
        const char* text;
    };
    const Case cases[] = {
        {"binary 1.00499.. still rounds up", 1.005, "1.01"},
        {"binary 10.00499.. still rounds up", 10.005, "10.01"},
        {"product with binary noise", 33.35 * 0.3, "10.01"},
        {"printf would give 2.67 here", 2.675, "2.68"},
        {"exact binary tie goes away from zero, not to even", 0.125, "0.13"},
        {"negative that rounds to zero keeps its sign", -0.001, "-0.00"},
        {"noise below zero is negative too", 0.3 - 0.1 - 0.2, "-0.00"},
        {"just under half a cent", 0.0049999999996, "0.00"},
        {"zero", 0.0, "0.00"},
        {"negative zero prints no sign", -0.0, "0.00"},
        {"negative tie goes away from zero", -1.005, "-1.01"},
        {"seven integer digits", 1234567.125, "1234567.13"},
        {"carry into a new integer digit", 99.995, "100.00"},
        {"carry from 9.99|5", 9.995, "10.00"},
        {"15 digits already carry the half cent up", 1e12 + 0.005, "1000000000000.01"},
        {"beyond 15 digits the integer is written out", 1e20, "100000000000000000000.00"},
        {"whole number gets two zeros", 106.0, "106.00"},
        {"one decimal padded", -6.5, "-6.50"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Format(c.value, "0.00"), c.text);
        EXPECT_EQ(Format(c.value, "#0.00"), c.text);
    }
}

TEST(FormatMoney, HashBeforeThePointOnlyDiffersBelowOne) {
    struct Case {
        const char* why;
        double value;
        const char* pattern;
        const char* text;
    };
    const Case cases[] = {
        {"no integer digit forced", 0.5, "#.00", ".50"},
        {"digits still show", 12.5, "#.00", "12.50"},
        {"thousands separators", 1234567.125, "#,##0.00", "1,234,567.13"},
        {"thousands pattern below a thousand", 5.0, "#,##0.00", "5.00"},
        {"negative with separators", -1234.5, "#,##0.00", "-1,234.50"},
        {"optional decimals drop trailing zeros", 1.5, "0.##", "1.5"},
        {"optional decimals kept when not zero", 1.25, "0.##", "1.25"},
        {"percent shows the value times 100", 0.256, "0%", "26%"},
        {"percent with decimals, no binary noise", 0.0605, "0.0%", "6.1%"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Format(c.value, c.pattern), c.text);
    }
}

TEST(FormatInteger, PadsAndRoundsHalfAwayFromZero) {
    struct Case {
        const char* why;
        double value;
        const char* pattern;
        const char* text;
    };
    const Case cases[] = {
        {"month number padded", 3, "00", "03"},
        {"two digits as they are", 12, "00", "12"},
        {"page number above 99 prints in full", 123, "00", "123"},
        {"zero padded", 0, "00", "00"},
        {"rounded integer", 1234.5, "0", "1235"},
        {"half goes up, unlike CInt", 2.5, "0", "3"},
        {"negative half goes down", -2.5, "0", "-3"},
        {"negative that rounds to zero keeps its sign", -0.4, "0", "-0"},
        {"period month text", 202403, "0000-00", "2024-03"},
        {"short number fills the zeros", 5, "0000-00", "0000-05"},
        {"extra digits go to the leftmost place", 1234567, "0000-00", "12345-67"},
        {"no pattern is the general text", 0.1 + 0.2, "", "0.3"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Format(c.value, c.pattern), c.text);
    }
}

TEST(FormatDate, ReplacesTheDateTokens) {
    const DateTime when{2024, 3, 5, 14, 7, 9};
    struct Case {
        const char* pattern;
        const char* text;
    };
    const Case cases[] = {
        {"yyyy-mm-dd", "2024-03-05"},
        {"yyyymmdd", "20240305"},
        {"yyyymm", "202403"},
        {"yyyy", "2024"},
        {"mm", "03"},
        {"dd", "05"},
        {"yyyy年mm月dd日", "2024年03月05日"},
        {"yyyy-mm-dd hh:mm:ss", "2024-03-05 14:07:09"},
        {"YYYYMMDD", "20240305"},
        {"YYYY-MM-DD", "2024-03-05"},
        {"hh:nn", "14:07"},
        {"m/d", "3/5"},
        {"mm:ss", "07:09"},
        {"yy", "24"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pattern);
        EXPECT_EQ(Format(when, c.pattern), c.text);
    }
    EXPECT_EQ(Format(DateTime{2024, 12, 31}, "yyyy-mm-dd hh:mm:ss"), "2024-12-31 00:00:00");
}

TEST(FormatText, FormatsNumbersAndDatesAndLeavesOtherTextAlone) {
    struct Case {
        const char* why;
        const char* text;
        const char* pattern;
        const char* result;
    };
    const Case cases[] = {
        {"numeric text as a number", "12.5", "0.00", "12.50"},
        {"numeric text with blanks", " 1.005 ", "#0.00", "1.01"},
        {"empty text stays empty", "", "0.00", ""},
        {"word stays", "合计", "#0.00", "合计"},
        {"period text from yyyymm", "202403", "0000-00", "2024-03"},
        {"date time text with a date pattern", "2024-03-05 00:00:00", "yyyy-mm-dd", "2024-03-05"},
        {"date text upper-case pattern", "2024-03-05", "YYYYMMDD", "20240305"},
        {"impossible date stays", "2024-02-30", "yyyy-mm-dd", "2024-02-30"},
        {"number with a date pattern stays", "45000", "yyyy-mm-dd", "45000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Format(std::string_view(c.text), c.pattern), c.result);
    }
}

} // namespace
} // namespace quillon
