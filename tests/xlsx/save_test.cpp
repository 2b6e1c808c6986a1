// Workbooks saved through libxlsxwriter and read back from the file: values and types,
// merges, formats, widths, rows, file names and failures.
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "support/temp_dir.h"
#include "xlsx/workbook.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

namespace xr = xlsxread;
namespace fs = std::filesystem;

const char* TypeName(xr::CellType t) {
    switch (t) {
    case xr::CellType::Empty:
        return "empty";
    case xr::CellType::Number:
        return "number";
    case xr::CellType::SharedString:
        return "shared string";
    case xr::CellType::InlineString:
        return "inline string";
    case xr::CellType::Boolean:
        return "boolean";
    case xr::CellType::Other:
        return "other";
    }
    return "?";
}

// Saves the book under a fresh name and reads its first sheet back.
xr::Sheet SaveAndRead(Workbook& book, const TempDir& dir) {
    std::string path = dir.File("book.xlsx");
    book.SaveAs(path);
    return xr::ReadXlsx(path).First();
}

TEST(SaveAs, ValuesKeepTheirTypes) {
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Cells(1, 1).SetValue("12.50");
    ws.Cells(1, 2).SetValue("'00123");
    ws.Cells(1, 3).SetValue("2024-03-05");
    ws.Cells(1, 4).SetValue("合  计");
    ws.Cells(1, 5).SetValue(-3.75);
    ws.Cells(1, 6).SetValue("");
    ws.Cells(1, 7).SetValue("'");
    ws.Cells(2, 1).SetValue("-0.00");
    xr::Sheet sheet = SaveAndRead(book, dir);

    struct Case {
        const char* why;
        int row, col;
        xr::CellType type;
        double number;
        const char* text;
        const char* format;
    };
    const Case cases[] = {
        {"number text", 1, 1, xr::CellType::Number, 12.5, "", "General"},
        {"apostrophe keeps text, not stored", 1, 2, xr::CellType::SharedString, 0, "00123", "General"},
        {"date with its format", 1, 3, xr::CellType::Number, 45356, "", "yyyy-mm-dd"},
        {"Chinese text", 1, 4, xr::CellType::SharedString, 0, "合  计", "General"},
        {"double", 1, 5, xr::CellType::Number, -3.75, "", "General"},
        {"negative zero text", 2, 1, xr::CellType::Number, 0, "", "General"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const xr::Cell* cell = sheet.Find(c.row, c.col);
        ASSERT_NE(cell, nullptr);
        EXPECT_STREQ(TypeName(cell->type), TypeName(c.type));
        EXPECT_EQ(cell->number, c.number);
        EXPECT_EQ(cell->text, c.text);
        EXPECT_EQ(cell->format.numberFormat, c.format);
    }
    EXPECT_EQ(sheet.Find(1, 6), nullptr) << "empty text writes no cell";
    EXPECT_EQ(sheet.Find(1, 7), nullptr) << "a lone apostrophe shows nothing";
}

TEST(SaveAs, MergedRangeKeepsUpperLeftValueAndCellFormats) {
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Cells(4, 1).SetValue("序");
    ws.Cells(5, 1).SetValue("x");
    ws.Cells(4, 4).SetValue("1234.5");
    ws.Cells(4, 5).SetValue("y");
    ws.Range(ws.Cells(4, 1), ws.Cells(5, 1)).SetMergeCells(true);
    ws.Range(ws.Cells(4, 4), ws.Cells(4, 6)).SetMergeCells(true);
    ws.Range("A4:F5").Interior().SetColor(0xFFC0C0);
    ws.Range("A4:F5").Borders().SetLineStyle(xlContinuous);
    xr::Sheet sheet = SaveAndRead(book, dir);

    ASSERT_EQ(sheet.merges.size(), 2u);
    EXPECT_EQ(sheet.merges[0], (xr::Area{4, 1, 5, 1}));
    EXPECT_EQ(sheet.merges[1], (xr::Area{4, 4, 4, 6}));
    ASSERT_NE(sheet.Find(4, 1), nullptr);
    EXPECT_EQ(sheet.Find(4, 1)->text, "序");
    ASSERT_NE(sheet.Find(4, 4), nullptr);
    EXPECT_STREQ(TypeName(sheet.Find(4, 4)->type), "number") << "a number keeps its type when merged";
    EXPECT_EQ(sheet.Find(4, 4)->number, 1234.5);
    for (auto [r, c] : {std::pair{5, 1}, std::pair{4, 5}, std::pair{4, 6}}) {
        SCOPED_TRACE((CellArea{r, c, r, c}.Address()));
        const xr::Cell* cell = sheet.Find(r, c);
        ASSERT_NE(cell, nullptr) << "every cell of a merged area carries the format";
        EXPECT_STREQ(TypeName(cell->type), "empty");
        EXPECT_EQ(cell->format.fillColor, "FFC0C0FF");
        EXPECT_EQ(cell->format.borderRight, "thin");
        EXPECT_EQ(cell->format.borderBottom, "thin");
    }
}

TEST(SaveAs, FillColoursTurnFromBgrToRgb) {
    struct Case {
        const char* why;
        long bgr;
        const char* argb;
    };
    const Case cases[] = {
        {"the total rows' blue", 0xFFC0C0, "FFC0C0FF"},
        {"the subtotal rows' orange", 0xC0E0FF, "FFFFE0C0"},
        {"pure red is the low byte", 0x0000FF, "FFFF0000"},
        {"black is a colour, not no fill", 0x000000, "FF000000"},
        {"white", 0xFFFFFF, "FFFFFFFF"},
    };
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    int row = 1;
    for (const auto& c : cases) ws.Cells(row++, 1).Interior().SetColor(c.bgr);
    xr::Sheet sheet = SaveAndRead(book, dir);
    row = 1;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        xr::CellFormat f = sheet.FormatAt(row++, 1);
        EXPECT_EQ(f.fillPattern, "solid");
        EXPECT_EQ(f.fillColor, c.argb);
    }
    EXPECT_EQ(sheet.FormatAt(row, 1).fillPattern, "");
}

TEST(SaveAs, NumberFormatsFontsAndAlignment) {
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Cells(1, 1).SetNumberFormat("0.00");
    ws.Cells(1, 2).SetNumberFormat("#0.00");
    ws.Cells(1, 3).SetNumberFormat("@");
    ws.Cells(1, 4).SetNumberFormat("#,##0.00");
    ws.Cells(1, 5).SetNumberFormat("yyyy-mm-dd");
    ws.Range("A2:C2").Font().SetName("微软雅黑");
    ws.Range("A2:C2").Font().SetSize(9);
    ws.Range("B2:C2").Font().SetBold(true);
    ws.Cells(3, 1).SetHorizontalAlignment(xlCenter);
    ws.Cells(3, 2).SetHorizontalAlignment(xlLeft);
    ws.Cells(3, 3).SetHorizontalAlignment(xlRight);
    ws.Cells(3, 3).SetVerticalAlignment(xlCenter);
    ws.Cells(3, 4).SetWrapText(true);
    xr::Sheet sheet = SaveAndRead(book, dir);

    EXPECT_EQ(sheet.FormatAt(1, 1).numberFormat, "0.00");
    EXPECT_EQ(sheet.FormatAt(1, 2).numberFormat, "#0.00");
    EXPECT_EQ(sheet.FormatAt(1, 3).numberFormat, "@");
    EXPECT_EQ(sheet.FormatAt(1, 4).numberFormat, "#,##0.00");
    EXPECT_EQ(sheet.FormatAt(1, 5).numberFormat, "yyyy-mm-dd");

    EXPECT_EQ(sheet.FormatAt(2, 1).fontName, "微软雅黑");
    EXPECT_EQ(sheet.FormatAt(2, 1).fontSize, 9);
    EXPECT_FALSE(sheet.FormatAt(2, 1).bold);
    EXPECT_TRUE(sheet.FormatAt(2, 3).bold);
    EXPECT_EQ(sheet.FormatAt(2, 4).fontName, "Calibri") << "an untouched cell keeps the workbook font";
    EXPECT_EQ(sheet.FormatAt(2, 4).fontSize, 11);

    EXPECT_EQ(sheet.FormatAt(3, 1).horizontal, "center");
    EXPECT_EQ(sheet.FormatAt(3, 2).horizontal, "left");
    EXPECT_EQ(sheet.FormatAt(3, 3).horizontal, "right");
    EXPECT_EQ(sheet.FormatAt(3, 3).vertical, "center");
    EXPECT_TRUE(sheet.FormatAt(3, 4).wrap);
    EXPECT_FALSE(sheet.FormatAt(3, 3).wrap);
}

TEST(SaveAs, BordersCoverTheRangeAndStopAtItsEdge) {
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Range("B2:C3").Borders().SetLineStyle(xlContinuous);
    ws.Cells(5, 5).Borders().SetLineStyle(xlDouble);
    xr::Sheet sheet = SaveAndRead(book, dir);

    for (int r = 2; r <= 3; ++r)
        for (int c = 2; c <= 3; ++c) {
            SCOPED_TRACE((CellArea{r, c, r, c}.Address()));
            xr::CellFormat f = sheet.FormatAt(r, c);
            EXPECT_EQ(f.borderLeft, "thin");
            EXPECT_EQ(f.borderTop, "thin");
            EXPECT_EQ(f.borderRight, "thin");
            EXPECT_EQ(f.borderBottom, "thin");
        }
    EXPECT_EQ(sheet.Find(4, 2), nullptr) << "the row below the range is not touched";
    EXPECT_EQ(sheet.FormatAt(5, 5).borderTop, "double");
}

TEST(SaveAs, ColumnWidthsRowsAndRowWrap) {
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    ws.Columns(1).SetColumnWidth(10);
    ws.Columns(2).SetColumnWidth(20.5);
    ws.Columns(3).SetColumnWidth(0);
    ws.Cells(5, 1).SetValue("收款人:");
    ws.Rows(5).SetWrapText(true);
    ws.Rows(7).SetRowHeight(30);
    xr::Sheet sheet = SaveAndRead(book, dir);

    // The file's width adds 5 pixels of padding to 7 pixels per character, in 1/256ths:
    // 10 → 75 px → 10.7109375; 20.5 → 149 px → 21.28515625.
    EXPECT_EQ(sheet.columns[1].width, 10.7109375);
    EXPECT_EQ(sheet.columns[2].width, 21.28515625);
    EXPECT_TRUE(sheet.columns[3].hidden) << "width 0 hides the column";
    EXPECT_EQ(sheet.columns.count(4), 0u);

    ASSERT_TRUE(sheet.rows[5].format.has_value());
    EXPECT_TRUE(sheet.rows[5].format->wrap);
    EXPECT_TRUE(sheet.FormatAt(5, 1).wrap);
    EXPECT_FALSE(sheet.rows[5].height.has_value());
    EXPECT_EQ(sheet.rows[7].height, std::optional<double>(30));
}

TEST(SaveAs, DefaultExtensionIsAppendedToABareName) {
    struct Case {
        const char* why;
        const char* path;
        const char* written;
    };
    const Case cases[] = {
        {"bare name", "/r/票据核对表", "/r/票据核对表.xlsx"},
        {"dot in a folder, bare file name", "/r/a.b/report", "/r/a.b/report.xlsx"},
        {"name with extension kept", "/r/report.xlsx", "/r/report.xlsx"},
        {"backslash folders", "C:\\a.b\\report", "C:\\a.b\\report.xlsx"},
        {"relative bare name", "report", "report.xlsx"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Workbook::PathWithDefaultExtension(c.path), c.written);
    }

    TempDir dir;
    fs::create_directory(dir.Path() / "a.b");
    Workbook book;
    book.Worksheets(1).Cells(1, 1).SetValue("1");
    book.SaveAs(dir.File("a.b/增值税开票统计汇总_20240101-20240101"));
    EXPECT_TRUE(fs::exists(dir.Path() / "a.b" / "增值税开票统计汇总_20240101-20240101.xlsx"));
    EXPECT_FALSE(fs::exists(dir.Path() / "a.b" / "增值税开票统计汇总_20240101-20240101"));
}

TEST(SaveAs, OverwritesAnExistingFileSilently) {
    TempDir dir;
    std::string path = dir.File("same.xlsx");
    {
        std::ofstream old(path);
        old << "not a workbook";
    }
    Workbook book;
    book.Worksheets(1).Cells(1, 1).SetValue("2");
    book.SaveAs(path);
    Workbook second;
    second.Worksheets(1).Cells(1, 1).SetValue("3");
    second.SaveAs(path);

    xr::Sheet sheet = xr::ReadXlsx(path).First();
    ASSERT_NE(sheet.Find(1, 1), nullptr);
    EXPECT_EQ(sheet.Find(1, 1)->number, 3);
}

TEST(SaveAs, FailureRaisesNumberAndDescription) {
    TempDir dir;
    fs::create_directory(dir.Path() / "taken.xlsx");
    struct Case {
        const char* why;
        std::string path;
        std::string shown;
    };
    const Case cases[] = {
        {"missing folder", dir.File("no-such-folder/report"), dir.File("no-such-folder/report.xlsx")},
        {"a folder of that name", dir.File("taken.xlsx"), dir.File("taken.xlsx")},
        {"empty path", "", ""},
        {"a folder no one may write in, root included", "/proc/quillon-report", "/proc/quillon-report.xlsx"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Workbook book;
        book.Worksheets(1).Cells(1, 1).SetValue("1");
        try {
            book.SaveAs(c.path);
            ADD_FAILURE() << "no error raised";
        } catch (const VbError& e) {
            EXPECT_EQ(e.Number, 1004);
            EXPECT_EQ(e.Description, "无法保存文件: " + c.shown);
        }
    }
}

TEST(SaveAs, ManyCellsWriteFewFormats) {
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
    for (int r = 1; r <= 3000; ++r) {
        ws.Cells(r, 1).SetValue(std::to_string(r));
        ws.Cells(r, 2).SetValue("部门" + std::to_string(r % 7));
        ws.Cells(r, 3).SetValue(std::to_string(r) + ".25");
    }
    ws.Range("C1:C3000").SetNumberFormat("#0.00");
    ws.Range("A1:C3000").Borders().SetLineStyle(xlContinuous);
    xr::Book file = [&] {
        book.SaveAs(dir.File("many.xlsx"));
        return xr::ReadXlsx(dir.File("many.xlsx"));
    }();

    // default, borders, borders + #0.00: the file holds no more formats than that
    EXPECT_EQ(file.cellFormatCount, 3u);
    EXPECT_EQ(file.First().cells.size(), 9000u);
    EXPECT_EQ(file.First().Find(3000, 3)->number, 3000.25);
    EXPECT_EQ(file.First().Find(3000, 3)->format.numberFormat, "#0.00");
}

} // namespace
} // namespace quillon
