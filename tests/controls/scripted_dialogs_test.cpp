// The scripted dialogs the CLI and tests run windows with.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "base/vb_error.h"
#include "controls/scripted_dialogs.h"

namespace quillon {
namespace {

TEST(ScriptedDialogs, RecordsEveryMessageWithItsAnswer) {
    ScriptedDialogs dialogs;
    dialogs.QueueAnswer(vbNo);

    Dialogs& d = dialogs;
    EXPECT_EQ(d.MsgBox("统计结束！", "系统提示", vbInformation), vbOK);
    EXPECT_EQ(d.MsgBox("确认要退出系统吗？", "", vbYesNo + vbInformation), vbNo);
    EXPECT_EQ(d.MsgBox("确认要退出系统吗？", "", vbYesNo + vbInformation), vbYes);

    ASSERT_EQ(dialogs.Messages().size(), 3u);
    struct Case {
        const char* text;
        const char* title;
        int flags, answer;
    };
    const Case cases[] = {
        {"统计结束！", "系统提示", 64, vbOK},
        {"确认要退出系统吗？", "", 68, vbNo},
        {"确认要退出系统吗？", "", 68, vbYes},
    };
    for (std::size_t i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        const RecordedMessage& m = dialogs.Messages()[i];
        EXPECT_EQ(m.Text, cases[i].text);
        EXPECT_EQ(m.Title, cases[i].title);
        EXPECT_EQ(m.Flags, cases[i].flags);
        EXPECT_EQ(m.Answer, cases[i].answer);
    }
}

TEST(ScriptedDialogs, OkOnlyBoxesLeaveTheQueuedAnswersAlone) {
    ScriptedDialogs dialogs;
    dialogs.QueueAnswer(vbNo);
    dialogs.MsgBox("请先选择统计部门!", "系统提示", vbInformation);
    EXPECT_EQ(dialogs.PendingAnswers(), 1);
    EXPECT_EQ(dialogs.MsgBox("?", "", vbYesNoCancel), vbNo);
    EXPECT_EQ(dialogs.PendingAnswers(), 0);
}

TEST(ScriptedDialogs, AnAnswerTheBoxDoesNotOfferIsATestMistake) {
    ScriptedDialogs dialogs;
    dialogs.QueueAnswer(vbRetry);
    EXPECT_THROW(dialogs.MsgBox("?", "", vbYesNo), std::logic_error);
}

TEST(ScriptedDialogs, SaveDialogChoiceAndCancel) {
    struct Case {
        const char* why;
        bool scriptCancel;
        bool cancelError;
        const char* fileName; // after the dialog; nullptr when it throws
    };
    const Case cases[] = {
        {"a chosen path replaces the proposal", false, true, "/tmp/out/预开票汇总表_20240305.xlsx"},
        {"cancel with CancelError throws", true, true, nullptr},
        {"cancel without CancelError keeps the proposal", true, false, "预开票汇总表_20240305"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        ScriptedDialogs dialogs;
        if (c.scriptCancel)
            dialogs.QueueSaveCancel();
        else
            dialogs.QueueSaveFileName("/tmp/out/预开票汇总表_20240305.xlsx");
        CommonDialogState state;
        state.FileName = "预开票汇总表_20240305";
        state.Filter = "电子表|*.xls;*.xlsx";
        state.CancelError = c.cancelError;

        if (c.fileName) {
            dialogs.ShowSave(state);
            EXPECT_EQ(state.FileName, c.fileName);
        } else {
            try {
                dialogs.ShowSave(state);
                ADD_FAILURE() << "no error on cancel";
            } catch (const VbError& e) {
                EXPECT_EQ(e.Number, 32755);
                EXPECT_EQ(e.Description, "取消被选中。");
            }
        }
        ASSERT_EQ(dialogs.SaveDialogs().size(), 1u);
        EXPECT_EQ(dialogs.SaveDialogs()[0].FileName, "预开票汇总表_20240305") << "the proposal is recorded";
        EXPECT_EQ(dialogs.SaveDialogs()[0].Filter, "电子表|*.xls;*.xlsx");
    }
}

TEST(ScriptedDialogs, RuntimeErrorThrowsInsteadOfEndingTheProcess) {
    ScriptedDialogs dialogs;
    try {
        dialogs.RuntimeError(13, "类型不匹配");
    } catch (const RuntimeErrorRaised& e) {
        EXPECT_EQ(e.Number, 13);
        EXPECT_EQ(e.Description, "类型不匹配");
    }
    ASSERT_EQ(dialogs.RuntimeErrors().size(), 1u);
    EXPECT_EQ(dialogs.RuntimeErrors()[0], "运行时错误 '13':\n\n类型不匹配");
    EXPECT_THROW(dialogs.EndProgram(), ProgramEnded);
}

} // namespace
} // namespace quillon
