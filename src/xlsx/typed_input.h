// typed_input.h — workbook layer: how Excel reads a text assigned to a cell, as if typed:
// a leading apostrophe keeps text, number text becomes a number, a date text a date.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

struct TypedInput {
    enum class Kind { Empty, Number, Date, Text };
    Kind kind = Kind::Empty;
    double number = 0; // the number, or the date's serial number
    std::string text;  // the text as the cell keeps it (apostrophe removed)
};

// `textFormat`: the cell is formatted "@", where Excel keeps whatever is typed as text.
// A text starting with "=" stays text: the writers put values, never formulas, into cells.
TypedInput ReadTypedInput(std::string_view text, bool textFormat = false);

// Excel's serial number of a date in the 1900 date system; nothing before 1900-01-01, where
// Excel has no date. Serials before 1900-03-01 are one less than the plain day count because
// Excel counts a 1900-02-29 that never was.
std::optional<double> ExcelDateSerial(int year, int month, int day);

} // namespace quillon
