// main_frame.h — Qt skin: the MDI frame drawn for MDIForm1: the menu bar built from its menu
// entries, the banner painted from a bitmap by the model's strip copies, the MDI area with the
// stretched background picture, one sub-window per window the router makes, the close box
// handed to the model, and the mouse pointer following the screen object.
#pragma once

#include <QImage>
#include <QMainWindow>
#include <QPixmap>

#include <functional>
#include <map>
#include <string>
#include <vector>

class QAction;
class QMdiArea;
class QMenu;

namespace quillon {

class Form;
class FormSubWindow;
class MDIForm1;
class MenuEntry;

class MainFrame : public QMainWindow {
public:
    // banner: the bitmap of the banner box, at least kBannerBitmapMinWidth twips wide.
    MainFrame(MDIForm1& mdi, const QPixmap& banner);
    ~MainFrame() override;

    QMdiArea* MdiArea() const { return mdiArea_; }
    // The menu action of an entry, by its name; nullptr when there is none.
    QAction* ActionOf(const std::string& entryName) const;
    // The sub-window drawing an open window; nullptr when it has none.
    FormSubWindow* SubWindowOf(const Form& form) const;
    // "打印预览…" (Ctrl+P): the result of the window in front, previewed as it prints.
    QAction* PrintPreviewAction() const { return printPreview_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddEntries(QMenu* menu, const std::vector<MenuEntry*>& entries);
    void BindEntry(MenuEntry& entry, QAction* action);
    void OnCreated(Form& form);
    void UpdateBackground();
    void ApplyMousePointer(int pointer);
    void AddPrintPreview();
    void PreviewActiveWindow();
    void PreviewWindow(Form& form);

    MDIForm1& mdi_;
    QMdiArea* mdiArea_;
    QWidget* banner_;
    QAction* printPreview_ = nullptr;
    std::map<std::string, QAction*> actions_;
    std::vector<std::function<void()>> disconnects_;
    QString backgroundFile_;
    QImage backgroundImage_;
    bool busyCursor_ = false;
};

} // namespace quillon
