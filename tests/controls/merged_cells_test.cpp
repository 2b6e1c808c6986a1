// Merged blocks of the two-level report headers, and the merge rules on small tables.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "controls/flex_grid.h"
#include "controls/merged_cells.h"

namespace quillon {
namespace {

struct HeaderColumn {
    const char* top;
    const char* bottom;
    int width;
};

// Writes two header rows the way the report windows do: Row 0 then Row 1, column by column.
void WriteHeader(FlexGrid& grid, const std::vector<HeaderColumn>& columns) {
    grid.SetCols(static_cast<int>(columns.size()));
    for (int c = 0; c < grid.Cols(); ++c) {
        grid.SetTextMatrix(0, c, columns[c].top);
        grid.SetTextMatrix(1, c, columns[c].bottom);
        grid.SetColWidth(c, columns[c].width);
        grid.SetFixedAlignment(c, flexAlignCenterCenter);
    }
}

// A two-row header as the windows set it up at load: merging restricted to columns, row 0 and
// the given columns free to merge.
void SetUpHeader(FlexGrid& grid, int cols, std::initializer_list<int> mergeCols) {
    grid.SetRows(2);
    grid.SetFixedRows(2);
    grid.SetCols(cols);
    grid.SetMergeCells(flexMergeRestrictColumns);
    for (int c : mergeCols) grid.SetMergeCol(c, true);
    grid.SetMergeRow(0, true);
}

// The reconciliation grid (later form) after the charge items of a period are known: at load
// MergeCol is set on columns 0-2 and the last two, then the layout puts N category columns in.
void LayOutReconciliationGrid(FlexGrid& grid, const std::vector<const char*>& categories) {
    SetUpHeader(grid, 13, {0, 1, 2, 11, 12});
    std::vector<HeaderColumn> columns = {
        {"序", "序", 500},
        {"开票年月", "开票年月", 900},
        {"税率", "税率", 600},
        {"增值税专用发票", "金额", 1300},
        {"增值税专用发票", "税额", 1200},
        {"增值税普通发票", "金额", 1300},
        {"增值税普通发票", "税额", 1200},
        {"收据", "金额", 1200},
    };
    for (const char* name : categories) columns.push_back({"财务交账", name, 1200});
    columns.push_back({"财务交账", "小计", 1200});
    columns.push_back({"当月收预开票", "金额", 1200});
    columns.push_back({"当月未收预开", "金额", 1200});
    columns.push_back({"核对结果", "差额", 1200});
    columns.push_back({"备注", "备注", 1600});
    WriteHeader(grid, columns);
    const int f = 8 + static_cast<int>(categories.size());
    for (int c = 8; c <= f; ++c) grid.SetMergeCol(c, false);
    grid.SetMergeCol(f + 3, true);
    grid.SetMergeCol(f + 4, true);
    grid.SetRow(1);
}

TEST(MergedCells, ReconciliationHeaderWithTwoCategoriesAndWithNone) {
    FlexGrid grid;
    LayOutReconciliationGrid(grid, {"物业费", "水费"});
    ASSERT_EQ(grid.Cols(), 15);

    const std::vector<CellRange> expected = {
        {0, 0, 1, 0},  // 序, down both rows
        {0, 1, 1, 1},  // 开票年月, allowed since 序 to its left is merged over the same rows
        {0, 2, 1, 2},  // 税率
        {0, 3, 0, 4},  // 增值税专用发票 over 金额 and 税额
        {0, 5, 0, 6},  // 增值税普通发票
        {0, 8, 0, 10}, // 财务交账 over both categories and 小计
    };
    EXPECT_EQ(grid.MergedRanges(0, 1), expected);
    EXPECT_EQ(grid.MergedRangeAt(0, 14), (CellRange{0, 14, 0, 14}))
        << "备注 is not merged down: 核对结果 to its left differs between the two rows";
    EXPECT_EQ(grid.MergedRangeAt(1, 10), (CellRange{1, 10, 1, 10})) << "小计 under 财务交账 stays alone";

    FlexGrid empty; // without categories the hand-over heading stands over 小计 alone
    LayOutReconciliationGrid(empty, {});
    EXPECT_EQ(empty.TextMatrix(1, 8), "小计");
    EXPECT_EQ(empty.MergedRangeAt(0, 8), (CellRange{0, 8, 0, 8}));
    EXPECT_EQ(empty.MergedRangeAt(0, 7), (CellRange{0, 7, 0, 7}));
}

TEST(MergedCells, MergedHeaderCellReportsTheWholeBlockAsItsGeometry) {
    FlexGrid grid;
    LayOutReconciliationGrid(grid, {"物业费", "水费"});
    grid.SetRow(0);
    grid.SetCol(9); // inside 财务交账
    EXPECT_EQ(grid.CellLeft(), 500 + 900 + 600 + 1300 + 1200 + 1300 + 1200 + 1200);
    EXPECT_EQ(grid.CellWidth(), 3 * 1200);
    grid.SetRow(1);
    EXPECT_EQ(grid.CellWidth(), 1200) << "row 1 gives the column's own width, as the exports read it";
    grid.SetCol(0);
    EXPECT_EQ(grid.CellTop(), 0);
    EXPECT_EQ(grid.CellHeight(), 2 * kDefaultRowHeight);
}

// The pre-invoice detail grid after BuildChargeItemColumns with one ordinary and one parking item.
TEST(MergedCells, PreInvoiceHeaderGroupsEachItemsColumns) {
    FlexGrid grid;
    SetUpHeader(grid, 7, {0, 1, 4, 5, 6});
    WriteHeader(grid, {
                          {"序", "序", 500},
                          {"开票日期", "开票日期", 1200},
                          {"增值税发票", "专用发票", 2200},
                          {"增值税发票", "普通发票", 2200},
                          {"物业费", "金额", 1200},
                          {"物业费", "税额6%", 1200},
                          {"停车费", "开发商70%", 1200},
                          {"停车费", "物业30%", 1200},
                          {"停车费", "税额5%", 1200},
                          {"合计", "合计", 1400},
                          {"收款方式", "收款方式", 900},
                          {"付款人", "付款人", 3800},
                      });
    for (int c = 4; c <= 8; ++c) grid.SetMergeCol(c, false);
    for (int c = 9; c <= 11; ++c) grid.SetMergeCol(c, true);

    const std::vector<CellRange> expected = {
        {0, 0, 1, 0}, {0, 1, 1, 1}, {0, 2, 0, 3}, {0, 4, 0, 5}, {0, 6, 0, 8},
    };
    EXPECT_EQ(grid.MergedRanges(0, 1), expected);
}

TEST(MergedCells, DataRowsNeverMergeWithTheHeaderNorAcrossDifferentNumbers) {
    FlexGrid grid;
    LayOutReconciliationGrid(grid, {"物业费"});
    grid.SetRows(5);
    // Rows as a month's run writes them: running number, month, rate.
    const char* rows[][3] = {{"1", "202403", "6"}, {"2", "202403", "9"}, {"3", "202403", "小计"}};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) grid.SetTextMatrix(r + 2, c, rows[r][c]);

    EXPECT_EQ(grid.MergedRangeAt(3, 1), (CellRange{3, 1, 3, 1}))
        << "the month repeats, but the numbers to its left differ, so it stays per row";
    EXPECT_EQ(grid.MergedRangeAt(1, 0), (CellRange{0, 0, 1, 0}));
}

MergeTable Table(int mode, std::vector<std::vector<std::string>> text) {
    MergeTable t;
    t.mode = mode;
    t.text = std::move(text);
    t.mergeRow.assign(t.text.size(), true);
    t.mergeCol.assign(t.text.front().size(), true);
    return t;
}

TEST(MergedCells, ModesDecideWhichNeighboursJoin) {
    // A  A  x
    // B  A  x
    // B  A  y
    const std::vector<std::vector<std::string>> text = {{"A", "A", "x"}, {"B", "A", "x"}, {"B", "A", "y"}};
    struct Case {
        const char* why;
        int mode;
        int row, col;
        CellRange block;
    };
    const Case cases[] = {
        {"never: nothing merges", flexMergeNever, 0, 0, {0, 0, 0, 0}},
        {"free: A A in row 0 merge side by side", flexMergeFree, 0, 1, {0, 0, 0, 1}},
        {"free: the A column joins below row 0, whose run is wider", flexMergeFree, 1, 1, {1, 1, 2, 1}},
        {"free: x x merge down", flexMergeFree, 0, 2, {0, 2, 1, 2}},
        {"columns: B B merge down in column 0", flexMergeRestrictColumns, 1, 0, {1, 0, 2, 0}},
        {"columns: A A merge down, as B B left of them do", flexMergeRestrictColumns, 2, 1, {1, 1, 2, 1}},
        {"columns: x x may not, A is not merged over rows 0-1", flexMergeRestrictColumns, 0, 2, {0, 2, 0, 2}},
        {"rows: row 0 is free", flexMergeRestrictRows, 0, 0, {0, 0, 0, 1}},
        {"both: x x stays apart", flexMergeRestrictBoth, 1, 2, {1, 2, 1, 2}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(MergedRangeAt(Table(c.mode, text), c.row, c.col), c.block);
    }
}

TEST(MergedCells, FixedAndScrollingCellsStayApart) {
    MergeTable t = Table(flexMergeFree, {{"合计", "合计"}, {"合计", "合计"}});
    t.fixedRows = 1;
    t.fixedCols = 1;
    EXPECT_EQ(MergedRangeAt(t, 0, 0), (CellRange{0, 0, 0, 0}));
    EXPECT_EQ(MergedRangeAt(t, 1, 1), (CellRange{1, 1, 1, 1}));
}

TEST(MergedCells, RangesOfAWindowOfRowsComeWholeAndOnce) {
    // Column 0 holds one text over rows 0-3; rows 2-3 are asked for.
    MergeTable t = Table(flexMergeFree, {{"一", "a"}, {"一", "b"}, {"一", "c"}, {"一", "d"}});
    t.mergeRow.assign(4, false);
    const std::vector<CellRange> expected = {{0, 0, 3, 0}};
    EXPECT_EQ(MergedRanges(t, 2, 3), expected);
    EXPECT_TRUE(MergedRanges(t, 5, 9).empty());
}

} // namespace
} // namespace quillon
