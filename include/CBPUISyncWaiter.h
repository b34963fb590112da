#pragma once

#include "CBPPopWnd.h"
#include "CBPSyncObj.h"

class QLabel;

/// The small modal window with a spinner that is shown while a job runs.
///
/// It is 100 x 100 pixels, has no title bar and cannot be closed by the user, except by Escape where that is
/// allowed. It does not keep the application running. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPUISyncWaiter : public CBPPopWnd, public CBPSyncObj
{
    Q_OBJECT
    /// The text for whoever waits, see CBPSyncObj::text(). \since 1.0
    Q_PROPERTY(QString text READ text WRITE setText DESIGNABLE false)
    /// What the label of setWaitingLabel() shows; without one it cannot be set. \since 1.0
    Q_PROPERTY(QString waitingText READ waitingText WRITE setWaitingText DESIGNABLE false)
    /// Whether Escape ends the wait. \since 1.0
    Q_PROPERTY(bool respondsToEsc READ respondsToEsc WRITE SetRespondEsc)

public:
    /// A waiter over \a parent. The \a text is not shown; screen readers read it. \since 1.0
    explicit CBPUISyncWaiter(QString text, QWidget *parent = nullptr);
    ~CBPUISyncWaiter() override;

    /// Waits until exit() is called. Runs the window, and leaves \a loop alone, unless \a global is true:
    /// then nothing is shown, and \a loop, or the waiter's own when it is null, is waited in. Returns 0. The
    /// waiter may be gone when this returns. \since 1.0
    int run(CBPEvtLoop *loop, bool global) override;

    /// Ends the wait that was begun with the same arguments, and sets the result to 1. Returns 0.
    /// \since 1.0
    int exit(CBPEvtLoop *loop, bool global) override;

    /// Shows \a text in the label of setWaitingLabel(); does nothing without one.
    /// \since 1.0
    void setWaitingText(QString text);

    /// The text of the label of setWaitingLabel(); empty without one. \since 1.0
    QString waitingText() const;

    /// Whether Escape ends the wait; it does not at first. Together with Shift, Ctrl or Alt it never does.
    /// \since 1.0
    void SetRespondEsc(bool respond);

    /// Whether Escape ends the wait. \since 1.0
    bool respondsToEsc() const { return m_respondEsc; }

    /// 0 after the user has pressed Escape, 1 otherwise, also once exit() was called. Hides the pop-up's.
    /// \since 1.0
    int GetResult();

Q_SIGNALS:
    /// The user has pressed Escape, which is allowed; the window closes after this, unless a slot did that.
    /// \since 1.0
    void sigPressEscape();

protected:
    /// The label for setWaitingText(), null at first. It stays its owner's.
    /// \since 1.0
    void setWaitingLabel(QLabel *label);

    /// The tile that the spinner turns on.
    /// \since 1.0
    QRegion visibleShape() const override;

    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void Layout();

    QPointer<QLabel> m_spinner;
    QPointer<QLabel> m_waitingLabel;
    bool m_respondEsc = false;
    int m_waiterResult = 1;
};
