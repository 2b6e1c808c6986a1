// The in-memory sheet: clearing values, formats per attribute over ranges, merges, and
// refusals with Excel's error number. What reaches the file is tested in save_test.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "xlsx/workbook.h"

namespace quillon {
namespace {

std::string Show(const CellValue& v) {
    if (std::holds_alternative<std::monostate>(v)) return "<empty>";
    if (const double* d = std::get_if<double>(&v)) return "number " + std::to_string(*d);
    return "text '" + std::get<std::string>(v) + "'";
}

TEST(Worksheet, EmptyTextEmptiesWithoutMakingCells) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Cells(2, 2).SetValue("x");
    ws.Cells(2, 2).Font().SetBold(true);
    ws.Cells(2, 2).SetValue("");
    ws.Cells(5, 5).SetValue("");

    EXPECT_EQ(Show(ws.Cells(2, 2).Value()), Show(CellValue{}));
    EXPECT_TRUE(ws.Cells(2, 2).Font().Bold()) << "clearing keeps the format";
    EXPECT_EQ(ws.CellCount(), 1u) << "an empty text makes no cell";
}

TEST(Worksheet, RangeSettingsAndValuesReachEveryCellAndOverridePerAttribute) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Range("A1:C3").Font().SetName("微软雅黑");
    ws.Range("A1:C3").Font().SetSize(9);
    ws.Range(ws.Cells(2, 2), ws.Cells(3, 3)).Interior().SetColor(0xFFC0C0);
    ws.Range("B2:B2").Font().SetSize(12);

    EXPECT_EQ(ws.CellCount(), 9u) << "empty cells of a formatted range are formatted too";
    EXPECT_EQ(ws.Cells(3, 3).Font().Name(), "微软雅黑") << "a later fill leaves the font";
    EXPECT_EQ(ws.Cells(3, 3).Font().Size(), 9);
    EXPECT_EQ(ws.Cells(3, 3).Interior().Color(), std::optional<long>(0xFFC0C0));
    EXPECT_EQ(ws.Cells(1, 1).Interior().Color(), std::nullopt);
    EXPECT_EQ(ws.Cells(2, 2).Font().Size(), 12);
    EXPECT_EQ(ws.Cells(2, 3).Font().Size(), 9);
    EXPECT_EQ(Show(ws.Cells(2, 2).Value()), Show(CellValue{}));

    ws.Range("A1:B2").SetValue("5"); // a value, too, reaches every cell, typed
    EXPECT_EQ(Show(ws.Cells(2, 2).Value()), Show(5.0));
    EXPECT_EQ(Show(ws.Cells(1, 2).Value()), Show(5.0));
}

TEST(Worksheet, MergesThatOverlapBecomeOneAndSingleCellsDoNotMerge) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Range("A4:A5").SetMergeCells(true);
    ws.Range("D4:E4").SetMergeCells(true);
    ws.Range(4, 4, 4, 2).SetMergeCells(true); // B4:D4, reaching into D4:E4
    ws.Range("G1:G1").SetMergeCells(true);

    ASSERT_EQ(ws.MergedAreas().size(), 2u);
    EXPECT_EQ(ws.MergedAreas()[0].Address(), "A4:A5");
    EXPECT_EQ(ws.MergedAreas()[1].Address(), "B4:E4");

    ws.Cells(4, 3).SetMergeCells(false); // unmerges the whole area it touches
    ASSERT_EQ(ws.MergedAreas().size(), 1u);
    EXPECT_EQ(ws.MergedAreas()[0].Address(), "A4:A5");
}

TEST(Worksheet, RefusedCallsRaiseExcelsErrorTheLongestTextDoesNot) {
    struct Case {
        const char* why;
        std::function<void(Worksheet&)> call;
    };
    const Case cases[] = {
        {"row zero", [](Worksheet& ws) { ws.Cells(0, 1); }},
        {"column beyond XFD", [](Worksheet& ws) { ws.Cells(1, 16385); }},
        {"bad address", [](Worksheet& ws) { ws.Range("A0:B2"); }},
        {"corner off the sheet", [](Worksheet& ws) { ws.Range(1, 1, 1048577, 1); }},
        {"unknown alignment", [](Worksheet& ws) { ws.Cells(1, 1).SetHorizontalAlignment(99); }},
        {"top is no horizontal alignment",
         [](Worksheet& ws) { ws.Cells(1, 1).SetHorizontalAlignment(xlTop); }},
        {"negative colour, like a system colour",
         [](Worksheet& ws) { ws.Cells(1, 1).Interior().SetColor(-2147483643L); }},
        {"unknown line style", [](Worksheet& ws) { ws.Cells(1, 1).Borders().SetLineStyle(7); }},
        {"column wider than 255", [](Worksheet& ws) { ws.Columns(1).SetColumnWidth(256); }},
        {"row higher than 409", [](Worksheet& ws) { ws.Rows(1).SetRowHeight(410); }},
        {"font size zero", [](Worksheet& ws) { ws.Cells(1, 1).Font().SetSize(0); }},
        {"text over 32767 characters",
         [](Worksheet& ws) { ws.Cells(1, 1).SetValue(std::string(32768, 'x')); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Workbook book;
        try {
            c.call(book.Worksheets(1));
            ADD_FAILURE() << "no error raised";
        } catch (const VbError& e) {
            EXPECT_EQ(e.Number, 1004);
            EXPECT_EQ(e.Description, "应用程序定义或对象定义错误");
        }
    }
    Workbook book;
    std::string longest(32767 - 1, 'x');
    longest += "汉"; // one UTF-16 unit in three bytes: the longest text a cell takes
    book.Worksheets(1).Cells(1, 1).SetValue(longest);
    EXPECT_EQ(Show(book.Worksheets(1).Cells(1, 1).Value()), Show(longest));
}

} // namespace
} // namespace quillon
