#include "preinvoice/preinvoice_window.h"

#include "base/vb_number.h"
#include "controls/text_width.h"
#include "shell/app_session.h"

namespace quillon {

namespace {

// Row number, date and the two invoice numbers, ahead of the item groups; the invoice columns
// leave their merge switch as it was.
constexpr std::initializer_list<DetailHeaderColumn> kLeadingColumns = {
    {"序", "序", 500, true},
    {"开票日期", "开票日期", 1200, true},
    {"增值税发票", "专用发票", 2200, false},
    {"增值税发票", "普通发票", 2200, false},
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
    BeginDetailHeader(g, 7);
    // Before any item is known the payer is narrower.
    WriteHeaderColumns(g, WriteHeaderColumns(g, 0, kLeadingColumns),
                       {{"合计", "合计", 1400, true},
                        {"收款方式", "收款方式", 900, true},
                        {"付款人", "付款人", 1200, true}});
    g.SetRow(1);
}

void frm票据预开明细表New::BuildChargeItemColumns() {
    FlexGrid& g = MSFlexGrid1;
    AmountColumnCount = quillon::AmountColumnCount(ChargeItems);
    BeginDetailHeader(g, AmountColumnCount + 7);
    const int items = WriteHeaderColumns(g, 0, kLeadingColumns);
    WriteClosingHeaderColumns(g, WriteChargeItemHeader(g, items, ChargeItems, SplitTable, 1200));
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
