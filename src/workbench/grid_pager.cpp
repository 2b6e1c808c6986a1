#include "workbench/grid_pager.h"

#include "base/vb_number.h"
#include "controls/flex_grid.h"
#include "controls/label.h"
#include "controls/text_box.h"

namespace quillon {

GridPager::GridPager(FlexGrid& MSFlexGrid1, Label& Label19, TextBox& Text6, Report report)
    : grid_(MSFlexGrid1), label_(Label19), box_(Text6), report_(std::move(report)) {}

void GridPager::SetPageCount(int totalRows) {
    PageCount = totalRows / RowsPerPage() + (totalRows % RowsPerPage() != 0 ? 1 : 0);
}

void GridPager::ShowPageLabel() {
    label_.SetCaption("第 " + Format(CurrentPage, "00") + " 页 共 " + Format(PageCount, "00") + " 页");
}

void GridPager::RenderPage(int page) {
    grid_.SetRows(2);
    grid_.SetVisible(false);
    // A payer's row made two lines high shows its text on both.
    grid_.SetWordWrap(true);
    // Held back as well, so that a view still showing the grid repaints once, not per cell.
    grid_.SetRedraw(false);
    const int last = report_.rowCount().value_or(0);
    if (page >= 1) {
        const long long first = static_cast<long long>(page - 1) * RowsPerPage() + 1;
        int count = 1;
        for (long long r = first; r <= last; ++r) {
            grid_.SetRows(grid_.Rows() + 1);
            grid_.SetRow(grid_.Rows() - 1);
            report_.writeRow(static_cast<int>(r));
            if (++count > RowsPerPage()) break;
        }
    }
    grid_.SetRedraw(true);
    grid_.SetVisible(true);
    ShowPageLabel();
}

void GridPager::Image2_Click(int Index) {
    if (grid_.Rows() == 1) return;
    switch (Index) {
    case 0:
        CurrentPage = 1;
        break;
    case 1:
        CurrentPage = CurrentPage - 1 < 2 ? 1 : CurrentPage - 1;
        break;
    case 2:
        CurrentPage = CurrentPage + 1 > PageCount ? PageCount : CurrentPage + 1;
        break;
    case 3:
        CurrentPage = PageCount;
        break;
    default:
        return;
    }
    RenderPage(CurrentPage);
}

void GridPager::Text6_KeyPress(int& KeyAscii) {
    if (grid_.Rows() == 1 || KeyAscii != 13) return;
    const double v = Val(box_.Text());
    if (v > 0 && v <= PageCount) {
        CurrentPage = CInt(v);
        ShowPageLabel();
        RenderPage(CurrentPage);
    } else {
        box_.SetText("");
    }
}

} // namespace quillon
