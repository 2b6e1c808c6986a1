// Grid model: shape changes, the current cell, FormatString, cell geometry, notifications.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/vb_error.h"
#include "controls/error_number.h"
#include "controls/flex_grid.h"

namespace quillon {
namespace {

TEST(FlexGrid, ShrinkingDropsCellsAndGrowingBackGivesEmptyOnes) {
    FlexGrid grid;
    grid.SetRows(4);
    grid.SetCols(3);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 3; ++c) grid.SetTextMatrix(r, c, std::to_string(r) + "," + std::to_string(c));
    grid.SetColWidth(2, 1300);
    grid.SetRowHeight(3, 600);
    grid.SetRow(3);
    grid.SetCol(2);

    grid.SetRows(2); // what a run does to drop the result and keep the header
    grid.SetCols(2);
    EXPECT_EQ(grid.Row(), 1) << "the current cell follows the shrinking grid";
    EXPECT_EQ(grid.Col(), 1);
    grid.SetRows(4);
    grid.SetCols(3);
    struct Case {
        const char* why;
        int row, col;
        const char* text;
    };
    const Case cases[] = {
        {"inside both limits the text stays", 1, 1, "1,1"},
        {"header row stays", 0, 1, "0,1"},
        {"a dropped row comes back empty", 3, 0, ""},
        {"a dropped column comes back empty", 1, 2, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(grid.TextMatrix(c.row, c.col), c.text);
    }
    EXPECT_EQ(grid.ColWidth(2), kDefaultColWidth) << "a dropped column's width goes with it";
    EXPECT_EQ(grid.RowHeight(3), kDefaultRowHeight) << "a dropped row's height goes with it";

    grid.SetRows(1); // "Rows = 1" is how the summary window empties its grid, below FixedRows
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.Row(), 0);
    grid.SetRows(2);
    grid.SetRow(1);
    EXPECT_EQ(grid.Row(), 1);
}

TEST(FlexGrid, CellFormatsBelongToTheCurrentCellOnly) {
    FlexGrid grid;
    grid.SetRows(3);
    grid.SetCols(4);
    grid.SetColAlignment(1, flexAlignCenterCenter);
    grid.SetFixedAlignment(2, flexAlignCenterCenter);
    grid.SetRow(2);
    grid.SetCol(2);
    grid.SetCellBackColor(0xFFC0C0);
    grid.SetCellForeColor(0xFF0000);
    grid.SetCellAlignment(flexAlignRightCenter);

    struct Case {
        const char* why;
        int row, col;
        std::uint32_t back, fore;
        int alignment;
    };
    const Case cases[] = {
        {"the cell that was current", 2, 2, 0xFFC0C0, 0xFF0000, flexAlignRightCenter},
        {"its neighbour keeps the window colours", 2, 3, kColorWindow, kColorWindowText, flexAlignGeneral},
        {"a scrolling cell takes ColAlignment", 1, 1, kColorWindow, kColorWindowText, flexAlignCenterCenter},
        {"a fixed cell takes FixedAlignment", 0, 2, kColorButtonFace, kColorButtonText,
         flexAlignCenterCenter},
        {"FixedAlignment unset follows ColAlignment", 0, 1, kColorButtonFace, kColorButtonText,
         flexAlignCenterCenter},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(grid.BackColorAt(c.row, c.col), c.back);
        EXPECT_EQ(grid.ForeColorAt(c.row, c.col), c.fore);
        EXPECT_EQ(grid.AlignmentAt(c.row, c.col), c.alignment);
    }

    grid.SetCol(3);
    EXPECT_EQ(grid.CellBackColor(), 0u) << "an unset cell colour reads 0, as the old grid answered";
    grid.SetCellBackColor(kColorWindow); // what un-marking a summary row writes
    EXPECT_EQ(grid.CellBackColor(), kColorWindow);
    grid.SetCol(2);
    grid.SetCellBackColor(0); // 0 restores the grid's own colour
    EXPECT_EQ(grid.BackColorAt(2, 2), kColorWindow);
}

TEST(FlexGrid, RefusesIndexesOutsideTheGridWithTheOldNumbers) {
    struct Case {
        const char* why;
        void (*act)(FlexGrid&);
        long number;
    };
    const Case cases[] = {
        {"Row beyond the last row", [](FlexGrid& g) { g.SetRow(3); }, kErrInvalidRowValue},
        {"Col beyond the last column", [](FlexGrid& g) { g.SetCol(2); }, kErrInvalidColValue},
        {"TextMatrix outside", [](FlexGrid& g) { (void)g.TextMatrix(3, 0); }, kErrInvalidArrayIndex},
        {"Rows below FixedRows", [](FlexGrid& g) { g.SetRows(1); }, kErrInvalidRowValue},
        {"alignment 10", [](FlexGrid& g) { g.SetColAlignment(0, 10); }, kErrInvalidPropertyValue},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        FlexGrid grid;
        grid.SetRows(3);
        grid.SetFixedRows(2);
        EXPECT_EQ(ErrorNumberOf([&] { c.act(grid); }), c.number);
    }
}

TEST(FlexGrid, FormatStringOfTheSummaryGridAndARowPart) {
    FlexGrid grid;
    grid.SetCols(12); // the format string sets Cols even when the grid had more
    grid.SetFormatString(
        "^序  |<管理项目名称      |<收费项目      |>金额        |>税额        |>收入        |^操作 ||");

    ASSERT_EQ(grid.Cols(), 9);
    // Widths: 180 per CJK character, 90 per blank, plus the 120 margin.
    struct Case {
        const char* caption;
        int alignment;
        int width;
    };
    const Case cases[] = {
        {"序  ", flexAlignCenterCenter, 360 + 120},
        {"管理项目名称      ", flexAlignLeftCenter, 1080 + 540 + 120},
        {"收费项目      ", flexAlignLeftCenter, 720 + 540 + 120},
        {"金额        ", flexAlignRightCenter, 360 + 720 + 120},
        {"税额        ", flexAlignRightCenter, 360 + 720 + 120},
        {"收入        ", flexAlignRightCenter, 360 + 720 + 120},
        {"操作 ", flexAlignCenterCenter, 360 + 90 + 120},
        {"", flexAlignGeneral, 120},
        {"", flexAlignGeneral, 120},
    };
    for (int col = 0; col < 9; ++col) {
        SCOPED_TRACE("column " + std::to_string(col));
        EXPECT_EQ(grid.TextMatrix(0, col), cases[col].caption) << "captions keep their padding blanks";
        EXPECT_EQ(grid.ColAlignment(col), cases[col].alignment);
        EXPECT_EQ(grid.ColWidth(col), cases[col].width);
    }
    EXPECT_EQ(grid.Rows(), 2) << "without a row part the rows stay";

    FlexGrid rowPart; // after ";" the captions fill column 0
    rowPart.SetFormatString("|^甲|^乙;|第一行|二");
    EXPECT_EQ(rowPart.Cols(), 3);
    EXPECT_EQ(rowPart.Rows(), 3);
    EXPECT_EQ(rowPart.TextMatrix(0, 0), "") << "the corner comes from the column part";
    EXPECT_EQ(rowPart.TextMatrix(1, 0), "第一行");
    EXPECT_EQ(rowPart.TextMatrix(2, 0), "二");
    EXPECT_EQ(rowPart.TextMatrix(0, 1), "甲");
    EXPECT_EQ(rowPart.ColWidth(0), 540 + 120) << "column 0 as wide as its longest row caption";
}

TEST(FlexGrid, CellGeometryIsTheSumOfWidthsAndHeightsBeforeTheCell) {
    FlexGrid grid;
    grid.SetRows(20);
    grid.SetCols(5);
    const int widths[] = {500, 900, 600, 1300, 1200};
    for (int c = 0; c < 5; ++c) grid.SetColWidth(c, widths[c]);
    grid.SetRowHeight(2, 600);

    struct Case {
        const char* why;
        int row, col, topRow, leftCol;
        int left, top, width, height;
    };
    const Case cases[] = {
        {"first scrolling cell", 1, 1, 1, 1, 500, 240, 900, 240},
        {"after a tall row", 3, 3, 1, 1, 500 + 900 + 600, 240 + 240 + 600, 1300, 240},
        {"the tall row itself", 2, 4, 1, 1, 3300, 480, 1200, 600},
        {"scrolled down: rows above TopRow are off screen", 5, 1, 4, 1, 500, 240 + 240, 900, 240},
        {"scrolled right: fixed column stays", 1, 3, 1, 2, 500 + 600, 240, 1300, 240},
        {"a fixed cell ignores scrolling", 0, 0, 4, 2, 0, 0, 500, 240},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        grid.SetTopRow(c.topRow);
        grid.SetLeftCol(c.leftCol);
        grid.SetRow(c.row);
        grid.SetCol(c.col);
        EXPECT_EQ(grid.CellLeft(), c.left);
        EXPECT_EQ(grid.CellTop(), c.top);
        EXPECT_EQ(grid.CellWidth(), c.width);
        EXPECT_EQ(grid.CellHeight(), c.height);
    }
}

TEST(FlexGrid, ChangingTheFixedBandScrollsBackToItsFirstScrollingCell) {
    // A grid without fixed columns (the reconciliation grid) must show its column 0.
    FlexGrid grid;
    grid.SetRows(10);
    grid.SetCols(4);
    grid.SetTopRow(5);
    grid.SetFixedCols(0);
    grid.SetFixedRows(2);
    EXPECT_EQ(grid.LeftCol(), 0);
    EXPECT_EQ(grid.TopRow(), 2);
    grid.SetRow(2);
    grid.SetCol(0);
    EXPECT_EQ(grid.CellLeft(), 0);
    EXPECT_EQ(grid.CellTop(), 2 * kDefaultRowHeight);
}

TEST(FlexGrid, FrozenColumnsStayPutAsFixedOnesDoButStayScrollingCells) {
    FlexGrid grid; // no fixed column, as the reconciliation grid
    grid.SetRows(6);
    grid.SetCols(10);
    grid.SetFixedCols(0);
    grid.SetFixedRows(2);
    grid.SetLeftCol(5);
    grid.SetFrozenCols(3);
    EXPECT_EQ(grid.StillCols(), 3);
    EXPECT_EQ(grid.LeftCol(), 3) << "freezing starts the view at the first column right of the frozen ones";
    grid.SetLeftCol(1);
    EXPECT_EQ(grid.LeftCol(), 3) << "frozen columns never scroll";
    grid.SetLeftCol(6);
    struct Case {
        const char* why;
        int col;
        int left;
    };
    const Case cases[] = {
        {"a frozen column keeps its place", 2, 2 * kDefaultColWidth},
        {"the first column on screen right of them", 6, 3 * kDefaultColWidth},
        {"a column scrolled off lies left of the frozen band's edge", 4, 1 * kDefaultColWidth},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        grid.SetRow(3);
        grid.SetCol(c.col);
        EXPECT_EQ(grid.CellLeft(), c.left);
    }
    EXPECT_FALSE(grid.IsFixedCell(3, 1)) << "a frozen cell still looks and clicks as a scrolling one";
    grid.ClickCell(3, 1);
    EXPECT_EQ(grid.Col(), 1);

    grid.SetFrozenCols(40);
    EXPECT_EQ(grid.StillCols(), 9) << "the last column always scrolls";
    grid.SetFrozenCols(1);
    grid.SetFixedCols(2);
    EXPECT_EQ(grid.StillCols(), 2) << "fixed columns reach further than the freeze";
    grid.SetFrozenCols(0);
    EXPECT_EQ(grid.StillCols(), 2);
    EXPECT_THROW(grid.SetFrozenCols(-1), VbError);
}

TEST(FlexGrid, ClickOnAScrollingCellMakesItCurrentClickOnAHeaderDoesNot) {
    FlexGrid grid;
    grid.SetRows(5);
    grid.SetCols(9);
    int clicks = 0;
    int doubles = 0;
    grid.Click.Connect([&] { ++clicks; });
    grid.DblClick.Connect([&] { ++doubles; });

    grid.ClickCell(3, 6);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 6);

    grid.ClickCell(0, 2);
    EXPECT_EQ(grid.Row(), 3) << "a header click leaves the current cell";
    EXPECT_EQ(grid.MouseRow(), 0);
    EXPECT_EQ(grid.MouseCol(), 2);

    grid.DblClickCell(4, 6);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(doubles, 1);
    EXPECT_EQ(grid.Row(), 4);
}

TEST(FlexGrid, RedrawOffHoldsBackCellNoticesUntilSwitchedOn) {
    FlexGrid grid;
    std::vector<Aspect> seen;
    grid.Changed.Connect([&](Aspect a) { seen.push_back(a); });

    grid.SetRedraw(false);
    grid.SetRows(100);
    grid.SetTextMatrix(50, 1, "x");
    grid.SetVisible(false); // visibility is the control's, not the grid's content
    EXPECT_EQ(seen, std::vector<Aspect>{Aspect::Visible});

    grid.SetRedraw(true);
    EXPECT_EQ(seen, (std::vector<Aspect>{Aspect::Visible, Aspect::Redraw}));
    grid.SetTextMatrix(50, 1, "y");
    EXPECT_EQ(seen.back(), Aspect::Cells);
}

TEST(FlexGrid, GeneralAlignmentPutsNumbersRight) {
    struct Case {
        const char* text;
        int resolved;
    };
    const Case cases[] = {
        {"1234.50", flexAlignRightCenter}, {"-0.00", flexAlignRightCenter}, {"1E+3", flexAlignRightCenter},
        {"合计", flexAlignLeftCenter},     {"", flexAlignLeftCenter},       {"12abc", flexAlignLeftCenter},
        {".", flexAlignLeftCenter},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(ResolveGeneralAlignment(flexAlignGeneral, c.text), c.resolved);
    }
    EXPECT_EQ(ResolveGeneralAlignment(flexAlignCenterCenter, "12"), flexAlignCenterCenter);
}

} // namespace
} // namespace quillon
