// The demo run: its database is made once, its settings overlay the real store, and the
// ordinary start-up opens it.
#include "shell/demo_start.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>

#include "controls/scripted_dialogs.h"
#include "db/recordset.h"
#include "shell/settings_overlay.h"
#include "shell/startup.h"
#include "support/temp_dir.h"

namespace quillon {
namespace {

// A store with no settings but the company name, which tells which application asked, so the
// overlay's pass-through is visible.
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

TEST(DemoStart, DatabaseIsMadeOnceInTheDataFolderAndTheStartUpOpensIt) {
    TempDir root;
    const auto path = DemoDatabasePath(root.Path());
    EXPECT_EQ(path, root.Path() / "Quillon" / "demo.db");
    DemoOptions small;
    small.invoices = 100;
    EXPECT_TRUE(EnsureDemoDatabase(path, small));
    ASSERT_TRUE(std::filesystem::exists(path));
    EXPECT_FALSE(std::filesystem::exists(path.string() + ".part"));

    EchoStore real; // a fresh machine: no database settings at all
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

    const auto size = std::filesystem::file_size(path);
    std::ofstream(path, std::ios::app) << "kept";
    EXPECT_FALSE(EnsureDemoDatabase(path, small)) << "an existing file of this version is reused";
    EXPECT_EQ(std::filesystem::file_size(path), size + 4);

    // One written by an earlier build, and a file that is no database, are made anew.
    for (const char* stale : {"PRAGMA user_version = 1", ""}) {
        SCOPED_TRACE(stale);
        std::filesystem::remove(path);
        if (*stale) {
            sqlite3* db = nullptr;
            ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
            sqlite3_exec(db, stale, nullptr, nullptr, nullptr);
            sqlite3_close(db);
        } else {
            std::ofstream(path) << "not a database";
        }
        EXPECT_TRUE(EnsureDemoDatabase(path, small));
        EXPECT_EQ(ReadDemoDataVersion(path.string()), kDemoDataVersion);
    }
}

// The program's demo ends with the month it is started in: a demo of an earlier month is made
// anew, one of this month is reused.
TEST(DemoStart, TheDemoEndsThisMonthAndIsMadeAnewInTheNext) {
    const DemoOptions november = DemoEndingIn(DateTime{2026, 11, 24});
    EXPECT_EQ(november.lastYear, 2026);
    EXPECT_EQ(november.lastMonth, 11);
    EXPECT_EQ(november.invoices, DemoOptions{}.invoices) << "otherwise the demo the program always made";

    TempDir root;
    const auto path = DemoDatabasePath(root.Path());
    DemoOptions small = november;
    small.invoices = 100;
    EXPECT_TRUE(EnsureDemoDatabase(path, small));
    EXPECT_FALSE(EnsureDemoDatabase(path, small)) << "the same month: reused";
    EXPECT_EQ(ReadDemoLastMonth(path.string()), 202611);
    small.lastMonth = 12;
    EXPECT_TRUE(EnsureDemoDatabase(path, small)) << "a month later: made anew";
    EXPECT_EQ(ReadDemoLastMonth(path.string()), 202612);
}

} // namespace
} // namespace quillon
