// grid_clip.h — controls layer: a block of grid cells as the clipboard carries it to a
// spreadsheet: tab-separated text, and the same cells as an HTML table (which Excel and
// LibreOffice paste as cells without asking how to split the text). Each cell of a merged block
// carries the block's text, as the grid holds it; hidden columns and rows (width or height 0,
// where the reports keep their codes) are left out, so the paste looks like the screen.
#pragma once

#include <string>

#include "controls/merged_cells.h"

namespace quillon {

class FlexGrid;

// One cell appended to a line being built: tabs and line breaks inside it become blanks, so that
// a line stays one grid row.
void AppendClippedCell(std::string& out, const std::string& text);

// The block's rows, cells joined by TAB, each row ended by "\n". The block is cut to the grid;
// nothing is left when it lies outside.
std::string GridBlockText(const FlexGrid& grid, const CellRange& block);

// The same cells as an HTML table, texts escaped, line breaks kept as <br>.
std::string GridBlockHtml(const FlexGrid& grid, const CellRange& block);

} // namespace quillon
