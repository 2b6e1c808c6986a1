// The split table: one row per parking item with 70/30, the box over the clicked cell, Enter
// moving from the developer's to the property company's column, the sum check, and the share
// the statements take from the cells.
#include <gtest/gtest.h>

#include "base/vb_error.h"
#include "controls/flex_grid.h"
#include "controls/scripted_dialogs.h"
#include "controls/text_box.h"
#include "workbench/split_ratio_table.h"

namespace quillon {
namespace {

struct SplitRig {
    FlexGrid grid{"MSFlexGrid2"};
    TextBox box{"txtGRD"};
    ScriptedDialogs dialogs;
    SplitRatioTable table{grid, box, dialogs};

    SplitRig() {
        grid.Move(120, 840, 5160, 1200);
        table.InitGrid();
        table.FillSplitRatioTable({
            {.CodeLiteral = "'P1'", .ColumnName = "停车费月租", .Category = "停车服务"},
            {.CodeLiteral = "'WY'", .ColumnName = "物业管理费", .Category = "物业"},
            {.CodeLiteral = "'P2'", .ColumnName = "临时停车费", .Category = "临时停车"},
        });
        grid.Click.Connect([this] { table.MSFlexGrid2_Click(); });
        box.KeyPress.Connect([this](int& key) { table.txtGRD_KeyPress(key); });
    }
    void Type(const std::string& text) {
        box.SetText(text);
        box.PressKey(13);
    }
    std::vector<std::string> Row(int r) const {
        std::vector<std::string> cells;
        for (int c = 0; c < grid.Cols(); ++c) cells.push_back(grid.TextMatrix(r, c));
        return cells;
    }
    int Messages() const { return static_cast<int>(dialogs.Messages().size()); }
};

using Cells = std::vector<std::string>;

TEST(SplitRatioTable, OneRowPerParkingItemWithTheDefaults) {
    SplitRig rig;
    ASSERT_EQ(rig.grid.Rows(), 3) << "the ordinary item has no row";
    EXPECT_EQ(rig.Row(0), (Cells{"序  ", "停车费项目                   ", "开发商 ", "物业公司", ""}));
    EXPECT_EQ(rig.Row(1), (Cells{"1", "停车费月租", "70", "30", "'P1'"}));
    EXPECT_EQ(rig.Row(2), (Cells{"2", "临时停车费", "70", "30", "'P2'"}));
    EXPECT_EQ(rig.grid.ColWidth(kSplitCodeCol), 0);
    EXPECT_EQ(rig.table.RowOf("'P2'"), 2);
    EXPECT_EQ(rig.table.RowOf("'WY'"), -1);
    EXPECT_FALSE(rig.box.Visible());

    rig.table.FillSplitRatioTable({});
    EXPECT_EQ(rig.grid.Rows(), 1) << "no parking item: the caption row alone";
}

TEST(SplitRatioTable, TheBoxOpensOverTheClickedPercentageCell) {
    SplitRig rig;
    rig.grid.ClickCell(2, kSplitPropertyCol);
    ASSERT_TRUE(rig.box.Visible());
    EXPECT_EQ(rig.box.Left(), rig.grid.Left() + rig.grid.CellLeft());
    EXPECT_EQ(rig.box.Top(), rig.grid.Top() + rig.grid.CellTop());
    EXPECT_EQ(rig.box.Width(), rig.grid.CellWidth());
    EXPECT_EQ(rig.box.Height(), rig.grid.CellHeight());
    EXPECT_EQ(rig.box.Text(), "30");
    EXPECT_EQ(rig.box.SelLength(), 2) << "the whole text selected, so typing replaces it";
    EXPECT_GT(rig.box.FocusRequests(), 0);

    rig.box.SetText("45"); // typed, no Enter
    rig.grid.ClickCell(2, kSplitItemCol);
    EXPECT_FALSE(rig.box.Visible());
    EXPECT_EQ(rig.grid.TextMatrix(2, kSplitPropertyCol), "30") << "a click elsewhere drops the typing";
}

TEST(SplitRatioTable, EnterMovesOnAndChecksTheSum) {
    struct Case {
        const char* why;
        const char* developer;
        const char* property;
        bool refused;
    };
    const Case cases[] = {
        {"whole numbers", "60", "40", false},
        {"decimals adding up", "35.5", "64.5", false},
        {"the check reads numeric prefixes", "70", "30%", false},
        {"short of 100", "50", "30", true},
        {"no number at all", "abc", "100", false},
        {"empty property cell", "100", "", false},
        {"over 100", "80", "30", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        SplitRig rig;
        rig.grid.ClickCell(1, kSplitDeveloperCol);
        rig.Type(c.developer);
        EXPECT_EQ(rig.grid.Col(), kSplitPropertyCol) << "Enter on the developer's column goes on";
        EXPECT_TRUE(rig.box.Visible());
        EXPECT_EQ(rig.Messages(), 0) << "no check yet";
        rig.Type(c.property);
        EXPECT_EQ(rig.Row(1), (Cells{"1", "停车费月租", c.developer, c.property, "'P1'"}))
            << "the cells keep what was typed";
        if (c.refused) {
            ASSERT_EQ(rig.Messages(), 1);
            EXPECT_EQ(rig.dialogs.Messages()[0].Text, kSplitSumMessage);
            EXPECT_EQ(rig.dialogs.Messages()[0].Title, "系统提示");
            EXPECT_EQ(rig.grid.Col(), kSplitDeveloperCol) << "back to the developer's figure";
            EXPECT_TRUE(rig.box.Visible());
            EXPECT_EQ(rig.box.Text(), c.developer);
        } else {
            EXPECT_EQ(rig.Messages(), 0);
            EXPECT_FALSE(rig.box.Visible());
        }
    }
}

TEST(SplitRatioTable, EnterOnThePropertyColumnAloneStillChecks) {
    SplitRig rig;
    rig.grid.ClickCell(2, kSplitPropertyCol);
    rig.Type("20");
    ASSERT_EQ(rig.Messages(), 1) << "70 and 20, whichever cell was changed";
    EXPECT_EQ(rig.grid.TextMatrix(2, kSplitPropertyCol), "20");
}

TEST(SplitRatioTable, ShareIsTheStrictlyConvertedPropertyPercentAsAFraction) {
    struct Case {
        const char* cell;
        const char* share; // nullptr: error 13
    };
    const Case cases[] = {
        {"30", "0.3"},         {"33.5", "0.335"}, {"0", "0"},    {"100", "1"},
        {" 12.25 ", "0.1225"}, {"30%", nullptr},  {"", nullptr}, {"abc", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.cell);
        SplitRig rig;
        rig.grid.SetTextMatrix(1, kSplitPropertyCol, c.cell);
        if (c.share) {
            EXPECT_EQ(rig.table.ShareText("'P1'"), c.share);
        } else {
            try {
                rig.table.ShareText("'P1'");
                ADD_FAILURE() << "no error";
            } catch (const VbError& e) {
                EXPECT_EQ(e.Number, 13);
            }
        }
    }
}

} // namespace
} // namespace quillon
