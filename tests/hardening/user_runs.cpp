#include "hardening/user_runs.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

#include "base/vb_error.h"
#include "db/connection.h"
#include "deptrate/deptrate_window.h"
#include "invoice/invoice_window.h"
#include "model/demo_database.h"
#include "model/department_catalog.h"
#include "parking/parking_window.h"
#include "preinvoice/preinvoice_window.h"
#include "reconciliation/recon_window.h"
#include "summary/summary_window.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

// The demo database every copy starts from, written once per test program.
const std::string& DemoDatabase() {
    static TempDir dir;
    static const std::string path = [] {
        const std::string file = dir.File("demo.db");
        WriteDemoDatabase(file, DemoOptions{.invoices = 600});
        return file;
    }();
    return path;
}

// A code as the rig looks for it: with any quote a spoiled database put into it left out.
std::string Unquoted(std::string code) {
    std::erase(code, '\'');
    return code;
}

// The list entry of the department (and office), else the first entry; -1 for an empty list.
int EntryOf(const ListBox& list, const std::string& dept, const std::optional<std::string>& office = {}) {
    for (int i = 0; i < list.ListCount(); ++i)
        if (Unquoted(DepartmentCodeOf(list.List(i))) == dept &&
            (!office || Unquoted(OfficeCodeOf(list.List(i))) == *office))
            return i;
    return list.ListCount() > 0 ? 0 : -1;
}

const DateTime kFrom{2024, 1, 1}, kTo{2024, 12, 31};

} // namespace

bool UserDialogs::AskSaveFileName(const CommonDialogState& state, std::string& path) {
    if (proposalFolder.empty()) return ScriptedDialogs::AskSaveFileName(state, path);
    path = proposalFolder + "/" + state.FileName + ".xlsx"; // the name typed on, with its type
    return true;
}

UserSession::UserSession(const std::string& connectionText) {
    dialogs.MessageShown.Connect(
        [this](const RecordedMessage& m) { seen.push_back("[" + m.Title + "] " + m.Text); });
    session.DbConnection = std::make_unique<Connection>();
    session.DbConnection->ConnectionString = connectionText;
    session.DbConnection->Open();
}

bool UserSession::Act(const std::function<void()>& action) {
    if (ended_) return false;
    try {
        action();
        return true;
    } catch (const RuntimeErrorRaised& e) {
        seen.push_back("[运行时错误 " + std::to_string(e.Number) + "] " + e.Description);
    } catch (const ProgramEnded&) {
        seen.push_back("[程序结束]");
    } catch (const VbError& e) { // what the skin does with a failure no handler trapped
        seen.push_back("[运行时错误 " + std::to_string(e.Number) + "] " + e.Description);
    }
    ended_ = true;
    return false;
}

const char* ReportName(Report report) {
    switch (report) {
    case Report::Recon:
        return "票据核对表";
    case Report::ReconNew:
        return "票据核对表New";
    case Report::PreInvoice:
        return "票据预开明细表New";
    case Report::Parking:
        return "停车费明细表New";
    case Report::Invoice:
        return "票据开票明细表New";
    case Report::Summary:
        return "预开票汇总表";
    case Report::SummaryDetail:
        return "预开票汇总表 明细";
    case Report::DeptRate:
        return "部门开票分税率统计表";
    }
    return "?";
}

// The window and its export button, whatever its class.
struct ReportRun::Window {
    std::unique_ptr<Form> form;
    CommandButton* exportButton = nullptr;
};

namespace {

template <typename W> void RunRecon(UserSession& u, W& w) {
    if (!u.Act([&] { w.Load(); })) return;
    u.Act([&] {
        w.Combo1.SetText("2024");
        w.Combo2.SetText("01");
        w.Combo3.SetText("12");
        w.List1.SetListIndex(EntryOf(w.List1, "010101", "1"));
        w.Command3.Click();
    });
}

template <typename W> void RunDetail(UserSession& u, W& w, const std::string& dept) {
    if (!u.Act([&] { w.Load(); })) return;
    u.Act([&] {
        w.List1.SetListIndex(EntryOf(w.List1, dept));
        w.DTPicker1_0.SetValue(kFrom);
        w.DTPicker1_1.SetValue(kTo);
        w.Command3.Click();
    });
    u.Act([&] { w.Command6.Click(); });
}

void RunSummary(UserSession& u, frm预开票汇总表& w, bool detail) {
    if (!u.Act([&] { w.Load(); })) return;
    u.Act([&] {
        w.Form_Activate();
        w.Check3.SetValue(1);
        w.DTPicker3.SetValue(kFrom);
        w.DTPicker4.SetValue(kTo);
        w.Command1_0.Click();
    });
    if (!detail) return;
    u.Act([&] {
        for (int r = 1; r < w.MSFlexGrid1.Rows(); ++r)
            if (w.MSFlexGrid1.TextMatrix(r, 6) == "明细") return w.MSFlexGrid1.ClickCell(r, 6);
    });
}

void RunDeptRate(UserSession& u, frm部门开票分税率统计表& w) {
    if (!u.Act([&] { w.Load(); })) return;
    u.Act([&] {
        w.Check1.SetValue(1);
        w.DTPicker1.SetValue(kFrom);
        w.DTPicker2.SetValue(kTo);
        w.Command3.Click();
    });
}

template <typename W> std::unique_ptr<W> Make(UserSession& u) {
    return std::make_unique<W>(u.session, u.dialogs);
}

} // namespace

ReportRun::ReportRun(Report report, UserSession& user) : user_(user), window_(std::make_unique<Window>()) {
    Window& win = *window_;
    switch (report) {
    case Report::Recon:
    case Report::ReconNew: {
        std::unique_ptr<ReconWindow> w;
        if (report == Report::Recon)
            w = Make<frm票据核对表>(user);
        else
            w = Make<frm票据核对表New>(user);
        RunRecon(user, *w);
        win.exportButton = &w->Command2;
        win.form = std::move(w);
        break;
    }
    case Report::PreInvoice: {
        auto w = Make<frm票据预开明细表New>(user);
        RunDetail(user, *w, "010101");
        win.exportButton = &w->Command2;
        win.form = std::move(w);
        break;
    }
    case Report::Parking: {
        auto w = Make<frm停车费明细表New>(user);
        RunDetail(user, *w, "0104");
        win.exportButton = &w->Command2;
        win.form = std::move(w);
        break;
    }
    case Report::Invoice: {
        auto w = Make<frm票据开票明细表New>(user);
        RunDetail(user, *w, "0104");
        win.exportButton = &w->Command2;
        win.form = std::move(w);
        break;
    }
    case Report::Summary:
    case Report::SummaryDetail: {
        auto w = Make<frm预开票汇总表>(user);
        RunSummary(user, *w, report == Report::SummaryDetail);
        win.exportButton = report == Report::Summary ? &w->Command1_1 : &w->Command4;
        win.form = std::move(w);
        break;
    }
    case Report::DeptRate: {
        auto w = Make<frm部门开票分税率统计表>(user);
        RunDeptRate(user, *w);
        win.exportButton = &w->Command2;
        win.form = std::move(w);
        break;
    }
    }
}

ReportRun::~ReportRun() = default;

void ReportRun::Export(const std::string& path) {
    user_.dialogs.QueueSaveFileName(path);
    user_.Act([&] { window_->exportButton->Click(); });
}

void ReportRun::ExportProposed(const std::string& folder) {
    user_.dialogs.proposalFolder = folder;
    user_.Act([&] { window_->exportButton->Click(); });
    user_.dialogs.proposalFolder.clear();
}

Seen SeenOfRun(Report report, const std::string& connectionText, const std::string& exportPath) {
    UserSession user(connectionText);
    ReportRun run(report, user);
    if (!exportPath.empty()) run.Export(exportPath);
    return user.seen;
}

BillingCopy::BillingCopy(const std::string& spoil) : BillingCopy(spoil, nullptr) {}

BillingCopy::BillingCopy(const std::string& spoil, const std::function<std::string(std::string)>& bytes)
    : path_(dir_.File("billing.db")) {
    fs::copy_file(DemoDatabase(), path_);
    if (!spoil.empty()) Spoil(spoil);
    if (bytes) {
        const std::string spoiled = bytes(FileBytes(path_));
        std::ofstream(path_, std::ios::binary | std::ios::trunc) << spoiled;
    }
    Seal();
}

namespace {

// Runs `sql` on the file, handing each row's first column to `row`; throws on failure.
void Exec(const std::string& path, const std::string& sql, const std::function<void(const char*)>& row = {}) {
    sqlite3* db = nullptr;
    char* error = nullptr;
    auto callback = [](void* f, int, char** values, char**) {
        const auto& each = *static_cast<const std::function<void(const char*)>*>(f);
        if (each) each(values[0] ? values[0] : "");
        return 0;
    };
    const bool ok = sqlite3_open(path.c_str(), &db) == SQLITE_OK &&
                    sqlite3_exec(db, sql.c_str(), callback,
                                 const_cast<std::function<void(const char*)>*>(&row), &error) == SQLITE_OK;
    const std::string why = error ? error : (db ? sqlite3_errmsg(db) : "no database");
    sqlite3_free(error);
    sqlite3_close(db);
    if (!ok) throw std::runtime_error(why + " in: " + sql);
}

} // namespace

void BillingCopy::Spoil(const std::string& sql) {
    Exec(path_, sql);
    Seal();
}

std::vector<std::string> BillingCopy::Query(const std::string& sql) const {
    std::vector<std::string> rows;
    Exec(path_, sql, [&](const char* value) { rows.emplace_back(value); });
    return rows;
}

void BillingCopy::Seal() {
    bytes_ = FileBytes(path_);
    listing_ = FolderListing(dir_.Path().string());
}

std::string BillingCopy::ConnectionText() const {
    return "Provider=SQLite;Data Source='" + path_ + "'";
}

std::string BillingCopy::Changes() const {
    std::string changes;
    if (FileBytes(path_) != bytes_) changes += "the database file changed; ";
    const auto now = FolderListing(dir_.Path().string());
    if (now != listing_) {
        changes += "its folder now holds:";
        for (const auto& name : now) changes += " " + name;
    }
    return changes;
}

std::string FileBytes(const std::string& path) {
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) return "";
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> FolderListing(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace quillon
