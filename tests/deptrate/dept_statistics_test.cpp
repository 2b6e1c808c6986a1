// Rates, the grid's columns, one row per ticked department, the cells' rules and the 合计 row.
#include <gtest/gtest.h>

#include "controls/screen.h"
#include "db/value.h"
#include "deptrate/tax_rate.h"
#include "deptrate_rig.h"

namespace quillon {
namespace {

TEST(TaxRate, HeadingAndLookupLiteral) {
    struct Case {
        const char* why;
        Value stored;
        const char* percent;
        const char* literal;
    };
    const Case cases[] = {
        {"a whole rate", Value(6.0), "6", "0.06"},
        {"trailing zero of the fraction dropped", Value(10.0), "10", "0.1"},
        {"1.5 is looked up as 0.02: 0.015, a binary 0.01499.., rounds up", Value(1.5), "1.5", "0.02"},
        {"0.005 rounds away from zero", Value(0.5), "0.5", "0.01"},
        {"a rate that rounds to nothing", Value(0.4), "0.4", "0"},
        {"one hundred percent", Value(100.0), "100", "1"},
        {"decimal text of a server", Value("9.0000"), "9", "0.09"},
        {"a fifth place rounds into the fourth", Value("5.12345"), "5.1235", "0.05"},
        {"negative rates keep their sign", Value(-6.0), "-6", "-0.06"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const TaxRate rate = TaxRateFromValue(c.stored);
        EXPECT_EQ(TaxRatePercentText(rate), c.percent);
        EXPECT_EQ(TaxRateLiteral(rate), c.literal);
    }
}

TEST(DeptGrid, OneColumnTriplePerDistinctNonZeroRateInAscendingOrder) {
    DeptRateRig rig;
    rig.db.Department("01", "总部");
    rig.Rates({13, 6, 0, 1.5, 6});
    auto& w = rig.Open();
    const FlexGrid& g = w.MSFlexGrid1;
    EXPECT_EQ(w.RateColCount, 3);
    EXPECT_EQ(g.Rows(), 2);
    EXPECT_EQ(g.Cols(), 12);
    EXPECT_EQ(rig.RowTexts(0), (Texts{"序", "开票部门", "1.5%税率", "1.5%税率", "1.5%税率", "6%税率",
                                      "6%税率", "6%税率", "13%税率", "13%税率", "13%税率", ""}));
    EXPECT_EQ(rig.RowTexts(1), (Texts{"序", "开票部门", "含税金额", "税额", "不含税金额", "含税金额", "税额",
                                      "不含税金额", "含税金额", "税额", "不含税金额", ""}));
    std::vector<int> widths;
    for (int c = 0; c < g.Cols(); ++c) widths.push_back(g.ColWidth(c));
    EXPECT_EQ(widths, (std::vector<int>{500, 3000, 1300, 1300, 1300, 1300, 1300, 1300, 1300, 1300, 1300, 0}));
    EXPECT_EQ(g.MergedRangeAt(0, 3), (CellRange{0, 2, 0, 4})) << "one heading over each rate's three columns";
    EXPECT_EQ(g.MergedRangeAt(1, 0), (CellRange{0, 0, 1, 0})) << "序 spans both header rows";
    EXPECT_EQ(g.FixedAlignment(7), flexAlignCenterCenter);
    EXPECT_EQ(
        rig.statements,
        (Texts{"Select 职能部门new.职能部门编号,职能部门new.职能部门名称,上级部门编号 From 职能部门new  Left "
               "Join 上级部门new on 职能部门new.职能部门编号=上级部门new.职能部门编号 Where "
               "职能部门new.终止日期 Is Null  And 上级部门new.终止日期 Is Null order by "
               "len(职能部门new.职能部门编号),职能部门new.职能部门编号",
               "Select Distinct 税率 From 税控盘收费项目设置 Where 税率 <> 0 Order By 税率"}));
}

// 一区 (0101), 二区 (0102) and 分公司 (02) over March 2024, rates 1.5, 6 and 13.
class DeptAmounts : public ::testing::Test {
protected:
    void SetUp() override {
        rig.db.Department("01", "总部").Department("0101", "一区", "01").Department("0102", "二区", "01");
        rig.db.Department("02", "分公司").Department("03", "空部门");
        rig.Rates({1.5, 6, 13});
        rig.Invoice("0101", "2024-03-05", 106.00, 6.00, 0.06)
            .Invoice("0101", "2024-03-31 18:30:00", 53.00, 3.00, 0.06) // whole days: the last one counts
            .Invoice("0101", "2024-03-10", 1000.00, 60.00, 0.06,
                     {.replacesNumber = "X1", .replacesLot = "L0"})
            .Invoice("0101", "2024-03-10", 700.00, 42.00, 0.06, {.replacesLot = "L0"})
            .Invoice("0101", "2024-03-11", 500.00, 30.00, 0.06, {.voided = "2024-03-12"})
            .Invoice("0101", "2024-04-01", 77.00, 7.00, 0.06)
            .Invoice("0101", "2024-02-29 23:59:59", 88.00, 8.00, 0.06)
            .Invoice("0101", "2024-03-15", -21.20, -1.20, 0.06) // a negative invoice adds with its sign
            .Invoice("0101", "2024-03-16", 102.00, 2.00, 0.02)  // what the 1.5% column finds
            .Invoice("0101", "2024-03-17", 40.00, 0.60, 0.015)  // what it does not
            .Invoice("0101", "2024-03-18", 30.00, 0.00, 0.0);   // zero rate: no column
        rig.Invoice("0102", "2024-03-05", 100.00, 6.00, 0.06)
            .Invoice("0102", "2024-03-06", -100.00, -6.00, 0.06)
            .Invoice("0102", "2024-03-07", 5.00, 5.00, 0.13)
            .Invoice("0102", "2024-03-08", 50.00, std::nullopt, 0.02);
        rig.Invoice("02", "2024-03-09", 10.004, 1.004, 0.13)
            .Invoice("02", "2024-03-09", 10.004, 0.0, 0.13)
            .Invoice("02", "2024-03-10", -50.00, -3.00, 0.06);
        rig.Open();
    }
    DeptRateRig rig;
};

TEST_F(DeptAmounts, CellsFollowTheirRulesAndEachIsOneStatement) {
    rig.statements.clear();
    rig.Run({"0101", "0102", "02"}, Day(2024, 3, 1), Day(2024, 3, 31));
    ASSERT_EQ(rig.statements.size(), 9u) << "one statement per department and rate";
    EXPECT_EQ(
        rig.statements[3],
        "Select Sum(票据开票数据.金额) AS 含税金额 ,Sum(票据开票数据.税额) AS 税额 From 票据 Inner Join "
        "票据开票数据 ON 票据.票据编号 = 票据开票数据.票据编号 And 票据.入库单编号=票据开票数据.入库单编号 "
        "Where Convert(char(8), 票据.开票日期, 112) Between  '20240301' And '20240331' And "
        "票据.被换票入库单编号 Is Null And 票据.被换票票据编号 Is Null And 票据.作废日期 Is Null And "
        "票据开票数据.税率 = 0.02 And 票据.开票部门编号 = '0102'");
    EXPECT_NE(rig.statements[4].find("票据开票数据.税率 = 0.06 And"), std::string::npos);
    EXPECT_NE(rig.statements[5].find("票据开票数据.税率 = 0.13 And"), std::string::npos);
    struct Case {
        const char* why;
        const char* dept;
        const char* heading;
        const char* gross;
        const char* tax;
        const char* net;
    };
    const Case cases[] = {
        {"exchanged, voided and out-of-period invoices left out, negative added", "一区", "6%税率", "137.80",
         "7.80", "130.00"},
        {"1.5% finds the lines stored at 0.02", "一区", "1.5%税率", "102.00", "2.00", "100.00"},
        {"no invoice at the rate: all three empty", "一区", "13%税率", "", "", ""},
        {"a zero sum shows 0.00, its net stays empty", "二区", "6%税率", "0.00", "0.00", ""},
        {"gross equal to tax gives an empty net", "二区", "13%税率", "5.00", "5.00", ""},
        {"tax all NULL: empty, and counted 0 in the net", "二区", "1.5%税率", "50.00", "", "50.00"},
        {"net from the rounded figures: 20.01 - 1.00, not 20.008 - 1.004", "分公司", "13%税率", "20.01",
         "1.00", "19.01"},
        {"a negative sum", "分公司", "6%税率", "-50.00", "-3.00", "-47.00"},
        {"the 合计 row sums what the cells show", "合计", "13%税率", "25.01", "6.00", "19.01"},
        {"the 合计 row over empty cells above", "合计", "1.5%税率", "152.00", "2.00", "150.00"},
        {"the 合计 row with negative rows", "合计", "6%税率", "87.80", "4.80", "83.00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(rig.Cell(c.dept, c.heading, "含税金额"), c.gross);
        EXPECT_EQ(rig.Cell(c.dept, c.heading, "税额"), c.tax);
        EXPECT_EQ(rig.Cell(c.dept, c.heading, "不含税金额"), c.net);
    }
}

TEST_F(DeptAmounts, OneRowPerTickedNodeNumberedByPlace) {
    rig.Run({"0102", "02"}, Day(2024, 3, 1), Day(2024, 3, 31));
    rig.Node("0102").SetChecked(false);
    rig.Node("02").SetChecked(false);
    rig.Run({"01", "0101", "03"}, Day(2024, 3, 1), Day(2024, 3, 31));
    const FlexGrid& g = rig.window->MSFlexGrid1;
    ASSERT_EQ(g.Rows(), 6) << "a run replaces the rows of the one before";
    EXPECT_EQ(rig.RowTexts(2), (Texts{"1", "总部", "", "", "", "", "", "", "", "", "", ""}))
        << "a parent's row never holds its children's amounts";
    EXPECT_EQ(g.TextMatrix(3, 0), "2");
    EXPECT_EQ(g.TextMatrix(3, 1), "一区");
    EXPECT_EQ(g.TextMatrix(4, 0), "3") << "unticked 0102 and 02 leave no gap";
    EXPECT_EQ(rig.RowTexts(5), (Texts{"", "合计", "102.00", "2.00", "100.00", "137.80", "7.80", "130.00",
                                      "0.00", "0.00", "0.00", ""}))
        << "0.00 where every cell above is empty; the end column has no total";
    EXPECT_FALSE(rig.window->Picture5.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
    EXPECT_EQ(rig.dialogs.YieldCount(), 2) << "one yield per run, before its statements";
}

TEST(DeptTotal, SumsTheShownTextsInRowOrder) {
    // Read back as doubles, 0 - 0.10 - 0.20 + 0.30 comes out a hair below zero.
    DeptRateRig rig;
    rig.db.Department("A", "甲").Department("B", "乙").Department("C", "丙");
    rig.Rates({6});
    rig.Invoice("A", "2024-05-01", -0.10, 0.0, 0.06)
        .Invoice("B", "2024-05-01", -0.20, 0.0, 0.06)
        .Invoice("C", "2024-05-01", 0.30, 0.0, 0.06);
    rig.Open();
    rig.Run({"A", "B", "C"}, Day(2024, 5, 1), Day(2024, 5, 1));
    EXPECT_EQ(rig.RowTexts(5), (Texts{"", "合计", "-0.00", "0.00", "-0.00", ""}));
}

} // namespace
} // namespace quillon
