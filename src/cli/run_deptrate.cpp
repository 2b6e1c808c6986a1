// quillon-cli run deptrate …: the department tax-rate summary through frm部门开票分税率统计表.
#include <algorithm>
#include <set>

#include "base/vb_text.h"
#include "cli/console_dialogs.h"
#include "cli/pdf_option.h"
#include "cli/run_reports.h"
#include "deptrate/deptrate_window.h"

namespace quillon {
namespace {

constexpr const char* kExported = "汇总表导出成功！";

} // namespace

int RunDeptRateReport(const std::vector<std::string>& args) {
    const CliOptions options = ReportOptions(args, {"depts", "start", "end"}, {"all"});
    const bool all = options.Has("all");
    const auto depts = options.Get("depts");
    if (all == depts.has_value()) throw UsageError("give either --depts CODE[,CODE…] or --all");
    const DateTime start = RequireDate(options, "start");
    const DateTime end = RequireDate(options, "end");

    ReportSession report(options);
    ConsoleDialogs dialogs;
    frm部门开票分税率统计表 w(report.Session(), dialogs);
    try {
        w.Load();
    } catch (const ProgramEnded&) {
        return 1; // no tax rate is set: the program ends after its message
    }

    if (all) {
        w.Check1.SetValue(1);
    } else {
        // Each code ticked on its own node only, as a user's single ticks on leaves would be.
        std::set<std::string> wanted;
        for (const auto& code : Split(*depts, ","))
            if (!code.empty()) wanted.insert(code);
        std::set<std::string> found;
        for (TreeNode& node : w.TreeView1.Nodes()) {
            const std::string code = node.Key().substr(1); // keys are "$" + code
            if (wanted.contains(code)) {
                node.SetChecked(true);
                found.insert(code);
            }
        }
        for (const auto& code : wanted)
            if (!found.contains(code)) throw UsageError("department " + code + " is not in the tree");
    }
    w.DTPicker1.SetValue(start);
    w.DTPicker2.SetValue(end);
    w.Command3.Click();
    WriteReportGrid(w.MSFlexGrid1, options);
    w.PrintResult([&options](const PrintJob& job) { WritePdfIfAsked(options, job); });
    return FinishReportRun(options, dialogs, w.Command2, kExported);
}

} // namespace quillon
