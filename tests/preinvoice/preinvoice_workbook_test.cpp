// The pre-invoice detail workbook, read back from the saved file: every row of the run, not only
// the page on display, under the title, department and period lines.
#include <algorithm>

#include "preinvoice_rig.h"
#include "support/temp_dir.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

using xlsxread::Area;
using xlsxread::ShownRow;

class PreInvoiceWorkbook : public PreInvoiceTest {
protected:
    void SetUp() override {
        PreInvoiceTest::SetUp();
        AddPreInvoiceBook(db);
        frm票据预开明细表New& w = Open();
        w.SetClientSize(kFrameClientWidth, 5220); // three rows a page: the export must not care
        Extract();
        Split("P2", "50", "50");
        w.Command6.Click();
        ASSERT_EQ(w.Pager.PageCount, 2);
    }
    TempDir dir;
};

TEST_F(PreInvoiceWorkbook, CellsMergesFormatsAndFills) {
    frm票据预开明细表New& w = *window;
    dialogs.QueueSaveFileName(dir.File("预开.xls")); // the extension chosen is dropped
    w.Command2.Click();

    ASSERT_EQ(Messages(), Lines{"增值税预开票明细表导出成功！"});
    ASSERT_EQ(dialogs.SaveDialogs().size(), 1u);
    EXPECT_EQ(dialogs.SaveDialogs()[0].FileName, "【一号管理处】增值税预开票明细表_20240101-20240331");
    EXPECT_EQ(dialogs.SaveDialogs()[0].Filter, "电子表(.xlsx)|*.xlsx|电子表(.xls)|*.xls");
    EXPECT_EQ(w.ProgressBar1.Max(), 5) << "the last index of ResultRows";
    EXPECT_FALSE(w.ProgressBar1.Visible());
    EXPECT_FALSE(w.Label2.Visible());
    EXPECT_TRUE(w.Command1.Visible() && w.Command2.Visible());
    EXPECT_TRUE(w.MSFlexGrid1.Visible());

    const auto book = xlsxread::ReadXlsx(dir.File("预开.xlsx"));
    const auto& sheet = book.First();
    const int C = 15;
    const std::vector<Lines> rows = {
        {"【一号管理处】增值税预开票明细表", "", "", "", "", "", "", "", "", "", "", "", "", "", ""},
        {" 统计部门 : 0101 一号管理处", "", "", "", "", "", "", "", "", "", "", "", "", "", ""},
        {" 开票日期 : 2024-01-01 至 2024-03-31", "", "", "", "", "", "", "", "", "", "", "", "", "", ""},
        {"序", "开票日期", "增值税发票", "", "停车费月租", "", "", "临时停车费", "", "", "物业管理费住宅", "",
         "合计", "收款方式", "付款人"},
        {"", "", "专用发票", "普通发票", "开发商70%", "物业30%", "税额9%", "开发商50%", "物业50%", "税额3%",
         "金额", "税额6%", "", "", ""},
        {"#1", "#45301", "Z001", "", "#23.34", "#10.01", "#3", "#0", "#0", "#0", "#100", "#6", "#142.35",
         "预开", "付款人 一号楼101室"},
        {"#2", "#45337", "Q001", "", "#0", "#0", "#0", "#50", "#50", "#0", "#0", "#0", "#100", "预开",
         "某某公司"},
        {"#3", "#45354", "", "", "#0", "#0", "#0", "#0", "#0", "#0", "#50", "#0", "#50", "预开", ""},
        {"#4", "#45361", "", "Q002", "#0", "#0", "#0", "#0", "#0", "#0", "#10", "#0.6", "#10.6", "预开",
         "付款人"},
        {"#5", "合  计", "", "", "#23.34", "#10.01", "#3", "#50", "#50", "#0", "#160", "#6.6", "#302.95", "",
         ""},
        {"", "收款人:", "", "", "", "", "经理:", "", "", "", "", "", "缴款人:", "", ""},
    };
    for (int r = 1; r <= 11; ++r) EXPECT_EQ(ShownRow(sheet, r, C), rows[r - 1]) << "row " << r;

    const std::vector<Area> merges = {{1, 1, 1, 15},  {2, 1, 2, 4},   {3, 1, 3, 4},   {4, 1, 5, 1},
                                      {4, 2, 5, 2},   {4, 3, 4, 4},   {4, 5, 4, 7},   {4, 8, 4, 10},
                                      {4, 11, 4, 12}, {4, 13, 5, 13}, {4, 14, 5, 14}, {4, 15, 5, 15}};
    EXPECT_EQ(xlsxread::Sorted(sheet.merges), xlsxread::Sorted(merges));

    struct FormatCase {
        const char* why;
        int row, col;
        const char* numberFormat;
        const char* horizontal;
        const char* fill;
        double size;
        bool bold;
        const char* border;
    };
    const FormatCase formats[] = {
        {"title", 1, 1, "General", "center", "", 0, true, ""},
        {"department line", 2, 1, "General", "left", "", 9, false, ""},
        {"header", 4, 5, "General", "center", "FFC0C0FF", 9, false, "thin"},
        {"ordinal", 6, 1, "General", "center", "", 9, false, "thin"},
        {"date", 6, 2, "yyyy-mm-dd", "center", "", 9, false, "thin"},
        {"invoice number", 6, 3, "General", "center", "", 9, false, "thin"},
        {"amount", 6, 5, "#0.00", "right", "", 9, false, "thin"},
        {"row total", 6, 13, "#0.00", "right", "", 9, false, "thin"},
        {"payer", 6, 15, "General", "", "", 9, false, "thin"},
        {"total row", 10, 15, "General", "", "FFC0C0FF", 9, false, "thin"},
        {"signature row: no font, no border", 11, 2, "General", "", "", 0, false, ""},
    };
    for (const auto& c : formats) {
        SCOPED_TRACE(c.why);
        const auto f = sheet.FormatAt(c.row, c.col);
        EXPECT_EQ(f.numberFormat, c.numberFormat);
        EXPECT_EQ(f.horizontal, c.horizontal);
        EXPECT_EQ(f.fillColor, c.fill);
        if (c.size > 0) {
            EXPECT_EQ(f.fontName, "微软雅黑");
            EXPECT_EQ(f.fontSize, c.size);
        }
        EXPECT_EQ(f.bold, c.bold);
        EXPECT_EQ(f.borderLeft, c.border);
    }
    EXPECT_TRUE(sheet.rows.at(6).format && sheet.rows.at(6).format->wrap) << "data rows wrap";
    // Widths from the grid's header cells / 110, written with the 5-pixel padding in 1/256ths: the
    // payer's 3800 twips → 34.55 → 247 pixels → 35.28515625.
    EXPECT_EQ(sheet.columns.at(15).width, 35.28515625);
}

TEST_F(PreInvoiceWorkbook, NothingToExportOrACancelledDialog) {
    frm票据预开明细表New& w = *window;
    dialogs.QueueSaveCancel();
    w.Command2.Click();
    EXPECT_EQ(Messages(), Lines{"您取消了导出操作！"});
    EXPECT_TRUE(w.Command1.Visible() && w.Command2.Visible());

    Extract(); // a new extraction leaves the header alone in the grid
    w.Command2.Click();
    EXPECT_EQ(dialogs.SaveDialogs().size(), 1u) << "header only: no dialog";
    EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(PreInvoiceWorkbook, ANameWithoutADotFailsWithTheWritersMessage) {
    dialogs.QueueSaveFileName(dir.File("无扩展名"));
    window->Command2.Click();
    // The temporary folder's path holds no dot, so the cut finds none.
    ASSERT_EQ(Messages().size(), 1u);
    EXPECT_EQ(Messages()[0], "错误号: 5错误描述: 无效的过程调用或参数");
}

} // namespace
} // namespace quillon
