// recon_export.cpp — the reconciliation workbook: the grid as it stands, under a title, the
// department and the months, with the closing line of the check.
#include "base/vb_number.h"
#include "controls/dialogs.h"
#include "reconciliation/recon_window.h"
#include "workbench/excel_export.h"
#include "xlsx/worksheet.h"
#include "xlsx/xl_constants.h"

namespace quillon {
namespace {

constexpr const char* kExported = "票据核对表导出成功！";
constexpr const char* kSheetFont = "微软雅黑";

} // namespace

void ReconWindow::Command2_Click() {
    ExportControls controls{MSFlexGrid1, CommonDialog1, ProgressBar1, {&Command1, &Command2}};
    ExportRequest request;
    request.defaultFileName = Label1_0.Caption();
    request.progressMax = MSFlexGrid1.Rows();
    RunExportEntry(controls, dialogs_, request, [this] { ExportReconWorkbook(); });
}

void ReconWindow::ExportReconWorkbook() {
    RunSheetWriter(
        dialogs_, CommonDialog1.FileName, kExported, WriterTrap::NumberDescription, [this](Worksheet& sheet) {
            FlexGrid& grid = MSFlexGrid1;
            const int R = grid.Rows();
            const int C = grid.Cols();
            const int N = C - form_.firstCategoryCol - 5; // the categories between the blocks and 小计

            SheetRange title = sheet.Range(1, 1, 1, C);
            title.SetMergeCells(true);
            title.SetHorizontalAlignment(xlCenter);
            sheet.Cells(1, 1).SetValue(Label1_0.Caption());

            const std::string entry = List1.Text();
            SheetRange dept = sheet.Range(2, 1, 2, 4);
            dept.SetMergeCells(true);
            dept.SetHorizontalAlignment(xlLeft);
            sheet.Cells(2, 1).SetValue(" 统计部门 : " + entry.substr(0, entry.find("【")));

            SheetRange months = sheet.Range(3, 1, 3, 4);
            months.SetMergeCells(true);
            months.SetHorizontalAlignment(xlLeft);
            sheet.Cells(3, 1).SetValue(" 核对年月 : " + Combo1.Text() + " 年 " + Combo2.Text() + " 月 至 " +
                                       Combo3.Text() + " 月");

            sheet.Range(4, 1, 5, C).SetHorizontalAlignment(xlCenter);
            grid.SetVisible(false);
            CopyGridHeaderRow(grid, 0, sheet, 4);
            CopyGridHeaderRow(grid, 1, sheet, 5);
            grid.SetVisible(true);

            for (int col : {1, 2, 3, C}) sheet.Range(4, col, 5, col).SetMergeCells(true);
            for (const ReconSheetSpan& span : form_.headerSpans)
                if (span.firstCol > 0)
                    sheet.Range(4, span.firstCol, 4, span.lastCol + (span.overCategories ? N : 0))
                        .SetMergeCells(true);
            sheet.Range(4, 1, 5, C).Interior().SetColor(0xFFC0C0);
            dialogs_.Yield();

            for (int i = 2; i < R; ++i) {
                ProgressBar1.SetValue(i - 1);
                const bool coloured = grid.TextMatrix(i, 1) == "合计" || grid.TextMatrix(i, 2) == "小计";
                for (int c = 1; c <= C - 1; ++c) {
                    const std::string& t = grid.TextMatrix(i, c - 1);
                    SheetRange cell = sheet.Cells(i + 4, c);
                    if (c <= 3) {
                        cell.SetValue(t);
                        cell.SetHorizontalAlignment(xlCenter);
                        continue;
                    }
                    cell.SetValue(t.empty() ? std::string() : Format(Val(t), "0.00"));
                    if (coloured && !t.empty()) {
                        grid.SetRow(i);
                        grid.SetCol(c - 1);
                        cell.Interior().SetColor(static_cast<long>(grid.CellBackColor()));
                    }
                }
            }

            SheetRange figures = sheet.Range(6, 4, R + 4, C - 1);
            figures.SetNumberFormat("#0.00");
            figures.SetHorizontalAlignment(xlRight);
            title.Font().SetName(kSheetFont);
            title.Font().SetBold(true);
            SheetRange body = sheet.Range(2, 1, R + 4, C);
            body.Font().SetName(kSheetFont);
            body.Font().SetSize(9);
            sheet.Range(4, 1, R + 3, C).Borders().SetLineStyle(xlContinuous);
            sheet.Cells(R + 4, 2).SetValue(form_.closingLine);
        });
}

bool ReconWindow::PrintResult(const std::function<void(const PrintJob&)>& print) {
    print(PrintJob{Label1_0.Caption(), PeriodLine(), &MSFlexGrid1});
    return true;
}

std::string ReconWindow::PeriodLine() const {
    return Combo1.Text() + "年 " + Combo2.Text() + "月 至 " + Combo3.Text() + "月";
}

} // namespace quillon
