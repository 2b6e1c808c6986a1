// The in-memory sheet: typing of values, formats per attribute over ranges, merges, rows,
// refusals with Excel's error number, and interning of formats.
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

TEST(Worksheet, AssignedValuesAreTypedPerCell) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Cells(1, 1).SetValue("12.50");
    ws.Cells(1, 2).SetValue("'0012");
    ws.Cells(1, 3).SetValue("2024-03-05");
    ws.Cells(1, 4).SetNumberFormat("#0.00");
    ws.Cells(1, 4).SetValue("2024-03-05");
    ws.Cells(1, 5).SetNumberFormat("@");
    ws.Cells(1, 5).SetValue("0012");
    ws.Cells(1, 6).SetValue(7.25);

    EXPECT_EQ(Show(ws.Cells(1, 1).Value()), Show(12.5));
    EXPECT_EQ(Show(ws.Cells(1, 2).Value()), Show(std::string("0012")));
    EXPECT_EQ(Show(ws.Cells(1, 3).Value()), Show(45356.0));
    EXPECT_EQ(ws.Cells(1, 3).NumberFormat(), "yyyy-mm-dd");
    EXPECT_EQ(Show(ws.Cells(1, 4).Value()), Show(45356.0));
    EXPECT_EQ(ws.Cells(1, 4).NumberFormat(), "#0.00") << "a date keeps a format set before";
    EXPECT_EQ(Show(ws.Cells(1, 5).Value()), Show(std::string("0012")));
    EXPECT_EQ(Show(ws.Cells(1, 6).Value()), Show(7.25));
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

TEST(Worksheet, RangeSettingsReachEveryCellAndOverridePerAttribute) {
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
}

TEST(Worksheet, ValueAssignedToARangeFillsEveryCell) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Range("A1:B2").SetValue("5");
    EXPECT_EQ(Show(ws.Cells(2, 2).Value()), Show(5.0));
    EXPECT_EQ(Show(ws.Cells(1, 2).Value()), Show(5.0));
}

TEST(Worksheet, MergeKeepsUpperLeftValueAndFormat) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Cells(1, 1).SetValue("标题");
    ws.Cells(1, 1).SetHorizontalAlignment(xlCenter);
    ws.Cells(1, 2).SetValue("lost");
    ws.Cells(2, 3).SetValue("lost too");
    ws.Cells(2, 3).Font().SetBold(true);
    ws.Range("A1:C2").SetMergeCells(true);

    ASSERT_EQ(ws.MergedAreas().size(), 1u);
    EXPECT_EQ(ws.MergedAreas()[0].Address(), "A1:C2");
    EXPECT_EQ(Show(ws.Cells(1, 1).Value()), Show(std::string("标题")));
    EXPECT_EQ(Show(ws.Cells(1, 2).Value()), Show(CellValue{}));
    EXPECT_EQ(Show(ws.Cells(2, 3).Value()), Show(CellValue{}));
    EXPECT_FALSE(ws.Cells(2, 3).Font().Bold()) << "the merged area takes the upper-left format";
    EXPECT_EQ(ws.Cells(2, 3).HorizontalAlignment(), xlCenter);
    EXPECT_TRUE(ws.Cells(2, 2).MergeCells());
    EXPECT_FALSE(ws.Cells(3, 1).MergeCells());
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

TEST(Worksheet, BordersDrawEveryEdgeOfEveryCell) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Range("B2:C3").Borders().SetLineStyle(xlContinuous);
    for (int r = 2; r <= 3; ++r)
        for (int c = 2; c <= 3; ++c) {
            SCOPED_TRACE((CellArea{r, c, r, c}.Address()));
            EXPECT_EQ(ws.Cells(r, c).Borders().LineStyle(), std::optional<int>(xlContinuous));
        }
    EXPECT_EQ(ws.Cells(1, 1).Borders().LineStyle(), std::optional<int>(xlLineStyleNone));
}

TEST(Worksheet, RowWrapReachesCellsWrittenBeforeAndAfter) {
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Cells(6, 1).SetValue("before");
    ws.Rows(6).SetWrapText(true);
    ws.Cells(6, 9).SetValue("after");

    EXPECT_TRUE(ws.Rows(6).WrapText());
    EXPECT_TRUE(ws.Cells(6, 1).WrapText());
    EXPECT_TRUE(ws.Cells(6, 9).WrapText());
    EXPECT_TRUE(ws.Cells(6, 5).WrapText()) << "a cell never written has the row's format";
    EXPECT_FALSE(ws.Cells(7, 1).WrapText());
    EXPECT_EQ(ws.CellCount(), 2u) << "the row format makes no cells";
}

TEST(Worksheet, RefusedCallsRaiseExcelsError) {
    struct Case {
        const char* why;
        std::function<void(Worksheet&)> call;
        long number;
    };
    const Case cases[] = {
        {"row zero", [](Worksheet& ws) { ws.Cells(0, 1); }, 1004},
        {"column beyond XFD", [](Worksheet& ws) { ws.Cells(1, 16385); }, 1004},
        {"bad address", [](Worksheet& ws) { ws.Range("A0:B2"); }, 1004},
        {"corner off the sheet", [](Worksheet& ws) { ws.Range(1, 1, 1048577, 1); }, 1004},
        {"unknown alignment", [](Worksheet& ws) { ws.Cells(1, 1).SetHorizontalAlignment(99); }, 1004},
        {"top is no horizontal alignment",
         [](Worksheet& ws) { ws.Cells(1, 1).SetHorizontalAlignment(xlTop); }, 1004},
        {"negative colour, like a system colour",
         [](Worksheet& ws) { ws.Cells(1, 1).Interior().SetColor(-2147483643L); }, 1004},
        {"unknown line style", [](Worksheet& ws) { ws.Cells(1, 1).Borders().SetLineStyle(7); }, 1004},
        {"column wider than 255", [](Worksheet& ws) { ws.Columns(1).SetColumnWidth(256); }, 1004},
        {"row higher than 409", [](Worksheet& ws) { ws.Rows(1).SetRowHeight(410); }, 1004},
        {"font size zero", [](Worksheet& ws) { ws.Cells(1, 1).Font().SetSize(0); }, 1004},
        {"text over 32767 characters",
         [](Worksheet& ws) { ws.Cells(1, 1).SetValue(std::string(32768, 'x')); }, 1004},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Workbook book;
        try {
            c.call(book.Worksheets(1));
            ADD_FAILURE() << "no error raised";
        } catch (const VbError& e) {
            EXPECT_EQ(e.Number, c.number);
            EXPECT_EQ(e.Description, "应用程序定义或对象定义错误");
        }
    }
}

TEST(Worksheet, LongestTextACellTakesIsAccepted) {
    Workbook book;
    std::string text(32767 - 1, 'x');
    text += "汉"; // one UTF-16 unit in three bytes
    book.Worksheets(1).Cells(1, 1).SetValue(text);
    EXPECT_EQ(Show(book.Worksheets(1).Cells(1, 1).Value()), Show(text));
}

} // namespace
} // namespace quillon
