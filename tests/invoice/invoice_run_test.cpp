// The invoice detail on a hand-made March: which bills come in by the period test, where each
// number stands, the flag words with zero money, the split, 合  计 and the 其中 block; and the
// fund form of the run with its own placements.
#include "invoice_rig.h"

namespace quillon {
namespace {

TEST_F(InvoiceTest, UnionFormFlagsEveryKindOfBill) {
    AddInvoiceBook(db);
    frm票据开票明细表New& w = Open();
    Extract();
    ASSERT_TRUE(w.Command6.Enabled());
    EXPECT_FALSE(w.HasFundItem());
    // Changed after the extraction: the money follows, the captions keep 70 and 30.
    Split("P1", "60", "40");
    w.Command6.Click();

    EXPECT_EQ(Messages(), Lines{});
    EXPECT_EQ(w.ExchangedNumbers, "Z006,X77");
    EXPECT_EQ(GridLines(w.MSFlexGrid1),
              (Lines{
                  "序|开票日期|增值税发票|增值税发票|增值税发票|收据|停车费月租|停车费月租|停车费月租|"
                  "物业管理费住宅|"
                  "物业管理费住宅|合计|收款方式|付款人",
                  "序|开票日期|专用发票|普通发票|电子发票|收据|开发商70%|物业30%|税额9%|金额|税额6%|合计|"
                  "收款方式|付款人",
                  // 33.35 x 0.4 = 13.34 to the property company, 20.01 left to the developer
                  "1|2024-02-20||P001|||20.01|13.34|3.00|0.00|0.00|36.35|微信支付|付款人",
                  "2|2024-03-05|Z001||||0.00|0.00|0.00|100.00|6.00|106.00|现金|付款人",
                  "3|2024-03-06|Z002||||0.00|0.00|0.00|0.00|0.00|0.00|作废|付款人",
                  "4|2024-03-07|Z003||||0.00|0.00|0.00|-50.00|-3.00|-53.00|现金|付款人",
                  "5|2024-03-08|Z005||||0.00|0.00|0.00|200.00|12.00|212.00|现金|付款人",
                  "6|2024-03-09|Z006||||0.00|0.00|0.00|0.00|0.00|0.00|换票|付款人",
                  "7|2024-03-10|Z004||||0.00|0.00|0.00|0.00|0.00|0.00|负票|付款人",
                  "8|2024-03-12|||Q001||0.00|0.00|0.00|0.00|0.00|0.00|换票|付款人",
                  "9|2024-03-13||Z00|||0.00|0.00|0.00|0.00|0.00|0.00|换票|付款人",
                  "10|2024-03-15|||E001||0.00|0.00|0.00|0.00|0.00|0.00|预开|付款人",
                  // no payer: the address is not shown either
                  "11|2024-03-16||||J001|0.00|0.00|0.00|50.00|0.00|50.00|微信支付|",
                  "12|合  计|||||20.01|13.34|3.00|300.00|15.00|351.35||",
                  // 现金 106 - 53 + 212; 微信支付 36.35 + 50; 支付宝 sums to 0 and has no row
                  "13|其中||||||||||265.00|现金|",
                  "14|||||||||||86.35|微信支付|",
              }));
    EXPECT_EQ(w.Label19.Caption(), "第 01 页 共 01 页");
    EXPECT_FALSE(w.Command6.Enabled());
    int unions = 0;
    for (const auto& sql : sent) unions += sql.find(" Union All ") != std::string::npos;
    EXPECT_EQ(unions, 1);
}

TEST_F(InvoiceTest, FundFormKeepsExchangedBillsAndPutsAllElectricUnderReceipts) {
    AddInvoiceBook(db);
    db.ChargeItem({.code = "WX", .name = "维修基金", .category = "代收", .rate = 0});
    db.Invoice(Bill("ZY", "Z009", "2024-03-20", "2024-03-20", {.item = "WX", .amount = 1000, .rate = 0}));
    frm票据开票明细表New& w = Open();
    Extract();
    ASSERT_TRUE(w.HasFundItem());
    w.Command6.Click();

    EXPECT_EQ(Messages(), Lines{});
    EXPECT_EQ(w.ExchangedNumbers, "") << "the fund form reads no exchanges";
    EXPECT_EQ(
        GridLine(w.MSFlexGrid1, 1),
        "序|开票日期|专用发票|普通发票|电子发票|收据|开发商70%|物业30%|税额9%|金额|税额0%|金额|税额6%|合计|"
        "收款方式|付款人");
    // Only voided and replacing bills are zeroed here: Z006 and Z00 count with their money.
    EXPECT_EQ(LineWith(2, "Z006"),
              "6|2024-03-09|Z006||||0.00|0.00|0.00|0.00|0.00|100.00|6.00|106.00|现金|付款人");
    EXPECT_EQ(LineWith(3, "Z00"),
              "9|2024-03-13||Z00|||0.00|0.00|0.00|0.00|0.00|30.00|1.80|31.80|现金|付款人");
    EXPECT_EQ(LineWith(5, "Q001"),
              "8|2024-03-12||||Q001|0.00|0.00|0.00|0.00|0.00|0.00|0.00|0.00|换票|付款人");
    // Every ordinary bill of this form shows payer and address, even without a payer.
    EXPECT_EQ(LineWith(5, "J001"),
              "11|2024-03-16||||J001|0.00|0.00|0.00|0.00|0.00|50.00|0.00|50.00|微信支付| 二号楼");
    EXPECT_EQ(LineWith(2, "Z009"),
              "12|2024-03-20|Z009||||0.00|0.00|0.00|1000.00|0.00|0.00|0.00|1000.00|现金|付款人");
    EXPECT_EQ(LineWith(1, "合  计"), "13|合  计|||||23.34|10.01|3.00|1000.00|0.00|430.00|22.80|1489.15||");
}

TEST_F(InvoiceTest, HeaderStaysAsExtractedAndChecksAreTheTwinsOwn) {
    AddInvoiceBook(db);
    frm票据开票明细表New& w = Open();
    EXPECT_EQ(GridLine(w.MSFlexGrid1, 1), "序|开票日期|专用发票|普通发票|电子发票|收据|合计|收款方式|付款人");
    EXPECT_EQ(w.MSFlexGrid1.ColWidth(6), 900);
    EXPECT_EQ(w.MSFlexGrid1.ColWidth(8), 1200);
    w.Command3.Click();
    EXPECT_EQ(Messages(), Lines{"请先选择统计部门!"}) << "ListIndex -1";
    Extract(Day(2022, 1, 1), Day(2022, 1, 31));
    EXPECT_EQ(Messages().back(), "没有满足条件的开票数据,请重新设置条件!");
    Extract();
    EXPECT_EQ(w.Label1_0.Caption(), "【一号管理处】增值税开票明细表");
    EXPECT_EQ(w.MSFlexGrid1.ColWidth(w.MSFlexGrid1.Cols() - 1), 3800);
}

} // namespace
} // namespace quillon
