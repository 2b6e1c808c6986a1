// settings_store.h — the per-user settings store, read only: text values addressed by
// application, section and value name, each with a default for when it is absent.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace quillon {

class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::string GetSetting(std::string_view appName, std::string_view section, std::string_view key,
                                   std::string_view defaultValue) const = 0;
};

// An INI file per application, "<config>/<appName>/<appName>.ini", with [Section] headers and
// key=value lines. The file is placed there by deployment; the program never writes it.
class IniSettingsStore final : public SettingsStore {
public:
    explicit IniSettingsStore(std::filesystem::path configRoot);

    std::string GetSetting(std::string_view appName, std::string_view section, std::string_view key,
                           std::string_view defaultValue) const override;

    std::filesystem::path FileFor(std::string_view appName) const;

private:
    std::filesystem::path root_;
};

// $XDG_CONFIG_HOME, else ~/.config.
std::filesystem::path UserConfigRoot();
// $XDG_DATA_HOME, else ~/.local/share.
std::filesystem::path UserDataRoot();

// Parses INI text as the file holds it (UTF-8, else GBK; see SettingsTextAsUtf8): section and
// key names match without regard to Latin case, values are taken as they stand after '=' with
// surrounding blanks removed (no quoting, no escapes).
std::map<std::string, std::string> ParseIniSection(std::string_view bytes, std::string_view section);

} // namespace quillon
