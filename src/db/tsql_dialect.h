// tsql_dialect.h — the token-level step that lets the reports' T-SQL run on SQLite with
// SQL Server's meaning: CONVERT(char(N),e,112), len, LEFT, CHARINDEX, '+' joining text,
// unqualified Order by names bound to the select list, and an empty In () refused.
#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace quillon {

// DbError (kAdoErrBadStatement) where SQL Server would refuse the statement.
std::string TranslateTsqlToSqlite(std::string_view tsql);

// Registers the functions the translated text calls (tsql_convert112, tsql_len, …).
void RegisterTsqlFunctions(sqlite3* db);

} // namespace quillon
