// statement_text.h — workbench layer: fills the {name} placeholders of a statement text, so each
// statement stays one readable literal next to the routine that sends it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace quillon {

struct StatementValue {
    std::string_view name;  // without the braces
    std::string_view value; // spliced in as it stands: the statements quote and escape nothing
};

// Every "{name}" of `text` is replaced by its value. A placeholder without a value, or a value
// that no placeholder asks for, is a mistake in the program and throws std::logic_error.
std::string FillStatement(std::string_view text, std::initializer_list<StatementValue> values);

} // namespace quillon
