// The invoice detail's workbook: every row of ResultRows, the total and the 其中 block filled
// row by row as they are written.
#include "base/vb_number.h"
#include "invoice/invoice_window.h"
#include "workbench/detail_workbook.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {

void frm票据开票明细表New::ExportInvoiceWorkbook() {
    // 增值税发票 over its three number columns, 收据 down both rows.
    WriteDetailWorkbook({{{4, 3, 4, 5}, {4, 6, 5, 6}}, 7, 3}, [this](Worksheet& sheet, int C, int n, int U) {
        for (int i = 1; i <= U; ++i) {
            const int r = i + 5;
            const InvoiceRow& row = (*ResultRows)[i];
            ProgressBar1.SetValue(i);
            if (row.BillDate.empty() || row.BillDate == "其中") {
                sheet.Cells(r, 1).SetValue(static_cast<double>(i));
                sheet.Cells(r, 1).SetHorizontalAlignment(xlCenter);
                sheet.Cells(r, 2).SetValue(row.BillDate);
                sheet.Cells(r, 2).SetHorizontalAlignment(xlCenter);
                sheet.Cells(r, C - 2).SetValue(Format(row.RowTotal, "0.00"));
                sheet.Cells(r, C - 1).SetValue(row.PayMode);
                sheet.Range(r, 1, r, C).Interior().SetColor(kDetailHeaderFill);
                continue;
            }
            const auto numbers = row.NumberCells();
            WriteBillCells(sheet, r, i, row.BillDate, {numbers[0], numbers[1], numbers[2], numbers[3]});
            WriteAmountCells(sheet, r, 7, row.Amounts, n);
            sheet.Cells(r, C - 2).SetValue(Format(row.RowTotal, "0.00"));
            sheet.Cells(r, C - 1).SetValue(row.PayMode);
            sheet.Cells(r, C).SetValue(row.Payer);
            sheet.Rows(r).SetWrapText(true);
            if (row.BillDate == "合  计") sheet.Range(r, 1, r, C).Interior().SetColor(kDetailHeaderFill);
        }

        FormatDetailTable(sheet, C, U + 5, 7, n + 7, U + 5);
        WriteSignatureRow(sheet, U + 6);
    });
}

} // namespace quillon
