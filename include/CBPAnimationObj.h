#pragma once

#include "LumQtGlobal.h"

#include <QObject>
#include <QPixmap>
#include <QStringList>
#include <QTimer>
#include <QVector>

/// Steps through a list of pictures on a timer and tells of each new one; whoever shows them paints
/// currentPixmap().
///
/// It knows no widget, so it runs until it is stopped: stop it while what shows it is hidden. After start()
/// the first picture waits for the start delay, so that short waits show no animation at all. Files are
/// loaded from the paths as they are given ("name@2x.png" beside "name.png" is taken on dense screens); a
/// missing one, and one of more than 8192 x 8192 pixels, counts as an empty picture. GUI thread only.
/// \since 1.0
class LUMQT_EXPORT CBPAnimationObj : public QObject
{
    Q_OBJECT
    /// The image files, or the one that was cut; none where the pictures were given as such. \since 1.0
    Q_PROPERTY(QStringList images READ images WRITE setImages)
    /// Number of the pictures. \since 1.0
    Q_PROPERTY(int frameCount READ frameCount)
    /// Milliseconds from one picture to the next, 80 at first; less than 1 is left out. \since 1.0
    Q_PROPERTY(int interval READ interval WRITE setInterval RESET resetInterval)
    /// Milliseconds that are left of the start delay; below 0 it has run out. \since 1.0
    Q_PROPERTY(int delayInterval READ delayInterval WRITE setDelayInterval RESET resetDelayInterval)
    /// Whether the timer runs. \since 1.0
    Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged)
    /// Number of the current picture; 255 while none has been shown. \since 1.0
    Q_PROPERTY(int currentIndex READ curentIndex NOTIFY frameChanged)

public:
    /// An animation of the image files \a paths, in their order. \since 1.0
    explicit CBPAnimationObj(QStringList paths);

    /// An animation of \a frames, in their order. \since 1.0
    explicit CBPAnimationObj(QVector<QPixmap> frames);

    /// An animation cut from the one image \a file.
    ///
    /// The side of the strip is divided by \a count again for each picture: picture i is as wide (high) as
    /// the strip divided by count to the power of i + 1. So this is of use for a single picture. A negative
    /// count gives no pictures, one above 4096 that many with a warning. \since 1.0
    CBPAnimationObj(QString file, int count, bool horizontal);

    ~CBPAnimationObj() override;

    /// Starts the timer, or starts it anew. Each call needs a stop() of its own. \since 1.0
    void start();

    /// Takes back one start(); the last one stops the timer. The next start() has its delay again, ten times
    /// the interval as it is now; so has an animation that runs on. One call too many only sets the delay.
    /// \since 1.0
    void stop();

    /// Whether the timer runs. \since 1.0
    bool isRunning() const;

    /// Sets the time from one picture to the next in milliseconds, 80 at first. The start delay stays as it
    /// is until the next stop(). Less than 1 is left out with a warning. \since 1.0
    void setInterval(int ms);

    /// The time from one picture to the next in milliseconds. \since 1.0
    int interval() const;

    /// Makes it 80 milliseconds from one picture to the next. \since 1.0
    void resetInterval();

    /// Sets what is left of the start delay in milliseconds, 800 at first. The first picture comes with the
    /// tick that brings it below 0; a negative delay is none. \since 1.0
    void setDelayInterval(int ms);

    /// What is left of the start delay in milliseconds. \since 1.0
    int delayInterval() const;

    /// Makes it ten times the interval again. \since 1.0
    void resetDelayInterval();

    /// Replaces the pictures by the image files \a paths. A running animation goes on after a new start
    /// delay. \since 1.0
    void setRes(QStringList paths);

    /// setRes(); a single path is taken apart at its commas. \since 1.0
    void setImages(const QStringList &paths);

    /// The image files, or the one that was cut. \since 1.0
    QStringList images() const;

    /// How many pictures there are. \since 1.0
    int frameCount() const;

    /// Number of the current picture; 255 while none has been shown. \since 1.0
    int curentIndex() const;

    /// The current picture, null while none has been shown. \since 1.0
    QPixmap currentPixmap() const;

    /// The picture \a i; null while none has been shown (whatever \a i is), and where there is none of that
    /// number. \since 1.0
    QPixmap pixmapAt(int i) const;

Q_SIGNALS:
    /// The picture \a index is the current one now. \since 1.0
    void frameChanged(int index);

    /// The timer runs, or runs no more: the first start(), the last stop(), or a tick without a picture to
    /// show. The animation may be deleted here. \since 1.0
    void runningChanged(bool running);

protected:
    /// Called for each new picture; emits frameChanged(). \since 1.0
    virtual void onFrameChanged(int index);

private Q_SLOTS:
    void onTimeout();

private:
    void init();
    void begin();
    void end();
    void tellRunning();
    QVector<QPixmap> load() const;
    QVector<QPixmap> cutStrip() const;
    void followTheme() const;

    mutable QVector<QPixmap> m_frames;
    QStringList m_paths;              // of the frames, or of their strip
    mutable quint32 m_generation = 0; // of the theme whose pictures these are
    int m_stripFrames = 0;
    bool m_isStrip = false;
    bool m_horizontal = false; // the strip
    QTimer m_timer;
    int m_index;
    int m_startDelay; // milliseconds left; below 0 once it has run out
    int m_runs = 0;
    bool m_toldRunning = false; // what runningChanged() has said last
};
