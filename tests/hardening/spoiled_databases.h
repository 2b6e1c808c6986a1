// spoiled_databases.h — test support of the bad-input matrix: the ways a billing database goes
// wrong, each applied to a copy of the demo database.
#pragma once

#include <string>

#include "hardening/user_runs.h"

namespace quillon {

// A table or a column under another name, as if it were missing.
void HideTable(BillingCopy& db, const std::string& table);
void HideColumn(BillingCopy& db, const std::string& table, const std::string& column);
// One column NULL in every row of every table, each column of a table in its share of the rows,
// NOT NULL constraints dropped first (a SQL Server database need not have them).
void NullInEveryColumn(BillingCopy& db);
// Text in a third of the rows of every money column: 金额, 税额, zj_je, 收入.
void TextInMoneyColumns(BillingCopy& db);
// A "'" at the end of every department, office and charge-item code, wherever it stands.
void QuoteInCodes(BillingCopy& db);
// Every department and office code ending in "'/**/delete/**/from/**/票据--" (no blank, which
// would end the code in a list entry): it would close the
// literal it is spliced into and write.
void WritingInCodes(BillingCopy& db);
// Every department name 200 characters long.
void LongDepartmentNames(BillingCopy& db);
// In every date column, text that is no date in a quarter of the rows and a day that no month
// has in another quarter.
void GarbageInDateColumns(BillingCopy& db);

} // namespace quillon
