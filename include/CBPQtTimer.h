#pragma once

#include "LumQtGlobal.h"

#include <QTimer>

/// A timer that counts its ticks.
/// \since 1.0
class LUMQT_EXPORT CBPQtTimer : public QTimer
{
    Q_OBJECT

public:
    /// A timer of 80 milliseconds. `parent` is ignored: the timer has no parent, so whoever made it deletes
    /// it. \since 1.0
    explicit CBPQtTimer(QObject *parent);

    /// The number of ticks since the last start() of this class.
    /// \since 1.0
    int timerCnt() const;

public Q_SLOTS:
    /// Starts the timer, or starts it anew, and counts from 0.
    /// \since 1.0
    void start();

    /// The same with an interval of `ms` milliseconds.
    /// \since 1.0
    void start(int ms);

private Q_SLOTS:
    void onTimeOut();

private:
    int m_count = 0;
};
