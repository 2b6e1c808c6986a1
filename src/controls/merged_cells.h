// merged_cells.h — controls layer: which neighbouring cells of a grid the eye sees as one, from
// the cells' texts and the grid's merge switches. Pure functions over a read-only view, so the
// rules are tested without a grid and the Qt view paints only the rows on screen.
//
// The rules chosen, after the classic flex grid's documentation:
// - Cells merge only when their texts are equal (empty texts too), MergeCells is not 0, and the
//   row's MergeRow (side by side) or the column's MergeCol (one above the other) is set.
// - Side by side merging makes runs within a row. Runs then stack: the run of a row joins the
//   block above it when both span the same columns, hold the same text, and every column of
//   the run has MergeCol. So every block is a rectangle.
// - "Restrict columns" (3) and "restrict both" (4): a run joins the block above only if the
//   column just left of the run is merged across the same two rows (which in turn asks the same
//   of its left neighbour); the first column is free. "Restrict rows" (2) and (4): two cells of
//   a row merge only if the two cells above them are merged too; the first row is free.
// - Fixed and scrolling cells never merge with each other.
#pragma once

#include <string>
#include <vector>

namespace quillon {

inline constexpr int flexMergeNever = 0;
inline constexpr int flexMergeFree = 1;
inline constexpr int flexMergeRestrictRows = 2;
inline constexpr int flexMergeRestrictColumns = 3;
inline constexpr int flexMergeRestrictBoth = 4;

// Inclusive corners; a single cell has row1 == row2 and col1 == col2.
struct CellRange {
    int row1 = 0;
    int col1 = 0;
    int row2 = 0;
    int col2 = 0;

    bool IsSingleCell() const { return row1 == row2 && col1 == col2; }
    bool Contains(int row, int col) const { return row >= row1 && row <= row2 && col >= col1 && col <= col2; }
    bool operator==(const CellRange&) const = default;
};

// What the merge rules read of a grid.
class MergeSource {
public:
    virtual ~MergeSource() = default;
    virtual int MergeMode() const = 0; // MergeCells, 0 … 4
    virtual int RowCount() const = 0;
    virtual int ColCount() const = 0;
    virtual int FixedRowCount() const = 0;
    virtual int FixedColCount() const = 0;
    virtual const std::string& CellText(int row, int col) const = 0;
    virtual bool RowMerges(int row) const = 0; // MergeRow(row)
    virtual bool ColMerges(int col) const = 0; // MergeCol(col)
};

// The block that holds the cell; the cell alone when it merges with nothing.
CellRange MergedRangeAt(const MergeSource& grid, int row, int col);

// Every block of more than one cell that touches rows firstRow..lastRow, each once, in the
// order of its first cell met row by row; blocks reaching outside those rows come whole.
std::vector<CellRange> MergedRanges(const MergeSource& grid, int firstRow, int lastRow);

// A plain table for tests and for callers without a grid: texts by row, then column.
struct MergeTable : MergeSource {
    int mode = flexMergeNever;
    int fixedRows = 0;
    int fixedCols = 0;
    std::vector<std::vector<std::string>> text; // every row as long as the first
    std::vector<bool> mergeRow;                 // missing entries count as false
    std::vector<bool> mergeCol;

    int MergeMode() const override { return mode; }
    int RowCount() const override { return static_cast<int>(text.size()); }
    int ColCount() const override { return text.empty() ? 0 : static_cast<int>(text.front().size()); }
    int FixedRowCount() const override { return fixedRows; }
    int FixedColCount() const override { return fixedCols; }
    const std::string& CellText(int row, int col) const override { return text[row][col]; }
    bool RowMerges(int row) const override {
        return row < static_cast<int>(mergeRow.size()) && mergeRow[row];
    }
    bool ColMerges(int col) const override {
        return col < static_cast<int>(mergeCol.size()) && mergeCol[col];
    }
};

} // namespace quillon
