// quillon-cli run REPORT …: drives a report window as a user would and prints its grid.
#include <cstdio>
#include <iostream>

#include "base/date_time.h"
#include "cli/cli_commands.h"
#include "cli/console_dialogs.h"
#include "cli/grid_tsv.h"
#include "cli/report_list.h"
#include "cli/run_reports.h"
#include "cli/run_timings.h"
#include "controls/command_button.h"
#include "controls/list_box.h"
#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "model/department_catalog.h"
#include "shell/startup.h"

namespace quillon {

CliOptions ReportOptions(const std::vector<std::string>& args, std::set<std::string> criteria,
                         const std::set<std::string>& flags) {
    criteria.insert({"db", "config", "tsv", "xlsx", "pdf", "sql-log"});
    CliOptions options(args, criteria, flags);
    if (!options.Positional().empty()) throw UsageError("unexpected '" + options.Positional().front() + "'");
    if (options.Get("db") && options.Get("config")) throw UsageError("give --db or --config, not both");
    return options;
}

ReportSession::ReportSession(const CliOptions& options) {
    if (auto db = options.Get("db")) {
        session_.DbConnection = std::make_unique<Connection>();
        session_.ConnectionText = "Provider=SQLite;Data Source='" + *db + "'";
        session_.DbConnection->ConnectionString = session_.ConnectionText;
        session_.DbConnection->Open();
    } else {
        // As the program starts: the settings store's connection, its messages on failure.
        const auto config = options.Get("config");
        IniSettingsStore store(config ? std::filesystem::path(*config) : UserConfigRoot());
        ConsoleDialogs dialogs;
        if (!Main(session_, dialogs, store, [] {}))
            throw std::runtime_error("no connection with the settings of " +
                                     store.FileFor(kAppName).string());
    }
    if (auto path = options.Get("sql-log")) {
        sqlLog_ = std::make_shared<std::ofstream>(*path, std::ios::out | std::ios::trunc);
        if (!*sqlLog_) throw std::runtime_error("cannot write " + *path);
        auto log = sqlLog_;
        session_.DbConnection->OnStatement = [log](const std::string& sql) {
            *log << sql << '\n' << std::flush;
        };
    }
    RunTimings::Current().SessionOpened(*session_.DbConnection);
}

ReportSession::~ReportSession() {
    RunTimings::Current().SessionClosing();
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
        RunTimings::Current().ExportBegins();
        exportButton.Click();
        RunTimings::Current().ExportEnds();
    }
    for (const auto& m : dialogs.Messages())
        if (m.Text != exportedMessage) return 1;
    return 0;
}

int RunRunCommand(const std::vector<std::string>& args) {
    if (!args.empty() && (args[0] == "--help" || args[0] == "-h")) {
        std::fputs(ProgramUsage().c_str(), stdout);
        return 0;
    }
    const ReportEntry* report = args.empty() ? nullptr : FindReport(args[0]);
    if (!report) {
        std::string names;
        for (const ReportEntry& entry : ReportEntries())
            names += (names.empty() ? "" : ", ") + std::string(entry.name);
        throw UsageError((args.empty() ? "name a report" : "unknown report '" + args[0] + "'") +
                         " (reports: " + names + ")");
    }
    // --timings is the same for every report, so it is taken here rather than by each driver.
    std::vector<std::string> rest;
    RunTimings& timings = RunTimings::Current();
    for (auto it = args.begin() + 1; it != args.end(); ++it) {
        if (*it == "--help" || *it == "-h") {
            std::fputs(ReportUsage(*report).c_str(), stdout);
            return 0;
        }
        if (*it == "--timings")
            timings.Start();
        else
            rest.push_back(*it);
    }
    try {
        const int status = report->driver(rest);
        if (timings.Wanted()) std::fprintf(stderr, "%s\n", timings.Line().c_str());
        return status;
    } catch (const UsageError& e) {
        std::fprintf(stderr, "quillon-cli run %s: %s\nTry 'quillon-cli run %s --help'.\n", report->name,
                     e.what(), report->name);
        return 2;
    } catch (const RuntimeErrorRaised& e) {
        // Where the program itself would end with the platform's error report.
        std::fprintf(stderr, "[运行时错误] %s\n", e.what());
        return 1;
    }
}

} // namespace quillon
