// excel_export.h — workbench layer: what every report's export has in common. The Command2
// entry (save dialog, buttons hidden, progress bar) around the report's writer, and the writer's
// frame (the path cut at the first ".", a new workbook, save, the success message, the trap), so
// that each report's writer only states its sheet.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillon {

class CommandButton;
class Dialogs;
class FlexGrid;
class ProgressBar;
class Worksheet;
struct CommonDialogState;

inline constexpr const char* kExportFilter = "电子表(.xlsx)|*.xlsx|电子表(.xls)|*.xls";
inline constexpr const char* kExportCancelledMessage = "您取消了导出操作！";

// The controls an export works on, all the window's own.
struct ExportControls {
    FlexGrid& grid;
    CommonDialogState& commonDialog;
    ProgressBar& progressBar;
    std::vector<CommandButton*> buttons; // hidden while the export runs, shown again after it
};

struct ExportRequest {
    std::string defaultFileName;
    std::string filter = kExportFilter;
    int headerOnlyRows = 2; // a grid of exactly this many rows has nothing to export
    int progressMax = 0;    // ProgressBar1.Max, as the report counts its rows
};

// The Command2 click. The writer is the report's own routine; it runs after the file was
// chosen and the progress bar shown. A cancelled dialog shows "您取消了导出操作！" and puts the
// buttons back; the progress bar is then left as it was.
void RunExportEntry(ExportControls& controls, Dialogs& dialogs, const ExportRequest& request,
                    const std::function<void()>& writer);

// How a writer's trap words its message.
enum class WriterTrap {
    NumberDescription, // "错误号: {number}错误描述: {description}"
    CodeDescription,   // "错误码: {number} 错误描述: {description}"
    None,              // no trap: the failure goes on to the caller
};

// The text in front of the first "." of the chosen file name; error 5 when there is no ".".
std::string ExportSavePath(const std::string& fileName);

// The writer's frame: cut the path, make the workbook, let writeSheet fill Worksheets(1),
// make it print-ready (sheet_print_setup.h), save, and show successMessage titled "系统提示". A failure is
// shown as `trap` says and nothing more is done: the grid and the criteria stay as they are.
void RunSheetWriter(Dialogs& dialogs, const std::string& fileName, const std::string& successMessage,
                    WriterTrap trap, const std::function<void(Worksheet&)>& writeSheet);

// Header row copy: for each of the first `columns` grid columns (all when -1) make (gridRow,
// column) current, set the sheet column's width to its CellWidth / 110, and write its text into
// sheetRow, which becomes one of the rows printed on top of every page. The caller hides the grid.
void CopyGridHeaderRow(FlexGrid& grid, int gridRow, Worksheet& sheet, int sheetRow, int columns = -1);

} // namespace quillon
