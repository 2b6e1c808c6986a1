// user_action.h — Qt skin: the boundary between a user's action and the window's handler. A
// failure no handler trapped ends the program with the run-time error report, as the old
// platform did; nothing is allowed to unwind through Qt's event loop.
#pragma once

#include <functional>

namespace quillon {

class Dialogs;

// The dialogs that report untrapped failures; set once at start-up.
void SetUserActionDialogs(Dialogs* dialogs);

// Runs a handler for a user's action; clicks and keys made meanwhile are dropped (see
// run_input_guard.h). A VbError that escapes it goes to
// Dialogs::RuntimeError with its number and description; any other exception is reported as
// error 51, the old platform's internal error.
void RunUserAction(const std::function<void()>& action);

} // namespace quillon
