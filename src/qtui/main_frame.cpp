#include "qtui/main_frame.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

#include "controls/dialogs.h"
#include "controls/screen.h"
#include "qtui/flex_grid_widget.h"
#include "qtui/form_view.h"
#include "qtui/qt_convert.h"
#include "qtui/user_action.h"
#include "shell/main_window.h"

namespace quillon {
namespace {

// The banner box: the bitmap at 0,0, then the model's copies of its strip and end piece.
class BannerWidget : public QWidget {
public:
    BannerWidget(const MDIForm1& mdi, const QPixmap& bitmap, QWidget* parent)
        : QWidget(parent), mdi_(mdi), bitmap_(bitmap) {
        setObjectName("Picture1");
        setFixedHeight(TwipsToPixels(mdi.Picture1.Height()));
        setAutoFillBackground(true);
        QPalette palette = this->palette();
        palette.setColor(QPalette::Window, ColorFromBgr(mdi.Picture1.BackColor()));
        setPalette(palette);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        if (bitmap_.isNull()) return;
        QPainter painter(this);
        painter.drawPixmap(0, 0, bitmap_);
        const int h = bitmap_.height();
        for (const BannerCopy& copy : mdi_.BannerOps()) {
            const int dest = TwipsToPixels(copy.destLeft);
            const int source = TwipsToPixels(copy.sourceLeft);
            const int width = TwipsToPixels(copy.sourceLeft + copy.width) - source;
            painter.drawPixmap(QRect(dest, 0, width, h), bitmap_, QRect(source, 0, width, h));
        }
    }

private:
    const MDIForm1& mdi_;
    QPixmap bitmap_;
};

} // namespace

MainFrame::MainFrame(MDIForm1& mdi, const QPixmap& banner) : mdi_(mdi) {
    setObjectName(ToQString(mdi.Name()));
    setWindowTitle(ToQString(mdi.Caption()));

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    banner_ = new BannerWidget(mdi, banner, central);
    mdiArea_ = new QMdiArea(central);
    mdiArea_->setFrameShape(QFrame::NoFrame);
    mdiArea_->setBackground(ColorFromBgr(0x8000000C));
    // A window larger than the frame is scrolled to, not cut off.
    mdiArea_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea_->viewport()->installEventFilter(this);
    layout->addWidget(banner_);
    layout->addWidget(mdiArea_, 1);
    setCentralWidget(central);

    for (MenuEntry* top : mdi.Menus()) {
        QMenu* menu = menuBar()->addMenu(ToQString(top->Caption()));
        BindEntry(*top, menu->menuAction());
        AddEntries(menu, top->Children());
    }
    AddPrintPreview();

    // A window the user brings forward is in front in the model too.
    connect(mdiArea_, &QMdiArea::subWindowActivated, this, [](QMdiSubWindow* window) {
        auto* sub = dynamic_cast<FormSubWindow*>(window);
        if (!sub || !sub->Model()) return;
        Form* form = sub->Model();
        if (form->ZLevel() <= 0) form->ZOrder(0);
        RunUserAction([form] { form->Activate(); });
    });

    auto created = mdi.Windows.Created.Connect([this](Form& form) { OnCreated(form); });
    disconnects_.push_back([&mdi, created] { mdi.Windows.Created.Disconnect(created); });
    auto changed = mdi.Changed.Connect([this](Aspect what) {
        if (what == Aspect::Caption) setWindowTitle(ToQString(mdi_.Caption()));
        if (what == Aspect::Appearance) UpdateBackground();
        if (what == Aspect::Geometry) banner_->update();
    });
    disconnects_.push_back([&mdi, changed] { mdi.Changed.Disconnect(changed); });
    auto pointer = TheScreen().Changed.Connect([this](int p) { ApplyMousePointer(p); });
    disconnects_.push_back([pointer] { TheScreen().Changed.Disconnect(pointer); });
    ApplyMousePointer(TheScreen().MousePointer());
}

MainFrame::~MainFrame() {
    for (auto& disconnect : disconnects_) disconnect();
    for (QMdiSubWindow* window : mdiArea_->subWindowList()) {
        // The sub-windows die after this frame's own members; their end must not call back.
        disconnect(window, &QObject::destroyed, this, nullptr);
        if (auto* sub = dynamic_cast<FormSubWindow*>(window)) sub->Detach();
    }
    if (busyCursor_) QApplication::restoreOverrideCursor();
}

void MainFrame::AddEntries(QMenu* menu, const std::vector<MenuEntry*>& entries) {
    for (MenuEntry* entry : entries) {
        if (entry->IsSeparator()) {
            BindEntry(*entry, menu->addSeparator());
        } else if (!entry->Children().empty()) {
            QMenu* sub = menu->addMenu(ToQString(entry->Caption()));
            BindEntry(*entry, sub->menuAction());
            AddEntries(sub, entry->Children());
        } else {
            QAction* action = menu->addAction(ToQString(entry->Caption()));
            BindEntry(*entry, action);
            connect(action, &QAction::triggered, this,
                    [entry] { RunUserAction([entry] { entry->Click(); }); });
        }
    }
}

// A toolkit addition, not one of the menu's entries: it goes first in the menu that holds 退出,
// where a desktop user looks for printing, and the model's entries keep their order.
void MainFrame::AddPrintPreview() {
    printPreview_ = new QAction(QStringLiteral("打印预览…"), this);
    printPreview_->setObjectName(QStringLiteral("PrintPreview"));
    printPreview_->setShortcut(QKeySequence::Print);
    connect(printPreview_, &QAction::triggered, this, [this] { PreviewActiveWindow(); });
    QAction* host = ActionOf("退出系统");
    QMenu* menu = host ? host->menu() : nullptr;
    if (!menu) {
        addAction(printPreview_); // the shortcut still works without a menu to show it in
        return;
    }
    QAction* first = menu->actions().value(0);
    menu->insertAction(first, printPreview_);
    if (first) menu->insertSeparator(first);
}

void MainFrame::PreviewActiveWindow() {
    auto* sub = dynamic_cast<FormSubWindow*>(mdiArea_->currentSubWindow());
    if (sub && sub->Model()) PreviewWindow(*sub->Model());
}

void MainFrame::PreviewWindow(Form& window) {
    Form* form = &window;
    Dialogs& dialogs = mdi_.WindowDialogs();
    RunUserAction([form, &dialogs] {
        form->PrintResult([&dialogs](const PrintJob& job) { dialogs.PrintPreview(job); });
    });
}

void MainFrame::BindEntry(MenuEntry& entry, QAction* action) {
    action->setObjectName(ToQString(entry.Name()));
    action->setEnabled(entry.Enabled());
    action->setVisible(entry.Visible());
    actions_[entry.Name()] = action;
    auto id = entry.Changed.Connect([&entry, action](Aspect what) {
        if (what == Aspect::Caption && !entry.IsSeparator()) action->setText(ToQString(entry.Caption()));
        if (what == Aspect::Enabled) action->setEnabled(entry.Enabled());
        if (what == Aspect::Visible) action->setVisible(entry.Visible());
    });
    disconnects_.push_back([&entry, id] { entry.Changed.Disconnect(id); });
}

QAction* MainFrame::ActionOf(const std::string& entryName) const {
    auto it = actions_.find(entryName);
    return it == actions_.end() ? nullptr : it->second;
}

FormSubWindow* MainFrame::SubWindowOf(const Form& form) const {
    for (QMdiSubWindow* window : mdiArea_->subWindowList())
        if (auto* sub = dynamic_cast<FormSubWindow*>(window); sub && sub->Model() == &form) return sub;
    return nullptr;
}

void MainFrame::OnCreated(Form& form) {
    auto* window = new FormSubWindow(form, mdiArea_);
    // The grids' 打印预览… previews the window's result, as Ctrl+P does when it is in front.
    // The view classes carry no meta-object of their own, so they are told apart by dynamic_cast.
    for (QWidget* widget : window->View()->findChildren<QWidget*>())
        if (auto* grid = dynamic_cast<FlexGridWidget*>(widget))
            grid->PrintPreviewRequested = [this, sub = QPointer<FormSubWindow>(window)] {
                if (sub && sub->Model()) PreviewWindow(*sub->Model());
            };
    // Once the sub-window is gone, nothing refers to the unloaded window any more.
    connect(window, &QObject::destroyed, this, [this] { mdi_.Windows.ReleaseUnloaded(); });
}

void MainFrame::closeEvent(QCloseEvent* event) {
    // The model asks; on Yes the program ends inside this call.
    event->ignore();
    RunUserAction([this] { mdi_.Close(); });
}

bool MainFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mdiArea_->viewport() && event->type() == QEvent::Resize) {
        const int width = PixelsToTwips(mdiArea_->viewport()->width());
        const int height = PixelsToTwips(mdiArea_->viewport()->height());
        RunUserAction([this, width, height] { mdi_.SetClientSize(width, height); });
        banner_->update();
    }
    return QMainWindow::eventFilter(watched, event);
}

// The picture stretched over the client area; an unreadable file leaves it empty.
void MainFrame::UpdateBackground() {
    const auto& picture = mdi_.Picture();
    const QBrush empty(ColorFromBgr(0x8000000C));
    if (!picture) {
        mdiArea_->setBackground(empty);
        return;
    }
    const QString file = ToQString(picture->File);
    if (file != backgroundFile_) {
        backgroundFile_ = file;
        backgroundImage_ = QImage(file);
    }
    const QSize size(TwipsToPixels(picture->Width), TwipsToPixels(picture->Height));
    if (backgroundImage_.isNull() || size.isEmpty()) {
        mdiArea_->setBackground(empty);
        return;
    }
    mdiArea_->setBackground(
        QPixmap::fromImage(backgroundImage_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
}

void MainFrame::ApplyMousePointer(int pointer) {
    const bool busy = pointer == kPointerHourglass || pointer == 13; // 13: arrow and hourglass
    const Qt::CursorShape shape = pointer == 13 ? Qt::BusyCursor : Qt::WaitCursor;
    if (busy && !busyCursor_) QApplication::setOverrideCursor(shape);
    if (busy && busyCursor_) QApplication::changeOverrideCursor(shape);
    if (!busy && busyCursor_) QApplication::restoreOverrideCursor();
    busyCursor_ = busy;
}

} // namespace quillon
