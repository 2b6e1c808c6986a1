// summary_rig.h — test support: a billing database with three listed offices and one ended
// office, its session, scripted dialogs and the pre-invoice summary window, run over the first
// quarter of 2024.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "shell/app_session.h"
#include "summary/summary_window.h"
#include "support/grid_lines.h"
#include "support/test_billing_db.h"

namespace quillon {

class SummaryRig {
public:
    TestBillingDb db;
    AppSession session;
    ScriptedDialogs dialogs;
    Lines statements;
    std::unique_ptr<frm预开票汇总表> window;

    // Offices 2 (西区, nothing pre-invoiced), 9 (南区 with a line break; its lines add up to 0),
    // 10 (北区 物业: the name is cut at its blank) and the ended office 3.
    void Offices() {
        db.Department("D1", "一部").Department("D2", "二部").Department("D3", "三部");
        db.Office({.code = "10", .name = "北区 物业", .dept = "D1"});
        db.Office({.code = "9", .name = "南区\r\n二期", .dept = "D2"});
        db.Office({.code = "2", .name = "西区", .dept = "D3"});
        db.Office({.code = "3", .name = "旧区", .dept = "D3", .ended = "2020-01-01"});
        db.ChargeItem({.code = "WYF", .name = "物业费"});
        db.ChargeItem({.code = "SF", .name = "水费"});
        db.ChargeItem({.code = "TCF", .name = "停车费"});
    }

    // An invoice of department D1 (office 10) unless `extra` says otherwise.
    SummaryRig& Bill(const char* number, const char* issued, std::vector<TestInvoiceLine> lines,
                     TestInvoice extra = {}) {
        extra.lot = extra.lot.empty() ? "L1" : extra.lot;
        extra.number = number;
        extra.dept = extra.dept.empty() ? "D1" : extra.dept;
        extra.issued = issued;
        extra.lines = std::move(lines);
        db.Invoice(extra);
        return *this;
    }

    // The bills of the quarter: what counts and what does not, worked out in the tests.
    void QuarterBills() {
        auto open = [](TestInvoice t = {}) {
            t.preInvoice = 1;
            return t;
        };
        // Office 10: counted.
        Bill("000122", "2024-01-05", {{.item = "SF", .amount = 50.00, .text = "水费"}}, open());
        Bill("000123", "2024-01-10",
             {{.item = "WYF",
               .amount = 106.00,
               .tax = 6.00,
               .text = "物业费",
               .summary = "202401,202402,202403,"}},
             open({.payer = "张三"}));
        Bill("000124", "2024-01-20", {{.item = "ZZ", .amount = 30.00, .tax = 0.0, .text = "未设项目"}},
             open());
        Bill("000125", "2024-03-31 18:00:00",
             {{.item = "WYF", .amount = 212.00, .tax = 12.00, .text = "物业费", .summary = "202403"}},
             {.paid = "2024-04-02"});
        Bill("000126", "2024-02-10", {{.item = "TCF", .amount = 0.0, .tax = 0.0, .text = "停车费"}}, open());
        // Office 10: not counted.
        Bill("000201", "2024-02-01", {{.item = "WYF", .amount = 1000.00, .tax = 60.00}},
             {.paid = "2024-03-15"});
        Bill("000202", "2024-02-05", {{.item = "WYF", .amount = 2000.00, .tax = 120.00}}); // not 预开
        Bill("000203", "2024-02-06", {{.item = "WYF", .amount = 3000.00}}, open({.returned = "2024-02-07"}));
        Bill("000204", "2024-02-06", {{.item = "WYF", .amount = 4000.00}}, open({.voided = "2024-02-07"}));
        Bill("000205", "2024-02-06", {{.item = "WYF", .amount = 5000.00}}, open({.exchanged = "2024-02-07"}));
        Bill("000206", "2023-12-31", {{.item = "WYF", .amount = 6000.00}}, open());
        Bill("000207", "2024-04-01", {{.item = "WYF", .amount = 7000.00}}, open());
        // Office 9: two items that cancel out.
        Bill("000301", "2024-03-01", {{.item = "SF", .amount = 25.50, .tax = 1.50, .text = "水费"}},
             open({.dept = "D2"}));
        Bill("000302", "2024-03-02", {{.item = "WYF", .amount = -25.50, .tax = -1.50, .text = "物业费"}},
             open({.dept = "D2"}));
        // The ended office's department is shared with office 2; nothing of D3 counts.
    }

    frm预开票汇总表& Open() {
        session.DbConnection = std::make_unique<Connection>();
        session.DbConnection->ConnectionString = db.ConnectionText();
        session.DbConnection->Open();
        session.DbConnection->OnStatement = [this](const std::string& sql) { statements.push_back(sql); };
        window = std::make_unique<frm预开票汇总表>(session, dialogs);
        window->Load();
        return *window;
    }

    // Ticks the offices by code and clicks 统计 over the range.
    void Run(std::initializer_list<const char*> codes, DateTime first, DateTime last) {
        for (const char* code : codes)
            for (int i = 0; i < window->List2.ListCount(); ++i)
                if (window->List2.List(i).rfind(std::string(code) + " ", 0) == 0)
                    window->List2.SetSelected(i, true);
        window->DTPicker3.SetValue(first);
        window->DTPicker4.SetValue(last);
        window->Command1_0.Click();
    }
    void RunQuarter() { Run({"2", "9", "10"}, DateTime{2024, 1, 1}, DateTime{2024, 3, 31}); }

    // Messages and save dialogs from here on only.
    void Forget() {
        messagesSeen_ = dialogs.Messages().size();
        savesSeen_ = dialogs.SaveDialogs().size();
    }
    Lines Messages() const {
        Lines texts;
        for (std::size_t i = messagesSeen_; i < dialogs.Messages().size(); ++i)
            texts.push_back(dialogs.Messages()[i].Text);
        return texts;
    }
    std::vector<CommonDialogState> Saves() const {
        return {dialogs.SaveDialogs().begin() + static_cast<long>(savesSeen_), dialogs.SaveDialogs().end()};
    }

private:
    std::size_t messagesSeen_ = 0;
    std::size_t savesSeen_ = 0;
};

} // namespace quillon
