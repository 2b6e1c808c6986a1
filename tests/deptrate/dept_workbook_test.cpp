// The department summary workbook, read back from the saved file.
#include <gtest/gtest.h>

#include <filesystem>

#include "deptrate_rig.h"
#include "support/temp_dir.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

using xlsxread::Area;
using xlsxread::ShownRow;

// 一区 with amounts at 1.5% and 6%, 二区 with none, 代收合计组 at 13%, over March 2024.
class DeptWorkbook : public ::testing::Test {
protected:
    void SetUp() override {
        rig.db.Department("0101", "一区").Department("0102", "二区").Department("0103", "代收合计组");
        rig.Rates({1.5, 6, 13});
        rig.Invoice("0101", "2024-03-05", 106.00, 6.00, 0.06)
            .Invoice("0101", "2024-03-06", 102.00, 2.00, 0.02)
            .Invoice("0103", "2024-03-07", 5.00, 5.00, 0.13);
        rig.Open();
        rig.Run({"0101", "0102", "0103"}, Day(2024, 3, 1), Day(2024, 3, 31));
    }

    DeptRateRig rig;
    TempDir dir;
};

TEST_F(DeptWorkbook, SheetCellsMergesFillsAndFonts) {
    rig.dialogs.QueueSaveFileName(dir.File("汇总.xls"));
    auto& w = *rig.window;
    w.Command2.Click();

    ASSERT_EQ(rig.MessageTexts(), Texts{"汇总表导出成功！"});
    ASSERT_EQ(rig.dialogs.SaveDialogs().size(), 1u);
    EXPECT_EQ(rig.dialogs.SaveDialogs()[0].FileName, "增值税开票统计汇总_20240301-20240301")
        << "the start date twice, as users have always had it";
    EXPECT_EQ(w.ProgressBar1.Max(), 5);
    EXPECT_FALSE(w.Label2.Visible());
    EXPECT_TRUE(w.Command1.Visible() && w.Command2.Visible() && w.Command3.Visible());
    EXPECT_TRUE(w.MSFlexGrid1.Visible());
    EXPECT_TRUE(w.MSFlexGrid1.Redraw());

    const auto book = xlsxread::ReadXlsx(dir.File("汇总.xlsx"));
    const auto& sheet = book.First();
    EXPECT_EQ(ShownRow(sheet, 1, 1), Texts{"增值税开票统计汇总表"});
    EXPECT_EQ(ShownRow(sheet, 3, 1), Texts{" 开票日期：2024-03-01 至 2024-03-31"})
        << "both dates in the period line";
    // Rows 4 and 5 are the header rows, merged; 6 to 9 the grid's rows, the 合计 row without ordinal.
    const std::vector<Texts> rows = {
        {"序", "开票部门", "1.5%税率", "", "", "6%税率", "", "", "13%税率", "", ""},
        {"", "", "含税金额", "税额", "不含税金额", "含税金额", "税额", "不含税金额", "含税金额", "税额",
         "不含税金额"},
        {"#1", "一区", "#102", "#2", "#100", "#106", "#6", "#100", "", "", ""},
        {"#2", "二区", "", "", "", "", "", "", "", "", ""},
        {"#3", "代收合计组", "", "", "", "", "", "", "#5", "#5", ""},
        {"", "合计", "#102", "#2", "#100", "#106", "#6", "#100", "#5", "#5", "#0"},
    };
    for (int r = 4; r <= 9; ++r) EXPECT_EQ(ShownRow(sheet, r, 11), rows[r - 4]) << "row " << r;

    // Empty amounts stay empty, yet get the number format and the right alignment.
    EXPECT_EQ(sheet.FormatAt(7, 3).numberFormat, "#0.00");
    EXPECT_EQ(sheet.FormatAt(7, 3).horizontal, "right");
    EXPECT_EQ(sheet.FormatAt(6, 2).numberFormat, "General") << "names and ordinals get no number format";

    const std::vector<Area> merges = {{1, 1, 1, 11}, {3, 1, 3, 4}, {4, 1, 5, 1}, {4, 2, 5, 2},
                                      {4, 3, 4, 5},  {4, 6, 4, 8}, {4, 9, 4, 11}};
    EXPECT_EQ(xlsxread::Sorted(sheet.merges), xlsxread::Sorted(merges));

    struct FormatCase {
        const char* why;
        int row, col;
        const char* fill;
        const char* font;
        double size;
        bool bold;
        const char* border;
        const char* horizontal;
    };
    const FormatCase formats[] = {
        {"title", 1, 1, "", "楷体_GB2312", 0, true, "", "center"},
        {"period line", 3, 1, "", "微软雅黑", 10, false, "", "left"},
        {"header", 4, 3, "FFC0C0FF", "微软雅黑", 10, false, "thin", "center"},
        {"data row", 6, 3, "", "微软雅黑", 10, false, "thin", "right"},
        {"a name holding 合计 is filled like the total", 8, 2, "FFC0C0FF", "微软雅黑", 10, false, "thin", ""},
        {"the total row to its last column", 9, 11, "FFC0C0FF", "微软雅黑", 10, false, "thin", "right"},
        {"the row under the total: font, no border", 10, 11, "", "微软雅黑", 10, false, "", ""},
    };
    for (const auto& c : formats) {
        SCOPED_TRACE(c.why);
        const auto f = sheet.FormatAt(c.row, c.col);
        EXPECT_EQ(f.fillColor, c.fill);
        EXPECT_EQ(f.fontName, c.font);
        if (c.size > 0) {
            EXPECT_EQ(f.fontSize, c.size);
        }
        EXPECT_EQ(f.bold, c.bold);
        EXPECT_EQ(f.borderLeft, c.border);
        EXPECT_EQ(f.borderBottom, c.border);
        EXPECT_EQ(f.horizontal, c.horizontal);
    }
    EXPECT_EQ(sheet.FormatAt(7, 2).fillColor, "") << "an ordinary department row is not filled";

    // Grid widths / 110 in Excel's unit, written with the file's 5-pixel padding in 1/256ths:
    // 500 → 4.545 → 5.28515625, 3000 → 27.27 → 28, 1300 → 11.82 → 12.5703125.
    EXPECT_EQ(sheet.columns.at(1).width, 5.28515625);
    EXPECT_EQ(sheet.columns.at(2).width, 28.0);
    EXPECT_EQ(sheet.columns.at(3).width, 12.5703125) << "the amount width, not the heading's three";
    EXPECT_EQ(sheet.columns.at(11).width, 12.5703125);
    EXPECT_EQ(sheet.columns.count(12), 0u) << "the grid's zero-width end column stays out";
}

TEST_F(DeptWorkbook, AFailedSaveShowsItsNumberAndPutsTheButtonsBack) {
    rig.dialogs.QueueSaveFileName(dir.File("无此目录/表.xlsx"));
    auto& w = *rig.window;
    w.Command2.Click();
    ASSERT_EQ(rig.dialogs.Messages().size(), 1u);
    EXPECT_EQ(rig.dialogs.Messages()[0].Text.rfind("错误号: 1004错误描述: ", 0), 0u) << rig.MessageTexts()[0];
    EXPECT_EQ(rig.dialogs.Messages()[0].Title, "系统提示");
    EXPECT_TRUE(w.Command1.Visible() && w.Command2.Visible() && w.Command3.Visible());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 0) << "no file written";
}

} // namespace
} // namespace quillon
