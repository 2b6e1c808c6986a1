// user_runs.h — test support of the bad-input matrix: every report window run as a user runs
// it, on a billing database file of the test's own, with what the user saw written down, and
// the proof that the run wrote nothing: the database file byte for byte, and its folder.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/scripted_dialogs.h"
#include "shell/app_session.h"
#include "support/temp_dir.h"

namespace quillon {

// What a user saw, in order: each box as "[title] text", a run-time error report as
// "[运行时错误 n] description" (the program ends after it).
using Seen = std::vector<std::string>;

// Scripted dialogs whose save dialog, once given a folder, takes the file name the window
// proposes in that folder with ".xlsx" typed on, as a user who keeps the name.
class UserDialogs : public ScriptedDialogs {
public:
    std::string proposalFolder;

protected:
    bool AskSaveFileName(const CommonDialogState& state, std::string& path) override;
};

// A session on one database and the dialogs the user answers. Act runs a user's action as the
// skin does: a failure no handler trapped becomes the run-time error report, and after that
// the program has ended and Act does nothing more. Any other exception fails the test.
class UserSession {
public:
    explicit UserSession(const std::string& connectionText);
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;

    bool Act(const std::function<void()>& action);
    bool Ended() const { return ended_; }

    AppSession session;
    UserDialogs dialogs;
    Seen seen;

private:
    bool ended_ = false;
};

// The report windows.
enum class Report { Recon, ReconNew, PreInvoice, Parking, Invoice, Summary, SummaryDetail, DeptRate };
inline constexpr Report kAllReports[] = {Report::Recon,         Report::ReconNew, Report::PreInvoice,
                                         Report::Parking,       Report::Invoice,  Report::Summary,
                                         Report::SummaryDetail, Report::DeptRate};
const char* ReportName(Report report);

// One window, opened from the menu and run over 2024 on the demo database's criteria (its first
// department where the one asked for is missing): Load, the criteria, the run (the detail
// windows' Command3 and Command6; the summary's drill-down for SummaryDetail).
class ReportRun {
public:
    ReportRun(Report report, UserSession& user);
    ~ReportRun();
    ReportRun(const ReportRun&) = delete;
    ReportRun& operator=(const ReportRun&) = delete;

    // Clicks the window's export button with the save dialog answering `path`.
    void Export(const std::string& path);
    // Clicks it with the save dialog taking the proposed file name in `folder`.
    void ExportProposed(const std::string& folder);

private:
    struct Window;
    UserSession& user_;
    std::unique_ptr<Window> window_;
};

// What a user sees of one report run on the database (and of its export when a path is given).
Seen SeenOfRun(Report report, const std::string& connectionText, const std::string& exportPath = "");

// A copy of the demo billing database in a folder of its own, spoiled before the test by
// statements run on it with write access, or by new bytes. Changes() tells what became different
// since then, in the file or in its folder.
class BillingCopy {
public:
    explicit BillingCopy(const std::string& spoil = "");
    // Replaces the file's bytes (a truncated database, a file that is no database).
    BillingCopy(const std::string& spoil, const std::function<std::string(std::string)>& bytes);

    // Runs statements on the copy with write access, each call on a connection of its own.
    void Spoil(const std::string& sql);
    // Runs a query on the copy and gives the first column of every row.
    std::vector<std::string> Query(const std::string& sql) const;

    const std::string& Path() const { return path_; }
    std::string ConnectionText() const;
    // Empty when nothing changed; else what did.
    std::string Changes() const;

private:
    void Seal();

    TempDir dir_;
    std::string path_;
    std::string bytes_;
    std::vector<std::string> listing_;
};

// The bytes of a file, "" when there is none (or it is a folder).
std::string FileBytes(const std::string& path);
// The names in a folder, sorted.
std::vector<std::string> FolderListing(const std::string& folder);

} // namespace quillon
