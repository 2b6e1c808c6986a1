// utf8.h — base layer: reading UTF-8 text one character at a time, strictly (no overlong forms,
// no surrogates, nothing past U+10FFFF), for the code that must tell a broken byte from a letter.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillon {

struct Utf8Char {
    char32_t codePoint; // U+FFFD for a broken sequence
    std::size_t length; // bytes taken: the sequence's, or 1 for a broken byte
    bool valid;
};

// The character that starts at byte i of s (i < s.size()).
Utf8Char Utf8At(std::string_view s, std::size_t i);

} // namespace quillon
