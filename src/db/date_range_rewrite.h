// date_range_rewrite.h — the reports filter dates as CONVERT(char(N), column, 112) compared with
// digits, which no index can serve. Where every value of the column is ISO date text, the same
// filter is a range on the column itself: CONVERT(char(6),开票日期,112) = '202401' holds exactly
// when 开票日期 >= '2024-01-' And 开票日期 < '2024-02-'. This step makes that change on the
// tokens, and only where it can show the two mean the same for every row.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "db/sql_tokens.h"

namespace quillon {

// The column names of a table, empty when there is no such table.
using ColumnLookup = std::function<std::vector<std::string>(const std::string& table)>;

// Whether every value of table.column is NULL or text that reads as an ISO date.
using IsoDateCheck = std::function<bool(const std::string& table, const std::string& column)>;

// Replaces each comparison `CONVERT(char(4|6|8), column, 112) op 'digits'` (op one of = < > <=
// >= Between … And …) whose column is a base table's column that passes `isoDates` with the
// equal range on the column. Anything else is left as it stands.
void RewriteDateComparisons(std::vector<SqlToken>& tokens, const ColumnLookup& columns,
                            const IsoDateCheck& isoDates);

} // namespace quillon
