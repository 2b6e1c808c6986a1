#include "qtui/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QStringList>

#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "qtui/print_painter.h"
#include "qtui/qt_convert.h"

namespace quillon {
namespace {

constexpr int kDefaultButtonMask = 0x300; // vbDefaultButton2 = 256, vbDefaultButton3 = 512

struct Button {
    int answer;
    const char* text;
};

std::vector<Button> ButtonsOf(int buttons) {
    const Button ok{vbOK, "确定"};
    const Button cancel{vbCancel, "取消"};
    const Button yes{vbYes, "是(&Y)"};
    const Button no{vbNo, "否(&N)"};
    const Button abort{vbAbort, "中止(&A)"};
    const Button retry{vbRetry, "重试(&R)"};
    const Button ignore{vbIgnore, "忽略(&I)"};
    switch (buttons) {
    case vbOKCancel:
        return {ok, cancel};
    case vbAbortRetryIgnore:
        return {abort, retry, ignore};
    case vbYesNoCancel:
        return {yes, no, cancel};
    case vbYesNo:
        return {yes, no};
    case vbRetryCancel:
        return {retry, cancel};
    default:
        return {ok};
    }
}

QMessageBox::Icon IconOf(int icon) {
    switch (icon) {
    case vbCritical:
        return QMessageBox::Critical;
    case vbQuestion:
        return QMessageBox::Question;
    case vbExclamation:
        return QMessageBox::Warning;
    case vbInformation:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

QWidget* DialogParent() {
    return QApplication::activeWindow();
}

} // namespace

QString QtFileFilter(const std::string& filter) {
    const QStringList parts = ToQString(filter).split('|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1];
        patterns.replace(';', ' ');
        entries << QStringLiteral("%1 (%2)").arg(parts[i], patterns);
    }
    return entries.join(QStringLiteral(";;"));
}

QtDialogs::QtDialogs(QString defaultTitle) : defaultTitle_(std::move(defaultTitle)) {}

int QtDialogs::MsgBox(const std::string& text, const std::string& title, int flags) {
    QMessageBox box(IconOf(flags & kIconMask), title.empty() ? defaultTitle_ : ToQString(title),
                    ToQString(text), QMessageBox::NoButton, DialogParent());
    const std::vector<Button> buttons = ButtonsOf(flags & kButtonsMask);
    std::vector<QPushButton*> pushButtons;
    // One role for all keeps the old order, left to right.
    for (const Button& b : buttons)
        pushButtons.push_back(box.addButton(QString::fromUtf8(b.text), QMessageBox::ActionRole));
    const std::size_t defaultIndex =
        std::min<std::size_t>((flags & kDefaultButtonMask) >> 8, buttons.size() - 1);
    box.setDefaultButton(pushButtons[defaultIndex]);
    // Escape and the close box answer Cancel where there is one, or the only button; a box
    // without either (Yes/No) cannot be dismissed without an answer.
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i].answer == vbCancel || buttons.size() == 1) box.setEscapeButton(pushButtons[i]);
    box.exec();
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (box.clickedButton() == pushButtons[i]) return buttons[i].answer;
    return buttons.size() == 1 ? buttons[0].answer : vbCancel;
}

void QtDialogs::RuntimeError(long number, const std::string& description) {
    QMessageBox box(QMessageBox::Critical, defaultTitle_, ToQString(RuntimeErrorText(number, description)),
                    QMessageBox::NoButton, DialogParent());
    box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
    box.exec();
    std::fflush(nullptr);
    std::_Exit(1);
}

void QtDialogs::EndProgram() {
    // At once: no window is asked anything and nothing is cleaned up, as the old End did.
    std::fflush(nullptr);
    std::_Exit(0);
}

void QtDialogs::Yield() {
    QCoreApplication::processEvents();
}

bool QtDialogs::AskSaveFileName(const CommonDialogState& state, std::string& path) {
    const QString title = state.DialogTitle.empty() ? QStringLiteral("另存为") : ToQString(state.DialogTitle);
    const QString chosen =
        QFileDialog::getSaveFileName(DialogParent(), title, ToQString(path), QtFileFilter(state.Filter));
    if (chosen.isEmpty()) return false;
    path = ToUtf8(chosen);
    return true;
}

void QtDialogs::PrintPreview(const PrintJob& job) {
    if (!job.grid) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(ToQString(job.title));
    printer.setFullPage(true); // the layout keeps its own margins
    SetDevicePaper(printer, LayoutPrintJob(job));
    QPrintPreviewDialog dialog(&printer, DialogParent());
    dialog.setWindowTitle(QStringLiteral("打印预览"));
    // Laid out again on each request: the user may have turned the paper or chosen another size.
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&job](QPrinter* target) {
        PaintPrintLayout(LayoutPrintJob(job, PaperOf(*target)), *job.grid, *target);
    });
    dialog.exec();
}

} // namespace quillon
