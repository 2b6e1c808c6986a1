#include "workbench/detail_workbook.h"

#include <algorithm>

#include "base/vb_error.h"
#include "base/vb_number.h"
#include "controls/flex_grid.h"
#include "workbench/excel_export.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {

namespace {

// Left(entry, InStr(entry, "【") - 1): without a "【" the length asked for is -1.
std::string DepartmentPart(const std::string& entry) {
    const std::size_t mark = entry.find("【");
    if (mark == std::string::npos) throw VbError(kErrInvalidProcCall, "无效的过程调用或参数");
    return entry.substr(0, mark);
}

void MergeLine(Worksheet& sheet, int row, int lastCol, int alignment, const std::string& text) {
    SheetRange line = sheet.Range(row, 1, row, lastCol);
    line.SetMergeCells(true);
    line.SetHorizontalAlignment(alignment);
    sheet.Cells(row, 1).SetValue(text);
}

} // namespace

void WriteDetailSheetHead(Worksheet& sheet, FlexGrid& grid, const std::string& title,
                          const std::string& departmentEntry, const DateTime& start, const DateTime& end) {
    const int C = grid.Cols();
    MergeLine(sheet, 1, C, xlCenter, title);
    MergeLine(sheet, 2, 4, xlLeft, " 统计部门 : " + DepartmentPart(departmentEntry));
    MergeLine(sheet, 3, 4, xlLeft,
              " 开票日期 : " + Format(start, "yyyy-mm-dd") + " 至 " + Format(end, "yyyy-mm-dd"));
    sheet.Range(4, 1, 5, C).SetHorizontalAlignment(xlCenter);
    grid.SetVisible(false);
    CopyGridHeaderRow(grid, 0, sheet, 4);
    CopyGridHeaderRow(grid, 1, sheet, 5);
    grid.SetVisible(true);
}

void MergeDetailHeader(Worksheet& sheet, int lastCol, const std::vector<SheetSpan>& ownBlocks,
                       int firstItemCol, const ChargeItemColumns& items, int closingCols, bool allParking) {
    sheet.Range(4, 1, 5, 1).SetMergeCells(true);
    sheet.Range(4, 2, 5, 2).SetMergeCells(true);
    for (const SheetSpan& b : ownBlocks)
        sheet.Range(b.firstRow, b.firstCol, b.lastRow, b.lastCol).SetMergeCells(true);
    MergeChargeItemGroups(sheet, firstItemCol, items, allParking);
    for (int c = lastCol - closingCols + 1; c <= lastCol; ++c) sheet.Range(4, c, 5, c).SetMergeCells(true);
    sheet.Range(4, 1, 5, lastCol).Interior().SetColor(kDetailHeaderFill);
}

int MergeChargeItemGroups(Worksheet& sheet, int col, const ChargeItemColumns& items, bool allParking) {
    for (const ChargeItem& item : items) {
        const int width = allParking || item.IsParking() ? 3 : 2;
        sheet.Range(4, col, 4, col + width - 1).SetMergeCells(true);
        col += width;
    }
    return col;
}

void WriteBillCells(Worksheet& sheet, int row, int ordinal, const std::string& billDate,
                    std::initializer_list<const std::string*> numbers) {
    sheet.Cells(row, 1).SetValue(static_cast<double>(ordinal));
    sheet.Cells(row, 1).SetHorizontalAlignment(xlCenter);
    SheetRange date = sheet.Cells(row, 2);
    date.SetValue(Format(billDate, "yyyy-mm-dd"));
    date.SetNumberFormat("yyyy-mm-dd");
    date.SetHorizontalAlignment(xlCenter);
    int col = 3;
    for (const std::string* number : numbers) {
        sheet.Cells(row, col).SetValue("'" + *number);
        sheet.Cells(row, col).SetHorizontalAlignment(xlCenter);
        ++col;
    }
}

void WriteAmountCells(Worksheet& sheet, int row, int firstCol, const std::vector<double>& amounts,
                      int count) {
    // A row of an earlier run may have other columns than the header now shows.
    const int shown = std::min<int>(count, static_cast<int>(amounts.size()));
    for (int j = 0; j < shown; ++j) sheet.Cells(row, firstCol + j).SetValue(Format(amounts[j], "0.00"));
}

void FormatDetailTable(Worksheet& sheet, int lastCol, int dataLastRow, int moneyFirstCol, int moneyLastCol,
                       int fontLastRow) {
    SheetRange money = sheet.Range(6, moneyFirstCol, dataLastRow, moneyLastCol);
    money.SetNumberFormat("#0.00");
    money.SetHorizontalAlignment(xlRight);
    RangeFont titleFont = sheet.Range(1, 1, 1, lastCol).Font();
    titleFont.SetName(kDetailSheetFont);
    titleFont.SetBold(true);
    RangeFont bodyFont = sheet.Range(2, 1, fontLastRow, lastCol).Font();
    bodyFont.SetName(kDetailSheetFont);
    bodyFont.SetSize(9);
    sheet.Range(4, 1, dataLastRow, lastCol).Borders().SetLineStyle(xlContinuous);
}

void WriteSignatureRow(Worksheet& sheet, int row) {
    sheet.Cells(row, 2).SetValue("收款人:");
    sheet.Cells(row, 7).SetValue("经理:");
    sheet.Cells(row, 13).SetValue("缴款人:");
}

} // namespace quillon
