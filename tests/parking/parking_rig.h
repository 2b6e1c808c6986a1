// parking_rig.h — test support for the parking-fee detail: a hand-made book of one parking
// department collected in March 2024, each bill a case, and the window on it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "parking/parking_window.h"
#include "support/detail_rig.h"
#include "support/test_billing_db.h"

namespace quillon {

// Department 0104 (office G04) with a paper and a receipt type; parking items P1 停车费(月租) at
// 9 %, P2 临时停车费 at 3 %, P3 夜间停车费 at 6 %, and WY 物业管理费, no parking item. The modes
// of payment list "微信" after "微信支付", and two modes nobody pays with.
inline void AddParkingCatalogues(TestBillingDb& db) {
    db.Department("0104", "停车部门")
        .Office({.code = "G04", .name = "中心停车场管理处", .dept = "0104"})
        .InvoiceType({.code = "02", .name = "增值税普通发票"})
        .InvoiceType({.code = "04", .name = "收据", .kind = "收据"})
        .Lot({"TC", "02"})
        .Lot({"TD", "04"})
        .ChargeItem({.code = "P1", .name = "停车费(月租)", .category = "停车服务", .rate = 0.09})
        .ChargeItem({.code = "P2", .name = "临时停车费", .category = "临时停车", .rate = 0.03})
        .ChargeItem({.code = "P3", .name = "夜间停车费", .category = "停车服务", .rate = 0.06})
        .ChargeItem({.code = "WY", .name = "物业管理费", .category = "物业", .rate = 0.06});
    for (const char* mode : {"现金", "银行转账", "微信支付", "支付宝", "微信", "POS刷卡"})
        db.PaymentMode(mode);
}

inline TestInvoice ParkingBill(const char* lot, const char* number, const char* issued,
                               std::optional<std::string> paid, const char* mode, TestInvoiceLine line) {
    TestInvoice inv{.lot = lot, .number = number, .dept = "0104", .issued = issued, .paid = std::move(paid)};
    inv.mode = mode;
    inv.lines = {std::move(line)};
    return inv;
}

// The book of March 2024; with P1 at 70/30 and P2 at 50/50 it reads:
//   batch TC on 03-05: 101 现金, 102 微信, 105 现金 online   one row 101 - 105, 现金, electronic
//     P1 net 100 + 200 + 50: developer 245.00, property 105.00, tax 31.50, total 381.50
//     106 voided and 107 exchanged on that day               out, the range stays 101 - 105
//   batch TD on 03-06 09:15: 201 支付宝  P1 net 30            21.00 / 9.00 / 2.70
//   batch TD on 03-06 16:40: 202 银联, a mode not listed       14.00 / 6.00 / 1.80
//   batch TC on 03-20: 103 " 微信 ", 104 现金                   one row 103 - 104, 微信
//     P2 net 20.01 each, NULL tax: the share 10.005 rounds to 10.01 per bill, so property
//     20.02 and developer 20.00, total 40.02
//   301: P3 invoiced in February, collected 03-10             no column: out
//   401: WY only; 501: another department; 601: collected 04-02; 701: never collected
inline void AddParkingBook(TestBillingDb& db) {
    const TestInvoiceLine p1_100{.item = "P1", .amount = 109, .tax = 9, .rate = 0.09};
    // Inserted out of order: the statement sorts them.
    TestInvoice b105 = ParkingBill("TC", "105", "2024-03-02", "2024-03-05", "现金",
                                   {.item = "P1", .amount = 54.5, .tax = 4.5, .rate = 0.09});
    b105.orderNo = "ORD105";
    db.Invoice(b105);
    db.Invoice(ParkingBill("TC", "101", "2024-03-01", "2024-03-05", "现金", p1_100));
    db.Invoice(ParkingBill("TC", "102", "2024-03-01", "2024-03-05", "微信",
                           {.item = "P1", .amount = 218, .tax = 18, .rate = 0.09}));
    TestInvoice b106 = ParkingBill("TC", "106", "2024-03-02", "2024-03-05", "现金", p1_100);
    b106.voided = "2024-03-05";
    db.Invoice(b106);
    TestInvoice b107 = ParkingBill("TC", "107", "2024-03-02", "2024-03-05", "现金", p1_100);
    b107.exchanged = "2024-03-05";
    db.Invoice(b107);

    db.Invoice(ParkingBill("TD", "201", "2024-03-04", "2024-03-06 09:15:00", "支付宝",
                           {.item = "P1", .amount = 32.7, .tax = 2.7, .rate = 0.09}));
    db.Invoice(ParkingBill("TD", "202", "2024-03-04", "2024-03-06 16:40:00", "银联",
                           {.item = "P1", .amount = 21.8, .tax = 1.8, .rate = 0.09}));

    const TestInvoiceLine p2_untaxed{.item = "P2", .amount = 20.01, .rate = 0.03};
    db.Invoice(ParkingBill("TC", "103", "2024-03-03", "2024-03-20", " 微信 ", p2_untaxed));
    db.Invoice(ParkingBill("TC", "104", "2024-03-03", "2024-03-20", "现金", p2_untaxed));

    db.Invoice(ParkingBill("TC", "301", "2024-02-10", "2024-03-10", "现金",
                           {.item = "P3", .amount = 10.6, .tax = 0.6, .rate = 0.06}));
    db.Invoice(ParkingBill("TC", "401", "2024-03-08", "2024-03-08", "现金",
                           {.item = "WY", .amount = 10.6, .tax = 0.6, .rate = 0.06}));
    TestInvoice b501 = ParkingBill("TC", "501", "2024-03-08", "2024-03-08", "现金", p1_100);
    b501.dept = "0199";
    db.Invoice(b501);
    db.Invoice(ParkingBill("TC", "601", "2024-03-09", "2024-04-02", "现金", p1_100));
    db.Invoice(ParkingBill("TC", "701", "2024-03-09", std::nullopt, "现金", p1_100));
}

class ParkingTest : public DetailWindowTest<frm停车费明细表New> {
protected:
    void SetUp() override {
        AddParkingCatalogues(db);
        rangeStart = Day(2024, 3, 1);
        rangeEnd = Day(2024, 3, 31);
    }
};

} // namespace quillon
