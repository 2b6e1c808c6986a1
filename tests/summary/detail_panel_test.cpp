// The drill-down: the 明细 cell of a summary row opens the panel with that row's invoice lines;
// the period text of 摘要; marking rows; closing the panel.
#include <gtest/gtest.h>

#include "controls/screen.h"
#include "summary/period_text.h"
#include "summary_rig.h"

namespace quillon {
namespace {

TEST(PeriodText, MonthsRunsAndOddValues) {
    struct Case {
        const char* why;
        const char* summary;
        const char* text;
    };
    const Case cases[] = {
        {"one month", "202401", "[202401]"},
        {"closing comma: each month on its own", "202401,202402,202403,", "[202401],[202402],[202403]"},
        {"no closing comma: one merged run", "202401,202402,202403", "[202401-202403]"},
        {"a gap: the stand-alone last month is lost", "202401,202403", "[202401]"},
        {"not numbers: the first only", "abc,def", "[abc]"},
        {"a run and a gap", "202311,202312,202401,202405,202406", "[202311-202401],[202405-202406]"},
        {"the same month twice runs on", "202401,202401,202402", "[202401-202402]"},
        {"a run to the end with the same month", "202401,202401", "[202401-202401]"},
        {"no month 13", "202413,202401", "[202413]"},
        {"a month that is no date in the walk", "202401,202402,x", "[202401],[202402]"},
        {"empty", "", "[]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(PeriodText(c.summary), c.text);
    }
}

TEST(CompactPeriods, MovesTheIndexToTheEndOfTheRun) {
    const std::vector<std::string> a = {"202401", "202402", ""};
    int i = 0;
    EXPECT_EQ(CompactPeriods(i, a), "202401") << "the empty last element breaks the walk";
    EXPECT_EQ(i, 0);
    const std::vector<std::string> b = {"202401", "202402", "202404", "202405"};
    i = 0;
    EXPECT_EQ(CompactPeriods(i, b), "202401-202402");
    EXPECT_EQ(i, 1);
    i = 2;
    EXPECT_EQ(CompactPeriods(i, b), "202404-202405");
    EXPECT_EQ(i, 3);
}

class DetailPanel : public ::testing::Test {
protected:
    void SetUp() override {
        rig.Offices();
        rig.QuarterBills();
        rig.Open();
        rig.RunQuarter();
        rig.statements.clear();
    }
    frm预开票汇总表& W() { return *rig.window; }
    SummaryRig rig;
};

constexpr const char* kHead =
    "序    |票据簿编号|票据号码  |付款人                    |收费项目          |摘    要       "
    "                       |金额         |税额         |收入         |收款日期        "
    "|收款人    |开票人    |开票日期        |";

TEST_F(DetailPanel, ItemRowListsItsLinesWithSumsAndTheGoldenStatement) {
    W().MSFlexGrid1.ClickCell(9, 6); // 北区 物业费
    EXPECT_TRUE(W().Frame3.Visible());
    EXPECT_FALSE(W().Picture2.Enabled());
    EXPECT_EQ(W().Label8.Caption(), "北区 物业费");
    EXPECT_EQ(
        GridLines(W().MSFlexGrid2),
        (Lines{kHead,
               "1|L1|000123|张三|物业费|[202401],[202402],[202403]|106.00|6.00|100.00||收款员|开票员|2024-01-"
               "10|",
               "2|L1|000125|付款人|物业费|[202403]|212.00|12.00|200.00|2024-04-02|收款员|开票员|2024-03-31|",
               "|合计|||||318.00|18.00|300.00|||||"}));
    EXPECT_EQ(
        rig.statements,
        (Lines{
            "SELECT 票据.入库单编号, 票据.票据编号, 票据.付款人, 票据开票数据.项目, 票据开票数据.摘要, "
            "票据开票数据.金额,  Case When 票据开票数据.税额 Is Null Then 票据开票数据.金额 Else "
            "票据开票数据.金额-票据开票数据.税额 End As SR,  票据.收款日期, 票据.收款人, "
            "票据.开票人,票据.开票日期 FROM 票据  Inner Join 票据开票数据 ON 票据.ID = 票据开票数据.票据id  "
            "Inner Join 设置管理处 On 票据.开票部门编号=设置管理处.对应部门代号 WHERE 设置管理处.GYD_DH = "
            "'10'  "
            "AND (Convert(char(8),票据.开票日期,112) Between '20240101' and '20240331')  And "
            "(Convert(char(8),收款日期,112) > '20240331' Or (收款日期 Is Null And 预开 = 1)) And "
            "票据.退票日期 IS NULL   And 票据.作废日期 IS NULL  And 票据.内换日期 IS NULL  And "
            "票据开票数据.收费项目代号 in ('WYF') Order By 入库单编号,票据编号,付款人"}));
    const FlexGrid& d = W().MSFlexGrid2;
    EXPECT_EQ(d.BackColorAt(3, 1), 0xFFC0C0u);
    EXPECT_EQ(d.BackColorAt(3, 13), 0xFFC0C0u);
    EXPECT_EQ(d.MergeCells(), flexMergeRestrictColumns);
    EXPECT_TRUE(d.MergeCol(0) && d.MergeCol(1) && d.MergeCol(2));
    EXPECT_FALSE(d.MergeCol(3));
    EXPECT_EQ(d.ColWidth(13), 0);
    EXPECT_EQ(W().StatusBar1.Panels(7).Text(), "统计结束!");
}

TEST_F(DetailPanel, SubtotalRowListsEveryLineOfTheOfficeEvenOfItemsNotSetUp) {
    W().MSFlexGrid1.ClickCell(10, 6); // 小计 of 北区
    EXPECT_EQ(W().Label8.Caption(), "北区");
    EXPECT_EQ(
        GridLines(W().MSFlexGrid2, 1),
        (Lines{"1|L1|000122|付款人|水费||50.00|0.00|50.00||收款员|开票员|2024-01-05|",
               "2|L1|000123|张三|物业费|[202401],[202402],[202403]|106.00|6.00|100.00||收款员|开票员|2024-01-"
               "10|",
               "3|L1|000124|付款人|未设项目||30.00|0.00|30.00||收款员|开票员|2024-01-20|",
               "4|L1|000125|付款人|物业费|[202403]|212.00|12.00|200.00|2024-04-02|收款员|开票员|2024-03-31|",
               "5|L1|000126|付款人|停车费||0.00|0.00|0.00||收款员|开票员|2024-02-10|",
               "|合计|||||398.00|18.00|380.00|||||"}))
        << "398.00 against the subtotal's 368.00: the line of ZZ is here only";
    ASSERT_EQ(rig.statements.size(), 1u);
    EXPECT_NE(rig.statements[0].find("票据.内换日期 IS NULL  Order By"), std::string::npos)
        << "no item condition on a 小计 row";
}

TEST_F(DetailPanel, EmptyResultShowsOnlyTheHeadAndTheCaption) {
    W().MSFlexGrid1.ClickCell(8, 6); // 停车费: one line of 0.00
    ASSERT_EQ(W().MSFlexGrid2.Rows(), 3);
    W().Command3.Click();
    W().MSFlexGrid1.ClickCell(2, 6); // 小计 of 西区, an office without lines
    EXPECT_EQ(W().Label8.Caption(), "西区");
    EXPECT_EQ(GridLines(W().MSFlexGrid2), (Lines{kHead}));
}

TEST_F(DetailPanel, ClosingEmptiesAndHidesThePanelAndFreesTheStrip) {
    W().MSFlexGrid1.ClickCell(9, 6);
    EXPECT_EQ(W().Frame3.Left(), W().Frame2.Left());
    EXPECT_EQ(W().Frame3.Width(), W().Frame2.Width());
    EXPECT_EQ(W().Command3.Left(), W().Frame3.Width() - W().Command3.Width() - 150);
    EXPECT_EQ(W().Command4.Left(), W().Command3.Left() - W().Command4.Width() - 100);
    EXPECT_EQ(W().MSFlexGrid2.Height(), W().Frame3.Height() - W().Command3.Height() - 400);
    W().Command3.Click();
    EXPECT_FALSE(W().Frame3.Visible());
    EXPECT_TRUE(W().Picture2.Enabled());
    EXPECT_EQ(W().MSFlexGrid2.Rows(), 1);
}

TEST_F(DetailPanel, ClicksElsewhereMarkRowsAndOpenNothing) {
    FlexGrid& g = W().MSFlexGrid1;
    g.ClickCell(3, 2);
    EXPECT_FALSE(W().Frame3.Visible());
    EXPECT_EQ(W().SummaryMarkedRow, 3);
    EXPECT_EQ(g.BackColorAt(3, 0), 0xE0E0E0u);
    EXPECT_EQ(g.BackColorAt(3, 6), 0xE0E0E0u);
    EXPECT_EQ(g.BackColorAt(3, 7), kColorWindow);
    g.ClickCell(6, 1); // a 小计 row takes the mark ...
    EXPECT_EQ(g.BackColorAt(3, 2), kColorWindow);
    g.ClickCell(7, 1); // ... and loses its own colour for good when the mark moves on
    EXPECT_EQ(g.BackColorAt(6, 1), kColorWindow);
    EXPECT_EQ(g.BackColorAt(7, 1), 0xE0E0E0u);
    g.ClickCell(11, 1); // 合计: nothing
    EXPECT_EQ(W().SummaryMarkedRow, 7);
    EXPECT_TRUE(rig.statements.empty());
}

TEST_F(DetailPanel, DetailRowsAreMarkedFromColumnOne) {
    W().MSFlexGrid1.ClickCell(10, 6);
    FlexGrid& d = W().MSFlexGrid2;
    d.ClickCell(2, 3);
    EXPECT_EQ(W().DetailMarkedRow, 2);
    EXPECT_EQ(d.BackColorAt(2, 1), 0xE0E0E0u);
    EXPECT_EQ(d.BackColorAt(2, 13), 0xE0E0E0u);
    d.ClickCell(4, 3);
    EXPECT_EQ(d.BackColorAt(2, 1), 0xE0E0E0u) << "the old mark is cleared from column 2 on";
    EXPECT_EQ(d.BackColorAt(2, 2), kColorWindow);
    d.ClickCell(6, 3); // 合计
    EXPECT_EQ(W().DetailMarkedRow, 4);
}

TEST_F(DetailPanel, FailedDetailStatementEndsWithTheRunTimeErrorAndThePanelOpen) {
    rig.db.Exec("DROP TABLE 票据开票数据");
    EXPECT_THROW(W().MSFlexGrid1.ClickCell(9, 6), RuntimeErrorRaised);
    EXPECT_TRUE(W().Frame3.Visible());
    TheScreen().SetMousePointer(kPointerDefault);
}

} // namespace
} // namespace quillon
