// The bad-input matrix, exports: every report's workbook saved into a folder that does not
// exist, a folder no one may write in, onto a full disk, onto a name that is a folder. Each row:
// the message of each report's export, and that the database, an earlier workbook at the target
// and the target's folder stayed as they were, with no part of a file left behind.
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "hardening/user_runs.h"
#include "support/file_size_limit.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

// The message each report's export shows when its workbook cannot be saved at `shown`.
std::string SaveFailure(Report report, const std::string& shown) {
    switch (report) {
    case Report::Summary: // no trap of its own: the words of a cancelled export
        return "[系统提示] 您取消了导出操作！";
    case Report::SummaryDetail:
        return "[系统提示] 错误码: 1004 错误描述: 无法保存文件: " + shown;
    default:
        return "[系统提示] 错误号: 1004错误描述: 无法保存文件: " + shown;
    }
}

std::string Saved(Report report) {
    switch (report) {
    case Report::Recon:
    case Report::ReconNew:
        return "[系统提示] 票据核对表导出成功！";
    case Report::PreInvoice:
        return "[系统提示] 增值税预开票明细表导出成功！";
    case Report::Parking:
        return "[系统提示] 停车费明细表导出成功！";
    case Report::Invoice:
        return "[系统提示] 增值税开票明细表导出成功！";
    case Report::Summary:
        return "[系统提示] 预开票汇总表导出成功!";
    case Report::SummaryDetail:
        return "[系统提示] 预开票汇总明细表导出成功!";
    case Report::DeptRate:
        return "[系统提示] 汇总表导出成功！";
    }
    return "?";
}

// What the user saw of the export alone.
Seen SeenOfExport(UserSession& user, ReportRun& run, const std::string& path) {
    const size_t before = user.seen.size();
    run.Export(path);
    return Seen(user.seen.begin() + static_cast<long>(before), user.seen.end());
}

// Seen across a process boundary: a line each.
std::string Joined(const Seen& seen) {
    std::string text;
    for (const auto& s : seen) text += s + "\n";
    return text;
}
Seen Lines(const std::string& text) {
    Seen lines;
    for (size_t at = 0, nl; (nl = text.find('\n', at)) != std::string::npos; at = nl + 1)
        lines.push_back(text.substr(at, nl - at));
    return lines;
}

// The names in a folder that a save of 报表 or 满盘 could leave (the workbook, its partial file):
// /proc, the folder no one may write in, changes all the time otherwise.
std::vector<std::string> SaveFilesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& name : FolderListing(folder))
        if (name.find("报表") != std::string::npos || name.find("满盘") != std::string::npos)
            names.push_back(name);
    return names;
}

TEST(BadInput, ExportDestinations) {
    const BillingCopy db;
    const TempDir dir;
    fs::create_directory(dir.Path() / "报表.xlsx");
    // Root writes in any folder whatever its mode; no one creates a file in /proc.
    const bool root = geteuid() == 0;
    const TempDir locked;
    if (!root) fs::permissions(locked.Path(), fs::perms::owner_read | fs::perms::owner_exec);
    const std::string lockedFolder = root ? "/proc" : locked.Path().string();
    struct Case {
        const char* why;
        std::string path;     // answered in the save dialog
        std::string shown;    // the workbook's path as the message names it
        std::string folder;   // where no file of the save may be left
        rlim_t fileSize;      // RLIM_INFINITY, or the size a file may reach (a full disk)
        bool earlierWorkbook; // a good workbook stands at the target first
    } cases[] = {
        {"a folder that does not exist", dir.File("没有的文件夹/报表.xlsx"),
         dir.File("没有的文件夹/报表.xlsx"), dir.Path().string(), RLIM_INFINITY, false},
        {"a folder no one may write in", lockedFolder + "/报表.xlsx", lockedFolder + "/报表.xlsx",
         lockedFolder, RLIM_INFINITY, false},
        {"a full disk", dir.File("满盘.xlsx"), dir.File("满盘.xlsx"), dir.Path().string(), 2048, true},
        {"a name that is a folder", dir.File("报表.xlsx"), dir.File("报表.xlsx"), dir.Path().string(),
         RLIM_INFINITY, false},
    };
    for (Report report : kAllReports) {
        SCOPED_TRACE(ReportName(report));
        UserSession user(db.ConnectionText());
        ReportRun run(report, user);
        ASSERT_FALSE(user.Ended()) << Joined(user.seen);
        for (const auto& c : cases) {
            SCOPED_TRACE(c.why);
            if (c.earlierWorkbook) {
                ASSERT_EQ(SeenOfExport(user, run, c.path), Seen{Saved(report)});
            }
            const std::string earlier = FileBytes(c.shown);
            const auto listing = SaveFilesIn(c.folder);
            Seen seen;
            if (c.fileSize == RLIM_INFINITY)
                seen = SeenOfExport(user, run, c.path);
            else
                seen = Lines(RunWithFileSizeLimit(c.fileSize,
                                                  [&] { return Joined(SeenOfExport(user, run, c.path)); }));
            EXPECT_EQ(seen, Seen{SaveFailure(report, c.shown)});
            EXPECT_EQ(FileBytes(c.shown), earlier);
            EXPECT_EQ(SaveFilesIn(c.folder), listing);
        }
        EXPECT_FALSE(user.Ended());
    }
    EXPECT_TRUE(fs::is_directory(dir.Path() / "报表.xlsx"));
    EXPECT_EQ(db.Changes(), "");
    if (!root) fs::permissions(locked.Path(), fs::perms::owner_all);
}

} // namespace
} // namespace quillon
