// flex_grid.h — controls layer: the headless grid every report fills: rows × cols of cells (text,
// back and fore colour, alignment), fixed header rows and columns, column and row sizes in
// twips, merging switches, the current cell, and the events of a user's clicks.
// The Qt view paints it; windows and tests read and write it without a display.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "controls/merged_cells.h"

namespace quillon {

// Alignments of cells and columns, as the old grid numbered them.
inline constexpr int flexAlignLeftTop = 0;
inline constexpr int flexAlignLeftCenter = 1;
inline constexpr int flexAlignLeftBottom = 2;
inline constexpr int flexAlignCenterTop = 3;
inline constexpr int flexAlignCenterCenter = 4;
inline constexpr int flexAlignCenterBottom = 5;
inline constexpr int flexAlignRightTop = 6;
inline constexpr int flexAlignRightCenter = 7;
inline constexpr int flexAlignRightBottom = 8;
inline constexpr int flexAlignGeneral = 9; // numbers right, other text left, both centred

inline constexpr int kDefaultColWidth = 960; // twips
inline constexpr int kDefaultRowHeight = 240;
// A FormatString caption's column is the caption's width plus this margin.
inline constexpr int kFormatStringMargin = 120;

// Alignment 9 resolved for one text: right-centre for a number, left-centre otherwise;
// other alignments come back unchanged.
int ResolveGeneralAlignment(int alignment, std::string_view text);

class FlexGrid : public Control {
public:
    // A new grid has 2 rows and 2 columns, one of each fixed, and the current cell (1, 1).
    explicit FlexGrid(std::string name = {});

    // --- shape. Shrinking drops the cells, sizes and switches beyond the new end; growing
    // adds empty cells with default sizes; cells inside keep everything.
    int Rows() const { return static_cast<int>(rows_.size()); }
    void SetRows(int rows); // error 30009 below FixedRows
    int Cols() const { return static_cast<int>(cols_.size()); }
    void SetCols(int cols); // error 30010 below FixedCols
    int FixedRows() const { return fixedRows_; }
    void SetFixedRows(int rows); // error 380 outside 0..Rows
    int FixedCols() const { return fixedCols_; }
    void SetFixedCols(int cols); // error 380 outside 0..Cols

    // --- current cell. Row and Col follow a shrinking grid back to its last row or column.
    int Row() const { return row_; }
    void SetRow(int row); // error 30009 outside 0..Rows-1
    int Col() const { return col_; }
    void SetCol(int col); // error 30010 outside 0..Cols-1
    const std::string& Text() const;
    void SetText(std::string text);

    const std::string& TextMatrix(int row, int col) const; // error 381 outside the grid
    void SetTextMatrix(int row, int col, std::string text);

    // Formats of the current cell. A colour of 0 means "not set": the cell is painted in the
    // grid's own colours, and reading an unset colour gives 0, as the old grid did.
    std::uint32_t CellBackColor() const;
    void SetCellBackColor(std::uint32_t color);
    std::uint32_t CellForeColor() const;
    void SetCellForeColor(std::uint32_t color);
    // The cell's own alignment, or its column's (FixedAlignment in a fixed cell) when unset.
    int CellAlignment() const;
    void SetCellAlignment(int alignment); // error 380 outside 0..9

    // Position and size of the current cell in twips, relative to the grid's top-left corner
    // and with the grid scrolled to TopRow/LeftCol. A merged cell answers for its whole block.
    int CellLeft() const;
    int CellTop() const;
    int CellWidth() const;
    int CellHeight() const;

    // --- columns and rows (error 381 for an index outside the grid)
    int ColWidth(int col) const;
    void SetColWidth(int col, int twips); // -1 restores the default; 0 hides the column
    int RowHeight(int row) const;
    void SetRowHeight(int row, int twips); // -1 restores the default
    int ColAlignment(int col) const;       // flexAlignGeneral until set
    void SetColAlignment(int col, int alignment);
    int FixedAlignment(int col) const; // follows ColAlignment until set
    void SetFixedAlignment(int col, int alignment);

    int MergeCells() const { return mergeCells_; }
    void SetMergeCells(int mode); // flexMergeNever … flexMergeRestrictBoth, else error 380
    bool MergeRow(int row) const;
    void SetMergeRow(int row, bool on);
    bool MergeCol(int col) const;
    void SetMergeCol(int col, bool on);

    // --- look
    // While Redraw is off, changes of cells and shape are not announced; switching it back on
    // announces Aspect::Redraw once, so the view repaints everything.
    bool Redraw() const { return redraw_; }
    void SetRedraw(bool on);
    bool WordWrap() const { return wordWrap_; }
    void SetWordWrap(bool on);
    std::uint32_t BackColor() const { return backColor_; }
    void SetBackColor(std::uint32_t color);
    std::uint32_t ForeColor() const { return foreColor_; }
    void SetForeColor(std::uint32_t color);
    std::uint32_t BackColorFixed() const { return backColorFixed_; }
    void SetBackColorFixed(std::uint32_t color);
    std::uint32_t ForeColorFixed() const { return foreColorFixed_; }
    void SetForeColorFixed(std::uint32_t color);

    // Columns separated by "|"; a leading "<", "^" or ">" makes the column left, centre or
    // right aligned (ColAlignment 1, 4, 7). Each caption, blanks kept, goes into row 0, and the
    // column becomes as wide as the caption plus kFormatStringMargin. Cols becomes the number
    // of captions. A ";" starts the row captions, separated by "|" likewise: the first is the
    // top-left cell (unless columns were given), the others go down column 0, Rows becomes
    // their number (at least FixedRows), and column 0 widens to the longest of them.
    const std::string& FormatString() const { return formatString_; }
    void SetFormatString(std::string format);

    // --- scrolling, moved by the view: the first scrolling row and column on screen
    int TopRow() const { return topRow_; }
    void SetTopRow(int row);  // pulled into FixedRows..Rows-1
    int LeftCol() const;      // never left of StillCols
    void SetLeftCol(int col); // pulled into StillCols..Cols-1

    // --- the user's freeze, a view setting the old grid did not have: columns 0..FrozenCols-1
    // stay put while the rest scrolls right, as fixed columns do, but look and answer clicks as
    // scrolling cells. The printed pages repeat them too. 0 unfreezes.
    int FrozenCols() const { return frozenCols_; }
    void SetFrozenCols(int cols); // error 380 below 0
    // Columns that do not scroll: the fixed ones or the frozen ones, whichever reach further,
    // always leaving the last column to scroll.
    int StillCols() const;

    // Empties every cell's text and format, fixed cells included; the shape stays.
    void Clear();

    // --- for the view: what a cell looks like (errors 381 outside the grid)
    std::uint32_t BackColorAt(int row, int col) const; // resolved: own, else grid's colour
    std::uint32_t ForeColorAt(int row, int col) const;
    int AlignmentAt(int row, int col) const; // own, else FixedAlignment or ColAlignment
    bool IsFixedCell(int row, int col) const { return row < fixedRows_ || col < fixedCols_; }
    CellRange MergedRangeAt(int row, int col) const;
    std::vector<CellRange> MergedRanges(int firstRow, int lastRow) const;

    // --- a user's mouse. A click on a scrolling cell makes it current; on a fixed cell the
    // current cell stays. Either way MouseRow/MouseCol tell where it was and Click follows.
    // A double click arrives as a click and then DblClickCell, which raises only DblClick.
    void ClickCell(int row, int col);
    void DblClickCell(int row, int col);
    int MouseRow() const { return mouseRow_; }
    int MouseCol() const { return mouseCol_; }

    Event<> Click;
    Event<> DblClick;

private:
    struct CellFormat {
        std::uint32_t back = 0;
        std::uint32_t fore = 0;
        int alignment = -1;
    };
    struct RowData {
        std::vector<std::string> text;
        std::vector<CellFormat> format; // empty until a cell of the row gets a format
        int height = -1;
        bool merge = false;
    };
    struct ColData {
        int width = -1;
        int alignment = flexAlignGeneral;
        int fixedAlignment = -1;
        bool merge = false;
    };
    class MergeView;

    void NotifyContent(Aspect what); // held back while Redraw is off
    // Sets a member and announces the change, unless it already holds the value.
    template <typename T> void Change(T& member, T value, Aspect what) {
        if (member == value) return;
        member = value;
        NotifyContent(what);
    }
    void CheckCell(int row, int col) const;
    void CheckRow(int row) const;
    void CheckCol(int col) const;
    CellFormat& FormatOf(int row, int col);
    const CellFormat* FindFormat(int row, int col) const;
    int ColumnOffset(int col) const;
    int RowOffset(int row) const;

    std::vector<RowData> rows_;
    std::vector<ColData> cols_;
    int fixedRows_ = 1;
    int fixedCols_ = 1;
    int row_ = 1;
    int col_ = 1;
    int topRow_ = 1;
    int leftCol_ = 1;
    int frozenCols_ = 0;
    int mergeCells_ = flexMergeNever;
    bool redraw_ = true;
    bool wordWrap_ = false;
    std::uint32_t backColor_ = kColorWindow;
    std::uint32_t foreColor_ = kColorWindowText;
    std::uint32_t backColorFixed_ = kColorButtonFace;
    std::uint32_t foreColorFixed_ = kColorButtonText;
    std::string formatString_;
    int mouseRow_ = 0;
    int mouseCol_ = 0;
};

} // namespace quillon
