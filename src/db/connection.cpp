#include "db/connection.h"

#include "db/db_error.h"
#include "db/select_guard.h"
#include "db/text_fold.h"

namespace quillon {
namespace {

using Clock = std::chrono::steady_clock;

// Runs f, adding its time to the engine's whether it returns or throws.
template <typename F> auto Timed(Connection::EngineTime& engine, F f) {
    struct Stop {
        Connection::EngineTime& engine;
        Clock::time_point start = Clock::now();
        ~Stop() { engine.spent += Clock::now() - start; }
    } stop{engine};
    return f();
}

// Adds the time of every step of a backend's cursor to the connection's engine time.
class TimedCursor final : public Cursor {
public:
    TimedCursor(std::shared_ptr<Cursor> inner, std::shared_ptr<Connection::EngineTime> engine)
        : inner_(std::move(inner)), engine_(std::move(engine)) {}
    const std::vector<std::string>& ColumnNames() const override { return inner_->ColumnNames(); }
    bool Fetch(std::vector<Value>& row) override {
        return Timed(*engine_, [&] { return inner_->Fetch(row); });
    }
    void Buffer() override {
        Timed(*engine_, [&] { inner_->Buffer(); });
    }

private:
    std::shared_ptr<Cursor> inner_;
    std::shared_ptr<Connection::EngineTime> engine_;
};

} // namespace

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::Open() {
    if (backend_) throw DbError(3705, "对象打开时，不允许操作。");
    auto params = ConnectionString::Parse(ConnectionString);
    std::string provider = params.GetOr("Provider", "");
    std::unique_ptr<Backend> backend;
    if (EqualsIgnoreAsciiCase(provider, "SQLOLEDB.1") || EqualsIgnoreAsciiCase(provider, "SQLOLEDB"))
        backend = MakeOdbcBackend();
    else if (EqualsIgnoreAsciiCase(provider, "SQLite"))
        backend = MakeSqliteBackend();
    else
        throw DbError(kAdoErrProviderNotFound, "未找到提供程序。该程序可能未正确安装。");
    backend->Open(params, OpenOptions{ConnectionTimeout, OdbcDriver});
    backend_ = std::move(backend);
}

Recordset Connection::OpenRecordset(std::string_view sql) {
    if (!backend_) throw DbError(kAdoErrClosed, "对象关闭时，不允许操作。");
    std::string text(sql);
    EnsureSingleSelect(text);
    if (auto live = live_.lock()) live->Buffer();
    if (OnStatement) OnStatement(text);
    ++engine_->statements;
    std::shared_ptr<Cursor> cursor = Timed(*engine_, [&] { return backend_->Execute(text, CommandTimeout); });
    cursor = std::make_shared<TimedCursor>(std::move(cursor), engine_);
    live_ = cursor;
    return Recordset(std::move(cursor));
}

} // namespace quillon
