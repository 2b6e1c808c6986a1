#include "shell/settings_overlay.h"

#include <utility>

namespace quillon {
namespace {

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

} // namespace

void OverlaySettingsStore::Set(std::string_view section, std::string_view key, std::string value) {
    values_[{FoldCase(section), FoldCase(key)}] = std::move(value);
}

std::string OverlaySettingsStore::GetSetting(std::string_view appName, std::string_view section,
                                             std::string_view key, std::string_view defaultValue) const {
    auto it = values_.find({FoldCase(section), FoldCase(key)});
    if (it != values_.end()) return it->second;
    return underlying_.GetSetting(appName, section, key, defaultValue);
}

} // namespace quillon
