// worksheet.h — workbook layer: one sheet held in memory with the automation members the report
// writers use (Cells, Range, Columns, Rows and the range properties), cells kept sparsely per row.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "xlsx/cell_area.h"
#include "xlsx/cell_style.h"
#include "xlsx/page_setup.h"

namespace quillon {

class Worksheet;

// What a cell holds: nothing, a number (dates are serial numbers) or text.
using CellValue = std::variant<std::monostate, double, std::string>;

// Range.Font: setters act on every cell of the range, getters read its upper-left cell.
class RangeFont {
public:
    void SetName(std::string_view name);
    void SetSize(double points);
    void SetBold(bool bold);
    std::string Name() const;
    double Size() const;
    bool Bold() const;

private:
    friend class SheetRange;
    RangeFont(Worksheet* sheet, CellArea area) : sheet_(sheet), area_(area) {}
    Worksheet* sheet_;
    CellArea area_;
};

// Range.Interior: the fill colour, BGR with red in the low byte as the automation interface has it.
class RangeInterior {
public:
    void SetColor(long bgr);
    std::optional<long> Color() const; // nothing when the cell has no fill

private:
    friend class SheetRange;
    RangeInterior(Worksheet* sheet, CellArea area) : sheet_(sheet), area_(area) {}
    Worksheet* sheet_;
    CellArea area_;
};

// Range.Borders: setting LineStyle draws every edge and every inside line of the range.
class RangeBorders {
public:
    void SetLineStyle(int lineStyle);
    // The upper-left cell's line style when its four edges agree, nothing when they differ.
    std::optional<int> LineStyle() const;

private:
    friend class SheetRange;
    RangeBorders(Worksheet* sheet, CellArea area) : sheet_(sheet), area_(area) {}
    Worksheet* sheet_;
    CellArea area_;
};

// A rectangle of cells, as Cells() and Range() return it. A light handle: it stays valid as long
// as its worksheet. Setters apply to every cell of the rectangle (empty cells too) and later
// settings override earlier ones attribute by attribute; getters read the upper-left cell.
class SheetRange {
public:
    // Text is read as Excel reads typed input (see typed_input.h); an empty text empties the cell.
    void SetValue(std::string_view text);
    void SetValue(const char* text) { SetValue(std::string_view(text)); }
    void SetValue(const std::string& text) { SetValue(std::string_view(text)); }
    void SetValue(double number);
    CellValue Value() const;

    // Merging keeps the upper-left value, empties the other cells and gives the whole area the
    // upper-left cell's format; merged areas it overlaps are taken into it. false unmerges.
    void SetMergeCells(bool merge);
    bool MergeCells() const;

    void SetHorizontalAlignment(int alignment);
    int HorizontalAlignment() const;
    void SetVerticalAlignment(int alignment);
    int VerticalAlignment() const;
    void SetNumberFormat(std::string_view format);
    std::string NumberFormat() const;
    void SetWrapText(bool wrap);
    bool WrapText() const;

    RangeFont Font() const { return RangeFont(sheet_, area_); }
    RangeInterior Interior() const { return RangeInterior(sheet_, area_); }
    RangeBorders Borders() const { return RangeBorders(sheet_, area_); }

    const CellArea& Area() const { return area_; }
    int Row() const { return area_.firstRow; }
    int Column() const { return area_.firstCol; }

private:
    friend class Worksheet;
    SheetRange(Worksheet* sheet, CellArea area) : sheet_(sheet), area_(area) {}
    Worksheet* sheet_;
    CellArea area_;
};

// Columns(n): the width in Excel's column unit (characters of the default font).
class SheetColumn {
public:
    void SetColumnWidth(double width); // 0 hides the column
    double ColumnWidth() const;

private:
    friend class Worksheet;
    SheetColumn(Worksheet* sheet, int col) : sheet_(sheet), col_(col) {}
    Worksheet* sheet_;
    int col_;
};

// Rows(r): a format for the whole row (cells written later in the row start from it) and the
// height in points.
class SheetRow {
public:
    void SetWrapText(bool wrap);
    bool WrapText() const;
    void SetRowHeight(double points); // 0 hides the row
    double RowHeight() const;

private:
    friend class Worksheet;
    SheetRow(Worksheet* sheet, int row) : sheet_(sheet), row_(row) {}
    Worksheet* sheet_;
    int row_;
};

inline constexpr double kDefaultSheetColumnWidth = 8.43;
inline constexpr double kDefaultSheetRowHeight = 15.0;

class Worksheet {
public:
    struct Cell {
        int col;
        StyleId style;
        CellValue value;
    };
    struct RowData {
        std::vector<Cell> cells; // sorted by column
        StyleId style = StylePool::kDefault;
        std::optional<double> height;
    };

    Worksheet(StylePool& styles, std::string name);
    Worksheet(const Worksheet&) = delete;
    Worksheet& operator=(const Worksheet&) = delete;

    // Cells(row, col), 1-based; VbError 1004 off the sheet.
    SheetRange Cells(int row, int col);
    // The rectangle spanning both ranges, as Range(Cells(a, b), Cells(c, d)).
    SheetRange Range(const SheetRange& cell1, const SheetRange& cell2);
    // Range(Cells(row1, col1), Cells(row2, col2)) in one call.
    SheetRange Range(int row1, int col1, int row2, int col2);
    // "A1" or "A1:D5"; VbError 1004 for any other text.
    SheetRange Range(std::string_view address);
    SheetColumn Columns(int col);
    SheetRow Rows(int row);

    const std::string& Name() const { return name_; }

    // How the sheet prints and where its panes freeze (no cell is touched).
    SheetPageSetup& PageSetup() { return pageSetup_; }
    const SheetPageSetup& PageSetup() const { return pageSetup_; }
    // The last column holding a cell or a set width; 0 for an empty sheet.
    int LastUsedColumn() const;

    // What the saver and the tests read.
    const std::map<int, RowData>& RowMap() const { return rows_; }
    const std::vector<CellArea>& MergedAreas() const { return merges_; }
    const std::map<int, double>& ColumnWidths() const { return columnWidths_; }
    std::size_t CellCount() const { return cellCount_; }
    const StylePool& Styles() const { return styles_; }
    // The format of a cell; one never written has its row's format.
    StyleId StyleIdAt(int row, int col) const;
    const CellStyle& StyleAt(int row, int col) const { return styles_.At(StyleIdAt(row, col)); }

private:
    friend class SheetRange;
    friend class RangeFont;
    friend class RangeInterior;
    friend class RangeBorders;
    friend class SheetColumn;
    friend class SheetRow;

    const Cell* Find(int row, int col) const;
    Cell& Touch(RowData& row, int col);
    // Changes one attribute on every cell of the area, written or not.
    void Restyle(const CellArea& area, const std::function<void(CellStyle&)>& change);
    // The row's own format and every cell written in it; cells not written stay unmade.
    void RestyleRow(RowData& row, const std::function<void(CellStyle&)>& change);
    class StyleChanger;
    void AssignText(const CellArea& area, std::string_view text);
    void AssignNumber(const CellArea& area, double number);
    void Merge(CellArea area);
    void Unmerge(const CellArea& area);
    bool IsMerged(int row, int col) const;

    StylePool& styles_;
    std::string name_;
    std::map<int, RowData> rows_;
    std::vector<CellArea> merges_;
    std::map<int, double> columnWidths_;
    SheetPageSetup pageSetup_;
    std::size_t cellCount_ = 0;
    std::size_t rowWidthHint_ = 1;
    static constexpr std::size_t kMaxRowWidthHint = 64;
};

} // namespace quillon
