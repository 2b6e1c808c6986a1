#include "workbench/excel_export.h"

#include "base/vb_error.h"
#include "controls/command_button.h"
#include "controls/dialogs.h"
#include "controls/flex_grid.h"
#include "controls/progress_bar.h"
#include "workbench/sheet_print_setup.h"
#include "xlsx/workbook.h"
#include "xlsx/worksheet.h"

namespace quillon {
namespace {

constexpr const char* kTitle = "系统提示";

void ShowButtons(const ExportControls& c, bool visible) {
    for (CommandButton* b : c.buttons) b->SetVisible(visible);
}

} // namespace

void RunExportEntry(ExportControls& c, Dialogs& dialogs, const ExportRequest& request,
                    const std::function<void()>& writer) {
    if (c.grid.Rows() == request.headerOnlyRows) return;
    c.commonDialog.CancelError = true;
    try {
        ShowButtons(c, false);
        c.commonDialog.FileName = request.defaultFileName;
        c.commonDialog.Filter = request.filter;
        dialogs.ShowSave(c.commonDialog);
        c.progressBar.SetVisible(true);
        c.progressBar.SetMin(0);
        c.progressBar.SetMax(request.progressMax);
        dialogs.Yield();
        writer();
        c.progressBar.SetVisible(false);
        ShowButtons(c, true);
    } catch (const VbError&) {
        dialogs.MsgBox(kExportCancelledMessage, kTitle, vbInformation);
        ShowButtons(c, true);
    }
}

std::string ExportSavePath(const std::string& fileName) {
    size_t dot = fileName.find('.');
    // Left(name, InStr(name, ".") - 1) with no "." asks for a length of -1.
    if (dot == std::string::npos) throw VbError(kErrInvalidProcCall, "无效的过程调用或参数");
    return fileName.substr(0, dot);
}

void RunSheetWriter(Dialogs& dialogs, const std::string& fileName, const std::string& successMessage,
                    WriterTrap trap, const std::function<void(Worksheet&)>& writeSheet) {
    try {
        std::string path = ExportSavePath(fileName);
        Workbook book;
        writeSheet(book.Worksheets(1));
        MakeSheetPrintReady(book.Worksheets(1));
        book.SaveAs(path);
        dialogs.MsgBox(successMessage, kTitle, vbInformation);
    } catch (const VbError& e) {
        const std::string number = std::to_string(e.Number);
        switch (trap) {
        case WriterTrap::NumberDescription:
            dialogs.MsgBox("错误号: " + number + "错误描述: " + e.Description, kTitle, vbInformation);
            break;
        case WriterTrap::CodeDescription:
            dialogs.MsgBox("错误码: " + number + " 错误描述: " + e.Description, kTitle, vbInformation);
            break;
        case WriterTrap::None:
            throw;
        }
    }
}

void CopyGridHeaderRow(FlexGrid& grid, int gridRow, Worksheet& sheet, int sheetRow, int columns) {
    const int count = columns < 0 ? grid.Cols() : columns;
    for (int i = 0; i < count; ++i) {
        grid.SetRow(gridRow);
        grid.SetCol(i);
        sheet.Columns(i + 1).SetColumnWidth(grid.CellWidth() / 110.0);
        sheet.Cells(sheetRow, i + 1).SetValue(grid.TextMatrix(gridRow, i));
    }
    sheet.PageSetup().AddTitleRow(sheetRow);
}

} // namespace quillon
