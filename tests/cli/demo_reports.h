// demo_reports.h — tests driving every report window on a demo database as a user would:
// pick the criteria, click the run button (and, for the detail windows, the second stage).
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "deptrate/deptrate_window.h"
#include "invoice/invoice_window.h"
#include "model/demo_database.h"
#include "parking/parking_window.h"
#include "preinvoice/preinvoice_window.h"
#include "reconciliation/recon_window.h"
#include "summary/summary_window.h"
#include "support/temp_dir.h"

namespace quillon {

// A demo database written to a scratch folder, changed by `prepare` (given its path) before the
// session opens it.
struct DemoSession {
    TempDir dir;
    AppSession session;
    ScriptedDialogs dialogs;

    explicit DemoSession(const DemoOptions& options = {.invoices = 1500},
                         const std::function<void(const std::string&)>& prepare = {}) {
        const std::string path = dir.File("demo.db");
        WriteDemoDatabase(path, options);
        if (prepare) prepare(path);
        session.DbConnection = std::make_unique<Connection>();
        session.ConnectionText = "Provider=SQLite;Data Source='" + path + "'";
        session.DbConnection->ConnectionString = session.ConnectionText;
        session.DbConnection->Open();
    }
};

inline DateTime Day(const char* iso) {
    return *DateTime::ParseIso(iso);
}

inline void PickEntry(ListBox& list, const std::string& prefix) {
    for (int i = 0; i < list.ListCount(); ++i)
        if (list.List(i).rfind(prefix, 0) == 0) return list.SetListIndex(i);
    FAIL() << "no entry " << prefix;
}

template <typename Window>
std::unique_ptr<Window> RunRecon(DemoSession& s, const std::string& entry, const char* year, const char* from,
                                 const char* to) {
    auto w = std::make_unique<Window>(s.session, s.dialogs);
    w->Load();
    w->Combo1.SetText(year);
    w->Combo2.SetText(from);
    w->Combo3.SetText(to);
    PickEntry(w->List1, entry);
    w->Command3.Click();
    return w;
}

inline std::unique_ptr<frm部门开票分税率统计表> RunDeptRate(DemoSession& s, const char* first,
                                                            const char* last) {
    auto w = std::make_unique<frm部门开票分税率统计表>(s.session, s.dialogs);
    w->Load();
    w->Check1.SetValue(1);
    w->DTPicker1.SetValue(Day(first));
    w->DTPicker2.SetValue(Day(last));
    w->Command3.Click();
    return w;
}

inline std::unique_ptr<frm预开票汇总表> RunSummary(DemoSession& s, const char* first, const char* last) {
    auto w = std::make_unique<frm预开票汇总表>(s.session, s.dialogs);
    w->Load();
    w->Check3.SetValue(1);
    w->DTPicker3.SetValue(Day(first));
    w->DTPicker4.SetValue(Day(last));
    w->Command1_0.Click();
    return w;
}

template <typename Window>
std::unique_ptr<Window> RunDetail(DemoSession& s, const std::string& entry, const char* first = "2024-01-01",
                                  const char* last = "2024-12-31") {
    auto w = std::make_unique<Window>(s.session, s.dialogs);
    w->Load();
    PickEntry(w->List1, entry);
    w->DTPicker1_0.SetValue(Day(first));
    w->DTPicker1_1.SetValue(Day(last));
    w->Command3.Click();
    w->Command6.Click();
    return w;
}

} // namespace quillon
