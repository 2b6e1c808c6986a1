// settings_overlay.h — shell layer: a settings store that answers a few values itself and asks
// the real store for the rest; the demo run uses it to point the start-up at its own database.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "shell/settings_store.h"

namespace quillon {

class OverlaySettingsStore final : public SettingsStore {
public:
    explicit OverlaySettingsStore(const SettingsStore& underlying) : underlying_(underlying) {}

    // Answers this value itself for every application; section and name match regardless of
    // Latin case, as the INI store matches them.
    void Set(std::string_view section, std::string_view key, std::string value);

    std::string GetSetting(std::string_view appName, std::string_view section, std::string_view key,
                           std::string_view defaultValue) const override;

private:
    const SettingsStore& underlying_;
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

} // namespace quillon
