// quillon-cli run preinvoice …: the detail reports, driven alike: the department entry, the
// range, Command3, the split percentages typed as a user types them, Command6, then every page.
#include <fstream>
#include <iostream>

#include "base/vb_text.h"
#include "cli/console_dialogs.h"
#include "cli/grid_tsv.h"
#include "cli/run_reports.h"
#include "preinvoice/preinvoice_window.h"

namespace quillon {

namespace {

struct SplitOption {
    std::string itemCode;
    std::string developer;
    std::string property;
};

// ITEMCODE=DEV:PROP, the two texts typed as they stand (a wrong one is for the window to refuse).
SplitOption ParseSplit(const std::string& text) {
    const std::size_t eq = text.find('=');
    const std::size_t colon = text.find(':', eq == std::string::npos ? 0 : eq);
    if (eq == std::string::npos || eq == 0 || colon == std::string::npos)
        throw UsageError("--split must be ITEMCODE=DEV:PROP, not '" + text + "'");
    return {text.substr(0, eq), text.substr(eq + 1, colon - eq - 1), text.substr(colon + 1)};
}

// Clicks the developer's cell of the item's row, types, Enter, types, Enter.
void TypeSplit(DetailReportForm& w, const SplitOption& split) {
    const int row = w.SplitTable.RowOf("'" + split.itemCode + "'");
    if (row < 0) throw std::runtime_error("no parking item " + split.itemCode + " in the split table");
    w.MSFlexGrid2.ClickCell(row, kSplitDeveloperCol);
    for (const std::string& typed : {split.developer, split.property}) {
        w.txtGRD.SetText(typed);
        w.txtGRD.PressKey(13);
    }
}

// The header rows once, then the rows of every page in order, as if a page had no limit.
void WritePages(DetailReportForm& w, std::ostream& out) {
    WriteGridTsv(w.MSFlexGrid1, out, 0, 1);
    if (w.MSFlexGrid1.Rows() == 2) return; // the run found nothing
    for (int page = 1; page <= w.Pager.PageCount; ++page) {
        w.Pager.RenderPage(page);
        WriteGridTsv(w.MSFlexGrid1, out, 2);
    }
}

template <typename Window> int RunDetailReport(const std::vector<std::string>& args) {
    CliOptions options(args, {"db", "dept", "office", "from", "to", "split", "tsv", "xlsx", "sql-log"});
    if (!options.Positional().empty()) throw UsageError("unexpected '" + options.Positional().front() + "'");
    const std::string dept = options.Require("dept");
    const auto office = options.Get("office");
    const DateTime from = RequireDate(options, "from");
    const DateTime to = RequireDate(options, "to");
    std::vector<SplitOption> splits;
    for (const std::string& text : options.All("split")) splits.push_back(ParseSplit(text));

    ReportSession report(options);
    ConsoleDialogs dialogs;
    Window w(report.Session(), dialogs);
    w.Load();
    w.List1.SetListIndex(FindDepartmentEntry(w.List1, dept, office));
    w.DTPicker1_0.SetValue(from);
    w.DTPicker1_1.SetValue(to);
    w.Command3.Click();
    for (const SplitOption& split : splits) TypeSplit(w, split);
    w.Command6.Click();

    if (auto path = options.Get("tsv")) {
        std::ofstream out(*path, std::ios::out | std::ios::trunc);
        if (!out) throw std::runtime_error("cannot write " + *path);
        WritePages(w, out);
    } else {
        WritePages(w, std::cout);
        std::cout.flush();
    }
    return FinishReportRun(options, dialogs, w.Command2, w.Texts().exportedMessage);
}

} // namespace

int RunPreInvoiceReport(const std::vector<std::string>& args) {
    return RunDetailReport<frm票据预开明细表New>(args);
}

} // namespace quillon
