// Both workbooks of the summary window read back, their entries and failures, and the print
// preview request of 打印.
#include <gtest/gtest.h>

#include "base/vb_number.h"
#include "summary_rig.h"
#include "support/temp_dir.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

using xlsxread::ShownRow;

class SummaryWorkbook : public ::testing::Test {
protected:
    void SetUp() override {
        rig.Offices();
        rig.QuarterBills();
        rig.Open();
        rig.RunQuarter();
        rig.Forget();
    }
    frm预开票汇总表& W() { return *rig.window; }
    static std::string Today() { return Format(DateTime::Today(), "yyyymmdd"); }
    SummaryRig rig;
    TempDir dir;
};

TEST_F(SummaryWorkbook, SummarySheetRowsFillsAndFormats) {
    W().MSFlexGrid1.ClickCell(6, 1); // the mark on 南区's 小计 goes with the sheet
    rig.dialogs.QueueSaveFileName(dir.File("汇总.xls"));
    W().Command1_1.Click();
    ASSERT_EQ(rig.Messages(), (Lines{"预开票汇总表导出成功!"}));
    ASSERT_EQ(rig.Saves().size(), 1u);
    EXPECT_EQ(rig.Saves()[0].FileName, "预开票汇总表_" + Today());
    EXPECT_EQ(rig.Saves()[0].Filter, "电子表|*.xls;*.xlsx");
    EXPECT_EQ(W().ProgressBar1.Max(), 12);
    EXPECT_FALSE(W().ProgressBar1.Visible());
    EXPECT_TRUE(W().Command1_0.Visible() && W().Command1_1.Visible() && W().Command1_2.Visible() &&
                W().Command1_3.Visible());

    const auto book = xlsxread::ReadXlsx(dir.File("汇总.xlsx"));
    const auto& sheet = book.First();
    // The file holds a carriage return in Excel's escaped form, which Excel reads back as one.
    const std::string south = "南区_x000D_\n二期";
    const std::vector<Lines> rows = {
        {"预 开 票 汇 总 表", "", "", "", "", "", ""},
        {"", "", "", "", "", "", ""},
        {" 开票日期: 2024-01-01 至 2024-03-31", "", "", "", "", "", ""},
        {"序  ", "管理项目名称      ", "收费项目      ", "金额        ", "税额        ", "收入        ",
         "操作 "},
        {"#0", "西区", "", "", "", "", ""},
        {"#1", "小计", "", "#0", "#0", "#0", "明细"},
        {"#3", south, "水费", "#25.5", "#1.5", "#24", "明细"},
        {"#4", south, "物业费", "#-25.5", "#-1.5", "#-24", "明细"},
        {"#4", south, "", "", "", "", ""},
        {"#5", "小计", "", "#0", "#0", "#0", "明细"},
        {"#7", "北区", "水费", "#50", "#0", "#50", "明细"},
        {"#8", "北区", "停车费", "", "", "", "明细"},
        {"#9", "北区", "物业费", "#318", "#18", "#300", "明细"},
        {"#9", "小计", "", "#368", "#18", "#350", "明细"},
        {"#10", "合计", "", "#368", "#18", "#350", ""},
        {"", "", "", "", "", "", ""},
    };
    for (int r = 1; r <= 16; ++r)
        EXPECT_EQ(ShownRow(sheet, r, 8),
                  [&] {
                      Lines l = rows[r - 1];
                      l.push_back("");
                      return l;
                  }())
            << "row " << r << ": column 8 stays out";
    const std::vector<xlsxread::Area> merges = {{1, 1, 1, 7}, {3, 1, 3, 4}};
    EXPECT_EQ(sheet.merges, merges);

    struct FormatCase {
        const char* why;
        int row, col;
        const char* numberFormat;
        const char* horizontal;
        const char* fill;
        double size;
        bool bold;
        const char* border;
    };
    const FormatCase formats[] = {
        {"title", 1, 1, "General", "center", "", 0, true, ""},
        {"date line", 3, 1, "General", "", "", 9, false, ""},
        {"heads", 4, 3, "General", "center", "FFC0C0FF", 9, false, "thin"},
        {"amount", 11, 4, "#0.00", "right", "", 9, false, "thin"},
        {"empty 税额: unformatted, with its border", 12, 5, "General", "", "", 9, false, "thin"},
        {"name", 11, 2, "General", "", "", 9, false, "thin"},
        {"小计 in its own colour", 14, 1, "General", "", "FFC0FFFF", 9, false, "thin"},
        {"小计 the user marked: the mark's colour", 10, 7, "General", "", "FFE0E0E0", 9, false, "thin"},
        {"合计", 15, 4, "#0.00", "right", "FFC0C0FF", 9, false, "thin"},
        {"row under the table: font, no border", 16, 1, "General", "", "", 9, false, ""},
    };
    for (const auto& c : formats) {
        SCOPED_TRACE(c.why);
        const auto f = sheet.FormatAt(c.row, c.col);
        EXPECT_EQ(f.numberFormat, c.numberFormat);
        EXPECT_EQ(f.horizontal, c.horizontal);
        EXPECT_EQ(f.fillColor, c.fill);
        if (c.size > 0) {
            EXPECT_EQ(f.fontSize, c.size);
        }
        EXPECT_EQ(f.fontName, "微软雅黑");
        EXPECT_EQ(f.bold, c.bold);
        EXPECT_EQ(f.borderLeft, c.border);
    }
}

TEST_F(SummaryWorkbook, SummaryFailuresReadAsACancel) {
    struct Case {
        const char* why;
        std::optional<std::string> name;
    };
    const Case cases[] = {
        {"cancelled dialog", std::nullopt},
        {"a name without a dot fails in the writer, which has no trap", "no-dot-name"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        rig.Forget();
        if (c.name)
            rig.dialogs.QueueSaveFileName(dir.File(*c.name));
        else
            rig.dialogs.QueueSaveCancel();
        W().Command1_1.Click();
        EXPECT_EQ(rig.Messages(), (Lines{"您取消了导出操作！"}));
        EXPECT_TRUE(W().Command1_0.Visible() && W().Command1_3.Visible());
    }
    EXPECT_TRUE(std::filesystem::is_empty(dir.Path()));
}

TEST_F(SummaryWorkbook, DetailSheetKeepsInvoiceNumbersAsTextAndPrintsTheHiddenDates) {
    W().MSFlexGrid1.ClickCell(10, 6); // 小计 of 北区
    rig.Forget();
    rig.dialogs.QueueSaveFileName(dir.File("明细.xlsx"));
    W().Command4.Click();
    ASSERT_EQ(rig.Messages(), (Lines{"预开票汇总明细表导出成功!"}));
    EXPECT_EQ(rig.Saves()[0].FileName, "预开票明细_北区_" + Today()) << "no item on a 小计 row";
    EXPECT_EQ(W().ProgressBar2.Max(), 7);
    EXPECT_TRUE(W().Command3.Visible() && W().Command4.Visible());

    const auto book = xlsxread::ReadXlsx(dir.File("明细.xlsx"));
    const auto& sheet = book.First();
    const int n = 13;
    EXPECT_EQ(ShownRow(sheet, 1, 1), (Lines{"预开票汇总明细表"}));
    EXPECT_EQ(ShownRow(sheet, 2, 1), (Lines{" 管 理 处: 北区"}));
    EXPECT_EQ(ShownRow(sheet, 3, 1), (Lines{" 开票日期: 2009-03-30 至 2009-03-30"}));
    EXPECT_EQ(ShownRow(sheet, 4, 3), (Lines{"序    ", "票据簿编号", "票据号码  "}));
    EXPECT_EQ(ShownRow(sheet, 6, n + 1),
              (Lines{"#2", "L1", "000123", "张三", "物业费", "[202401],[202402],[202403]", "#106", "#6",
                     "#100", "", "收款员", "开票员", "#45301", ""}));
    EXPECT_EQ(ShownRow(sheet, 8, 10),
              (Lines{"#4", "L1", "000125", "付款人", "物业费", "[202403]", "#212", "#12", "#200", "#45384"}));
    EXPECT_EQ(ShownRow(sheet, 10, 9), (Lines{"", "合计", "", "", "", "", "#398", "#18", "#380"}));

    struct FormatCase {
        const char* why;
        int row, col;
        const char* numberFormat;
        const char* horizontal;
        const char* fill;
    };
    const FormatCase formats[] = {
        {"department line: left", 2, 1, "General", "left", ""},
        {"invoice number kept as text", 6, 3, "General", "", ""},
        {"amount", 6, 7, "#0.00", "right", ""},
        {"empty date: formatted all the same", 6, 10, "yyyy-mm-dd", "center", ""},
        {"invoice date", 6, 13, "yyyy-mm-dd", "center", ""},
        {"合计 filled", 10, 13, "yyyy-mm-dd", "center", "FFC0C0FF"},
    };
    for (const auto& c : formats) {
        SCOPED_TRACE(c.why);
        const auto f = sheet.FormatAt(c.row, c.col);
        EXPECT_EQ(f.numberFormat, c.numberFormat);
        EXPECT_EQ(f.horizontal, c.horizontal);
        EXPECT_EQ(f.fillColor, c.fill);
    }
    const xlsxread::Cell* number = sheet.Find(6, 3);
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->type, xlsxread::CellType::SharedString);
}

TEST_F(SummaryWorkbook, DetailFileNameOfAnItemRowAndTheDetailWritersOwnTrap) {
    W().MSFlexGrid1.ClickCell(9, 6); // 北区 物业费
    rig.Forget();
    rig.dialogs.QueueSaveFileName(dir.File("no-dot"));
    W().Command4.Click();
    EXPECT_EQ(rig.Saves()[0].FileName, "预开票明细_北区_物业费_" + Today());
    EXPECT_EQ(rig.Messages(), (Lines{"错误码: 5 错误描述: 无效的过程调用或参数"}));
    EXPECT_TRUE(W().Command3.Visible() && W().Command4.Visible());
}

TEST_F(SummaryWorkbook, EmptyDetailExportsNothing) {
    W().MSFlexGrid1.ClickCell(2, 6); // 西区 has no lines
    rig.Forget();
    W().Command4.Click();
    EXPECT_TRUE(rig.Saves().empty());
    EXPECT_TRUE(rig.Messages().empty());
}

TEST_F(SummaryWorkbook, PrintPreviewsTheSummaryUnderTheWorkbooksTitleAndDateLine) {
    W().Command1_3.Click();
    ASSERT_EQ(rig.dialogs.PrintJobs().size(), 1u);
    const PrintJob& job = rig.dialogs.PrintJobs()[0];
    EXPECT_EQ(job.title, "预 开 票 汇 总 表");
    EXPECT_EQ(job.subtitle, " 开票日期: 2024-01-01 至 2024-03-31");
    EXPECT_EQ(job.grid, &W().MSFlexGrid1);
}

} // namespace
} // namespace quillon
