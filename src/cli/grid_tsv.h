// grid_tsv.h — quillon-cli: a grid as tab-separated text, one line per grid row, the fixed header
// rows included, for every report the CLI runs.
#pragma once

#include <ostream>
#include <string>

namespace quillon {

class FlexGrid;

// Rows firstRow..lastRow (-1: to the last row), cells joined by TAB, each row ended by "\n";
// tabs and line breaks inside a cell become blanks (AppendClippedCell).
void WriteGridTsv(const FlexGrid& grid, std::ostream& out, int firstRow = 0, int lastRow = -1);

} // namespace quillon
