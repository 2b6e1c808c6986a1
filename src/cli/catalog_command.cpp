// quillon-cli catalog --db FILE: the catalogues a report window loads, as it would load them.
#include <cstdio>

#include "cli/cli_commands.h"
#include "cli/cli_options.h"
#include "cli/console_dialogs.h"
#include "controls/list_box.h"
#include "db/connection.h"
#include "model/bill_type_catalog.h"
#include "model/department_catalog.h"
#include "model/payment_catalog.h"

namespace quillon {

int RunCatalogCommand(const std::vector<std::string>& args) {
    CliOptions options(args, {"db"});
    Connection conn;
    conn.ConnectionString = "Provider=SQLite;Data Source='" + options.Require("db") + "'";
    conn.Open();
    ConsoleDialogs dialogs;

    ListBox list("List1");
    LoadDepartmentList(conn, dialogs, list);
    std::printf("List1 (%d)\n", list.ListCount());
    for (int i = 0; i < list.ListCount(); ++i) std::printf("  %s\n", list.List(i).c_str());

    const struct {
        const char* window;
        BillTypeWindow kind;
    } windows[] = {{"frm票据核对表New", BillTypeWindow::ReconciliationNew},
                   {"frm票据核对表", BillTypeWindow::Reconciliation},
                   {"detail windows", BillTypeWindow::Detail}};
    for (const auto& w : windows) {
        auto lists = LoadBillTypeLists(conn, w.kind);
        std::printf("%s\n  all: %s\n", w.window, lists.AllTypes.c_str());
        if (w.kind != BillTypeWindow::Detail)
            std::printf("  special: %s\n  ordinary: %s\n  fourth: %s\n", lists.SpecialTypes.c_str(),
                        lists.OrdinaryTypes.c_str(), lists.FourthTypes.c_str());
    }
    std::printf("收款方式列表:");
    for (const auto& mode : LoadPaymentModes(conn)) std::printf(" %s", mode.c_str());
    std::printf("\n");
    return dialogs.Messages().empty() ? 0 : 1;
}

} // namespace quillon
