// Tree model: Index in adding order, relatives, silent Checked writes, user ticks, key errors.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/vb_error.h"
#include "controls/tree_view.h"

namespace quillon {
namespace {

long ErrorNumberOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const VbError& e) {
        return e.Number;
    }
    return 0;
}

TEST(TreeView, IndexIsAddingOrderNotTreeOrder) {
    TreeView tree;
    tree.Add("", tvwLast, "$01", "01 总部", 1);
    tree.Add("", tvwLast, "$02", "02 分部", 1);
    tree.Add("$01", tvwChild, "$0101", "0101 一区", 2); // added third, shown second
    tree.Add("$01", tvwChild, "$0102", "0102 二区", 2);

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
        {"last child", root.Child()->LastSibling(), 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        ASSERT_NE(c.node, nullptr);
        EXPECT_EQ(c.node->Index(), c.index);
    }
    EXPECT_EQ(tree.Nodes(3).Key(), "$0101");
    EXPECT_EQ(tree.Nodes().Count(), 4);

    std::vector<int> inIndexOrder;
    for (const TreeNode& node : tree.Nodes()) inIndexOrder.push_back(node.Index());
    EXPECT_EQ(inIndexOrder, (std::vector<int>{1, 2, 3, 4}));
}

TEST(TreeView, RelativesOfANode) {
    TreeView tree;
    tree.Add("", tvwLast, "$1", "1 甲");
    tree.Add("$1", tvwChild, "$11", "11 子一");
    tree.Add("$1", tvwChild, "$12", "12 子二");
    tree.Add("$1", tvwChild, "$13", "13 子三");
    tree.Add("$11", tvwChild, "$111", "111 孙");

    const TreeNode& middle = tree.Nodes("$12");
    EXPECT_EQ(middle.Parent()->Key(), "$1");
    EXPECT_EQ(middle.FirstSibling()->Key(), "$11");
    EXPECT_EQ(middle.LastSibling()->Key(), "$13");
    EXPECT_EQ(middle.Next()->Key(), "$13");
    EXPECT_EQ(middle.Previous()->Key(), "$11");
    EXPECT_EQ(middle.Children(), 0);
    EXPECT_EQ(middle.Child(), nullptr);
    EXPECT_EQ(tree.Nodes("$13").Next(), nullptr);
    EXPECT_EQ(tree.Nodes("$1").Parent(), nullptr);
    EXPECT_EQ(tree.Nodes("$1").Children(), 3);
    EXPECT_EQ(tree.Nodes("$1").FirstSibling()->Key(), "$1") << "a lone root is its own sibling";
    EXPECT_EQ(tree.Nodes("$111").Index(), 5);
}

TEST(TreeView, RelationshipsPlaceTheNodeAmongSiblings) {
    struct Case {
        const char* why;
        int relationship;
        std::vector<std::string> order; // keys of the roots after the add
    };
    const Case cases[] = {
        {"first", tvwFirst, {"$new", "$a", "$b", "$c"}},
        {"last", tvwLast, {"$a", "$b", "$c", "$new"}},
        {"next", tvwNext, {"$a", "$b", "$new", "$c"}},
        {"previous", tvwPrevious, {"$a", "$new", "$b", "$c"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        TreeView tree;
        for (const char* key : {"$a", "$b", "$c"}) tree.Add("", tvwLast, key, key);
        tree.Add("$b", c.relationship, "$new", "new");
        std::vector<std::string> order;
        for (const TreeNode* node : tree.Roots()) order.push_back(node->Key());
        EXPECT_EQ(order, c.order);
        EXPECT_EQ(tree.Nodes("$new").Index(), 4);
    }
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
