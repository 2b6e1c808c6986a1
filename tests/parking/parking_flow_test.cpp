// The two stages of the parking-fee detail: its own texts, the header before and after the
// extraction, and what the collection range decides that the invoicing range does not.
#include "base/vb_number.h"
#include "controls/screen.h"
#include "parking_rig.h"

namespace quillon {
namespace {

TEST_F(ParkingTest, TextsAndHeaderOfTheWindow) {
    AddParkingBook(db);
    frm停车费明细表New& w = Open();
    EXPECT_EQ(w.Caption(), "停车费明细表");
    EXPECT_EQ(w.Label1_0.Caption(), "停车费明细表");
    EXPECT_EQ(w.Label4.Caption(), "停车费统计条件");
    EXPECT_EQ(w.Label6.Caption(), "收款日期范围");
    const FlexGrid& g = w.MSFlexGrid1;
    EXPECT_EQ(GridLines(g), (Lines{"序|纸质或全电票|电子发票号|合计", "序|纸质或全电票|电子发票号|合计"}));
    EXPECT_FALSE(g.MergeRow(0)) << "not set before the extraction";
    for (int c = 0; c < 4; ++c) {
        EXPECT_TRUE(g.MergeCol(c)) << c;
        EXPECT_EQ(g.FixedAlignment(c), flexAlignCenterCenter) << c;
    }
    EXPECT_EQ((std::vector<int>{g.ColWidth(0), g.ColWidth(1), g.ColWidth(2), g.ColWidth(3)}),
              (std::vector<int>{800, 3200, 3200, 1400}));

    w.List1.SetListIndex(0);
    EXPECT_EQ(w.Label1_0.Caption(), "【中心停车场管理处】停车费明细表");
    Extract();
    EXPECT_EQ(w.Label3.Caption(), "正在提取停车费项目，请稍等......");
    EXPECT_TRUE(g.MergeRow(0));
    EXPECT_FALSE(g.MergeCol(3)) << "the first item column";
    EXPECT_TRUE(g.MergeCol(9)) << "合计";
    EXPECT_EQ((std::vector<int>{g.ColWidth(3), g.ColWidth(8), g.ColWidth(9)}),
              (std::vector<int>{1400, 1400, 1400}));
    w.Command6.Click();
    EXPECT_EQ(w.Label3.Caption(), "正在进行停车费明细统计，请稍等......");
    EXPECT_FALSE(w.Picture5.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
}

TEST_F(ParkingTest, MessagesOfTheTwoStages) {
    struct Case {
        const char* why;
        DateTime from, to;
        Lines messages;
    };
    const Case cases[] = {
        {"no parking item invoiced in the range",
         Day(2023, 1, 1),
         Day(2023, 12, 31),
         {"没有满足条件的开票数据,请重新设置条件!"}},
        // 601 and 701 were invoiced that day and collected later or never.
        {"invoices but no collections pass the extraction, not the run",
         Day(2024, 3, 9),
         Day(2024, 3, 9),
         {"无满足统计条件的数据，请重新设置统计条件！"}},
        {"end before start", Day(2024, 3, 31), Day(2024, 3, 1), {"截至日期不能小于开始日期!"}},
    };
    AddParkingBook(db);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        frm停车费明细表New& w = Open();
        const Lines before = Messages();
        Extract(c.from, c.to);
        w.Command6.Click();
        const Lines all = Messages();
        EXPECT_EQ(Lines(all.begin() + static_cast<long>(before.size()), all.end()), c.messages);
        EXPECT_EQ(w.MSFlexGrid1.Rows(), 2);
        EXPECT_EQ(w.Label19.Caption(), "第 00 页 共 00 页");
    }
}

TEST_F(ParkingTest, ANewRangeAfterTheExtractionKeepsTheItems) {
    AddParkingBook(db);
    frm停车费明细表New& w = Open();
    Extract();
    // February to April: 601 (collected in April) comes in; 301 (collected in March) still has
    // no column, its item being invoiced in February only.
    w.DTPicker1_0.SetValue(Day(2024, 2, 1));
    w.DTPicker1_1.SetValue(Day(2024, 4, 30));
    w.Command6.Click();
    EXPECT_EQ(w.ChargeItems.size(), 2u);
    ASSERT_TRUE(w.ResultRows.has_value());
    Lines ranges;
    for (std::size_t r = 1; r < w.ResultRows->size(); ++r) ranges.push_back((*w.ResultRows)[r].BillRange);
    EXPECT_EQ(ranges, (Lines{"101 - 105", "201", "202", "103 - 104", "601", "合计", "其中", "", ""}));
    EXPECT_EQ(Format(w.ResultRows->back().RowTotal, "0.00"), "32.70")
        << "支付宝 stays the last mode with money";
}

} // namespace
} // namespace quillon
