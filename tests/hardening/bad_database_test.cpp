// The bad-input matrix, report windows: every report run as a user runs it on a billing database
// that lacks a table or a column, holds NULLs, text in money columns, quotes in codes, very long
// department names or garbage dates, or has lost its last pages. Each row: what the user sees,
// and that neither the database file nor its folder changed.
#include <gtest/gtest.h>

#include "base/date_time.h"
#include "base/vb_number.h"
#include "hardening/spoiled_databases.h"

namespace quillon {
namespace {

using R = Report;

// What the summary shows at the end of every run it finishes.
const std::string kSummaryDone = "[系统提示] 统计结束！";

struct Row {
    Report report;
    Seen seen;
};

// Runs every report of `rows` on the database: each user sees what the row says, and nothing
// was written.
void ExpectEachReport(const BillingCopy& db, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(ReportName(row.report));
        EXPECT_EQ(SeenOfRun(row.report, db.ConnectionText()), row.seen);
    }
    EXPECT_EQ(db.Changes(), "");
}

TEST(BadInput, IntactDatabase) {
    const BillingCopy db;
    ExpectEachReport(db, {{R::Recon, {}},
                          {R::ReconNew, {}},
                          {R::PreInvoice, {}},
                          {R::Parking, {}},
                          {R::Invoice, {}},
                          {R::Summary, {kSummaryDone}},
                          {R::SummaryDetail, {kSummaryDone}},
                          {R::DeptRate, {}}});
}

// The failed statement is shown as its routine's trap words it, or, where the routine traps
// nothing, as the run-time error report that ends the program.
TEST(BadInput, ATableOrAColumnMissing) {
    const std::string noRows = "[系统提示] 没有满足条件的开票数据,请重新设置条件!";
    const std::string noPreInvoiceRows = "[系统提示] 没有满足条件的预开票数据,请重新设置条件!";
    struct Case {
        Report report;
        const char* table;
        const char* column; // nullptr: the table is missing
        Seen seen;
    } cases[] = {
        {R::Recon, "票据开票数据", "税额", {"[运行时错误 -2147217900] 列名 '票据开票数据.税额' 无效。"}},
        {R::ReconNew,
         "票据开票数据",
         nullptr,
         {"[系统提示] -2147217900对象名 '票据开票数据' 无效。", "[运行时错误 9] 下标越界"}},
        {R::ReconNew, "票据", "收款日期", {"[运行时错误 -2147217900] 列名 '收款日期' 无效。"}},
        {R::PreInvoice,
         "SetupSFXM",
         nullptr,
         {"[系统提示] -2147217900对象名 'setupsfxm' 无效。", noPreInvoiceRows}},
        {R::PreInvoice, "票据", "预开", {"[系统提示] -2147217900列名 '预开' 无效。", noPreInvoiceRows}},
        {R::Parking,
         "收款方式列表",
         nullptr,
         {"[系统提示] 错误号: -2147217900错误描述: 对象名 '收款方式列表' 无效。"}},
        {R::Parking,
         "票据开票数据",
         "收费项目代号",
         {"[系统提示] -2147217900列名 '收费项目代号' 无效。", noRows}},
        {R::Invoice, "票据类型", nullptr, {"[运行时错误 -2147217900] 对象名 '票据类型' 无效。"}},
        {R::Invoice, "票据", "作废日期", {"[运行时错误 -2147217900] 列名 '作废日期' 无效。"}},
        {R::Summary, "设置管理处", nullptr, {"[运行时错误 -2147217900] 对象名 '设置管理处' 无效。"}},
        {R::Summary,
         "设置管理处",
         "终止日期",
         {"[运行时错误 -2147217900] 列名 '设置管理处.终止日期' 无效。"}},
        {R::SummaryDetail,
         "票据开票数据",
         "项目",
         {kSummaryDone, "[运行时错误 -2147217900] 列名 '票据开票数据.项目' 无效。"}},
        {R::DeptRate,
         "税控盘收费项目设置",
         nullptr,
         {"[运行时错误 -2147217900] 对象名 '税控盘收费项目设置' 无效。"}},
        // Every department looks ended: none is left to tick.
        {R::DeptRate, "上级部门new", "终止日期", {"[系统提示] 请至少勾选一个统计部门！"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.table) + "." + (c.column ? c.column : "*"));
        BillingCopy db;
        if (c.column)
            HideColumn(db, c.table, c.column);
        else
            HideTable(db, c.table);
        ExpectEachReport(db, {{c.report, c.seen}});
    }
}

// One NULL in every row of every table. NULL codes and dates match no criteria; a NULL item name
// leaves the detail statements a column without a name.
TEST(BadInput, NullInEveryColumn) {
    BillingCopy db;
    NullInEveryColumn(db);
    ExpectEachReport(db, {{R::Recon, {"[系统提示] 没有满足条件的开票数据,请重新设置条件!"}},
                          {R::ReconNew, {"[系统提示] 没有满足条件的开票数据,请重新设置条件!"}},
                          {R::PreInvoice, {"[系统提示] 没有满足条件的预开票数据,请重新设置条件!"}},
                          {R::Parking, {"[系统提示] 错误号: -2147217900错误描述: 'From' 附近有语法错误。"}},
                          {R::Invoice, {"[系统提示] 错误号: -2147217900错误描述: ',' 附近有语法错误。"}},
                          {R::Summary, {kSummaryDone}},
                          {R::SummaryDetail, {kSummaryDone}},
                          {R::DeptRate, {}}});
}

// Text in money columns reads as 0 where the reports read money loosely (Val); the invoice detail
// and the summary's drill-down convert strictly and stop with error 13.
TEST(BadInput, TextInMoneyColumns) {
    BillingCopy db;
    TextInMoneyColumns(db);
    ExpectEachReport(db, {{R::Recon, {}},
                          {R::ReconNew, {}},
                          {R::PreInvoice, {}},
                          {R::Parking, {}},
                          {R::Invoice, {"[系统提示] 错误号: 13错误描述: 类型不匹配"}},
                          {R::Summary, {kSummaryDone}},
                          {R::SummaryDetail, {kSummaryDone, "[运行时错误 13] 类型不匹配"}},
                          {R::DeptRate, {}}});
}

// Codes are spliced into the statements unescaped: a "'" breaks them. The reconciliation then
// meets its empty category list and ends with error 9.
TEST(BadInput, AQuoteInCodes) {
    BillingCopy db;
    QuoteInCodes(db);
    const std::string nearCode = "[系统提示] -2147217900'01' 附近有语法错误。";
    const std::string nearDate = "[运行时错误 -2147217900] '20240101' 附近有语法错误。";
    ExpectEachReport(db,
                     {{R::Recon, {nearCode, "[运行时错误 9] 下标越界"}},
                      {R::ReconNew, {nearCode, "[运行时错误 9] 下标越界"}},
                      {R::PreInvoice, {nearCode, "[系统提示] 没有满足条件的预开票数据,请重新设置条件!"}},
                      {R::Parking,
                       {"[系统提示] -2147217900字符串 ' group by  setupsfxm.税率,收费项目代号,xm,收费类别,"
                        "显示名称 order by 收费项目代号' 后的引号不完整。",
                        "[系统提示] 没有满足条件的开票数据,请重新设置条件!"}},
                      {R::Invoice, {nearDate}},
                      {R::Summary, {nearDate}},
                      {R::SummaryDetail, {nearDate}},
                      {R::DeptRate, {"[运行时错误 -2147217900] 字符串 '01''' 后的引号不完整。"}}});
}

// A code that closes its literal and writes: the guard refuses the statement before it is sent.
TEST(BadInput, AWriteHiddenInCodes) {
    BillingCopy db;
    WritingInCodes(db);
    const std::string refused =
        "本程序只读取数据库，语句被拒绝: 语句中有 delete，会写入数据库或开始第二条语句";
    const std::string trapped = "[系统提示] -2147217900" + refused;
    const std::string ended = "[运行时错误 -2147217900] " + refused;
    ExpectEachReport(db, {{R::Recon, {trapped, "[运行时错误 9] 下标越界"}},
                          {R::ReconNew, {trapped, "[运行时错误 9] 下标越界"}},
                          {R::PreInvoice, {trapped, "[系统提示] 没有满足条件的预开票数据,请重新设置条件!"}},
                          {R::Parking, {trapped, "[系统提示] 没有满足条件的开票数据,请重新设置条件!"}},
                          {R::Invoice, {ended}},
                          {R::Summary, {ended}},
                          {R::SummaryDetail, {ended}},
                          {R::DeptRate, {ended}}});
}

// The day an export is made, as the summary's workbook names carry it.
std::string DayText() {
    return Format(DateTime::Today(), "yyyymmdd");
}

// Names of 200 characters show and export like any other; no workbook's name carries them. The
// summary's names carry the day of the export ("{day}"): the day the run began, or the next one
// should it cross midnight.
TEST(BadInput, LongDepartmentNames) {
    BillingCopy db;
    LongDepartmentNames(db);
    struct Case {
        Report report;
        Seen seen;
        std::string file;
    } cases[] = {
        {R::Recon, {"[系统提示] 票据核对表导出成功！"}, "2024年度【天河花园管理处】票据核对表.xlsx"},
        {R::ReconNew, {"[系统提示] 票据核对表导出成功！"}, "2024年度【天河花园管理处】票据核对表.xlsx"},
        {R::PreInvoice,
         {"[系统提示] 增值税预开票明细表导出成功！"},
         "【天河花园管理处】增值税预开票明细表_20240101-20241231.xlsx"},
        {R::Parking,
         {"[系统提示] 停车费明细表导出成功！"},
         "【中心停车场管理处】停车费明细表_20240101-20241231.xlsx"},
        {R::Invoice,
         {"[系统提示] 增值税开票明细表导出成功！"},
         "【中心停车场管理处】增值税开票明细表_20240101-20241231.xlsx"},
        {R::Summary, {kSummaryDone, "[系统提示] 预开票汇总表导出成功!"}, "预开票汇总表_{day}.xlsx"},
        {R::SummaryDetail,
         {kSummaryDone, "[系统提示] 预开票汇总明细表导出成功!"},
         "预开票明细_天河花园管理处_物业管理费_{day}.xlsx"},
        {R::DeptRate, {"[系统提示] 汇总表导出成功！"}, "增值税开票统计汇总_20240101-20240101.xlsx"},
    };
    auto onDay = [](std::string file, const std::string& day) {
        if (const size_t at = file.find("{day}"); at != std::string::npos) file.replace(at, 5, day);
        return std::vector<std::string>{file};
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(ReportName(c.report));
        const TempDir out;
        const std::string day = DayText();
        UserSession user(db.ConnectionText());
        {
            ReportRun run(c.report, user);
            run.ExportProposed(out.Path().string());
        }
        EXPECT_EQ(user.seen, c.seen);
        const auto listing = FolderListing(out.Path().string());
        EXPECT_EQ(listing, onDay(c.file, listing == onDay(c.file, day) ? day : DayText()));
    }
    EXPECT_EQ(db.Changes(), "");
}

// Dates that are no dates match no period; departments whose end date is garbage count as ended.
TEST(BadInput, GarbageInDateColumns) {
    BillingCopy db;
    GarbageInDateColumns(db);
    ExpectEachReport(db, {{R::Recon, {}},
                          {R::ReconNew, {}},
                          {R::PreInvoice, {}},
                          {R::Parking, {}},
                          {R::Invoice, {}},
                          {R::Summary, {kSummaryDone}},
                          {R::SummaryDetail, {kSummaryDone}},
                          {R::DeptRate, {"[系统提示] 请至少勾选一个统计部门！"}}});
}

} // namespace
} // namespace quillon
