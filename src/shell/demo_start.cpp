#include "shell/demo_start.h"

#include <stdexcept>
#include <system_error>

#include "shell/startup.h"

namespace quillon {

std::filesystem::path DemoDatabasePath(const std::filesystem::path& dataRoot) {
    return dataRoot / kAppName / "demo.db";
}

bool EnsureDemoDatabase(const std::filesystem::path& path, const DemoOptions& options) {
    std::error_code error;
    if (std::filesystem::exists(path, error) && ReadDemoDataVersion(path.string()) == kDemoDataVersion &&
        ReadDemoLastMonth(path.string()) == options.lastYear * 100 + options.lastMonth)
        return false;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error)
        throw std::runtime_error("cannot create " + path.parent_path().string() + ": " + error.message());
    // Written beside and renamed, so a run stopped half-way leaves no half database to reuse.
    std::filesystem::path partial = path;
    partial += ".part";
    WriteDemoDatabase(partial.string(), options);
    std::filesystem::rename(partial, path, error);
    if (error) {
        std::filesystem::remove(partial, error);
        throw std::runtime_error("cannot move the demo database to " + path.string());
    }
    return true;
}

DemoOptions DemoEndingIn(const DateTime& today) {
    DemoOptions options;
    options.lastYear = today.year;
    options.lastMonth = today.month;
    return options;
}

void PointSettingsAtDemo(OverlaySettingsStore& settings, const std::filesystem::path& database) {
    settings.Set("DBConfig", "Provider", "SQLite");
    settings.Set("DBConfig", "Svr", database.string());
}

} // namespace quillon
