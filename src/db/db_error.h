// db_error.h — a failure of the database layer, numbered as ADO numbers it, so that the
// windows' messages show the numbers a finance user's support desk knows.
#pragma once

#include "base/vb_error.h"

namespace quillon {

class DbError : public VbError {
public:
    using VbError::VbError;
};

inline constexpr long kAdoErrGeneric = -2147467259;      // E_FAIL: open failed, driver error
inline constexpr long kAdoErrBadStatement = -2147217900; // DB_E_ERRORSINCOMMAND
inline constexpr long kAdoErrTimeout = -2147217871;      // DB_E_ABORTLIMITREACHED
inline constexpr long kAdoErrItemNotFound = 3265;        // no field of that name or ordinal
inline constexpr long kAdoErrNoCurrentRecord = 3021;     // EOF reached
inline constexpr long kAdoErrClosed = 3704;              // object is closed
inline constexpr long kAdoErrProviderNotFound = 3706;    // unknown Provider

} // namespace quillon
