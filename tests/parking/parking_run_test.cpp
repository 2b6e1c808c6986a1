// The parking-fee detail on a hand-made book: bills folded by batch and collection time, the
// split rounded per bill, the closing rows, and the numbering across pages.
#include "parking_rig.h"

namespace quillon {
namespace {

const Lines kHeader = {
    "序|纸质或全电票|电子发票号|停车费月租|停车费月租|停车费月租|临时停车费|临时停车费|临时停车费|合计",
    "序|纸质或全电票|电子发票号|开发商70%|物业30%|税额9%|开发商50%|物业50%|税额3%|合计",
};

TEST_F(ParkingTest, RunFoldsBatchesAndClosesWithTheModeBreakdown) {
    AddParkingBook(db);
    frm停车费明细表New& w = Open();
    w.SetClientSize(kFrameClientWidth, 5460); // a grid of 1200 twips: 4 rows a page
    Extract();
    ASSERT_TRUE(w.Command6.Enabled());
    EXPECT_EQ(GridLines(w.MSFlexGrid2, 1), (Lines{"1|停车费月租|70|30|'P1'", "2|临时停车费|70|30|'P2'"}))
        << "P3 was invoiced on no bill of the range, WY is no parking item";
    Split("P2", "50", "50");
    w.Command6.Click();

    EXPECT_EQ(Messages(), Lines{});
    ASSERT_EQ(w.Pager.PageSize, 4);
    EXPECT_EQ(w.Pager.PageCount, 2) << "four rows of bills, the total and three modes";
    EXPECT_EQ(w.Label19.Caption(), "第 01 页 共 02 页");
    const Lines shown = GridLines(w.MSFlexGrid1);
    EXPECT_EQ(Lines(shown.begin(), shown.begin() + 2), kHeader);
    EXPECT_EQ(GridLines(w.MSFlexGrid1, 2),
              (Lines{
                  // 101, 102, 105 of one batch and day; 105 was paid online, so the row is
                  "1||101 - 105|245.00|105.00|31.50|0.00|0.00|0.00|381.50",
                  // one batch at two times of one day: two rows
                  "2|201||21.00|9.00|2.70|0.00|0.00|0.00|32.70",
                  "3|202||14.00|6.00|1.80|0.00|0.00|0.00|21.80",
                  // the same batch as the first row, on another day; each bill's share rounded
                  "4|103 - 104||0.00|0.00|0.00|20.00|20.02|0.00|40.02",
              }));
    EXPECT_EQ(w.MSFlexGrid1.AlignmentAt(2, 2), flexAlignCenterCenter);

    const std::size_t statements = sent.size();
    w.Image2_2.ClickImage();
    EXPECT_EQ(sent.size(), statements) << "a page change asks the database nothing";
    // The numbers run on; the total shows no column sums; "微信" under 微信支付, the list's own
    // "微信" and the modes nobody paid with have no row, nor has 银联, which is not listed.
    EXPECT_EQ(GridLines(w.MSFlexGrid1, 2), (Lines{
                                               "5|合计||||||||476.02",
                                               "6|其中|||||||现金|381.50",
                                               "7||||||||微信支付|40.02",
                                               "8||||||||支付宝|32.70",
                                           }));
    EXPECT_EQ(w.MSFlexGrid1.AlignmentAt(3, 8), flexAlignRightCenter) << "the mode, right-aligned";
    EXPECT_EQ(w.MSFlexGrid1.AlignmentAt(3, 7), w.MSFlexGrid1.ColAlignment(7)) << "in its cell alone";
    EXPECT_EQ(w.MSFlexGrid1.ColAlignment(1), flexAlignCenterCenter);

    // The total row holds the column sums although the grid does not show them.
    ASSERT_EQ(w.ResultRows->size(), 9u);
    const ParkingRow& total = (*w.ResultRows)[5];
    ASSERT_EQ(total.Amounts.size(), 6u);
    const double sums[] = {280, 120, 36, 20, 20.02, 0};
    for (int j = 0; j < 6; ++j) EXPECT_NEAR(total.Amounts[j], sums[j], 1e-9) << "column " << j + 1;
    EXPECT_EQ((*w.ResultRows)[1].PayMode, "现金") << "the first bill's mode stands for its group";
    EXPECT_EQ(sent.back(), "Select * From 收款方式列表") << "the modes are read after the bills";
}

TEST_F(ParkingTest, AllModesZeroOrUnlistedEndsWithTheTotal) {
    // A refund cancels the cash of its batch; the other bill's mode is not in the list.
    db.Invoice(ParkingBill("TC", "101", "2024-03-01", "2024-03-05", "现金",
                           {.item = "P1", .amount = 109, .tax = 9, .rate = 0.09}));
    db.Invoice(ParkingBill("TC", "102", "2024-03-01", "2024-03-06", "现金",
                           {.item = "P1", .amount = -109, .tax = -9, .rate = 0.09}));
    db.Invoice(ParkingBill("TC", "103", "2024-03-01", "2024-03-07", "月结",
                           {.item = "P1", .amount = 10.9, .tax = 0.9, .rate = 0.09}));
    frm停车费明细表New& w = Open();
    Extract();
    w.Command6.Click();
    EXPECT_EQ(GridLines(w.MSFlexGrid1, 2), (Lines{
                                               "1|101||70.00|30.00|9.00|109.00",
                                               "2|102||-70.00|-30.00|-9.00|-109.00",
                                               "3|103||7.00|3.00|0.90|10.90",
                                               "4|合计|||||10.90",
                                           }));
}

} // namespace
} // namespace quillon
