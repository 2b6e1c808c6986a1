// quillon-cli demo-db FILE [--invoices N] [--seed S]: writes the demo billing database.
#include <chrono>
#include <cstdio>

#include "cli/cli_commands.h"
#include "cli/cli_options.h"
#include "model/demo_database.h"

namespace quillon {

int RunDemoDbCommand(const std::vector<std::string>& args) {
    CliOptions options(args, {"invoices", "seed"});
    if (options.Positional().size() != 1) throw UsageError("demo-db needs exactly one FILE");
    DemoOptions demo;
    demo.invoices = static_cast<int>(options.Number("invoices", demo.invoices, 100, 10'000'000));
    demo.seed = static_cast<unsigned>(options.Number("seed", demo.seed, 0, 4'294'967'295LL));
    auto started = std::chrono::steady_clock::now();
    WriteDemoDatabase(options.Positional()[0], demo);
    double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    std::fprintf(stderr, "demo database %s: %d invoices, seed %u, %.1f s\n", options.Positional()[0].c_str(),
                 demo.invoices, demo.seed, seconds);
    return 0;
}

} // namespace quillon
