// report_list.h — the reports `quillon-cli run` knows: for each its name, its driver, and what
// --help says about it (the window it drives, its criteria, an example that runs on the demo
// database). One table, so no report runs without help and no help names a missing report.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

using ReportDriver = int (*)(const std::vector<std::string>& args);

struct ReportCriterion {
    const char* option; // as written on the command line, with its value's shape
    const char* meaning;
};

struct ReportEntry {
    const char* name;
    ReportDriver driver;
    const char* window;   // the menu entry and the window class it drives
    const char* synopsis; // the criteria in one line
    std::vector<ReportCriterion> criteria;
    const char* example; // the words after "quillon-cli run "
};

// In the order of the program's menu.
const std::vector<ReportEntry>& ReportEntries();
// nullptr when no report has that name.
const ReportEntry* FindReport(std::string_view name);

// quillon-cli --help: the commands, then every report with its criteria and one example.
std::string ProgramUsage();
// quillon-cli run NAME --help: the report's window, criteria, the options every report takes,
// the example and the exit statuses.
std::string ReportUsage(const ReportEntry& report);

} // namespace quillon
