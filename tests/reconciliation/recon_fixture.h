// recon_fixture.h — test support for the reconciliation windows: a billing database with one
// department, its office, the invoice types and charge items of the cases, a session on it that
// records every statement sent, and lookups of grid rows by month and kind.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "reconciliation/recon_window.h"
#include "support/grid_lines.h"
#include "support/test_billing_db.h"

namespace quillon {

// Lots of the four invoice types: special, ordinary, 全电发票 (类别 发票) and 收据 (类别 收据).
inline constexpr const char* kSpecialLot = "L01";
inline constexpr const char* kOrdinaryLot = "L02";
inline constexpr const char* kAllElectricLot = "L03";
inline constexpr const char* kReceiptLot = "L04";

// Department 0101 with office G01 "一号管理处"; charge items WY 物业管理费(住宅) at 6 % and WX
// 维修基金 at 0 % for G01, and WY at 13 % for another office, so that table A has a rate no
// invoice of G01 uses.
inline void AddReconBooks(TestBillingDb& db) {
    db.Department("0101", "一号部门")
        .Office({.code = "G01", .name = "一号管理处", .dept = "0101"})
        .InvoiceType({.code = "01", .name = "增值税专用发票"})
        .InvoiceType({.code = "02", .name = "增值税普通发票"})
        .InvoiceType({.code = "03", .name = "全电发票"})
        .InvoiceType({.code = "04", .name = "收据", .kind = "收据"})
        .Lot({kSpecialLot, "01"})
        .Lot({kOrdinaryLot, "02"})
        .Lot({kAllElectricLot, "03"})
        .Lot({kReceiptLot, "04"})
        .ChargeItem({.code = "WY", .name = "物业管理费(住宅)", .category = "物业", .rate = 0.06})
        .ChargeItem({.code = "WX", .name = "维修基金", .category = "代收", .rate = 0})
        .DeviceItem({.item = "WY", .rate = 6, .office = "G01"})
        .DeviceItem({.item = "WX", .rate = 0, .office = "G01"})
        .DeviceItem({.item = "WY", .rate = 13, .office = "G02"});
}

// One invoice of one line, paid on `paid` (empty: never).
inline TestInvoice OneLine(const char* lot, const char* number, const char* issued, const char* paid,
                           const char* item, double amount, std::optional<double> tax) {
    TestInvoice inv{.lot = lot, .number = number, .dept = "0101", .issued = issued};
    if (*paid) inv.paid = paid;
    inv.lines = {{.item = item, .amount = amount, .tax = tax}};
    return inv;
}

class ReconTest : public ::testing::Test {
protected:
    // Opens the session on the database as it now stands and loads the window.
    template <typename Window> std::unique_ptr<Window> OpenWindow() {
        session.DbConnection = std::make_unique<Connection>();
        session.DbConnection->ConnectionString = db.ConnectionText();
        session.DbConnection->OnStatement = [this](const std::string& sql) { sent.push_back(sql); };
        session.DbConnection->Open();
        auto w = std::make_unique<Window>(session, dialogs);
        w->Load();
        return w;
    }

    std::unique_ptr<ReconWindow> OpenForm(bool newForm) {
        if (newForm) return OpenWindow<frm票据核对表New>();
        return OpenWindow<frm票据核对表>();
    }

    // What a user does: pick the first department line, set year and months, click 开始统计.
    static void Run(ReconWindow& w, const char* year, const char* from, const char* to) {
        w.List1.SetListIndex(0);
        w.Combo1.SetText(year);
        w.Combo2.SetText(from);
        w.Combo3.SetText(to);
        w.Command3.Click();
    }

    // The statements sent that begin with `head`.
    std::vector<std::string> Sent(const std::string& head) const {
        std::vector<std::string> out;
        for (const auto& s : sent)
            if (s.rfind(head, 0) == 0) out.push_back(s);
        return out;
    }

    TestBillingDb db;
    AppSession session;
    ScriptedDialogs dialogs;
    std::vector<std::string> sent;
};

inline std::vector<int> ColWidths(const FlexGrid& g) {
    std::vector<int> widths;
    for (int c = 0; c < g.Cols(); ++c) widths.push_back(g.ColWidth(c));
    return widths;
}

// The data row of a month whose column 2 holds `kind` (a rate, "小计"; "" with month "合计"
// for the 合计 row); -1 when none.
inline int FindRow(const FlexGrid& g, const std::string& month, const std::string& kind) {
    for (int r = 2; r < g.Rows(); ++r)
        if (g.TextMatrix(r, 1) == month && g.TextMatrix(r, 2) == kind) return r;
    return -1;
}

} // namespace quillon
