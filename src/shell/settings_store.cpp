#include "shell/settings_store.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "db/text_fold.h"
#include "shell/settings_text.h"

namespace quillon {
namespace {

std::string_view Trim(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && (s[b] == ' ' || s[b] == '\t' || s[b] == '\r')) ++b;
    while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t' || s[e - 1] == '\r')) --e;
    return s.substr(b, e - b);
}

std::filesystem::path EnvOr(const char* var, const char* homeRelative) {
    if (const char* v = std::getenv(var); v && *v) return v;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home && *home ? home : ".") / homeRelative;
}

} // namespace

std::map<std::string, std::string> ParseIniSection(std::string_view bytes, std::string_view section) {
    std::map<std::string, std::string> values;
    const std::string utf8 = SettingsTextAsUtf8(bytes);
    std::string_view text = utf8;
    if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3); // a BOM left by a Windows editor
    bool inSection = false;
    while (!text.empty()) {
        size_t nl = text.find('\n');
        std::string_view line = Trim(text.substr(0, nl));
        text = nl == text.npos ? std::string_view{} : text.substr(nl + 1);
        if (line.empty() || line[0] == ';' || line[0] == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            inSection = EqualsIgnoreAsciiCase(Trim(line.substr(1, line.size() - 2)), section);
            continue;
        }
        size_t eq = line.find('=');
        if (!inSection || eq == line.npos) continue;
        std::string key = FoldedAscii(Trim(line.substr(0, eq)));
        if (key.empty()) continue;                                              // "=x" names no value
        values.emplace(std::move(key), std::string(Trim(line.substr(eq + 1)))); // first one wins
    }
    return values;
}

IniSettingsStore::IniSettingsStore(std::filesystem::path configRoot) : root_(std::move(configRoot)) {}

std::filesystem::path IniSettingsStore::FileFor(std::string_view appName) const {
    return root_ / std::string(appName) / (std::string(appName) + ".ini");
}

std::string IniSettingsStore::GetSetting(std::string_view appName, std::string_view section,
                                         std::string_view key, std::string_view defaultValue) const {
    std::ifstream in(FileFor(appName), std::ios::binary);
    if (!in) return std::string(defaultValue);
    std::stringstream text;
    text << in.rdbuf();
    auto values = ParseIniSection(text.str(), section);
    auto it = values.find(FoldedAscii(key));
    return it == values.end() ? std::string(defaultValue) : it->second;
}

std::filesystem::path UserConfigRoot() {
    return EnvOr("XDG_CONFIG_HOME", ".config");
}
std::filesystem::path UserDataRoot() {
    return EnvOr("XDG_DATA_HOME", ".local/share");
}

} // namespace quillon
