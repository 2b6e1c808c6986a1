// Val, CDbl, CInt/CLng, CStr/Str and RoundMoney with the old platform's results.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "base/vb_number.h"

namespace quillon {
namespace {

// Runs `f` and gives the VbError number it raised, or 0 when it raised none.
template <class F> long ErrorNumberOf(F f) {
    try {
        f();
    } catch (const VbError& e) {
        return e.Number;
    }
    return 0;
}

TEST(Val, ReadsTheNumericPrefix) {
    struct Case {
        const char* why;
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"digits then letters", "2abc", 2},
        {"percent sign stops", "30%", 30},
        {"no number", "abc", 0},
        {"blanks around", " 12.5 ", 12.5},
        {"negative", "-3", -3},
        {"empty", "", 0},
        {"comma stops", "1,000", 1},
        {"tab skipped", "\t7", 7},
        {"blanks inside are skipped", "1 000", 1000},
        {"plus sign", "+4", 4},
        {"leading point", ".5", 0.5},
        {"negative leading point", "-.5", -0.5},
        {"second point stops", "1.2.3", 1.2},
        {"exponent", "1e3", 1000},
        {"upper-case negative exponent then junk", "2.5E-1x", 0.25},
        {"exponent mark alone", "1e", 1},
        {"exponent sign alone", "1e+", 1},
        {"old double exponent mark", "1D2", 100},
        {"sign alone", "-", 0},
        {"point alone", ".", 0},
        {"Chinese text", "三十", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Val(c.text), c.value);
    }
    EXPECT_EQ(ErrorNumberOf([] { Val("1e400"); }), kErrOverflow);
}

TEST(CDbl, AcceptsOnlyAWholeNumber) {
    struct Case {
        const char* why;
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"two decimals", "12.50", 12.5},
        {"negative zero reads as zero", "-0.00", 0},
        {"blanks around", " 12.5 ", 12.5},
        {"tabs around", "\t8\t", 8},
        {"leading plus", "+3", 3},
        {"thousands separator", "1,234.5", 1234.5},
        {"two separators", "1,234,567", 1234567},
        {"negative with separator", "-1,000", -1000},
        {"exponent", "1e3", 1000},
        {"leading point", ".5", 0.5},
        {"trailing point", "5.", 5},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CDbl(c.text), c.value);
        EXPECT_TRUE(IsNumeric(c.text));
    }
    EXPECT_FALSE(std::signbit(CDbl("-0.00"))) << "a negative zero would print \"-0.00\" again";
}

TEST(CDbl, RejectsTextThatIsNotANumber) {
    struct Case {
        const char* why;
        const char* text;
        long error;
    };
    const Case cases[] = {
        {"percent sign", "30%", kErrTypeMismatch},
        {"empty", "", kErrTypeMismatch},
        {"blanks only", "   ", kErrTypeMismatch},
        {"word", "abc", kErrTypeMismatch},
        {"Chinese word", "合计", kErrTypeMismatch},
        {"number then letters", "12abc", kErrTypeMismatch},
        {"exponent without digits", "1e", kErrTypeMismatch},
        {"sign alone", "-", kErrTypeMismatch},
        {"point alone", ".", kErrTypeMismatch},
        {"trailing comma", "1,", kErrTypeMismatch},
        {"leading comma", ",1", kErrTypeMismatch},
        {"comma after the point", "1.5,3", kErrTypeMismatch},
        {"two points", "1.2.3", kErrTypeMismatch},
        {"blank inside", "1 000", kErrTypeMismatch},
        {"too large for a double", "1e400", kErrOverflow},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(ErrorNumberOf([&] { CDbl(c.text); }), c.error);
        EXPECT_FALSE(IsNumeric(c.text));
    }
    try {
        CDbl("30%");
        ADD_FAILURE() << "no error raised";
    } catch (const VbError& e) {
        EXPECT_EQ(e.Description, "类型不匹配");
    }
}

TEST(CIntCLng, RoundHalfToEven) {
    struct Case {
        const char* why;
        double value;
        int rounded;
    };
    const Case cases[] = {
        {"2.5 goes down to even", 2.5, 2},
        {"3.5 goes up to even", 3.5, 4},
        {"-2.5 goes to even", -2.5, -2},
        {"-3.5 goes to even", -3.5, -4},
        {"0.5 goes to zero", 0.5, 0},
        {"1.5 goes to two", 1.5, 2},
        {"below half", 2.4, 2},
        {"above half", 2.6, 3},
        {"top of the range", 32767, 32767},
        {"bottom of the range", -32768, -32768},
        {"just inside the top", 32767.4, 32767},
        {"tie at the bottom goes to the even -32768", -32768.5, -32768},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CInt(c.value), c.rounded);
        EXPECT_EQ(CLng(c.value), c.rounded);
    }
    EXPECT_EQ(CLng(2147483647.0), 2147483647LL);
    EXPECT_EQ(CLng(-2147483648.0), -2147483648LL);
    EXPECT_EQ(CLng(100000.5), 100000LL);
}

TEST(CIntCLng, RaiseOverflowOutsideTheOldTypes) {
    struct Case {
        const char* why;
        double value;
        bool intOverflows;
        bool longOverflows;
    };
    const Case cases[] = {
        {"tie above the top rounds to 32768", 32767.5, true, false},
        {"one above the 16-bit top", 32768, true, false},
        {"one below the 16-bit bottom", -32769, true, false},
        {"rounds below the bottom", -32768.6, true, false},
        {"one above the 32-bit top", 2147483648.0, true, true},
        {"32-bit tie rounds to the even 2147483648", 2147483647.5, true, true},
        {"one below the 32-bit bottom", -2147483649.0, true, true},
        {"not a number", std::numeric_limits<double>::quiet_NaN(), true, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(ErrorNumberOf([&] { CInt(c.value); }), c.intOverflows ? kErrOverflow : 0);
        EXPECT_EQ(ErrorNumberOf([&] { CLng(c.value); }), c.longOverflows ? kErrOverflow : 0);
    }
}

TEST(CStrStr, WriteFifteenSignificantDigits) {
    struct Case {
        const char* why;
        double value;
        const char* cstr;
        const char* str;
    };
    const Case cases[] = {
        {"binary noise disappears", 0.06 * 100, "6", " 6"},
        {"plain decimal", 0.3, "0.3", " 0.3"},
        {"sum with noise", 0.1 + 0.2, "0.3", " 0.3"},
        {"small stays plain", 1e-5, "0.00001", " 0.00001"},
        {"small with two digits", 2.5e-5, "0.000025", " 0.000025"},
        {"below 1E-5 takes the exponent", 1e-7, "1E-07", " 1E-07"},
        {"negative zero", -0.0, "0", " 0"},
        {"whole hundred", 100, "100", " 100"},
        {"negative keeps its sign and no blank", -5, "-5", "-5"},
        {"negative decimal", -12.5, "-12.5", "-12.5"},
        {"fifteen 3s", 1.0 / 3, "0.333333333333333", " 0.333333333333333"},
        {"largest plain integer", 123456789012345.0, "123456789012345", " 123456789012345"},
        {"1E+15 takes the exponent", 1e15, "1E+15", " 1E+15"},
        {"beyond 15 digits", 123456789012345678.0, "1.23456789012346E+17", " 1.23456789012346E+17"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CStr(c.value), c.cstr);
        EXPECT_EQ(Str(c.value), c.str);
    }
}

TEST(RoundMoney, IsTheFormattedValueReadBack) {
    struct Case {
        const char* why;
        double value;
        double rounded;
    };
    const Case cases[] = {
        {"binary 1.00499..", 1.005, 1.01},        {"product with noise", 33.35 * 0.3, 10.01},
        {"printf would give 2.67", 2.675, 2.68},  {"negative tie", -1.005, -1.01},
        {"already two decimals", 106.06, 106.06},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(RoundMoney(c.value), c.rounded);
    }
    EXPECT_EQ(RoundMoney(0.3 - 0.1 - 0.2), 0.0);
    EXPECT_FALSE(std::signbit(RoundMoney(0.3 - 0.1 - 0.2))) << "noise must not come back as -0";
    EXPECT_EQ(Format(RoundMoney(-0.001), "0.00"), "0.00");
}

} // namespace
} // namespace quillon
