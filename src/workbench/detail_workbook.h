// detail_workbook.h — workbench layer: the parts of a detail report's workbook that the three
// detail reports write alike: the title, department and period lines over the grid's two header
// rows, the merges of the charge-item groups, and the fills and fonts of the whole table.
#pragma once

#include <string>

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

// Row 4 merges of the item groups from sheet column firstCol on: three columns for a parking
// item (every item when allParking), two for the others. Gives the column after the last.
int MergeChargeItemGroups(Worksheet& sheet, int firstCol, const ChargeItemColumns& items,
                          bool allParking = false);

} // namespace quillon
