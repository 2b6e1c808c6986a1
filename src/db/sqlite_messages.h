// sqlite_messages.h — database layer, embedded engine: SQLite's error texts in the words SQL Server
// uses for the same failure (Chinese), so that a run on the demo database fails with the message
// a finance user would meet in production.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

// "no such table: X" → "对象名 'X' 无效。", "no such column: X" → "列名 'X' 无效。", a syntax error
// or an unclosed literal as SQL Server words it, a damaged or foreign file in Chinese; a text it
// does not know stays as SQLite gave it.
std::string SqlServerWording(std::string_view sqliteMessage);

} // namespace quillon
