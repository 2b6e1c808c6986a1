// scripted_dialogs.h — controls layer: Dialogs without a display, for the CLI and the tests.
// Records every box and save dialog, answers from scripts (OK/Yes and cancel when nothing is
// scripted), counts yields, and throws where the real platform would end the process.
#pragma once

#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/dialogs.h"
#include "controls/event.h"

namespace quillon {

// Thrown instead of ending the process after the run-time error report.
class RuntimeErrorRaised : public std::runtime_error {
public:
    RuntimeErrorRaised(long number, std::string description);
    long Number;
    std::string Description;
};

// Thrown instead of ending the process at EndProgram.
class ProgramEnded : public std::runtime_error {
public:
    ProgramEnded() : std::runtime_error("程序结束") {}
};

struct RecordedMessage {
    std::string Text;
    std::string Title;
    int Flags = 0;
    int Answer = 0;
};

class ScriptedDialogs : public Dialogs {
public:
    // Answers for the next boxes that offer a choice (every box but OK-only), in order. With
    // none queued a box answers OK, or Yes where there is a Yes. An answer the box does not
    // offer is a mistake of the test and throws std::logic_error.
    void QueueAnswer(int answer) { answers_.push_back(answer); }
    // The next save dialogs choose this path, or cancel; with nothing queued they cancel.
    void QueueSaveFileName(std::string path) { saves_.emplace_back(std::move(path)); }
    void QueueSaveCancel() { saves_.emplace_back(std::nullopt); }

    int MsgBox(const std::string& text, const std::string& title, int flags) override;
    [[noreturn]] void RuntimeError(long number, const std::string& description) override;
    [[noreturn]] void EndProgram() override;
    void Yield() override { ++yields_; }
    // Recorded: the title, the subtitle and the grid asked for.
    void PrintPreview(const PrintJob& job) override { printJobs_.push_back(job); }

    const std::vector<RecordedMessage>& Messages() const { return messages_; }
    // The dialogs shown, as the window had set them up when it called ShowSave.
    const std::vector<CommonDialogState>& SaveDialogs() const { return saveDialogs_; }
    // The run-time error reports shown, as the text of the box.
    const std::vector<std::string>& RuntimeErrors() const { return runtimeErrors_; }
    int YieldCount() const { return yields_; }
    const std::vector<PrintJob>& PrintJobs() const { return printJobs_; }
    int PendingAnswers() const { return static_cast<int>(answers_.size()); }

    // Raised after a box is recorded (the CLI prints it to stderr).
    Event<const RecordedMessage&> MessageShown;

protected:
    bool AskSaveFileName(const CommonDialogState& state, std::string& path) override;

private:
    std::deque<int> answers_;
    std::deque<std::optional<std::string>> saves_;
    std::vector<RecordedMessage> messages_;
    std::vector<CommonDialogState> saveDialogs_;
    std::vector<std::string> runtimeErrors_;
    std::vector<PrintJob> printJobs_;
    int yields_ = 0;
};

} // namespace quillon
