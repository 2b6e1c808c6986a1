// invoice_rig.h — test support for the invoice detail: a hand-made March 2024 of one department
// with a bill of every kind the report flags.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "invoice/invoice_window.h"
#include "support/detail_rig.h"
#include "support/test_billing_db.h"

namespace quillon {

// Department 0101 (office G01), five bill types, items WY 物业管理费(住宅) at 6 % and P1
// 停车费(月租) at 9 % (parking), the modes 现金, 微信支付, 支付宝.
inline void AddInvoiceCatalogues(TestBillingDb& db) {
    db.Department("0101", "一号部门")
        .Office({.code = "G01", .name = "一号管理处", .dept = "0101"})
        .InvoiceType({.code = "01", .name = "增值税专用发票"})
        .InvoiceType({.code = "02", .name = "增值税普通发票"})
        .InvoiceType({.code = "03", .name = "全电发票"})
        .InvoiceType({.code = "04", .name = "收据", .kind = "收据"})
        .InvoiceType({.code = "05", .name = "电子发票"})
        .Lot({"ZY", "01"})
        .Lot({"PT", "02"})
        .Lot({"QD", "03"})
        .Lot({"SJ", "04"})
        .Lot({"DZ", "05"})
        .ChargeItem({.code = "WY", .name = "物业管理费(住宅)", .category = "物业", .rate = 0.06})
        .ChargeItem({.code = "P1", .name = "停车费(月租)", .category = "停车服务", .rate = 0.09})
        .PaymentMode("现金")
        .PaymentMode("微信支付")
        .PaymentMode("支付宝");
}

// A bill of department 0101 with one line.
inline TestInvoice Bill(const char* lot, const char* number, const char* issued, const char* paid,
                        TestInvoiceLine line) {
    TestInvoice inv{.lot = lot, .number = number, .dept = "0101", .issued = issued};
    if (*paid) inv.paid = paid;
    inv.lines = {line};
    return inv;
}

inline TestInvoiceLine Wy(double amount, std::optional<double> tax) {
    return {.item = "WY", .amount = amount, .tax = tax, .rate = 0.06};
}

// March 2024, each bill a case (the comments give what the report must make of it).
inline void AddInvoiceBook(TestBillingDb& db) {
    // Paid in March, invoiced in February: in, by its payment. Its parking line is split.
    TestInvoice p001 = Bill("PT", "P001", "2024-02-20", "2024-03-10",
                            {.item = "P1", .amount = 36.35, .tax = 3, .rate = 0.09});
    p001.mode = "微信支付";
    // Invoiced in April after its payment in March: out, counted by invoice date only.
    TestInvoice p002 = Bill("PT", "P002", "2024-04-02", "2024-03-20", Wy(10.6, 0.6));
    TestInvoice z001 = Bill("ZY", "Z001", "2024-03-05", "2024-03-05", Wy(106, 6));
    TestInvoice z002 = Bill("ZY", "Z002", "2024-03-06", "", Wy(53, 3)); // voided: 作废
    z002.voided = "2024-03-06";
    TestInvoice z003 = Bill("ZY", "Z003", "2024-03-07", "2024-03-07", Wy(-53, -3)); // negative, counts
    // Exchanged internally for Z006: Z005 keeps its money, Z006 (a listed number) shows 换票.
    TestInvoice z005 = Bill("ZY", "Z005", "2024-03-08", "2024-03-08", Wy(212, 12));
    z005.exchanged = "2024-03-09";
    z005.exchangedNumber = "Z006";
    z005.exchangedLot = "ZY";
    TestInvoice z006 = Bill("ZY", "Z006", "2024-03-09", "2024-03-09", Wy(106, 6));
    TestInvoice z004 = Bill("ZY", "Z004", "2024-03-10", "", Wy(-106, -6)); // voided negative: 负票
    z004.voided = "2024-03-11";
    // A 全电发票 replacing an earlier bill: 换票, in the 电子发票 column.
    TestInvoice q001 = Bill("QD", "Q001", "2024-03-12", "2024-03-12", Wy(10.6, 0.6));
    q001.replacesNumber = "S900";
    q001.replacesLot = "ZY";
    // Its number is part of the listed Z006: 换票 too.
    TestInvoice z00 = Bill("PT", "Z00", "2024-03-13", "2024-03-13", Wy(31.8, 1.8));
    TestInvoice e001 = Bill("DZ", "E001", "2024-03-15", "", Wy(21.2, 1.2)); // not paid by the end: 预开
    // A receipt with NULL tax, no payer but an address.
    TestInvoice j001 = Bill("SJ", "J001", "2024-03-16", "2024-03-16", Wy(50, std::nullopt));
    j001.mode = "微信支付";
    j001.payer = std::nullopt;
    j001.address = "二号楼";
    // Another department's exchange in March still lists its new number.
    TestInvoice x01 = Bill("ZY", "X01", "2024-03-01", "2024-03-01", Wy(1, 0));
    x01.dept = "0202";
    x01.exchanged = "2024-03-02";
    x01.exchangedNumber = "X77";
    x01.exchangedLot = "ZY";
    for (const TestInvoice& inv :
         {p001, p002, z001, z002, z003, z005, z006, z004, q001, z00, e001, j001, x01})
        db.Invoice(inv);
}

class InvoiceTest : public DetailWindowTest<frm票据开票明细表New> {
protected:
    void SetUp() override {
        AddInvoiceCatalogues(db);
        rangeStart = Day(2024, 3, 1);
        rangeEnd = Day(2024, 3, 31);
    }

    // The grid line whose column `col` holds `text`; empty when there is none.
    std::string LineWith(int col, const std::string& text) const {
        const FlexGrid& g = window->MSFlexGrid1;
        for (int r = 2; r < g.Rows(); ++r)
            if (g.TextMatrix(r, col) == text) return GridLine(g, r);
        return {};
    }
};

} // namespace quillon
