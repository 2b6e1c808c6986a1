// qt_dialogs.h — Qt skin: the platform's modal services for the GUI: message boxes with the old
// button and icon flags, the save dialog, the run-time error report that ends the program, the
// end of the program, and the yield that lets pending paints run.
#pragma once

#include <QString>

#include "controls/dialogs.h"

namespace quillon {

class QtDialogs : public Dialogs {
public:
    // defaultTitle: the title of a box whose caller gives none (the program's title).
    explicit QtDialogs(QString defaultTitle);

    int MsgBox(const std::string& text, const std::string& title, int flags) override;
    [[noreturn]] void RuntimeError(long number, const std::string& description) override;
    [[noreturn]] void EndProgram() override;
    void Yield() override;
    void PrintPreview(const PrintJob& job) override;

protected:
    bool AskSaveFileName(const CommonDialogState& state, std::string& path) override;

private:
    QString defaultTitle_;
};

// "描述|*.xls;*.xlsx|…" as the old dialog took it, into Qt's "描述 (*.xls *.xlsx);;…".
QString QtFileFilter(const std::string& filter);

} // namespace quillon
