// backend.h — one database engine behind Connection: SQLite for the demo and the tests,
// ODBC (FreeTDS) for SQL Server. Statements arrive already checked to be one SELECT.
#pragma once

#include <memory>
#include <string>

#include "db/connection_string.h"
#include "db/cursor.h"

namespace quillon {

struct OpenOptions {
    int connectionTimeout = 15; // seconds; 0 = wait without limit
    std::string odbcDriver = "FreeTDS";
};

class Backend {
public:
    virtual ~Backend() = default;
    virtual void Open(const ConnectionString& params, const OpenOptions& options) = 0;
    // Runs one statement; commandTimeout in seconds, 0 = no limit.
    virtual std::shared_ptr<Cursor> Execute(const std::string& sql, int commandTimeout) = 0;
};

std::unique_ptr<Backend> MakeSqliteBackend();
std::unique_ptr<Backend> MakeOdbcBackend();

} // namespace quillon
