// select_guard.h — the program writes nothing: a statement passes only if it is one SELECT.
#pragma once

#include <string_view>

namespace quillon {

// Throws DbError (kAdoErrBadStatement) unless, after blanks and comments, the text starts
// with SELECT and holds no second statement after a ';' outside literals and comments.
void EnsureSingleSelect(std::string_view sql);

} // namespace quillon
