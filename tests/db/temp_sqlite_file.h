// temp_sqlite_file.h — a throw-away SQLite file for the database-layer tests, written through
// the C API (the layer itself only reads), removed when the test ends.
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

namespace quillon::testing {

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

} // namespace quillon::testing
