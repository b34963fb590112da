#pragma once

#include "CBPAnimationObj.h"
#include "CBPPushBtn.h"
#include "CBPSyncObj.h"

#include <QStringList>

/// A push button that turns into its own spinner while somebody waits in it.
///
/// While it waits the button is disabled, shows the frames of an animation and its waiting text instead of
/// the text; after that it is as before, without an icon, and has the keyboard focus. Its text is what
/// setText() has set before the wait; what is set meanwhile is not kept. The waiting text stands in the
/// middle and the spinner before it, at the right of it from right to left; of a text too long for that as
/// much is shown as there is room for. The spinner rests while the button is not shown or its window
/// minimised. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPWaitBtn : public CBPPushBtn, public CBPSyncObj
{
    Q_OBJECT
    /// The image files of the spinner; an empty list is left out. \since 1.0
    Q_PROPERTY(QStringList frames READ frames WRITE setFrames)
    /// What stands beside the spinner. \since 1.0
    Q_PROPERTY(QString waitingText READ waitingText WRITE setWaitingText)
    /// Whether the button shows that somebody waits. \since 1.0
    Q_PROPERTY(bool waiting READ isWaitting NOTIFY waitingChanged DESIGNABLE false STORED false)

public:
    /// A button with \a text, which waits with \a waitingText and the pictures of the files \a frames.
    /// Without frames it has no spinner, and keeps its text, also as long as their files are missing. \a
    /// autoResize is CBPPushBtn's. \since 1.0
    CBPWaitBtn(const QStringList &frames, const QString &text, const QString &waitingText,
               QWidget *parent = nullptr, bool autoResize = false);

    /// The same without texts and frames.
    /// \since 1.0
    explicit CBPWaitBtn(QWidget *parent = nullptr);
    ~CBPWaitBtn() override;

    // Both a button and what is waited in have a text. The button's is meant here, the other one is
    // CBPSyncObj::setText() and not shown.
    using CBPPushBtn::setText;
    using CBPPushBtn::text;

    /// Shows the spinner and waits until exit() is called with the same \a loop, or with null as well for the
    /// button's own one. Returns the loop's code, or 0 at once when the loop runs already. \a global makes no
    /// difference. A wait that ends otherwise gives the button its look back, too. The button may be gone
    /// when this returns. \since 1.0
    int run(CBPEvtLoop *loop, bool global) override;

    /// Gives the button its text back, takes spinner and icon away, enables and focuses it, and ends the wait
    /// in \a loop. Returns 0. \since 1.0
    int exit(CBPEvtLoop *loop, bool global) override;

    /// Replaces both texts and shows \a text.
    /// \since 1.0
    void setWaitingText(QString &text, QString &waitingText);

    /// Replaces the frames, unless \a frames is empty. Each call connects the animation once more.
    /// \since 1.0
    void setReslist(const QStringList &frames);

    /// Replaces the frames as setReslist() does, without another connection.
    /// \since 1.0
    void setFrames(const QStringList &frames);

    /// The files of the frames.
    /// \since 1.0
    QStringList frames() const { return m_frames; }

    /// Replaces the waiting text, also while it shows.
    /// \since 1.0
    void setWaitingText(const QString &waitingText);

    /// The text that shows while somebody waits.
    /// \since 1.0
    QString waitingText() const { return m_waitingText; }

    /// Whether the button shows that somebody waits. A spinner that rests because nobody can see it counts.
    /// \since 1.0
    bool isWaitting();

    /// The frame that shows; null before the first one.
    /// \since 1.0
    QPixmap currentPixmap();

    /// With true starts the spinner and disables the button, with false takes the spinner away and enables
    /// it. text() stays as it is, also when that is the waiting text; in the place of an empty one the button
    /// then shows the text that a wait ends with. \since 1.0
    void Show(bool show);

Q_SIGNALS:
    /// The button shows from now on that somebody waits, or no longer. The button may be deleted here.
    /// \since 1.0
    void waitingChanged(bool waiting);

protected:
    /// Replaces the text that a wait ends with, and shows it.
    /// \since 1.0
    void setNormalText(const QString &text);

    /// The text; while none is shown that which a wait ends with. For screen readers. \since 1.0
    QString shownName() const;

    void drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private Q_SLOTS:
    void iconChanged(int iFrameNumber);
    void onBtnClicked();

private:
    class Accessible;
    friend class CBPPopWnd;

    void startWaiting();
    void stopWaiting();
    void endWaiting();
    void tellWaiting();
    void restore();
    void showText(const QString &text, bool waiting);
    bool showsSpinner() const;
    void drawSpinnerAndText(QPainter *painter, QPen &pen, const QRect &rect, int index);

    QString m_text;
    QString m_waitingText;
    QStringList m_frames;
    CBPAnimationObj m_animation;
    bool m_waiting = false;
    bool m_toldWaiting = false;      // what waitingChanged() has said last
    bool m_hidden = true;            // nobody can see it
    bool m_restored = false;         // exit() has ended the wait under way
    int m_waits = 0;                 // run() calls under way
    qint64 m_spinner = 0;            // cache key of the icon that is the frame
    bool m_showsWaitingText = false; // the spinner has set the text
};
