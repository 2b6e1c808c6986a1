// preinvoice_rig.h — test support for the pre-invoice detail: a hand-made book of one department
// over the first quarter of 2024.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "preinvoice/preinvoice_window.h"
#include "support/detail_rig.h"
#include "support/test_billing_db.h"

namespace quillon {

// Department 0101 (office G01) with four bill types and three items: WY 物业管理费(住宅) at 6 %,
// P1 停车费(月租) at 9 % and P2 临时停车费 at 3 %, the two last parking items.
inline void AddPreInvoiceCatalogues(TestBillingDb& db) {
    db.Department("0101", "一号部门")
        .Office({.code = "G01", .name = "一号管理处", .dept = "0101"})
        .InvoiceType({.code = "01", .name = "增值税专用发票"})
        .InvoiceType({.code = "02", .name = "增值税普通发票"})
        .InvoiceType({.code = "03", .name = "全电发票"})
        .InvoiceType({.code = "04", .name = "收据", .kind = "收据"})
        .Lot({"ZY", "01"})
        .Lot({"PT", "02"})
        .Lot({"QD", "03"})
        .Lot({"SJ", "04"})
        .ChargeItem({.code = "WY", .name = "物业管理费(住宅)", .category = "物业", .rate = 0.06})
        .ChargeItem({.code = "P1", .name = "停车费(月租)", .category = "停车服务", .rate = 0.09})
        .ChargeItem({.code = "P2", .name = "临时停车费", .category = "临时停车", .rate = 0.03});
}

// The book of the first quarter, each bill a case:
//   Z001 special, paid after the range          in: WY 106/6, P1 36.35/3 (a share that rounds)
//   P001 ordinary, paid inside the range        out
//   Q001 全电, never paid, replaced S900 ("01")   in, as special: P2 100 with NULL tax
//   Q002 全电, never paid, replaced P900 ("04")   in, as ordinary: WY 10.60/0.60
//   J001 收据, never paid                        in, no number shown: WY 50 with NULL tax
//   Z002 voided, Z003 exchanged                 out
//   Z004 issued after the range                 out
inline void AddPreInvoiceBook(TestBillingDb& db) {
    auto bill = [](const char* lot, const char* number, const char* issued) {
        return TestInvoice{.lot = lot, .number = number, .dept = "0101", .issued = issued};
    };
    TestInvoice z1 = bill("ZY", "Z001", "2024-01-10");
    z1.paid = "2024-04-05";
    z1.preInvoice = 1;
    z1.address = "一号楼101室";
    z1.lines = {{.item = "WY", .amount = 106, .tax = 6, .rate = 0.06},
                {.item = "P1", .amount = 36.35, .tax = 3, .rate = 0.09}};
    TestInvoice p1 = bill("PT", "P001", "2024-01-12");
    p1.paid = "2024-03-20";
    p1.lines = {{.item = "WY", .amount = 53, .tax = 3, .rate = 0.06}};
    TestInvoice q1 = bill("QD", "Q001", "2024-02-15");
    q1.replacesNumber = "S900";
    q1.replacesLot = "ZY";
    q1.payer = "某某\r\n公司";
    q1.lines = {{.item = "P2", .amount = 100, .rate = 0.03}};
    TestInvoice q2 = bill("QD", "Q002", "2024-03-10");
    q2.replacesNumber = "P900";
    q2.replacesLot = "PT";
    q2.lines = {{.item = "WY", .amount = 10.60, .tax = 0.60, .rate = 0.06}};
    TestInvoice j1 = bill("SJ", "J001", "2024-03-03");
    j1.payer = std::nullopt;
    j1.lines = {{.item = "WY", .amount = 50, .rate = 0.06}};
    TestInvoice z2 = bill("ZY", "Z002", "2024-03-01");
    z2.voided = "2024-03-02";
    z2.lines = {{.item = "WY", .amount = 212, .tax = 12, .rate = 0.06}};
    TestInvoice z3 = bill("ZY", "Z003", "2024-03-02");
    z3.exchanged = "2024-03-05";
    z3.exchangedNumber = "Z009";
    z3.exchangedLot = "ZY";
    z3.lines = {{.item = "WY", .amount = 318, .tax = 18, .rate = 0.06}};
    TestInvoice z4 = bill("ZY", "Z004", "2024-04-01");
    z4.lines = {{.item = "WY", .amount = 424, .tax = 24, .rate = 0.06}};
    // The replaced bills, from the year before.
    TestInvoice s900 = bill("ZY", "S900", "2023-12-01");
    s900.paid = "2023-12-01";
    s900.invoiceCode = "01";
    s900.lines = {{.item = "WY", .amount = 1, .tax = 0, .rate = 0.06}};
    TestInvoice p900 = bill("PT", "P900", "2023-12-01");
    p900.paid = "2023-12-01";
    p900.invoiceCode = "04";
    p900.lines = {{.item = "WY", .amount = 1, .tax = 0, .rate = 0.06}};
    for (const TestInvoice& inv : {z1, p1, q1, q2, j1, z2, z3, z4, s900, p900}) db.Invoice(inv);
}

class PreInvoiceTest : public DetailWindowTest<frm票据预开明细表New> {
protected:
    void SetUp() override { AddPreInvoiceCatalogues(db); }
};

} // namespace quillon
