// quillon-cli run REPORT …: drives a report window as a user would and prints its grid.
#include <cstdio>
#include <iostream>
#include <map>

#include "base/date_time.h"
#include "cli/cli_commands.h"
#include "cli/grid_tsv.h"
#include "cli/run_reports.h"
#include "controls/command_button.h"
#include "controls/list_box.h"
#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "model/department_catalog.h"

namespace quillon {

namespace {

using ReportDriver = int (*)(const std::vector<std::string>&);

const std::map<std::string, ReportDriver>& Reports() {
    static const std::map<std::string, ReportDriver> reports = {
        {"recon", RunReconReport},     {"deptrate", RunDeptRateReport}, {"preinvoice", RunPreInvoiceReport},
        {"parking", RunParkingReport}, {"invoice", RunInvoiceReport},   {"summary", RunSummaryReport},
    };
    return reports;
}

} // namespace

ReportSession::ReportSession(const CliOptions& options) {
    session_.DbConnection = std::make_unique<Connection>();
    Connection& conn = *session_.DbConnection;
    session_.ConnectionText = "Provider=SQLite;Data Source='" + options.Require("db") + "'";
    conn.ConnectionString = session_.ConnectionText;
    if (auto path = options.Get("sql-log")) {
        sqlLog_ = std::make_shared<std::ofstream>(*path, std::ios::out | std::ios::trunc);
        if (!*sqlLog_) throw std::runtime_error("cannot write " + *path);
        auto log = sqlLog_;
        conn.OnStatement = [log](const std::string& sql) { *log << sql << '\n' << std::flush; };
    }
    conn.Open();
}

DateTime RequireDate(const CliOptions& options, const std::string& name) {
    const std::string text = options.Require(name);
    auto date = DateTime::ParseIso(text);
    if (!date || date->HasTime() || text.size() != 10) throw UsageError("--" + name + " must be YYYY-MM-DD");
    return *date;
}

int FindDepartmentEntry(const ListBox& list, const std::string& dept,
                        const std::optional<std::string>& office) {
    for (int i = 0; i < list.ListCount(); ++i) {
        const std::string line = list.List(i);
        if (DepartmentCodeOf(line) == dept && (!office || OfficeCodeOf(line) == *office)) return i;
    }
    throw std::runtime_error("no department entry for " + (office ? dept + " 【" + *office + "】" : dept));
}

void WriteReportOutput(const CliOptions& options, const std::function<void(std::ostream&)>& write) {
    if (auto path = options.Get("tsv")) {
        std::ofstream out(*path, std::ios::out | std::ios::trunc);
        if (!out) throw std::runtime_error("cannot write " + *path);
        write(out);
    } else {
        write(std::cout);
        std::cout.flush();
    }
}

void WriteReportGrid(const FlexGrid& grid, const CliOptions& options) {
    WriteReportOutput(options, [&grid](std::ostream& out) { WriteGridTsv(grid, out); });
}

int FinishReportRun(const CliOptions& options, ScriptedDialogs& dialogs, CommandButton& exportButton,
                    const std::string& exportedMessage) {
    if (auto path = options.Get("xlsx")) {
        dialogs.QueueSaveFileName(*path);
        exportButton.Click();
    }
    for (const auto& m : dialogs.Messages())
        if (m.Text != exportedMessage) return 1;
    return 0;
}

int RunRunCommand(const std::vector<std::string>& args) {
    if (args.empty()) throw UsageError("run needs a report name");
    auto report = Reports().find(args[0]);
    if (report == Reports().end()) {
        std::string names;
        for (const auto& [name, driver] : Reports()) names += (names.empty() ? "" : ", ") + name;
        throw UsageError("unknown report '" + args[0] + "' (reports: " + names + ")");
    }
    try {
        return report->second(std::vector<std::string>(args.begin() + 1, args.end()));
    } catch (const RuntimeErrorRaised& e) {
        // Where the program itself would end with the platform's error report.
        std::fprintf(stderr, "[运行时错误] %s\n", e.what());
        return 1;
    }
}

} // namespace quillon
