// The pre-invoice detail's workbook: every row of ResultRows, not only the page on display.
#include "base/vb_number.h"
#include "preinvoice/preinvoice_window.h"
#include "workbench/detail_workbook.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {

void frm票据预开明细表New::ExportDetailWorkbook() {
    // 增值税发票 over its two number columns.
    WriteDetailWorkbook({{{4, 3, 4, 4}}, 5, 3}, [this](Worksheet& sheet, int C, int n, int U) {
        for (int i = 1; i <= U; ++i) {
            const int r = i + 5;
            const PreInvoiceRow& row = (*ResultRows)[i];
            ProgressBar1.SetValue(i);
            WriteBillCells(sheet, r, i, row.BillDate, {&row.SpecialInvoiceNo, &row.OrdinaryInvoiceNo});
            WriteAmountCells(sheet, r, 5, row.Amounts, n);
            sheet.Cells(r, C - 2).SetValue(Format(row.RowTotal, "0.00"));
            sheet.Cells(r, C - 1).SetValue(row.PayMode);
            sheet.Cells(r, C).SetValue(row.Payer);
            sheet.Rows(r).SetWrapText(true);
        }

        FormatDetailTable(sheet, C, U + 5, 5, n + 5, U + 5);
        sheet.Range(U + 5, 1, U + 5, C).Interior().SetColor(kDetailHeaderFill);
        WriteSignatureRow(sheet, U + 6);
    });
}

} // namespace quillon
