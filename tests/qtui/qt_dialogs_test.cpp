// Qt's message box and file filter as the old flags and filters ask for them, and the run-time
// error report that ends what escapes a handler of a user's action.
#include "qtui/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "base/vb_error.h"
#include "controls/scripted_dialogs.h"
#include "qt_test_app.h"
#include "qtui/user_action.h"

namespace quillon {
namespace {

struct Shown {
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons;
    QString defaultButton;
};

// Answers the next box by the text of one of its buttons, and notes what it showed.
void AnswerNextBox(const QString& button, Shown& shown) {
    QTimer::singleShot(0, [button, &shown] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        shown.title = box->windowTitle();
        shown.text = box->text();
        shown.icon = box->icon();
        for (QAbstractButton* b : box->buttons()) shown.buttons << b->text();
        if (box->defaultButton()) shown.defaultButton = box->defaultButton()->text();
        for (QAbstractButton* b : box->buttons())
            if (b->text() == button) b->click();
    });
}

TEST(QtDialogs, MessageBoxFlagsAndAnswers) {
    TestApp();
    QtDialogs dialogs("Quillon");
    struct Case {
        const char* why;
        const char* title;
        int flags;
        const char* press;
        int answer;
        QMessageBox::Icon icon;
        const char* buttons; // their texts joined by "|"
        const char* defaultButton;
        const char* shownTitle;
    } cases[] = {
        {"the exit question: an empty title is the program's", "", vbYesNo + vbInformation, "否(&N)", vbNo,
         QMessageBox::Information, "是(&Y)|否(&N)", "是(&Y)", "Quillon"},
        {"a report's failure", "系统提示", vbOKOnly + vbInformation, "确定", vbOK, QMessageBox::Information,
         "确定", "确定", "系统提示"},
        {"second button as default", "系统提示", vbOKCancel + vbQuestion + 256, "取消", vbCancel,
         QMessageBox::Question, "确定|取消", "取消", "系统提示"},
        {"warning with three buttons", "系统提示", vbYesNoCancel + vbExclamation, "是(&Y)", vbYes,
         QMessageBox::Warning, "是(&Y)|否(&N)|取消", "是(&Y)", "系统提示"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Shown shown;
        AnswerNextBox(QString::fromUtf8(c.press), shown);
        EXPECT_EQ(dialogs.MsgBox("正文", c.title, c.flags), c.answer);
        EXPECT_EQ(shown.icon, c.icon);
        EXPECT_EQ(shown.buttons.join("|"), QString::fromUtf8(c.buttons));
        EXPECT_EQ(shown.defaultButton, QString::fromUtf8(c.defaultButton));
        EXPECT_EQ(shown.text, QString("正文"));
        EXPECT_EQ(shown.title, QString::fromUtf8(c.shownTitle));
    }
}

// The two ways the program ends. Run in a child process started afresh, which makes its own
// application; the report box is answered by a timer, and its text goes to stderr to be matched.
TEST(QtDialogsDeathTest, RuntimeErrorReportsThenFailsEndProgramSucceeds) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            TestApp();
            QtDialogs dialogs("Quillon");
            QTimer::singleShot(0, [] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (!box) std::_Exit(3);
                std::fprintf(stderr, "[%s] %s\n", box->windowTitle().toUtf8().constData(),
                             box->text().toUtf8().constData());
                box->buttons().first()->click();
            });
            dialogs.RuntimeError(13, "类型不匹配");
        },
        ::testing::ExitedWithCode(1), "\\[Quillon\\] 运行时错误 '13':\n\n类型不匹配");
    EXPECT_EXIT(
        {
            TestApp();
            QtDialogs dialogs("Quillon");
            std::fprintf(stderr, "ending\n");
            dialogs.EndProgram();
        },
        ::testing::ExitedWithCode(0), "ending");
}

TEST(QtDialogs, FileFilterFromTheOldForm) {
    struct Case {
        const char* old;
        const char* qt;
    } cases[] = {
        {"Excel 文件|*.xls;*.xlsx", "Excel 文件 (*.xls *.xlsx)"},
        {"Excel 文件|*.xlsx|所有文件|*.*", "Excel 文件 (*.xlsx);;所有文件 (*.*)"},
        {"", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.old);
        EXPECT_EQ(QtFileFilter(c.old), QString::fromUtf8(c.qt));
    }
}

TEST(UserAction, UntrappedFailuresGoToTheRuntimeErrorReport) {
    ScriptedDialogs dialogs;
    SetUserActionDialogs(&dialogs);
    struct Case {
        const char* why;
        std::function<void()> handler;
        long number;
    } cases[] = {
        {"a run-time error keeps its number", [] { throw VbError(13, "类型不匹配"); }, 13},
        {"any other failure is an internal error", [] { throw std::out_of_range("vector"); }, 51},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        try {
            RunUserAction(c.handler);
            ADD_FAILURE() << "the scripted report throws";
        } catch (const RuntimeErrorRaised& e) {
            EXPECT_EQ(e.Number, c.number);
        }
    }
    ASSERT_EQ(dialogs.RuntimeErrors().size(), 2u);
    EXPECT_EQ(dialogs.RuntimeErrors()[0], "运行时错误 '13':\n\n类型不匹配");
    int ran = 0;
    RunUserAction([&] { ++ran; });
    EXPECT_EQ(ran, 1);
    EXPECT_THROW(RunUserAction([&] { dialogs.EndProgram(); }), ProgramEnded)
        << "a scripted end passes through";
    SetUserActionDialogs(nullptr);
}

} // namespace
} // namespace quillon
