// Any bytes as the settings file: the reader never fails, and every section it gives holds
// keys folded to lower case and values that are valid UTF-8, one line each, trimmed.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "shell/settings_store.h"
#include "shell/settings_text.h"

namespace {

[[noreturn]] void Fail(const char* why, const std::string& what) {
    std::fprintf(stderr, "%s: %s\n", why, what.c_str());
    std::abort();
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (!quillon::IsValidUtf8(quillon::SettingsTextAsUtf8(bytes))) Fail("text not made UTF-8", "");
    for (const char* section : {"DBConfig", "CompanyName", ""}) {
        for (const auto& [key, value] : quillon::ParseIniSection(bytes, section)) {
            for (char c : key)
                if (c >= 'A' && c <= 'Z') Fail("key not folded", key);
            if (key.empty() || IsBlank(key.front()) || IsBlank(key.back())) Fail("key not trimmed", key);
            if (!value.empty() && (IsBlank(value.front()) || IsBlank(value.back())))
                Fail("value not trimmed", value);
            if (value.find('\n') != std::string::npos) Fail("value runs over a line", value);
            if (!quillon::IsValidUtf8(value)) Fail("value not UTF-8", value);
        }
    }
    return 0;
}
