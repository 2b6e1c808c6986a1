#include "workbench/charge_items.h"

#include "base/vb_number.h"
#include "base/vb_text.h"
#include "controls/flex_grid.h"
#include "db/recordset.h"
#include "workbench/split_ratio_table.h"

namespace quillon {

bool ChargeItem::IsParking() const {
    return Contains(Category, "停车");
}

std::string ChargeItemColumnName(std::string_view xm) {
    std::string name(xm);
    for (const char* cut : {"(", ")", "）", "（", "%"}) name = Replace(name, cut, "");
    return name;
}

ChargeItem ReadChargeItem(const Recordset& rs) {
    ChargeItem item;
    const Field code = rs.Fields("收费项目代号");
    if (!code.IsNull()) item.CodeLiteral = "'" + code.Value().AsText() + "'";
    item.ColumnName = ChargeItemColumnName(rs.Fields("XM").Value().AsText());
    const Field rate = rs.Fields("税率");
    item.TaxRate = rate.IsNull() ? 0 : RoundMoney(rate.Value().AsNumber());
    item.Category = rs.Fields("收费类别").Value().AsText();
    if (!item.ColumnName.empty()) item.TaxColumnName = item.ColumnName + "税额";
    return item;
}

int AmountColumnCount(const ChargeItemColumns& items) {
    int n = 0;
    for (const ChargeItem& item : items) n += item.IsParking() ? 3 : 2;
    return n;
}

std::string TaxRateCaption(double taxRate) {
    return "税额" + CStr(taxRate * 100) + "%";
}

void BeginDetailHeader(FlexGrid& g, int cols) {
    g.SetRows(2);
    g.SetCols(cols);
    g.SetRow(0);
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c < g.Cols(); ++c) g.SetFixedAlignment(c, flexAlignCenterCenter);
    g.SetMergeRow(0, true);
}

int WriteHeaderColumns(FlexGrid& g, int col, std::initializer_list<DetailHeaderColumn> columns) {
    for (const DetailHeaderColumn& h : columns) {
        g.SetTextMatrix(0, col, h.top);
        g.SetTextMatrix(1, col, h.bottom);
        g.SetColWidth(col, h.width);
        if (h.mergeDown) g.SetMergeCol(col, true);
        ++col;
    }
    return col;
}

int WriteChargeItemHeader(FlexGrid& g, int col, const ChargeItemColumns& items, const SplitRatioTable& split,
                          int colWidth, bool allParking) {
    for (const ChargeItem& item : items) {
        std::vector<std::string> captions;
        if (allParking || item.IsParking()) {
            const int row = split.RowOf(item.CodeLiteral);
            captions = {"开发商" + split.DeveloperText(row) + "%", "物业" + split.PropertyText(row) + "%"};
        } else {
            captions = {"金额"};
        }
        captions.push_back(TaxRateCaption(item.TaxRate));
        for (const std::string& caption : captions) {
            g.SetTextMatrix(0, col, item.ColumnName);
            g.SetTextMatrix(1, col, caption);
            g.SetColWidth(col, colWidth);
            g.SetMergeCol(col, false);
            ++col;
        }
    }
    return col;
}

void WriteClosingHeaderColumns(FlexGrid& g, int col) {
    WriteHeaderColumns(g, col,
                       {{"合计", "合计", 1400, true},
                        {"收款方式", "收款方式", 900, true},
                        {"付款人", "付款人", 3800, true}});
}

} // namespace quillon
