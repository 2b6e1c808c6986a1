// The department tree: what reaches it and in which order, the tick propagation by index range,
// 全选, and what stops a run or the program.
#include <sstream>

#include "controls/screen.h"
#include "deptrate_rig.h"

namespace quillon {
namespace {

// 9 外包 (root, shortest code, so first)
// 01 总部 ─ 0101 一区 ─ 010101 一组, 010102 二组
//         └ 0102 二区 ─ 010201 三组
// 02 分公司 ─ 0201 分一
// with one rate, and the window loaded on it.
frm部门开票分税率统计表& OpenHierarchy(DeptRateRig& rig) {
    rig.db.Department("01", "总部")
        .Department("0101", "一区", "01")
        .Department("010101", "一组", "0101")
        .Department("010102", "二组", "0101")
        .Department("0102", "二区", "01")
        .Department("010201", "三组", "0102")
        .Department("02", "分公司")
        .Department("0201", "分一", "02")
        .Department("9", "外包");
    rig.Rates({6});
    return rig.Open();
}

Texts NodeTexts(const TreeView& tree) {
    Texts texts;
    for (const TreeNode& n : tree.Nodes()) texts.push_back(n.Text());
    return texts;
}

// The codes of the ticked nodes, in tree order, joined by blanks.
std::string CheckedCodes(const TreeView& tree) {
    std::string codes;
    for (const TreeNode& n : tree.Nodes())
        if (n.Checked()) codes += (codes.empty() ? "" : " ") + n.Key().substr(1);
    return codes;
}

TEST(DeptTree, IsBuiltDepthFirstWithRootsInCodeLengthOrderAndSelectAllTicksEveryNode) {
    DeptRateRig rig;
    auto& w = OpenHierarchy(rig);
    EXPECT_EQ(NodeTexts(w.TreeView1), (Texts{"9 外包", "01 总部", "0101 一区", "010101 一组", "010102 二组",
                                             "0102 二区", "010201 三组", "02 分公司", "0201 分一"}));
    EXPECT_EQ(rig.Node("01").Image(), 1);
    EXPECT_EQ(rig.Node("0101").Image(), 2);
    EXPECT_EQ(rig.Node("010201").Parent(), &rig.Node("0102"));
    EXPECT_TRUE(w.TreeView1.Nodes(1).Expanded()) << "the first node opens when there are two or more";
    EXPECT_FALSE(rig.Node("01").Expanded());

    w.Check1.SetValue(1);
    EXPECT_EQ(CheckedCodes(w.TreeView1), "9 01 0101 010101 010102 0102 010201 02 0201");
    w.TreeView1.UserCheck(rig.Node("9"), false);
    EXPECT_EQ(w.Check1.Value(), 1) << "全选 stays ticked after a single untick";
    w.Check1.SetValue(0);
    EXPECT_EQ(CheckedCodes(w.TreeView1), "");
}

TEST(DeptTree, WhatReachesTheTree) {
    DeptRateRig rig;
    rig.Rates({6});
    rig.db.Department("01", "总\r\n部")
        .Department("0101", "一 区", "01")
        .Department("0301", "孤儿", "03") // parent never listed
        .Department(TestDepartment{.code = "0102", .name = "已撤", .parent = "01", .ended = "2023-01-01"})
        .Department("0103", "旧链")
        .ParentLink({.dept = "0103", .parent = "01", .ended = "2023-06-30"})
        .Department("04", "无链");
    auto& w = rig.Open();
    EXPECT_EQ(NodeTexts(w.TreeView1), (Texts{"01 总部", "0101 一 区", "04 无链"}));
    Texts recs;
    for (std::size_t i = 1; i < w.DeptRecs.size(); ++i)
        recs.push_back(w.DeptRecs[i].DeptCode + "<" + w.DeptRecs[i].ParentCode);
    EXPECT_EQ(recs, (Texts{"01<", "04<", "0101<01", "0301<03"}))
        << "the orphan is read but never placed; an ended department or ended link is not read";
    EXPECT_EQ(w.DeptRecs[0].DeptCode, "") << "element 0 stays empty";
}

TEST(DeptTree, ADepartmentUnderTwoParentsStopsTheSecondParentsChildren) {
    DeptRateRig rig;
    rig.Rates({6});
    rig.db.Department("01", "总部")
        .Department("02", "分公司")
        .Department("0103", "共管", "01")
        .ParentLink({.dept = "0103", .parent = "02"})
        .Department("0201", "分一", "02");
    auto& w = rig.Open();
    // Under 02, 0103 comes first and its key is taken: that level ends before 0201.
    EXPECT_EQ(NodeTexts(w.TreeView1), (Texts{"01 总部", "0103 共管", "02 分公司"}));
    EXPECT_EQ(w.DeptRecs.size(), 6u) << "both links of 0103 are records";
}

TEST(DeptTree, TicksSpreadOverTheIndexRangeOfTheChildren) {
    struct Case {
        const char* why;
        const char* before; // ticked silently first
        const char* node;
        bool tick;
        const char* after;
    };
    const Case cases[] = {
        {"the last child's children are left as they are", "", "01", true, "01 0101 010101 010102 0102"},
        {"unticking covers the same range", "01 0101 010101 010102 0102 010201 02", "01", false, "010201 02"},
        {"a node without children: its own tick only", "", "010101", true, "010101"},
        {"a parent whose children have none", "", "0101", true, "0101 010101 010102"},
        {"the only child is also the last", "", "0102", true, "0102 010201"},
        {"parents are not touched when a child changes", "01 0101", "0101", false, "01"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        DeptRateRig rig;
        auto& w = OpenHierarchy(rig);
        std::istringstream before(c.before);
        for (std::string code; before >> code;) rig.Node(code).SetChecked(true);
        w.TreeView1.UserCheck(rig.Node(c.node), c.tick);
        EXPECT_EQ(CheckedCodes(w.TreeView1), c.after);
    }
}

TEST(DeptRun, ChecksBeforeRunningLeaveTheGridAsItWas) {
    struct Case {
        const char* why;
        bool tick;
        DateTime start, end;
        const char* message;
        bool pickerFocused;
    };
    const Case cases[] = {
        {"start after end", true, Day(2024, 3, 2), Day(2024, 3, 1),
         "开票起始日期不能晚于截止日期，请重新选择！", true},
        {"the date message wins when both checks fail", false, Day(2024, 3, 2), Day(2024, 3, 1),
         "开票起始日期不能晚于截止日期，请重新选择！", true},
        {"nothing ticked", false, Day(2024, 3, 1), Day(2024, 3, 1), "请至少勾选一个统计部门！", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        DeptRateRig rig;
        auto& w = OpenHierarchy(rig);
        rig.Run({"9"}, Day(2024, 1, 1), Day(2024, 1, 31));
        ASSERT_EQ(w.MSFlexGrid1.Rows(), 4);
        rig.Node("9").SetChecked(c.tick);
        w.DTPicker1.SetValue(c.start);
        w.DTPicker2.SetValue(c.end);
        const std::size_t statements = rig.statements.size();
        w.Command3.Click();
        EXPECT_EQ(rig.MessageTexts(), Texts{c.message});
        EXPECT_EQ(rig.dialogs.Messages().at(0).Title, "系统提示");
        EXPECT_EQ(w.DTPicker1.FocusRequests(), c.pickerFocused ? 1 : 0);
        EXPECT_EQ(w.TreeView1.FocusRequests(), c.pickerFocused ? 0 : 1);
        EXPECT_EQ(w.MSFlexGrid1.Rows(), 4) << "the earlier result stays";
        EXPECT_EQ(rig.statements.size(), statements);
        EXPECT_FALSE(w.Picture5.Visible());
    }
}

TEST(DeptRun, AFailedQueryEndsInTheRunTimeReportWithTheWaitPanelShowing) {
    DeptRateRig rig;
    auto& w = OpenHierarchy(rig);
    rig.db.Exec("DROP TABLE 票据开票数据");
    EXPECT_THROW(rig.Run({"01"}, Day(2024, 1, 1), Day(2024, 1, 31)), RuntimeErrorRaised);
    EXPECT_EQ(rig.dialogs.RuntimeErrors().size(), 1u);
    EXPECT_TRUE(w.Picture5.Visible());
    EXPECT_EQ(TheScreen().MousePointer(), kPointerHourglass);
    TheScreen().SetMousePointer(kPointerDefault); // the process would have ended here
}

TEST(DeptRun, NoRateSetEndsTheProgramAfterItsMessage) {
    DeptRateRig rig;
    rig.db.Department("01", "总部");
    rig.Rates({0}); // a zero rate is no rate
    EXPECT_THROW(rig.Open(), ProgramEnded);
    EXPECT_EQ(rig.MessageTexts(), Texts{"没有设置税率，无法统计报表！"});
}

} // namespace
} // namespace quillon
