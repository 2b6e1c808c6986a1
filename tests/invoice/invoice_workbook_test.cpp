// The invoice detail workbook read back: four number columns, money from column 7, the total
// and each 其中 row filled across the table, the signature row; and an extraction that fails.
#include <algorithm>

#include "controls/scripted_dialogs.h"
#include "invoice_rig.h"
#include "support/temp_dir.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

using xlsxread::Area;
using xlsxread::ShownRow;

TEST_F(InvoiceTest, WorkbookCellsMergesFillsAndSignature) {
    AddInvoiceBook(db);
    frm票据开票明细表New& w = Open();
    Extract();
    w.Command6.Click();
    TempDir dir;
    dialogs.QueueSaveFileName(dir.File("开票.xlsx"));
    w.Command2.Click();
    ASSERT_EQ(Messages(), Lines{"增值税开票明细表导出成功！"});
    EXPECT_EQ(dialogs.SaveDialogs()[0].FileName, "【一号管理处】增值税开票明细表_20240301-20240331");
    EXPECT_EQ(w.ProgressBar1.Max(), 14) << "bills, the total and the two 其中 rows";

    const auto sheet = xlsxread::ReadXlsx(dir.File("开票.xlsx")).First();
    const int C = 14;
    const std::vector<std::pair<int, Lines>> rows = {
        {5,
         {"", "", "专用发票", "普通发票", "电子发票", "", "开发商70%", "物业30%", "税额9%", "金额", "税额6%",
          "", "", ""}},
        {6,
         {"#1", "#45342", "", "P001", "", "", "#23.34", "#10.01", "#3", "#0", "#0", "#36.35", "微信支付",
          "付款人"}},
        {8, {"#3", "#45357", "Z002", "", "", "", "#0", "#0", "#0", "#0", "#0", "#0", "作废", "付款人"}},
        {13, {"#8", "#45363", "", "", "Q001", "", "#0", "#0", "#0", "#0", "#0", "#0", "换票", "付款人"}},
        {17, {"#12", "合  计", "", "", "", "", "#23.34", "#10.01", "#3", "#300", "#15", "#351.35", "", ""}},
        {18, {"#13", "其中", "", "", "", "", "", "", "", "", "", "#265", "现金", ""}},
        {19, {"#14", "", "", "", "", "", "", "", "", "", "", "#86.35", "微信支付", ""}},
        {20, {"", "收款人:", "", "", "", "", "经理:", "", "", "", "", "", "缴款人:", ""}},
    };
    for (const auto& [r, shown] : rows) EXPECT_EQ(ShownRow(sheet, r, C), shown) << "row " << r;

    const std::vector<Area> merges = {{1, 1, 1, 14},  {2, 1, 2, 4},   {3, 1, 3, 4},   {4, 1, 5, 1},
                                      {4, 2, 5, 2},   {4, 3, 4, 5},   {4, 6, 5, 6},   {4, 7, 4, 9},
                                      {4, 10, 4, 11}, {4, 12, 5, 12}, {4, 13, 5, 13}, {4, 14, 5, 14}};
    EXPECT_EQ(xlsxread::Sorted(sheet.merges), xlsxread::Sorted(merges));

    struct FormatCase {
        const char* why;
        int row, col;
        const char* fill;
        const char* numberFormat;
        const char* horizontal;
    };
    const FormatCase formats[] = {
        {"a bill's cells are not filled", 6, 14, "", "General", ""},
        {"money from column 7", 6, 7, "", "#0.00", "right"},
        {"the right alignment stops at the row total", 6, 13, "", "General", ""},
        {"the total row, across the table", 17, 14, "FFC0C0FF", "General", ""},
        {"a 其中 row, over its empty cells too", 18, 9, "FFC0C0FF", "#0.00", "right"},
        {"the last 其中 row's last column", 19, 14, "FFC0C0FF", "General", ""},
    };
    for (const auto& c : formats) {
        SCOPED_TRACE(c.why);
        const auto f = sheet.FormatAt(c.row, c.col);
        EXPECT_EQ(f.fillColor, c.fill);
        EXPECT_EQ(f.numberFormat, c.numberFormat);
        EXPECT_EQ(f.horizontal, c.horizontal);
    }
    EXPECT_TRUE(sheet.rows.at(17).format && sheet.rows.at(17).format->wrap);
    EXPECT_FALSE(sheet.rows.count(18) && sheet.rows.at(18).format && sheet.rows.at(18).format->wrap)
        << "其中 rows do not wrap";
}

TEST_F(InvoiceTest, AFailedExtractionIsUntrapped) {
    AddInvoiceBook(db);
    frm票据开票明细表New& w = Open();
    db.Exec("DROP TABLE SetupSFXM");
    w.List1.SetListIndex(0);
    EXPECT_THROW(w.Command3.Click(), RuntimeErrorRaised);
    ASSERT_EQ(dialogs.RuntimeErrors().size(), 1u);
    EXPECT_EQ(Messages(), Lines{});
}

} // namespace
} // namespace quillon
