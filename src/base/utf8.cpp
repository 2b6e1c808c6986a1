#include "base/utf8.h"

namespace quillon {

Utf8Char Utf8At(std::string_view s, std::size_t i) {
    constexpr Utf8Char kBroken{0xFFFD, 1, false};
    const auto b0 = static_cast<unsigned char>(s[i]);
    if (b0 < 0x80) return {b0, 1, true};
    std::size_t n;
    unsigned char lo = 0x80, hi = 0xBF; // the second byte's range
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        n = 2;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        n = 3;
        if (b0 == 0xE0) lo = 0xA0; // overlong
        if (b0 == 0xED) hi = 0x9F; // surrogates
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        n = 4;
        if (b0 == 0xF0) lo = 0x90; // overlong
        if (b0 == 0xF4) hi = 0x8F; // beyond U+10FFFF
    } else {
        return kBroken;
    }
    if (i + n > s.size()) return kBroken;
    const auto b1 = static_cast<unsigned char>(s[i + 1]);
    if (b1 < lo || b1 > hi) return kBroken;
    char32_t cp = b0 & (0x7F >> n);
    for (std::size_t k = 1; k < n; ++k) {
        const auto b = static_cast<unsigned char>(s[i + k]);
        if ((b & 0xC0) != 0x80) return kBroken;
        cp = (cp << 6) | (b & 0x3F);
    }
    return {cp, n, true};
}

} // namespace quillon
