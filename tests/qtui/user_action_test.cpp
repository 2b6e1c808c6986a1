// What escapes a handler of a user's action ends in the run-time error report.
#include "qtui/user_action.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "base/vb_error.h"
#include "controls/scripted_dialogs.h"

namespace quillon {
namespace {

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
