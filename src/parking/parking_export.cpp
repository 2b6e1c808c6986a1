// The parking-fee detail's workbook: every row of ResultRows, closing rows filled, and a
// signature row inside the table's font.
#include "base/vb_number.h"
#include "parking/parking_window.h"
#include "workbench/detail_workbook.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {

namespace {

// The sheet's test for a paper bill; MediaKind holds the longer kPaperMedia, so the sheet puts
// every bill in column 3, under "电子发票号", where the grid splits them.
constexpr const char* kSheetPaperMedia = "纸质";

} // namespace

void frm停车费明细表New::ExportDetailWorkbook() {
    // Both bill-number columns down both rows; three columns for every item; 合计 alone at the right.
    WriteDetailWorkbook({{{4, 3, 5, 3}}, 4, 1, true}, [this](Worksheet& sheet, int C, int n, int U) {
        for (int i = 1; i <= U; ++i) {
            const int r = i + 5;
            const ParkingRow& row = (*ResultRows)[i];
            ProgressBar1.SetValue(i);
            sheet.Cells(r, 1).SetValue(static_cast<double>(i));
            sheet.Cells(r, 1).SetHorizontalAlignment(xlCenter);
            if (row.IsClosing()) {
                sheet.Cells(r, 2).SetValue(row.BillRange);
                sheet.Cells(r, 2).SetHorizontalAlignment(xlCenter);
                sheet.Cells(r, C - 1).SetValue(row.PayMode);
                sheet.Cells(r, C - 1).SetHorizontalAlignment(xlRight);
                sheet.Cells(r, C).SetValue(row.RowTotal);
                sheet.Cells(r, C).SetHorizontalAlignment(xlRight);
                sheet.Range(r, 1, r, C).Interior().SetColor(kDetailHeaderFill);
                continue;
            }
            // The leading "'" keeps a bill number as text.
            SheetRange range = sheet.Cells(r, row.MediaKind == kSheetPaperMedia ? 2 : 3);
            range.SetValue("'" + row.BillRange);
            range.SetHorizontalAlignment(xlCenter);
            WriteAmountCells(sheet, r, 4, row.Amounts, n);
            sheet.Cells(r, C).SetValue(Format(row.RowTotal, "0.00"));
            if (row.BillRange == "合  计") sheet.Range(r, 1, r, C).Interior().SetColor(kDetailHeaderFill);
        }

        // The fonts reach down to the signature row.
        FormatDetailTable(sheet, C, U + 5, 4, C, U + 6);

        const int s = U + 6;
        sheet.Cells(s, 1).SetValue("收款人:");
        sheet.Cells(s, 2).SetValue("经理:");
        sheet.Cells(s, 2).SetHorizontalAlignment(xlCenter);
        sheet.Cells(s, 3).SetValue("缴款人:");
        sheet.Cells(s, 3).SetHorizontalAlignment(xlLeft);
        sheet.Cells(s, 5).SetValue("总仓管理员:");
        sheet.Cells(s, 5).SetHorizontalAlignment(xlLeft);
    });
}

} // namespace quillon
