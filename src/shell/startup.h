// startup.h — the program's start: read the settings, open the one connection, and either
// show the main window or end the process after telling the user why.
#pragma once

#include <functional>
#include <string>

#include "shell/app_session.h"
#include "shell/settings_store.h"

namespace quillon {

class Dialogs;

inline constexpr const char* kAppName = "Quillon";

// The exact text the connection is opened with. {password} and {userId} stand bare,
// {databaseName} and {server} in single quotes; nothing is escaped.
std::string BuildConnectionText(const std::string& provider, const std::string& userId,
                                const std::string& password, const std::string& databaseName,
                                const std::string& server);

// Opens session.DbConnection with a 30-second connect timeout. On failure shows
// "错误信息：{description}" titled "信息文本" and returns false.
bool OpenDatabaseConnection(AppSession& session, Dialogs& dialogs, const SettingsStore& settings,
                            const std::string& userId, const std::string& password,
                            const std::string& databaseName, const std::string& server);

// Reads the settings into the session, opens the connection and calls showMainWindow.
// Returns false when the connection failed: "数据库连接失败!" has been shown and the caller
// must end the process without creating the main window.
bool Main(AppSession& session, Dialogs& dialogs, const SettingsStore& settings,
          const std::function<void()>& showMainWindow);

} // namespace quillon
