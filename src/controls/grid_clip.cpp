#include "controls/grid_clip.h"

#include <algorithm>
#include <vector>

#include "controls/flex_grid.h"

namespace quillon {
namespace {

// The rows and columns of the block that show, in order.
struct ShownCells {
    std::vector<int> rows;
    std::vector<int> cols;
};

ShownCells ShownIn(const FlexGrid& grid, const CellRange& block) {
    ShownCells shown;
    const int lastRow = std::min(block.row2, grid.Rows() - 1);
    const int lastCol = std::min(block.col2, grid.Cols() - 1);
    for (int r = std::max(block.row1, 0); r <= lastRow; ++r)
        if (grid.RowHeight(r) > 0) shown.rows.push_back(r);
    for (int c = std::max(block.col1, 0); c <= lastCol; ++c)
        if (grid.ColWidth(c) > 0) shown.cols.push_back(c);
    if (shown.cols.empty()) shown.rows.clear();
    return shown;
}

void AppendEscaped(std::string& out, const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char ch = text[i];
        switch (ch) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\r':
            if (i + 1 < text.size() && text[i + 1] == '\n') break; // CR LF is one break
            out += "<br>";
            break;
        case '\n':
            out += "<br>";
            break;
        default:
            out += ch;
        }
    }
}

} // namespace

void AppendClippedCell(std::string& out, const std::string& text) {
    const std::size_t at = out.size();
    out += text;
    // Nearly every cell is free of breaks; a scan without an early exit takes many bytes a step.
    unsigned char anyBreak = 0;
    for (char c : text) anyBreak |= static_cast<unsigned char>((c == '\t') | (c == '\n') | (c == '\r'));
    if (!anyBreak) return;
    for (std::size_t i = at; i < out.size(); ++i)
        if (out[i] == '\t' || out[i] == '\n' || out[i] == '\r') out[i] = ' ';
}

std::string GridBlockText(const FlexGrid& grid, const CellRange& block) {
    const ShownCells shown = ShownIn(grid, block);
    std::string out;
    for (int r : shown.rows) {
        for (std::size_t i = 0; i < shown.cols.size(); ++i) {
            if (i > 0) out += '\t';
            AppendClippedCell(out, grid.TextMatrix(r, shown.cols[i]));
        }
        out += '\n';
    }
    return out;
}

std::string GridBlockHtml(const FlexGrid& grid, const CellRange& block) {
    const ShownCells shown = ShownIn(grid, block);
    std::string out = "<table>";
    for (int r : shown.rows) {
        out += "<tr>";
        for (int c : shown.cols) {
            out += "<td>";
            AppendEscaped(out, grid.TextMatrix(r, c));
            out += "</td>";
        }
        out += "</tr>";
    }
    out += "</table>";
    return out;
}

} // namespace quillon
