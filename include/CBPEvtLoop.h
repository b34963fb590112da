#pragma once

#include "LumQtGlobal.h"

#include <QEventLoop>

/// An event loop that counts: it is left once exit() was called as often as exec().
///
/// Used in the thread that made it. quit(), QEventLoop::exit() through a pointer to the base and
/// QCoreApplication::exit() leave the loop at once, however often it was entered, and set the count back.
/// \since 1.0
class LUMQT_EXPORT CBPEvtLoop : public QEventLoop
{
    Q_OBJECT

public:
    /// A loop without a parent that does not run.
    /// \since 1.0
    CBPEvtLoop();

    /// Leaves the loop first. A loop must outlive the exec() that runs it: whoever may destroy it meanwhile
    /// keeps it in a shared pointer. \since 1.0
    ~CBPEvtLoop() override;

    /// Runs the loop until it is left and returns the code it was left with. Within the loop itself it only
    /// counts, and returns -1 at once. \since 1.0
    int exec(QFlags<QEventLoop::ProcessEventsFlag> flags = QEventLoop::AllEvents);

    /// Takes one exec() back; the last one leaves the loop with `code`. Does nothing in a loop that does not
    /// run. \since 1.0
    void exit(int code = 0);

    /// Whether there is an exec() without its exit().
    /// \since 1.0
    bool isRunning() const;

private:
    int m_runCount = 0;
};
