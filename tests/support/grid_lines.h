// grid_lines.h — test support: a grid's rows as lines of cells joined by "|", so that a test
// compares whole rows and prints both sides when they differ.
#pragma once

#include <string>
#include <vector>

#include "controls/flex_grid.h"

namespace quillon {

using Lines = std::vector<std::string>;

inline std::string GridLine(const FlexGrid& g, int row) {
    std::string line;
    for (int c = 0; c < g.Cols(); ++c) line += (c ? "|" : "") + g.TextMatrix(row, c);
    return line;
}

// The grid's rows from `first` on, one line each.
inline Lines GridLines(const FlexGrid& g, int first = 0) {
    Lines lines;
    for (int r = first; r < g.Rows(); ++r) lines.push_back(GridLine(g, r));
    return lines;
}

} // namespace quillon
