#include "cli/grid_tsv.h"

#include "controls/flex_grid.h"
#include "controls/grid_clip.h"

namespace quillon {

void WriteGridTsv(const FlexGrid& grid, std::ostream& out, int firstRow, int lastRow) {
    if (lastRow < 0 || lastRow >= grid.Rows()) lastRow = grid.Rows() - 1;
    // One buffer for the rows: a year of a detail report is hundreds of thousands of cells.
    std::string line;
    for (int r = firstRow; r <= lastRow; ++r) {
        line.clear();
        for (int c = 0; c < grid.Cols(); ++c) {
            if (c > 0) line += '\t';
            AppendClippedCell(line, grid.TextMatrix(r, c));
        }
        line += '\n';
        out.write(line.data(), static_cast<std::streamsize>(line.size()));
    }
}

} // namespace quillon
