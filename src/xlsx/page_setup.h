// page_setup.h — workbook layer: how a sheet prints and where its panes freeze, as the sheet's
// PageSetup and its window's FreezePanes hold it. Nothing here touches a cell; the saver writes
// it into the sheet's page setup, print titles, footer and pane.
#pragma once

#include <string>

namespace quillon {

inline constexpr int xlPaperA4 = 9;

struct SheetPageSetup {
    bool landscape = false;
    int paperSize = 0; // 0: the printer's own; xlPaperA4
    // Fit to this many pages across and down; 0 leaves that direction free. Both 0: no fitting.
    int fitToPagesWide = 0;
    int fitToPagesTall = 0;
    bool centerHorizontally = false;
    // PrintTitleRows: rows firstTitleRow..lastTitleRow (1-based) on top of every printed page;
    // 0 for none.
    int firstTitleRow = 0;
    int lastTitleRow = 0;
    // Footer text with the sheet's codes: &C centre, &P page number, &N page count.
    std::string footer;
    // FreezePanes: the first row and column of the scrolling pane (1-based); 1 freezes nothing
    // in that direction.
    int freezeRow = 1;
    int freezeCol = 1;

    // Makes `row` one of the title rows: the span grows to take it in.
    void AddTitleRow(int row) {
        if (firstTitleRow == 0 || row < firstTitleRow) firstTitleRow = row;
        if (row > lastTitleRow) lastTitleRow = row;
    }
    bool operator==(const SheetPageSetup&) const = default;
};

} // namespace quillon
