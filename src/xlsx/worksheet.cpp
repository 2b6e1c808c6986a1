// worksheet.cpp — the in-memory sheet: sparse cells, per-attribute formats, merges, typing.
#include "xlsx/worksheet.h"

#include <algorithm>
#include <unordered_map>

#include "base/vb_error.h"
#include "xlsx/typed_input.h"

namespace quillon {

namespace {

// Excel keeps at most 32767 UTF-16 units in a cell.
constexpr std::size_t kMaxCellTextUnits = 32767;

[[noreturn]] void Refuse() {
    throw VbError(kErrXlApplication, kErrXlApplicationText);
}

std::size_t Utf16Units(std::string_view text) {
    std::size_t units = 0;
    for (unsigned char c : text) {
        if ((c & 0xC0) == 0x80) continue; // continuation byte
        units += c >= 0xF0 ? 2 : 1;       // beyond the BMP: a surrogate pair
    }
    return units;
}

bool IsHorizontalAlignment(int a) {
    return a == xlGeneral || a == xlLeft || a == xlCenter || a == xlRight || a == xlFill || a == xlJustify ||
           a == xlCenterAcrossSelection || a == xlDistributed;
}

bool IsVerticalAlignment(int a) {
    return a == xlTop || a == xlCenter || a == xlBottom || a == xlJustify || a == xlDistributed;
}

bool IsLineStyle(int s) {
    return s == xlContinuous || s == xlDash || s == xlDashDot || s == xlDashDotDot || s == xlDot ||
           s == xlDouble || s == xlSlantDashDot || s == xlLineStyleNone;
}

void CheckCell(int row, int col) {
    if (row < 1 || row > kXlMaxRows || col < 1 || col > kXlMaxColumns) Refuse();
}

} // namespace

// ---- Worksheet ----

Worksheet::Worksheet(StylePool& styles, std::string name) : styles_(styles), name_(std::move(name)) {}

SheetRange Worksheet::Cells(int row, int col) {
    CheckCell(row, col);
    return SheetRange(this, CellArea{row, col, row, col});
}

SheetRange Worksheet::Range(const SheetRange& cell1, const SheetRange& cell2) {
    if (cell1.sheet_ != this || cell2.sheet_ != this) Refuse();
    return SheetRange(this, cell1.area_.Union(cell2.area_));
}

SheetRange Worksheet::Range(int row1, int col1, int row2, int col2) {
    CheckCell(row1, col1);
    CheckCell(row2, col2);
    return SheetRange(this, CellArea::Spanning(row1, col1, row2, col2));
}

SheetRange Worksheet::Range(std::string_view address) {
    auto area = CellArea::Parse(address);
    if (!area) Refuse();
    return SheetRange(this, *area);
}

int Worksheet::LastUsedColumn() const {
    int last = columnWidths_.empty() ? 0 : columnWidths_.rbegin()->first;
    for (const auto& [row, data] : rows_)
        if (!data.cells.empty()) last = std::max(last, data.cells.back().col);
    for (const CellArea& m : merges_) last = std::max(last, m.lastCol);
    return last;
}

SheetColumn Worksheet::Columns(int col) {
    CheckCell(1, col);
    return SheetColumn(this, col);
}

SheetRow Worksheet::Rows(int row) {
    CheckCell(row, 1);
    return SheetRow(this, row);
}

const Worksheet::Cell* Worksheet::Find(int row, int col) const {
    auto r = rows_.find(row);
    if (r == rows_.end()) return nullptr;
    const auto& cells = r->second.cells;
    auto it =
        std::lower_bound(cells.begin(), cells.end(), col, [](const Cell& c, int k) { return c.col < k; });
    return it != cells.end() && it->col == col ? &*it : nullptr;
}

Worksheet::Cell& Worksheet::Touch(RowData& row, int col) {
    auto& cells = row.cells;
    if (cells.empty() || cells.back().col < col) {
        // Rows of a report are alike: size a new row as wide as the widest so far, so that a
        // sheet of a million cells does not carry the vectors' growth slack.
        if (cells.empty()) cells.reserve(rowWidthHint_);
        ++cellCount_;
        Cell& cell = cells.emplace_back(Cell{col, row.style, {}});
        rowWidthHint_ = std::max(rowWidthHint_, std::min<std::size_t>(cells.size(), kMaxRowWidthHint));
        return cell;
    }
    auto it =
        std::lower_bound(cells.begin(), cells.end(), col, [](const Cell& c, int k) { return c.col < k; });
    if (it != cells.end() && it->col == col) return *it;
    ++cellCount_;
    return *cells.insert(it, Cell{col, row.style, {}});
}

StyleId Worksheet::StyleIdAt(int row, int col) const {
    if (const Cell* cell = Find(row, col)) return cell->style;
    auto r = rows_.find(row);
    return r == rows_.end() ? StylePool::kDefault : r->second.style;
}

// Applies one change to many cells, interning each distinct result once.
class Worksheet::StyleChanger {
public:
    StyleChanger(StylePool& styles, const std::function<void(CellStyle&)>& change)
        : styles_(styles), change_(change) {}
    StyleId operator()(StyleId old) {
        auto it = derived_.find(old);
        if (it != derived_.end()) return it->second;
        CellStyle style = styles_.At(old);
        change_(style);
        StyleId id = styles_.Intern(style);
        derived_.emplace(old, id);
        return id;
    }

private:
    StylePool& styles_;
    const std::function<void(CellStyle&)>& change_;
    std::unordered_map<StyleId, StyleId> derived_;
};

void Worksheet::Restyle(const CellArea& area, const std::function<void(CellStyle&)>& change) {
    StyleChanger restyled(styles_, change);
    for (int r = area.firstRow; r <= area.lastRow; ++r) {
        RowData& row = rows_[r];
        for (int c = area.firstCol; c <= area.lastCol; ++c) {
            Cell& cell = Touch(row, c);
            cell.style = restyled(cell.style);
        }
    }
}

void Worksheet::RestyleRow(RowData& row, const std::function<void(CellStyle&)>& change) {
    StyleChanger restyled(styles_, change);
    row.style = restyled(row.style);
    for (Cell& cell : row.cells) cell.style = restyled(cell.style);
}

void Worksheet::AssignText(const CellArea& area, std::string_view text) {
    if (Utf16Units(text) > kMaxCellTextUnits) Refuse();
    std::optional<TypedInput> general, asText; // read once per kind of cell
    for (int r = area.firstRow; r <= area.lastRow; ++r) {
        for (int c = area.firstCol; c <= area.lastCol; ++c) {
            bool textFormat = StyleAt(r, c).numberFormat == "@";
            auto& in = textFormat ? asText : general;
            if (!in) in = ReadTypedInput(text, textFormat);
            if (in->kind == TypedInput::Kind::Empty) {
                // Clearing keeps the cell's format; a cell never written is not made.
                if (Find(r, c)) Touch(rows_[r], c).value = std::monostate{};
                continue;
            }
            Cell& cell = Touch(rows_[r], c);
            if (in->kind == TypedInput::Kind::Text) {
                cell.value = in->text;
            } else {
                cell.value = in->number;
                // A date typed into a cell of format General brings its own format.
                if (in->kind == TypedInput::Kind::Date && styles_.At(cell.style).numberFormat == "General") {
                    CellStyle style = styles_.At(cell.style);
                    style.numberFormat = "yyyy-mm-dd";
                    cell.style = styles_.Intern(style);
                }
            }
        }
    }
}

void Worksheet::AssignNumber(const CellArea& area, double number) {
    // The old platform's doubles are always finite; refuse what no Excel cell can hold.
    if (number != number || number > 1.7976931348623157e308 || number < -1.7976931348623157e308) Refuse();
    if (number == 0) number = 0.0; // no negative zero in a cell
    for (int r = area.firstRow; r <= area.lastRow; ++r) {
        RowData& row = rows_[r];
        for (int c = area.firstCol; c <= area.lastCol; ++c) Touch(row, c).value = number;
    }
}

void Worksheet::Merge(CellArea area) {
    if (area.IsSingleCell()) return;
    // An overlapped merged area becomes part of the new one, as Excel widens a selection.
    for (bool grown = true; grown;) {
        grown = false;
        for (auto it = merges_.begin(); it != merges_.end(); ++it) {
            if (it->Intersects(area)) {
                area = area.Union(*it);
                merges_.erase(it);
                grown = true;
                break;
            }
        }
    }
    StyleId topLeft = StyleIdAt(area.firstRow, area.firstCol);
    for (int r = area.firstRow; r <= area.lastRow; ++r) {
        RowData& row = rows_[r];
        for (int c = area.firstCol; c <= area.lastCol; ++c) {
            Cell& cell = Touch(row, c);
            cell.style = topLeft;
            if (r != area.firstRow || c != area.firstCol) cell.value = std::monostate{};
        }
    }
    merges_.push_back(area);
}

void Worksheet::Unmerge(const CellArea& area) {
    std::erase_if(merges_, [&](const CellArea& m) { return m.Intersects(area); });
}

bool Worksheet::IsMerged(int row, int col) const {
    return std::any_of(merges_.begin(), merges_.end(),
                       [&](const CellArea& m) { return m.Contains(row, col); });
}

// ---- SheetRange ----

void SheetRange::SetValue(std::string_view text) {
    sheet_->AssignText(area_, text);
}

void SheetRange::SetValue(double number) {
    sheet_->AssignNumber(area_, number);
}

CellValue SheetRange::Value() const {
    const Worksheet::Cell* cell = sheet_->Find(area_.firstRow, area_.firstCol);
    return cell ? cell->value : CellValue{};
}

void SheetRange::SetMergeCells(bool merge) {
    if (merge)
        sheet_->Merge(area_);
    else
        sheet_->Unmerge(area_);
}

bool SheetRange::MergeCells() const {
    return sheet_->IsMerged(area_.firstRow, area_.firstCol);
}

void SheetRange::SetHorizontalAlignment(int alignment) {
    if (!IsHorizontalAlignment(alignment)) Refuse();
    sheet_->Restyle(area_, [&](CellStyle& s) { s.horizontalAlignment = alignment; });
}

int SheetRange::HorizontalAlignment() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).horizontalAlignment;
}

void SheetRange::SetVerticalAlignment(int alignment) {
    if (!IsVerticalAlignment(alignment)) Refuse();
    sheet_->Restyle(area_, [&](CellStyle& s) { s.verticalAlignment = alignment; });
}

int SheetRange::VerticalAlignment() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).verticalAlignment;
}

void SheetRange::SetNumberFormat(std::string_view format) {
    std::string code = format.empty() ? "General" : std::string(format);
    sheet_->Restyle(area_, [&](CellStyle& s) { s.numberFormat = code; });
}

std::string SheetRange::NumberFormat() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).numberFormat;
}

void SheetRange::SetWrapText(bool wrap) {
    sheet_->Restyle(area_, [&](CellStyle& s) { s.wrapText = wrap; });
}

bool SheetRange::WrapText() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).wrapText;
}

// ---- Font, Interior, Borders ----

void RangeFont::SetName(std::string_view name) {
    if (name.empty()) Refuse();
    std::string text(name);
    sheet_->Restyle(area_, [&](CellStyle& s) { s.fontName = text; });
}

void RangeFont::SetSize(double points) {
    if (!(points >= 1 && points <= 409)) Refuse();
    sheet_->Restyle(area_, [&](CellStyle& s) { s.fontSize = points; });
}

void RangeFont::SetBold(bool bold) {
    sheet_->Restyle(area_, [&](CellStyle& s) { s.fontBold = bold; });
}

std::string RangeFont::Name() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).fontName;
}
double RangeFont::Size() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).fontSize;
}
bool RangeFont::Bold() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).fontBold;
}

void RangeInterior::SetColor(long bgr) {
    if (bgr < 0 || bgr > 0xFFFFFF) Refuse();
    sheet_->Restyle(area_, [&](CellStyle& s) { s.interiorColor = bgr; });
}

std::optional<long> RangeInterior::Color() const {
    return sheet_->StyleAt(area_.firstRow, area_.firstCol).interiorColor;
}

void RangeBorders::SetLineStyle(int lineStyle) {
    if (!IsLineStyle(lineStyle)) Refuse();
    sheet_->Restyle(area_, [&](CellStyle& s) { s.borders.fill(lineStyle); });
}

std::optional<int> RangeBorders::LineStyle() const {
    const auto& b = sheet_->StyleAt(area_.firstRow, area_.firstCol).borders;
    if (std::all_of(b.begin(), b.end(), [&](int s) { return s == b[0]; })) return b[0];
    return std::nullopt;
}

// ---- Columns, Rows ----

void SheetColumn::SetColumnWidth(double width) {
    if (!(width >= 0 && width <= 255)) Refuse();
    sheet_->columnWidths_[col_] = width;
}

double SheetColumn::ColumnWidth() const {
    auto it = sheet_->columnWidths_.find(col_);
    return it == sheet_->columnWidths_.end() ? kDefaultSheetColumnWidth : it->second;
}

void SheetRow::SetWrapText(bool wrap) {
    sheet_->RestyleRow(sheet_->rows_[row_], [&](CellStyle& s) { s.wrapText = wrap; });
}

bool SheetRow::WrapText() const {
    auto it = sheet_->rows_.find(row_);
    return it != sheet_->rows_.end() && sheet_->styles_.At(it->second.style).wrapText;
}

void SheetRow::SetRowHeight(double points) {
    if (!(points >= 0 && points <= 409)) Refuse();
    sheet_->rows_[row_].height = points;
}

double SheetRow::RowHeight() const {
    auto it = sheet_->rows_.find(row_);
    return it != sheet_->rows_.end() && it->second.height ? *it->second.height : kDefaultSheetRowHeight;
}

} // namespace quillon
