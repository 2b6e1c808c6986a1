// The MDI frame: menu bar from the model, one sub-window per open window (brought forward, not
// doubled), closing and reopening, the close box's question, the background picture, the
// banner's strips and the busy cursor.
#include "qtui/main_frame.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QScrollBar>

#include "controls/flex_grid.h"
#include "controls/list_box.h"
#include "controls/screen.h"
#include "controls/scripted_dialogs.h"
#include "qt_test_app.h"
#include "qtui/flex_grid_widget.h"
#include "qtui/form_view.h"
#include "qtui/qt_convert.h"
#include "qtui/user_action.h"
#include "shell/app_session.h"
#include "shell/main_window.h"
#include "support/temp_dir.h"

namespace quillon {
namespace {

// A banner bitmap whose parts are told apart by colour: left part red, the strip green, the
// rest of the end piece blue.
QPixmap StripedBanner() {
    QPixmap bitmap(857, 70);
    QPainter p(&bitmap);
    p.fillRect(0, 0, 590, 70, Qt::red);
    p.fillRect(590, 0, 20, 70, Qt::green);
    p.fillRect(610, 0, 247, 70, Qt::blue);
    return bitmap;
}

struct Framed {
    TempDir folder;
    AppSession session;
    ScriptedDialogs dialogs;
    std::unique_ptr<MDIForm1> mdi;
    std::unique_ptr<MainFrame> frame;

    explicit Framed(bool withBackground = false) {
        TestApp();
        SetUserActionDialogs(&dialogs);
        if (withBackground) {
            QImage picture(64, 32, QImage::Format_RGB888);
            picture.fill(QColor(10, 200, 30));
            picture.save(QString::fromStdString(folder.File("MDI.BMP")), "BMP");
        }
        mdi = std::make_unique<MDIForm1>(session, dialogs, folder.Path().string());
        frame = std::make_unique<MainFrame>(*mdi, StripedBanner());
        frame->resize(1000, 700);
        frame->show();
        mdi->Show();
        QApplication::processEvents();
    }
    ~Framed() {
        frame.reset();
        SetUserActionDialogs(nullptr);
    }

    void Pick(const char* entry) {
        QAction* action = frame->ActionOf(entry);
        ASSERT_NE(action, nullptr) << entry;
        action->trigger();
        QApplication::processEvents();
    }
    int SubWindows() const {
        int n = 0;
        for (QMdiSubWindow* w : frame->MdiArea()->subWindowList())
            if (w->isVisible()) ++n;
        return n;
    }
};

TEST(MainFrame, MenuBarFollowsTheMenuModel) {
    Framed f;
    QStringList tops;
    for (QAction* action : f.frame->menuBar()->actions()) tops << action->text();
    EXPECT_EQ(tops, (QStringList{"统计报表", "退出系统", "关于"}));
    QAction* summary = f.frame->ActionOf("预开票汇总表");
    ASSERT_NE(summary, nullptr);
    EXPECT_EQ(summary->text(), QString("预开票汇总表"));
    ASSERT_NE(f.frame->ActionOf("mnuSeparator"), nullptr);
    EXPECT_TRUE(f.frame->ActionOf("mnuSeparator")->isSeparator());
    f.mdi->预开票汇总表.SetEnabled(false);
    EXPECT_FALSE(summary->isEnabled());
    EXPECT_EQ(f.frame->windowTitle(), QString("Quillon收费报表"));
}

TEST(MainFrame, OneSubWindowPerWindowBroughtForwardAndClosedBothWays) {
    Framed f;
    f.Pick("开票票据核对表");
    ASSERT_EQ(f.SubWindows(), 1);
    Form* recon = f.mdi->Windows.Find("frm票据核对表");
    ASSERT_NE(recon, nullptr);
    FormSubWindow* reconWindow = f.frame->SubWindowOf(*recon);
    ASSERT_NE(reconWindow, nullptr);
    EXPECT_EQ(reconWindow->windowTitle(), QString("开票票据核对表"));

    f.Pick("关于软件");
    EXPECT_EQ(f.SubWindows(), 2);
    EXPECT_NE(f.frame->MdiArea()->activeSubWindow(), reconWindow);
    Form* about = f.mdi->Windows.Find("frmAbout");
    ASSERT_NE(about, nullptr);
    EXPECT_GT(about->Left(), 0) << "the About box centres itself";

    f.Pick("开票票据核对表");
    EXPECT_EQ(f.SubWindows(), 2) << "not opened twice";
    EXPECT_EQ(f.frame->MdiArea()->activeSubWindow(), reconWindow) << "brought forward";

    about->Unload(); // cmdOK: unloaded from code
    QApplication::processEvents();
    EXPECT_EQ(f.SubWindows(), 1);
    reconWindow->close(); // the window's close box
    QApplication::processEvents();
    EXPECT_EQ(f.mdi->Windows.Find("frm票据核对表"), nullptr);
    EXPECT_EQ(f.SubWindows(), 0);

    f.Pick("开票票据核对表");
    EXPECT_EQ(f.SubWindows(), 1) << "a fresh window in a new sub-window";
}

TEST(MainFrame, WindowsWithoutAPlaceAreCascaded) {
    Framed f;
    f.Pick("停车费明细表");
    f.Pick("预开票汇总表");
    Form* first = f.mdi->Windows.Find("frm停车费明细表New");
    Form* second = f.mdi->Windows.Find("frm预开票汇总表");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(first->Left(), 0);
    EXPECT_EQ(second->Left(), 24 * 15) << "one step down and right, and the model knows it";
    EXPECT_EQ(second->Top(), 24 * 15);
    EXPECT_EQ(f.frame->SubWindowOf(*second)->pos(), QPoint(24, 24));
}

// A window that maximises itself whenever it becomes the active one.
class MaximisingForm : public Form {
public:
    MaximisingForm() : Form("frm预开票汇总表", "预开票汇总表") {}

protected:
    void Form_Activate() override { SetWindowState(2); }
};

TEST(MainFrame, AWindowMaximisedOnActivationStaysMaximised) {
    Framed f;
    f.mdi->Windows.Register("frm预开票汇总表", [](AppSession&, Dialogs&) -> std::unique_ptr<Form> {
        return std::make_unique<MaximisingForm>();
    });
    f.Pick("预开票汇总表");
    Form* form = f.mdi->Windows.Find("frm预开票汇总表");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->WindowState(), 2);
    FormSubWindow* window = f.frame->SubWindowOf(*form);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isMaximized());
    EXPECT_EQ(window->size(), f.frame->MdiArea()->viewport()->size());
}

// A window of a given size in pixels, registered under a report window's name.
class SizedForm : public Form {
public:
    SizedForm(const char* name, QSize size) : Form(name, name) {
        Move(0, 0, PixelsToTwips(size.width()), PixelsToTwips(size.height()));
    }
};

void RegisterSized(MDIForm1& mdi, const char* name, QSize size) {
    mdi.Windows.Register(name, [name, size](AppSession&, Dialogs&) -> std::unique_ptr<Form> {
        return std::make_unique<SizedForm>(name, size);
    });
}

TEST(MainFrame, AMaximisedWindowFollowsTheFrameAndItsModelTheNewSize) {
    Framed f;
    f.Pick("预开票汇总表");
    Form* form = f.mdi->Windows.Find("frm预开票汇总表");
    ASSERT_NE(form, nullptr);
    RunUserAction([form] { form->SetWindowState(2); });
    QApplication::processEvents();
    FormSubWindow* window = f.frame->SubWindowOf(*form);
    ASSERT_TRUE(window->isMaximized());
    for (const QSize frameSize : {QSize(1300, 900), QSize(800, 520)}) {
        SCOPED_TRACE(frameSize.width());
        f.frame->resize(frameSize);
        QApplication::processEvents();
        const QSize area = f.frame->MdiArea()->viewport()->size();
        EXPECT_EQ(window->geometry(), QRect(QPoint(0, 0), area)) << "the whole area, no more";
        EXPECT_TRUE(window->isMaximized());
        EXPECT_EQ(form->WindowState(), 2);
        EXPECT_EQ(form->ScaleWidth(), PixelsToTwips(window->widget()->width())) << "Form_Resize ran for it";
        EXPECT_EQ(form->ScaleHeight(), PixelsToTwips(window->widget()->height()));
    }
}

TEST(MainFrame, AWindowLargerThanTheFrameIsScrolledToAndCascadedOnesStayInside) {
    Framed f;
    f.frame->resize(900, 600);
    QApplication::processEvents();
    const QSize area = f.frame->MdiArea()->viewport()->size();
    const QSize nearlyArea = area - QSize(30, 30);
    RegisterSized(*f.mdi, "frm停车费明细表New", nearlyArea);
    RegisterSized(*f.mdi, "frm预开票汇总表", nearlyArea);
    RegisterSized(*f.mdi, "frm票据核对表", nearlyArea);
    RegisterSized(*f.mdi, "frm票据开票明细表New", area + QSize(200, 150));
    f.Pick("停车费明细表");
    f.Pick("预开票汇总表");
    f.Pick("开票票据核对表");
    struct Case {
        const char* why;
        const char* name;
        QPoint place;
    };
    const Case cases[] = {
        {"the first at the corner", "frm停车费明细表New", QPoint(0, 0)},
        {"the second one step on: it still fits", "frm预开票汇总表", QPoint(24, 24)},
        {"the third would stick out two steps on: it stops at the edge", "frm票据核对表", QPoint(30, 30)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        Form* form = f.mdi->Windows.Find(c.name);
        ASSERT_NE(form, nullptr);
        FormSubWindow* window = f.frame->SubWindowOf(*form);
        EXPECT_EQ(window->pos(), c.place);
        EXPECT_TRUE(QRect(QPoint(0, 0), area).contains(window->geometry())) << "wholly inside";
        EXPECT_EQ(form->Left(), PixelsToTwips(c.place.x())) << "the model knows the place";
    }
    EXPECT_EQ(f.frame->MdiArea()->horizontalScrollBar()->maximum(), 0) << "nothing sticks out yet";

    f.Pick("增值税开票明细表");
    Form* large = f.mdi->Windows.Find("frm票据开票明细表New");
    ASSERT_NE(large, nullptr);
    EXPECT_EQ(f.frame->SubWindowOf(*large)->pos(), QPoint(0, 0)) << "too large to cascade: at the corner";
    QApplication::processEvents();
    QScrollBar* across = f.frame->MdiArea()->horizontalScrollBar();
    QScrollBar* down = f.frame->MdiArea()->verticalScrollBar();
    EXPECT_TRUE(across->isVisible());
    EXPECT_TRUE(down->isVisible());
    EXPECT_GE(across->maximum(), 200 - down->width()) << "scrolled far enough to reach its right edge";
}

TEST(MainFrame, CloseBoxAnsweredNoKeepsTheProgram) {
    Framed f;
    f.Pick("开票票据核对表");
    f.dialogs.QueueAnswer(vbNo);
    f.frame->close();
    QApplication::processEvents();
    ASSERT_EQ(f.dialogs.Messages().size(), 1u);
    EXPECT_EQ(f.dialogs.Messages()[0].Text, "确认要退出系统吗？");
    EXPECT_TRUE(f.frame->isVisible());
    EXPECT_EQ(f.SubWindows(), 1);
}

TEST(MainFrame, ClientSizeAndBannerStrips) {
    Framed f;
    const QSize client = f.frame->MdiArea()->viewport()->size();
    EXPECT_EQ(f.mdi->ScaleWidth(), client.width() * 15);
    EXPECT_EQ(f.mdi->ScaleHeight(), client.height() * 15);
    QWidget* banner = f.frame->findChild<QWidget*>("Picture1");
    ASSERT_NE(banner, nullptr);
    EXPECT_EQ(banner->height(), 70);
    const QImage image = Snapshot(*banner);
    const int w = image.width();
    ASSERT_GT(w, 900);
    EXPECT_EQ(image.pixelColor(10, 35), QColor(Qt::red)) << "the fixed left part";
    EXPECT_EQ(image.pixelColor(615, 35), QColor(Qt::green)) << "a copy of the strip";
    EXPECT_EQ(image.pixelColor(w - 270, 35), QColor(Qt::green)) << "the last strip before the end piece";
    EXPECT_EQ(image.pixelColor(w - 3, 35), QColor(Qt::blue)) << "the end piece flush right";
}

TEST(MainFrame, BackgroundPictureStretchedOrEmpty) {
    {
        Framed f(true);
        const QBrush brush = f.frame->MdiArea()->background();
        ASSERT_FALSE(brush.texture().isNull());
        EXPECT_EQ(brush.texture().size(), f.frame->MdiArea()->viewport()->size()) << "stretched to the area";
        EXPECT_EQ(brush.texture().toImage().pixelColor(5, 5), QColor(10, 200, 30));
    }
    {
        Framed f(false);
        EXPECT_TRUE(f.frame->MdiArea()->background().texture().isNull()) << "no MDI.BMP: left empty";
    }
}

TEST(MainFrame, BusyPointerShowsTheHourglass) {
    Framed f;
    TheScreen().SetMousePointer(kPointerHourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    TheScreen().SetMousePointer(kPointerDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// A report window reduced to what printing needs of it.
class PrintableForm : public Form {
public:
    PrintableForm() : Form("frm票据核对表", "核对") {
        AddControl(List1); // drawn by another kind of scroll area, before the grid
        AddControl(MSFlexGrid1);
        List1.Move(0, 0, 1500, 1500);
        MSFlexGrid1.Move(1500, 0, 4500, 3000);
    }
    ListBox List1{"List1"};
    FlexGrid MSFlexGrid1{"MSFlexGrid1"};
    bool PrintResult(const std::function<void(const PrintJob&)>& print) override {
        print(PrintJob{"核对表", "2024年 01月 至 12月", &MSFlexGrid1});
        return true;
    }
};

// Ctrl+P previews the window in front; a window without a result grid asks for nothing.
TEST(MainFrame, PrintPreviewShowsTheResultOfTheWindowInFront) {
    Framed f;
    QAction* preview = f.frame->PrintPreviewAction();
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(preview->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_P));
    QAction* quitMenu = f.frame->ActionOf("退出系统");
    ASSERT_NE(quitMenu, nullptr);
    ASSERT_NE(quitMenu->menu(), nullptr);
    EXPECT_TRUE(quitMenu->menu()->actions().contains(preview));
    EXPECT_EQ(f.frame->ActionOf("退出")->text(), QString("退出"));

    preview->trigger(); // no window open
    EXPECT_TRUE(f.dialogs.PrintJobs().empty());

    f.mdi->Windows.Register("frm票据核对表", [](AppSession&, Dialogs&) -> std::unique_ptr<Form> {
        return std::make_unique<PrintableForm>();
    });
    f.Pick("开票票据核对表");
    f.Pick("停车费明细表"); // a placeholder in front prints nothing
    preview->trigger();
    EXPECT_TRUE(f.dialogs.PrintJobs().empty());
    f.Pick("开票票据核对表");
    auto* recon = dynamic_cast<PrintableForm*>(f.mdi->Windows.Find("frm票据核对表"));
    ASSERT_NE(recon, nullptr);
    preview->trigger();
    ASSERT_EQ(f.dialogs.PrintJobs().size(), 1u);
    EXPECT_EQ(f.dialogs.PrintJobs()[0].title, "核对表");
    EXPECT_EQ(f.dialogs.PrintJobs()[0].grid, &recon->MSFlexGrid1);

    f.Pick("关于软件");
    preview->trigger();
    EXPECT_EQ(f.dialogs.PrintJobs().size(), 1u);
}

// The grid's own 打印预览… previews its window, also while another window is in front.
TEST(MainFrame, TheGridsMenuPreviewsItsOwnWindow) {
    Framed f;
    f.mdi->Windows.Register("frm票据核对表", [](AppSession&, Dialogs&) -> std::unique_ptr<Form> {
        return std::make_unique<PrintableForm>();
    });
    f.Pick("开票票据核对表");
    auto* recon = dynamic_cast<PrintableForm*>(f.mdi->Windows.Find("frm票据核对表"));
    ASSERT_NE(recon, nullptr);
    FormView* view = f.frame->SubWindowOf(*recon)->View();
    auto* grid = dynamic_cast<FlexGridWidget*>(view->WidgetOf("MSFlexGrid1"));
    ASSERT_NE(grid, nullptr);
    f.Pick("停车费明细表");
    QAction* print = nullptr;
    for (QAction* action : grid->PrepareContextMenu(QPoint(5, 5)))
        if (action->objectName() == "PrintPreview") print = action;
    ASSERT_NE(print, nullptr) << "the frame offers the grid a preview";
    print->trigger();
    ASSERT_EQ(f.dialogs.PrintJobs().size(), 1u);
    EXPECT_EQ(f.dialogs.PrintJobs()[0].grid, &recon->MSFlexGrid1);
    recon->List1.AddItem("一区");
    EXPECT_EQ(dynamic_cast<QListWidget*>(view->WidgetOf("List1"))->count(), 1)
        << "the list is left as it was";
}

} // namespace
} // namespace quillon
