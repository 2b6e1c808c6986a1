// The parking-fee detail's rows: bills of one batch and collection date folded into one row, and
// the closing rows under them.
#include "parking/parking_window.h"

namespace quillon {

namespace {

constexpr const char* kRangeSeparator = " - ";

// Online payments are booked as "微信" by some tills; the mode list calls them "微信支付".
const std::string& ModeOfRow(const ParkingRow& row) {
    static const std::string wechat = "微信支付";
    return row.PayMode == "微信" ? wechat : row.PayMode;
}

} // namespace

void AddBillToGroup(std::vector<ParkingRow>& rows, std::string& groupKey, const std::string& batch,
                    const std::string& collected, const std::string& billNo, const std::string& payMode,
                    bool hasOrderNo, const std::vector<double>& amounts) {
    const std::string key = batch + "|" + collected;
    const bool first = key != groupKey;
    if (first) {
        // A difference of mode inside a group is ignored: the first bill's mode stands.
        groupKey = key;
        ParkingRow& row = rows.emplace_back();
        row.Amounts.assign(amounts.size(), 0.0);
        row.PayMode = payMode;
    }
    ParkingRow& row = rows.back();
    if (!row.BillRange.empty()) {
        // "{first} - {last}", whatever numbers lie between.
        row.BillRange =
            row.BillRange.substr(0, row.BillRange.find(kRangeSeparator)) + kRangeSeparator + billNo;
    } else {
        row.BillRange = billNo;
    }
    row.MediaKind = hasOrderNo ? kOnlineMedia : kPaperMedia;
    for (std::size_t j = 0; j < amounts.size(); ++j) {
        if (first)
            row.Amounts[j] = amounts[j];
        else
            row.Amounts[j] += amounts[j];
    }
    row.RowTotal = 0;
    for (double a : row.Amounts) row.RowTotal += a;
}

void AppendParkingClosingRows(std::vector<ParkingRow>& rows, int amountColumns,
                              const std::vector<std::string>& modes) {
    ParkingRow total;
    total.BillRange = kTotalRange;
    total.Amounts.assign(amountColumns, 0.0);
    for (std::size_t r = 1; r < rows.size(); ++r) {
        const ParkingRow& row = rows[r];
        for (std::size_t j = 0; j < total.Amounts.size() && j < row.Amounts.size(); ++j)
            total.Amounts[j] += row.Amounts[j];
        total.RowTotal += row.RowTotal;
    }
    rows.push_back(std::move(total));

    // All sums first, over the bills and the total row, then the rows of those that are not 0.
    std::vector<double> sums(modes.size(), 0.0);
    for (std::size_t m = 0; m < modes.size(); ++m)
        for (std::size_t r = 1; r < rows.size(); ++r)
            if (ModeOfRow(rows[r]) == modes[m]) sums[m] += rows[r].RowTotal;
    bool firstMode = true;
    for (std::size_t m = 0; m < modes.size(); ++m) {
        if (sums[m] == 0) continue;
        ParkingRow& row = rows.emplace_back();
        row.BillRange = firstMode ? kBreakdownRange : "";
        row.PayMode = modes[m];
        row.RowTotal = sums[m];
        firstMode = false;
    }
}

} // namespace quillon
