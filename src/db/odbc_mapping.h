// odbc_mapping.h — database layer, ODBC backend: how the ADO settings become an ODBC connection
// text, and how a column's text as the driver hands it over becomes a Value of its SQL type.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/connection_string.h"
#include "db/value.h"

namespace quillon {

// "Driver={<driver>};Server=…;Database=…;UID=…;PWD=…;ClientCharset=UTF-8" from the ADO pairs
// Data Source, Initial Catalog, User ID and Password; a pair absent from the ADO text is left out.
// For FreeTDS the protocol is pinned to TDS 7.4 (see the .cpp for why).
std::string BuildOdbcConnectionText(const ConnectionString& params, std::string_view driver);

// A value as an ODBC connection text carries it: in braces when it holds ';' or '{'.
std::string OdbcConnectionValue(std::string_view value);

// The driver's SQL_C_CHAR text of a column of ODBC type sqlType: integer types as integers,
// exact and approximate numerics as doubles, date and timestamp types as dates; text that
// does not read as its type stays text, as SQLite's loose typing allows.
Value OdbcTextToValue(int sqlType, std::string text);

// The ADO error number for a failed statement, from the SQLSTATEs of the driver's records:
// a time-out (HYT00, HYT01) wins, then a lost connection (class 08), else a bad statement.
long AdoNumberForStatementFailure(const std::vector<std::string>& sqlStates);

} // namespace quillon
