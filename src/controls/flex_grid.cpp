#include "controls/flex_grid.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "base/vb_error.h"
#include "controls/text_width.h"

namespace quillon {

namespace {

const std::string kNoText;

[[noreturn]] void ThrowInvalidRow() {
    throw VbError(kErrInvalidRowValue, "无效的行值");
}
[[noreturn]] void ThrowInvalidCol() {
    throw VbError(kErrInvalidColValue, "无效的列值");
}

void CheckAlignment(int alignment) {
    if (alignment < flexAlignLeftTop || alignment > flexAlignGeneral) ThrowInvalidPropertyValue();
}

// A number as the general alignment sees one: optional blanks and sign, digits with at most
// one point, an optional exponent.
bool LooksNumeric(std::string_view text) {
    std::size_t i = 0;
    const auto skipBlanks = [&] {
        while (i < text.size() && text[i] == ' ') ++i;
    };
    const auto digits = [&] {
        std::size_t n = 0;
        while (i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, ++n;
        return n;
    };
    skipBlanks();
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    std::size_t mantissa = digits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        mantissa += digits();
    }
    if (mantissa == 0) return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
        if (digits() == 0) return false;
    }
    skipBlanks();
    return i == text.size();
}

std::vector<std::string_view> SplitBars(std::string_view text) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t bar = text.find('|', start);
        if (bar == std::string_view::npos) {
            parts.push_back(text.substr(start));
            return parts;
        }
        parts.push_back(text.substr(start, bar - start));
        start = bar + 1;
    }
}

} // namespace

int ResolveGeneralAlignment(int alignment, std::string_view text) {
    if (alignment != flexAlignGeneral) return alignment;
    return LooksNumeric(text) ? flexAlignRightCenter : flexAlignLeftCenter;
}

// The grid as the merge rules read it.
class FlexGrid::MergeView : public MergeSource {
public:
    explicit MergeView(const FlexGrid& g) : g_(g) {}
    int MergeMode() const override { return g_.mergeCells_; }
    int RowCount() const override { return g_.Rows(); }
    int ColCount() const override { return g_.Cols(); }
    int FixedRowCount() const override { return g_.fixedRows_; }
    int FixedColCount() const override { return g_.fixedCols_; }
    const std::string& CellText(int row, int col) const override { return g_.rows_[row].text[col]; }
    bool RowMerges(int row) const override { return g_.rows_[row].merge; }
    bool ColMerges(int col) const override { return g_.cols_[col].merge; }

private:
    const FlexGrid& g_;
};

FlexGrid::FlexGrid(std::string name) : Control(std::move(name)) {
    cols_.resize(2);
    rows_.resize(2);
    for (auto& row : rows_) row.text.resize(2);
}

void FlexGrid::NotifyContent(Aspect what) {
    if (redraw_) Notify(what);
}

// --- shape

void FlexGrid::SetRows(int rows) {
    if (rows < fixedRows_) ThrowInvalidRow();
    if (rows == Rows()) return;
    const auto width = cols_.size();
    if (rows < Rows()) {
        rows_.resize(rows);
    } else {
        while (Rows() < rows) {
            rows_.emplace_back();
            rows_.back().text.resize(width);
        }
    }
    row_ = std::clamp(row_, 0, std::max(rows - 1, 0));
    topRow_ = std::clamp(topRow_, fixedRows_, std::max(rows - 1, fixedRows_));
    NotifyContent(Aspect::Layout);
}

void FlexGrid::SetCols(int cols) {
    if (cols < fixedCols_) ThrowInvalidCol();
    if (cols == Cols()) return;
    cols_.resize(cols);
    for (auto& row : rows_) {
        row.text.resize(cols);
        if (!row.format.empty()) row.format.resize(cols);
    }
    col_ = std::clamp(col_, 0, std::max(cols - 1, 0));
    leftCol_ = std::clamp(leftCol_, fixedCols_, std::max(cols - 1, fixedCols_));
    NotifyContent(Aspect::Layout);
}

void FlexGrid::SetFixedRows(int rows) {
    if (rows < 0 || rows > Rows()) ThrowInvalidPropertyValue();
    if (rows == fixedRows_) return;
    fixedRows_ = rows;
    topRow_ = fixedRows_; // a new fixed band scrolls back to the first scrolling row
    NotifyContent(Aspect::Layout);
}

void FlexGrid::SetFixedCols(int cols) {
    if (cols < 0 || cols > Cols()) ThrowInvalidPropertyValue();
    if (cols == fixedCols_) return;
    fixedCols_ = cols;
    leftCol_ = fixedCols_; // a new fixed band scrolls back to the first scrolling column
    NotifyContent(Aspect::Layout);
}

// --- current cell

void FlexGrid::SetRow(int row) {
    if (row < 0 || row >= Rows()) ThrowInvalidRow();
    if (row == row_) return;
    row_ = row;
    NotifyContent(Aspect::CurrentCell);
}

void FlexGrid::SetCol(int col) {
    if (col < 0 || col >= Cols()) ThrowInvalidCol();
    if (col == col_) return;
    col_ = col;
    NotifyContent(Aspect::CurrentCell);
}

const std::string& FlexGrid::Text() const {
    if (row_ >= Rows() || col_ >= Cols()) return kNoText;
    return rows_[row_].text[col_];
}

void FlexGrid::SetText(std::string text) {
    if (row_ >= Rows()) ThrowInvalidRow();
    if (col_ >= Cols()) ThrowInvalidCol();
    SetTextMatrix(row_, col_, std::move(text));
}

const std::string& FlexGrid::TextMatrix(int row, int col) const {
    CheckCell(row, col);
    return rows_[row].text[col];
}

void FlexGrid::SetTextMatrix(int row, int col, std::string text) {
    CheckCell(row, col);
    std::string& cell = rows_[row].text[col];
    if (cell == text) return;
    cell = std::move(text);
    NotifyContent(Aspect::Cells);
}

FlexGrid::CellFormat& FlexGrid::FormatOf(int row, int col) {
    auto& format = rows_[row].format;
    if (format.empty()) format.resize(cols_.size());
    return format[col];
}

const FlexGrid::CellFormat* FlexGrid::FindFormat(int row, int col) const {
    const auto& format = rows_[row].format;
    return format.empty() ? nullptr : &format[col];
}

std::uint32_t FlexGrid::CellBackColor() const {
    CheckCell(row_, col_);
    const CellFormat* f = FindFormat(row_, col_);
    return f ? f->back : 0;
}

void FlexGrid::SetCellBackColor(std::uint32_t color) {
    CheckCell(row_, col_);
    FormatOf(row_, col_).back = color;
    NotifyContent(Aspect::Cells);
}

std::uint32_t FlexGrid::CellForeColor() const {
    CheckCell(row_, col_);
    const CellFormat* f = FindFormat(row_, col_);
    return f ? f->fore : 0;
}

void FlexGrid::SetCellForeColor(std::uint32_t color) {
    CheckCell(row_, col_);
    FormatOf(row_, col_).fore = color;
    NotifyContent(Aspect::Cells);
}

int FlexGrid::CellAlignment() const {
    CheckCell(row_, col_);
    return AlignmentAt(row_, col_);
}

void FlexGrid::SetCellAlignment(int alignment) {
    CheckCell(row_, col_);
    CheckAlignment(alignment);
    FormatOf(row_, col_).alignment = alignment;
    NotifyContent(Aspect::Cells);
}

// Left edge of a column on screen: fixed and frozen columns stay, the others start at LeftCol.
int FlexGrid::ColumnOffset(int col) const {
    int x = 0;
    const int still = StillCols();
    if (col < still) {
        for (int c = 0; c < col; ++c) x += ColWidth(c);
        return x;
    }
    for (int c = 0; c < still; ++c) x += ColWidth(c);
    const int left = LeftCol();
    for (int c = left; c < col; ++c) x += ColWidth(c);
    for (int c = col; c < left; ++c) x -= ColWidth(c); // scrolled off to the left
    return x;
}

int FlexGrid::RowOffset(int row) const {
    int y = 0;
    if (row < fixedRows_) {
        for (int r = 0; r < row; ++r) y += RowHeight(r);
        return y;
    }
    for (int r = 0; r < fixedRows_; ++r) y += RowHeight(r);
    for (int r = topRow_; r < row; ++r) y += RowHeight(r);
    for (int r = row; r < topRow_; ++r) y -= RowHeight(r);
    return y;
}

int FlexGrid::CellLeft() const {
    CheckCell(row_, col_);
    return ColumnOffset(MergedRangeAt(row_, col_).col1);
}

int FlexGrid::CellTop() const {
    CheckCell(row_, col_);
    return RowOffset(MergedRangeAt(row_, col_).row1);
}

int FlexGrid::CellWidth() const {
    CheckCell(row_, col_);
    const CellRange range = MergedRangeAt(row_, col_);
    int width = 0;
    for (int c = range.col1; c <= range.col2; ++c) width += ColWidth(c);
    return width;
}

int FlexGrid::CellHeight() const {
    CheckCell(row_, col_);
    const CellRange range = MergedRangeAt(row_, col_);
    int height = 0;
    for (int r = range.row1; r <= range.row2; ++r) height += RowHeight(r);
    return height;
}

// --- columns and rows

int FlexGrid::ColWidth(int col) const {
    CheckCol(col);
    return cols_[col].width < 0 ? kDefaultColWidth : cols_[col].width;
}

void FlexGrid::SetColWidth(int col, int twips) {
    CheckCol(col);
    if (twips < -1) ThrowInvalidPropertyValue();
    Change(cols_[col].width, twips, Aspect::Layout);
}

int FlexGrid::RowHeight(int row) const {
    CheckRow(row);
    return rows_[row].height < 0 ? kDefaultRowHeight : rows_[row].height;
}

void FlexGrid::SetRowHeight(int row, int twips) {
    CheckRow(row);
    if (twips < -1) ThrowInvalidPropertyValue();
    Change(rows_[row].height, twips, Aspect::Layout);
}

int FlexGrid::ColAlignment(int col) const {
    CheckCol(col);
    return cols_[col].alignment;
}

void FlexGrid::SetColAlignment(int col, int alignment) {
    CheckCol(col);
    CheckAlignment(alignment);
    Change(cols_[col].alignment, alignment, Aspect::Layout);
}

int FlexGrid::FixedAlignment(int col) const {
    CheckCol(col);
    return cols_[col].fixedAlignment < 0 ? cols_[col].alignment : cols_[col].fixedAlignment;
}

void FlexGrid::SetFixedAlignment(int col, int alignment) {
    CheckCol(col);
    CheckAlignment(alignment);
    Change(cols_[col].fixedAlignment, alignment, Aspect::Layout);
}

void FlexGrid::SetMergeCells(int mode) {
    if (mode < flexMergeNever || mode > flexMergeRestrictBoth) ThrowInvalidPropertyValue();
    if (mode == mergeCells_) return;
    mergeCells_ = mode;
    NotifyContent(Aspect::Layout);
}

bool FlexGrid::MergeRow(int row) const {
    CheckRow(row);
    return rows_[row].merge;
}

void FlexGrid::SetMergeRow(int row, bool on) {
    CheckRow(row);
    Change(rows_[row].merge, on, Aspect::Layout);
}

bool FlexGrid::MergeCol(int col) const {
    CheckCol(col);
    return cols_[col].merge;
}

void FlexGrid::SetMergeCol(int col, bool on) {
    CheckCol(col);
    Change(cols_[col].merge, on, Aspect::Layout);
}

// --- look

void FlexGrid::SetRedraw(bool on) {
    if (redraw_ == on) return;
    redraw_ = on;
    if (on) Notify(Aspect::Redraw);
}

void FlexGrid::SetWordWrap(bool on) {
    Change(wordWrap_, on, Aspect::Appearance);
}

void FlexGrid::SetBackColor(std::uint32_t color) {
    Change(backColor_, color, Aspect::Appearance);
}

void FlexGrid::SetForeColor(std::uint32_t color) {
    Change(foreColor_, color, Aspect::Appearance);
}

void FlexGrid::SetBackColorFixed(std::uint32_t color) {
    Change(backColorFixed_, color, Aspect::Appearance);
}

void FlexGrid::SetForeColorFixed(std::uint32_t color) {
    Change(foreColorFixed_, color, Aspect::Appearance);
}

void FlexGrid::SetFormatString(std::string format) {
    const std::string_view text = format;
    const std::size_t semicolon = text.find(';');
    const std::string_view colPart = text.substr(0, semicolon);
    const bool hasRowPart = semicolon != std::string_view::npos;
    const bool hasColPart = !colPart.empty() || !hasRowPart;

    if (hasColPart) {
        const auto captions = SplitBars(colPart);
        if (Rows() == 0) SetRows(1);
        SetCols(std::max(static_cast<int>(captions.size()), fixedCols_));
        for (std::size_t i = 0; i < captions.size(); ++i) {
            std::string_view caption = captions[i];
            const int col = static_cast<int>(i);
            if (!caption.empty() && (caption[0] == '<' || caption[0] == '^' || caption[0] == '>')) {
                SetColAlignment(col, caption[0] == '<'   ? flexAlignLeftCenter
                                     : caption[0] == '^' ? flexAlignCenterCenter
                                                         : flexAlignRightCenter);
                caption.remove_prefix(1);
            }
            SetTextMatrix(0, col, std::string(caption));
            SetColWidth(col, TextWidth(caption) + kFormatStringMargin);
        }
    }
    if (hasRowPart) {
        const auto captions = SplitBars(text.substr(semicolon + 1));
        SetRows(std::max(static_cast<int>(captions.size()), fixedRows_));
        if (Cols() == 0) SetCols(1);
        int widest = hasColPart ? ColWidth(0) : 0;
        for (std::size_t i = 0; i < captions.size(); ++i) {
            if (i > 0 || !hasColPart) SetTextMatrix(static_cast<int>(i), 0, std::string(captions[i]));
            widest = std::max(widest, TextWidth(captions[i]) + kFormatStringMargin);
        }
        SetColWidth(0, widest);
    }
    formatString_ = std::move(format);
}

// --- scrolling

void FlexGrid::SetTopRow(int row) {
    row = std::clamp(row, fixedRows_, std::max(Rows() - 1, fixedRows_));
    if (row == topRow_) return;
    topRow_ = row;
    NotifyContent(Aspect::CurrentCell);
}

int FlexGrid::LeftCol() const {
    const int still = StillCols();
    return std::clamp(leftCol_, still, std::max(Cols() - 1, still));
}

void FlexGrid::SetLeftCol(int col) {
    const int still = StillCols();
    col = std::clamp(col, still, std::max(Cols() - 1, still));
    if (col == leftCol_) return;
    leftCol_ = col;
    NotifyContent(Aspect::CurrentCell);
}

void FlexGrid::SetFrozenCols(int cols) {
    if (cols < 0) ThrowInvalidPropertyValue();
    if (cols == frozenCols_) return;
    frozenCols_ = cols;
    leftCol_ = StillCols(); // as a new fixed band does, the view starts at the first scrolling column
    NotifyContent(Aspect::Layout);
}

int FlexGrid::StillCols() const {
    return std::max(fixedCols_, std::min(frozenCols_, Cols() - 1));
}

void FlexGrid::Clear() {
    for (auto& row : rows_) {
        for (auto& cell : row.text) cell.clear();
        row.format.clear();
    }
    NotifyContent(Aspect::Cells);
}

// --- for the view

std::uint32_t FlexGrid::BackColorAt(int row, int col) const {
    CheckCell(row, col);
    const CellFormat* f = FindFormat(row, col);
    if (f && f->back != 0) return f->back;
    return IsFixedCell(row, col) ? backColorFixed_ : backColor_;
}

std::uint32_t FlexGrid::ForeColorAt(int row, int col) const {
    CheckCell(row, col);
    const CellFormat* f = FindFormat(row, col);
    if (f && f->fore != 0) return f->fore;
    return IsFixedCell(row, col) ? foreColorFixed_ : foreColor_;
}

int FlexGrid::AlignmentAt(int row, int col) const {
    CheckCell(row, col);
    const CellFormat* f = FindFormat(row, col);
    if (f && f->alignment >= 0) return f->alignment;
    return IsFixedCell(row, col) ? FixedAlignment(col) : ColAlignment(col);
}

CellRange FlexGrid::MergedRangeAt(int row, int col) const {
    CheckCell(row, col);
    return quillon::MergedRangeAt(MergeView(*this), row, col);
}

std::vector<CellRange> FlexGrid::MergedRanges(int firstRow, int lastRow) const {
    return quillon::MergedRanges(MergeView(*this), firstRow, lastRow);
}

// --- a user's mouse

void FlexGrid::ClickCell(int row, int col) {
    CheckCell(row, col);
    mouseRow_ = row;
    mouseCol_ = col;
    if (!IsFixedCell(row, col)) {
        SetRow(row);
        SetCol(col);
    }
    Click.Raise();
}

void FlexGrid::DblClickCell(int row, int col) {
    CheckCell(row, col);
    mouseRow_ = row;
    mouseCol_ = col;
    if (!IsFixedCell(row, col)) {
        SetRow(row);
        SetCol(col);
    }
    DblClick.Raise();
}

void FlexGrid::CheckCell(int row, int col) const {
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols()) ThrowInvalidArrayIndex();
}

void FlexGrid::CheckRow(int row) const {
    if (row < 0 || row >= Rows()) ThrowInvalidArrayIndex();
}

void FlexGrid::CheckCol(int col) const {
    if (col < 0 || col >= Cols()) ThrowInvalidArrayIndex();
}

} // namespace quillon
