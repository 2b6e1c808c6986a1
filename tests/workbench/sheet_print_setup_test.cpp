// The page setup every report's workbook carries, read back from the saved file: paper,
// orientation by the sheet's width, one page across, the header rows on every page with the
// panes frozen under them, and the page numbers at the foot.
#include "workbench/sheet_print_setup.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "controls/flex_grid.h"
#include "controls/scripted_dialogs.h"
#include "support/temp_dir.h"
#include "workbench/excel_export.h"
#include "xlsx/workbook.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

TEST(SheetPrintSetup, WidthInPixelsAsExcelDrawsTheColumns) {
    struct Case {
        const char* why;
        std::function<void(Worksheet&)> fill;
        int pixels;
    };
    const Case cases[] = {
        {"an empty sheet", [](Worksheet&) {}, 0},
        {"three cells in default columns", [](Worksheet& s) { s.Cells(2, 3).SetValue("x"); }, 3 * 64},
        {"a merge reaching further than the cells",
         [](Worksheet& s) { s.Range(1, 1, 1, 4).SetMergeCells(true); }, 4 * 64},
        {"a width set on a column without cells counts it",
         [](Worksheet& s) { s.Columns(2).SetColumnWidth(1200 / 110.0); }, 64 + 81},
        {"hidden and narrow columns",
         [](Worksheet& s) {
             s.Columns(1).SetColumnWidth(0);
             s.Columns(2).SetColumnWidth(0.5);
             s.Cells(1, 2).SetValue("x");
         },
         0 + 6},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Workbook book;
        c.fill(book.Worksheets(1));
        EXPECT_EQ(SheetWidthPixels(book.Worksheets(1)), c.pixels);
    }
}

// What a report's writer does: a title, two header rows copied from the grid at rows 4 and 5,
// a data row; the grid's columns decide the sheet's width.
xlsxread::PrintSetup WriteReportSheet(const TempDir& dir, const std::vector<int>& colWidths, bool header) {
    FlexGrid grid;
    grid.SetCols(static_cast<int>(colWidths.size()));
    grid.SetRows(3);
    grid.SetFixedRows(2);
    for (int c = 0; c < grid.Cols(); ++c) {
        grid.SetColWidth(c, colWidths[c]);
        grid.SetTextMatrix(0, c, "头" + std::to_string(c));
    }
    ScriptedDialogs dialogs;
    const std::string file = dir.File("report.xlsx");
    RunSheetWriter(dialogs, file, "导出成功", WriterTrap::NumberDescription, [&](Worksheet& sheet) {
        sheet.Cells(1, 1).SetValue("标题");
        if (header) {
            CopyGridHeaderRow(grid, 0, sheet, 4);
            CopyGridHeaderRow(grid, 1, sheet, 5);
        }
        for (int c = 0; c < grid.Cols(); ++c) sheet.Cells(6, c + 1).SetValue(12.5);
    });
    EXPECT_EQ(dialogs.Messages().back().Text, "导出成功");
    return xlsxread::ReadXlsx(file).First().print;
}

TEST(SheetPrintSetup, EveryReportSheetPrintsOnePageAcrossWithItsHeaderOnEveryPage) {
    struct Case {
        const char* why;
        std::vector<int> colWidths; // twips; the sheet's columns are width / 110 characters
        bool header;
        const char* orientation;
        const char* printTitles;
        const char* frozenTopLeft;
        int frozenRows;
    };
    const Case cases[] = {
        {"narrow: upright", {1200, 1200, 1200}, true, "portrait", "Sheet1!$4:$5", "A6", 5},
        // 15 columns of 1200 twips: 15 x 81 = 1215 px, wider than the 659 of an upright page.
        {"the reconciliation's width: turned", std::vector<int>(15, 1200), true, "landscape", "Sheet1!$4:$5",
         "A6", 5},
        {"the code columns hidden count nothing",
         {1200, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1200},
         true,
         "portrait",
         "Sheet1!$4:$5",
         "A6",
         5},
        {"without header rows nothing repeats and nothing freezes", std::vector<int>(15, 1200), false,
         "landscape", "", "", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        TempDir dir;
        const xlsxread::PrintSetup print = WriteReportSheet(dir, c.colWidths, c.header);
        EXPECT_EQ(print.orientation, c.orientation);
        EXPECT_EQ(print.paperSize, 9) << "A4";
        EXPECT_TRUE(print.fitToPage);
        EXPECT_EQ(print.fitToWidth, 1) << "one page across";
        EXPECT_EQ(print.fitToHeight, 0) << "as many down as needed";
        EXPECT_TRUE(print.horizontalCentered);
        EXPECT_EQ(print.printTitles, c.printTitles);
        EXPECT_EQ(print.frozenTopLeft, c.frozenTopLeft);
        EXPECT_EQ(print.frozenRows, c.frozenRows);
        EXPECT_EQ(print.frozenCols, 0);
        EXPECT_EQ(print.oddFooter, "&C第 &P 页 共 &N 页");
    }
}

TEST(SheetPrintSetup, TitleRowsGrowToTakeInEveryRowAdded) {
    SheetPageSetup page;
    page.AddTitleRow(5);
    page.AddTitleRow(4);
    page.AddTitleRow(5);
    EXPECT_EQ(page.firstTitleRow, 4);
    EXPECT_EQ(page.lastTitleRow, 5);
}

} // namespace
} // namespace quillon
