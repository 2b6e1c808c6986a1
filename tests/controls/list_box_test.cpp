// List and combo models: the current entry, ticks, and which changes raise Click.
#include <gtest/gtest.h>

#include <string>

#include "base/vb_error.h"
#include "controls/combo_box.h"
#include "controls/list_box.h"

namespace quillon {
namespace {

void AddEntries(ListBox& list) {
    list.AddItem("0101 一区【G01】");
    list.AddItem("0102 二区【G02】");
    list.AddItem("0201 三区【G03】");
}

TEST(ListBox, SettingListIndexClicksOnlyWhenTheEntryChanges) {
    ListBox list;
    AddEntries(list);
    int clicks = 0;
    list.Click.Connect([&] { ++clicks; });

    struct Case {
        const char* why;
        int index;
        int clicks;
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

TEST(ListBox, InsertingAndRemovingKeepTheCurrentEntryOnItsText) {
    ListBox list;
    AddEntries(list);
    list.SetListIndex(1);

    list.AddItem("0001 总部【G00】", 0);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(list.Text(), "0102 二区【G02】");

    list.RemoveItem(0);
    EXPECT_EQ(list.Text(), "0102 二区【G02】");
    list.RemoveItem(1);
    EXPECT_EQ(list.ListIndex(), -1) << "the current entry is gone";

    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
}

TEST(ListBox, OutOfRangeReadsGiveEmptyWritesFail) {
    ListBox list;
    AddEntries(list);
    EXPECT_EQ(list.List(3), "");
    EXPECT_EQ(list.List(-1), "");
    EXPECT_FALSE(list.Selected(7));

    struct Case {
        const char* why;
        void (*act)(ListBox&);
        long number;
    };
    const Case cases[] = {
        {"ListIndex past the end", [](ListBox& l) { l.SetListIndex(3); }, kErrInvalidPropertyValue},
        {"Selected past the end", [](ListBox& l) { l.SetSelected(3, true); }, kErrInvalidArrayIndex},
        {"AddItem beyond the end", [](ListBox& l) { l.AddItem("x", 5); }, kErrInvalidProcCall},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        try {
            c.act(list);
            ADD_FAILURE() << "accepted";
        } catch (const VbError& e) {
            EXPECT_EQ(e.Number, c.number);
        }
    }
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

} // namespace
} // namespace quillon
