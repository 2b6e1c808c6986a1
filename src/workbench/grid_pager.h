// grid_pager.h — workbench layer: the pager of the detail reports. The whole result of a run
// stays in the report's ResultRows; the grid shows one page of it under its two header rows,
// and a page change rewrites the grid from memory without asking the database anything.
#pragma once

#include <functional>
#include <optional>

namespace quillon {

class FlexGrid;
class Label;
class TextBox;

inline constexpr const char* kEmptyPageLabel = "第 00 页 共 00 页";

class GridPager {
public:
    // What the pager needs of the report: how many rows ResultRows holds (slot 0 not counted;
    // nothing before the first run, when there is no list yet), and the writer that fills the
    // grid's current row from ResultRows[r].
    struct Report {
        std::function<std::optional<int>()> rowCount;
        std::function<void(int r)> writeRow;
    };

    GridPager(FlexGrid& MSFlexGrid1, Label& Label19, TextBox& Text6, Report report);

    int PageSize = 0;    // rows per page, from Form_Resize
    int PageCount = 0;   // pages of the last run that found rows
    int CurrentPage = 0; // 1 at the start of each run

    // Set by the run once ResultRows is complete, closing rows included.
    void SetPageCount(int totalRows);
    // "第 {CurrentPage:00} 页 共 {PageCount:00} 页".
    void ShowPageLabel();
    // Header rows, then the rows of the page. A page below 1, or a run not made yet, shows
    // the header alone: there is no row below 1 to read.
    void RenderPage(int page);

    // 首页, 上一页, 下一页, 尾页.
    void Image2_Click(int Index);
    // Enter in the page box: the numeric prefix, rounded ties to even, if it is a page.
    void Text6_KeyPress(int& KeyAscii);

private:
    // A window too low for one row still pages one row at a time.
    int RowsPerPage() const { return PageSize > 0 ? PageSize : 1; }

    FlexGrid& grid_;
    Label& label_;
    TextBox& box_;
    Report report_;
};

} // namespace quillon
