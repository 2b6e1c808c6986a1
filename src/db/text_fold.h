// text_fold.h — ASCII case folding for names: field and key lookup ignore case the way a
// case-insensitive SQL Server collation does for Latin letters; Chinese is compared as is.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

inline char FoldAscii(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

inline bool EqualsIgnoreAsciiCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
    return true;
}

inline std::string FoldedAscii(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = FoldAscii(c);
    return out;
}

} // namespace quillon
