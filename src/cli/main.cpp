// quillon-cli: the headless face of the program. It drives the same window classes as the
// GUI, for scripted runs, checks and benchmarks.
#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "base/huge_page_heap.h"
#include "base/vb_error.h"
#include "cli/cli_commands.h"
#include "cli/cli_options.h"
#include "cli/report_list.h"
#include "program_version.h"

int main(int argc, char** argv) {
    using namespace quillon;
    StartWithHugePageHeap(argv);
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty() || args[0] == "--help" || args[0] == "-h") {
        std::fputs(ProgramUsage().c_str(), args.empty() ? stderr : stdout);
        return args.empty() ? 2 : 0;
    }
    if (args[0] == "--version") {
        std::printf("quillon-cli %s\n", QUILLON_PROJECT_VERSION);
        return 0;
    }
    const std::map<std::string, int (*)(const std::vector<std::string>&)> commands = {
        {"demo-db", RunDemoDbCommand},
        {"catalog", RunCatalogCommand},
        {"start", RunStartCommand},
        {"run", RunRunCommand},
    };
    auto command = commands.find(args[0]);
    if (command != commands.end() && args[0] != "run")
        for (const std::string& arg : args)
            if (arg == "--help" || arg == "-h") {
                std::fputs(ProgramUsage().c_str(), stdout);
                return 0;
            }
    if (command == commands.end()) {
        std::fprintf(stderr, "quillon-cli: unknown %s '%s'\nTry 'quillon-cli --help'.\n",
                     args[0].rfind('-', 0) == 0 ? "option" : "command", args[0].c_str());
        return 2;
    }
    try {
        return command->second(std::vector<std::string>(args.begin() + 1, args.end()));
    } catch (const UsageError& e) {
        std::fprintf(stderr, "quillon-cli %s: %s\nTry 'quillon-cli --help'.\n", args[0].c_str(), e.what());
        return 2;
    } catch (const VbError& e) {
        std::fprintf(stderr, "quillon-cli %s: 错误号: %ld错误描述: %s\n", args[0].c_str(), e.Number,
                     e.Description.c_str());
        return 1;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "quillon-cli %s: %s\n", args[0].c_str(), e.what());
        return 1;
    }
}
