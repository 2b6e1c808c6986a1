// The report frame: resize rules of the families on the models, a window made too small keeping
// its last valid sizes, the wait panel centred also when hidden, and the busy state of a run.
#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "controls/screen.h"
#include "controls/scripted_dialogs.h"
#include "controls/tree_view.h"
#include "workbench/report_frame.h"

namespace quillon {
namespace {

// Frame sizes the expectations below are worked from: title band 600, condition panel 3300,
// button bar 630, status bar 330, Command2 at 300 and 1335 wide, wait panel 4800 x 900,
// title label 7200 wide, grid at (0, 0) in the result area.
struct FamilyAWindow : ReportForm {
    explicit FamilyAWindow(Dialogs& d) : ReportForm("frmA", "A", d) {
        AddControl(List1, &Picture2);
        List1.Move(60, 780, 3180, 4000);
        AddControl(Picture6, &Picture2);
        Picture6.Move(0, 5000, 3300, 2700);
        AddControl(Command3, &Picture6);
    }
    void Form_Resize() override { ResizeFamilyA(*this, Picture6, List1); }
    using ReportForm::BeginBusy;
    using ReportForm::EndBusy;
    using ReportForm::RunUntrapped;
    using ReportForm::ShowWaitText;

    ListBox List1{"List1"};
    Panel Picture6{"Picture6"};
};

struct FamilyBWindow : ReportForm {
    explicit FamilyBWindow(Dialogs& d) : ReportForm("frmB", "B", d) {
        AddControl(List1, &Picture2);
        List1.Move(60, 120, 3180, 4000);
        AddControl(Picture8, &Picture3);
        Picture8.Move(0, 0, 3000, 400);
    }
    void Form_Resize() override { PageSize = ResizeFamilyB(*this, List1, Picture8); }

    ListBox List1{"List1"};
    Panel Picture8{"Picture8"};
    int PageSize = 0;
};

struct FamilyCWindow : ReportForm {
    explicit FamilyCWindow(Dialogs& d) : ReportForm("frmC", "C", d) {
        AddControl(TreeView1, &Picture2);
        TreeView1.Move(60, 120, 3180, 4000);
        AddControl(Label1, &Picture1);
        Label1.Move(0, 105, 5000, 420);
    }
    void Form_Resize() override { ResizeFamilyC(*this, TreeView1, Label1); }

    TreeView TreeView1{"TreeView1"};
    Label Label1{"Label1"};
};

TEST(ReportFrame, FamilyAPlacesEveryPartFromTheWindowSizeAndKeepsTheLastValidSizes) {
    ScriptedDialogs dialogs;
    FamilyAWindow w(dialogs);
    w.SetClientSize(12000, 9000);

    EXPECT_EQ(w.Picture1.Width(), 12000);
    EXPECT_EQ(w.StatusBar1.Top(), 9000 - 330);
    EXPECT_EQ(w.Picture2.Height(), 9000 - 600 - 330);
    EXPECT_EQ(w.Picture3.Top(), 600);
    EXPECT_EQ(w.Picture3.Left(), 3300);
    EXPECT_EQ(w.Picture3.Height(), 7440); // 9000 - 600 - 630 - 330
    EXPECT_EQ(w.Picture3.Width(), 8700);
    EXPECT_EQ(w.Label1_0.Left(), 4050); // 3300 + (8700 - 7200) / 2
    EXPECT_EQ(w.Picture4.Left(), 3300);
    EXPECT_EQ(w.Picture4.Width(), 8700);
    EXPECT_EQ(w.Picture4.Top(), 8040);
    EXPECT_EQ(w.Command1.Left(), 7065); // right margin 300, as Command2's left margin
    EXPECT_EQ(w.Picture6.Top(), 5370);  // 8040 - 2700 + 30
    EXPECT_EQ(w.List1.Height(), 4650);  // 5370 - 780 + 60
    EXPECT_EQ(w.ProgressBar1.Width(), 8640);
    EXPECT_EQ(w.MSFlexGrid1.Width(), 8640);
    EXPECT_EQ(w.MSFlexGrid1.Height(), 7380);
    // The wait panel is centred on the grid also while hidden.
    EXPECT_FALSE(w.Picture5.Visible());
    EXPECT_EQ(w.Picture5.Top(), 3240);  // (7380 - 900) / 2
    EXPECT_EQ(w.Picture5.Left(), 1920); // (8640 - 4800) / 2

    w.SetClientSize(3000, 800); // result area and condition panel would get negative sizes
    EXPECT_EQ(w.Picture3.Height(), 7440);
    EXPECT_EQ(w.Picture3.Width(), 8700);
    EXPECT_EQ(w.Picture2.Height(), 8070);
    EXPECT_EQ(w.MSFlexGrid1.Width(), 8640);
    EXPECT_EQ(w.MSFlexGrid1.Height(), 7380);
    // Rules that still have a valid value run all the same.
    EXPECT_EQ(w.StatusBar1.Top(), 800 - 330);
    EXPECT_EQ(w.Picture1.Width(), 3000);
    EXPECT_EQ(w.Command1.Left(), 7065);
    EXPECT_EQ(w.Picture5.Left(), 1920);
}

TEST(ReportFrame, FamilyBCentresThePagerAndDerivesThePageSizeTiesToEven) {
    struct Case {
        const char* why;
        int height;
        int gridHeight;
        int pageSize;
    };
    const Case cases[] = {
        {"7320 / 240 - 1 = 29.5 goes to 30", 8940, 7320, 30},
        {"7560 / 240 - 1 = 30.5 goes to 30", 9180, 7560, 30},
        {"7800 / 240 - 1 = 31.5 goes to 32", 9420, 7800, 32},
        {"7380 / 240 - 1 = 29.75 goes to 30", 9000, 7380, 30},
    };
    ScriptedDialogs dialogs;
    FamilyBWindow w(dialogs);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        w.SetClientSize(12000, c.height);
        EXPECT_EQ(w.MSFlexGrid1.Height(), c.gridHeight);
        EXPECT_EQ(w.PageSize, c.pageSize);
        EXPECT_EQ(w.Picture8.Left(), 2850); // (8700 - 3000) / 2
        EXPECT_EQ(w.List1.Height(), c.height - 600 - 120 - 330);
    }
    // Too low a window: the grid keeps its height and the page size still comes from it.
    w.SetClientSize(12000, 1000);
    EXPECT_EQ(w.MSFlexGrid1.Height(), 7380);
    EXPECT_EQ(w.PageSize, 30);
}

TEST(ReportFrame, FamilyCCentresItsTitleInTheResultAreaWithoutItsOffset) {
    ScriptedDialogs dialogs;
    FamilyCWindow w(dialogs);
    w.SetClientSize(12000, 9000);
    EXPECT_EQ(w.Label1.Left(), 1850); // (8700 - 5000) / 2, not shifted by Picture3.Left
    EXPECT_EQ(w.TreeView1.Height(), 9000 - 600 - 330);
    EXPECT_EQ(w.MSFlexGrid1.Height(), 7380);
}

TEST(ReportFrame, BusyStateShowsThePanelYieldsOnceAndEndsAtTheNormalPointer) {
    ScriptedDialogs dialogs;
    FamilyAWindow w(dialogs);
    w.BeginBusy("正在提取收费项目,请稍等......");
    EXPECT_EQ(TheScreen().MousePointer(), kPointerHourglass);
    EXPECT_TRUE(w.Picture5.Visible());
    EXPECT_EQ(w.Label3.Caption(), "正在提取收费项目,请稍等......");
    EXPECT_EQ(dialogs.YieldCount(), 1);

    w.ShowWaitText("正在生成票据核对表，请稍等......");
    EXPECT_EQ(w.Label3.Caption(), "正在生成票据核对表，请稍等......");
    EXPECT_EQ(dialogs.YieldCount(), 2);

    w.EndBusy();
    EXPECT_FALSE(w.Picture5.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerDefault);
}

TEST(ReportFrame, AnUntrappedFailureEndsWithTheRunTimeErrorReport) {
    ScriptedDialogs dialogs;
    FamilyAWindow w(dialogs);
    try {
        w.RunUntrapped([] { throw VbError(kErrSubscriptOutOfRange, "下标越界"); });
        FAIL() << "the handler's failure did not end the run";
    } catch (const RuntimeErrorRaised& e) {
        EXPECT_EQ(e.Number, 9);
        EXPECT_EQ(e.Description, "下标越界");
    }
    ASSERT_EQ(dialogs.RuntimeErrors().size(), 1u);
    EXPECT_EQ(dialogs.RuntimeErrors()[0], "运行时错误 '9':\n\n下标越界");
}

} // namespace
} // namespace quillon
