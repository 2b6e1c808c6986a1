#include "controls/scripted_dialogs.h"

#include <algorithm>
#include <span>
#include <utility>

namespace quillon {

namespace {

// The answers each button set can give, the default first.
std::span<const int> AnswersOf(int buttons) {
    static constexpr int okOnly[] = {vbOK};
    static constexpr int okCancel[] = {vbOK, vbCancel};
    static constexpr int abortRetryIgnore[] = {vbAbort, vbRetry, vbIgnore};
    static constexpr int yesNoCancel[] = {vbYes, vbNo, vbCancel};
    static constexpr int yesNo[] = {vbYes, vbNo};
    static constexpr int retryCancel[] = {vbRetry, vbCancel};
    switch (buttons) {
    case vbOKCancel:
        return okCancel;
    case vbAbortRetryIgnore:
        return abortRetryIgnore;
    case vbYesNoCancel:
        return yesNoCancel;
    case vbYesNo:
        return yesNo;
    case vbRetryCancel:
        return retryCancel;
    default:
        return okOnly;
    }
}

} // namespace

RuntimeErrorRaised::RuntimeErrorRaised(long number, std::string description)
    : std::runtime_error(RuntimeErrorText(number, description)), Number(number),
      Description(std::move(description)) {}

int ScriptedDialogs::MsgBox(const std::string& text, const std::string& title, int flags) {
    const auto answers = AnswersOf(flags & kButtonsMask);
    int answer = answers.front();
    if (answers.size() > 1 && !answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
        if (std::find(answers.begin(), answers.end(), answer) == answers.end())
            throw std::logic_error("scripted answer " + std::to_string(answer) +
                                   " is not offered by: " + text);
    }
    messages_.push_back(RecordedMessage{text, title, flags, answer});
    MessageShown.Raise(messages_.back());
    return answer;
}

void ScriptedDialogs::RuntimeError(long number, const std::string& description) {
    runtimeErrors_.push_back(RuntimeErrorText(number, description));
    throw RuntimeErrorRaised(number, description);
}

void ScriptedDialogs::EndProgram() {
    throw ProgramEnded();
}

bool ScriptedDialogs::AskSaveFileName(const CommonDialogState& state, std::string& path) {
    saveDialogs_.push_back(state);
    if (saves_.empty()) return false;
    std::optional<std::string> choice = std::move(saves_.front());
    saves_.pop_front();
    if (!choice) return false;
    path = std::move(*choice);
    return true;
}

} // namespace quillon
