// run_reports.h — quillon-cli run REPORT: the drivers of the reports, each setting the criteria
// as a user would and clicking, and the pieces they share (session, output, statement log).
#pragma once

#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/cli_options.h"
#include "shell/app_session.h"

namespace quillon {

class CommandButton;
class FlexGrid;
class ListBox;
class ScriptedDialogs;
struct DateTime;

// One driver per report name; gets the words after the name, gives the exit status.
int RunReconReport(const std::vector<std::string>& args);
int RunDeptRateReport(const std::vector<std::string>& args);
int RunPreInvoiceReport(const std::vector<std::string>& args);
int RunParkingReport(const std::vector<std::string>& args);
int RunInvoiceReport(const std::vector<std::string>& args);
int RunSummaryReport(const std::vector<std::string>& args);

// A report's options: its criteria and flags, and the options every report takes (--db,
// --config, --tsv, --xlsx, --pdf, --sql-log). Throws UsageError for anything else, for a word
// that is no option, and for --db with --config.
CliOptions ReportOptions(const std::vector<std::string>& args, std::set<std::string> criteria,
                         const std::set<std::string>& flags = {});

// The session a report runs in: with --db FILE that file through the embedded engine, else the
// connection the settings store names (--config DIR, else the user's), opened as the program's
// start opens it, with its messages on stderr; std::runtime_error when it fails. Every statement
// sent is written to --sql-log when it is given (one statement a line).
class ReportSession {
public:
    explicit ReportSession(const CliOptions& options);
    ~ReportSession();
    AppSession& Session() { return session_; }

private:
    AppSession session_;
    std::shared_ptr<std::ofstream> sqlLog_;
};

// A date option given as YYYY-MM-DD, else UsageError.
DateTime RequireDate(const CliOptions& options, const std::string& name);

// The index of the first department entry of the code (and office, when given); the error names
// what was asked for when there is none (exit status 1).
int FindDepartmentEntry(const ListBox& list, const std::string& dept,
                        const std::optional<std::string>& office);

// Hands the output of --tsv FILE, or stdout, to `write`.
void WriteReportOutput(const CliOptions& options, const std::function<void(std::ostream&)>& write);

// The grid as TSV to --tsv FILE, or to stdout.
void WriteReportGrid(const FlexGrid& grid, const CliOptions& options);

// The end of every run: with --xlsx FILE the save dialog is answered with FILE and the window's
// export button clicked. Exit status 0 when no message was shown but the export's success
// message, 1 otherwise.
int FinishReportRun(const CliOptions& options, ScriptedDialogs& dialogs, CommandButton& exportButton,
                    const std::string& exportedMessage);

} // namespace quillon
