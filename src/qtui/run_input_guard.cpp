#include "qtui/run_input_guard.h"

#include <QApplication>
#include <QInputEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace quillon {
namespace {

// The input that starts something; releases and moves are left alone.
bool StartsSomething(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        return true;
    default:
        return false;
    }
}

// A dialog or popup the run opened takes its input as usual.
bool InsideOpenDialog(QObject* receiver) {
    for (QWidget* top : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
        if (!top) continue;
        if (auto* widget = qobject_cast<QWidget*>(receiver);
            widget && (widget == top || top->isAncestorOf(widget)))
            return true;
        if (auto* window = qobject_cast<QWindow*>(receiver); window && window == top->windowHandle())
            return true;
    }
    return false;
}

} // namespace

RunInputGuard* RunInputGuard::OfApplication() {
    static QPointer<RunInputGuard> guard;
    if (!guard && QCoreApplication::instance()) guard = new RunInputGuard(QCoreApplication::instance());
    return guard;
}

RunInputGuard::RunInputGuard(QObject* application) : QObject(application) {
    clock_.start();
    application->installEventFilter(this);
}

void RunInputGuard::BeginRun() {
    ++depth_;
}

void RunInputGuard::EndRun() {
    if (depth_ > 0 && --depth_ > 0) return;
    if (lastStamp_ != 0) runEndStamp_ = lastStamp_ + static_cast<quint64>(clock_.elapsed() - lastSeen_);
}

bool RunInputGuard::Drops(QObject* receiver, QEvent* event) const {
    if (!StartsSomething(event->type()) || InsideOpenDialog(receiver)) return false;
    if (depth_ > 0) return true;
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    // Synthetic input carries no time stamp; it is never taken for stale.
    return input && input->timestamp() != 0 && input->timestamp() <= runEndStamp_;
}

bool RunInputGuard::eventFilter(QObject* watched, QEvent* event) {
    if (Drops(watched, event)) return true;
    if (const auto* input = dynamic_cast<const QInputEvent*>(event); input && input->timestamp() != 0) {
        lastStamp_ = input->timestamp();
        lastSeen_ = clock_.elapsed();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quillon
