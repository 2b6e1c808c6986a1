// invoice_window.h — invoice layer: the VAT invoice detail, frm票据开票明细表New: for one
// department, every bill of a date range (invoiced in it, or paid in it and invoiced earlier), one
// row a bill, with voided, exchanged, replacing and not-yet-paid bills kept in the list with zero
// money and a word saying why, a "合  计" row, the 其中 block of payment modes, and the workbook.
// The twin of the pre-invoice detail; what differs is its texts table and the routines here.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "workbench/detail_report_form.h"

namespace quillon {

struct AppSession;

// The four number columns after the date; a bill's number stands in the one its type names.
enum class InvoiceNumberColumn : unsigned char {
    Special,    // 专用发票
    Ordinary,   // 普通发票
    Electronic, // 电子发票
    Receipt,    // any other type, column "收据"
};

struct InvoiceRow {
    std::string BillDate;        // 开票日期 "yyyy-mm-dd"; "合  计"; "其中" or "" in the mode rows
    std::string BillNo;          // 票据编号
    std::vector<double> Amounts; // one per money column
    std::string PayMode;         // 收款方式, or the flag word
    std::string Payer;           // payer and address
    double RowTotal = 0;         // 0 in flagged rows
    InvoiceNumberColumn NumberColumn = InvoiceNumberColumn::Receipt;
    bool IsVoid = false;
    bool IsReplacing = false;

    // The texts of the four number columns, in their order: BillNo in its own, "" elsewhere. A
    // year of bills is held at once, so a row keeps one number rather than four texts.
    std::array<const std::string*, 4> NumberCells() const;
};

inline constexpr DetailReportTexts kInvoiceTexts = {
    .formName = "frm票据开票明细表New",
    .title = "增值税开票明细表",
    .panelCaption = "增值税开票统计条件",
    .dateLabel = "开票日期范围",
    .extractWait = "正在提取收费项目，请稍等......",
    .noItemsMessage = "没有满足条件的开票数据,请重新设置条件!",
    .runWait = "正在进行增值税开票明细统计，请稍等......",
    .exportedMessage = "增值税开票明细表导出成功！",
    .checkBySelCount = false,    // ListIndex = -1
    .rebuildHeaderAtRun = false, // captions keep the percentages of the extraction
    .extractionTrapped = false,
};

// The two forms of the run: the union of ordinary and replacing bills, or, with a maintenance
// fund among the items, one statement joined on both keys.
enum class InvoiceQueryForm { Exchange, Fund };

// The statements, from the criteria, the items and the split table's shares.
std::string InvoiceChargeItemQuery(const std::string& start, const std::string& end, const std::string& dept);
std::string ExchangedNumberQuery(const std::string& start, const std::string& end);
std::string InvoiceDetailQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                               const std::string& start, const std::string& end, const std::string& dept,
                               const std::string& billTypes);
std::string FundInvoiceQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                             const std::string& start, const std::string& end, const std::string& dept,
                             const std::string& billTypes);

class frm票据开票明细表New : public DetailReportForm {
public:
    frm票据开票明细表New(AppSession& session, Dialogs& dialogs);

    // A maintenance fund among the items of the last extraction decides the form of the run.
    bool HasFundItem() const;
    std::string ExchangedNumbers;
    // Slot 0 stays empty; no list before the first run.
    std::optional<std::vector<InvoiceRow>> ResultRows;

    void Form_Load() override;

protected:
    void InitGridHeader() override;
    void BuildChargeItemColumns() override;
    std::string ChargeItemQuery() const override;
    bool RunReportQuery() override;
    void DropResultRows() override;
    std::optional<int> ResultRowCount() const override;
    void WriteResultRow(int r) override;
    void ExportDetailWorkbook() override { ExportInvoiceWorkbook(); }

private:
    bool RunInvoiceQuery(const std::string& dept, const std::string& office);
    bool RunFundInvoiceQuery(const std::string& dept, const std::string& office);
    // Reads the recordset of either form into ResultRows and closes it with 合  计 and 其中.
    bool ReadInvoiceRows(Recordset& rs, InvoiceQueryForm form);
    struct RunCriteria;
    void ReadBill(const Recordset& rs, RunCriteria& run, InvoiceRow& row) const;
    void ExportInvoiceWorkbook();

    AppSession& session_;
};

} // namespace quillon
