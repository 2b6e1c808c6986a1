#include "controls/merged_cells.h"

#include <algorithm>

namespace quillon {

namespace {

bool RestrictsRows(int mode) {
    return mode == flexMergeRestrictRows || mode == flexMergeRestrictBoth;
}
bool RestrictsCols(int mode) {
    return mode == flexMergeRestrictColumns || mode == flexMergeRestrictBoth;
}

// (row, col-1) and (row, col) merge side by side, before the restriction by the row above.
bool SideBySideAllowed(const MergeSource& g, int row, int col) {
    const int fixedCols = g.FixedColCount();
    return g.RowMerges(row) && (col - 1 < fixedCols) == (col < fixedCols) &&
           g.CellText(row, col - 1) == g.CellText(row, col);
}

// (row, col-1) and (row, col) are in one run of the row.
bool JoinsLeft(const MergeSource& g, int row, int col) {
    if (g.MergeMode() == flexMergeNever || col < 1) return false;
    if (!RestrictsRows(g.MergeMode())) return SideBySideAllowed(g, row, col);
    // Restricted: the pair must merge in this row and in every row above (walked, not
    // recursed, since a grid may have many rows).
    for (int r = row; r >= 0; --r)
        if (!SideBySideAllowed(g, r, col)) return false;
    return true;
}

struct Run {
    int col1;
    int col2;
};

Run RunAt(const MergeSource& g, int row, int col) {
    Run run{col, col};
    while (run.col1 > 0 && JoinsLeft(g, row, run.col1)) --run.col1;
    while (run.col2 + 1 < g.ColCount() && JoinsLeft(g, row, run.col2 + 1)) ++run.col2;
    return run;
}

// The run holding (row, col) joins the block that holds (row-1, col).
bool JoinsAbove(const MergeSource& g, int row, int col) {
    if (g.MergeMode() == flexMergeNever || row < 1) return false;
    const int fixedRows = g.FixedRowCount();
    if ((row - 1 < fixedRows) != (row < fixedRows)) return false;
    if (g.CellText(row - 1, col) != g.CellText(row, col)) return false;
    const Run here = RunAt(g, row, col);
    const Run above = RunAt(g, row - 1, col);
    if (here.col1 != above.col1 || here.col2 != above.col2) return false;
    for (int c = here.col1; c <= here.col2; ++c)
        if (!g.ColMerges(c)) return false;
    if (RestrictsCols(g.MergeMode()) && here.col1 > 0) return JoinsAbove(g, row, here.col1 - 1);
    return true;
}

} // namespace

CellRange MergedRangeAt(const MergeSource& grid, int row, int col) {
    const Run run = RunAt(grid, row, col);
    CellRange range{row, run.col1, row, run.col2};
    while (JoinsAbove(grid, range.row1, run.col1)) --range.row1;
    while (range.row2 + 1 < grid.RowCount() && JoinsAbove(grid, range.row2 + 1, run.col1)) ++range.row2;
    return range;
}

std::vector<CellRange> MergedRanges(const MergeSource& grid, int firstRow, int lastRow) {
    std::vector<CellRange> ranges;
    firstRow = std::max(firstRow, 0);
    lastRow = std::min(lastRow, grid.RowCount() - 1);
    const int cols = grid.ColCount();
    if (firstRow > lastRow || cols == 0) return ranges;
    std::vector<bool> covered(static_cast<std::size_t>(lastRow - firstRow + 1) * cols, false);
    for (int r = firstRow; r <= lastRow; ++r) {
        for (int c = 0; c < cols; ++c) {
            if (covered[static_cast<std::size_t>(r - firstRow) * cols + c]) continue;
            const CellRange range = MergedRangeAt(grid, r, c);
            for (int rr = std::max(range.row1, firstRow); rr <= std::min(range.row2, lastRow); ++rr)
                for (int cc = range.col1; cc <= range.col2; ++cc)
                    covered[static_cast<std::size_t>(rr - firstRow) * cols + cc] = true;
            if (!range.IsSingleCell()) ranges.push_back(range);
        }
    }
    return ranges;
}

} // namespace quillon
