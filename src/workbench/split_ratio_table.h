// split_ratio_table.h — workbench layer: the parking split table of the detail windows:
// MSFlexGrid2 holds per parking item the developer's and the property company's percentages,
// keyed by the item's code in a hidden column, and txtGRD is the box typed into over a cell.
// The table keeps nothing beside the cells: statements and headers read them as they stand.
#pragma once

#include <string>

#include "workbench/charge_items.h"

namespace quillon {

class Dialogs;
class FlexGrid;
class TextBox;

inline constexpr const char* kSplitTableFormat = "^序  |<停车费项目                   |>开发商 |>物业公司|";
inline constexpr const char* kSplitSumMessage = "分成比例总和必须等于100,请重新设置分成比例!";

// Columns of MSFlexGrid2.
inline constexpr int kSplitNumberCol = 0;
inline constexpr int kSplitItemCol = 1;
inline constexpr int kSplitDeveloperCol = 2;
inline constexpr int kSplitPropertyCol = 3;
inline constexpr int kSplitCodeCol = 4; // CodeLiteral, width 0

class SplitRatioTable {
public:
    // The grid and the box belong to the window; the box must sit in the grid's container.
    SplitRatioTable(FlexGrid& MSFlexGrid2, TextBox& txtGRD, Dialogs& dialogs);

    // At load: captions from the format string, five columns, the code column hidden.
    void InitGrid();
    // Rebuilt at each extraction: one row per parking item, "70" and "30".
    void FillSplitRatioTable(const ChargeItemColumns& items);

    // A click on a cell: whatever was typed without Enter is dropped; on the two percentage
    // columns the box opens over the cell with the cell's text selected.
    void MSFlexGrid2_Click();
    // Enter writes the box into the cell; on the developer's column it goes on to the property
    // company's, on that one the two must add up to exactly 100.
    void txtGRD_KeyPress(int& KeyAscii);

    // The row whose hidden column holds the code; -1 when there is none.
    int RowOf(const std::string& codeLiteral) const;
    // The cells' texts of a row; empty for row -1.
    std::string DeveloperText(int row) const;
    std::string PropertyText(int row) const;
    // The property company's share of an item as a fraction in general number text, converted
    // strictly from its cell: "30" gives "0.3"; error 13 for a cell that is no number ("30%").
    std::string ShareText(const std::string& codeLiteral) const;

private:
    FlexGrid& grid_;
    TextBox& box_;
    Dialogs& dialogs_;
};

} // namespace quillon
