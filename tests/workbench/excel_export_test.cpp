// The export entry and the writer's frame shared by every report: dialog, buttons, progress,
// the file-name cut, the messages.
#include "workbench/excel_export.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/vb_error.h"
#include "controls/command_button.h"
#include "controls/dialogs.h"
#include "controls/flex_grid.h"
#include "controls/progress_bar.h"
#include "controls/scripted_dialogs.h"
#include "support/temp_dir.h"
#include "xlsx/worksheet.h"
#include "xlsxread/xlsx_reader.h"

namespace quillon {
namespace {

class ExportEntry : public ::testing::Test {
protected:
    void SetUp() override {
        grid.SetRows(2);
        bar.SetVisible(false);
    }
    ExportControls Controls() { return ExportControls{grid, dialog, bar, {&command1, &command2}}; }

    FlexGrid grid{"MSFlexGrid1"};
    CommonDialogState dialog;
    ProgressBar bar{"ProgressBar1"};
    CommandButton command1{"Command1"}, command2{"Command2"};
    ScriptedDialogs dialogs;
};

TEST_F(ExportEntry, HeaderRowsOnlyAskNothingAndCancelShowsOnlyItsMessage) {
    auto controls = Controls();
    const ExportRequest request{.defaultFileName = "2024年度【一区】票据核对表", .progressMax = 5};
    bool wrote = false;
    RunExportEntry(controls, dialogs, request, [&] { wrote = true; });
    EXPECT_TRUE(dialogs.SaveDialogs().empty()) << "a grid of its two header rows has nothing to export";
    EXPECT_FALSE(dialog.CancelError);

    grid.SetRows(5);
    dialogs.QueueSaveCancel();
    RunExportEntry(controls, dialogs, request, [&] { wrote = true; });
    EXPECT_FALSE(wrote);
    ASSERT_EQ(dialogs.Messages().size(), 1u);
    EXPECT_EQ(dialogs.Messages()[0].Text, "您取消了导出操作！");
    EXPECT_EQ(dialogs.Messages()[0].Title, "系统提示");
    EXPECT_EQ(dialogs.Messages()[0].Flags, vbInformation);
    EXPECT_TRUE(command1.Visible());
    EXPECT_TRUE(command2.Visible());
    EXPECT_FALSE(bar.Visible());
    ASSERT_EQ(dialogs.SaveDialogs().size(), 1u);
    EXPECT_TRUE(dialogs.SaveDialogs()[0].CancelError);
    EXPECT_EQ(dialogs.SaveDialogs()[0].FileName, "2024年度【一区】票据核对表");
    EXPECT_EQ(dialogs.SaveDialogs()[0].Filter, "电子表(.xlsx)|*.xlsx|电子表(.xls)|*.xls");
}

TEST_F(ExportEntry, TheWriterRunsWithButtonsHiddenAndTheBarShown) {
    grid.SetRows(7);
    dialogs.QueueSaveFileName("/tmp/x.xlsx");
    auto controls = Controls();
    int yieldsBefore = dialogs.YieldCount();
    bool wrote = false;
    RunExportEntry(controls, dialogs, {.defaultFileName = "表", .progressMax = 7}, [&] {
        wrote = true;
        EXPECT_FALSE(command1.Visible());
        EXPECT_FALSE(command2.Visible());
        EXPECT_TRUE(bar.Visible());
        EXPECT_EQ(bar.Max(), 7);
        EXPECT_EQ(dialog.FileName, "/tmp/x.xlsx");
    });
    EXPECT_TRUE(wrote);
    EXPECT_EQ(dialogs.YieldCount(), yieldsBefore + 1);
    EXPECT_TRUE(command1.Visible());
    EXPECT_FALSE(bar.Visible());
    EXPECT_TRUE(dialogs.Messages().empty());
}

TEST(SheetWriter, FileNameIsCutAtTheFirstDot) {
    TempDir dir;
    std::filesystem::create_directories(dir.Path() / "年报.2024");
    struct Case {
        const char* why;
        std::string chosen;
        std::string saved; // empty: nothing saved
        const char* message;
    } cases[] = {
        {"extension dropped, default one added", dir.File("核对表.xlsx"), dir.File("核对表.xlsx"),
         "票据核对表导出成功！"},
        {"xls chosen still gives the default format", dir.File("旧格式.xls"), dir.File("旧格式.xlsx"),
         "票据核对表导出成功！"},
        {"a dot in a folder name cuts the path there", dir.File("年报.2024/表.xlsx"), dir.File("年报.xlsx"),
         "票据核对表导出成功！"},
        {"no dot at all fails before anything is made", dir.File("无扩展名"), "",
         "错误号: 5错误描述: 无效的过程调用或参数"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        ScriptedDialogs dialogs;
        RunSheetWriter(dialogs, c.chosen, "票据核对表导出成功！", WriterTrap::NumberDescription,
                       [](Worksheet& sheet) { sheet.Cells(1, 1).SetValue("12.50"); });
        ASSERT_EQ(dialogs.Messages().size(), 1u);
        EXPECT_EQ(dialogs.Messages()[0].Text, c.message);
        EXPECT_EQ(dialogs.Messages()[0].Title, "系统提示");
        if (!c.saved.empty()) {
            auto book = xlsxread::ReadXlsx(c.saved);
            const auto* cell = book.First().Find(1, 1);
            ASSERT_NE(cell, nullptr);
            EXPECT_EQ(cell->number, 12.5);
        }
    }
    EXPECT_FALSE(std::filesystem::exists(dir.File("无扩展名")));
    EXPECT_FALSE(std::filesystem::exists(dir.File("无扩展名.xlsx")));
}

TEST(SheetWriter, TrapsWordTheirMessagesOrLetTheFailureThrough) {
    auto failing = [](Worksheet&) { throw VbError(1004, "无法保存文件"); };
    ScriptedDialogs dialogs;
    RunSheetWriter(dialogs, "/tmp/a.xlsx", "ok", WriterTrap::NumberDescription, failing);
    RunSheetWriter(dialogs, "/tmp/a.xlsx", "ok", WriterTrap::CodeDescription, failing);
    ASSERT_EQ(dialogs.Messages().size(), 2u);
    EXPECT_EQ(dialogs.Messages()[0].Text, "错误号: 1004错误描述: 无法保存文件");
    EXPECT_EQ(dialogs.Messages()[1].Text, "错误码: 1004 错误描述: 无法保存文件");
    EXPECT_THROW(RunSheetWriter(dialogs, "/tmp/a.xlsx", "ok", WriterTrap::None, failing), VbError);
    EXPECT_EQ(dialogs.Messages().size(), 2u);
}

TEST(SheetWriter, HeaderRowCopiesTextsAndWidthsInExcelUnits) {
    FlexGrid grid("MSFlexGrid1");
    grid.SetCols(3);
    grid.SetColWidth(0, 550);
    grid.SetColWidth(1, 0);
    grid.SetColWidth(2, 1320);
    grid.SetTextMatrix(0, 0, "序");
    grid.SetTextMatrix(0, 1, "代码");
    grid.SetTextMatrix(0, 2, "金额");
    StylePool styles;
    Worksheet sheet(styles, "Sheet1");
    CopyGridHeaderRow(grid, 0, sheet, 4);
    EXPECT_EQ(std::get<std::string>(sheet.Cells(4, 1).Value()), "序");
    EXPECT_EQ(std::get<std::string>(sheet.Cells(4, 3).Value()), "金额");
    EXPECT_DOUBLE_EQ(sheet.Columns(1).ColumnWidth(), 5.0);
    EXPECT_DOUBLE_EQ(sheet.Columns(2).ColumnWidth(), 0.0);
    EXPECT_DOUBLE_EQ(sheet.Columns(3).ColumnWidth(), 12.0);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.Col(), 2);
}

} // namespace
} // namespace quillon
