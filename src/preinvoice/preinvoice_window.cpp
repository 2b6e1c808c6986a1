#include "preinvoice/preinvoice_window.h"

#include "base/vb_number.h"
#include "controls/text_width.h"
#include "shell/app_session.h"

namespace quillon {

namespace {

struct HeaderColumn {
    const char* top;
    const char* bottom;
    int width;
    bool mergeDown; // MergeCol; the two invoice columns leave it as it was
};

// Row number, date and the two invoice numbers, ahead of the item groups.
constexpr HeaderColumn kLeadingColumns[] = {
    {"序", "序", 500, true},
    {"开票日期", "开票日期", 1200, true},
    {"增值税发票", "专用发票", 2200, false},
    {"增值税发票", "普通发票", 2200, false},
};
constexpr int kLeadingCount = 4;

// The first header's closing columns; the payer is narrower until items are known.
constexpr HeaderColumn kInitialClosing[] = {
    {"合计", "合计", 1400, true},
    {"收款方式", "收款方式", 900, true},
    {"付款人", "付款人", 1200, true},
};

} // namespace

frm票据预开明细表New::frm票据预开明细表New(AppSession& session, Dialogs& dialogs)
    : DetailReportForm(kPreInvoiceTexts, session.DbConnection, dialogs), session_(session) {}

void frm票据预开明细表New::Form_Load() {
    SetStatusPanels(session_.StatusPanelText1, session_.StatusPanelText2, session_.StatusPanelText3);
    LoadDetailWindow();
}

void frm票据预开明细表New::InitGridHeader() {
    FlexGrid& g = MSFlexGrid1;
    g.SetRows(2);
    g.SetCols(7);
    g.SetRow(0);
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c < g.Cols(); ++c) g.SetFixedAlignment(c, flexAlignCenterCenter);
    int col = 0;
    auto put = [&](const HeaderColumn& h) {
        g.SetTextMatrix(0, col, h.top);
        g.SetTextMatrix(1, col, h.bottom);
        g.SetColWidth(col, h.width);
        if (h.mergeDown) g.SetMergeCol(col, true);
        ++col;
    };
    for (const HeaderColumn& h : kLeadingColumns) put(h);
    for (const HeaderColumn& h : kInitialClosing) put(h);
    g.SetMergeRow(0, true);
    g.SetRow(1);
}

void frm票据预开明细表New::BuildChargeItemColumns() {
    FlexGrid& g = MSFlexGrid1;
    AmountColumnCount = quillon::AmountColumnCount(ChargeItems);
    g.SetRows(2);
    g.SetCols(AmountColumnCount + 7);
    g.SetRow(0);
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c < g.Cols(); ++c) g.SetFixedAlignment(c, flexAlignCenterCenter);
    for (int col = 0; col < kLeadingCount; ++col) {
        const HeaderColumn& h = kLeadingColumns[col];
        g.SetTextMatrix(0, col, h.top);
        g.SetTextMatrix(1, col, h.bottom);
        g.SetColWidth(col, h.width);
        if (h.mergeDown) g.SetMergeCol(col, true);
    }
    g.SetMergeRow(0, true);
    const int next = WriteChargeItemHeader(g, kLeadingCount, ChargeItems, SplitTable, 1200);
    WriteClosingHeaderColumns(g, next);
}

void frm票据预开明细表New::WriteResultRow(int r) {
    FlexGrid& g = MSFlexGrid1;
    const PreInvoiceRow& row = (*ResultRows)[r];
    const int n = AmountColumnCount;
    const int at = g.Row();
    g.SetTextMatrix(at, 0, std::to_string(r));
    if (row.BillDate.empty() || row.BillDate == "其中") {
        // Closing rows of the other detail reports' shape; this report makes none.
        g.SetColAlignment(1, flexAlignCenterCenter);
        g.SetTextMatrix(at, 1, row.BillDate);
        g.SetTextMatrix(at, n + 5, Format(row.RowTotal, "0.00"));
        g.SetTextMatrix(at, n + 6, row.PayMode);
        return;
    }
    for (int c = 1; c <= 3; ++c) g.SetColAlignment(c, flexAlignCenterCenter);
    g.SetTextMatrix(at, 1, row.BillDate);
    g.SetTextMatrix(at, 2, row.SpecialInvoiceNo);
    g.SetTextMatrix(at, 3, row.OrdinaryInvoiceNo);
    // A row of an earlier run may have other columns than the header now shows.
    const int shown = std::min<int>(n, static_cast<int>(row.Amounts.size()));
    for (int j = 1; j <= shown; ++j) g.SetTextMatrix(at, 3 + j, Format(row.Amounts[j - 1], "0.00"));
    g.SetTextMatrix(at, n + 4, Format(row.RowTotal, "0.00"));
    g.SetTextMatrix(at, n + 5, row.PayMode);
    g.SetTextMatrix(at, n + 6, row.Payer);
    g.SetColAlignment(n + 6, flexAlignLeftCenter);
    // A payer wider than the column gets two lines.
    if (TextWidth(row.Payer) > g.ColWidth(n + 6)) g.SetRowHeight(at, 600);
}

} // namespace quillon
