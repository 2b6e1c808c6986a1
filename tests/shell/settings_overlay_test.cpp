// The demo run's settings: its own values first, the real store for everything else.
#include "shell/settings_overlay.h"

#include <gtest/gtest.h>

#include <map>

namespace quillon {
namespace {

// A store that tells which application asked, so the overlay's pass-through is visible.
class EchoStore : public SettingsStore {
public:
    std::string GetSetting(std::string_view appName, std::string_view section, std::string_view key,
                           std::string_view defaultValue) const override {
        if (section == "CompanyName" && key == "Name") return std::string(appName) + ":公司";
        return std::string(defaultValue);
    }
};

TEST(OverlaySettings, OwnValuesWinOthersPassThrough) {
    EchoStore real;
    OverlaySettingsStore overlay(real);
    overlay.Set("DBConfig", "Provider", "SQLite");
    overlay.Set("DBConfig", "Svr", "/data/demo.db");
    struct Case {
        const char* section;
        const char* key;
        const char* fallback;
        const char* value;
    } cases[] = {
        {"DBConfig", "Provider", "SQLOLEDB.1", "SQLite"},
        {"dbconfig", "SVR", "", "/data/demo.db"},
        {"DBConfig", "UID", "none", "none"},
        {"CompanyName", "Name", "", "Quillon:公司"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.section) + "/" + c.key);
        EXPECT_EQ(overlay.GetSetting("Quillon", c.section, c.key, c.fallback), c.value);
    }
}

} // namespace
} // namespace quillon
