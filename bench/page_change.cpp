// page_change DB [ROWS] — a page change of the invoice detail window with ROWS (100,000) rows in
// ResultRows: the window is run over the demo's two years for its busiest department, its
// result repeated up to ROWS, then 下一页 and 尾页 are clicked. Prints "page median min max" in ms.
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "bench_clock.h"
#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "invoice/invoice_window.h"
#include "shell/app_session.h"

int main(int argc, char** argv) {
    using namespace quillon;
    if (argc < 2) {
        std::fprintf(stderr, "usage: page_change DB [ROWS]\n");
        return 2;
    }
    const size_t wanted = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 100000;
    AppSession session;
    session.DbConnection = std::make_unique<Connection>();
    session.ConnectionText = std::string("Provider=SQLite;Data Source='") + argv[1] + "'";
    session.DbConnection->ConnectionString = session.ConnectionText;
    session.DbConnection->Open();
    ScriptedDialogs dialogs;
    frm票据开票明细表New w(session, dialogs);
    w.Load();
    w.List1.SetListIndex(0);
    w.DTPicker1_0.SetValue(*DateTime::ParseIso("2024-01-01"));
    w.DTPicker1_1.SetValue(*DateTime::ParseIso("2025-12-31"));
    w.Command3.Click();
    w.Command6.Click();
    if (!w.ResultRows || w.ResultRows->size() < 2) {
        std::fprintf(stderr, "page_change: the run found no rows\n");
        return 1;
    }
    auto& rows = *w.ResultRows;
    const size_t found = rows.size();
    while (rows.size() <= wanted) rows.push_back(rows[1 + rows.size() % (found - 1)]);
    rows.resize(wanted + 1); // slot 0 is never used
    w.Pager.PageSize = 40;
    w.Pager.SetPageCount(static_cast<int>(wanted));
    int turn = 0;
    const bench::Spread s = bench::TimeRepeated(41, [&] { w.Pager.Image2_Click(++turn % 2 ? 2 : 3); });
    bench::Report("page", s);
    return 0;
}
