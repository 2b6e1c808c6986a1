// sheet_print_setup.h — workbench layer: what every report's workbook carries for printing,
// around its cells and without changing one: A4, turned when the sheet is wider than an upright
// page, fitted to one page across, the grid's header rows (those CopyGridHeaderRow wrote) on top
// of every printed page with the panes frozen under them, and "第 n 页 共 m 页" at the foot.
#pragma once

namespace quillon {

class Worksheet;

// A4 upright between Excel's default side margins of 0.7 inch: 6.87 inch at 96 dpi.
inline constexpr int kUprightPrintablePixels = 659;
inline constexpr const char* kSheetFooter = "&C第 &P 页 共 &N 页";

// The width of the sheet's columns up to the last one used, in pixels at 96 dpi, as Excel draws
// a column of the default font (11-point, 7-pixel digits); hidden columns count nothing.
int SheetWidthPixels(const Worksheet& sheet);

// Sets the sheet's page setup as above; the title rows are those the sheet's PageSetup names.
void MakeSheetPrintReady(Worksheet& sheet);

} // namespace quillon
