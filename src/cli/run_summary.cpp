// quillon-cli run summary …: the pre-invoice summary through frm预开票汇总表, and with --detail
// ROW the drill-down of one of its rows.
#include <set>

#include "base/vb_number.h"
#include "base/vb_text.h"
#include "cli/console_dialogs.h"
#include "cli/pdf_option.h"
#include "cli/run_reports.h"
#include "cli/run_timings.h"
#include "summary/summary_window.h"

namespace quillon {
namespace {

constexpr const char* kRunEnded = "统计结束！";

// The office code of a list entry: the text in front of its first blank.
std::string OfficeCodeOfEntry(const std::string& entry) {
    return entry.substr(0, entry.find(' '));
}

void TickOffices(frm预开票汇总表& w, const std::string& codes) {
    std::set<std::string> wanted;
    for (const auto& code : Split(codes, ","))
        if (!code.empty()) wanted.insert(code);
    std::set<std::string> found;
    for (int i = 0; i < w.List2.ListCount(); ++i) {
        const std::string code = OfficeCodeOfEntry(w.List2.List(i));
        if (!wanted.contains(code)) continue;
        w.List2.SetSelected(i, true);
        found.insert(code);
    }
    for (const auto& code : wanted)
        if (!found.contains(code)) throw UsageError("office " + code + " is not in the list");
}

} // namespace

int RunSummaryReport(const std::vector<std::string>& args) {
    const CliOptions options = ReportOptions(args, {"offices", "from", "to", "detail"}, {"all"});
    const bool all = options.Has("all");
    const auto offices = options.Get("offices");
    if (all == offices.has_value()) throw UsageError("give either --offices CODE[,CODE…] or --all");
    const DateTime first = RequireDate(options, "from");
    const DateTime last = RequireDate(options, "to");
    std::optional<int> detailRow;
    if (auto text = options.Get("detail")) {
        if (!IsNumeric(*text) || CDbl(*text) < 1 || CDbl(*text) != static_cast<int>(CDbl(*text)))
            throw UsageError("--detail must be a grid row number from 1");
        detailRow = static_cast<int>(CDbl(*text));
    }

    ReportSession report(options);
    ConsoleDialogs dialogs;
    frm预开票汇总表 w(report.Session(), dialogs);
    w.Load();
    w.Form_Activate();
    if (all)
        w.Check3.SetValue(1);
    else
        TickOffices(w, *offices);
    w.DTPicker3.SetValue(first);
    w.DTPicker4.SetValue(last);
    w.Command1_0.Click();

    CommandButton* exportButton = &w.Command1_1;
    std::string exported = "预开票汇总表导出成功!";
    if (detailRow) {
        if (*detailRow >= w.MSFlexGrid1.Rows())
            throw UsageError("--detail " + std::to_string(*detailRow) + ": the summary has rows 1 to " +
                             std::to_string(w.MSFlexGrid1.Rows() - 1));
        if (w.MSFlexGrid1.TextMatrix(*detailRow, 6) != "明细")
            throw UsageError("--detail " + std::to_string(*detailRow) + ": that row has no 明细 cell");
        w.MSFlexGrid1.ClickCell(*detailRow, 6);
        WriteReportGrid(w.MSFlexGrid2, options);
        exportButton = &w.Command4;
        exported = "预开票汇总明细表导出成功!";
    } else {
        WriteReportGrid(w.MSFlexGrid1, options);
    }
    WritePdfIfAsked(options, PrintJob{w.SummaryTitle(), w.SummaryDateLine(), &w.MSFlexGrid1});

    if (auto path = options.Get("xlsx")) {
        dialogs.QueueSaveFileName(*path);
        RunTimings::Current().ExportBegins();
        exportButton->Click();
        RunTimings::Current().ExportEnds();
    }
    // The run always ends in its own notice; any other message but the export's is a failure.
    for (const auto& m : dialogs.Messages())
        if (m.Text != kRunEnded && m.Text != exported) return 1;
    return 0;
}

} // namespace quillon
