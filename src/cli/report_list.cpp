#include "cli/report_list.h"

#include "cli/run_reports.h"

namespace quillon {

namespace {

constexpr const char* kRange = "--from YYYY-MM-DD --to YYYY-MM-DD";

constexpr const char* kDetailSynopsis =
    "--dept CODE [--office CODE] --from YYYY-MM-DD --to YYYY-MM-DD [--split ITEMCODE=DEV:PROP ...]";

std::vector<ReportCriterion> DetailCriteria() {
    return {
        {"--dept CODE", "the department entry of List1 whose code is CODE (e.g. 010101)"},
        {"--office CODE", "of that department's entries, the one whose office code in 【】 is CODE"},
        {"--from YYYY-MM-DD", "first day of the range (DTPicker1(0))"},
        {"--to YYYY-MM-DD", "last day of the range (DTPicker1(1))"},
        {"--split ITEMCODE=DEV:PROP",
         "after 提取收费项目, type DEV and PROP into the split table row of that charge item "
         "(repeatable)"},
    };
}

// The options every report takes besides its criteria.
constexpr const char* kCommonOptions =
    "database (without --db, the settings store, as the program starts):\n"
    "  --db FILE            an SQLite billing database, such as one written by demo-db\n"
    "  --config DIR         read DIR/Quillon/Quillon.ini instead of the user's settings file\n"
    "output:\n"
    "  --tsv FILE           the grid as TSV (default: standard output)\n"
    "  --xlsx FILE          the workbook, as 导出Excel saves it\n"
    "  --pdf FILE           the printed pages, as the print preview shows them\n"
    "  --sql-log FILE       every statement sent, one a line\n"
    "  --timings            where the run's time went, on stderr: the whole run, the database\n"
    "                       engine and its statements, filling the grid, the export\n";

constexpr const char* kExitStatus =
    "exit status: 0 when the run showed no message but the export's, 1 after any other message\n"
    "or error, 2 for a mistake on the command line\n";

} // namespace

const std::vector<ReportEntry>& ReportEntries() {
    static const std::vector<ReportEntry> entries = {
        {"parking", RunParkingReport, "停车费明细表 (frm停车费明细表New)", kDetailSynopsis, DetailCriteria(),
         "parking --db demo.db --dept 0104 --from 2025-01-01 --to 2025-12-31 --xlsx 停车费明细表.xlsx"},
        {"invoice", RunInvoiceReport, "增值税开票明细表 (frm票据开票明细表New)", kDetailSynopsis,
         DetailCriteria(),
         "invoice --db demo.db --dept 0104 --from 2025-01-01 --to 2025-12-31 --xlsx 开票明细表.xlsx"},
        {"preinvoice", RunPreInvoiceReport, "增值税预开明细表 (frm票据预开明细表New)", kDetailSynopsis,
         DetailCriteria(),
         "preinvoice --db demo.db --dept 010101 --from 2025-01-01 --to 2025-12-31 --split 005=60:40 "
         "--xlsx 预开明细表.xlsx"},
        {"recon",
         RunReconReport,
         "开票票据核对表 (frm票据核对表, or frm票据核对表New)",
         "--form 票据核对表|票据核对表New --dept CODE [--office CODE] --year YYYY --from MM --to MM",
         {
             {"--form 票据核对表|票据核对表New", "the window: the menu's, or the New form (a 收据 column)"},
             {"--dept CODE", "the department entry of List1 whose code is CODE (e.g. 010101)"},
             {"--office CODE", "of that department's entries, the one whose office code in 【】 is CODE"},
             {"--year YYYY", "the year (Combo1)"},
             {"--from MM", "first month, 01 to 12 (Combo2)"},
             {"--to MM", "last month (Combo3)"},
         },
         "recon --db demo.db --form 票据核对表 --dept 010101 --office 1 --year 2025 --from 01 --to 12 "
         "--xlsx 核对表.xlsx"},
        {"deptrate",
         RunDeptRateReport,
         "增值税开票统计汇总表 (frm部门开票分税率统计表)",
         "(--depts CODE[,CODE...] | --all) --start YYYY-MM-DD --end YYYY-MM-DD",
         {
             {"--depts CODE,...", "tick these departments in the tree, each on its own"},
             {"--all", "tick 全选 instead"},
             {"--start YYYY-MM-DD", "first day (DTPicker1)"},
             {"--end YYYY-MM-DD", "last day (DTPicker2)"},
         },
         "deptrate --db demo.db --all --start 2025-01-01 --end 2025-12-31 --xlsx 开票统计汇总表.xlsx"},
        {"summary",
         RunSummaryReport,
         "预开票汇总表 (frm预开票汇总表)",
         "(--offices CODE[,CODE...] | --all) --from YYYY-MM-DD --to YYYY-MM-DD [--detail ROW]",
         {
             {"--offices CODE,...", "select these offices in List2"},
             {"--all", "tick 全选 instead"},
             {"--from YYYY-MM-DD", "first day (DTPicker3)"},
             {"--to YYYY-MM-DD", "last day (DTPicker4)"},
             {"--detail ROW",
              "then click that grid row's 明细 and print (and save) the drill-down instead of the summary"},
         },
         "summary --db demo.db --all --from 2025-01-01 --to 2025-12-31 --xlsx 预开票汇总表.xlsx"},
    };
    return entries;
}

const ReportEntry* FindReport(std::string_view name) {
    for (const ReportEntry& entry : ReportEntries())
        if (name == entry.name) return &entry;
    return nullptr;
}

std::string ProgramUsage() {
    std::string text =
        "usage:\n"
        "  quillon-cli demo-db FILE [--invoices N] [--seed S] [--end-month YYYY-MM]\n"
        "                                                       write the demo billing database: two\n"
        "                                                       years to 2025-12, or to the month given\n"
        "  quillon-cli catalog --db FILE                        print the catalogues the windows load\n"
        "  quillon-cli start [--config DIR]                     start as the program does, from the\n"
        "                                                       settings store\n"
        "  quillon-cli run REPORT CRITERIA [--db FILE | --config DIR] [--tsv FILE] [--xlsx FILE]\n"
        "                  [--pdf FILE] [--sql-log FILE] [--timings]\n"
        "                                                       run a report window as a user would,\n"
        "                                                       print its grid as TSV, save its workbook,\n"
        "                                                       write its printed pages as PDF\n"
        "  quillon-cli run REPORT --help                        the report's criteria in full\n"
        "  quillon-cli --version\n"
        "\nreports:\n";
    for (const ReportEntry& report : ReportEntries()) {
        text += "  ";
        text += report.name;
        text += std::string(12 - std::string_view(report.name).size(), ' ');
        text += report.window;
        text += "\n      ";
        text += report.synopsis;
        text += "\n      e.g. quillon-cli run ";
        text += report.example;
        text += "\n";
    }
    return text;
}

std::string ReportUsage(const ReportEntry& report) {
    std::string text = "usage: quillon-cli run " + std::string(report.name) + " " + report.synopsis +
                       "\n        [--db FILE | --config DIR] [--tsv FILE] [--xlsx FILE] [--pdf FILE] "
                       "[--sql-log FILE]\n        [--timings]\n\n";
    text += "Runs " + std::string(report.window) +
            " as a user would:\nsets the criteria, clicks, prints the grid.\n";
    text += "\ncriteria:\n";
    for (const ReportCriterion& c : report.criteria) {
        std::string option = c.option;
        text += "  " + option;
        text += option.size() < 21 ? std::string(21 - option.size(), ' ') : "\n" + std::string(23, ' ');
        text += c.meaning;
        text += "\n";
    }
    text += "\n";
    text += kCommonOptions;
    text += "\nexample (on a demo database: quillon-cli demo-db demo.db):\n  quillon-cli run ";
    text += report.example;
    text += "\n\n";
    text += kExitStatus;
    return text;
}

} // namespace quillon
