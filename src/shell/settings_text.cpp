#include "shell/settings_text.h"

#include <iconv.h>

#include <cerrno>
#include <optional>

#include "base/utf8.h"

namespace quillon {
namespace {

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
        const Utf8Char c = Utf8At(bytes, i);
        if (!c.valid) return false;
        i += c.length;
    }
    return true;
}

std::string SettingsTextAsUtf8(std::string_view bytes) {
    if (IsValidUtf8(bytes)) return std::string(bytes);
    if (auto text = FromGb18030(bytes); text && IsValidUtf8(*text)) return *text;
    std::string out;
    for (size_t i = 0; i < bytes.size();) {
        const Utf8Char c = Utf8At(bytes, i);
        out.append(c.valid ? bytes.substr(i, c.length) : "\uFFFD");
        i += c.length;
    }
    return out;
}

} // namespace quillon
