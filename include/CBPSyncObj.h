#pragma once

#include "LumQtGlobal.h"

#include <QPointer>
#include <QString>
#include <QVector>

#include <memory>

class CBPEvtLoop;

namespace lumqt {
class JobWait;
}

/// What somebody waits in while a job runs: by itself an event loop that shows nothing, as a second base of a
/// window or button also what the user sees meanwhile.
///
/// Used in the GUI thread. It may be destroyed while it waits: the wait ends then. \since 1.0
class LUMQT_EXPORT CBPSyncObj
{
public:
    /// Without a text; it does not wait.
    /// \since 1.0
    CBPSyncObj();

    CBPSyncObj(const CBPSyncObj &) = delete;
    CBPSyncObj &operator=(const CBPSyncObj &) = delete;

    /// Ends a wait that is under way.
    /// \since 1.0
    virtual ~CBPSyncObj();

    /// Waits in `loop`, or in the object's own loop when that is null, until exit() is called with the same
    /// loop; events are handled meanwhile. Returns the loop's code, or 0 at once when the loop runs already.
    /// `global` tells a wait that belongs to no window; here it makes no difference. The object may be gone
    /// when this returns. \since 1.0
    virtual int run(CBPEvtLoop *loop, bool global);

    /// Ends the wait in `loop`, or in the object's own loop when that is null; nothing happens when that loop
    /// does not run. Returns 0. \since 1.0
    virtual int exit(CBPEvtLoop *loop, bool global);

    // Of a widget that is waited in, these names mean the widget's own text: they are hidden there on
    // purpose. The compiler reports that here, not there.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
#endif
    /// The text for whoever waits. Stored only.
    /// \since 1.0
    virtual void setText(QString text);

    /// The text of setText(), or of the executer that waits; empty at first.
    /// \since 1.0
    virtual QString text();
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

protected:
    /// Whether run() with this `loop`, or with null, would return at once because that loop runs already.
    /// \since 1.0
    bool isInLoop(const CBPEvtLoop *loop) const;

private:
    friend class CBaseSyncExecuter;
    friend class lumqt::JobWait;

    QString m_text;
    std::shared_ptr<CBPEvtLoop> m_ownLoop;
    QVector<QPointer<CBPEvtLoop>> m_waiting; // the loops of the waits under way, the innermost last
    std::shared_ptr<void> m_life;            // watched by who must know whether this object is still there
};
