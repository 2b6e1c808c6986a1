#include "app/program_help.h"

#include <cstdio>
#include <string_view>

#include "program_version.h"
#include "shell/main_window.h"

namespace quillon {

namespace {

constexpr const char* kUsage =
    "usage: quillon [--demo] [--open ENTRY]... [--do STEP]... [--menu ENTRY] [--size WIDTHxHEIGHT]\n"
    "               [--screenshot FILE]\n"
    "       quillon --help | --version\n"
    "\n"
    "Opens the main window on the database that the settings file names:\n"
    "$XDG_CONFIG_HOME/Quillon/Quillon.ini, else ~/.config/Quillon/Quillon.ini.\n"
    "\n"
    "  --demo              write a demo billing database once, to\n"
    "                      $XDG_DATA_HOME/Quillon/demo.db (else ~/.local/share/Quillon/demo.db),\n"
    "                      and start on it instead\n"
    "  --open ENTRY        open the window of a menu entry, e.g. --open 预开票汇总表 (repeatable)\n"
    "  --do STEP           act on the window in front as a user would (repeatable): NAME clicks a\n"
    "                      button, image or check box; NAME=TEXT picks a list entry, a date\n"
    "                      (YYYY-MM-DD) or types a text; NAME@ROW,COL clicks a grid cell;\n"
    "                      NAME#13 presses Enter in a text box\n"
    "  --menu ENTRY        leave a top menu open, e.g. --menu 统计报表\n"
    "  --size WxH          the main window's size in pixels (default 1100x720)\n"
    "  --screenshot FILE   after the steps, save the screen as PNG and end\n"
    "\n"
    "The same reports without a display, for scripts and scheduled runs: quillon-cli --help\n";

} // namespace

std::string ProgramUsage() {
    std::string entries;
    for (const MenuRoute& route : kMenuRoutes)
        entries += std::string(entries.empty() ? "" : ", ") + route.entry;
    return kUsage + ("\nMenu entries: " + entries + "\n");
}

std::optional<int> AnswerHelpOrVersion(int argc, const char* const* argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            std::fputs(ProgramUsage().c_str(), stdout);
            return 0;
        }
        if (arg == "--version") {
            std::printf("quillon %s\n", QUILLON_PROJECT_VERSION);
            return 0;
        }
    }
    return std::nullopt;
}

} // namespace quillon
