// connection.h — the one database session: an ADO-shaped Connection that picks its backend
// by Provider and refuses, before a driver sees it, any statement that is not one SELECT.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "db/backend.h"
#include "db/recordset.h"

namespace quillon {

class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::string ConnectionString;
    int ConnectionTimeout = 15;         // seconds at open
    int CommandTimeout = 30;            // seconds a statement may run; 0 = no limit
    std::string OdbcDriver = "FreeTDS"; // the ODBC driver that serves Provider=SQLOLEDB.1

    // Provider=SQLOLEDB.1 → ODBC, Provider=SQLite → the embedded engine. DbError on failure.
    void Open();
    bool IsOpen() const { return backend_ != nullptr; }

    // Runs one SELECT and gives its rows. A recordset still being read when the next one
    // opens is first drained into memory (a SQL Server session serves one result at a time).
    Recordset OpenRecordset(std::string_view sql);

    // Called with every statement just before it is sent (the CLI's --sql-log).
    std::function<void(const std::string&)> OnStatement;

    // The time spent inside the database engine: preparing each statement and stepping it to
    // its rows (the CLI's --timings sets it beside the whole run).
    struct EngineTime {
        int statements = 0;
        std::chrono::nanoseconds spent{0};
    };
    const EngineTime& Engine() const { return *engine_; }

private:
    std::unique_ptr<Backend> backend_;
    std::shared_ptr<EngineTime> engine_ = std::make_shared<EngineTime>();
    std::weak_ptr<Cursor> live_;
};

} // namespace quillon
