// tsql_dialect.h — the token-level step that lets the reports' T-SQL run on SQLite with
// SQL Server's meaning: CONVERT(char(N),e,112), len, LEFT, CHARINDEX, '+' joining text,
// unqualified Order by names bound to the select list, unqualified names of a join's ON bound
// to the tables joined so far, and an empty In () refused.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace quillon {

// The column names of a table, empty when there is no such table.
using ColumnLookup = std::function<std::vector<std::string>(const std::string& table)>;

// DbError (kAdoErrBadStatement) where SQL Server would refuse the statement. Without a column
// lookup the names of ON clauses are left as they stand.
std::string TranslateTsqlToSqlite(std::string_view tsql, const ColumnLookup& columns = {});

// Registers the functions the translated text calls (tsql_convert112, tsql_len, …).
void RegisterTsqlFunctions(sqlite3* db);

} // namespace quillon
