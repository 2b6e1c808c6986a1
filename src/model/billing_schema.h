// billing_schema.h — model layer: the billing database's tables as SQLite DDL, the one source
// the demo database and every test database are made from.
#pragma once

#include <string>

struct sqlite3;

namespace quillon {

// The DDL text: every table and column the reports read, with indexes on the join keys.
const std::string& BillingSchemaSql();

// Creates the tables and indexes in `db`; throws std::runtime_error with SQLite's message.
void CreateBillingSchema(sqlite3* db);

} // namespace quillon
