// The reconciliation windows around the run: what the load leaves, the grid's shape at load,
// the title, and the checks that stop a run before it starts.
#include "base/date_time.h"
#include "base/vb_number.h"
#include "controls/screen.h"
#include "reconciliation/recon_fixture.h"

namespace quillon {
namespace {

TEST_F(ReconTest, LoadFillsTheCriteriaTheDepartmentListAndTheFixedColumnsOfEachForm) {
    AddReconBooks(db);
    session.StatusPanelText1 = "一";
    session.StatusPanelText2 = "二";
    session.StatusPanelText3 = "三";
    struct Case {
        const char* why;
        bool newForm;
        Lines header;
        std::vector<int> widths;
        std::vector<int> merged;
        const char* formula;
    };
    const Case cases[] = {
        {"frm票据核对表New: 收据 as the third block",
         true,
         {"序|开票年月|税率|增值税专用发票|增值税专用发票|增值税普通发票|增值税普通发票|收据|财务交账|"
          "当月收预开票|当月未收预开|核对结果|备注",
          "序|开票年月|税率|金额|税额|金额|税额|金额|小计|金额|金额|差额|备注"},
         {500, 900, 600, 1300, 1200, 1300, 1200, 1200, 1200, 1200, 1200, 1200, 1600},
         {0, 1, 2, 11, 12},
         "核对:(专用发票+普通发票+收据=财务交账-当月收预开票+当月未收预开票)"},
        {"frm票据核对表: 全电发票 net and tax",
         false,
         {"序|开票年月|税率|增值税专用发票|增值税专用发票|增值税普通发票|增值税普通发票|"
          "全电发票（含电子发票）|全电发票（含电子发票）|财务交账|当月收预开票|当月未收预开|核对结果|备注",
          "序|开票年月|税率|金额|税额|金额|税额|金额|税额|小计|金额|金额|差额|备注"},
         {500, 900, 600, 1300, 1200, 1300, 1200, 1300, 1200, 1200, 1200, 1200, 1200, 1600},
         {0, 1, 2, 12, 13},
         "核对:(专用发票+普通发票+全电发票=财务交账-当月收预开票+当月未收预开票)"},
    };
    const DateTime today = DateTime::Today();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        sent.clear();
        auto w = OpenForm(c.newForm);
        ASSERT_EQ(w->Combo1.ListCount(), 34);
        EXPECT_EQ(w->Combo1.List(0), "2016");
        EXPECT_EQ(w->Combo1.List(33), "2049");
        EXPECT_EQ(w->Combo1.Text(), std::to_string(today.year));
        ASSERT_EQ(w->Combo2.ListCount(), 12);
        EXPECT_EQ(w->Combo3.List(11), "12");
        EXPECT_EQ(w->Combo2.Text(), "01");
        EXPECT_EQ(w->Combo3.Text(), Format(today.month, "00"));
        ASSERT_EQ(w->List1.ListCount(), 1);
        EXPECT_EQ(w->List1.List(0), "0101 一号管理处【G01】");
        EXPECT_EQ(w->List1.ListIndex(), -1);
        EXPECT_EQ(w->StatusBar1.Panels(2).Text(), "一");
        EXPECT_EQ(w->StatusBar1.Panels(4).Text(), "二");
        EXPECT_EQ(w->StatusBar1.Panels(6).Text(), "三");
        EXPECT_EQ(w->Caption(), "增值税开票票据核对表");
        EXPECT_EQ(w->Label1_0.Caption(), "增值税开票票据核对表");
        EXPECT_EQ(w->Label2.Caption(), c.formula);
        EXPECT_FALSE(w->Picture5.Visible());
        EXPECT_EQ(sent.size(), 2u)
            << "no run at load: the department list and the type list are all it reads";

        const FlexGrid& g = w->MSFlexGrid1;
        EXPECT_EQ(GridLines(g), c.header);
        EXPECT_EQ(ColWidths(g), c.widths);
        std::vector<int> merged;
        for (int col = 0; col < g.Cols(); ++col)
            if (g.MergeCol(col)) merged.push_back(col);
        EXPECT_EQ(merged, c.merged);
        EXPECT_EQ(g.MergeCells(), flexMergeRestrictColumns);
        EXPECT_TRUE(g.MergeRow(0));
        EXPECT_EQ(g.FixedAlignment(5), flexAlignCenterCenter);
        EXPECT_EQ(g.Row(), 1);
    }
}

TEST_F(ReconTest, APeriodWithoutInvoicesLeavesTheHeaderWithoutCategories) {
    AddReconBooks(db);
    db.Invoice(OneLine(kSpecialLot, "S001", "2024-03-05", "2024-03-05", "WY", 1060, 60));
    auto w = OpenWindow<frm票据核对表New>();
    Run(*w, "2024", "01", "02");

    ASSERT_EQ(dialogs.Messages().size(), 1u);
    EXPECT_EQ(dialogs.Messages()[0].Text, "没有满足条件的开票数据,请重新设置条件!");
    EXPECT_EQ(dialogs.Messages()[0].Title, "系统提示");
    const FlexGrid& g = w->MSFlexGrid1;
    EXPECT_EQ(g.Rows(), 2);
    EXPECT_EQ(g.Cols(), 13);
    EXPECT_EQ(g.TextMatrix(0, 8), "财务交账");
    EXPECT_EQ(g.TextMatrix(1, 8), "小计");
    EXPECT_FALSE(w->Picture5.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
    EXPECT_TRUE(Sent("Select Distinct").empty());
}

TEST_F(ReconTest, ChecksBeforeTheRunStopItAndKeepTheGrid) {
    AddReconBooks(db);
    db.Invoice(OneLine(kSpecialLot, "S001", "2024-03-05", "2024-03-05", "WY", 1060, 60));
    struct Case {
        const char* why;
        bool chooseDepartment;
        const char* from;
        const char* to;
        const char* message;
        int focusOnCombo3;
    };
    const Case cases[] = {
        {"no department, whatever the months say", false, "05", "03", "请先选择统计部门!", 0},
        {"end month before start month", true, "05", "03", "截至月份不能小于开始月份,请重新选择!", 1},
        {"months compare as text", true, "10", "09", "截至月份不能小于开始月份,请重新选择!", 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        auto w = OpenWindow<frm票据核对表New>();
        if (c.chooseDepartment) Run(*w, "2024", "03", "03"); // a former result to keep
        const auto before = GridLines(w->MSFlexGrid1);
        const std::size_t statements = sent.size();
        const std::size_t shown = dialogs.Messages().size();

        w->Combo2.SetText(c.from);
        w->Combo3.SetText(c.to);
        w->Command3.Click();

        ASSERT_EQ(dialogs.Messages().size(), shown + 1);
        EXPECT_EQ(dialogs.Messages().back().Text, c.message);
        EXPECT_EQ(dialogs.Messages().back().Title, "系统提示");
        EXPECT_EQ(dialogs.Messages().back().Flags, vbInformation);
        EXPECT_EQ(w->Combo3.FocusRequests(), c.focusOnCombo3);
        EXPECT_EQ(sent.size(), statements);
        EXPECT_EQ(GridLines(w->MSFlexGrid1), before);
    }
}

TEST_F(ReconTest, TitleTakesTheYearAtTheClickAndTheRunTheYearAtTheRun) {
    AddReconBooks(db);
    auto w = OpenWindow<frm票据核对表New>();
    w->Combo1.SetText("2024");
    w->List1.SetListIndex(0);
    EXPECT_EQ(w->Label1_0.Caption(), "2024年度【一号管理处】票据核对表");

    w->Combo1.SetText("2023");
    w->Combo2.SetText("02");
    w->Combo3.SetText("02");
    w->Command3.Click();
    EXPECT_EQ(w->Label1_0.Caption(), "2024年度【一号管理处】票据核对表");
    const auto extraction = Sent("Select distinct 收费项目代号");
    ASSERT_EQ(extraction.size(), 1u);
    EXPECT_NE(extraction[0].find("between '202302' and '202302'"), std::string::npos) << extraction[0];
}

} // namespace
} // namespace quillon
