// db_test_support.h — helpers of the database-layer tests: a throw-away SQLite file written
// through the C API (the layer itself only reads), the DbError a call raised, Values printed.
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <ostream>
#include <random>
#include <stdexcept>
#include <string>

#include "db/db_error.h"
#include "db/value.h"

namespace quillon {

// So that a failed comparison shows both values, kind included.
inline void PrintTo(const Value& v, std::ostream* os) {
    if (v.IsNull())
        *os << "NULL";
    else if (v.IsInteger())
        *os << "integer " << v.AsText();
    else if (v.IsDouble())
        *os << "double " << v.AsText();
    else if (v.IsDate())
        *os << "date " << v.AsText();
    else
        *os << "text \"" << v.AsText() << "\"";
}

namespace testing {

// Debian's SQLite ODBC driver (libsqliteodbc): the ODBC backend's tests run through it.
inline constexpr const char* kSqliteOdbcDriver = "/usr/lib/x86_64-linux-gnu/odbc/libsqlite3odbc.so";

// The DbError `f` raised, or number 0 "no error" when it raised none.
template <class F> DbError ErrorOf(F f) {
    try {
        f();
    } catch (const DbError& e) {
        return e;
    }
    return DbError(0, "no error");
}

class TempSqliteFile {
public:
    TempSqliteFile() {
        std::random_device rd;
        path_ = std::filesystem::temp_directory_path() / ("quillon-db-" + std::to_string(rd()) + ".db");
        if (sqlite3_open(path_.c_str(), &db_) != SQLITE_OK) throw std::runtime_error("cannot create test db");
    }
    ~TempSqliteFile() {
        sqlite3_close(db_);
        std::filesystem::remove(path_);
    }
    TempSqliteFile(const TempSqliteFile&) = delete;
    TempSqliteFile& operator=(const TempSqliteFile&) = delete;

    void Exec(const std::string& sql) {
        char* err = nullptr;
        if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &err) != SQLITE_OK) {
            std::string msg = err ? err : "?";
            sqlite3_free(err);
            throw std::runtime_error(msg + " in: " + sql);
        }
    }
    std::string Path() const { return path_.string(); }
    std::string SqliteConnectionText() const { return "Provider=SQLite;Data Source='" + Path() + "'"; }

private:
    std::filesystem::path path_;
    sqlite3* db_ = nullptr;
};

} // namespace testing
} // namespace quillon
