// quillon-cli demo-db FILE [--invoices N] [--seed S] [--end-month YYYY-MM]: writes the demo
// billing database.
#include <chrono>
#include <cstdio>
#include <string>

#include "cli/cli_commands.h"
#include "cli/cli_options.h"
#include "model/demo_database.h"

namespace quillon {
namespace {

// "YYYY-MM" into the options' last year and month; UsageError for anything else.
void ReadEndMonth(const std::string& text, DemoOptions& demo) {
    const bool shaped = text.size() == 7 && text[4] == '-' && text.find_first_not_of("0123456789", 0) == 4 &&
                        text.find_first_not_of("0123456789", 5) == std::string::npos;
    const int month = shaped ? std::stoi(text.substr(5)) : 0;
    const int year = shaped ? std::stoi(text.substr(0, 4)) : 0;
    if (month < 1 || month > 12 || year < 1902) throw UsageError("--end-month wants YYYY-MM, as 2026-11");
    demo.lastYear = year;
    demo.lastMonth = month;
}

} // namespace

int RunDemoDbCommand(const std::vector<std::string>& args) {
    CliOptions options(args, {"invoices", "seed", "end-month"});
    if (options.Positional().size() != 1) throw UsageError("demo-db needs exactly one FILE");
    DemoOptions demo;
    demo.invoices = static_cast<int>(options.Number("invoices", demo.invoices, 100, 10'000'000));
    demo.seed = static_cast<unsigned>(options.Number("seed", demo.seed, 0, 4'294'967'295LL));
    if (const auto end = options.Get("end-month")) ReadEndMonth(*end, demo);
    auto started = std::chrono::steady_clock::now();
    WriteDemoDatabase(options.Positional()[0], demo);
    double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    std::fprintf(stderr, "demo database %s: %d invoices, seed %u, books ending %04d-%02d, %.1f s\n",
                 options.Positional()[0].c_str(), demo.invoices, demo.seed, demo.lastYear, demo.lastMonth,
                 seconds);
    return 0;
}

} // namespace quillon
