// The small controls (geometry refusal, buttons, check boxes, progress, status panels, text
// selection, text widths), the signal they all raise through, and the scripted dialogs' answers.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "base/vb_error.h"
#include "controls/check_box.h"
#include "controls/command_button.h"
#include "controls/error_number.h"
#include "controls/event.h"
#include "controls/panel.h"
#include "controls/progress_bar.h"
#include "controls/scripted_dialogs.h"
#include "controls/status_bar.h"
#include "controls/text_box.h"
#include "controls/text_width.h"

namespace quillon {
namespace {

TEST(Event, HandlersMayDisconnectAndConnectWhileRaised) {
    Event<int> event;
    std::vector<std::string> calls;
    Event<int>::Id second = 0;
    event.Connect([&](int v) {
        calls.push_back("first " + std::to_string(v));
        event.Disconnect(second);
        event.Connect([&](int w) { calls.push_back("late " + std::to_string(w)); });
    });
    second = event.Connect([&](int v) { calls.push_back("second " + std::to_string(v)); });
    event.Raise(1);
    EXPECT_EQ(calls, std::vector<std::string>{"first 1"}) << "disconnected in time; the late one waits";
    calls.clear();
    event.Raise(2);
    EXPECT_EQ(calls, (std::vector<std::string>{"first 2", "late 2"}));
    EXPECT_EQ(event.HandlerCount(), 3u);
}

TEST(Control, NegativeSizeFailsAndTheLastSizeStays) {
    Panel panel;
    panel.SetWidth(3000);
    panel.SetHeight(2000);
    int resizes = 0;
    panel.Resize.Connect([&] { ++resizes; });
    EXPECT_THROW(panel.SetWidth(-15), VbError);
    EXPECT_THROW(panel.SetHeight(-1), VbError);
    EXPECT_EQ(panel.Width(), 3000);
    EXPECT_EQ(panel.Height(), 2000);
    EXPECT_EQ(resizes, 0);
    panel.SetLeft(-500); // positions may be negative
    EXPECT_EQ(panel.Left(), -500);
    panel.SetWidth(2500);
    EXPECT_EQ(resizes, 1);
}

TEST(CommandButton, ClickRaisesOnlyWhenEnabledAndVisible) {
    struct Case {
        const char* why;
        bool enabled, visible, raised;
    };
    const Case cases[] = {
        {"usable", true, true, true},
        {"disabled", false, true, false},
        {"hidden during an export", true, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        CommandButton button("Command3", "开始统计");
        int clicks = 0;
        button.Clicked.Connect([&] { ++clicks; });
        button.SetEnabled(c.enabled);
        button.SetVisible(c.visible);
        EXPECT_EQ(button.Click(), c.raised);
        EXPECT_EQ(clicks, c.raised ? 1 : 0);
    }
}

TEST(CheckBox, ValueChangesRaiseClickFromCodeToo) {
    CheckBox check("Check1", "全选");
    int clicks = 0;
    check.Click.Connect([&] { ++clicks; });
    check.SetValue(1);
    check.SetValue(1);
    check.SetValue(0);
    EXPECT_EQ(clicks, 2);
    EXPECT_THROW(check.SetValue(3), VbError);
}

TEST(ProgressBar, ValueMustStayInsideMinAndMax) {
    ProgressBar bar;
    bar.SetMax(7);
    bar.SetValue(7);
    EXPECT_THROW(bar.SetValue(8), VbError);
    EXPECT_THROW(bar.SetMax(0), VbError) << "Max must stay above Min";
    bar.SetMax(3);
    EXPECT_EQ(bar.Value(), 3) << "a smaller Max pulls the value in";
}

TEST(StatusBar, PanelsAreCountedFromOne) {
    StatusBar bar("StatusBar1", 7);
    bar.Panels(7).SetText("请稍候，正在进行统计...");
    EXPECT_EQ(bar.Panels(7).Text(), "请稍候，正在进行统计...");
    EXPECT_EQ(bar.Panels(6).Text(), "");
    EXPECT_EQ(ErrorNumberOf([&] { (void)bar.Panels(0); }), kErrIndexOutOfBounds);
    EXPECT_EQ(ErrorNumberOf([&] { (void)bar.Panels(8); }), kErrIndexOutOfBounds);
}

TEST(TextBox, SelectionCountsCharactersNotBytes) {
    TextBox box("txtGRD");
    int changes = 0;
    box.Change.Connect([&] { ++changes; });
    box.SetText("物业30%");
    box.SetSelStart(0);
    box.SetSelLength(box.TextLength()); // select all, as the split editor does
    EXPECT_EQ(box.TextLength(), 5);
    EXPECT_EQ(box.SelLength(), 5);
    EXPECT_EQ(box.SelText(), "物业30%");
    box.SetSelStart(1);
    box.SetSelLength(2);
    EXPECT_EQ(box.SelText(), "业3");
    box.SetSelLength(40);
    EXPECT_EQ(box.SelLength(), 4) << "pulled back to the text's end";
    EXPECT_EQ(changes, 1);
}

TEST(TextWidth, HalfAndFullWidthCharacters) {
    struct Case {
        const char* text;
        int twips;
    };
    const Case cases[] = {
        {"", 0},
        {"序  ", 180 + 90 + 90},
        {"0.00", 4 * 90},
        {"（税额）", 4 * 180},
        {"\xFF"
         "a",
         90 + 90},             // a stray byte counts as one narrow character
        {"\xE4\xB8", 90 + 90}, // a cut-off sequence: each byte narrow
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(FixedPitchTextWidth(c.text), c.twips);
    }
}

TEST(ScriptedDialogs, QueuedAnswersGoOnlyToBoxesThatAsk) {
    ScriptedDialogs dialogs;
    dialogs.QueueAnswer(vbNo);
    Dialogs& d = dialogs;
    EXPECT_EQ(d.MsgBox("统计结束！", "系统提示", vbInformation), vbOK);
    EXPECT_EQ(dialogs.PendingAnswers(), 1) << "an OK-only box leaves the queued answer alone";
    EXPECT_EQ(d.MsgBox("确认要退出系统吗？", "", vbYesNo + vbInformation), vbNo);
    EXPECT_EQ(d.MsgBox("确认要退出系统吗？", "", vbYesNo + vbInformation), vbYes) << "nothing queued: Yes";
    ASSERT_EQ(dialogs.Messages().size(), 3u);
    EXPECT_EQ(dialogs.Messages()[1].Flags, 68);
    EXPECT_EQ(dialogs.Messages()[1].Answer, vbNo) << "the answer is recorded with its box";
    dialogs.QueueAnswer(vbRetry);
    EXPECT_THROW(d.MsgBox("?", "", vbYesNo), std::logic_error) << "an answer the box does not offer";
}

TEST(ScriptedDialogs, SaveDialogChoiceAndCancel) {
    struct Case {
        const char* why;
        bool scriptCancel, cancelError;
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
        try {
            dialogs.ShowSave(state);
            EXPECT_EQ(state.FileName, c.fileName ? c.fileName : "<error 32755>");
        } catch (const VbError& e) {
            EXPECT_EQ(c.fileName, nullptr) << "error where none was due";
            EXPECT_EQ(e.Number, 32755);
            EXPECT_EQ(e.Description, "取消被选中。");
        }
        ASSERT_EQ(dialogs.SaveDialogs().size(), 1u);
        EXPECT_EQ(dialogs.SaveDialogs()[0].FileName, "预开票汇总表_20240305") << "the proposal is recorded";
        EXPECT_EQ(dialogs.SaveDialogs()[0].Filter, "电子表|*.xls;*.xlsx");
    }
}

} // namespace
} // namespace quillon
