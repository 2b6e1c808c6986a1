// statement.cpp — model layer, demo data: prepared and one-shot statements, the schema's tables.
#include "model/demo/statement.h"

#include <stdexcept>
#include <utility>

#include "model/billing_schema.h"

namespace quillon::demo {

Statement::Statement(sqlite3* db, const char* sql) : db_(db) {
    if (sqlite3_prepare_v2(db, sql, -1, &stmt_, nullptr) != SQLITE_OK) Fail(db);
}

void Statement::Fail(sqlite3* db) {
    throw std::runtime_error(std::string("demo database: ") + sqlite3_errmsg(db));
}

void Exec(sqlite3* db, const char* sql) {
    char* message = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
        std::string text = message ? message : sqlite3_errmsg(db);
        sqlite3_free(message);
        throw std::runtime_error("demo database: " + text);
    }
}

std::vector<std::string> CreateTablesOnly(sqlite3* db) {
    std::vector<std::string> indexes;
    const std::string& sql = BillingSchemaSql();
    const char* p = sql.c_str();
    while (*p) {
        sqlite3_stmt* s = nullptr;
        const char* tail = nullptr;
        if (sqlite3_prepare_v2(db, p, -1, &s, &tail) != SQLITE_OK)
            throw std::runtime_error(std::string("demo database: ") + sqlite3_errmsg(db));
        if (s) {
            std::string text(p, tail);
            if (text.find("CREATE INDEX") != std::string::npos) {
                indexes.push_back(std::move(text));
            } else if (sqlite3_step(s) != SQLITE_DONE) {
                const std::string message = sqlite3_errmsg(db);
                sqlite3_finalize(s);
                throw std::runtime_error("demo database: " + message);
            }
            sqlite3_finalize(s);
        }
        p = tail;
    }
    return indexes;
}

} // namespace quillon::demo
