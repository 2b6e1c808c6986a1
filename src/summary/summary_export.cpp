// The summary's two workbooks (the summary list and the detail list) and its print preview.
#include "base/vb_number.h"
#include "base/vb_text.h"
#include "controls/print_job.h"
#include "summary/summary_window.h"
#include "workbench/excel_export.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {
namespace {

constexpr const char* kFilter = "电子表|*.xls;*.xlsx";
constexpr long kHeaderFill = 0xFFC0C0;
constexpr const char* kSheetFont = "微软雅黑";

std::string TodayText() {
    return Format(DateTime::Today(), "yyyymmdd");
}

void MergeLine(Worksheet& sheet, int row, int lastCol, const std::string& text) {
    sheet.Range(row, 1, row, lastCol).SetMergeCells(true);
    sheet.Cells(row, 1).SetValue(text);
}

// Title over n columns, the grid's heads in row 4 with the widths of its columns.
void WriteSheetHead(Worksheet& sheet, FlexGrid& grid, int n, const std::string& title) {
    MergeLine(sheet, 1, n, title);
    sheet.Range(1, 1, 1, n).SetHorizontalAlignment(xlCenter);
    sheet.Range(1, 1, 1, n).Font().SetBold(true);
    SheetRange heads = sheet.Range(4, 1, 4, n);
    heads.SetHorizontalAlignment(xlCenter);
    heads.Interior().SetColor(kHeaderFill);
    CopyGridHeaderRow(grid, 0, sheet, 4, n);
}

// After the rows: the last grid row (合计) filled, fonts, and grid lines over head and rows.
void WriteClosingFormats(Worksheet& sheet, int R, int n) {
    sheet.Range(R + 3, 1, R + 3, n).Interior().SetColor(kHeaderFill);
    RangeFont titleFont = sheet.Range(1, 1, 1, n).Font();
    titleFont.SetName(kSheetFont);
    titleFont.SetBold(true);
    RangeFont bodyFont = sheet.Range(2, 1, R + 4, n).Font();
    bodyFont.SetName(kSheetFont);
    bodyFont.SetSize(9);
    sheet.Range(4, 1, R + 3, n).Borders().SetLineStyle(xlContinuous);
}

void WriteAmount(SheetRange cell, const std::string& text) {
    cell.SetNumberFormat("#0.00");
    cell.SetValue(Format(text, "#0.00"));
    cell.SetHorizontalAlignment(xlRight);
}

} // namespace

std::string frm预开票汇总表::SummaryTitle() const {
    return "预 开 票 汇 总 表";
}

std::string frm预开票汇总表::SummaryDateLine() const {
    return " 开票日期: " + Format(DTPicker3.Value(), "yyyy-mm-dd") + " 至 " +
           Format(DTPicker4.Value(), "yyyy-mm-dd");
}

void frm预开票汇总表::ExportSummary() {
    ExportControls controls{
        MSFlexGrid1, CommonDialog1, ProgressBar1, {&Command1_0, &Command1_1, &Command1_2, &Command1_3}};
    ExportRequest request;
    request.defaultFileName = "预开票汇总表_" + TodayText();
    request.filter = kFilter;
    request.headerOnlyRows = 1;
    request.progressMax = MSFlexGrid1.Rows();
    // The writer has no trap of its own: any failure of it reads as a cancelled export.
    RunExportEntry(controls, dialogs_, request, [this] { WriteSummaryWorkbook(); });
}

void frm预开票汇总表::WriteSummaryWorkbook() {
    RunSheetWriter(dialogs_, CommonDialog1.FileName, "预开票汇总表导出成功!", WriterTrap::None,
                   [this](Worksheet& sheet) {
                       FlexGrid& g = MSFlexGrid1;
                       const int n = g.Cols() - 2; // 操作 goes with the sheet, the hidden codes stay out
                       const int R = g.Rows();
                       WriteSheetHead(sheet, g, n, SummaryTitle());
                       MergeLine(sheet, 3, 4, SummaryDateLine());

                       g.SetRedraw(false);
                       for (int i = 1; i <= R - 1; ++i) {
                           ProgressBar1.SetValue(i);
                           g.SetRow(i);
                           for (int j = 0; j <= n - 1; ++j) {
                               g.SetCol(j);
                               if (j >= 3 && j <= 5) {
                                   if (!g.Text().empty()) WriteAmount(sheet.Cells(i + 4, j + 1), g.Text());
                               } else {
                                   sheet.Cells(i + 4, j + 1).SetValue(g.Text());
                               }
                           }
                           // The colour the row shows now: its own, or the mark of a click.
                           if (Contains(g.TextMatrix(i, 1), "小计"))
                               sheet.Range(i + 4, 1, i + 4, n).Interior().SetColor(g.CellBackColor());
                       }
                       g.SetRedraw(true);
                       WriteClosingFormats(sheet, R, n);
                   });
}

void frm预开票汇总表::Command4_Click() {
    const FlexGrid& s = MSFlexGrid1;
    const int r = s.Row();
    const std::string name =
        s.TextMatrix(r, 1) == "小计" ? s.TextMatrix(r - 1, 1) : s.TextMatrix(r, 1) + "_" + s.TextMatrix(r, 2);
    ExportControls controls{MSFlexGrid2, CommonDialog1, ProgressBar2, {&Command3, &Command4}};
    ExportRequest request;
    request.defaultFileName = "预开票明细_" + name + "_" + TodayText();
    request.filter = kFilter;
    request.headerOnlyRows = 1;
    request.progressMax = MSFlexGrid2.Rows();
    RunExportEntry(controls, dialogs_, request, [this] { WriteDetailWorkbook(); });
}

void frm预开票汇总表::WriteDetailWorkbook() {
    RunSheetWriter(dialogs_, CommonDialog1.FileName, "预开票汇总明细表导出成功!", WriterTrap::CodeDescription,
                   [this](Worksheet& sheet) {
                       FlexGrid& g = MSFlexGrid2;
                       const int n = g.Cols() - 1;
                       const int R = g.Rows();
                       const FlexGrid& s = MSFlexGrid1;
                       const int officeRow = s.TextMatrix(s.Row(), 1) == "小计" ? s.Row() - 1 : s.Row();
                       WriteSheetHead(sheet, g, n, "预开票汇总明细表");
                       MergeLine(sheet, 2, 4, " 管 理 处: " + s.TextMatrix(officeRow, 1));
                       sheet.Range(2, 1, 2, 4).SetHorizontalAlignment(xlLeft);
                       // The hidden pickers, not the dates the list was made with.
                       MergeLine(sheet, 3, 4,
                                 " 开票日期: " + Format(DTPicker1.Value(), "yyyy-mm-dd") + " 至 " +
                                     Format(DTPicker2.Value(), "yyyy-mm-dd"));

                       g.SetRedraw(false);
                       for (int i = 1; i <= R - 1; ++i) {
                           ProgressBar2.SetValue(i);
                           g.SetRow(i);
                           for (int j = 0; j <= n - 1; ++j) {
                               g.SetCol(j);
                               SheetRange cell = sheet.Cells(i + 4, j + 1);
                               if (j >= 6 && j <= 8) {
                                   WriteAmount(cell, g.Text());
                               } else if (j == 9 || j == 12) {
                                   cell.SetValue(g.Text());
                                   cell.SetNumberFormat("yyyy-mm-dd");
                                   cell.SetHorizontalAlignment(xlCenter);
                               } else if (j == 1 || j == 2) {
                                   cell.SetValue("'" + g.Text()); // invoice numbers stay text
                               } else {
                                   cell.SetValue(g.Text());
                               }
                           }
                       }
                       WriteClosingFormats(sheet, R, n);
                       g.SetRedraw(true);
                   });
}

// The old command built these two lines and had no print path; ours previews the summary list
// under the workbook's title and date line.
void frm预开票汇总表::PrintSummary() {
    PrintResult([this](const PrintJob& job) { dialogs_.PrintPreview(job); });
}

bool frm预开票汇总表::PrintResult(const std::function<void(const PrintJob&)>& print) {
    print(PrintJob{SummaryTitle(), SummaryDateLine(), &MSFlexGrid1});
    return true;
}

} // namespace quillon
