// The pager: page arithmetic, the four page buttons, the page box, and the cases where no run
// has made rows (nothing may read a row below 1 or divide by a page size of 0).
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "controls/flex_grid.h"
#include "controls/label.h"
#include "controls/text_box.h"
#include "workbench/grid_pager.h"

namespace quillon {
namespace {

// A report whose rows are their own indexes; the writer puts r in column 0 and records it.
struct PagerRig {
    FlexGrid grid;
    Label label{"Label19", kEmptyPageLabel};
    TextBox box{"Text6"};
    std::optional<int> rows; // nothing: no run yet
    std::vector<int> written;
    GridPager pager{grid,
                    label,
                    box,
                    {[this] { return rows; },
                     [this](int r) {
                         written.push_back(r);
                         grid.SetTextMatrix(grid.Row(), 0, std::to_string(r));
                     }}};

    PagerRig(int pageSize, std::optional<int> rowCount) : rows(rowCount) {
        grid.SetRows(2);
        grid.SetFixedRows(2);
        pager.PageSize = pageSize;
        if (rows && *rows > 0) pager.SetPageCount(*rows);
        pager.CurrentPage = 1;
        box.KeyPress.Connect([this](int& key) { pager.Text6_KeyPress(key); });
    }
    // Column 0 of the rows under the header.
    std::vector<std::string> Shown() const {
        std::vector<std::string> shown;
        for (int r = 2; r < grid.Rows(); ++r) shown.push_back(grid.TextMatrix(r, 0));
        return shown;
    }
    void Enter(const std::string& text) {
        box.SetText(text);
        box.PressKey(13);
    }
};

using Shown = std::vector<std::string>;

TEST(GridPager, PageCountAndRowsOfEachPage) {
    struct Case {
        const char* why;
        int pageSize, rows, pageCount, page;
        Shown shown;
    };
    const Case cases[] = {
        {"one row", 3, 1, 1, 1, {"1"}},
        {"exactly one page", 3, 3, 1, 1, {"1", "2", "3"}},
        {"one row over a page", 3, 4, 2, 2, {"4"}},
        {"a middle page", 3, 10, 4, 2, {"4", "5", "6"}},
        {"the last, short page", 3, 10, 4, 4, {"10"}},
        {"a page past the rows is empty", 3, 10, 4, 5, {}},
        {"page size 0 pages one row at a time", 0, 3, 3, 2, {"2"}},
        {"a negative page size too", -4, 3, 3, 3, {"3"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        PagerRig rig(c.pageSize, c.rows);
        EXPECT_EQ(rig.pager.PageCount, c.pageCount);
        rig.pager.RenderPage(c.page);
        EXPECT_EQ(rig.Shown(), c.shown);
        EXPECT_TRUE(rig.grid.Visible());
        EXPECT_TRUE(rig.grid.Redraw());
    }
}

TEST(GridPager, LabelShowsTwoDigitsOrTheWholeNumber) {
    PagerRig rig(1, 120);
    rig.pager.RenderPage(3);
    EXPECT_EQ(rig.label.Caption(), "第 01 页 共 120 页") << "RenderPage labels CurrentPage, not its argument";
    rig.pager.CurrentPage = 100;
    rig.pager.ShowPageLabel();
    EXPECT_EQ(rig.label.Caption(), "第 100 页 共 120 页");
}

TEST(GridPager, PageButtons) {
    struct Case {
        const char* why;
        int from, index, to;
    };
    // Ten rows, three to a page: four pages.
    const Case cases[] = {
        {"首页", 3, 0, 1},
        {"上一页", 3, 1, 2},
        {"上一页 on the first page stays", 1, 1, 1},
        {"下一页", 2, 2, 3},
        {"下一页 on the last page stays", 4, 2, 4},
        {"尾页", 1, 3, 4},
        {"an index no image has changes nothing", 2, 7, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        PagerRig rig(3, 10);
        rig.pager.CurrentPage = c.from;
        rig.pager.Image2_Click(c.index);
        EXPECT_EQ(rig.pager.CurrentPage, c.to);
        if (c.index <= 3) {
            // Rendered also when the page did not change.
            const int first = (c.to - 1) * 3 + 1;
            ASSERT_FALSE(rig.written.empty());
            EXPECT_EQ(rig.written.front(), first);
        } else {
            EXPECT_TRUE(rig.written.empty());
        }
    }
}

TEST(GridPager, PageBoxTakesTheNumericPrefixOnEnter) {
    struct Case {
        const char* text;
        int page;          // CurrentPage afterwards (it starts at 1)
        const char* after; // Text6 afterwards
        Shown shown;       // first rows shown, when a page was rendered
    };
    // Ten rows, two to a page: five pages.
    const Case cases[] = {
        {"2abc", 2, "2abc", {"3", "4"}},
        {"2.5", 2, "2.5", {"3", "4"}},
        {"3.5", 4, "3.5", {"7", "8"}},
        {"5", 5, "5", {"9", "10"}},
        {"abc", 1, "", {}},
        {"0", 1, "", {}},
        {"6", 1, "", {}},
        {"-1", 1, "", {}},
        {"0.4", 0, "0.4", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        PagerRig rig(2, 10);
        rig.Enter(c.text);
        EXPECT_EQ(rig.pager.CurrentPage, c.page);
        EXPECT_EQ(rig.box.Text(), c.after);
        EXPECT_EQ(rig.Shown(), c.shown);
        for (int r : rig.written) EXPECT_GE(r, 1) << "no row below 1 is read";
    }
}

TEST(GridPager, OtherKeysAndAOneRowGridDoNothing) {
    PagerRig rig(2, 10);
    rig.box.SetText("3");
    EXPECT_EQ(rig.box.PressKey('3'), '3');
    EXPECT_EQ(rig.pager.CurrentPage, 1);
    rig.grid.SetFixedRows(1);
    rig.grid.SetRows(1);
    rig.box.PressKey(13);
    rig.pager.Image2_Click(3);
    EXPECT_EQ(rig.pager.CurrentPage, 1);
    EXPECT_TRUE(rig.written.empty());
}

TEST(GridPager, WithoutRowsAClickRendersAnEmptyPage) {
    struct Case {
        const char* why;
        std::optional<int> rows;
        int index;
        int page;
        const char* label;
    };
    const Case cases[] = {
        {"before any run", std::nullopt, 0, 1, "第 01 页 共 00 页"},
        {"before any run, 尾页 with no page count", std::nullopt, 3, 0, "第 00 页 共 00 页"},
        {"after a run without rows, 下一页", 0, 2, 0, "第 00 页 共 00 页"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        PagerRig rig(5, c.rows);
        rig.pager.Image2_Click(c.index);
        EXPECT_EQ(rig.pager.CurrentPage, c.page);
        EXPECT_EQ(rig.label.Caption(), c.label);
        EXPECT_EQ(rig.grid.Rows(), 2);
        EXPECT_TRUE(rig.written.empty());
    }
}

} // namespace
} // namespace quillon
