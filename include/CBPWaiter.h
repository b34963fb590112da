#pragma once

#include "LumQtGlobal.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QFont>
#include <QPointer>
#include <QSize>
#include <QStringList>
#include <QTimer>

class QPainter;

/// A small modal dialog that says that something is going on: the two halves of a picture close in on a text,
/// whose dots then come and go.
///
/// It is 130 x 38 pixels and ends by itself: after the time limit, and after five minutes in any case. While
/// its window is minimised it only waits for these. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPWaiter : public QDialog
{
    Q_OBJECT
    /// The text, without the dots. \since 1.0
    Q_PROPERTY(QString text READ text CONSTANT)
    /// After how many milliseconds the waiter ends by itself. \since 1.0
    Q_PROPERTY(uint timeLimit READ timeLimit CONSTANT)
    /// Whether Escape and close requests end the waiter. \since 1.0
    Q_PROPERTY(bool respondsToEsc READ respondsToEsc WRITE SetRespondEsc)

public:
    /// A waiter over \a parent that shows \a text for \a timeLimit milliseconds at most; with 0 it ends with
    /// its first picture. A text that is wider than the dialog is cut off. The flag has no effect. \since 1.0
    CBPWaiter(QWidget *parent, QString text, unsigned int timeLimit, bool);
    ~CBPWaiter() override;

    /// Runs the dialog until it is ended, which may be while it is being shown. It may be gone when this
    /// returns. The result() is 1 after the time limit or UnRun(), 0 after Escape, closing or hiding. As long
    /// as this has not returned, as in slots of the dialog's own signals, a further call does nothing.
    /// \since 1.0
    void Run();

    /// Ends the dialog with the result 1.
    /// \since 1.0
    void UnRun();

    /// Whether Escape and close requests end the dialog; they do at first.
    /// \since 1.0
    void SetRespondEsc(bool respond);

    /// Whether Escape and close requests end the dialog. \since 1.0
    bool respondsToEsc() const { return m_respondEsc; }

    /// The text, without the dots. \since 1.0
    QString text() const { return m_text; }

    /// The time limit in milliseconds. \since 1.0
    unsigned int timeLimit() const { return m_timeLimit; }

    void done(int result) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private Q_SLOTS:
    void on_timeout();
    void on_TimeoutQuit();

private:
    void Init();
    void DrawAnimated(QPainter *painter, QRect &rect);
    void DrawTextW(QPainter *painter, QRect &rect);
    void drawHalves(QPainter *painter, const QRect &rect);
    QRect textBox(const QRect &rect) const;
    bool isOver() const;
    void advance();
    void restartTimer();
    void stopTimers();

    QString m_text;
    unsigned int m_timeLimit; // ms
    QStringList m_textFrames;
    QPointer<QTimer> m_animationTimer;
    QElapsedTimer m_runClock;
    QTimer m_quitTimer;
    QString m_leftImage; // paths
    QString m_rightImage;
    QFont m_font;
    QSize m_textSize;
    bool m_respondEsc = true;
    bool m_textPhase = false;
    quint8 m_step = 0; // of the way of the halves
    int m_dots = 0;    // number of the text frame
    bool m_running = false;
    bool m_resting = false; // minimised
};
