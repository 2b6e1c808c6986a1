// dialogs.h — controls layer: the platform's modal services a window calls — message box, save
// dialog, the run-time error report that ends the process, the end of the program, and the
// single yield that lets a wait panel paint. Qt implements them for the GUI; ScriptedDialogs
// answers them for the CLI and the tests.
#pragma once

#include <string>
#include <string_view>

#include "controls/print_job.h"

namespace quillon {

// Message box buttons, icon and answers, as the old platform numbered them.
inline constexpr int vbOKOnly = 0;
inline constexpr int vbOKCancel = 1;
inline constexpr int vbAbortRetryIgnore = 2;
inline constexpr int vbYesNoCancel = 3;
inline constexpr int vbYesNo = 4;
inline constexpr int vbRetryCancel = 5;
inline constexpr int vbCritical = 16;
inline constexpr int vbQuestion = 32;
inline constexpr int vbExclamation = 48;
inline constexpr int vbInformation = 64;

inline constexpr int vbOK = 1;
inline constexpr int vbCancel = 2;
inline constexpr int vbAbort = 3;
inline constexpr int vbRetry = 4;
inline constexpr int vbIgnore = 5;
inline constexpr int vbYes = 6;
inline constexpr int vbNo = 7;

inline constexpr int kButtonsMask = 0x7;
inline constexpr int kIconMask = 0x70;

// The file dialog's state as a window sets and reads it (CommonDialog1).
struct CommonDialogState {
    std::string FileName; // proposed before ShowSave, the chosen path after it
    std::string Filter;   // "描述|*.xls;*.xlsx|…"
    std::string DialogTitle;
    bool CancelError = false;
};

// "运行时错误 '{number}':", an empty line, then the description: the old platform's report.
std::string RuntimeErrorText(long number, std::string_view description);

class Dialogs {
public:
    virtual ~Dialogs();

    // Shows a modal box; flags add buttons (vbOKOnly …) and icon (vbInformation …). An empty
    // title stands for the program's own title. Gives the button pressed (vbOK, vbYes, …).
    virtual int MsgBox(const std::string& text, const std::string& title, int flags) = 0;

    // The save dialog. On a choice FileName holds the chosen path. On cancel FileName stays
    // as it was, and when CancelError is set VbError kErrCancel "取消被选中。" is thrown.
    void ShowSave(CommonDialogState& state);

    // The platform's report of an untrapped failure; the process ends after it.
    [[noreturn]] virtual void RuntimeError(long number, const std::string& description) = 0;

    // The program ends at once (the old "End"), without asking anything.
    [[noreturn]] virtual void EndProgram() = 0;

    // Lets pending window messages run once (DoEvents), so that a wait panel paints.
    virtual void Yield() = 0;

    // Shows the print preview of a grid, from which the user may print; modal. The grid must
    // stay as it is until this returns.
    virtual void PrintPreview(const PrintJob& job) = 0;

protected:
    // Asks for a file name to save under; false on cancel. `path` comes in as the proposal.
    virtual bool AskSaveFileName(const CommonDialogState& state, std::string& path) = 0;
};

} // namespace quillon
