// The office list, 统计 over a hand-worked quarter, its statements, colours and widths, and the
// checks in front of a run.
#include <gtest/gtest.h>

#include "controls/screen.h"
#include "summary_rig.h"

namespace quillon {
namespace {

constexpr DateTime kFirst{2024, 1, 1};
constexpr DateTime kLast{2024, 3, 31};

class SummaryRun : public ::testing::Test {
protected:
    void SetUp() override {
        rig.Offices();
        rig.QuarterBills();
        rig.Open();
    }
    SummaryRig rig;
};

TEST_F(SummaryRun, OfficeListByCodeLengthKeepsLineBreaksAndLeavesEndedOfficesOut) {
    const ListBox& list = rig.window->List2;
    EXPECT_EQ(list.Style(), ListStyle::CheckBox);
    ASSERT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.List(0), "2 西区【D3 三部】");
    EXPECT_EQ(list.List(1), "9 南区\r\n二期【D2 二部】");
    EXPECT_EQ(list.List(2), "10 北区 物业【D1 一部】");
    EXPECT_EQ(
        rig.statements,
        (Lines{
            "select GYD_DH , GYD_Name ,职能部门编号, 职能部门名称 From 设置管理处 Inner Join 职能部门new "
            "On 对应部门代号 = 职能部门编号 Where 设置管理处.终止日期 Is Null Order By len(gyd_dh),gyd_dh"}));
}

TEST_F(SummaryRun, LoadSetsPickersGridsAndHiddenPanels) {
    const frm预开票汇总表& w = *rig.window;
    EXPECT_EQ(w.DTPicker3.Value(), DateTime::Today());
    EXPECT_EQ(w.DTPicker4.Value(), DateTime::Today());
    EXPECT_EQ(w.DTPicker1.Value(), (DateTime{2009, 3, 30}));
    EXPECT_EQ(w.DTPicker2.Value(), (DateTime{2009, 3, 30}));
    EXPECT_EQ(
        GridLines(w.MSFlexGrid1),
        (Lines{"序  |管理项目名称      |收费项目      |金额        |税额        |收入        |操作 ||"}));
    EXPECT_EQ(w.MSFlexGrid1.ColWidth(7), 0);
    EXPECT_EQ(w.MSFlexGrid1.ColWidth(8), 0);
    EXPECT_EQ(w.MSFlexGrid1.FixedAlignment(2), flexAlignCenterCenter);
    EXPECT_EQ(w.MSFlexGrid2.Rows(), 1);
    EXPECT_EQ(w.MSFlexGrid2.Cols(), 14);
    EXPECT_EQ(w.MSFlexGrid2.ColWidth(13), 0);
    EXPECT_EQ(GridLine(w.MSFlexGrid2, 0),
              "序    |票据簿编号|票据号码  |付款人                    |收费项目          "
              "|摘    要                              |金额         |税额         |收入  "
              "       |收款日期        |收款人    |开票人    |开票日期        |");
    EXPECT_FALSE(w.Frame3.Visible());
    EXPECT_FALSE(w.Frame1.Visible());
    EXPECT_FALSE(w.Picture1.Visible());
    EXPECT_FALSE(w.Picture3.Visible());
    EXPECT_FALSE(w.Command2.Visible());
    EXPECT_EQ(w.Caption(), "预开票汇总表");
}

TEST_F(SummaryRun, QuarterRowsSubtotalsAndTotal) {
    rig.RunQuarter();
    const FlexGrid& g = rig.window->MSFlexGrid1;
    EXPECT_EQ(GridLines(g, 1), (Lines{
                                   "0|西区|||||||",
                                   "1|小计||0.00|0.00|0.00|明细||2",
                                   "3|南区\r\n二期|水费|25.50|1.50|24.00|明细|SF|9",
                                   "4|南区\r\n二期|物业费|-25.50|-1.50|-24.00|明细|WYF|9",
                                   "4|南区\r\n二期|||||||",
                                   "5|小计||0.00|0.00|0.00|明细||9",
                                   "7|北区|水费|50.00|0.00|50.00|明细|SF|10",
                                   "8|北区|停车费||||明细|TCF|10",
                                   "9|北区|物业费|318.00|18.00|300.00|明细|WYF|10",
                                   "9|小计||368.00|18.00|350.00|明细||10",
                                   "10|合计||368.00|18.00|350.00|||",
                               }));
    EXPECT_EQ(rig.Messages(), (Lines{"统计结束！"}));
    EXPECT_EQ(rig.dialogs.Messages()[0].Title, "系统提示");
    EXPECT_EQ(rig.window->OfficeInList, "'2','9','10'");
    EXPECT_EQ(rig.window->StatusBar1.Panels(7).Text(), "统计结束！");
    EXPECT_FALSE(rig.window->Picture3.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
    EXPECT_TRUE(g.Redraw());
}

TEST_F(SummaryRun, StatementPerTickedOfficeWithTheRangeFilledIn) {
    rig.statements.clear();
    rig.Run({"10"}, kFirst, kLast);
    EXPECT_EQ(
        rig.statements,
        (Lines{
            " SELECT 设置管理处.GYD_DH,设置管理处.GYD_NAME, SetupSFXM.DH, SetupSFXM.XM, "
            "SUM(票据开票数据.金额) as JE,  Sum(Case When 票据开票数据.税额 Is Null Then 票据开票数据.金额 "
            "Else "
            "票据开票数据.金额-票据开票数据.税额 End) As SR  FROM  票据  INNER JOIN 票据开票数据 ON 票据.ID "
            "= "
            "票据开票数据.票据id  Inner Join 设置管理处 On 票据.开票部门编号 = 设置管理处.对应部门代号 Inner "
            "Join SetupSFXM ON 票据开票数据.收费项目代号 = SetupSFXM.DH WHERE 设置管理处.GYD_DH = '10'  AND "
            "(Convert(char(8),票据.开票日期,112) Between '20240101' and '20240331')  And "
            "(Convert(char(8),收款日期,112) > '20240331' Or (收款日期 Is Null And 预开 = 1)) And "
            "票据.退票日期 IS NULL   And 票据.作废日期 IS NULL  And 票据.内换日期 IS NULL  Group BY "
            "设置管理处.GYD_DH,设置管理处.GYD_NAME, SetupSFXM.DH,SetupSFXM.XM Order By DH"}));
    EXPECT_EQ(rig.session.DbConnection->CommandTimeout, 0);
}

TEST_F(SummaryRun, ColoursOfLinksSubtotalsAndTotal) {
    rig.RunQuarter();
    const FlexGrid& g = rig.window->MSFlexGrid1;
    struct Case {
        const char* why;
        int row, col;
        std::uint32_t back, fore;
    };
    constexpr std::uint32_t plain = kColorWindow, text = kColorWindowText;
    const Case cases[] = {
        {"data row: 明细 blue, no fill", 7, 6, plain, 0xFF0000},
        {"data row amount: plain", 7, 3, plain, text},
        {"小计: fill from column 1", 2, 1, 0xFFFFC0, text},
        {"小计: 明细 blue on the fill", 2, 6, 0xFFFFC0, 0xFF0000},
        {"小计: column 0 keeps the fixed look", 2, 0, kColorButtonFace, kColorButtonText},
        {"小计: hidden code column unfilled", 2, 8, plain, text},
        {"合计: fill over columns 1 to 6", 11, 4, 0xFFC0C0, text},
        {"合计: no link", 11, 6, 0xFFC0C0, text},
        {"the office's extra line: plain", 5, 1, plain, text},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(g.BackColorAt(c.row, c.col), c.back);
        EXPECT_EQ(g.ForeColorAt(c.row, c.col), c.fore);
    }
}

TEST_F(SummaryRun, EndedOrUntickedOfficesAndEmptyRangesGiveEmptyBlocks) {
    struct Case {
        const char* why;
        std::initializer_list<const char*> offices;
        DateTime first, last;
        Lines rows;
    };
    const Case cases[] = {
        {"first date after the last date: no message, one empty block per office",
         {"9", "10"},
         kLast,
         kFirst,
         {"0|南区\r\n二期|||||||", "1|小计||0.00|0.00|0.00|明细||9", "2|北区|||||||",
          "3|小计||0.00|0.00|0.00|明细||10", "4|合计||0.00|0.00|0.00|||"}},
        {"an invoice written on the last evening counts",
         {"10"},
         DateTime{2024, 3, 31},
         DateTime{2024, 3, 31},
         {"1|北区|物业费|212.00|12.00|200.00|明细|WYF|10", "1|小计||212.00|12.00|200.00|明细||10",
          "2|合计||212.00|12.00|200.00|||"}},
        {"paid in March, after a range ending in February: counts with the unpaid 预开 ones",
         {"10"},
         DateTime{2024, 1, 1},
         DateTime{2024, 2, 29},
         {"1|北区|水费|50.00|0.00|50.00|明细|SF|10", "2|北区|停车费||||明细|TCF|10",
          "3|北区|物业费|1106.00|66.00|1040.00|明细|WYF|10", "3|小计||1156.00|66.00|1090.00|明细||10",
          "4|合计||1156.00|66.00|1090.00|||"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        SummaryRig rig2;
        rig2.Offices();
        rig2.QuarterBills();
        rig2.Open();
        rig2.Run(c.offices, c.first, c.last);
        EXPECT_EQ(GridLines(rig2.window->MSFlexGrid1, 1), c.rows);
        EXPECT_EQ(rig2.Messages(), (Lines{"统计结束！"}));
    }
}

TEST_F(SummaryRun, NothingTickedAsksForAnOfficeAndRunsNothing) {
    rig.statements.clear();
    const int focus = rig.window->List2.FocusRequests();
    rig.window->Command1_0.Click();
    EXPECT_EQ(rig.Messages(), (Lines{"请至少勾选一个管理处！"}));
    EXPECT_EQ(rig.window->List2.FocusRequests(), focus + 1);
    EXPECT_TRUE(rig.statements.empty());
    EXPECT_EQ(rig.window->MSFlexGrid1.Rows(), 1);
    EXPECT_EQ(rig.window->StatusBar1.Panels(7).Text(), "");
}

TEST_F(SummaryRun, CheckAllTicksEveryOfficeAndClearingTakesThemAway) {
    frm预开票汇总表& w = *rig.window;
    w.Check3.SetValue(1);
    EXPECT_EQ(w.List2.SelCount(), 3);
    EXPECT_EQ(w.List2.ListIndex(), 0);
    w.List2.SetListIndex(2);
    w.Check3.SetValue(0);
    EXPECT_EQ(w.List2.SelCount(), 0);
    EXPECT_EQ(w.List2.ListIndex(), 0) << "back to the top";
}

TEST_F(SummaryRun, ColumnsWidenToTheirTextAndNeverShrink) {
    SummaryRig wide;
    wide.Offices();
    wide.db.Department("D4", "四部");
    wide.db.Office({.code = "77", .name = "很长很长很长很长很长很长的名字", .dept = "D4"});
    wide.Open();
    const FlexGrid& g = wide.window->MSFlexGrid1;
    // "管理项目名称      ": six wide characters and six blanks, plus the caption margin.
    EXPECT_EQ(g.ColWidth(1), 6 * 180 + 6 * 90 + 120);
    wide.Run({"77"}, kFirst, kLast);
    EXPECT_EQ(g.ColWidth(1), 6 * 180 + 6 * 90 + 120)
        << "the extra line of an office without rows is not fitted";
    wide.Bill("000900", "2024-02-01", {{.item = "WYF", .amount = 10.00}}, {.dept = "D4", .preInvoice = 1});
    wide.Run({"77"}, kFirst, kLast);
    EXPECT_EQ(g.ColWidth(1), 15 * 180 + 90) << "fifteen wide characters and the 90 of the fit";
    wide.window->List2.SetSelected(3, false);
    wide.Run({"2"}, kFirst, kLast);
    EXPECT_EQ(g.ColWidth(1), 15 * 180 + 90) << "a later run with short names keeps the width";
    EXPECT_EQ(g.ColWidth(7), 0);
}

TEST_F(SummaryRun, HiddenDateCheckNeverStopsARunEvenWithThePickersCrossed) {
    rig.window->DTPicker3.SetValue(kLast);
    rig.window->DTPicker4.SetValue(kFirst);
    rig.window->Check3.SetValue(1);
    rig.window->Command1_0.Click();
    EXPECT_EQ(rig.Messages(), (Lines{"统计结束！"}));
}

TEST_F(SummaryRun, ExportNeedsANonZeroTotal) {
    rig.window->Command1_1.Click();
    rig.Run({"2", "9"}, kFirst, kLast);
    rig.window->Command1_1.Click();
    EXPECT_EQ(rig.Messages(), (Lines{"无汇总数据导出！", "统计结束！", "无汇总数据导出！"}));
    EXPECT_TRUE(rig.dialogs.SaveDialogs().empty());
}

TEST_F(SummaryRun, FailedStatementEndsWithTheRunTimeError) {
    rig.db.Exec("DROP TABLE SetupSFXM");
    rig.window->Check3.SetValue(1);
    EXPECT_THROW(rig.window->Command1_0.Click(), RuntimeErrorRaised);
    EXPECT_TRUE(rig.window->Picture3.Visible()) << "nothing takes the busy panel back";
    TheScreen().SetMousePointer(kPointerDefault);
}

TEST_F(SummaryRun, ExitUnloadsAndActivationMaximises) {
    bool unloaded = false;
    rig.window->Unloaded.Connect([&] { unloaded = true; });
    rig.window->Show();
    EXPECT_EQ(rig.window->WindowState(), 2) << "maximised when it becomes the active window";
    rig.window->Command1_Click(7);
    EXPECT_FALSE(unloaded) << "an index outside 0 to 3 does nothing";
    rig.window->Command1_2.Click();
    EXPECT_TRUE(unloaded);
}

TEST_F(SummaryRun, ResizeLaysOutListFramesAndGridWithTheMargin) {
    frm预开票汇总表& w = *rig.window;
    w.SetClientSize(20000, 10000);
    const int middle = 10000 - 600 - 630 - 330;
    EXPECT_EQ(w.List2.Height(), middle - w.List2.Top() - 90);
    EXPECT_EQ(w.Frame2.Top(), 615);
    EXPECT_EQ(w.Frame2.Left(), 3300);
    EXPECT_EQ(w.Frame2.Width(), 20000 - 3300 - 90);
    EXPECT_EQ(w.Frame2.Height(), middle - 90);
    EXPECT_EQ(w.MSFlexGrid1.Width(), 20000 - 3300 - 90 - 120);
    EXPECT_EQ(w.MSFlexGrid1.Height(), middle - 90 - w.MSFlexGrid1.Top() - 60);
    EXPECT_EQ(w.ProgressBar1.Left(), w.Command1_0.Left());
    EXPECT_EQ(w.ProgressBar1.Width(), 20000 - 2 * w.Command1_0.Left());
    const int listHeight = w.List2.Height();
    w.SetClientSize(3000, 1500);
    EXPECT_EQ(w.List2.Height(), listHeight) << "a negative height is skipped";
}

} // namespace
} // namespace quillon
