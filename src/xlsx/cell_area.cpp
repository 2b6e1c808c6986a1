// cell_area.cpp — rectangles of cells and A1 addresses.
#include "xlsx/cell_area.h"

#include <algorithm>

namespace quillon {

namespace {

bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
bool IsLower(char c) {
    return c >= 'a' && c <= 'z';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// One cell reference: optional '$', letters, optional '$', digits.
std::optional<std::pair<int, int>> ParseCell(std::string_view text) {
    std::size_t pos = 0;
    if (pos < text.size() && text[pos] == '$') ++pos;
    long col = 0;
    std::size_t letters = 0;
    for (; pos < text.size() && (IsUpper(text[pos]) || IsLower(text[pos])); ++pos, ++letters) {
        char c = IsLower(text[pos]) ? static_cast<char>(text[pos] - 'a' + 'A') : text[pos];
        col = col * 26 + (c - 'A' + 1);
        if (col > kXlMaxColumns) return std::nullopt;
    }
    if (letters == 0) return std::nullopt;
    if (pos < text.size() && text[pos] == '$') ++pos;
    long row = 0;
    std::size_t digits = 0;
    for (; pos < text.size() && IsDigit(text[pos]); ++pos, ++digits) {
        row = row * 10 + (text[pos] - '0');
        if (row > kXlMaxRows) return std::nullopt;
    }
    if (digits == 0 || row == 0 || pos != text.size()) return std::nullopt;
    return std::make_pair(static_cast<int>(row), static_cast<int>(col));
}

} // namespace

CellArea CellArea::Spanning(int row1, int col1, int row2, int col2) {
    return CellArea{std::min(row1, row2), std::min(col1, col2), std::max(row1, row2), std::max(col1, col2)};
}

CellArea CellArea::Union(const CellArea& o) const {
    return CellArea{std::min(firstRow, o.firstRow), std::min(firstCol, o.firstCol),
                    std::max(lastRow, o.lastRow), std::max(lastCol, o.lastCol)};
}

bool CellArea::IsOnSheet() const {
    return firstRow >= 1 && firstCol >= 1 && lastRow <= kXlMaxRows && lastCol <= kXlMaxColumns &&
           firstRow <= lastRow && firstCol <= lastCol;
}

std::string CellArea::Address() const {
    std::string text = ColumnLetters(firstCol) + std::to_string(firstRow);
    if (!IsSingleCell()) text += ":" + ColumnLetters(lastCol) + std::to_string(lastRow);
    return text;
}

std::optional<CellArea> CellArea::Parse(std::string_view address) {
    std::size_t colon = address.find(':');
    auto first = ParseCell(address.substr(0, colon));
    if (!first) return std::nullopt;
    if (colon == std::string_view::npos)
        return CellArea{first->first, first->second, first->first, first->second};
    auto last = ParseCell(address.substr(colon + 1));
    if (!last) return std::nullopt;
    return Spanning(first->first, first->second, last->first, last->second);
}

std::string ColumnLetters(int col) {
    std::string letters;
    for (; col > 0; col = (col - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('A' + (col - 1) % 26));
    return letters;
}

} // namespace quillon
