// run_detail.h — quillon-cli run preinvoice|parking|invoice …: the detail reports, driven alike:
// the department entry, the range, Command3, the split percentages typed as a user types them,
// Command6, then every page of the result.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/console_dialogs.h"
#include "cli/pdf_option.h"
#include "cli/run_reports.h"
#include "workbench/detail_report_form.h"

namespace quillon {

struct SplitOption {
    std::string itemCode;
    std::string developer;
    std::string property;
};

// ITEMCODE=DEV:PROP, the two texts typed as they stand (a wrong one is for the window to refuse).
SplitOption ParseSplit(const std::string& text);

// Clicks the developer's cell of the item's row, types, Enter, types, Enter.
void TypeSplit(DetailReportForm& w, const SplitOption& split);

// The header rows once, then the rows of every page in order, as if a page had no limit.
void WritePages(DetailReportForm& w, std::ostream& out);

// With --pdf FILE: the whole result, every page's rows in the grid at once, printed under the
// window's title and the date range; the grid then shows its own page again.
void WriteDetailPdf(DetailReportForm& w, const CliOptions& options);

// The driver of every detail window; Window is constructed from the session and the dialogs.
template <typename Window> int RunDetailReport(const std::vector<std::string>& args) {
    const CliOptions options = ReportOptions(args, {"dept", "office", "from", "to", "split"});
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

    WriteReportOutput(options, [&w](std::ostream& out) { WritePages(w, out); });
    WriteDetailPdf(w, options);
    return FinishReportRun(options, dialogs, w.Command2, w.Texts().exportedMessage);
}

} // namespace quillon
