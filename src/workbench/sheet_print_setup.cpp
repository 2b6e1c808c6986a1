#include "workbench/sheet_print_setup.h"

#include "xlsx/worksheet.h"

namespace quillon {
namespace {

int ColumnPixels(double width) {
    if (width <= 0) return 0;
    if (width < 1) return static_cast<int>(width * 12 + 0.5);
    return static_cast<int>(width * 7 + 0.5) + 5; // the 8.43 default gives Excel's 64
}

} // namespace

int SheetWidthPixels(const Worksheet& sheet) {
    const auto& widths = sheet.ColumnWidths();
    int pixels = 0;
    for (int col = 1; col <= sheet.LastUsedColumn(); ++col) {
        const auto it = widths.find(col);
        pixels += ColumnPixels(it == widths.end() ? kDefaultSheetColumnWidth : it->second);
    }
    return pixels;
}

void MakeSheetPrintReady(Worksheet& sheet) {
    SheetPageSetup& page = sheet.PageSetup();
    page.paperSize = xlPaperA4;
    page.landscape = SheetWidthPixels(sheet) > kUprightPrintablePixels;
    page.fitToPagesWide = 1;
    page.fitToPagesTall = 0; // as many pages down as the rows need
    page.centerHorizontally = true;
    page.footer = kSheetFooter;
    if (page.lastTitleRow > 0) page.freezeRow = page.lastTitleRow + 1;
}

} // namespace quillon
