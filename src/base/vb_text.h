// vb_text.h — the old platform's text helpers on UTF-8 std::string.
// Positions are byte positions; a UTF-8 search text only ever matches at whole characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon {

// Every occurrence of `find` replaced, left to right, without rescanning replaced text; an
// empty `find` leaves the text as it is.
std::string Replace(std::string_view text, std::string_view find, std::string_view with);
// 1-based byte position of the first `find` at or after byte `start` (1-based); 0 when absent
// or when the text is empty; `start` itself for an empty `find` within the text.
std::size_t InStr(std::string_view text, std::string_view find, std::size_t start = 1);
// Blanks (" ") removed at the ends; tabs and other characters stay, as the old Trim left them.
std::string Trim(std::string_view text);
std::string LTrim(std::string_view text);
std::string RTrim(std::string_view text);
bool StartsWith(std::string_view text, std::string_view prefix);
bool Contains(std::string_view text, std::string_view find);
// Fields between separators, empty ones kept ("a,,b," gives four); an empty text gives no
// fields at all and an empty separator the whole text as one field, as the old Split did.
std::vector<std::string> Split(std::string_view text, std::string_view sep);
std::string Join(const std::vector<std::string>& parts, std::string_view sep);

} // namespace quillon
