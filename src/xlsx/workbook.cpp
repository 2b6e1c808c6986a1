// workbook.cpp — the workbook and its saving through libxlsxwriter.
#include "xlsx/workbook.h"

#include <filesystem>
#include <vector>

#include <xlsxwriter.h>

#include "base/vb_error.h"

namespace quillon {

namespace {

namespace fs = std::filesystem;

// Formats Excel numbers itself; written by number, as Excel writes them.
int BuiltinNumberFormat(const std::string& code) {
    static const std::pair<const char*, int> kBuiltins[] = {
        {"0", 1},  {"0.00", 2},   {"#,##0", 3},     {"#,##0.00", 4},
        {"0%", 9}, {"0.00%", 10}, {"0.00E+00", 11}, {"@", 49},
    };
    for (const auto& [text, id] : kBuiltins)
        if (code == text) return id;
    return -1;
}

uint8_t HorizontalAlign(int a) {
    switch (a) {
    case xlLeft:
        return LXW_ALIGN_LEFT;
    case xlCenter:
        return LXW_ALIGN_CENTER;
    case xlRight:
        return LXW_ALIGN_RIGHT;
    case xlFill:
        return LXW_ALIGN_FILL;
    case xlJustify:
        return LXW_ALIGN_JUSTIFY;
    case xlCenterAcrossSelection:
        return LXW_ALIGN_CENTER_ACROSS;
    case xlDistributed:
        return LXW_ALIGN_DISTRIBUTED;
    default:
        return LXW_ALIGN_NONE;
    }
}

uint8_t VerticalAlign(int a) {
    switch (a) {
    case xlTop:
        return LXW_ALIGN_VERTICAL_TOP;
    case xlCenter:
        return LXW_ALIGN_VERTICAL_CENTER;
    case xlJustify:
        return LXW_ALIGN_VERTICAL_JUSTIFY;
    case xlDistributed:
        return LXW_ALIGN_VERTICAL_DISTRIBUTED;
    default:
        return LXW_ALIGN_NONE; // bottom, the file's default
    }
}

uint8_t BorderStyle(int lineStyle) {
    switch (lineStyle) {
    case xlContinuous:
        return LXW_BORDER_THIN; // the default weight, xlThin
    case xlDash:
        return LXW_BORDER_DASHED;
    case xlDot:
        return LXW_BORDER_DOTTED;
    case xlDouble:
        return LXW_BORDER_DOUBLE;
    case xlDashDot:
        return LXW_BORDER_DASH_DOT;
    case xlDashDotDot:
        return LXW_BORDER_DASH_DOT_DOT;
    case xlSlantDashDot:
        return LXW_BORDER_SLANT_DASH_DOT;
    default:
        return LXW_BORDER_NONE;
    }
}

// The automation colour has red in the low byte; the file wants 0xRRGGBB.
lxw_color_t RgbFromBgr(long bgr) {
    lxw_color_t rgb = static_cast<lxw_color_t>(((bgr & 0xFF) << 16) | (bgr & 0xFF00) | ((bgr >> 16) & 0xFF));
    return rgb == 0 ? static_cast<lxw_color_t>(LXW_COLOR_BLACK) : rgb; // libxlsxwriter reads 0 as "no colour"
}

lxw_format* MakeFormat(lxw_workbook* book, const CellStyle& s) {
    lxw_format* f = workbook_add_format(book);
    if (s.numberFormat != "General") {
        int builtin = BuiltinNumberFormat(s.numberFormat);
        if (builtin > 0)
            format_set_num_format_index(f, static_cast<uint8_t>(builtin));
        else
            format_set_num_format(f, s.numberFormat.c_str());
    }
    if (uint8_t a = HorizontalAlign(s.horizontalAlignment)) format_set_align(f, a);
    if (uint8_t a = VerticalAlign(s.verticalAlignment)) format_set_align(f, a);
    if (s.wrapText) format_set_text_wrap(f);
    if (s.fontName != kDefaultFontName) format_set_font_name(f, s.fontName.c_str());
    if (s.fontSize != kDefaultFontSize) format_set_font_size(f, s.fontSize);
    if (s.fontBold) format_set_bold(f);
    if (s.interiorColor) {
        format_set_pattern(f, LXW_PATTERN_SOLID);
        format_set_bg_color(f, RgbFromBgr(*s.interiorColor));
    }
    format_set_left(f, BorderStyle(s.Border(BorderEdge::Left)));
    format_set_top(f, BorderStyle(s.Border(BorderEdge::Top)));
    format_set_right(f, BorderStyle(s.Border(BorderEdge::Right)));
    format_set_bottom(f, BorderStyle(s.Border(BorderEdge::Bottom)));
    return f;
}

// Builds the libxlsxwriter workbook from the sheet; the first failing call's code, or none.
class SheetWriter {
public:
    SheetWriter(lxw_workbook* book, const Worksheet& sheet)
        : book_(book), sheet_(sheet), formats_(sheet.Styles().Count(), nullptr) {}

    lxw_error Write() {
        lxw_worksheet* ws = workbook_add_worksheet(book_, sheet_.Name().c_str());
        if (!ws) return LXW_ERROR_MEMORY_MALLOC_FAILED;

        for (const auto& [col, width] : sheet_.ColumnWidths()) {
            lxw_row_col_options hidden{1, 0, 0};
            auto c = static_cast<lxw_col_t>(col - 1);
            Check(worksheet_set_column_opt(ws, c, c, width, nullptr, width == 0 ? &hidden : nullptr));
        }
        // Merges first: libxlsxwriter fills the area with blanks of one format, and the cells
        // written below then put back each cell's own value and format.
        for (const CellArea& m : sheet_.MergedAreas()) {
            Check(worksheet_merge_range(ws, Row(m.firstRow), Col(m.firstCol), Row(m.lastRow), Col(m.lastCol),
                                        "", Format(sheet_.StyleIdAt(m.firstRow, m.firstCol))));
        }
        for (const auto& [row, data] : sheet_.RowMap()) {
            if (data.style != StylePool::kDefault || data.height) {
                double height = data.height.value_or(LXW_DEF_ROW_HEIGHT);
                lxw_row_col_options hidden{1, 0, 0};
                Check(worksheet_set_row_opt(ws, Row(row), height == 0 ? LXW_DEF_ROW_HEIGHT : height,
                                            Format(data.style), height == 0 ? &hidden : nullptr));
            }
            for (const Worksheet::Cell& cell : data.cells) {
                lxw_format* format = Format(cell.style);
                if (const double* number = std::get_if<double>(&cell.value))
                    Check(worksheet_write_number(ws, Row(row), Col(cell.col), *number, format));
                else if (const std::string* text = std::get_if<std::string>(&cell.value);
                         text && !text->empty())
                    Check(worksheet_write_string(ws, Row(row), Col(cell.col), text->c_str(), format));
                else if (format)
                    Check(worksheet_write_blank(ws, Row(row), Col(cell.col), format));
            }
        }
        WritePageSetup(ws);
        return error_;
    }

private:
    void WritePageSetup(lxw_worksheet* ws) {
        const SheetPageSetup& p = sheet_.PageSetup();
        if (p.landscape) worksheet_set_landscape(ws);
        if (p.paperSize != 0) worksheet_set_paper(ws, static_cast<uint8_t>(p.paperSize));
        if (p.fitToPagesWide != 0 || p.fitToPagesTall != 0)
            worksheet_fit_to_pages(ws, static_cast<uint16_t>(p.fitToPagesWide),
                                   static_cast<uint16_t>(p.fitToPagesTall));
        if (p.centerHorizontally) worksheet_center_horizontally(ws);
        if (p.firstTitleRow > 0) Check(worksheet_repeat_rows(ws, Row(p.firstTitleRow), Row(p.lastTitleRow)));
        if (!p.footer.empty()) Check(worksheet_set_footer(ws, p.footer.c_str()));
        if (p.freezeRow > 1 || p.freezeCol > 1)
            worksheet_freeze_panes(ws, Row(p.freezeRow), Col(p.freezeCol));
    }

    static lxw_row_t Row(int row) { return static_cast<lxw_row_t>(row - 1); }
    static lxw_col_t Col(int col) { return static_cast<lxw_col_t>(col - 1); }

    void Check(lxw_error e) {
        if (e != LXW_NO_ERROR && error_ == LXW_NO_ERROR) error_ = e;
    }

    lxw_format* Format(StyleId id) {
        if (id == StylePool::kDefault) return nullptr;
        if (!formats_[id]) formats_[id] = MakeFormat(book_, sheet_.Styles().At(id));
        return formats_[id];
    }

    lxw_workbook* book_;
    const Worksheet& sheet_;
    std::vector<lxw_format*> formats_; // one libxlsxwriter format per interned style, made on first use
    lxw_error error_ = LXW_NO_ERROR;
};

} // namespace

Workbook::Workbook()
    : styles_(std::make_unique<StylePool>()), sheet_(std::make_unique<Worksheet>(*styles_, "Sheet1")) {}

Workbook::~Workbook() = default;
Workbook::Workbook(Workbook&&) noexcept = default;
Workbook& Workbook::operator=(Workbook&&) noexcept = default;

Worksheet& Workbook::Worksheets(int index) {
    if (index != 1) throw VbError(kErrSubscriptOutOfRange, "下标越界");
    return *sheet_;
}

std::string Workbook::PathWithDefaultExtension(std::string_view path) {
    std::size_t slash = path.find_last_of("/\\");
    std::string_view name = slash == std::string_view::npos ? path : path.substr(slash + 1);
    std::string target(path);
    if (name.find('.') == std::string_view::npos) target += ".xlsx";
    return target;
}

void Workbook::SaveAs(std::string_view path) {
    std::string target = PathWithDefaultExtension(path);
    if (path.empty()) throw VbError(kErrXlApplication, "无法保存文件: ");
    auto failed = [&] { return VbError(kErrXlApplication, "无法保存文件: " + target); };
    // The usual failures are told before libxlsxwriter tries, which would also print them.
    std::error_code ec;
    fs::path file(target);
    fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, ec) || fs::is_directory(file, ec)) throw failed();

    // Written beside the target and renamed over it only when complete, so a failed save (a full
    // disk, a size limit) leaves a workbook already there as it was, and no partial file behind.
    const fs::path partial = folder / ("." + file.filename().string() + ".saving");
    lxw_workbook_options options{};
    options.constant_memory = LXW_FALSE; // cells are written in any order
    lxw_workbook* book = workbook_new_opt(partial.string().c_str(), &options);
    if (!book) throw failed();
    if (SheetWriter(book, *sheet_).Write() != LXW_NO_ERROR) {
        lxw_workbook_free(book); // nothing written yet
        throw failed();
    }
    // Writes the file and frees the workbook in every case.
    const bool written = workbook_close(book) == LXW_NO_ERROR;
    if (written) fs::rename(partial, file, ec);
    if (!written || ec) {
        fs::remove(partial, ec);
        throw failed();
    }
}

} // namespace quillon
