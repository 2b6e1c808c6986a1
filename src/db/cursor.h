// cursor.h — what a backend hands the Recordset: column names and a forward walk over rows.
#pragma once

#include <string>
#include <vector>

#include "db/value.h"

namespace quillon {

class Cursor {
public:
    virtual ~Cursor() = default;
    virtual const std::vector<std::string>& ColumnNames() const = 0;
    // Fills row with the next row's values; false at the end.
    virtual bool Fetch(std::vector<Value>& row) = 0;
    // Reads every remaining row into memory and frees the server side, so that the
    // connection can serve the next statement while this one is still being walked.
    virtual void Buffer() {}
};

} // namespace quillon
