#include "invoice/invoice_window.h"

#include "base/vb_number.h"
#include "base/vb_text.h"
#include "controls/text_width.h"
#include "db/connection.h"
#include "db/text_fold.h"
#include "model/payment_catalog.h"
#include "shell/app_session.h"
#include "workbench/detail_fields.h"

namespace quillon {

namespace {

// Row number, date, the four number columns, ahead of the item groups; the invoice columns
// leave their merge switch as it was.
constexpr std::initializer_list<DetailHeaderColumn> kLeadingColumns = {
    {"序", "序", 500, true},
    {"开票日期", "开票日期", 1200, true},
    {"增值税发票", "专用发票", 1200, false},
    {"增值税发票", "普通发票", 1200, false},
    {"增值税发票", "电子发票", 2200, false},
    {"收据", "收据", 3300, true},
};

// Where the money fields start in the two forms of the statement.
int FirstAmountField(InvoiceQueryForm form) {
    return form == InvoiceQueryForm::Exchange ? 13 : 11;
}

// Voided, replacing and exchanged bills say so in the mode column, negative ones in their own word.
std::string FlagWord(double amount, const char* positive, const char* negative) {
    return amount >= 0 ? positive : negative;
}

} // namespace

std::array<const std::string*, 4> InvoiceRow::NumberCells() const {
    static const std::string kNone;
    std::array<const std::string*, 4> cells{&kNone, &kNone, &kNone, &kNone};
    cells[static_cast<std::size_t>(NumberColumn)] = &BillNo;
    return cells;
}

frm票据开票明细表New::frm票据开票明细表New(AppSession& session, Dialogs& dialogs)
    : DetailReportForm(kInvoiceTexts, session.DbConnection, dialogs), session_(session) {}

void frm票据开票明细表New::Form_Load() {
    SetStatusPanels(session_.StatusPanelText1, session_.StatusPanelText2, session_.StatusPanelText3);
    LoadDetailWindow();
}

void frm票据开票明细表New::InitGridHeader() {
    FlexGrid& g = MSFlexGrid1;
    BeginDetailHeader(g, 9);
    // 合计 is widened on row 0 and narrowed again on row 1, so it ends at 900; 收款方式 gets its
    // width once; the payer is narrower until items are known.
    WriteHeaderColumns(
        g, WriteHeaderColumns(g, 0, kLeadingColumns),
        {{"合计", "合计", 900, true}, {"收款方式", "收款方式", 900, true}, {"付款人", "付款人", 1200, true}});
    g.SetRow(1);
}

void frm票据开票明细表New::BuildChargeItemColumns() {
    FlexGrid& g = MSFlexGrid1;
    AmountColumnCount = quillon::AmountColumnCount(ChargeItems);
    BeginDetailHeader(g, AmountColumnCount + 9);
    const int items = WriteHeaderColumns(g, 0, kLeadingColumns);
    WriteClosingHeaderColumns(g, WriteChargeItemHeader(g, items, ChargeItems, SplitTable, 1200));
    g.SetRow(1);
}

std::string frm票据开票明细表New::ChargeItemQuery() const {
    return InvoiceChargeItemQuery(StartText(), EndText(), DeptCode);
}

bool frm票据开票明细表New::HasFundItem() const {
    for (const ChargeItem& item : ChargeItems)
        if (item.ColumnName == "维修资金" || item.ColumnName == "维修基金") return true;
    return false;
}

bool frm票据开票明细表New::RunReportQuery() {
    return HasFundItem() ? RunFundInvoiceQuery(DeptCode, OfficeCode) : RunInvoiceQuery(DeptCode, OfficeCode);
}

void frm票据开票明细表New::DropResultRows() {
    ResultRows.emplace(1);
}

std::optional<int> frm票据开票明细表New::ResultRowCount() const {
    if (!ResultRows) return std::nullopt;
    return static_cast<int>(ResultRows->size()) - 1;
}

bool frm票据开票明细表New::RunInvoiceQuery(const std::string& dept, const std::string& /*office: unused*/) {
    Connection& conn = Db();
    ExchangedNumbers.clear();
    conn.CommandTimeout = 0;
    for (Recordset rs = conn.OpenRecordset(ExchangedNumberQuery(StartText(), EndText())); !rs.Eof();
         rs.MoveNext()) {
        if (!ExchangedNumbers.empty()) ExchangedNumbers += ",";
        ExchangedNumbers += rs.Fields("内换票据编号").Value().AsText();
    }
    conn.CommandTimeout = 0;
    Recordset rs = conn.OpenRecordset(
        InvoiceDetailQuery(ChargeItems, SplitTable, StartText(), EndText(), dept, BillTypeInList));
    return ReadInvoiceRows(rs, InvoiceQueryForm::Exchange);
}

bool frm票据开票明细表New::RunFundInvoiceQuery(const std::string& dept,
                                               const std::string& /*office: unused*/) {
    Connection& conn = Db();
    conn.CommandTimeout = 0;
    Recordset rs = conn.OpenRecordset(
        FundInvoiceQuery(ChargeItems, SplitTable, StartText(), EndText(), dept, BillTypeInList));
    return ReadInvoiceRows(rs, InvoiceQueryForm::Fund);
}

// What every bill of a run is read against, worked out once for the run rather than per bill.
struct frm票据开票明细表New::RunCriteria {
    InvoiceQueryForm form;
    std::string exchangedFolded; // ExchangedNumbers without case
    std::string firstMonth;      // the first date's "yyyymm"
    std::string endDay;          // EndText()
    ItemAmountReader amounts;
};

bool frm票据开票明细表New::ReadInvoiceRows(Recordset& rs, InvoiceQueryForm form) {
    RunCriteria run{form, FoldedAscii(ExchangedNumbers), Format(DTPicker1_0.Value(), "yyyymm"), EndText(),
                    ItemAmountReader(FirstAmountField(form), AmountColumnCount)};
    std::vector<InvoiceRow> rows(1);
    // Room for a year of a busy department at once: growing the vector step by step moved every
    // bill read so far and touched fresh pages each time, a third of this window's own work.
    // Pages never written cost nothing.
    rows.reserve(1 << 15);
    for (; !rs.Eof(); rs.MoveNext()) ReadBill(rs, run, rows.emplace_back());
    ResultRows = std::move(rows);
    std::vector<InvoiceRow>& result = *ResultRows;
    if (result.size() == 1) {
        ShowNoResultLabel();
        return false;
    }

    InvoiceRow total;
    total.BillDate = "合  计";
    total.Amounts.assign(AmountColumnCount, 0.0);
    for (std::size_t r = 1; r < result.size(); ++r) {
        for (int j = 0; j < AmountColumnCount; ++j) total.Amounts[j] += result[r].Amounts[j];
        total.RowTotal += result[r].RowTotal;
    }
    result.push_back(std::move(total));

    // 其中: the sum of each mode of the list, by the exact text of the row's mode.
    Db().CommandTimeout = 0;
    bool first = true;
    for (const std::string& mode : LoadPaymentModes(Db())) {
        double sum = 0;
        for (std::size_t r = 1; r < result.size(); ++r)
            if (result[r].PayMode == mode) sum += result[r].RowTotal;
        if (sum == 0) continue;
        InvoiceRow row;
        row.BillDate = first ? "其中" : "";
        row.PayMode = mode;
        row.RowTotal = sum;
        result.push_back(std::move(row));
        first = false;
    }
    FinishResult(static_cast<int>(result.size()) - 1);
    return true;
}

void frm票据开票明细表New::ReadBill(const Recordset& rs, RunCriteria& run, InvoiceRow& row) const {
    const InvoiceQueryForm form = run.form;
    row.Amounts.assign(AmountColumnCount, 0.0);
    const Field billDate = rs.Fields("开票日期");
    row.BillDate = DateFieldText(billDate);
    row.IsVoid = !rs.Fields("作废日期").IsNull();
    row.BillNo = rs.Fields("票据编号").Value().AsText();
    row.IsReplacing = !rs.Fields("被换票票据编号").IsNull();

    const std::string type = rs.Fields("票据类型").Value().AsText();
    if (Contains(type, "专用发票"))
        row.NumberColumn = InvoiceNumberColumn::Special;
    else if (Contains(type, "普通发票"))
        row.NumberColumn = InvoiceNumberColumn::Ordinary;
    else if (Contains(type, "电子发票") || (form == InvoiceQueryForm::Exchange && Contains(type, "全电发票")))
        row.NumberColumn = InvoiceNumberColumn::Electronic;
    else
        row.NumberColumn = InvoiceNumberColumn::Receipt;

    // A NULL amount counts as not negative.
    const Field amount = rs.Fields("金额");
    const double billAmount = amount.IsNull() ? 0.0 : amount.Value().AsNumber();
    const Field paid = rs.Fields("收款日期");
    // Substring search over the whole list, commas and all, without regard to case.
    const bool exchanged = form == InvoiceQueryForm::Exchange && !ExchangedNumbers.empty() &&
                           run.exchangedFolded.find(FoldedAscii(row.BillNo)) != std::string::npos;
    const bool unpaidAtEnd = Format(billDate.Value().AsDate(), "yyyymm") >= run.firstMonth &&
                             (paid.IsNull() || Format(paid.Value().AsDate(), "yyyymmdd") > run.endDay);

    if (row.IsVoid)
        row.PayMode = FlagWord(billAmount, "作废", "负票");
    else if (row.IsReplacing || exchanged)
        row.PayMode = FlagWord(billAmount, "换票", "换负");
    else if (unpaidAtEnd)
        row.PayMode = "预开";

    const bool flagged = !row.PayMode.empty();
    // An ordinary bill of the union form without a payer shows no address either.
    if (flagged || form == InvoiceQueryForm::Fund || !rs.Fields("付款人").IsNull())
        row.Payer = PayerWithAddress(rs);
    if (flagged) return;

    row.PayMode = rs.Fields("收款方式").Value().AsText();
    run.amounts.Read(rs, row.Amounts);
    for (double a : row.Amounts) row.RowTotal += a;
}

void frm票据开票明细表New::WriteResultRow(int r) {
    FlexGrid& g = MSFlexGrid1;
    const InvoiceRow& row = (*ResultRows)[r];
    const int n = AmountColumnCount;
    const int at = g.Row();
    g.SetTextMatrix(at, 0, std::to_string(r));
    g.SetColAlignment(0, flexAlignCenterCenter);
    if (row.BillDate.empty() || row.BillDate == "其中") {
        g.SetColAlignment(1, flexAlignCenterCenter);
        g.SetTextMatrix(at, 1, row.BillDate);
        g.SetTextMatrix(at, n + 6, Format(row.RowTotal, "0.00"));
        g.SetTextMatrix(at, n + 7, row.PayMode);
        return;
    }
    g.SetTextMatrix(at, 1, row.BillDate);
    g.SetColAlignment(1, flexAlignCenterCenter);
    const auto numbers = row.NumberCells();
    for (int c = 2; c <= 5; ++c) {
        g.SetTextMatrix(at, c, *numbers[c - 2]);
        g.SetColAlignment(c, flexAlignCenterCenter);
    }
    const int shown = std::min<int>(n, static_cast<int>(row.Amounts.size()));
    for (int j = 1; j <= shown; ++j) g.SetTextMatrix(at, 5 + j, Format(row.Amounts[j - 1], "0.00"));
    g.SetTextMatrix(at, n + 6, Format(row.RowTotal, "0.00"));
    g.SetTextMatrix(at, n + 7, row.PayMode);
    g.SetTextMatrix(at, n + 8, row.Payer);
    g.SetColAlignment(n + 8, flexAlignLeftCenter);
    if (TextWidth(row.Payer) > g.ColWidth(n + 8)) g.SetRowHeight(at, 600);
}

} // namespace quillon
