// Workbooks saved through libxlsxwriter and read back from the file: values and types,
// merges, formats, widths, rows, file names and failures.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "support/file_size_limit.h"
#include "support/temp_dir.h"
#include "xlsx/workbook.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

namespace xr = xlsxread;
namespace fs = std::filesystem;

// A fresh book in a temporary folder; Saved() writes it and reads its first sheet back.
class SaveAs : public ::testing::Test {
protected:
    xr::Sheet Saved() {
        book.SaveAs(dir.File("book.xlsx"));
        return xr::ReadXlsx(dir.File("book.xlsx")).First();
    }
    TempDir dir;
    Workbook book;
    Worksheet& ws = book.Worksheets(1);
};

TEST_F(SaveAs, ValuesKeepTheirTypesAndNumberFormats) {
    struct Case {
        const char* why;
        const char* formatBefore; // set on the cell before the value, nullptr for none
        const char* input;
        xr::CellType type;
        double number;
        const char* text;
        const char* format;
    };
    const Case cases[] = {
        {"number text", nullptr, "12.50", xr::CellType::Number, 12.5, "", "General"},
        {"apostrophe keeps text, not stored", nullptr, "'00123", xr::CellType::SharedString, 0, "00123",
         "General"},
        {"date with its format", nullptr, "2024-03-05", xr::CellType::Number, 45356, "", "yyyy-mm-dd"},
        {"a date keeps a format set before", "#0.00", "2024-03-05", xr::CellType::Number, 45356, "", "#0.00"},
        {"a text-formatted cell keeps digits as text", "@", "0012", xr::CellType::SharedString, 0, "0012",
         "@"},
        {"Chinese text", nullptr, "合  计", xr::CellType::SharedString, 0, "合  计", "General"},
        {"negative zero text", nullptr, "-0.00", xr::CellType::Number, 0, "", "General"},
        {"0.00", "0.00", "1.5", xr::CellType::Number, 1.5, "", "0.00"},
        {"#,##0.00", "#,##0.00", "1234.5", xr::CellType::Number, 1234.5, "", "#,##0.00"},
    };
    int row = 1;
    for (const auto& c : cases) {
        if (c.formatBefore) ws.Cells(row, 1).SetNumberFormat(c.formatBefore);
        ws.Cells(row++, 1).SetValue(c.input);
    }
    ws.Cells(1, 2).SetValue(-3.75);
    ws.Cells(1, 3).SetValue("");
    ws.Cells(1, 4).SetValue("'");
    xr::Sheet sheet = Saved();

    row = 1;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const xr::Cell* cell = sheet.Find(row++, 1);
        ASSERT_NE(cell, nullptr);
        EXPECT_EQ(cell->type, c.type);
        EXPECT_EQ(cell->number, c.number);
        EXPECT_EQ(cell->text, c.text);
        EXPECT_EQ(cell->format.numberFormat, c.format);
    }
    const xr::Cell* assigned = sheet.Find(1, 2); // a double is written as it is
    ASSERT_NE(assigned, nullptr);
    EXPECT_EQ(assigned->type, xr::CellType::Number);
    EXPECT_EQ(assigned->number, -3.75);
    EXPECT_EQ(assigned->format.numberFormat, "General");
    EXPECT_EQ(sheet.Find(1, 3), nullptr) << "empty text writes no cell";
    EXPECT_EQ(sheet.Find(1, 4), nullptr) << "a lone apostrophe shows nothing";
}

TEST_F(SaveAs, MergedRangeKeepsUpperLeftValueAndFormat) {
    ws.Cells(4, 1).SetValue("序");
    ws.Cells(4, 1).SetHorizontalAlignment(xlCenter);
    ws.Cells(5, 1).SetValue("x");
    ws.Cells(5, 1).Font().SetBold(true);
    ws.Cells(4, 4).SetValue("1234.5");
    ws.Cells(4, 5).SetValue("y");
    ws.Range(ws.Cells(4, 1), ws.Cells(5, 1)).SetMergeCells(true);
    ws.Range(ws.Cells(4, 4), ws.Cells(4, 6)).SetMergeCells(true);
    ws.Range("A4:F5").Interior().SetColor(0xFFC0C0);
    ws.Range("A4:F5").Borders().SetLineStyle(xlContinuous);
    xr::Sheet sheet = Saved();

    ASSERT_EQ(sheet.merges.size(), 2u);
    EXPECT_EQ(sheet.merges[0], (xr::Area{4, 1, 5, 1}));
    EXPECT_EQ(sheet.merges[1], (xr::Area{4, 4, 4, 6}));
    ASSERT_NE(sheet.Find(4, 1), nullptr);
    EXPECT_EQ(sheet.Find(4, 1)->text, "序");
    ASSERT_NE(sheet.Find(4, 4), nullptr);
    EXPECT_EQ(sheet.Find(4, 4)->type, xr::CellType::Number) << "a number keeps its type when merged";
    EXPECT_EQ(sheet.Find(4, 4)->number, 1234.5);
    for (auto [r, c] : {std::pair{5, 1}, std::pair{4, 5}, std::pair{4, 6}}) {
        SCOPED_TRACE((CellArea{r, c, r, c}.Address()));
        const xr::Cell* cell = sheet.Find(r, c);
        ASSERT_NE(cell, nullptr) << "every cell of a merged area carries the format";
        EXPECT_EQ(cell->type, xr::CellType::Empty);
        EXPECT_EQ(cell->format.fillColor, "FFC0C0FF");
        EXPECT_EQ(cell->format.borderRight, "thin");
        EXPECT_EQ(cell->format.borderBottom, "thin");
    }
    EXPECT_EQ(sheet.FormatAt(5, 1).horizontal, "center") << "the merged area takes the upper-left format";
    EXPECT_FALSE(sheet.FormatAt(5, 1).bold);
}

TEST_F(SaveAs, FillColoursTurnFromBgrToRgb) {
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
    int row = 1;
    for (const auto& c : cases) ws.Cells(row++, 1).Interior().SetColor(c.bgr);
    xr::Sheet sheet = Saved();
    row = 1;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        xr::CellFormat f = sheet.FormatAt(row++, 1);
        EXPECT_EQ(f.fillPattern, "solid");
        EXPECT_EQ(f.fillColor, c.argb);
    }
    EXPECT_EQ(sheet.FormatAt(row, 1).fillPattern, "");
}

TEST_F(SaveAs, FontsAlignmentAndBorders) {
    ws.Range("A2:C2").Font().SetName("微软雅黑");
    ws.Range("A2:C2").Font().SetSize(9);
    ws.Range("B2:C2").Font().SetBold(true);
    ws.Cells(3, 1).SetHorizontalAlignment(xlCenter);
    ws.Cells(3, 2).SetHorizontalAlignment(xlLeft);
    ws.Cells(3, 3).SetHorizontalAlignment(xlRight);
    ws.Cells(3, 3).SetVerticalAlignment(xlCenter);
    ws.Cells(3, 4).SetWrapText(true);
    ws.Range("B5:C6").Borders().SetLineStyle(xlContinuous);
    ws.Cells(8, 5).Borders().SetLineStyle(xlDouble);
    xr::Sheet sheet = Saved();

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

    for (int r = 5; r <= 6; ++r)
        for (int c = 2; c <= 3; ++c) {
            SCOPED_TRACE((CellArea{r, c, r, c}.Address()));
            xr::CellFormat f = sheet.FormatAt(r, c);
            EXPECT_EQ(f.borderLeft, "thin");
            EXPECT_EQ(f.borderTop, "thin");
            EXPECT_EQ(f.borderRight, "thin");
            EXPECT_EQ(f.borderBottom, "thin");
        }
    EXPECT_EQ(sheet.Find(7, 2), nullptr) << "the row below the bordered range is not touched";
    EXPECT_EQ(sheet.FormatAt(8, 5).borderTop, "double");
}

TEST_F(SaveAs, ColumnWidthsRowsAndRowWrap) {
    ws.Columns(1).SetColumnWidth(10);
    ws.Columns(2).SetColumnWidth(20.5);
    ws.Columns(3).SetColumnWidth(0);
    ws.Cells(5, 1).SetValue("收款人:");
    ws.Rows(5).SetWrapText(true);
    ws.Cells(5, 9).SetValue("after");
    ws.Rows(7).SetRowHeight(30);
    xr::Sheet sheet = Saved();

    // The file's width adds 5 pixels of padding to 7 pixels per character, in 1/256ths:
    // 10 → 75 px → 10.7109375; 20.5 → 149 px → 21.28515625.
    EXPECT_EQ(sheet.columns[1].width, 10.7109375);
    EXPECT_EQ(sheet.columns[2].width, 21.28515625);
    EXPECT_TRUE(sheet.columns[3].hidden) << "width 0 hides the column";
    EXPECT_EQ(sheet.columns.count(4), 0u);

    ASSERT_TRUE(sheet.rows[5].format.has_value());
    EXPECT_TRUE(sheet.rows[5].format->wrap);
    EXPECT_TRUE(sheet.FormatAt(5, 1).wrap) << "a cell written before the row format";
    EXPECT_TRUE(sheet.FormatAt(5, 9).wrap) << "a cell written after it";
    EXPECT_EQ(sheet.Find(5, 5), nullptr) << "the row format makes no cells";
    EXPECT_FALSE(sheet.FormatAt(6, 1).wrap);
    EXPECT_FALSE(sheet.rows[5].height.has_value());
    EXPECT_EQ(sheet.rows[7].height, std::optional<double>(30));
}

TEST_F(SaveAs, DefaultExtensionIsAppendedAndAnOldFileOverwrittenSilently) {
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

    fs::create_directory(dir.Path() / "a.b");
    const std::string bare = dir.File("a.b/增值税开票统计汇总_20240101-20240101");
    std::ofstream(bare + ".xlsx") << "not a workbook"; // overwritten silently, as a workbook is
    ws.Cells(1, 1).SetValue("2");
    book.SaveAs(bare);
    ws.Cells(1, 1).SetValue("3");
    book.SaveAs(bare);
    EXPECT_FALSE(fs::exists(bare));
    xr::Sheet sheet = xr::ReadXlsx(bare + ".xlsx").First();
    ASSERT_NE(sheet.Find(1, 1), nullptr);
    EXPECT_EQ(sheet.Find(1, 1)->number, 3);
}

// A save that fails half-way (here the file-size limit, as a full disk would) must leave the good
// workbook already at the target byte for byte, and nothing else behind.
TEST_F(SaveAs, AFailedSaveKeepsTheOldWorkbookAndLeavesNoPartialFile) {
    const std::string target = dir.File("报表.xlsx");
    ws.Cells(1, 1).SetValue("old");
    book.SaveAs(target);
    const std::string before = ReadAll(target);
    ASSERT_FALSE(before.empty());

    for (int r = 1; r <= 3000; ++r) ws.Cells(r, 2).SetValue("行 " + std::to_string(r) + " 的一段较长的文字");
    const std::string failure = RunWithFileSizeLimit(4096, [&] {
        try {
            book.SaveAs(target);
        } catch (const VbError& e) {
            return std::to_string(e.Number) + " " + e.Description;
        }
        return std::string("saved in spite of the limit");
    });
    EXPECT_EQ(failure, "1004 无法保存文件: " + target);
    EXPECT_EQ(ReadAll(target), before) << "the old workbook stays as it was";
    std::vector<std::string> left;
    for (const auto& entry : fs::directory_iterator(dir.Path()))
        left.push_back(entry.path().filename().string());
    EXPECT_EQ(left, std::vector<std::string>{"报表.xlsx"});

    book.SaveAs(target); // without the limit it goes through, replacing the old one
    EXPECT_NE(ReadAll(target), before);
}

TEST_F(SaveAs, FailureRaisesNumberAndDescription) {
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
    ws.Cells(1, 1).SetValue("1");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        try {
            book.SaveAs(c.path);
            ADD_FAILURE() << "no error raised";
        } catch (const VbError& e) {
            EXPECT_EQ(e.Number, 1004);
            EXPECT_EQ(e.Description, "无法保存文件: " + c.shown);
        }
    }
}

TEST_F(SaveAs, ManyCellsWriteFewFormats) {
    for (int r = 1; r <= 3000; ++r) {
        ws.Cells(r, 1).SetValue(std::to_string(r));
        ws.Cells(r, 2).SetValue("部门" + std::to_string(r % 7));
        ws.Cells(r, 3).SetValue(std::to_string(r) + ".25");
    }
    ws.Range("C1:C3000").SetNumberFormat("#0.00");
    ws.Range("A1:C3000").Borders().SetLineStyle(xlContinuous);
    book.SaveAs(dir.File("many.xlsx"));
    xr::Book file = xr::ReadXlsx(dir.File("many.xlsx"));

    // default, borders, borders + #0.00: the file holds no more formats than that
    EXPECT_EQ(file.cellFormatCount, 3u);
    EXPECT_EQ(file.First().cells.size(), 9000u);
    ASSERT_NE(file.First().Find(3000, 3), nullptr);
    EXPECT_EQ(file.First().Find(3000, 3)->number, 3000.25);
    EXPECT_EQ(file.First().Find(3000, 3)->format.numberFormat, "#0.00");
}

} // namespace
} // namespace quillon
