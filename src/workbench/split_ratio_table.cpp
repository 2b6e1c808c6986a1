#include "workbench/split_ratio_table.h"

#include "base/vb_number.h"
#include "controls/dialogs.h"
#include "controls/flex_grid.h"
#include "controls/text_box.h"

namespace quillon {

SplitRatioTable::SplitRatioTable(FlexGrid& MSFlexGrid2, TextBox& txtGRD, Dialogs& dialogs)
    : grid_(MSFlexGrid2), box_(txtGRD), dialogs_(dialogs) {}

void SplitRatioTable::InitGrid() {
    grid_.SetFormatString(kSplitTableFormat);
    grid_.SetCols(5);
    grid_.SetRows(1);
    for (int c = 0; c < grid_.Cols(); ++c) grid_.SetFixedAlignment(c, flexAlignCenterCenter);
    grid_.SetColWidth(kSplitCodeCol, 0);
    box_.SetVisible(false);
}

void SplitRatioTable::FillSplitRatioTable(const ChargeItemColumns& items) {
    grid_.SetRows(1);
    for (const ChargeItem& item : items) {
        if (!item.IsParking()) continue;
        grid_.SetRows(grid_.Rows() + 1);
        grid_.SetRow(grid_.Rows() - 1);
        const int r = grid_.Row();
        grid_.SetTextMatrix(r, kSplitNumberCol, std::to_string(r));
        grid_.SetTextMatrix(r, kSplitItemCol, item.ColumnName);
        grid_.SetTextMatrix(r, kSplitDeveloperCol, "70");
        grid_.SetTextMatrix(r, kSplitPropertyCol, "30");
        grid_.SetTextMatrix(r, kSplitCodeCol, item.CodeLiteral);
    }
}

void SplitRatioTable::MSFlexGrid2_Click() {
    box_.SetVisible(false);
    const int col = grid_.Col();
    if (col != kSplitDeveloperCol && col != kSplitPropertyCol) return;
    box_.Move(grid_.Left() + grid_.CellLeft(), grid_.Top() + grid_.CellTop(), grid_.CellWidth(),
              grid_.CellHeight());
    box_.SetText(grid_.Text());
    box_.SetVisible(true);
    box_.ZOrder(0);
    box_.SetFocus();
    box_.SetSelStart(0);
    box_.SetSelLength(box_.TextLength());
}

void SplitRatioTable::txtGRD_KeyPress(int& KeyAscii) {
    if (KeyAscii != 13) return;
    grid_.SetText(box_.Text());
    if (grid_.Col() == kSplitDeveloperCol) {
        grid_.SetCol(kSplitPropertyCol);
        MSFlexGrid2_Click();
        return;
    }
    box_.SetVisible(false);
    const int row = grid_.Row();
    const double sum =
        Val(grid_.TextMatrix(row, kSplitPropertyCol)) + Val(grid_.TextMatrix(row, kSplitDeveloperCol));
    if (sum != 100) {
        dialogs_.MsgBox(kSplitSumMessage, "系统提示", vbInformation);
        grid_.SetCol(kSplitDeveloperCol);
        MSFlexGrid2_Click();
    }
}

int SplitRatioTable::RowOf(const std::string& codeLiteral) const {
    for (int r = 1; r < grid_.Rows(); ++r)
        if (grid_.TextMatrix(r, kSplitCodeCol) == codeLiteral) return r;
    return -1;
}

std::string SplitRatioTable::DeveloperText(int row) const {
    return row < 0 ? std::string() : grid_.TextMatrix(row, kSplitDeveloperCol);
}

std::string SplitRatioTable::PropertyText(int row) const {
    return row < 0 ? std::string() : grid_.TextMatrix(row, kSplitPropertyCol);
}

std::string SplitRatioTable::ShareText(const std::string& codeLiteral) const {
    // The quotient goes through its general text and back before it is printed, so the
    // statement carries what the old conversion chain made of it.
    const double share = CDbl(CStr(CDbl(PropertyText(RowOf(codeLiteral))) / 100));
    return CStr(share);
}

} // namespace quillon
