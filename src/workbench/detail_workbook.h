// detail_workbook.h — workbench layer: the parts of a detail report's workbook that the three
// detail reports write alike: the title, department and period lines over the grid's two header
// rows, the merges of the charge-item groups, and the fills and fonts of the whole table.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "workbench/charge_items.h"

namespace quillon {

class FlexGrid;
class Worksheet;

inline constexpr long kDetailHeaderFill = 0xFFC0C0; // header rows and the total row
inline constexpr const char* kDetailSheetFont = "微软雅黑";

// Sheet rows 1 to 5: the title merged over the C columns of the grid and centred; " 统计部门 : "
// with the department entry up to its "【" (error 5 without one) and " 开票日期 : " with the
// range, each merged over four columns and left-aligned; then the grid's header rows 0 and 1
// into sheet rows 4 and 5, centred, each column as wide as its header cell (the grid hidden
// meanwhile). The label stays " 开票日期 : " whatever the range means in the report.
void WriteDetailSheetHead(Worksheet& sheet, FlexGrid& grid, const std::string& title,
                          const std::string& departmentEntry, const DateTime& start, const DateTime& end);

// A rectangle of the sheet, rows and columns from 1.
struct SheetSpan {
    int firstRow, firstCol, lastRow, lastCol;
};

// The merges of the two header rows: 序 and the date down both rows, the report's own blocks,
// the item groups from firstItemCol on, the last closingCols columns down both rows; then the
// header fill over the whole width.
void MergeDetailHeader(Worksheet& sheet, int lastCol, const std::vector<SheetSpan>& ownBlocks,
                       int firstItemCol, const ChargeItemColumns& items, int closingCols,
                       bool allParking = false);

// Row 4 merges of the item groups from sheet column firstCol on: three columns for a parking
// item (every item when allParking), two for the others. Gives the column after the last.
int MergeChargeItemGroups(Worksheet& sheet, int firstCol, const ChargeItemColumns& items,
                          bool allParking = false);

// The start of a bill's sheet row: (row,1) its ordinal as a number, centred; (row,2) the bill
// date as a date ("yyyy-mm-dd"), centred; then from column 3 each invoice number behind a "'",
// which keeps it text, centred.
void WriteBillCells(Worksheet& sheet, int row, int ordinal, const std::string& billDate,
                    std::initializer_list<const std::string*> numbers);

// The amounts of a row from sheet column firstCol on, "0.00" each, at most `count` of them.
void WriteAmountCells(Worksheet& sheet, int row, int firstCol, const std::vector<double>& amounts, int count);

// The formats of the whole table, range by range: "#0.00" and right alignment over the money of
// rows 6 to dataLastRow, the title bold, "微软雅黑" 9 points from row 2 to fontLastRow, grid lines
// from the header to dataLastRow.
void FormatDetailTable(Worksheet& sheet, int lastCol, int dataLastRow, int moneyFirstCol, int moneyLastCol,
                       int fontLastRow);

// "收款人:", "经理:", "缴款人:" in columns 2, 7 and 13 of the row, however few columns the table has.
void WriteSignatureRow(Worksheet& sheet, int row);

} // namespace quillon
