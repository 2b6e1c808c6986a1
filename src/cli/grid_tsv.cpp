#include "cli/grid_tsv.h"

#include "controls/flex_grid.h"
#include "controls/grid_clip.h"

namespace quillon {

void WriteGridTsv(const FlexGrid& grid, std::ostream& out, int firstRow, int lastRow) {
    if (lastRow < 0 || lastRow >= grid.Rows()) lastRow = grid.Rows() - 1;
    for (int r = firstRow; r <= lastRow; ++r) {
        for (int c = 0; c < grid.Cols(); ++c) {
            if (c > 0) out << '\t';
            out << ClipCellText(grid.TextMatrix(r, c));
        }
        out << '\n';
    }
}

} // namespace quillon
