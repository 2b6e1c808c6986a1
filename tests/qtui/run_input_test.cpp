// A run holds the thread, and what the user clicks meanwhile is dropped: the second half of a
// double click on 开始统计, whether a yield of the run delivers it or it waits until the run is
// over, starts no second run; the wait panel has painted before the first statement.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QMouseEvent>
#include <QPushButton>

#include <chrono>
#include <functional>
#include <thread>
#include <utility>

#include "qt_test_app.h"
#include "qtui/form_view.h"
#include "qtui/qt_dialogs.h"
#include "qtui/run_input_guard.h"
#include "qtui/user_action.h"
#include "reconciliation/recon_fixture.h"

namespace quillon {
namespace {

// Qt's yield, with a hook into it; messages are recorded instead of shown.
class HookedDialogs : public QtDialogs {
public:
    HookedDialogs() : QtDialogs(QStringLiteral("测试")) {}
    int MsgBox(const std::string& text, const std::string&, int) override {
        messages.push_back(text);
        return vbOK;
    }
    void Yield() override {
        if (beforeYield) beforeYield();
        QtDialogs::Yield();
    }
    std::function<void()> beforeYield;
    std::vector<std::string> messages;
};

// Counts the paints a widget receives.
class PaintCounter : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

QMouseEvent* MouseAt(QWidget* widget, QEvent::Type type, quint64 stamp) {
    const QPointF at = QRectF(widget->rect()).center();
    auto* event =
        new QMouseEvent(type, at, widget->mapToGlobal(at), Qt::LeftButton,
                        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    event->setTimestamp(stamp);
    return event;
}

void Send(QWidget* widget, QEvent::Type type, quint64 stamp) {
    std::unique_ptr<QMouseEvent> event(MouseAt(widget, type, stamp));
    QApplication::sendEvent(widget, event.get());
}

class RunInput : public ReconTest {
protected:
    WithApp app;
    HookedDialogs qtDialogs;
};

TEST_F(RunInput, DoubleClickOnStartMakesOneRunAndThePanelPaintsFirst) {
    AddReconBooks(db);
    db.Invoice(OneLine(kSpecialLot, "S001", "2024-03-05", "2024-03-05", "WY", 1060, 60));
    SetUserActionDialogs(&qtDialogs);
    session.DbConnection = std::make_unique<Connection>();
    session.DbConnection->ConnectionString = db.ConnectionText();
    session.DbConnection->Open();
    frm票据核对表New w(session, qtDialogs);
    w.Load();
    FormView view(w);
    view.resize(1000, 640);
    view.show();
    QApplication::processEvents();
    w.List1.SetListIndex(0);
    w.Combo1.SetText("2024");
    w.Combo2.SetText("03");
    w.Combo3.SetText("03");

    auto* start = qobject_cast<QAbstractButton*>(view.WidgetOf("Command3"));
    ASSERT_NE(start, nullptr);
    ASSERT_TRUE(start->isVisible());
    PaintCounter panel;
    view.WidgetOf("Picture5")->installEventFilter(&panel);

    // The user's double click: press and release at t, then press, double click and release
    // 20 ms later, while the run holds the thread. The run's first yield delivers one half; the
    // window system keeps the other until the run is over (posted as the run ends: this counter
    // follows the window's own handler).
    constexpr quint64 t = 500'000;
    int runs = 0;
    w.Command3.Clicked.Connect([&] {
        if (++runs > 1) return;
        QCoreApplication::postEvent(start, MouseAt(start, QEvent::MouseButtonPress, t + 40));
        QCoreApplication::postEvent(start, MouseAt(start, QEvent::MouseButtonRelease, t + 45));
    });
    bool first = true;
    int paintsAtFirstStatement = -1;
    bool halfPosted = false;
    qtDialogs.beforeYield = [&] {
        if (std::exchange(halfPosted, true)) return;
        QCoreApplication::postEvent(start, MouseAt(start, QEvent::MouseButtonPress, t + 20));
        QCoreApplication::postEvent(start, MouseAt(start, QEvent::MouseButtonDblClick, t + 20));
        QCoreApplication::postEvent(start, MouseAt(start, QEvent::MouseButtonRelease, t + 25));
    };
    session.DbConnection->OnStatement = [&](const std::string&) {
        if (!first) return;
        first = false;
        paintsAtFirstStatement = panel.paints;
        std::this_thread::sleep_for(std::chrono::milliseconds(80)); // a long statement
    };

    Send(start, QEvent::MouseButtonPress, t);
    Send(start, QEvent::MouseButtonRelease, t + 10);
    EXPECT_FALSE(RunInputGuard::OfApplication()->Busy());
    QApplication::processEvents(); // what the window system held during the run
    EXPECT_EQ(runs, 1) << "the clicks made during the run started nothing";
    EXPECT_GT(paintsAtFirstStatement, 0) << "the wait panel painted before the first statement";
    EXPECT_TRUE(qtDialogs.messages.empty());
    EXPECT_GT(w.MSFlexGrid1.Rows(), 2) << "the run made its result";

    // A click made after the run is the user's next one.
    Send(start, QEvent::MouseButtonPress, t + 5'000);
    Send(start, QEvent::MouseButtonRelease, t + 5'010);
    QApplication::processEvents();
    EXPECT_EQ(runs, 2);
    SetUserActionDialogs(nullptr);
    view.Detach();
}

TEST(RunInputGuard, DropsWhatStartsSomethingWhileBusyAndLetsReleasesAndDialogsThrough) {
    WithApp app;
    RunInputGuard& guard = *RunInputGuard::OfApplication();
    QWidget target;
    struct Counter : QObject {
        std::vector<QEvent::Type> seen;
        bool eventFilter(QObject*, QEvent* e) override {
            // Keys and buttons only: a key press is preceded by its shortcut check, which passes.
            if (dynamic_cast<QSinglePointEvent*>(e) || e->type() == QEvent::KeyPress ||
                e->type() == QEvent::KeyRelease)
                seen.push_back(e->type());
            return false;
        }
    } counter;
    target.installEventFilter(&counter);
    QDialog dialog; // opened by the run: answered as usual
    dialog.setModal(true);
    QPushButton* answer = new QPushButton(QStringLiteral("确定"), &dialog);
    answer->installEventFilter(&counter);
    auto deliver = [&](QEvent::Type type) {
        std::unique_ptr<QMouseEvent> event(MouseAt(&target, type, 0));
        QApplication::sendEvent(&target, event.get());
        QKeyEvent key(type == QEvent::MouseButtonPress ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_Space,
                      Qt::NoModifier);
        QApplication::sendEvent(&target, &key);
    };
    guard.BeginRun();
    guard.BeginRun(); // a nested handler
    guard.EndRun();
    ASSERT_TRUE(guard.Busy()) << "busy until the outer handler ends";
    deliver(QEvent::MouseButtonPress);
    deliver(QEvent::MouseButtonRelease);
    EXPECT_EQ(counter.seen, (std::vector<QEvent::Type>{QEvent::MouseButtonRelease, QEvent::KeyRelease}));
    counter.seen.clear();
    dialog.show();
    ASSERT_EQ(QApplication::activeModalWidget(), &dialog);
    std::unique_ptr<QMouseEvent> press(MouseAt(answer, QEvent::MouseButtonPress, 0));
    QApplication::sendEvent(answer, press.get());
    deliver(QEvent::MouseButtonPress);
    EXPECT_EQ(counter.seen, (std::vector<QEvent::Type>{QEvent::MouseButtonPress}))
        << "the dialog's button takes the press, the window behind it does not";
    dialog.hide();
    counter.seen.clear();
    guard.EndRun();
    EXPECT_FALSE(guard.Busy());
    counter.seen.clear();
    deliver(QEvent::MouseButtonPress);
    EXPECT_EQ(counter.seen, (std::vector<QEvent::Type>{QEvent::MouseButtonPress, QEvent::KeyPress}))
        << "synthetic input without a time stamp is never taken for stale";
}

} // namespace
} // namespace quillon
