// The reconciliation workbook, written from a run and read back from the file.
#include <gtest/gtest.h>

#include <algorithm>

#include "recon_fixture.h"
#include "support/temp_dir.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

using xlsxread::Area;

constexpr const char* kSubtotalFill = "FFFFE0C0"; // 0xC0E0FF in the grid's byte order
constexpr const char* kTotalFill = "FFC0C0FF";    // 0xFFC0C0

class ReconExport : public ReconTest {
protected:
    // One special invoice of 106.00 (6.00 tax) in March 2024, paid the same month: a rate row,
    // a 小计 row and a 合计 row, N = 1.
    xlsxread::Sheet RunAndExport(bool newForm) {
        AddReconBooks(db);
        db.Invoice(OneLine(kSpecialLot, "S1", "2024-03-05", "2024-03-05", "WY", 106.0, 6.0));
        auto w = OpenForm(newForm);
        // The year before the department: its click puts the year into the title.
        w->Combo1.SetText("2024");
        w->Combo2.SetText("03");
        w->Combo3.SetText("03");
        w->List1.SetListIndex(0);
        w->Command3.Click();
        EXPECT_EQ(w->MSFlexGrid1.Rows(), 5);
        dialogs.QueueSaveFileName(dir.File("核对.xlsx"));
        w->Command2.Click();
        EXPECT_EQ(dialogs.Messages().back().Text, "票据核对表导出成功！");
        EXPECT_TRUE(w->MSFlexGrid1.Visible());
        EXPECT_TRUE(w->Command1.Visible());
        EXPECT_FALSE(w->ProgressBar1.Visible());
        EXPECT_EQ(dialogs.SaveDialogs().back().FileName, "2024年度【一号管理处】票据核对表");
        return xlsxread::ReadXlsx(dir.File("核对.xlsx")).First();
    }

    static std::string Text(const xlsxread::Sheet& s, int r, int c) {
        const auto* cell = s.Find(r, c);
        return cell ? cell->text : "<none>";
    }
    static double Number(const xlsxread::Sheet& s, int r, int c) {
        const auto* cell = s.Find(r, c);
        EXPECT_TRUE(cell && cell->type == xlsxread::CellType::Number) << r << "," << c;
        return cell ? cell->number : -1;
    }

    TempDir dir;
};

// Title lines and both header rows, and exactly the merges given.
void ExpectHeader(const xlsxread::Sheet& sheet, int C, const std::vector<Area>& merges) {
    EXPECT_EQ(xlsxread::Sorted(sheet.merges), xlsxread::Sorted(merges));
    auto text = [&](int r, int c) {
        const auto* cell = sheet.Find(r, c);
        return cell ? cell->text : "<none>";
    };
    EXPECT_EQ(text(1, 1), "2024年度【一号管理处】票据核对表");
    EXPECT_EQ(text(2, 1), " 统计部门 : 0101 一号管理处");
    EXPECT_EQ(text(3, 1), " 核对年月 : 2024 年 03 月 至 03 月");
    EXPECT_EQ(text(4, 4), "增值税专用发票");
    EXPECT_EQ(text(5, C - 4), "小计");
    EXPECT_EQ(sheet.FormatAt(4, 1).fillColor, kTotalFill);
    EXPECT_EQ(sheet.FormatAt(5, C).fillColor, kTotalFill);
}

// Around its cells the workbook prints as a finance user wants: turned, one page across, the two
// header rows on every page with the panes frozen under them.
TEST_F(ReconExport, WorkbookPrintsTurnedOnePageAcrossWithItsHeaderRowsOnEveryPage) {
    const xlsxread::PrintSetup print = RunAndExport(true).print;
    EXPECT_EQ(print.orientation, "landscape");
    EXPECT_EQ(print.fitToWidth, 1);
    EXPECT_EQ(print.printTitles, "Sheet1!$4:$5");
    EXPECT_EQ(print.frozenTopLeft, "A6");
    EXPECT_EQ(print.oddFooter, "&C第 &P 页 共 &N 页");
}

TEST_F(ReconExport, NewFormMergesBothInvoiceKindsIntoOneHeader) {
    // 4..7 in one cell (增值税普通发票 is lost), 财务交账 over 9..N+9.
    ExpectHeader(RunAndExport(/*newForm*/ true), 14,
                 {{1, 1, 1, 14},
                  {2, 1, 2, 4},
                  {3, 1, 3, 4},
                  {4, 1, 5, 1},
                  {4, 2, 5, 2},
                  {4, 3, 5, 3},
                  {4, 14, 5, 14},
                  {4, 4, 4, 7},
                  {4, 9, 4, 10}});
}

TEST_F(ReconExport, FirstFormMergesEachInvoiceKindOverItsTwoColumns) {
    ExpectHeader(RunAndExport(/*newForm*/ false), 15,
                 {{1, 1, 1, 15},
                  {2, 1, 2, 4},
                  {3, 1, 3, 4},
                  {4, 1, 5, 1},
                  {4, 2, 5, 2},
                  {4, 3, 5, 3},
                  {4, 15, 5, 15},
                  {4, 4, 4, 5},
                  {4, 6, 4, 7},
                  {4, 8, 4, 9},
                  {4, 10, 4, 11}});
}

TEST_F(ReconExport, FiguresFillsFormatsAndTheClosingLine) {
    auto sheet = RunAndExport(/*newForm*/ true);
    // Grid rows 2..4 stand in sheet rows 6..8; the closing line in row 9 (R + 4).
    EXPECT_EQ(Number(sheet, 6, 1), 1);
    EXPECT_EQ(Number(sheet, 6, 2), 202403);
    EXPECT_EQ(Number(sheet, 6, 3), 6);
    EXPECT_EQ(Number(sheet, 6, 4), 100);
    EXPECT_EQ(Number(sheet, 6, 5), 6);
    EXPECT_EQ(Text(sheet, 7, 3), "小计");
    EXPECT_EQ(Text(sheet, 8, 2), "合计");
    EXPECT_EQ(Number(sheet, 8, 9), 106); // the category's 财务交账
    EXPECT_EQ(Number(sheet, 7, 13), 0);  // the verdict: the books balance

    struct Fill {
        int row, col;
        const char* color; // "" for none
    } fills[] = {
        {6, 4, ""},  {7, 3, ""},         {7, 4, kSubtotalFill}, {7, 13, kSubtotalFill},
        {7, 14, ""}, {8, 4, kTotalFill}, {8, 12, kTotalFill},   {8, 13, ""},
    };
    for (const auto& f : fills) {
        SCOPED_TRACE(std::to_string(f.row) + "," + std::to_string(f.col));
        EXPECT_EQ(sheet.FormatAt(f.row, f.col).fillColor, f.color);
    }
    EXPECT_EQ(Text(sheet, 9, 2),
              " 核对结果: 相符 ( 专用发票 + 普通发票 + 收据 = 财务交账 - 当月收预开票 + 当月未收预开票 )");
    EXPECT_EQ(sheet.FormatAt(9, 4).numberFormat, "#0.00"); // the format reaches the closing line
    EXPECT_EQ(sheet.FormatAt(9, 13).horizontal, "right");
    EXPECT_EQ(sheet.FormatAt(8, 14).borderBottom, "thin"); // borders stop at R + 3
    EXPECT_EQ(sheet.FormatAt(9, 4).borderTop, "");
    EXPECT_EQ(sheet.FormatAt(9, 14).fontSize, 9);
    EXPECT_EQ(sheet.FormatAt(1, 1).fontName, "微软雅黑");
    EXPECT_TRUE(sheet.FormatAt(1, 1).bold);
    EXPECT_NE(sheet.FormatAt(1, 1).fontSize, 9); // the title keeps the default size
    EXPECT_EQ(sheet.FormatAt(6, 2).horizontal, "center");
    EXPECT_EQ(sheet.columns.at(1).width > 0, true);
}

} // namespace
} // namespace quillon
