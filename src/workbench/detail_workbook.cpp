#include "workbench/detail_workbook.h"

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

int MergeChargeItemGroups(Worksheet& sheet, int col, const ChargeItemColumns& items, bool allParking) {
    for (const ChargeItem& item : items) {
        const int width = allParking || item.IsParking() ? 3 : 2;
        sheet.Range(4, col, 4, col + width - 1).SetMergeCells(true);
        col += width;
    }
    return col;
}

} // namespace quillon
