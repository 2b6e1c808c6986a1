#include "parking/parking_window.h"

#include <algorithm>

#include "base/vb_number.h"
#include "shell/app_session.h"

namespace quillon {

namespace {

// Row number and the two bill-number columns, ahead of the item groups.
constexpr std::initializer_list<DetailHeaderColumn> kLeadingColumns = {
    {"序", "序", 800, true},
    {kPaperMedia, kPaperMedia, 3200, true},
    {"电子发票号", "电子发票号", 3200, true},
};
constexpr DetailHeaderColumn kTotalColumn = {"合计", "合计", 1400, true};

} // namespace

frm停车费明细表New::frm停车费明细表New(AppSession& session, Dialogs& dialogs)
    : DetailReportForm(kParkingTexts, session.DbConnection, dialogs), session_(session) {}

void frm停车费明细表New::Form_Load() {
    SetStatusPanels(session_.StatusPanelText1, session_.StatusPanelText2, session_.StatusPanelText3);
    LoadDetailWindow();
}

void frm停车费明细表New::InitGridHeader() {
    FlexGrid& g = MSFlexGrid1;
    BeginDetailHeader(g, 4);
    g.SetMergeRow(0, false); // row 0 merges only once the items are laid out
    WriteHeaderColumns(g, WriteHeaderColumns(g, 0, kLeadingColumns), {kTotalColumn});
}

void frm停车费明细表New::BuildChargeItemColumns() {
    FlexGrid& g = MSFlexGrid1;
    AmountColumnCount = quillon::AmountColumnCount(ChargeItems);
    BeginDetailHeader(g, AmountColumnCount + 4);
    const int items = WriteHeaderColumns(g, 0, kLeadingColumns);
    g.SetMergeCol(items, false);
    // Every item found here is a parking item: three columns each, whatever its category says.
    WriteHeaderColumns(g, WriteChargeItemHeader(g, items, ChargeItems, SplitTable, 1400, true),
                       {kTotalColumn});
}

void frm停车费明细表New::WriteResultRow(int r) {
    FlexGrid& g = MSFlexGrid1;
    const ParkingRow& row = (*ResultRows)[r];
    const int n = AmountColumnCount;
    const int at = g.Row();
    g.SetTextMatrix(at, 0, std::to_string(r));
    g.SetColAlignment(0, flexAlignCenterCenter);
    if (row.IsClosing()) {
        // The mode stands right-aligned in the last money column; the column sums of the total
        // row are not shown.
        g.SetColAlignment(1, flexAlignCenterCenter);
        g.SetTextMatrix(at, 1, row.BillRange);
        g.SetTextMatrix(at, n + 2, row.PayMode);
        g.SetCol(n + 2);
        g.SetCellAlignment(flexAlignRightCenter);
        g.SetTextMatrix(at, n + 3, Format(row.RowTotal, "0.00"));
        return;
    }
    const int rangeCol = row.MediaKind == kPaperMedia ? 1 : 2;
    g.SetColAlignment(rangeCol, flexAlignCenterCenter);
    g.SetTextMatrix(at, rangeCol, row.BillRange);
    // A row of an earlier run may have other columns than the header now shows.
    const int shown = std::min<int>(n, static_cast<int>(row.Amounts.size()));
    for (int j = 1; j <= shown; ++j) g.SetTextMatrix(at, 2 + j, Format(row.Amounts[j - 1], "0.00"));
    g.SetTextMatrix(at, n + 3, Format(row.RowTotal, "0.00"));
}

} // namespace quillon
