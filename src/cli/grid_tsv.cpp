#include "cli/grid_tsv.h"

#include "controls/flex_grid.h"

namespace quillon {

std::string TsvCell(const std::string& text) {
    std::string cell = text;
    for (char& ch : cell)
        if (ch == '\t' || ch == '\n' || ch == '\r') ch = ' ';
    return cell;
}

void WriteGridTsv(const FlexGrid& grid, std::ostream& out, int firstRow, int lastRow) {
    if (lastRow < 0 || lastRow >= grid.Rows()) lastRow = grid.Rows() - 1;
    for (int r = firstRow; r <= lastRow; ++r) {
        for (int c = 0; c < grid.Cols(); ++c) {
            if (c > 0) out << '\t';
            out << TsvCell(grid.TextMatrix(r, c));
        }
        out << '\n';
    }
}

} // namespace quillon
