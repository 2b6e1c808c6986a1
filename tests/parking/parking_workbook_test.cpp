// The parking-fee detail workbook, read back from the saved file: every row of the run, each bill
// under "电子发票号", the closing rows filled, and the signature row.
#include <algorithm>

#include "parking_rig.h"
#include "support/temp_dir.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

using xlsxread::Area;
using xlsxread::ShownRow;

class ParkingWorkbook : public ParkingTest {
protected:
    void SetUp() override {
        ParkingTest::SetUp();
        AddParkingBook(db);
        frm停车费明细表New& w = Open();
        w.SetClientSize(kFrameClientWidth, 5460); // four rows a page: the export must not care
        Extract();
        Split("P2", "50", "50");
        w.Command6.Click();
        ASSERT_EQ(w.Pager.PageCount, 2);
    }
    TempDir dir;
};

TEST_F(ParkingWorkbook, CellsMergesFormatsAndFills) {
    frm停车费明细表New& w = *window;
    dialogs.QueueSaveFileName(dir.File("停车.xlsx"));
    w.Command2.Click();

    ASSERT_EQ(Messages(), Lines{"停车费明细表导出成功！"});
    ASSERT_EQ(dialogs.SaveDialogs().size(), 1u);
    EXPECT_EQ(dialogs.SaveDialogs()[0].FileName, "【中心停车场管理处】停车费明细表_20240301-20240331");
    EXPECT_EQ(w.ProgressBar1.Max(), 8) << "the last index of ResultRows, closing rows included";
    EXPECT_FALSE(w.Label2.Visible());
    EXPECT_TRUE(w.Command1.Visible() && w.Command2.Visible());

    const auto book = xlsxread::ReadXlsx(dir.File("停车.xlsx"));
    const auto& sheet = book.First();
    const int C = 10;
    const std::vector<Lines> rows = {
        {"【中心停车场管理处】停车费明细表", "", "", "", "", "", "", "", "", ""},
        {" 统计部门 : 0104 中心停车场管理处", "", "", "", "", "", "", "", "", ""},
        // the collection range under the invoicing label
        {" 开票日期 : 2024-03-01 至 2024-03-31", "", "", "", "", "", "", "", "", ""},
        {"序", "纸质或全电票", "电子发票号", "停车费月租", "", "", "临时停车费", "", "", "合计"},
        {"", "", "", "开发商70%", "物业30%", "税额9%", "开发商50%", "物业50%", "税额3%", ""},
        // paper and electronic rows alike in column 3
        {"#1", "", "101 - 105", "#245", "#105", "#31.5", "#0", "#0", "#0", "#381.5"},
        {"#2", "", "201", "#21", "#9", "#2.7", "#0", "#0", "#0", "#32.7"},
        {"#3", "", "202", "#14", "#6", "#1.8", "#0", "#0", "#0", "#21.8"},
        {"#4", "", "103 - 104", "#0", "#0", "#0", "#20", "#20.02", "#0", "#40.02"},
        {"#5", "合计", "", "", "", "", "", "", "", "#476.02"},
        {"#6", "其中", "", "", "", "", "", "", "现金", "#381.5"},
        {"#7", "", "", "", "", "", "", "", "微信支付", "#40.02"},
        {"#8", "", "", "", "", "", "", "", "支付宝", "#32.7"},
        {"收款人:", "经理:", "缴款人:", "", "总仓管理员:", "", "", "", "", ""},
    };
    for (int r = 1; r <= 14; ++r) EXPECT_EQ(ShownRow(sheet, r, C), rows[r - 1]) << "row " << r;
    EXPECT_EQ(sheet.Find(15, 1), nullptr);
    EXPECT_EQ(sheet.Find(6, 3)->type, xlsxread::CellType::SharedString) << "a bill number stays text";

    const std::vector<Area> merges = {{1, 1, 1, 10}, {2, 1, 2, 4}, {3, 1, 3, 4}, {4, 1, 5, 1},  {4, 2, 5, 2},
                                      {4, 3, 5, 3},  {4, 4, 4, 6}, {4, 7, 4, 9}, {4, 10, 5, 10}};
    EXPECT_EQ(xlsxread::Sorted(sheet.merges), xlsxread::Sorted(merges));

    struct FormatCase {
        const char* why;
        int row, col;
        const char* numberFormat;
        const char* horizontal;
        const char* fill;
        const char* border;
    };
    const FormatCase formats[] = {
        {"header", 4, 4, "General", "center", "FFC0C0FF", "thin"},
        {"ordinal", 6, 1, "General", "center", "", "thin"},
        {"bill range", 6, 3, "General", "center", "", "thin"},
        {"amount", 6, 4, "#0.00", "right", "", "thin"},
        {"row total", 9, 10, "#0.00", "right", "", "thin"},
        {"total row label", 10, 2, "General", "center", "FFC0C0FF", "thin"},
        {"total row, empty cell", 10, 5, "#0.00", "right", "FFC0C0FF", "thin"},
        {"breakdown mode", 11, 9, "#0.00", "right", "FFC0C0FF", "thin"},
        {"breakdown ordinal", 13, 1, "General", "center", "FFC0C0FF", "thin"},
        {"signature, no alignment", 14, 1, "General", "", "", ""},
        {"signature, centred", 14, 2, "General", "center", "", ""},
        {"signature, left", 14, 3, "General", "left", "", ""},
        {"signature, left", 14, 5, "General", "left", "", ""},
    };
    for (const auto& c : formats) {
        SCOPED_TRACE(c.why);
        const auto f = sheet.FormatAt(c.row, c.col);
        EXPECT_EQ(f.numberFormat, c.numberFormat);
        EXPECT_EQ(f.horizontal, c.horizontal);
        EXPECT_EQ(f.fillColor, c.fill);
        EXPECT_EQ(f.borderLeft, c.border);
        EXPECT_EQ(f.fontName, "微软雅黑") << "down to the signature row";
        EXPECT_EQ(f.fontSize, 9);
        EXPECT_FALSE(f.wrap);
    }
    EXPECT_TRUE(sheet.FormatAt(1, 1).bold);
    EXPECT_FALSE(sheet.rows.count(6) && sheet.rows.at(6).format && sheet.rows.at(6).format->wrap)
        << "no data row wraps";
}

} // namespace
} // namespace quillon
