// The bad-input matrix, start-up: a database that is missing, no database or cut short, a
// settings file that is empty or in GBK, a server port that refuses or a server that never
// answers. Each row: what the user sees, and that nothing was written, neither beside the
// database nor beside the settings.

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "hardening/user_runs.h"
#include "shell/startup.h"
#include "support/local_port.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

// The settings folder of a deployment, holding Quillon/Quillon.ini with exactly these bytes.
class Deployment {
public:
    explicit Deployment(const std::string& iniBytes) {
        fs::create_directories(root_.Path() / "Quillon");
        std::ofstream(File(), std::ios::binary) << iniBytes;
        listing_ = FolderListing((root_.Path() / "Quillon").string());
    }
    std::string File() const { return (root_.Path() / "Quillon" / "Quillon.ini").string(); }
    IniSettingsStore Store() const { return IniSettingsStore(root_.Path()); }
    bool Untouched(const std::string& iniBytes) const {
        return FileBytes(File()) == iniBytes &&
               FolderListing((root_.Path() / "Quillon").string()) == listing_;
    }

private:
    TempDir root_;
    std::vector<std::string> listing_;
};

// What the user sees of a start with these settings; `shown` tells whether the main window came.
Seen SeenOfStart(const SettingsStore& store, bool& shown, AppSession& session) {
    ScriptedDialogs dialogs;
    Seen seen;
    dialogs.MessageShown.Connect(
        [&](const RecordedMessage& m) { seen.push_back("[" + m.Title + "] " + m.Text); });
    shown = false;
    Main(session, dialogs, store, [&] { shown = true; });
    return seen;
}

std::string CutInHalf(std::string bytes) {
    bytes.resize(bytes.size() / 2);
    return bytes;
}

constexpr const char* kFailed = "[连接提示] 数据库连接失败!";

TEST(BadInput, StartUp) {
    const BillingCopy good;
    const BillingCopy notADatabase("", [](std::string) { return std::string("票据,金额\n0001,100.00\n"); });
    const BillingCopy truncated("", CutInHalf);
    const TempDir empty;
    const std::string missing = (empty.Path() / "收费.db").string();
    const LocalPort closedPort(false);
    auto sqlite = [](const std::string& path) { return "[DBConfig]\nProvider=SQLite\nSvr=" + path + "\n"; };
    const std::string gbk = "[CompanyName]\nName=\xC4\xB3\xC4\xB3\xCE\xEF\xD2\xB5\n" // 某某物业
                            "[DBConfig]\nProvider=SQLite\nSvr=" +
                            good.Path() + "\n";
    struct Case {
        const char* why;
        std::string ini;
        const BillingCopy* db;
        Seen seen;
        bool mainWindow;
        const char* company = nullptr; // the company's name the About box shows, when it matters
    } cases[] = {
        {"a database file that is not there, and is not made",
         sqlite(missing),
         nullptr,
         {"[信息文本] 错误信息：[SQLite] 无法打开数据库 '" + missing + "': 无法打开数据库文件。", kFailed},
         false},
        {"a file that is no database",
         sqlite(notADatabase.Path()),
         &notADatabase,
         {"[信息文本] 错误信息：[SQLite] 无法打开数据库 '" + notADatabase.Path() + "': 文件不是数据库。",
          kFailed},
         false},
        {"a database cut in half",
         sqlite(truncated.Path()),
         &truncated,
         {"[信息文本] 错误信息：[SQLite] 无法打开数据库 '" + truncated.Path() + "': 数据库文件已损坏。",
          kFailed},
         false},
        {"an empty settings file: no server at all",
         "",
         nullptr,
         {"[信息文本] 错误信息：[FreeTDS][SQL Server]Could not find Servername or server parameter", kFailed},
         false},
        {"a settings file in GBK: read as such", gbk, &good, {}, true, "某某物业"},
        {"a server port that refuses",
         "[DBConfig]\nSvr=" + closedPort.DataSource() + "\nUID=sa\nPWD=x\nDBname=物业\n",
         nullptr,
         {"[信息文本] 错误信息：[FreeTDS][SQL Server]Unable to connect: Adaptive Server is unavailable or "
          "does not "
          "exist; [FreeTDS][SQL Server]Unable to connect to data source",
          kFailed},
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const Deployment deployment(c.ini);
        AppSession session;
        bool shown = false;
        EXPECT_EQ(SeenOfStart(deployment.Store(), shown, session), c.seen);
        EXPECT_EQ(shown, c.mainWindow);
        if (c.company) {
            EXPECT_EQ(session.CompanyDisplayName, c.company);
        }
        EXPECT_TRUE(deployment.Untouched(c.ini)) << "the settings or their folder changed";
        if (c.db) {
            EXPECT_EQ(c.db->Changes(), "");
        }
    }
    EXPECT_EQ(FolderListing(empty.Path().string()), std::vector<std::string>{}) << "a database was made";
}

// A server that takes the connection and never answers: the start gives up after the 30 seconds
// it allows, not sooner, and says so.
TEST(BadInput, StartUpOnASilentServer) {
    const LocalPort silent(true);
    const std::string ini = "[DBConfig]\nSvr=" + silent.DataSource() + "\nUID=sa\nPWD=x\nDBname=物业\n";
    const Deployment deployment(ini);
    AppSession session;
    bool shown = true;
    const auto start = std::chrono::steady_clock::now();
    const Seen seen = SeenOfStart(deployment.Store(), shown, session);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_EQ(
        seen,
        (Seen{"[信息文本] 错误信息：[FreeTDS][SQL Server]Timeout expired; [FreeTDS][SQL Server]Unable to "
              "connect to data source",
              kFailed}));
    EXPECT_FALSE(shown);
    EXPECT_GE(seconds, 29.5);
    EXPECT_LT(seconds, 40.0);
    EXPECT_TRUE(deployment.Untouched(ini));
}

} // namespace
} // namespace quillon
