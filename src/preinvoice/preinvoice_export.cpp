// The pre-invoice detail's workbook: every row of ResultRows, not only the page on display.
#include "base/vb_number.h"
#include "preinvoice/preinvoice_window.h"
#include "workbench/detail_workbook.h"
#include "workbench/excel_export.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {

void frm票据预开明细表New::ExportDetailWorkbook() {
    RunSheetWriter(dialogs_, CommonDialog1.FileName, Texts().exportedMessage, WriterTrap::NumberDescription,
                   [this](Worksheet& sheet) {
                       const int C = MSFlexGrid1.Cols();
                       const int n = AmountColumnCount;
                       const int U = ResultRowCount().value_or(0);
                       WriteDetailSheetHead(sheet, MSFlexGrid1, Label1_0.Caption(), List1.Text(),
                                            DTPicker1_0.Value(), DTPicker1_1.Value());

                       sheet.Range(4, 1, 5, 1).SetMergeCells(true);
                       sheet.Range(4, 2, 5, 2).SetMergeCells(true);
                       sheet.Range(4, 3, 4, 4).SetMergeCells(true);
                       MergeChargeItemGroups(sheet, 5, ChargeItems);
                       for (int c = C - 2; c <= C; ++c) sheet.Range(4, c, 5, c).SetMergeCells(true);
                       sheet.Range(4, 1, 5, C).Interior().SetColor(kDetailHeaderFill);

                       Label2.SetVisible(true);
                       dialogs_.Yield();

                       for (int i = 1; i <= U; ++i) {
                           const int r = i + 5;
                           const PreInvoiceRow& row = (*ResultRows)[i];
                           ProgressBar1.SetValue(i);
                           sheet.Cells(r, 1).SetValue(static_cast<double>(i));
                           sheet.Cells(r, 1).SetHorizontalAlignment(xlCenter);
                           SheetRange date = sheet.Cells(r, 2);
                           date.SetValue(Format(row.BillDate, "yyyy-mm-dd"));
                           date.SetNumberFormat("yyyy-mm-dd");
                           date.SetHorizontalAlignment(xlCenter);
                           // The leading "'" keeps an invoice number as text.
                           sheet.Cells(r, 3).SetValue("'" + row.SpecialInvoiceNo);
                           sheet.Cells(r, 3).SetHorizontalAlignment(xlCenter);
                           sheet.Cells(r, 4).SetValue("'" + row.OrdinaryInvoiceNo);
                           sheet.Cells(r, 4).SetHorizontalAlignment(xlCenter);
                           const int shown = std::min<int>(n, static_cast<int>(row.Amounts.size()));
                           for (int j = 1; j <= shown; ++j)
                               sheet.Cells(r, j + 4).SetValue(Format(row.Amounts[j - 1], "0.00"));
                           sheet.Cells(r, C - 2).SetValue(Format(row.RowTotal, "0.00"));
                           sheet.Cells(r, C - 1).SetValue(row.PayMode);
                           sheet.Cells(r, C).SetValue(row.Payer);
                           sheet.Rows(r).SetWrapText(true);
                       }

                       SheetRange money = sheet.Range(6, 5, U + 5, n + 5);
                       money.SetNumberFormat("#0.00");
                       money.SetHorizontalAlignment(xlRight);
                       RangeFont titleFont = sheet.Range(1, 1, 1, C).Font();
                       titleFont.SetName(kDetailSheetFont);
                       titleFont.SetBold(true);
                       RangeFont bodyFont = sheet.Range(2, 1, U + 5, C).Font();
                       bodyFont.SetName(kDetailSheetFont);
                       bodyFont.SetSize(9);
                       sheet.Range(4, 1, U + 5, C).Borders().SetLineStyle(xlContinuous);
                       sheet.Range(U + 5, 1, U + 5, C).Interior().SetColor(kDetailHeaderFill);
                       // Fixed columns, however few the table has.
                       sheet.Cells(U + 6, 2).SetValue("收款人:");
                       sheet.Cells(U + 6, 7).SetValue("经理:");
                       sheet.Cells(U + 6, 13).SetValue("缴款人:");
                       Label2.SetVisible(false);
                   });
}

} // namespace quillon
