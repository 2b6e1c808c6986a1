// List, combo and tree models: the current entry, ticks, which changes raise events, the tree's
// Index in adding order, relatives, silent Checked writes, and the old error numbers.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/vb_error.h"
#include "controls/combo_box.h"
#include "controls/error_number.h"
#include "controls/list_box.h"
#include "controls/tree_view.h"

namespace quillon {
namespace {

void AddEntries(ListBox& list) {
    for (const char* entry : {"0101 一区【G01】", "0102 二区【G02】", "0201 三区【G03】"})
        list.AddItem(entry);
}

TEST(ListBox, SettingListIndexClicksOnlyWhenTheEntryChanges) {
    ListBox list;
    AddEntries(list);
    int clicks = 0;
    list.Click.Connect([&] { ++clicks; });
    struct Case {
        const char* why;
        int index, clicks;
        const char* text;
    };
    const Case cases[] = {
        {"-1 on a fresh list: nothing to clear, no click", -1, 0, ""},
        {"choosing an entry clicks", 1, 1, "0102 二区【G02】"},
        {"choosing it again does not", 1, 1, "0102 二区【G02】"},
        {"another entry clicks", 2, 2, "0201 三区【G03】"},
        {"-1 clears the choice and clicks", -1, 3, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        list.SetListIndex(c.index);
        EXPECT_EQ(clicks, c.clicks);
        EXPECT_EQ(list.Text(), c.text);
        EXPECT_EQ(list.ListIndex(), c.index);
    }
}

TEST(ListBox, StandardListSelectionIsTheCurrentEntry) {
    ListBox list;
    AddEntries(list);
    EXPECT_EQ(list.SelCount(), 0);
    list.SetSelected(2, true);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_TRUE(list.Selected(2));
    EXPECT_FALSE(list.Selected(0));
    EXPECT_EQ(list.SelCount(), 1);
    list.SetSelected(0, false); // not the current one: nothing happens
    EXPECT_EQ(list.ListIndex(), 2);
    list.SetSelected(2, false);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.SelCount(), 0);
}

TEST(ListBox, CheckBoxListKeepsTicksApartFromTheCurrentEntry) {
    ListBox list("List2", ListStyle::CheckBox);
    AddEntries(list);
    std::vector<int> checked;
    list.ItemCheck.Connect([&](int i) { checked.push_back(i); });

    // The "全选" walk: tick every entry, then go back to the top.
    for (int i = 0; i < list.ListCount(); ++i) list.SetSelected(i, true);
    EXPECT_EQ(list.ListIndex(), 2) << "each tick makes its entry current";
    list.SetListIndex(0);
    EXPECT_EQ(list.SelCount(), 3);
    EXPECT_EQ(checked, (std::vector<int>{0, 1, 2}));
    EXPECT_TRUE(list.Selected(1)) << "moving the current entry leaves the ticks";

    list.SetSelected(1, false);
    EXPECT_EQ(list.SelCount(), 2);
    EXPECT_FALSE(list.Selected(1));
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST(ListBox, OutOfRangeReadsGiveEmptyWritesFail) {
    ListBox list;
    AddEntries(list);
    EXPECT_EQ(list.List(3), "");
    EXPECT_EQ(list.List(-1), "");
    EXPECT_FALSE(list.Selected(7));
    EXPECT_EQ(ErrorNumberOf([&] { list.SetListIndex(3); }), kErrInvalidPropertyValue);
    EXPECT_EQ(ErrorNumberOf([&] { list.SetSelected(3, true); }), kErrInvalidArrayIndex);
    EXPECT_EQ(ErrorNumberOf([&] { list.AddItem("x", 5); }), kErrInvalidProcCall) << "AddItem beyond the end";
}

TEST(ComboBox, PickingAnEntryClicksTypingChanges) {
    ComboBox combo;
    for (const char* m : {"01", "02", "03"}) combo.AddItem(m);
    int clicks = 0;
    int changes = 0;
    combo.Click.Connect([&] { ++clicks; });
    combo.Change.Connect([&] { ++changes; });
    combo.SetListIndex(1);
    EXPECT_EQ(combo.Text(), "02");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(changes, 0);
    combo.SetText("03"); // a text equal to an entry chooses it
    EXPECT_EQ(combo.ListIndex(), 2);
    combo.SetText("2049"); // any text is taken
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "2049");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(clicks, 1);
}

TEST(TreeView, IndexIsAddingOrderAndRelativesFollowTheTree) {
    TreeView tree;
    tree.Add("", tvwLast, "$01", "01 总部", 1);
    tree.Add("", tvwLast, "$02", "02 分部", 1);
    tree.Add("$01", tvwChild, "$0101", "0101 一区", 2); // added third, shown second
    tree.Add("$01", tvwChild, "$0102", "0102 二区", 2);
    tree.Add("$01", tvwChild, "$0103", "0103 三区", 2);
    tree.Add("$0101", tvwChild, "$010101", "010101 一组", 2);

    TreeNode& root = tree.Nodes("$01");
    ASSERT_NE(root.Child(), nullptr);
    struct Case {
        const char* why;
        const TreeNode* node;
        int index;
    };
    const Case cases[] = {
        {"first root", &root, 1},
        {"second root was added before the children", root.Next(), 2},
        {"first child", root.Child(), 3},
        {"last child", root.Child()->LastSibling(), 5},
        {"a grandchild added last, though shown third", &tree.Nodes("$010101"), 6},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        ASSERT_NE(c.node, nullptr);
        EXPECT_EQ(c.node->Index(), c.index);
    }
    EXPECT_EQ(tree.Nodes(3).Key(), "$0101");
    std::vector<int> inIndexOrder;
    for (const TreeNode& node : tree.Nodes()) inIndexOrder.push_back(node.Index());
    EXPECT_EQ(inIndexOrder, (std::vector<int>{1, 2, 3, 4, 5, 6}));

    const TreeNode& middle = tree.Nodes("$0102");
    EXPECT_EQ(middle.Parent()->Key(), "$01");
    EXPECT_EQ(middle.FirstSibling()->Key(), "$0101");
    EXPECT_EQ(middle.LastSibling()->Key(), "$0103");
    EXPECT_EQ(middle.Next()->Key(), "$0103");
    EXPECT_EQ(middle.Previous()->Key(), "$0101");
    EXPECT_EQ(middle.Children(), 0);
    EXPECT_EQ(middle.Child(), nullptr);
    EXPECT_EQ(tree.Nodes("$0103").Next(), nullptr);
    EXPECT_EQ(root.Parent(), nullptr);
    EXPECT_EQ(root.Children(), 3);
    EXPECT_EQ(tree.Nodes("$02").FirstSibling()->Key(), "$01") << "roots are siblings of each other";
    EXPECT_EQ(tree.Nodes("$010101").FirstSibling()->Key(), "$010101") << "a lone child is its own sibling";
}

TEST(TreeView, CheckedFromCodeIsSilentUserTickRaisesNodeCheck) {
    TreeView tree;
    tree.Add("", tvwLast, "$1", "1 甲");
    tree.Add("$1", tvwChild, "$11", "11 乙");
    tree.Add("$1", tvwChild, "$12", "12 丙");
    std::vector<std::string> events;
    // A handler like the department window's: ticks the children by index range from code.
    tree.NodeCheck.Connect([&](TreeNode& node) {
        events.push_back(node.Key());
        if (node.Children() < 1) return;
        for (int i = node.Child()->Index(); i <= node.Child()->LastSibling()->Index(); ++i)
            tree.Nodes(i).SetChecked(node.Checked());
    });

    tree.Nodes(2).SetChecked(true);
    EXPECT_TRUE(events.empty()) << "a write from code raises nothing";
    tree.UserCheck(tree.Nodes("$1"), true);
    EXPECT_EQ(events, std::vector<std::string>{"$1"}) << "the handler's own writes raise nothing more";
    EXPECT_TRUE(tree.Nodes("$11").Checked());
    EXPECT_TRUE(tree.Nodes("$12").Checked());
    tree.UserCheck(tree.Nodes("$12"), false);
    EXPECT_EQ(events.size(), 2u);
    EXPECT_FALSE(tree.Nodes("$12").Checked());
    EXPECT_TRUE(tree.Nodes("$1").Checked()) << "a parent is not touched by its child";
}

TEST(TreeView, KeyErrorsCarryTheOldNumbers) {
    TreeView tree;
    tree.Add("", tvwLast, "$01", "01 总部");
    struct Case {
        const char* why;
        std::function<void()> act;
        long number;
    };
    const Case cases[] = {
        {"duplicate key", [&] { tree.Add("", tvwLast, "$01", "01 again"); }, kErrKeyNotUnique},
        {"unknown relative", [&] { tree.Add("$99", tvwChild, "$9901", "x"); }, kErrElementNotFound},
        {"unknown key", [&] { (void)tree.Nodes("$02"); }, kErrElementNotFound},
        {"index past the end", [&] { (void)tree.Nodes(2); }, kErrIndexOutOfBounds},
        {"bad relationship", [&] { tree.Add("$01", 7, "$x", "x"); }, kErrInvalidProcCall},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(ErrorNumberOf(c.act), c.number);
    }
    EXPECT_EQ(tree.Count(), 1) << "a refused add leaves no node behind";
    try {
        tree.Add("", tvwLast, "$01", "dup");
        ADD_FAILURE() << "duplicate accepted";
    } catch (const VbError& e) {
        EXPECT_EQ(e.Description, "关键字不唯一");
    }
}

} // namespace
} // namespace quillon
