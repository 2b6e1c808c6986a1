// demo_start.h — shell layer: the demo run's database: made once in the user's data folder and
// then reused, and the settings that point the ordinary start-up at it.
#pragma once

#include <filesystem>

#include "base/date_time.h"
#include "model/demo_database.h"
#include "shell/settings_overlay.h"

namespace quillon {

// "<dataRoot>/Quillon/demo.db".
std::filesystem::path DemoDatabasePath(const std::filesystem::path& dataRoot);

// Writes the demo database at `path` unless one of this data version ending in the same month is
// there already; true when it wrote one. The file appears whole or not at all. Throws
// std::runtime_error when it cannot be written.
bool EnsureDemoDatabase(const std::filesystem::path& path, const DemoOptions& options = {});

// The demo the program opens on: its two years end with the month of `today`, so that the
// windows' criteria, which start on today's year and month, show a result.
DemoOptions DemoEndingIn(const DateTime& today);

// The start-up reads Provider=SQLite and Svr=the file from here; all else from the real store.
void PointSettingsAtDemo(OverlaySettingsStore& settings, const std::filesystem::path& database);

} // namespace quillon
