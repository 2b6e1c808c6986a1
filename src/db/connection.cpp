#include "db/connection.h"

#include "db/db_error.h"
#include "db/select_guard.h"
#include "db/text_fold.h"

namespace quillon {

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
    auto cursor = backend_->Execute(text, CommandTimeout);
    live_ = cursor;
    return Recordset(std::move(cursor));
}

} // namespace quillon
