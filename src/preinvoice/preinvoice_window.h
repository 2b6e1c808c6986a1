// preinvoice_window.h — preinvoice layer: the VAT pre-invoice detail, frm票据预开明细表New: for
// one department, every bill invoiced in a date range whose money had not come in by the range's
// end, one row a bill, one money column group per charge item of the range, parking items split
// between developer and property company, a "合  计" row, and the workbook of all rows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/detail_report_form.h"

namespace quillon {

struct AppSession;
class ItemAmountReader;

struct PreInvoiceRow {
    std::string BillDate;          // 开票日期 "yyyy-mm-dd"; "合  计" in the total row
    std::string BillNo;            // 票据编号
    std::string SpecialInvoiceNo;  // 专用发票
    std::string OrdinaryInvoiceNo; // 普通发票
    std::string OtherInvoiceNo;    // any other type; neither shown nor exported
    std::vector<double> Amounts;   // one per money column, in the statement's order
    std::string PayMode;           // "预开"; empty in the total row
    std::string Payer;             // payer and address
    bool IsVoid = false;
    double RowTotal = 0;
};

inline constexpr DetailReportTexts kPreInvoiceTexts = {
    .formName = "frm票据预开明细表New",
    .title = "增值税预开票明细表",
    .panelCaption = "增值税预开票统计条件",
    .dateLabel = "开票日期范围",
    .extractWait = "正在提取收费项目，请稍等......",
    .noItemsMessage = "没有满足条件的预开票数据,请重新设置条件!",
    .runWait = "正在进行增值税预开票明细统计，请稍等......",
    .exportedMessage = "增值税预开票明细表导出成功！",
    .checkBySelCount = true,
    .rebuildHeaderAtRun = true,
    .extractionTrapped = true,
};

// The statements, built from the criteria and the items; the split table gives the shares.
std::string PreInvoiceChargeItemQuery(const std::string& start, const std::string& end,
                                      const std::string& dept, const std::string& billTypes);
std::string PreInvoiceBillDetailQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                                      const std::string& start, const std::string& end,
                                      const std::string& dept, const std::string& billTypes);

class frm票据预开明细表New : public DetailReportForm {
public:
    frm票据预开明细表New(AppSession& session, Dialogs& dialogs);

    // Slot 0 stays empty; no list before the first run.
    std::optional<std::vector<PreInvoiceRow>> ResultRows;

    void Form_Load() override;

protected:
    void InitGridHeader() override;
    void BuildChargeItemColumns() override;
    std::string ChargeItemQuery() const override;
    bool RunReportQuery() override { return RunPreInvoiceQuery(DeptCode, OfficeCode); }
    void DropResultRows() override;
    std::optional<int> ResultRowCount() const override;
    void WriteResultRow(int r) override;
    void ExportDetailWorkbook() override;

private:
    bool RunPreInvoiceQuery(const std::string& dept, const std::string& office);
    void ReadBill(const Recordset& rs, ItemAmountReader& amountReader, PreInvoiceRow& row);

    AppSession& session_;
};

} // namespace quillon
