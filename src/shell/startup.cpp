#include "shell/startup.h"

#include "controls/dialogs.h"
#include "db/db_error.h"

namespace quillon {
namespace {

constexpr const char* kDefaultCompanyName = "物业管理有限公司";
constexpr const char* kDefaultCompanyNameEng = "Property Management Co., Ltd.";

std::string Setting(const SettingsStore& s, const char* section, const char* key, const char* fallback = "") {
    return s.GetSetting(kAppName, section, key, fallback);
}

} // namespace

std::string BuildConnectionText(const std::string& provider, const std::string& userId,
                                const std::string& password, const std::string& databaseName,
                                const std::string& server) {
    return "Provider=" + provider + ";Password=" + password +
           ";Persist Security Info=False;User ID=" + userId + ";Initial Catalog='" + databaseName +
           "';Data Source='" + server + "'";
}

bool OpenDatabaseConnection(AppSession& session, Dialogs& dialogs, const SettingsStore& settings,
                            const std::string& userId, const std::string& password,
                            const std::string& databaseName, const std::string& server) {
    try {
        session.DbConnection = std::make_unique<Connection>();
        // The two values beyond the old store: which engine, and which ODBC driver serves SQL Server.
        std::string provider = Setting(settings, "DBConfig", "Provider", "SQLOLEDB.1");
        session.DbConnection->OdbcDriver = Setting(settings, "DBConfig", "OdbcDriver", "FreeTDS");
        session.ConnectionText = BuildConnectionText(provider, userId, password, databaseName, server);
        session.DbConnection->ConnectionString = session.ConnectionText;
        session.DbConnection->ConnectionTimeout = 30;
        session.DbConnection->Open();
        return true;
    } catch (const VbError& e) {
        dialogs.MsgBox("错误信息：" + e.Description, "信息文本", vbInformation);
        return false;
    }
}

bool Main(AppSession& session, Dialogs& dialogs, const SettingsStore& settings,
          const std::function<void()>& showMainWindow) {
    session.CompanyDisplayName = Setting(settings, "CompanyName", "Name", kDefaultCompanyName);
    session.CompanyDisplayNameEng = Setting(settings, "CompanyName", "Name_ENG", kDefaultCompanyNameEng);
    session.EditionText = Setting(settings, "DBConfig", "Edition", "2000");
    std::string server = Setting(settings, "DBConfig", "Svr");
    std::string userId = Setting(settings, "DBConfig", "UID");
    std::string password = Setting(settings, "DBConfig", "PWD");
    std::string databaseName = Setting(settings, "DBConfig", "DBname");
    if (!OpenDatabaseConnection(session, dialogs, settings, userId, password, databaseName, server)) {
        dialogs.MsgBox("数据库连接失败!", "连接提示", vbInformation);
        return false;
    }
    showMainWindow();
    return true;
}

} // namespace quillon
