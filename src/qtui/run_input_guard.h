// run_input_guard.h — Qt skin: a run holds the one thread, as the old program did, but a click or
// key the user makes meanwhile is dropped, not queued: a double click on 开始统计 makes one run.
//
// While a user action's handler runs (RunUserAction), presses, double clicks, wheel turns, key
// presses and shortcuts are eaten as the handler's yields deliver them. Those the window system
// still holds when the run ends are recognised by their time stamp: the window system's clock at
// the run's end is estimated from the last input passed on and the time since. Releases pass,
// so that no widget is left thinking a button is still down. Dialogs the run opens (a message,
// the file dialog, a popup in them) are answered as usual.
#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace quillon {

class RunInputGuard : public QObject {
public:
    // The guard of the running application, installed on it at the first call; nullptr when
    // there is no application.
    static RunInputGuard* OfApplication();

    void BeginRun();
    void EndRun();
    bool Busy() const { return depth_ > 0; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit RunInputGuard(QObject* application);
    bool Drops(QObject* receiver, QEvent* event) const;

    int depth_ = 0;
    QElapsedTimer clock_;
    quint64 lastStamp_ = 0;   // time stamp of the last input passed on (window system's clock)
    qint64 lastSeen_ = 0;     // clock_ when it was passed on
    quint64 runEndStamp_ = 0; // input stamped up to this was made while a run held the thread
};

} // namespace quillon
