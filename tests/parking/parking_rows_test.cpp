// Rows of the parking-fee detail without a database: how bills fold into groups, and the total
// and mode breakdown under them.
#include <gtest/gtest.h>

#include "base/vb_number.h"
#include "parking/parking_window.h"
#include "support/grid_lines.h"

namespace quillon {
namespace {

struct Bill {
    const char* batch;
    const char* collected;
    const char* number;
    const char* mode;
    bool online;
    std::vector<double> amounts;
};

// "BillRange|PayMode|MediaKind|amounts…|RowTotal", money as the grid shows it.
std::string RowText(const ParkingRow& row) {
    std::string text = row.BillRange + "|" + row.PayMode + "|" + row.MediaKind;
    for (double a : row.Amounts) text += "|" + Format(a, "0.00");
    return text + "|" + Format(row.RowTotal, "0.00");
}

TEST(ParkingRows, BillsFoldByBatchAndCollectionTime) {
    struct Case {
        const char* why;
        std::vector<Bill> bills;
        Lines rows;
    };
    const Case cases[] = {
        {"three bills of one batch and time: first - last, the first mode, the last medium",
         {{"TC", "2024-03-05", "101", "现金", false, {1.10, 2, 3}},
          {"TC", "2024-03-05", "102", "微信", false, {0.20, 0, 0}},
          {"TC", "2024-03-05", "105", "支付宝", true, {0.05, 0, 1}}},
         {"101 - 105|现金|电子|1.35|2.00|4.00|7.35"}},
        {"a later bill of the group keeps the paper medium when it has no order number",
         {{"TC", "2024-03-05", "101", "现金", true, {1, 0, 0}},
          {"TC", "2024-03-05", "102", "现金", false, {1, 0, 0}}},
         {"101 - 102|现金|纸质或全电票|2.00|0.00|0.00|2.00"}},
        {"another day, another time of the day, another batch: each opens a row",
         {{"TC", "2024-03-05", "101", "现金", false, {1, 0, 0}},
          {"TC", "2024-03-06", "102", "现金", false, {2, 0, 0}},
          {"TC", "2024-03-06 10:30:00", "103", "现金", false, {3, 0, 0}},
          {"TD", "2024-03-06 10:30:00", "201", "现金", false, {4, 0, 0}}},
         {"101|现金|纸质或全电票|1.00|0.00|0.00|1.00", "102|现金|纸质或全电票|2.00|0.00|0.00|2.00",
          "103|现金|纸质或全电票|3.00|0.00|0.00|3.00", "201|现金|纸质或全电票|4.00|0.00|0.00|4.00"}},
        {"a batch coming back after another one starts afresh",
         {{"TC", "2024-03-05", "101", "现金", false, {1, 0, 0}},
          {"TD", "2024-03-05", "201", "现金", false, {2, 0, 0}},
          {"TC", "2024-03-05", "102", "微信", false, {3, 0, 0}}},
         {"101|现金|纸质或全电票|1.00|0.00|0.00|1.00", "201|现金|纸质或全电票|2.00|0.00|0.00|2.00",
          "102|微信|纸质或全电票|3.00|0.00|0.00|3.00"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        std::vector<ParkingRow> rows(1);
        std::string key;
        for (const Bill& b : c.bills)
            AddBillToGroup(rows, key, b.batch, b.collected, b.number, b.mode, b.online, b.amounts);
        Lines shown;
        for (std::size_t r = 1; r < rows.size(); ++r) shown.push_back(RowText(rows[r]));
        EXPECT_EQ(shown, c.rows);
    }
}

TEST(ParkingRows, TotalAndBreakdownByTheModesOfTheList) {
    struct Case {
        const char* why;
        std::vector<std::pair<const char*, double>> rows; // PayMode, RowTotal
        std::vector<std::string> modes;
        Lines closing;
    };
    const Case cases[] = {
        {"list order, first row 其中, a negative sum has its row",
         {{"现金", -4}, {"支付宝", 6}, {"现金", 1}},
         {"支付宝", "现金"},
         {"合计||3.00", "其中|支付宝|6.00", "|现金|-3.00"}},
        {"微信 counts as 微信支付; the list's own 微信 finds nothing",
         {{"微信", 2}, {"微信支付", 3}},
         {"微信", "微信支付"},
         {"合计||5.00", "其中|微信支付|5.00"}},
        {"a mode outside the list is in the total only; modes match whole texts",
         {{"银联", 5}, {"现金", 3}, {"现金支付", 7}},
         {"现金"},
         {"合计||15.00", "其中|现金|3.00"}},
        {"all sums zero: the report ends with the total",
         {{"现金", 10}, {"现金", -10}},
         {"现金", "支付宝"},
         {"合计||0.00"}},
        {"no mode listed", {{"现金", 10}}, {}, {"合计||10.00"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        std::vector<ParkingRow> rows(1);
        for (const auto& [mode, total] : c.rows) {
            ParkingRow& row = rows.emplace_back();
            row.BillRange = "1";
            row.PayMode = mode;
            row.Amounts = {total};
            row.RowTotal = total;
        }
        AppendParkingClosingRows(rows, 1, c.modes);
        Lines closing;
        for (std::size_t r = c.rows.size() + 1; r < rows.size(); ++r)
            closing.push_back(rows[r].BillRange + "|" + rows[r].PayMode + "|" +
                              Format(rows[r].RowTotal, "0.00"));
        EXPECT_EQ(closing, c.closing);
        for (std::size_t r = c.rows.size() + 1; r < rows.size(); ++r) EXPECT_TRUE(rows[r].IsClosing());
    }
}

TEST(ParkingRows, TotalSumsEveryColumn) {
    std::vector<ParkingRow> rows(1);
    rows.push_back({.BillRange = "1", .Amounts = {1.10, 2.20, 0.30}, .RowTotal = 3.60});
    rows.push_back({.BillRange = "2", .Amounts = {-0.10, 0.80, 0.00}, .RowTotal = 0.70});
    AppendParkingClosingRows(rows, 3, {});
    ASSERT_EQ(rows.size(), 4u);
    const ParkingRow& total = rows[3];
    EXPECT_EQ(total.BillRange, "合计");
    EXPECT_EQ(total.PayMode, "");
    ASSERT_EQ(total.Amounts.size(), 3u);
    EXPECT_EQ(Format(total.Amounts[0], "0.00"), "1.00");
    EXPECT_EQ(Format(total.Amounts[1], "0.00"), "3.00");
    EXPECT_EQ(Format(total.Amounts[2], "0.00"), "0.30");
    EXPECT_EQ(Format(total.RowTotal, "0.00"), "4.30");
}

} // namespace
} // namespace quillon
