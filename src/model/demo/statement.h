// statement.h — model layer, demo data: the few SQLite calls the writer needs: a prepared
// statement bound value by value, one-shot statements, and the schema's tables.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillon::demo {

// A prepared INSERT: Bind each value in order, then Run; the statement is ready again afterwards.
// Failures throw std::runtime_error.
class Statement {
public:
    Statement(sqlite3* db, const char* sql);
    ~Statement() { sqlite3_finalize(stmt_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Bind(const std::string& v) {
        sqlite3_bind_text(stmt_, ++col_, v.data(), static_cast<int>(v.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& Bind(const char* v) {
        if (v)
            sqlite3_bind_text(stmt_, ++col_, v, -1, SQLITE_STATIC);
        else
            sqlite3_bind_null(stmt_, ++col_);
        return *this;
    }
    Statement& Bind(const std::optional<std::string>& v) {
        if (v) return Bind(*v);
        sqlite3_bind_null(stmt_, ++col_);
        return *this;
    }
    Statement& Bind(double v) {
        sqlite3_bind_double(stmt_, ++col_, v);
        return *this;
    }
    Statement& Bind(std::int64_t v) {
        sqlite3_bind_int64(stmt_, ++col_, v);
        return *this;
    }
    Statement& Bind(int v) { return Bind(static_cast<std::int64_t>(v)); }
    Statement& Null() {
        sqlite3_bind_null(stmt_, ++col_);
        return *this;
    }
    void Run() {
        if (sqlite3_step(stmt_) != SQLITE_DONE) Fail(db_);
        sqlite3_reset(stmt_);
        sqlite3_clear_bindings(stmt_);
        col_ = 0;
    }

private:
    // Throws the connection's last error.
    [[noreturn]] static void Fail(sqlite3* db);

    sqlite3* db_;
    sqlite3_stmt* stmt_ = nullptr;
    int col_ = 0;
};

// Runs statements without results; throws std::runtime_error.
void Exec(sqlite3* db, const char* sql);

// Creates the schema's tables and returns its index statements, to be run after the rows are in
// (building an index once is faster than keeping it up to date row by row).
std::vector<std::string> CreateTablesOnly(sqlite3* db);

} // namespace quillon::demo
