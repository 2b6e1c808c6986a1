// tsql_dialect.h — the token-level step that lets the reports' T-SQL run on SQLite with
// SQL Server's meaning: CONVERT(char(N),e,112), len, LEFT, CHARINDEX, '+' joining text,
// unqualified Order by names bound to the select list, unqualified names of a join's ON bound
// to the tables joined so far, an empty In () refused, and date filters made ranges an index
// can serve where the data allow (date_range_rewrite.h).
#pragma once

#include <string>
#include <string_view>

#include "db/date_range_rewrite.h"

struct sqlite3;

namespace quillon {

// What the step may ask of the database. Without a column lookup the names of ON clauses are
// left as they stand; without the date check no date filter is rewritten.
struct DialectContext {
    ColumnLookup columns;
    IsoDateCheck isoDates;
    // Derived tables that differ only in one IN list read their common rows once.
    bool shareDerivedTables = true;
};

// DbError (kAdoErrBadStatement) where SQL Server would refuse the statement.
std::string TranslateTsqlToSqlite(std::string_view tsql, const DialectContext& context = {});

// Registers the functions the translated text calls (tsql_convert, tsql_len, …).
void RegisterTsqlFunctions(sqlite3* db);

// Whether every value of table.column is NULL or ISO date text that CONVERT(…,112) reads as a
// date; false when the table or column is missing.
bool ColumnHoldsIsoDates(sqlite3* db, const std::string& table, const std::string& column);

} // namespace quillon
