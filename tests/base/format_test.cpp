// Format on numbers, dates and text: every expected text worked out by hand from the
// 15-digit-then-half-away rule and the date tokens.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "base/date_time.h"
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
        {"carry into a new integer digit", 99.995, "100.00"},
        {"15 digits already carry the half cent up", 1e12 + 0.005, "1000000000000.01"},
        {"beyond 15 digits the integer is written out", 1e20, "100000000000000000000.00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Format(c.value, "0.00"), c.text);
        EXPECT_EQ(Format(c.value, "#0.00"), c.text);
    }
}

TEST(FormatNumber, FillsThePlaceholdersOfEachPattern) {
    struct Case {
        const char* why;
        double value;
        const char* pattern;
        const char* text;
    };
    const Case cases[] = {
        {"month number padded", 3, "00", "03"},
        {"half goes up, unlike CInt", 2.5, "0", "3"},
        {"negative half goes down", -2.5, "0", "-3"},
        {"negative that rounds to zero keeps its sign", -0.4, "0", "-0"},
        {"extra digits go to the leftmost place", 1234567, "0000-00", "12345-67"},
        {"no pattern is the general text", 0.1 + 0.2, "", "0.3"},
        {"# before the point forces no integer digit", 0.5, "#.00", ".50"},
        {"thousands separators", 1234567.125, "#,##0.00", "1,234,567.13"},
        {"percent with decimals, no binary noise", 0.0605, "0.0%", "6.1%"},
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
    // "mm" is the month, unless an hour comes before it or a second after it.
    const Case cases[] = {
        {"yyyy-mm-dd", "2024-03-05"},
        {"yyyymmdd", "20240305"},
        {"yyyymm", "202403"},
        {"yyyy年mm月dd日", "2024年03月05日"},
        {"yyyy-mm-dd hh:mm:ss", "2024-03-05 14:07:09"},
        {"YYYYMMDD", "20240305"},
        {"yyyy-MM-dd", "2024-03-05"},
        {"mm:ss", "07:09"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pattern);
        EXPECT_EQ(Format(when, c.pattern), c.text);
    }
    EXPECT_EQ(Format(DateTime{2024, 12, 31}, "yyyy-mm-dd hh:mm:ss"), "2024-12-31 00:00:00");
}

// Patterns are kept parsed between calls: a report interleaving more patterns than are kept
// must get each cell as if every pattern were new.
TEST(FormatPatterns, InterleavedPatternsGiveWhatEachGivesAlone) {
    const DateTime when{2024, 2, 29, 13, 5, 9};
    const char* numberPatterns[] = {"0.00", "#,##0.00", "0%", "0", "#.##", "00000", "0.000"};
    const char* datePatterns[] = {"yyyy-mm-dd", "yyyymm", "hh:nn:ss", "yy-m-d", "yyyymmdd", "mm/dd"};
    std::vector<std::string> alone;
    for (const char* p : numberPatterns) alone.push_back(Format(-1234.5678, p));
    for (const char* p : datePatterns) alone.push_back(Format(when, p));
    for (int round = 0; round < 3; ++round) {
        std::size_t k = 0;
        for (const char* p : numberPatterns) EXPECT_EQ(Format(-1234.5678, p), alone[k++]) << p;
        for (const char* p : datePatterns) EXPECT_EQ(Format(when, p), alone[k++]) << p;
    }
    EXPECT_EQ(alone[0], "-1234.57");
    EXPECT_EQ(alone[1], "-1,234.57");
    EXPECT_EQ(alone[7], "2024-02-29");
    EXPECT_EQ(alone[9], "13:05:09");
}

// The money patterns take a short way; an empty literal sends the same pattern the general way,
// which must give the same text for every value.
TEST(FormatMoney, TheShortWayGivesWhatTheGeneralWayGives) {
    std::mt19937_64 rng(7);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    const char* patterns[] = {"0.00", "#0.00", "0.000", "##0.0", "00.00", "0.00%", "#,##0.00"};
    for (int i = 0; i < 60000; ++i) {
        double v = unit(rng) * std::pow(10.0, static_cast<int>(rng() % 16) - 4);
        if (i % 4 == 0) v = std::round(v * 1000) / 1000;
        if (i % 97 == 0) v = 0.0;
        if (i % 5 == 1) { // half a cent, give or take a few steps of the double
            v = std::round(v * 100) / 100 + 0.005;
            for (int step = static_cast<int>(rng() % 9); step > 0; --step)
                v = std::nextafter(v, i % 2 ? 0.0 : 1e300);
        }
        for (const char* p : patterns)
            ASSERT_EQ(Format(v, p), Format(v, std::string(p) + "\"\"")) << p << " " << v;
    }
    EXPECT_EQ(Format(5.0, "00.00"), "05.00") << "two zeros before the point pad";
    EXPECT_EQ(Format(-0.001, "0.00"), "-0.00");
    EXPECT_EQ(Format(0.5, "#.00"), ".50");
}

TEST(FormatText, FormatsNumbersAndDatesAndLeavesOtherTextAlone) {
    struct Case {
        const char* why;
        const char* text;
        const char* pattern;
        const char* result;
    };
    const Case cases[] = {
        {"numeric text with blanks", " 1.005 ", "#0.00", "1.01"},
        {"empty text stays empty", "", "0.00", ""},
        {"word stays", "合计", "#0.00", "合计"},
        {"date time text with a date pattern", "2024-03-05 00:00:00", "yyyy-mm-dd", "2024-03-05"},
        {"date text upper-case pattern", "2024-03-05", "YYYYMMDD", "20240305"},
        {"number with a date pattern stays", "45000", "yyyy-mm-dd", "45000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Format(std::string_view(c.text), c.pattern), c.result);
    }
}

} // namespace
} // namespace quillon
