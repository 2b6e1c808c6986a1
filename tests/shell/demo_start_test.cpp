// The demo run: its database is made once, and the ordinary start-up opens it.
#include "shell/demo_start.h"

#include <gtest/gtest.h>

#include <fstream>

#include "controls/scripted_dialogs.h"
#include "db/recordset.h"
#include "shell/startup.h"

namespace quillon {
namespace {

class TempRoot {
public:
    TempRoot() {
        path_ = std::filesystem::temp_directory_path() /
                ("quillon-demo-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
    }
    ~TempRoot() { std::filesystem::remove_all(path_); }
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

// No settings at all, as on a fresh machine.
class EmptyStore : public SettingsStore {
public:
    std::string GetSetting(std::string_view, std::string_view, std::string_view,
                           std::string_view defaultValue) const override {
        return std::string(defaultValue);
    }
};

TEST(DemoStart, DatabaseIsMadeOnceInTheDataFolder) {
    TempRoot root;
    const auto path = DemoDatabasePath(root.Path());
    EXPECT_EQ(path, root.Path() / "Quillon" / "demo.db");
    DemoOptions small;
    small.invoices = 100;
    EXPECT_TRUE(EnsureDemoDatabase(path, small));
    ASSERT_TRUE(std::filesystem::exists(path));
    EXPECT_FALSE(std::filesystem::exists(path.string() + ".part"));
    const auto size = std::filesystem::file_size(path);
    std::ofstream(path, std::ios::app) << "kept";
    EXPECT_FALSE(EnsureDemoDatabase(path, small)) << "an existing file is reused";
    EXPECT_EQ(std::filesystem::file_size(path), size + 4);
}

TEST(DemoStart, StartUpOpensTheDemoDatabaseWithoutAnySettings) {
    TempRoot root;
    const auto path = DemoDatabasePath(root.Path());
    DemoOptions small;
    small.invoices = 100;
    EnsureDemoDatabase(path, small);
    EmptyStore real;
    OverlaySettingsStore settings(real);
    PointSettingsAtDemo(settings, path);
    AppSession session;
    ScriptedDialogs dialogs;
    bool shown = false;
    EXPECT_TRUE(Main(session, dialogs, settings, [&] { shown = true; }));
    EXPECT_TRUE(shown);
    EXPECT_TRUE(dialogs.Messages().empty());
    EXPECT_EQ(session.ConnectionText, "Provider=SQLite;Password=;Persist Security Info=False;User ID=;"
                                      "Initial Catalog='';Data Source='" +
                                          path.string() + "'");
    Recordset rs = session.DbConnection->OpenRecordset("SELECT COUNT(*) AS n FROM 票据");
    ASSERT_FALSE(rs.Eof());
    EXPECT_GE(rs.Fields("n").Value().AsNumber(), 100) << "the demo's invoices are there";
}

} // namespace
} // namespace quillon
