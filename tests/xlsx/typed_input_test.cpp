// Excel's reading of typed text, and the 1900 date serials it produces.
#include <cmath>

#include <gtest/gtest.h>

#include "xlsx/cell_area.h"
#include "xlsx/typed_input.h"

namespace quillon {
namespace {

using Kind = TypedInput::Kind;

const char* KindName(Kind k) {
    const char* const names[] = {"empty", "number", "date", "text"};
    return names[static_cast<int>(k)];
}

TEST(TypedInput, ReadsTextAsExcelReadsTyping) {
    struct Case {
        const char* why;
        const char* input;
        bool textFormat;
        Kind kind;
        double number;
        const char* text;
    };
    const Case cases[] = {
        {"empty text leaves the cell empty", "", false, Kind::Empty, 0, ""},
        {"money text becomes a number", "12.50", false, Kind::Number, 12.5, ""},
        {"blanks around a number are dropped", " 3 ", false, Kind::Number, 3, ""},
        {"negative zero text is plain zero", "-0.00", false, Kind::Number, 0, ""},
        {"thousands separator as CDbl takes it", "1,234.5", false, Kind::Number, 1234.5, ""},
        {"exponent", "1e3", false, Kind::Number, 1000, ""},
        {"leading zeros do not keep a number text", "00123", false, Kind::Number, 123, ""},
        {"apostrophe keeps digits as text and is dropped", "'00123", false, Kind::Text, 0, "00123"},
        {"a lone apostrophe is an empty text", "'", false, Kind::Text, 0, ""},
        {"only the first apostrophe is the marker", "''x", false, Kind::Text, 0, "'x"},
        {"Chinese caption", "合  计", false, Kind::Text, 0, "合  计"},
        {"number with trailing letters", "12abc", false, Kind::Text, 0, "12abc"},
        {"blanks only are text", "  ", false, Kind::Text, 0, "  "},
        {"ISO date", "2024-03-05", false, Kind::Date, 45356, ""},
        {"date with one-digit month and day", "2024-3-5", false, Kind::Date, 45356, ""},
        {"date of a leap day", "2000-02-29", false, Kind::Date, 36585, ""},
        {"Excel's day one", "1900-01-01", false, Kind::Date, 1, ""},
        {"last day before Excel's phantom 1900-02-29", "1900-02-28", false, Kind::Date, 59, ""},
        {"first day after it", "1900-03-01", false, Kind::Date, 61, ""},
        {"end of the calendar", "9999-12-31", false, Kind::Date, 2958465, ""},
        {"no such day", "2024-02-30", false, Kind::Text, 0, "2024-02-30"},
        {"before 1900 Excel has no date", "1899-12-31", false, Kind::Text, 0, "1899-12-31"},
        {"text-formatted cell keeps digits as text", "0012", true, Kind::Text, 0, "0012"},
        {"text-formatted cell keeps a date text", "2024-03-05", true, Kind::Text, 0, "2024-03-05"},
        {"apostrophe still dropped in a text-formatted cell", "'12", true, Kind::Text, 0, "12"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        TypedInput in = ReadTypedInput(c.input, c.textFormat);
        EXPECT_STREQ(KindName(in.kind), KindName(c.kind));
        EXPECT_EQ(in.number, c.number);
        EXPECT_FALSE(std::signbit(in.number));
        EXPECT_EQ(in.text, c.text);
    }
}

TEST(CellArea, ParsesA1AddressesAndRefusesTheRest) {
    struct Case {
        const char* why;
        const char* address;
        bool ok;
        CellArea area;
    };
    const Case cases[] = {
        {"one cell", "B3", true, {3, 2, 3, 2}},
        {"a rectangle", "A1:D5", true, {1, 1, 5, 4}},
        {"absolute marks and lower case", "$b$2:$d$5", true, {2, 2, 5, 4}},
        {"corners in any order", "D5:A1", true, {1, 1, 5, 4}},
        {"last cell of the sheet", "XFD1048576", true, {1048576, 16384, 1048576, 16384}},
        {"column beyond XFD", "XFE1", false, {}},
        {"row beyond the sheet", "A1048577", false, {}},
        {"row zero", "A0", false, {}},
        {"digits first", "1A", false, {}},
        {"open range", "A1:", false, {}},
        {"whole column form is not taken", "A:A", false, {}},
        {"empty", "", false, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        auto area = CellArea::Parse(c.address);
        EXPECT_EQ(area.has_value(), c.ok);
        if (area && c.ok) {
            EXPECT_EQ(area->Address(), c.area.Address());
        }
    }
}

TEST(CellArea, ColumnLettersRunAsExcelCountsThem) {
    struct Case {
        int col;
        const char* letters;
    };
    const Case cases[] = {{1, "A"},    {26, "Z"},    {27, "AA"},    {52, "AZ"},
                          {702, "ZZ"}, {703, "AAA"}, {16384, "XFD"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.col);
        EXPECT_EQ(ColumnLetters(c.col), c.letters);
    }
}

} // namespace
} // namespace quillon
