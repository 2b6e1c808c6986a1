// The pre-invoice detail on a hand-made book: which bills come in, the number columns, the
// split rounded to the cent, the 合  计 row, and the two stages with their checks and messages.
#include "base/vb_error.h"
#include "controls/screen.h"
#include "preinvoice_rig.h"

namespace quillon {
namespace {

TEST_F(PreInvoiceTest, RunShowsTheBillsNotPaidByTheRangeEnd) {
    AddPreInvoiceBook(db);
    frm票据预开明细表New& w = Open();
    Extract();
    ASSERT_TRUE(w.Command6.Enabled());
    EXPECT_EQ(GridLines(w.MSFlexGrid2, 1), (Lines{"1|停车费月租|70|30|'P1'", "2|临时停车费|70|30|'P2'"}));
    Split("P2", "50", "50");
    w.Command6.Click();

    EXPECT_EQ(Messages(), Lines{});
    // Items in code order; P2's header shows the percentages typed after the extraction.
    EXPECT_EQ(
        GridLines(w.MSFlexGrid1),
        (Lines{
            "序|开票日期|增值税发票|增值税发票|停车费月租|停车费月租|停车费月租|临时停车费|临时停车费|"
            "临时停车费|"
            "物业管理费住宅|物业管理费住宅|合计|收款方式|付款人",
            "序|开票日期|专用发票|普通发票|开发商70%|物业30%|税额9%|开发商50%|物业50%|税额3%|金额|税额6%|"
            "合计|"
            "收款方式|付款人",
            // paid after the range; 33.35 x 0.3 = 10.005 rounds up, the developer has the rest
            "1|2024-01-10|Z001||23.34|10.01|3.00|0.00|0.00|0.00|100.00|6.00|142.35|预开|付款人 一号楼101室",
            // 全电 replacing a bill of code 01 counts as special; NULL tax counts 0
            "2|2024-02-15|Q001||0.00|0.00|0.00|50.00|50.00|0.00|0.00|0.00|100.00|预开|某某公司",
            // a receipt: money without a number; payer NULL
            "3|2024-03-03|||0.00|0.00|0.00|0.00|0.00|0.00|50.00|0.00|50.00|预开|",
            // 全电 replacing a bill of code 04 counts as ordinary
            "4|2024-03-10||Q002|0.00|0.00|0.00|0.00|0.00|0.00|10.00|0.60|10.60|预开|付款人",
            "5|合  计|||23.34|10.01|3.00|50.00|50.00|0.00|160.00|6.60|302.95||",
        }));
    ASSERT_TRUE(w.ResultRows.has_value());
    EXPECT_EQ(w.ResultRows->size(), 6u) << "slot 0, four bills, the total";
    EXPECT_EQ(w.Pager.PageSize, 18) << "4440 twips of grid over rows of 240, less one, ties to even";
    EXPECT_EQ(w.Label19.Caption(), "第 01 页 共 01 页");
    EXPECT_FALSE(w.Command6.Enabled()) << "a further run needs a further extraction";
    EXPECT_FALSE(w.Picture5.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
    // Only the two bills whose replaced bill had to be looked up asked for its code.
    int probes = 0;
    for (const auto& sql : sent) probes += sql.rfind("Select 发票代码 From 票据", 0) == 0;
    EXPECT_EQ(probes, 2);
}

TEST_F(PreInvoiceTest, PagesOfFourRowsAndALongPayer) {
    for (int i = 1; i <= 6; ++i) {
        TestInvoice inv{.lot = "PT",
                        .number = "P10" + std::to_string(i),
                        .dept = "0101",
                        .issued = "2024-02-0" + std::to_string(i)};
        inv.lines = {{.item = "WY", .amount = 10.0 * i, .tax = 0, .rate = 0.06}};
        if (i == 2) inv.payer = std::string(60, 'x');
        db.Invoice(inv);
    }
    frm票据预开明细表New& w = Open();
    w.SetClientSize(kFrameClientWidth, 5460); // a grid of 1200 twips: 4 rows a page
    Extract();
    w.Command6.Click();
    ASSERT_EQ(w.Pager.PageSize, 4);
    EXPECT_EQ(w.Pager.PageCount, 2) << "six bills and the total";
    EXPECT_EQ(w.MSFlexGrid1.Rows(), 6);
    EXPECT_EQ(w.MSFlexGrid1.RowHeight(3), 600) << "the payer wider than its column gets two lines";
    EXPECT_NE(w.MSFlexGrid1.RowHeight(2), 600);
    const std::size_t statements = sent.size();
    w.Image2_3.ClickImage();
    EXPECT_EQ(GridLines(w.MSFlexGrid1, 2),
              (Lines{"5|2024-02-05||P105|50.00|0.00|50.00|预开|付款人",
                     "6|2024-02-06||P106|60.00|0.00|60.00|预开|付款人", "7|合  计|||210.00|0.00|210.00||"}));
    EXPECT_EQ(w.Label19.Caption(), "第 02 页 共 02 页");
    EXPECT_EQ(sent.size(), statements) << "a page change asks the database nothing";
}

} // namespace
} // namespace quillon
