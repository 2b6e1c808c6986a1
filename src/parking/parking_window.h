// parking_window.h — parking layer: the parking-fee detail, frm停车费明细表New: for one department,
// the money collected in a date range on parking charge items, split between developer and
// property company, one row per receipt batch and collection date, then a "合计" row and a
// breakdown of the total by mode of payment, and the workbook of all rows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/detail_report_form.h"

namespace quillon {

struct AppSession;

inline constexpr const char* kPaperMedia = "纸质或全电票"; // the bill has no 交易订单号
inline constexpr const char* kOnlineMedia = "电子";
inline constexpr const char* kTotalRange = "合计";
inline constexpr const char* kBreakdownRange = "其中"; // the first row of the mode breakdown

struct ParkingRow {
    std::string BillRange{};       // "101" or "101 - 105"; "合计", "其中" or empty in closing rows
    std::string PayMode{};         // 收款方式 of the group's first bill; the mode of a breakdown row
    std::vector<double> Amounts{}; // per item developer, property company, tax; none in a breakdown
    double RowTotal = 0;           // sum of Amounts; the mode's sum in a breakdown row
    std::string MediaKind{};       // kPaperMedia or kOnlineMedia, of the group's last bill

    // The total and the breakdown rows.
    bool IsClosing() const {
        return BillRange.empty() || BillRange == kBreakdownRange || BillRange == kTotalRange;
    }
};

inline constexpr DetailReportTexts kParkingTexts = {
    .formName = "frm停车费明细表New",
    .title = "停车费明细表",
    .panelCaption = "停车费统计条件",
    .dateLabel = "收款日期范围",
    .extractWait = "正在提取停车费项目，请稍等......",
    .noItemsMessage = "没有满足条件的开票数据,请重新设置条件!",
    .runWait = "正在进行停车费明细统计，请稍等......",
    .exportedMessage = "停车费明细表导出成功！",
    .checkBySelCount = true,
    .rebuildHeaderAtRun = true,
    .extractionTrapped = true,
};

// The statements, built from the criteria and the items; the split table gives the shares.
std::string ParkingChargeItemQuery(const std::string& start, const std::string& end, const std::string& dept);
std::string ParkingDetailQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                               const std::string& start, const std::string& end, const std::string& dept);

// Folds one bill into the rows: a bill of another batch or collection date than the last row's
// (groupKey) opens a new row; a later bill of the same group extends its range and adds its money.
void AddBillToGroup(std::vector<ParkingRow>& rows, std::string& groupKey, const std::string& batch,
                    const std::string& collected, const std::string& billNo, const std::string& payMode,
                    bool hasOrderNo, const std::vector<double>& amounts);

// Appends the "合计" row over rows[1..] and then one row per mode of `modes`, in their order,
// whose rows add up to anything but 0; a row of "微信" counts under "微信支付".
void AppendParkingClosingRows(std::vector<ParkingRow>& rows, int amountColumns,
                              const std::vector<std::string>& modes);

class frm停车费明细表New : public DetailReportForm {
public:
    frm停车费明细表New(AppSession& session, Dialogs& dialogs);

    // Slot 0 stays empty; no list before the first run.
    std::optional<std::vector<ParkingRow>> ResultRows;

    void Form_Load() override;

protected:
    void InitGridHeader() override;
    void BuildChargeItemColumns() override;
    std::string ChargeItemQuery() const override;
    bool RunReportQuery() override { return RunParkingQuery(DeptCode, OfficeCode); }
    void DropResultRows() override;
    std::optional<int> ResultRowCount() const override;
    void WriteResultRow(int r) override;
    void ExportDetailWorkbook() override;

private:
    bool RunParkingQuery(const std::string& dept, const std::string& office);

    AppSession& session_;
};

} // namespace quillon
