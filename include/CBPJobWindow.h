#pragma once

#include "CBPPopWnd.h"

#include <QElapsedTimer>

#include <memory>

class CBPGradientProgressBar;
class CBPLabel;

namespace lumqt {
class RemainingTime;
}

/// The small framed window that CBPJob::run() shows while somebody waits: a text on one line, the library's
/// progress bar, the remaining time once it can be told and, where the job can be cancelled, a button for
/// that.
///
/// An application makes one by itself for work of another kind. It is hidden or deleted by whoever made it,
/// also after its parent was hidden: its Cancel button, Escape and the system's closing send cancelled(),
/// once, and show that the job is stopping; where it cannot be cancelled they do nothing. Its title is that
/// of its parent's window or, if that has none, the application's name. The focus is not on the
/// button at first, so that who is typing presses nothing; Tab goes there. It takes no activation from a
/// window that it does not block. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPJobWindow : public CBPPopWnd
{
    Q_OBJECT
    /// What is going on, such as the file that is being copied; the end of a long one is cut. \since 1.0
    Q_PROPERTY(QString text READ text WRITE setText)
    /// How much is done, 0 to 1; negative where that is not known. \since 1.0
    Q_PROPERTY(double progress READ progress WRITE setProgress RESET resetProgress)
    /// Whether the user can cancel. \since 1.0
    Q_PROPERTY(bool cancellable READ isCancellable CONSTANT)
    /// Whether the user has cancelled. \since 1.0
    Q_PROPERTY(bool stopping READ isStopping NOTIFY cancelled DESIGNABLE false STORED false)

public:
    /// A window over \a parent with \a text, which has a Cancel button if it is \a cancellable. It is 420
    /// pixels wide. \since 1.0
    explicit CBPJobWindow(const QString &text, bool cancellable = true, QWidget *parent = nullptr);
    ~CBPJobWindow() override;

    /// The text, all of it. \since 1.0
    QString text() const { return m_text; }

    /// Shows \a text, and tells screen readers. \since 1.0
    void setText(const QString &text);

    /// How much is done; negative where that is not known. \since 1.0
    double progress() const { return m_progress; }

    /// Shows how much is done. What is above 1 counts as 1; with a negative number, and one that is none, a
    /// piece of the bar travels. The remaining time is told from the second second on, once a fiftieth is
    /// done. \since 1.0
    void setProgress(double progress);

    /// Shows that it is not known how much is done, as at first. \since 1.0
    void resetProgress();

    /// Whether the user can cancel. \since 1.0
    bool isCancellable() const { return m_cancellable; }

    /// Whether the user has cancelled. \since 1.0
    bool isStopping() const { return m_stopping; }

    /// Shows the window, modal to its parent's window or, without a parent, to the application. Returns at
    /// once. \since 1.0
    void open() override;

public Q_SLOTS:
    /// Does what the Cancel button does. Nothing where the window is not cancellable, or for the second time.
    /// \since 1.0
    void cancel();

Q_SIGNALS:
    /// The user does not want the job any more. The window may be deleted here. \since 1.0
    void cancelled();

protected:
    bool proceedBtnClicked(int flag) override;
    void OnClose() override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void makeContent();
    void retranslate();
    void tellTime();

    CBPLabel *m_label = nullptr;
    CBPGradientProgressBar *m_bar = nullptr;
    CBPLabel *m_time = nullptr;
    QString m_text;
    const bool m_cancellable;
    bool m_stopping = false;
    double m_progress = -1;
    std::unique_ptr<lumqt::RemainingTime> m_remaining;
    QElapsedTimer m_clock;
};
