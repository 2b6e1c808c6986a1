// The embedded engine: the demo database and every test database. The file is opened
// read-only, and the reports' T-SQL passes through the dialect step first.
#include <sqlite3.h>

#include <chrono>
#include <cstring>
#include <map>

#include "db/backend.h"
#include "db/db_error.h"
#include "db/sqlite_messages.h"
#include "db/text_fold.h"
#include "db/tsql_dialect.h"

namespace quillon {
namespace {

using Clock = std::chrono::steady_clock;

// The open database and the deadline of the statement now running, shared with the cursors so
// that the handle outlives every recordset made from it.
struct SqliteHandle {
    sqlite3* db = nullptr;
    Clock::time_point deadline{};
    bool timedOut = false;
    ~SqliteHandle() { sqlite3_close_v2(db); }
};

int ProgressCheck(void* p) {
    auto* h = static_cast<SqliteHandle*>(p);
    if (h->deadline == Clock::time_point{} || Clock::now() < h->deadline) return 0;
    h->timedOut = true;
    return 1; // interrupts the statement
}

bool IsDateDeclared(const char* declType) {
    if (!declType) return false;
    std::string t = FoldedAscii(declType);
    return t.find("date") != std::string::npos || t.find("time") != std::string::npos;
}

class SqliteCursor final : public Cursor {
public:
    SqliteCursor(std::shared_ptr<SqliteHandle> handle, sqlite3_stmt* stmt, int commandTimeout)
        : handle_(std::move(handle)), stmt_(stmt), timeout_(commandTimeout) {
        int n = sqlite3_column_count(stmt_);
        for (int i = 0; i < n; ++i) {
            const char* name = sqlite3_column_name(stmt_, i);
            names_.emplace_back(name ? name : "");
            dateColumn_.push_back(IsDateDeclared(sqlite3_column_decltype(stmt_, i)));
        }
    }
    ~SqliteCursor() override { sqlite3_finalize(stmt_); }

    const std::vector<std::string>& ColumnNames() const override { return names_; }

    bool Fetch(std::vector<Value>& row) override {
        if (done_) return false;
        // The time limit covers the statement's run up to its first row, as a command timeout does.
        handle_->deadline =
            (first_ && timeout_ > 0) ? Clock::now() + std::chrono::seconds(timeout_) : Clock::time_point{};
        handle_->timedOut = false;
        int rc = sqlite3_step(stmt_);
        handle_->deadline = Clock::time_point{};
        first_ = false;
        if (rc == SQLITE_DONE) {
            done_ = true;
            return false;
        }
        if (rc != SQLITE_ROW) {
            done_ = true;
            if (handle_->timedOut) throw DbError(kAdoErrTimeout, "查询超时已过期");
            throw DbError(kAdoErrBadStatement, SqlServerWording(sqlite3_errmsg(handle_->db)));
        }
        row.resize(names_.size());
        for (size_t i = 0; i < names_.size(); ++i) row[i] = ColumnValue(static_cast<int>(i));
        return true;
    }

private:
    Value ColumnValue(int i) const {
        switch (sqlite3_column_type(stmt_, i)) {
        case SQLITE_NULL:
            return Value();
        case SQLITE_INTEGER:
            return Value(static_cast<std::int64_t>(sqlite3_column_int64(stmt_, i)));
        case SQLITE_FLOAT:
            return Value(sqlite3_column_double(stmt_, i));
        default: {
            const auto* p = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, i));
            std::string text(p ? p : "", sqlite3_column_bytes(stmt_, i));
            if (dateColumn_[i]) {
                if (auto d = DateTime::ParseIso(text)) return Value(*d);
            }
            return Value(std::move(text));
        }
        }
    }

    std::shared_ptr<SqliteHandle> handle_;
    sqlite3_stmt* stmt_;
    int timeout_;
    std::vector<std::string> names_;
    std::vector<bool> dateColumn_;
    bool first_ = true;
    bool done_ = false;
};

class SqliteBackend final : public Backend {
public:
    void Open(const ConnectionString& params, const OpenOptions& options) override {
        std::string path = params.GetOr("Data Source", "");
        auto handle = std::make_shared<SqliteHandle>();
        int rc = path.empty() ? SQLITE_CANTOPEN
                              : sqlite3_open_v2(path.c_str(), &handle->db,
                                                SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
        if (rc == SQLITE_OK) {
            // A file that is not a database opens fine; the first read tells.
            rc = sqlite3_exec(handle->db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
        }
        if (rc != SQLITE_OK) {
            std::string why = SqlServerWording(handle->db ? sqlite3_errmsg(handle->db) : sqlite3_errstr(rc));
            throw DbError(kAdoErrGeneric, "[SQLite] 无法打开数据库 '" + path + "': " + why);
        }
        sqlite3_busy_timeout(handle->db,
                             options.connectionTimeout > 0 ? options.connectionTimeout * 1000 : 1 << 30);
        sqlite3_progress_handler(handle->db, 1000, ProgressCheck, handle.get());
        // The reports read much of a large file: map it, and keep what was read.
        sqlite3_exec(handle->db, "PRAGMA mmap_size=1073741824; PRAGMA cache_size=-65536", nullptr, nullptr,
                     nullptr);
        RegisterTsqlFunctions(handle->db);
        handle_ = std::move(handle);
    }

    std::shared_ptr<Cursor> Execute(const std::string& sql, int commandTimeout) override {
        ForgetWhatChanged();
        DialectContext context{[this](const std::string& table) { return ColumnsOf(table); },
                               [this](const std::string& table, const std::string& column) {
                                   return HoldsIsoDates(table, column);
                               }};
        std::string text = TranslateTsqlToSqlite(sql, context);
        sqlite3_stmt* stmt = nullptr;
        const char* tail = nullptr;
        if (sqlite3_prepare_v2(handle_->db, text.c_str(), static_cast<int>(text.size()), &stmt, &tail) !=
            SQLITE_OK)
            throw DbError(kAdoErrBadStatement, SqlServerWording(sqlite3_errmsg(handle_->db)));
        if (!stmt) throw DbError(kAdoErrBadStatement, "空语句");
        return std::make_shared<SqliteCursor>(handle_, stmt, commandTimeout);
    }

private:
    // What was learnt of the data holds until another connection writes to the file.
    void ForgetWhatChanged() {
        sqlite3_stmt* stmt = nullptr;
        long long version = -1;
        if (sqlite3_prepare_v2(handle_->db, "PRAGMA data_version", -1, &stmt, nullptr) == SQLITE_OK &&
            sqlite3_step(stmt) == SQLITE_ROW)
            version = sqlite3_column_int64(stmt, 0);
        sqlite3_finalize(stmt);
        if (version != dataVersion_) {
            isoDates_.clear();
            columns_.clear();
        }
        dataVersion_ = version;
    }

    bool HoldsIsoDates(const std::string& table, const std::string& column) {
        const std::string key = FoldedAscii(table) + '\x1f' + FoldedAscii(column);
        auto it = isoDates_.find(key);
        if (it == isoDates_.end())
            it = isoDates_.emplace(key, ColumnHoldsIsoDates(handle_->db, table, column)).first;
        return it->second;
    }

    const std::vector<std::string>& ColumnsOf(const std::string& table) {
        auto known = columns_.find(FoldedAscii(table));
        if (known != columns_.end()) return known->second;
        std::vector<std::string>& names = columns_[FoldedAscii(table)];
        sqlite3_stmt* stmt = nullptr;
        if (sqlite3_prepare_v2(handle_->db, "SELECT name FROM pragma_table_info(?)", -1, &stmt, nullptr) !=
            SQLITE_OK)
            return names;
        sqlite3_bind_text(stmt, 1, table.c_str(), static_cast<int>(table.size()), SQLITE_TRANSIENT);
        while (sqlite3_step(stmt) == SQLITE_ROW)
            names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
        sqlite3_finalize(stmt);
        return names;
    }

    std::shared_ptr<SqliteHandle> handle_;
    long long dataVersion_ = -1;
    std::map<std::string, bool> isoDates_;
    std::map<std::string, std::vector<std::string>> columns_;
};

} // namespace

std::unique_ptr<Backend> MakeSqliteBackend() {
    return std::make_unique<SqliteBackend>();
}

} // namespace quillon
