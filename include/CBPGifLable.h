#pragma once

#include "LumQtGlobal.h"

#include <QLabel>
#include <QString>

/// A label that plays the image files "0.png", "1.png", ... of a folder, ten a second, over and over.
///
/// It is as large as the first picture. While it is hidden (by hand, with its window, minimised) the
/// animation rests; it goes on when the label is shown again. A missing file is an empty picture. GUI thread
/// only. \since 1.0
class LUMQT_EXPORT CBPGifLable : public QLabel
{
    Q_OBJECT
    /// Folder of the pictures; the first one gives the label its size. \since 1.0
    Q_PROPERTY(QString folder READ folder WRITE setFolder)
    /// Number of the last picture: there is one more, as they are counted from 0. \since 1.0
    Q_PROPERTY(int frameCount READ frameCount WRITE setFrameCount)
    /// Whether it plays; true waits for a number of pictures to play. \since 1.0
    Q_PROPERTY(bool running READ IsRunning WRITE setRunning NOTIFY runningChanged)

public:
    /// A label for the files 0 to \a count of the folder \a dir: one more than \a count says. \since 1.0
    CBPGifLable(const QString &dir, const int &count, QWidget *parent = nullptr);

    /// A label without a folder, of any size. \since 1.0
    explicit CBPGifLable(QWidget *parent = nullptr);

    ~CBPGifLable() override;

    /// Sets folder and count as the constructor does, and the size; 0 x 0 where there is no first picture. A
    /// running animation goes on with the new files. \since 1.0
    void SetResInfo(const QString &dir, const int &count);

    /// Starts with the first picture, which shows after a tenth of a second, or a tenth of a second after the
    /// label is shown. Returns whether the animation runs now.
    ///
    /// Not so for a count below 1. That stops nothing: what was started before plays on until StopGif(), but
    /// IsRunning() says no. \since 1.0
    bool StartGif();

    /// Stops the animation, also a resting one, and takes the picture away (a file "-1.png" would be shown
    /// in its place). Does nothing where none was started. \since 1.0
    void StopGif();

    /// Whether the last StartGif() succeeded and StopGif() did not follow; also while the animation rests
    /// hidden. \since 1.0
    bool IsRunning() const;

    /// StartGif(), unless it runs, or StopGif(). Where there are no pictures to play, it starts as soon as
    /// setFrameCount() tells of some. \since 1.0
    void setRunning(bool running);

    /// The folder of the pictures. \since 1.0
    QString folder() const;

    /// Sets the folder as SetResInfo() does. \since 1.0
    void setFolder(const QString &folder);

    /// The number of the last picture, as SetResInfo() was given it. \since 1.0
    int frameCount() const;

    /// Sets the number of the last picture as SetResInfo() does; below 1 none plays. \since 1.0
    void setFrameCount(int count);

Q_SIGNALS:
    /// IsRunning() is another one. \since 1.0
    void runningChanged(bool running);

protected:
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void RestSize();
    void SetResPic(int number);
    void killFrameTimer();
    void play();
    void startIfWaiting();

    int m_timerId = 0; // 0 also while the animation rests
    QString m_dir;
    int m_count = 0;
    int m_frame = 0;
    int m_shown = 0; // the frame that is to be seen
    bool m_running = false;
    bool m_playing = false; // a timer runs, or rests with the hidden label
    bool m_waiting = false; // to be started, once there are pictures
};
