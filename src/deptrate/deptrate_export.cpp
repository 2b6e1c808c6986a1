// The department summary's workbook: Command2 and its writer.
#include "base/vb_number.h"
#include "base/vb_text.h"
#include "deptrate/deptrate_window.h"
#include "workbench/excel_export.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {
namespace {

// FFC0C0 in the grid's byte order: light blue, the header and 合计 fill.
constexpr long kHeaderFill = 16761024;
constexpr const char* kTitleFont = "楷体_GB2312";
constexpr const char* kBodyFont = "微软雅黑";

} // namespace

void frm部门开票分税率统计表::Command2_Click() {
    // Before its dialog this export used to end every Excel process left on the machine. A
    // workbook written without Excel leaves no such process behind, so there is nothing to end.
    ExportControls controls{MSFlexGrid1, CommonDialog1, ProgressBar1, {&Command1, &Command2, &Command3}};
    ExportRequest request;
    // The name repeats the start date; the end date is not in it. Users know the files by it.
    const std::string start = Format(DTPicker1.Value(), "yyyymmdd");
    request.defaultFileName = "增值税开票统计汇总_" + start + "-" + start;
    request.progressMax = MSFlexGrid1.Rows() - 1;
    RunExportEntry(controls, dialogs_, request, [this] { ExportDeptSummary(); });
}

void frm部门开票分税率统计表::ExportDeptSummary() {
    RunSheetWriter(dialogs_, CommonDialog1.FileName, "汇总表导出成功！", WriterTrap::NumberDescription,
                   [this](Worksheet& sheet) {
                       FlexGrid& g = MSFlexGrid1;
                       const int L =
                           g.Cols() - 1; // the last sheet column with data: the grid's end column stays out
                       const int R = g.Rows();

                       SheetRange title = sheet.Range(1, 1, 1, L);
                       title.SetMergeCells(true);
                       title.SetHorizontalAlignment(xlCenter);
                       sheet.Cells(1, 1).SetValue("增值税开票统计汇总表");
                       SheetRange period = sheet.Range(3, 1, 3, 4);
                       period.SetMergeCells(true);
                       period.SetHorizontalAlignment(xlLeft);
                       sheet.Cells(3, 1).SetValue(PeriodLine());
                       sheet.Range(4, 1, 5, L).SetHorizontalAlignment(xlCenter);

                       // Both header rows, widths from each; the second row's widths are the ones that stay.
                       // The grid's end column stays out of the sheet.
                       g.SetVisible(false);
                       CopyGridHeaderRow(g, 0, sheet, 4, L);
                       CopyGridHeaderRow(g, 1, sheet, 5, L);
                       g.SetVisible(true);

                       sheet.Range(4, 1, 5, 1).SetMergeCells(true);
                       sheet.Range(4, 2, 5, 2).SetMergeCells(true);
                       for (int k = 1, j = 2; k < static_cast<int>(TaxRates.size()); ++k, j += 3)
                           sheet.Range(4, j + 1, 4, j + 3).SetMergeCells(true);
                       sheet.Range(4, 1, 5, L).Interior().SetColor(kHeaderFill);

                       Label2.SetVisible(true);
                       dialogs_.Yield();

                       g.SetRedraw(false);
                       for (int r = 2; r <= R - 1; ++r) {
                           ProgressBar1.SetValue(r);
                           g.SetRow(r);
                           for (int c = 0; c <= g.Cols() - 2; ++c) {
                               g.SetCol(c);
                               SheetRange cell = sheet.Cells(r + 4, c + 1);
                               if (c <= 1) {
                                   cell.SetValue(g.Text());
                               } else {
                                   // An empty amount stays empty but is formatted like its neighbours.
                                   cell.SetNumberFormat("#0.00");
                                   cell.SetValue(Format(g.Text(), "#0.00"));
                                   cell.SetHorizontalAlignment(xlRight);
                               }
                           }
                       }
                       g.SetRedraw(true);

                       // By substring, so a department whose name holds "合计" is filled like the total.
                       g.SetRedraw(false);
                       for (int r = 2; r <= R - 1; ++r)
                           if (Contains(g.TextMatrix(r, 1), "合计"))
                               sheet.Range(r + 4, 1, r + 4, L).Interior().SetColor(kHeaderFill);
                       g.SetRedraw(true);

                       RangeFont titleFont = sheet.Range(1, 1, 1, L).Font();
                       titleFont.SetName(kTitleFont);
                       titleFont.SetBold(true);
                       RangeFont bodyFont = sheet.Range(2, 1, R + 4, L).Font();
                       bodyFont.SetName(kBodyFont);
                       bodyFont.SetSize(10);
                       sheet.Range(4, 1, R + 3, L).Borders().SetLineStyle(xlContinuous);

                       Label2.SetVisible(false);
                   });
}

std::string frm部门开票分税率统计表::PeriodLine() const {
    return " 开票日期：" + Format(DTPicker1.Value(), "yyyy-mm-dd") + " 至 " +
           Format(DTPicker2.Value(), "yyyy-mm-dd");
}

bool frm部门开票分税率统计表::PrintResult(const std::function<void(const PrintJob&)>& print) {
    print(PrintJob{Label1_0.Caption(), PeriodLine(), &MSFlexGrid1});
    return true;
}

} // namespace quillon
