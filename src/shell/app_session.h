// app_session.h — the process-wide state start-up leaves behind: the one database connection,
// which lives until the process ends, and the few texts the windows read.
#pragma once

#include <memory>
#include <string>

#include "db/connection.h"

namespace quillon {

struct AppSession {
    std::unique_ptr<Connection> DbConnection;
    std::string ConnectionText;
    std::string CompanyDisplayName;
    std::string CompanyDisplayNameEng;
    std::string EditionText; // kept, decides nothing
    // Never assigned: the program has no login, so these stay empty for the process's life.
    std::string StatusPanelText1, StatusPanelText2, StatusPanelText3;
    std::string CurrentRoleName;
    std::string CurrentPostCode;
};

} // namespace quillon
