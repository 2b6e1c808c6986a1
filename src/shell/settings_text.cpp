#include "shell/settings_text.h"

#include <iconv.h>

#include <cerrno>
#include <optional>

namespace quillon {
namespace {

// Length of the well-formed UTF-8 sequence at s[i]; 0 when it is not one.
size_t Utf8SequenceAt(std::string_view s, size_t i) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    if (b0 < 0x80) return 1;
    size_t n;
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
        return 0;
    }
    if (i + n > s.size()) return 0;
    const auto b1 = static_cast<unsigned char>(s[i + 1]);
    if (b1 < lo || b1 > hi) return 0;
    for (size_t k = 2; k < n; ++k)
        if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return 0;
    return n;
}

std::optional<std::string> FromGb18030(std::string_view bytes) {
    iconv_t cd = iconv_open("UTF-8", "GB18030");
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
    std::string out(bytes.size() * 2 + 16, '\0'); // UTF-8 is at most half again as long
    char* in = const_cast<char*>(bytes.data());
    size_t inLeft = bytes.size();
    size_t done = 0;
    bool ok = true;
    while (inLeft > 0) {
        char* outPtr = out.data() + done;
        size_t outLeft = out.size() - done;
        const size_t rc = iconv(cd, &in, &inLeft, &outPtr, &outLeft);
        done = out.size() - outLeft;
        if (rc != static_cast<size_t>(-1)) break;
        if (errno != E2BIG) {
            ok = false;
            break;
        }
        out.resize(out.size() * 2);
    }
    iconv_close(cd);
    if (!ok) return std::nullopt;
    out.resize(done);
    return out;
}

} // namespace

bool IsValidUtf8(std::string_view bytes) {
    for (size_t i = 0; i < bytes.size();) {
        const size_t n = Utf8SequenceAt(bytes, i);
        if (n == 0) return false;
        i += n;
    }
    return true;
}

std::string SettingsTextAsUtf8(std::string_view bytes) {
    if (IsValidUtf8(bytes)) return std::string(bytes);
    if (auto text = FromGb18030(bytes); text && IsValidUtf8(*text)) return *text;
    std::string out;
    for (size_t i = 0; i < bytes.size();) {
        const size_t n = Utf8SequenceAt(bytes, i);
        if (n == 0) {
            out += "\xEF\xBF\xBD";
            ++i;
        } else {
            out.append(bytes.substr(i, n));
            i += n;
        }
    }
    return out;
}

} // namespace quillon
