// shared_derived_tables.h — the invoice detail joins one derived table per charge item, each the
// same FROM … WHERE … GROUP BY but for the item codes of one IN list, so SQLite reads the
// period's bills once per item. This step makes them read once: the rows of the common FROM …
// WHERE, the IN list widened to every code, go into one materialised table, and each derived
// table groups its own codes from it. Every condition that makes the two forms give the same
// rows is checked first; a statement that misses one is left as it stands.
#pragma once

#include <vector>

#include "db/sql_tokens.h"

namespace quillon {

// Rewrites the tokens in place; true when it did.
bool ShareDerivedTables(std::vector<SqlToken>& tokens);

} // namespace quillon
