// SQL Server through unixODBC (FreeTDS in production, the SQLite ODBC driver in the tests).
// Narrow calls only, with UTF-8 text: the SQLite driver garbles the wide calls, and FreeTDS
// converts UTF-8 for the server itself (ClientCharset=UTF-8).
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <exception>
#include <utility>

#include "db/backend.h"
#include "db/db_error.h"
#include "db/odbc_mapping.h"

namespace quillon {
namespace {

// The driver's diagnostic records of one handle: their texts joined, and their SQLSTATEs.
struct Diagnostics {
    std::string text;
    std::vector<std::string> states;
};

Diagnostics ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle) {
    Diagnostics d;
    std::string last;
    for (SQLSMALLINT i = 1;; ++i) {
        SQLCHAR state[6] = {};
        SQLINTEGER native = 0;
        SQLCHAR message[2048] = {};
        SQLSMALLINT length = 0;
        SQLRETURN rc = SQLGetDiagRec(handleType, handle, i, state, &native, message, sizeof message, &length);
        if (!SQL_SUCCEEDED(rc)) break;
        d.states.emplace_back(reinterpret_cast<const char*>(state));
        std::string msg(reinterpret_cast<const char*>(message));
        // FreeTDS repeats a record now and then; once is enough for the user.
        if (msg.empty() || msg == last) continue;
        if (!d.text.empty()) d.text += "; ";
        d.text += msg;
        last = std::move(msg);
    }
    if (d.text.empty()) d.text = "ODBC 驱动程序未给出错误信息";
    return d;
}

[[noreturn]] void ThrowStatementError(SQLSMALLINT handleType, SQLHANDLE handle) {
    Diagnostics d = ReadDiagnostics(handleType, handle);
    throw DbError(AdoNumberForStatementFailure(d.states), d.text);
}

// Environment and connection handles, shared by the backend and its cursors so that the
// connection outlives every statement made on it.
struct OdbcSession {
    SQLHENV env = SQL_NULL_HENV;
    SQLHDBC dbc = SQL_NULL_HDBC;
    bool connected = false;

    OdbcSession() = default;
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;
    ~OdbcSession() {
        if (connected) SQLDisconnect(dbc);
        if (dbc != SQL_NULL_HDBC) SQLFreeHandle(SQL_HANDLE_DBC, dbc);
        if (env != SQL_NULL_HENV) SQLFreeHandle(SQL_HANDLE_ENV, env);
    }
};

// A statement handle that is freed unless a cursor takes it over.
class StatementHandle {
public:
    explicit StatementHandle(SQLHSTMT h) : h_(h) {}
    StatementHandle(const StatementHandle&) = delete;
    StatementHandle& operator=(const StatementHandle&) = delete;
    ~StatementHandle() {
        if (h_ != SQL_NULL_HSTMT) SQLFreeHandle(SQL_HANDLE_STMT, h_);
    }
    SQLHSTMT Get() const { return h_; }
    SQLHSTMT Release() { return std::exchange(h_, nullptr); }

private:
    SQLHSTMT h_;
};

struct ColumnInfo {
    std::string name;
    SQLSMALLINT type = SQL_UNKNOWN_TYPE;
};

std::vector<ColumnInfo> DescribeColumns(SQLHSTMT stmt, SQLSMALLINT count) {
    std::vector<ColumnInfo> columns;
    for (SQLUSMALLINT c = 1; c <= static_cast<SQLUSMALLINT>(count); ++c) {
        std::vector<SQLCHAR> name(256);
        SQLSMALLINT nameLength = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        for (;;) {
            SQLRETURN rc = SQLDescribeCol(stmt, c, name.data(), static_cast<SQLSMALLINT>(name.size()),
                                          &nameLength, &type, &size, &digits, &nullable);
            if (!SQL_SUCCEEDED(rc)) ThrowStatementError(SQL_HANDLE_STMT, stmt);
            if (static_cast<size_t>(nameLength) < name.size()) break;
            name.resize(static_cast<size_t>(nameLength) + 1); // a long name was cut: ask again
        }
        columns.push_back({std::string(reinterpret_cast<const char*>(name.data()), nameLength), type});
    }
    return columns;
}

class OdbcCursor final : public Cursor {
public:
    OdbcCursor(std::shared_ptr<OdbcSession> session, SQLHSTMT stmt, std::vector<ColumnInfo> columns)
        : session_(std::move(session)), stmt_(stmt) {
        for (auto& c : columns) {
            names_.push_back(std::move(c.name));
            types_.push_back(c.type);
        }
        if (names_.empty()) CloseStatement(); // nothing to read: free the connection at once
    }
    ~OdbcCursor() override { CloseStatement(); }

    const std::vector<std::string>& ColumnNames() const override { return names_; }

    bool Fetch(std::vector<Value>& row) override {
        if (!buffered_.empty()) {
            row = std::move(buffered_.front());
            buffered_.pop_front();
            return true;
        }
        if (pendingError_) std::rethrow_exception(std::exchange(pendingError_, nullptr));
        return FetchFromDriver(row);
    }

    void Buffer() override {
        // A failure while draining belongs to this statement, not to the one about to run:
        // the walker meets it after the rows that came before it.
        try {
            std::vector<Value> row;
            while (FetchFromDriver(row)) buffered_.push_back(std::move(row));
        } catch (const DbError&) {
            pendingError_ = std::current_exception();
        }
    }

private:
    bool FetchFromDriver(std::vector<Value>& row) {
        if (stmt_ == SQL_NULL_HSTMT) return false;
        SQLRETURN rc = SQLFetch(stmt_);
        if (rc == SQL_NO_DATA) {
            CloseStatement();
            return false;
        }
        try {
            if (!SQL_SUCCEEDED(rc)) ThrowStatementError(SQL_HANDLE_STMT, stmt_);
            row.assign(names_.size(), Value());
            for (size_t i = 0; i < names_.size(); ++i) row[i] = ReadColumn(static_cast<SQLUSMALLINT>(i + 1));
        } catch (...) {
            CloseStatement();
            throw;
        }
        return true;
    }

    Value ReadColumn(SQLUSMALLINT column) {
        // Every column is read as text, in pieces, since a remark may run to any length; the
        // column's SQL type then says what the text is.
        std::string text;
        char piece[8192];
        for (;;) {
            SQLLEN indicator = 0;
            SQLRETURN rc = SQLGetData(stmt_, column, SQL_C_CHAR, piece, sizeof piece, &indicator);
            if (rc == SQL_NO_DATA) break; // the previous piece was the last
            if (!SQL_SUCCEEDED(rc)) ThrowStatementError(SQL_HANDLE_STMT, stmt_);
            if (indicator == SQL_NULL_DATA) return Value();
            bool cut = rc == SQL_SUCCESS_WITH_INFO &&
                       (indicator == SQL_NO_TOTAL || indicator >= static_cast<SQLLEN>(sizeof piece));
            if (cut || indicator == SQL_NO_TOTAL)
                text.append(piece, strnlen(piece, sizeof piece - 1));
            else
                text.append(piece, static_cast<size_t>(indicator));
            if (!cut) break;
        }
        return OdbcTextToValue(types_[column - 1], std::move(text));
    }

    void CloseStatement() {
        if (stmt_ != SQL_NULL_HSTMT) SQLFreeHandle(SQL_HANDLE_STMT, std::exchange(stmt_, nullptr));
    }

    std::shared_ptr<OdbcSession> session_;
    SQLHSTMT stmt_;
    std::vector<std::string> names_;
    std::vector<SQLSMALLINT> types_;
    std::deque<std::vector<Value>> buffered_;
    std::exception_ptr pendingError_;
};

class OdbcBackend final : public Backend {
public:
    void Open(const ConnectionString& params, const OpenOptions& options) override {
        auto session = std::make_shared<OdbcSession>();
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &session->env)))
            throw DbError(kAdoErrGeneric, "无法分配 ODBC 环境句柄");
        SQLSetEnvAttr(session->env, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, session->env, &session->dbc)))
            throw DbError(kAdoErrGeneric, ReadDiagnostics(SQL_HANDLE_ENV, session->env).text);

        SQLULEN loginTimeout = static_cast<SQLULEN>(std::max(0, options.connectionTimeout));
        SQLSetConnectAttr(session->dbc, SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(loginTimeout),
                          0);
        // A hint only: FreeTDS passes it on, the SQLite driver ignores it (its tests open the
        // file read-only by URI), and the login itself should be one that can only read.
        SQLSetConnectAttr(session->dbc, SQL_ATTR_ACCESS_MODE,
                          reinterpret_cast<SQLPOINTER>(SQL_MODE_READ_ONLY), 0);

        std::string text = BuildOdbcConnectionText(params, options.odbcDriver);
        SQLCHAR completed[1024];
        SQLSMALLINT completedLength = 0;
        SQLRETURN rc =
            SQLDriverConnect(session->dbc, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS,
                             completed, sizeof completed, &completedLength, SQL_DRIVER_NOPROMPT);
        if (!SQL_SUCCEEDED(rc))
            throw DbError(kAdoErrGeneric, ReadDiagnostics(SQL_HANDLE_DBC, session->dbc).text);
        session->connected = true;
        session_ = std::move(session);
    }

    std::shared_ptr<Cursor> Execute(const std::string& sql, int commandTimeout) override {
        if (!session_) throw DbError(kAdoErrClosed, "对象关闭时，不允许操作。");
        // A SQL Server connection serves one result at a time: the reader still walking the
        // previous one gets its rows in memory first.
        if (auto live = live_.lock()) live->Buffer();

        SQLHSTMT raw = SQL_NULL_HSTMT;
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, session_->dbc, &raw)))
            ThrowStatementError(SQL_HANDLE_DBC, session_->dbc);
        StatementHandle stmt(raw);

        // A driver that cannot limit a statement's time still runs it.
        SQLULEN timeout = static_cast<SQLULEN>(std::max(0, commandTimeout));
        SQLSetStmtAttr(stmt.Get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(timeout), 0);

        std::string text = sql;
        SQLRETURN rc = SQLExecDirect(stmt.Get(), reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS);
        if (!SQL_SUCCEEDED(rc) && rc != SQL_NO_DATA) ThrowStatementError(SQL_HANDLE_STMT, stmt.Get());

        // Row counts that come before the rows (a trigger's, a SET's) are no result to read.
        SQLSMALLINT columns = 0;
        for (;;) {
            if (!SQL_SUCCEEDED(SQLNumResultCols(stmt.Get(), &columns)))
                ThrowStatementError(SQL_HANDLE_STMT, stmt.Get());
            if (columns > 0) break;
            rc = SQLMoreResults(stmt.Get());
            if (rc == SQL_NO_DATA) break;
            if (!SQL_SUCCEEDED(rc)) ThrowStatementError(SQL_HANDLE_STMT, stmt.Get());
        }

        auto described = DescribeColumns(stmt.Get(), columns);
        auto cursor = std::make_shared<OdbcCursor>(session_, stmt.Release(), std::move(described));
        live_ = cursor;
        return cursor;
    }

private:
    std::shared_ptr<OdbcSession> session_;
    std::weak_ptr<Cursor> live_;
};

} // namespace

std::unique_ptr<Backend> MakeOdbcBackend() {
    return std::make_unique<OdbcBackend>();
}

} // namespace quillon
