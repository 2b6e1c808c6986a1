// vb_number.h — number and text conversions with the old platform's exact results.
// Money is a double everywhere; it is always rounded through Format(x, "0.00").
#pragma once

#include <string>
#include <string_view>

#include "base/date_time.h"

namespace quillon {

// Numeric patterns "0.00", "#0.00", "00", "0": the value is first written with 15 significant
// digits (as CStr does), then that decimal is rounded half away from zero; a negative value
// that rounds to zero keeps its sign ("-0.00").
std::string Format(double value, std::string_view pattern);
// Date patterns "yyyy-mm-dd", "yyyymmdd", "yyyymm", "yyyy", "mm", "dd", "yyyy年mm月dd日",
// "yyyy-mm-dd hh:mm:ss".
// Date tokens are case-blind ("YYYYMMDD" works too); "mm" after "hh" is minutes.
std::string Format(const DateTime& value, std::string_view pattern);
// Text as the old platform formats it: numeric text with a numeric pattern as the number, an
// ISO date text with a date pattern as the date, anything else (empty text too) unchanged.
std::string Format(std::string_view text, std::string_view pattern);

// The numeric prefix of the text (blanks skipped, sign, digits, point, exponent); 0 if none.
double Val(std::string_view text);
// The whole text must be a number (blanks around allowed), else VbError 13 "类型不匹配".
double CDbl(std::string_view text);
// True when CDbl would accept the text.
bool IsNumeric(std::string_view text);
// Half to even, like the old platform's CInt / CLng; VbError 6 "溢出" out of range.
int CInt(double value);
long long CLng(double value);
// General number text: up to 15 significant digits, no trailing zeros, no leading blank.
std::string CStr(double value);
// CStr with a leading blank for values >= 0.
std::string Str(double value);
// Format(value, "0.00") read back as a number: the two-decimal money value every sum runs on.
double RoundMoney(double value);
// Val(Format(value, "0.00")): the value as its money text reads back, made without the text
// (a detail report reads every amount of a year through it).
double CentsValue(double value);

} // namespace quillon
