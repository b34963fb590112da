#pragma once

#include "LumQtGlobal.h"

#include <QObject>

/// Work of an application that an executer takes along (CBaseSyncExecuter, last argument) and asks to stop
/// when the window that waits for it goes away.
///
/// Derive from it. All operations are called in the GUI thread. \since 1.0
class LUMQT_EXPORT CUIBaseThread : public QObject
{
    Q_OBJECT

public:
    /// \since 1.0
    explicit CUIBaseThread(QObject *parent = nullptr);
    ~CUIBaseThread() override;

    /// Begins the work. The library does not call it.
    /// \since 1.0
    virtual void startWork() = 0;

    /// Whether the work is under way. The library does not call it.
    /// \since 1.0
    virtual bool isWorking() const = 0;

    /// Asks the work to stop and returns at once. It may delete the object.
    /// \since 1.0
    virtual void requestQuit() = 0;
};
