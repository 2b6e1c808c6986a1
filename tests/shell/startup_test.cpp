// Start-up: the settings store, the exact connection text, and both ends of Main.
#include "shell/startup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "controls/scripted_dialogs.h"
#include "support/temp_dir.h"
#include "support/test_billing_db.h"

namespace quillon {
namespace {

// A settings folder of its own, with the program's INI file written as deployment would.
struct TempSettings {
    TempDir root;
    explicit TempSettings(const std::string& ini) {
        std::filesystem::create_directories(root.Path() / "Quillon");
        if (!ini.empty()) std::ofstream(root.Path() / "Quillon" / "Quillon.ini", std::ios::binary) << ini;
    }
    IniSettingsStore Store() const { return IniSettingsStore(root.Path()); }
};

TEST(Settings, ValuesBySectionAndNameWithDefaults) {
    TempSettings settings("\xEF\xBB\xBF; deployed\n[DBConfig]\r\nSvr = host,1433 \r\nuid=sa\nPWD=\n"
                          "[CompanyName]\nName=某某物业\nSvr=elsewhere\n");
    auto store = settings.Store();
    struct Case {
        const char* section;
        const char* key;
        const char* fallback;
        const char* value;
    } cases[] = {
        {"DBConfig", "Svr", "", "host,1433"},
        {"dbconfig", "UID", "", "sa"},
        {"DBConfig", "PWD", "x", ""},
        {"DBConfig", "DBname", "none", "none"},
        {"CompanyName", "Name", "", "某某物业"},
        {"CompanyName", "Name_ENG", "dflt", "dflt"},
        {"Missing", "Svr", "d", "d"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.section) + "/" + c.key);
        EXPECT_EQ(store.GetSetting("Quillon", c.section, c.key, c.fallback), c.value);
    }
    EXPECT_EQ(store.GetSetting("Other", "DBConfig", "Svr", "absent"), "absent");
}

// A settings file saved by a Chinese Windows editor is GBK; bytes that are neither UTF-8 nor GBK
// still arrive as UTF-8, each shown as U+FFFD.
TEST(Settings, TextInGbkOrBrokenArrivesAsUtf8) {
    struct Case {
        const char* why;
        std::string file;
        const char* name;
    } cases[] = {
        {"UTF-8 as it stands", "[CompanyName]\nName=某某物业\n", "某某物业"},
        {"GBK", "[CompanyName]\nName=\xC4\xB3\xC4\xB3\xCE\xEF\xD2\xB5\n", "某某物业"},
        {"neither",
         "[CompanyName]\nName=a\xFF\x80"
         "b\n",
         "a\uFFFD\uFFFDb"},
        {"a line with no name is no value", "[CompanyName]\n=x\nName=y\n", "y"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        TempSettings settings(c.file);
        EXPECT_EQ(settings.Store().GetSetting("Quillon", "CompanyName", "Name", "?"), c.name);
        EXPECT_EQ(ParseIniSection(c.file, "CompanyName").count(""), 0u);
    }
}

TEST(Startup, ConnectionTextIsBuiltExactlyAndUnescaped) {
    EXPECT_EQ(
        BuildConnectionText("SQLOLEDB.1", "sa", "p;w", "物业'库", "srv"),
        "Provider=SQLOLEDB.1;Password=p;w;Persist Security Info=False;User ID=sa;Initial Catalog='物业'库';"
        "Data Source='srv'");
}

TEST(Startup, FailedOpenShowsBothBoxesAndNoMainWindow) {
    struct Case {
        const char* why;
        std::string ini;
        const char* firstMessageStart;
    } cases[] = {
        // FreeTDS has no server to reach: the driver's own words follow "错误信息：".
        {"empty settings store", "", "错误信息："},
        {"password with a semicolon breaks the text", "[DBConfig]\nPWD=ab;cd\nSvr=x\n",
         "错误信息：连接字符串格式不正确"},
        {"database name with a quote", "[DBConfig]\nDBname=a'b\n", "错误信息：连接字符串格式不正确"},
        {"missing SQLite file", "[DBConfig]\nProvider=SQLite\nSvr=/nonexistent/x.db\n", "错误信息：[SQLite]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        TempSettings settings(c.ini);
        AppSession session;
        ScriptedDialogs dialogs;
        bool shown = false;
        EXPECT_FALSE(Main(session, dialogs, settings.Store(), [&] { shown = true; }));
        EXPECT_FALSE(shown);
        ASSERT_EQ(dialogs.Messages().size(), 2u);
        EXPECT_EQ(dialogs.Messages()[0].Title, "信息文本");
        EXPECT_EQ(dialogs.Messages()[0].Text.rfind(c.firstMessageStart, 0), 0u) << dialogs.Messages()[0].Text;
        EXPECT_EQ(dialogs.Messages()[1].Text, "数据库连接失败!");
        EXPECT_EQ(dialogs.Messages()[1].Title, "连接提示");
        EXPECT_EQ(dialogs.Messages()[1].Flags, vbInformation);
    }
}

TEST(Startup, OpensTheSqliteFileAndShowsTheMainWindow) {
    TestBillingDb db;
    db.Department("01", "总部");
    TempSettings settings("[DBConfig]\nProvider=SQLite\nSvr=" + db.Path() +
                          "\nUID=u\nPWD=p\nDBname=d\nEdition=2019\n[CompanyName]\nName=某某物业\n");
    AppSession session;
    ScriptedDialogs dialogs;
    bool shown = false;
    ASSERT_TRUE(Main(session, dialogs, settings.Store(), [&] { shown = true; }));
    EXPECT_TRUE(shown);
    EXPECT_TRUE(dialogs.Messages().empty());
    EXPECT_EQ(session.ConnectionText, "Provider=SQLite;Password=p;Persist Security Info=False;User ID=u;"
                                      "Initial Catalog='d';Data Source='" +
                                          db.Path() + "'");
    EXPECT_EQ(session.DbConnection->ConnectionTimeout, 30);
    EXPECT_EQ(session.EditionText, "2019");
    EXPECT_EQ(session.CompanyDisplayName, "某某物业");
    EXPECT_FALSE(session.CompanyDisplayNameEng.empty());
    auto rs = session.DbConnection->OpenRecordset("Select 职能部门名称 From 职能部门new");
    EXPECT_EQ(rs.Fields(0).Value().AsText(), "总部");
}

} // namespace
} // namespace quillon
