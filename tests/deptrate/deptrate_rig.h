// deptrate_rig.h — test support: a billing database, its session, scripted dialogs and the
// department summary window, with short ways to tick departments and read a cell by its captions.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "deptrate/deptrate_window.h"
#include "shell/app_session.h"
#include "support/test_billing_db.h"

namespace quillon {

using Texts = std::vector<std::string>;

inline DateTime Day(int year, int month, int day) {
    return DateTime{year, month, day};
}

class DeptRateRig {
public:
    TestBillingDb db;
    AppSession session;
    ScriptedDialogs dialogs;
    Texts statements;
    std::unique_ptr<frm部门开票分税率统计表> window;

    // 税控盘收费项目设置 rows, one per rate, in percent.
    DeptRateRig& Rates(std::initializer_list<double> rates) {
        int n = 0;
        for (double r : rates) db.DeviceItem({.item = "X" + std::to_string(++n), .rate = r, .office = "01"});
        return *this;
    }

    // An invoice of one line with a number of its own: department, invoice date, gross, tax
    // (std::nullopt for NULL), rate.
    DeptRateRig& Invoice(const char* dept, const char* issued, double amount, std::optional<double> tax,
                         double rate, TestInvoice extra = {}) {
        extra.lot = "L1";
        extra.number = "N" + std::to_string(++invoices_);
        extra.dept = dept;
        extra.issued = issued;
        extra.lines = {{.item = "WYF", .amount = amount, .tax = tax, .rate = rate}};
        db.Invoice(extra);
        return *this;
    }

    // Opens the session and loads the window, as the menu does.
    frm部门开票分税率统计表& Open() {
        session.DbConnection = std::make_unique<Connection>();
        session.DbConnection->ConnectionString = db.ConnectionText();
        session.DbConnection->Open();
        session.DbConnection->OnStatement = [this](const std::string& sql) { statements.push_back(sql); };
        window = std::make_unique<frm部门开票分税率统计表>(session, dialogs);
        window->Load();
        return *window;
    }

    TreeNode& Node(const std::string& code) const { return window->TreeView1.Nodes("$" + code); }

    // Ticks departments silently (no propagation) and runs 统计 over the period.
    void Run(std::initializer_list<const char*> codes, DateTime start, DateTime end) {
        for (const char* code : codes) Node(code).SetChecked(true);
        window->DTPicker1.SetValue(start);
        window->DTPicker2.SetValue(end);
        window->Command3.Click();
    }

    // The cell of the department's row under a rate heading and an amount caption.
    std::string Cell(const std::string& deptName, const std::string& heading,
                     const std::string& caption) const {
        const FlexGrid& g = window->MSFlexGrid1;
        int row = -1;
        for (int r = 2; r < g.Rows(); ++r)
            if (g.TextMatrix(r, 1) == deptName) row = r;
        for (int c = 2; c < g.Cols(); ++c)
            if (row >= 0 && g.TextMatrix(0, c) == heading && g.TextMatrix(1, c) == caption)
                return g.TextMatrix(row, c);
        ADD_FAILURE() << "no cell " << deptName << " / " << heading << " / " << caption;
        return "?";
    }

    Texts RowTexts(int row) const {
        Texts texts;
        for (int c = 0; c < window->MSFlexGrid1.Cols(); ++c)
            texts.push_back(window->MSFlexGrid1.TextMatrix(row, c));
        return texts;
    }

    Texts MessageTexts() const {
        Texts texts;
        for (const auto& m : dialogs.Messages()) texts.push_back(m.Text);
        return texts;
    }

private:
    int invoices_ = 0;
};

} // namespace quillon
