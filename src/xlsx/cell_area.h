// cell_area.h — workbook layer: a rectangle of cells (1-based, corners inclusive) and its
// A1-style address text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

inline constexpr int kXlMaxRows = 1048576;
inline constexpr int kXlMaxColumns = 16384;

struct CellArea {
    int firstRow = 1;
    int firstCol = 1;
    int lastRow = 1;
    int lastCol = 1;

    // The rectangle spanned by two corners given in any order.
    static CellArea Spanning(int row1, int col1, int row2, int col2);

    bool Contains(int row, int col) const {
        return row >= firstRow && row <= lastRow && col >= firstCol && col <= lastCol;
    }
    bool Intersects(const CellArea& o) const {
        return firstRow <= o.lastRow && o.firstRow <= lastRow && firstCol <= o.lastCol &&
               o.firstCol <= lastCol;
    }
    bool IsSingleCell() const { return firstRow == lastRow && firstCol == lastCol; }
    long long CellCount() const {
        return static_cast<long long>(lastRow - firstRow + 1) * (lastCol - firstCol + 1);
    }
    CellArea Union(const CellArea& o) const;
    bool IsOnSheet() const;

    // "A1" for one cell, "A1:D5" otherwise.
    std::string Address() const;
    // "A1", "A1:D5", "$A$1:$D$5", lower case letters too; nothing for anything else or for an
    // address beyond the sheet's last row or column.
    static std::optional<CellArea> Parse(std::string_view address);

    bool operator==(const CellArea&) const = default;
};

// "A", "Z", "AA", … "XFD".
std::string ColumnLetters(int col);

} // namespace quillon
