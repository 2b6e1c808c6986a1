// What every report window hands to print after a run on the demo data: its title, its period
// line and its result grid; a detail window's whole result while printing, its page afterwards.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "demo_reports.h"
#include "shell/about_window.h"

namespace quillon {
namespace {

struct PrintCase {
    const char* name;
    std::function<std::unique_ptr<Form>(DemoSession&)> run;
    const char* title; // empty: the window prints nothing
    const char* subtitle;
};

TEST(PrintableResult, EveryReportPrintsItsTitlePeriodAndGrid) {
    DemoSession s;
    const PrintCase cases[] = {
        {"recon", [](DemoSession& d) { return RunRecon<frm票据核对表>(d, "010101", "2024", "01", "12"); },
         "2024年度【天河花园管理处】票据核对表", "2024年 01月 至 12月"},
        {"deptrate", [](DemoSession& d) { return RunDeptRate(d, "2024-01-01", "2024-12-31"); },
         "增值税开票统计汇总", " 开票日期：2024-01-01 至 2024-12-31"},
        {"summary", [](DemoSession& d) { return RunSummary(d, "2024-01-01", "2024-12-31"); },
         "预 开 票 汇 总 表", " 开票日期: 2024-01-01 至 2024-12-31"},
        {"preinvoice", [](DemoSession& d) { return RunDetail<frm票据预开明细表New>(d, "010101"); },
         "【天河花园管理处】增值税预开票明细表", "开票日期范围: 2024-01-01 至 2024-12-31"},
        {"invoice", [](DemoSession& d) { return RunDetail<frm票据开票明细表New>(d, "0104"); },
         "【中心停车场管理处】增值税开票明细表", "开票日期范围: 2024-01-01 至 2024-12-31"},
        {"parking", [](DemoSession& d) { return RunDetail<frm停车费明细表New>(d, "0104"); },
         "【中心停车场管理处】停车费明细表", "收款日期范围: 2024-01-01 至 2024-12-31"},
        {"about",
         [](DemoSession& d) -> std::unique_ptr<Form> {
             static Form frame{"MDIForm1", "frame"}; // the About box's owner
             return std::make_unique<frmAbout>(d.session, d.dialogs, frame);
         },
         "", ""},
    };
    for (const PrintCase& c : cases) {
        SCOPED_TRACE(c.name);
        std::unique_ptr<Form> w = c.run(s);
        int calls = 0;
        PrintJob seen;
        const bool printed = w->PrintResult([&](const PrintJob& job) {
            ++calls;
            seen = job;
        });
        EXPECT_EQ(printed, *c.title != '\0');
        EXPECT_EQ(calls, printed ? 1 : 0);
        if (!printed) continue;
        EXPECT_EQ(seen.title, c.title);
        EXPECT_EQ(seen.subtitle, c.subtitle);
        auto* report = dynamic_cast<ReportForm*>(w.get());
        const FlexGrid* grid = report ? &report->MSFlexGrid1 : &static_cast<frm预开票汇总表&>(*w).MSFlexGrid1;
        EXPECT_EQ(seen.grid, grid);
        EXPECT_GT(grid->Rows(), 2) << "the run found nothing to print";
    }
}

// A detail window's grid holds one page; the print sees every page's rows, the user the page
// they were on.
TEST(PrintableResult, DetailPrintsEveryPageAndGivesTheCurrentPageBack) {
    DemoSession s;
    auto form = RunDetail<frm票据开票明细表New>(s, "0104");
    auto& w = static_cast<frm票据开票明细表New&>(*form);
    w.Pager.PageSize = 10;
    const int total = static_cast<int>(w.ResultRows->size()) - 1; // slot 0 is never used
    w.Pager.SetPageCount(total);
    ASSERT_GE(w.Pager.PageCount, 3);
    w.Pager.Image2_Click(2); // 下一页
    const int pageRows = w.MSFlexGrid1.Rows();
    const std::string firstOnPage = w.MSFlexGrid1.TextMatrix(2, 1);
    int printedRows = 0;
    w.PrintResult([&](const PrintJob& job) { printedRows = job.grid->Rows(); });
    EXPECT_EQ(printedRows, 2 + total);
    EXPECT_EQ(w.MSFlexGrid1.Rows(), pageRows);
    EXPECT_EQ(w.MSFlexGrid1.TextMatrix(2, 1), firstOnPage);
    EXPECT_EQ(w.Pager.CurrentPage, 2);
    EXPECT_EQ(w.Pager.PageSize, 10);
}

} // namespace
} // namespace quillon
