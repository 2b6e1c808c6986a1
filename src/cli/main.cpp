// quillon-cli: the headless face of the program. It drives the same window classes as the
// GUI, for scripted runs, checks and benchmarks.
#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "base/vb_error.h"
#include "cli/cli_commands.h"
#include "cli/cli_options.h"

namespace {

constexpr const char* kUsage =
    "usage:\n"
    "  quillon-cli demo-db FILE [--invoices N] [--seed S]   write the demo billing database\n"
    "  quillon-cli catalog --db FILE                        print the catalogues the windows load\n"
    "  quillon-cli start [--config DIR]                     start as the program does, from the settings\n"
    "                                                       store\n"
    "  quillon-cli run recon --db FILE --form 票据核对表|票据核对表New --dept CODE [--office CODE]\n"
    "                    --year YYYY --from MM --to MM [--tsv FILE] [--xlsx FILE] [--pdf FILE]\n"
    "                    [--sql-log FILE]\n"
    "  quillon-cli run deptrate --db FILE (--depts CODE[,CODE...] | --all) --start YYYY-MM-DD\n"
    "                    --end YYYY-MM-DD [--tsv FILE] [--xlsx FILE] [--pdf FILE] [--sql-log FILE]\n"
    "  quillon-cli run preinvoice|invoice --db FILE --dept CODE [--office CODE] --from YYYY-MM-DD\n"
    "                    --to YYYY-MM-DD [--split ITEMCODE=DEV:PROP ...] [--tsv FILE] [--xlsx FILE]\n"
    "                    [--pdf FILE] [--sql-log FILE]\n"
    "  quillon-cli run parking --db FILE --dept CODE [--office CODE] --from YYYY-MM-DD\n"
    "                    --to YYYY-MM-DD [--split ITEMCODE=DEV:PROP ...] [--tsv FILE] [--xlsx FILE]\n"
    "                    [--pdf FILE] [--sql-log FILE]\n"
    "  quillon-cli run summary --db FILE (--offices CODE[,CODE...] | --all) --from YYYY-MM-DD\n"
    "                    --to YYYY-MM-DD [--detail ROW] [--tsv FILE] [--xlsx FILE] [--pdf FILE]\n"
    "                    [--sql-log FILE]\n"
    "                                                       run a report window, print its grid as TSV,\n"
    "                                                       save its workbook, write its printed pages\n"
    "                                                       as PDF\n";

} // namespace

int main(int argc, char** argv) {
    using namespace quillon;
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty() || args[0] == "--help" || args[0] == "-h") {
        std::fputs(kUsage, args.empty() ? stderr : stdout);
        return args.empty() ? 2 : 0;
    }
    const std::map<std::string, int (*)(const std::vector<std::string>&)> commands = {
        {"demo-db", RunDemoDbCommand},
        {"catalog", RunCatalogCommand},
        {"start", RunStartCommand},
        {"run", RunRunCommand},
    };
    auto command = commands.find(args[0]);
    if (command == commands.end()) {
        std::fprintf(stderr, "quillon-cli: unknown command '%s'\n%s", args[0].c_str(), kUsage);
        return 2;
    }
    try {
        return command->second(std::vector<std::string>(args.begin() + 1, args.end()));
    } catch (const UsageError& e) {
        std::fprintf(stderr, "quillon-cli %s: %s\n%s", args[0].c_str(), e.what(), kUsage);
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
