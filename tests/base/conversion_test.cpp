// Val, CDbl, CInt/CLng, CStr/Str and RoundMoney with the old platform's results.
#include <cmath>
#include <cstring>
#include <iomanip>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "base/vb_number.h"

namespace quillon {
namespace {

// Runs `f` (which checks the value itself) and gives the VbError number it raised, or 0.
template <class F> long ErrorNumberOf(F f) {
    try {
        f();
    } catch (const VbError& e) {
        return e.Number;
    }
    return 0;
}

// Val takes the numeric prefix; CDbl wants the whole text (error 13 otherwise), and IsNumeric
// says beforehand which of the two happens.
TEST(ValCDbl, ReadThePrefixOrTheWholeText) {
    struct Case {
        const char* why;
        const char* text;
        double val;
        long cdblError;
        double cdbl;
    };
    const Case cases[] = {
        {"digits then letters", "2abc", 2, kErrTypeMismatch, 0},
        {"percent sign", "30%", 30, kErrTypeMismatch, 0},
        {"no number", "abc", 0, kErrTypeMismatch, 0},
        {"empty", "", 0, kErrTypeMismatch, 0},
        {"blanks around", " 12.5 ", 12.5, 0, 12.5},
        {"tabs around", "\t8\t", 8, 0, 8},
        {"negative zero reads as zero", "-0.00", 0, 0, 0},
        {"thousands separators: Val stops at the comma", "1,234.5", 1, 0, 1234.5},
        {"blank inside: Val skips it, CDbl refuses", "1 000", 1000, kErrTypeMismatch, 0},
        {"second point", "1.2.3", 1.2, kErrTypeMismatch, 0},
        {"trailing comma", "1,", 1, kErrTypeMismatch, 0},
        {"comma after the point", "1.5,3", 1.5, kErrTypeMismatch, 0},
        {"plus sign", "+4", 4, 0, 4},
        {"negative leading point", "-.5", -0.5, 0, -0.5},
        {"trailing point", "5.", 5, 0, 5},
        {"exponent", "1e3", 1000, 0, 1000},
        {"upper-case negative exponent then junk", "2.5E-1x", 0.25, kErrTypeMismatch, 0},
        {"exponent mark alone", "1e", 1, kErrTypeMismatch, 0},
        {"old double exponent mark", "1D2", 100, 0, 100},
        {"sign alone", "-", 0, kErrTypeMismatch, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Val(c.text), c.val);
        EXPECT_EQ(ErrorNumberOf([&] { EXPECT_EQ(CDbl(c.text), c.cdbl); }), c.cdblError);
        EXPECT_EQ(IsNumeric(c.text), c.cdblError == 0);
    }
    EXPECT_FALSE(std::signbit(CDbl("-0.00"))) << "a negative zero would print \"-0.00\" again";
    EXPECT_EQ(ErrorNumberOf([] { Val("1e400"); }), kErrOverflow);
    EXPECT_EQ(ErrorNumberOf([] { CDbl("1e400"); }), kErrOverflow);
    EXPECT_FALSE(IsNumeric("1e400"));
    try {
        CDbl("30%");
        ADD_FAILURE() << "no error raised";
    } catch (const VbError& e) {
        EXPECT_EQ(e.Description, "类型不匹配");
    }
}

// Half to even inside the old 16- and 32-bit ranges, error 6 outside them.
TEST(CIntCLng, RoundHalfToEvenOrOverflow) {
    constexpr long long kOverflows = std::numeric_limits<long long>::min();
    struct Case {
        const char* why;
        double value;
        long long cint;
        long long clng;
    };
    const Case cases[] = {
        {"2.5 goes down to even", 2.5, 2, 2},
        {"3.5 goes up to even", 3.5, 4, 4},
        {"-2.5 goes to even", -2.5, -2, -2},
        {"just inside the top", 32767.4, 32767, 32767},
        {"tie at the bottom goes to the even -32768", -32768.5, -32768, -32768},
        {"tie above the top rounds to 32768", 32767.5, kOverflows, 32768},
        {"one below the 16-bit bottom", -32769, kOverflows, -32769},
        {"long tie goes to even", 100000.5, kOverflows, 100000},
        {"32-bit top", 2147483647.0, kOverflows, 2147483647LL},
        {"32-bit bottom", -2147483648.0, kOverflows, -2147483648LL},
        {"one above the 32-bit top", 2147483648.0, kOverflows, kOverflows},
        {"32-bit tie rounds to the even 2147483648", 2147483647.5, kOverflows, kOverflows},
        {"not a number", std::numeric_limits<double>::quiet_NaN(), kOverflows, kOverflows},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(ErrorNumberOf([&] { EXPECT_EQ(CInt(c.value), c.cint); }),
                  c.cint == kOverflows ? kErrOverflow : 0);
        EXPECT_EQ(ErrorNumberOf([&] { EXPECT_EQ(CLng(c.value), c.clng); }),
                  c.clng == kOverflows ? kErrOverflow : 0);
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
        {"small stays plain", 1e-5, "0.00001", " 0.00001"},
        {"below 1E-5 takes the exponent", 1e-7, "1E-07", " 1E-07"},
        {"negative zero", -0.0, "0", " 0"},
        {"whole hundred keeps its zeros", 100, "100", " 100"},
        {"negative keeps its sign and no blank", -12.5, "-12.5", "-12.5"},
        {"fifteen 3s", 1.0 / 3, "0.333333333333333", " 0.333333333333333"},
        {"largest plain integer", 123456789012345.0, "123456789012345", " 123456789012345"},
        {"1E+15 takes the exponent", 1e15, "1E+15", " 1E+15"},
        {"beyond 15 digits", 123456789012345678.0, "1.23456789012346E+17", " 1.23456789012346E+17"},
        {"a three-digit exponent", 1.7976931348623157e308, "1.79769313486232E+308", " 1.79769313486232E+308"},
        {"the smallest double", 4.9406564584124654e-324, "4.94065645841247E-324", " 4.94065645841247E-324"},
        {"the sixteenth digit carries through all nines", 9.9999999999999995, "10", " 10"},
        {"a written tie at the fifteenth digit lies just below it in binary", 0.1234567890123455,
         "0.123456789012345", " 0.123456789012345"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CStr(c.value), c.cstr);
        EXPECT_EQ(Str(c.value), c.str);
    }
}

// Every amount of a detail report is read through CentsValue: it must be the money text read
// back, to the bit, on ties, noise, signs and magnitudes alike.
TEST(CentsValue, IsTheMoneyTextReadBackBitForBit) {
    std::mt19937_64 rng(20261124);
    std::vector<double> values = {0.0,    -0.0,   0.005,           -0.005,  1.005,   2.675,
                                  -1.005, 99.995, 0.0049,          -0.0049, 1e15,    -1e15,
                                  1e20,   5e-324, 0.3 - 0.1 - 0.2, 1e300,   -1e-300, 123456789012.345};
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int i = 0; i < 200000; ++i) {
        const double scale = std::pow(10.0, static_cast<int>(rng() % 14) - 3);
        double v = unit(rng) * scale;
        if (i % 3 == 0) v = std::round(v * 1000) / 1000; // a half cent now and then
        values.push_back(v);
    }
    // Half a cent and a few steps of the double either side, where arithmetic alone must give way.
    for (int i = 0; i < 20000; ++i) {
        double v = (static_cast<double>(rng() % 100000000) + 0.5) / 100 * (i % 2 ? -1 : 1);
        for (int step = 0; step < static_cast<int>(rng() % 40); ++step)
            v = std::nextafter(v, i % 4 < 2 ? 0.0 : 1e300);
        values.push_back(v);
    }
    values.push_back(0.004999999999999999); // 15 digits make it half a cent
    for (double v : values) {
        // The empty literal sends the pattern the general way, digit by digit.
        const double expected = Val(Format(v, "0.00\"\""));
        const double actual = CentsValue(v);
        ASSERT_EQ(std::memcmp(&expected, &actual, sizeof(double)), 0)
            << std::setprecision(17) << v << " → " << expected << " but " << actual;
    }
}

TEST(RoundMoney, IsTheFormattedValueReadBack) {
    EXPECT_EQ(RoundMoney(1.005), 1.01);
    EXPECT_EQ(RoundMoney(33.35 * 0.3), 10.01);
    EXPECT_EQ(RoundMoney(-1.005), -1.01);
    EXPECT_EQ(RoundMoney(0.3 - 0.1 - 0.2), 0.0);
    EXPECT_FALSE(std::signbit(RoundMoney(0.3 - 0.1 - 0.2))) << "noise must not come back as -0";
    EXPECT_EQ(Format(RoundMoney(-0.001), "0.00"), "0.00");
}

} // namespace
} // namespace quillon
