// cli_commands.h — the commands of quillon-cli; each returns the process's exit status.
#pragma once

#include <string>
#include <vector>

namespace quillon {

int RunDemoDbCommand(const std::vector<std::string>& args);
int RunCatalogCommand(const std::vector<std::string>& args);
int RunStartCommand(const std::vector<std::string>& args);
// run REPORT …: the report drivers of run_reports.h.
int RunRunCommand(const std::vector<std::string>& args);

} // namespace quillon
