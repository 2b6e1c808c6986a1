// quillon-cli start [--config DIR]: the program's start from the settings store, headless:
// the same messages and the same end on failure, and a line saying the main window would open.
#include <cstdio>

#include "cli/cli_commands.h"
#include "cli/cli_options.h"
#include "cli/console_dialogs.h"
#include "shell/startup.h"

namespace quillon {

int RunStartCommand(const std::vector<std::string>& args) {
    CliOptions options(args, {"config"});
    auto root = options.Get("config");
    IniSettingsStore store(root ? std::filesystem::path(*root) : UserConfigRoot());
    AppSession session;
    ConsoleDialogs dialogs;
    bool started = Main(session, dialogs, store, [&] {
        std::printf("已连接 (%s)，主窗口 MDIForm1 打开。\n", store.FileFor(kAppName).c_str());
    });
    return started ? 0 : 1;
}

} // namespace quillon
