#include "qtui/user_action.h"

#include <exception>

#include "base/vb_error.h"
#include "controls/dialogs.h"
#include "controls/scripted_dialogs.h"
#include "qtui/run_input_guard.h"

namespace quillon {
namespace {

Dialogs* reportDialogs = nullptr;

constexpr long kErrInternal = 51;

[[noreturn]] void Report(long number, const std::string& description) {
    if (reportDialogs) reportDialogs->RuntimeError(number, description);
    std::terminate(); // no dialogs were installed: a mistake of the program's start
}

// The user's clicks and keys made while the handler runs are dropped (run_input_guard.h).
class RunScope {
public:
    RunScope() : guard_(RunInputGuard::OfApplication()) {
        if (guard_) guard_->BeginRun();
    }
    ~RunScope() {
        if (guard_) guard_->EndRun();
    }
    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;

private:
    RunInputGuard* guard_;
};

} // namespace

void SetUserActionDialogs(Dialogs* dialogs) {
    reportDialogs = dialogs;
}

void RunUserAction(const std::function<void()>& action) {
    RunScope run;
    try {
        action();
    } catch (const ProgramEnded&) {
        throw; // a scripted run's end: its caller expects it
    } catch (const RuntimeErrorRaised&) {
        throw;
    } catch (const VbError& e) {
        Report(e.Number, e.Description);
    } catch (const std::exception& e) {
        Report(kErrInternal, std::string("内部错误: ") + e.what());
    }
}

} // namespace quillon
