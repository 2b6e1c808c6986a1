// charge_items.h — workbench layer: the charge items a detail report found in its period
// (ChargeItemColumns), which decide its money columns: two per ordinary item (amount, tax),
// three per parking item (developer, property company, tax).
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class FlexGrid;
class Recordset;
class SplitRatioTable;

struct ChargeItem {
    std::string CodeLiteral{};   // "'" + 收费项目代号 + "'"; empty when NULL
    std::string ColumnName{};    // XM without brackets and "%": column alias and group caption
    double TaxRate = 0;          // 税率 as a fraction, two decimals; 0 when NULL
    std::string Category{};      // 收费类别
    std::string TaxColumnName{}; // ColumnName + "税额"; empty when ColumnName is empty

    // Parking income is shared between developer and property company.
    bool IsParking() const;
};

// In the order of the extraction; the statements number them from 1 ({i} = index + 1).
using ChargeItemColumns = std::vector<ChargeItem>;

// XM with every "(", ")", "（", "）" and "%" removed: a bare identifier for the statements.
std::string ChargeItemColumnName(std::string_view xm);

// One record of a ChargeItemQuery (收费项目代号, 税率, XM, 收费类别).
ChargeItem ReadChargeItem(const Recordset& rs);

// Money columns of a row: 3 per parking item, 2 per other item.
int AmountColumnCount(const ChargeItemColumns& items);

// "税额{rate}%", the rate in percent as general number text: 0.06 gives "税额6%".
std::string TaxRateCaption(double taxRate);

// A column of a detail header with the same place in every layout.
struct DetailHeaderColumn {
    const char* top;    // row 0
    const char* bottom; // row 1
    int width;          // twips
    bool mergeDown;     // sets MergeCol; false leaves the column's switch as it was
};

// A detail grid's header of `cols` columns is laid out anew: two rows, Row 0, MergeCells 3,
// every header cell centred, MergeRow(0) on.
void BeginDetailHeader(FlexGrid& grid, int cols);

// The columns from firstCol on, in order. Gives the column after the last.
int WriteHeaderColumns(FlexGrid& grid, int firstCol, std::initializer_list<DetailHeaderColumn> columns);

// The item groups of a detail header from grid column firstCol on: row 0 holds the item's name
// in each of its columns (so they merge into one caption), row 1 "金额" and the tax caption, or
// for a parking item (every item when allParking) "开发商{a}%", "物业{b}%" and the tax caption,
// with the percentages as they stand in the split table now. Gives the column after the last.
int WriteChargeItemHeader(FlexGrid& grid, int firstCol, const ChargeItemColumns& items,
                          const SplitRatioTable& split, int colWidth, bool allParking = false);

// The three closing columns of the pre-invoice and invoice headers from `col` on: "合计"
// (1400), "收款方式" (900), "付款人" (3800), the same text in both rows, merging down.
void WriteClosingHeaderColumns(FlexGrid& grid, int col);

} // namespace quillon
