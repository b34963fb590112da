#include "Await.h"
#include "CBPAnimationObj.h"
#include "CBPEllipsisGifLabel.h"
#include "CBPGifLable.h"
#include "Rows.h"
#include "TestMain.h"

#include <QAbstractEventDispatcher>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const QColor kColors[] = {Qt::red, Qt::green, Qt::blue};

QPixmap picture(const QColor &color, int width = 20, int height = 10)
{
    QPixmap pixmap(width, height);
    pixmap.fill(color);
    return pixmap;
}

QVector<QPixmap> pictures(int count)
{
    QVector<QPixmap> result;
    for (int i = 0; i < count; ++i)
        result.append(picture(kColors[i % 3], i + 1, 1)); // the width tells which one it is
    return result;
}

QColor colorOf(const QPixmap &pixmap)
{
    return pixmap.isNull() ? QColor() : pixmap.toImage().pixelColor(0, 0);
}

QColor shownBy(const QLabel &label)
{
    return colorOf(label.pixmap(Qt::ReturnByValue));
}

QList<QAbstractEventDispatcher::TimerInfo> timersOf(QObject &object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(&object);
}

// What the clock would do, without waiting for it.
void tick(CBPAnimationObj &animation, int times = 1)
{
    for (int i = 0; i < times; ++i)
        QVERIFY(QMetaObject::invokeMethod(&animation, "onTimeout", Qt::DirectConnection));
}

void tick(QObject &label, int stranger = 0)
{
    QCOMPARE(timersOf(label).size(), 1);
    QTimerEvent event(timersOf(label).first().timerId + stranger);
    QCoreApplication::sendEvent(&label, &event);
}

} // namespace

class TestAnimation : public QObject
{
    Q_OBJECT

private:
    // A folder of pictures 0.png, 1.png, ... in the colours above.
    QString folder(int files)
    {
        const QString path = m_dir.filePath(QString("of%1 %1").arg(files)); // "%1" is no place for a number
        QDir().mkpath(path);
        for (int i = 0; i < files; ++i)
            picture(kColors[i]).save(QString("%1/%2.png").arg(path).arg(i));
        return path;
    }

    QTemporaryDir m_dir;

private Q_SLOTS:
    void ticks_data()
    {
        columns<int, int, int, QVector<int>>("frames", "delay", "silentTicks", "indexes");
        row("24 frames", 24, -1000, 10, QVector<int>{16, 17, 18}); // -1000: the default
        row("3 frames, around", 3, -1000, 10, QVector<int>{1, 2, 0, 1});
        row("no frames", 0, -1000, 10, QVector<int>());
        row("delay 0", 3, 0, 0, QVector<int>{1, 2});
        row("delay of one tick", 3, 80, 1, QVector<int>{1, 2});
        row("delay of less than a tick", 3, 79, 0, QVector<int>{1, 2});
        row("least delay there is", 3, INT_MIN, 0, QVector<int>{1, 2});
    }
    void ticks()
    {
        QFETCH(int, frames);
        QFETCH(int, delay);
        QFETCH(int, silentTicks);
        QFETCH(QVector<int>, indexes);
        CBPAnimationObj animation(pictures(frames));
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        QVERIFY(!animation.isRunning());
        animation.start();
        if (delay != -1000)
            animation.setDelayInterval(delay);
        tick(animation, silentTicks);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(animation.curentIndex(), 255);
        QVERIFY(animation.currentPixmap().isNull() && animation.pixmapAt(0).isNull());
        for (const int index : indexes) {
            tick(animation);
            QCOMPARE(spy.count(), 1);
            QCOMPARE(spy.takeFirst().at(0).toInt(), index);
            QCOMPARE(animation.curentIndex(), index);
            QCOMPARE(animation.currentPixmap().width(), index + 1);
            QCOMPARE(animation.pixmapAt(0).width(), 1);
            QVERIFY(animation.pixmapAt(frames).isNull() && animation.pixmapAt(-1).isNull());
        }
        QVERIFY(animation.isRunning());
        tick(animation);
        QCOMPARE(animation.isRunning(), frames > 0); // there is nothing to run for
        QCOMPARE(spy.count(), frames > 0 ? 1 : 0);
    }

    void countsItsRuns()
    {
        CBPAnimationObj animation(pictures(3));
        QSignalSpy told(&animation, &CBPAnimationObj::runningChanged);
        animation.setDelayInterval(-1);
        animation.stop(); // one too many is none, and sets the delay
        animation.start();
        animation.start();
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        tick(animation, 10);
        animation.stop();
        QVERIFY(animation.isRunning());
        tick(animation, 10); // the delay began anew
        QCOMPARE(spy.count(), 0);
        tick(animation);
        QCOMPARE(spy.count(), 1);
        animation.stop();
        QVERIFY(!animation.isRunning());
        QCOMPARE(told, QList<QVariantList>({{true}, {false}}));
        QCOMPARE(animation.curentIndex(), 1); // stays
        for (const int bad : {0, -20}) {
            QTest::ignoreMessage(QtWarningMsg,
                                 qPrintable(QString("CBPAnimationObj: %1 ms is no interval").arg(bad)));
            animation.setInterval(bad);
        }
        animation.setInterval(50);
        animation.resetDelayInterval();
        QCOMPARE(animation.delayInterval(), 500);
        animation.setInterval(INT_MAX);
        animation.stop(); // ten times as much is more than a number holds
        tick(animation);
        QCOMPARE(spy.count(), 1);
        tick(animation);
        QCOMPARE(spy.count(), 2);
    }

    void framesFromFiles()
    {
        const QString dir = folder(3);
        const QString missing = dir + "/no such file.png";
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("The image %1 is missing").arg(missing)));
        QPointer<CBPAnimationObj> animation =
            new CBPAnimationObj(QStringList{dir + "/1.png", missing, dir + "/2.png", QString()});
        animation->setDelayInterval(-1);
        tick(*animation, 2); // 256 mod 4, and on
        QCOMPARE(colorOf(animation->pixmapAt(0)), kColors[1]);
        QCOMPARE(colorOf(animation->pixmapAt(2)), kColors[2]);
        QCOMPARE(animation->curentIndex(), 1);
        QVERIFY(animation->currentPixmap().isNull());
        // What listens to it may delete it.
        connect(animation.data(), &CBPAnimationObj::frameChanged, this, [&animation] { delete animation; });
        tick(*animation);
        QVERIFY(!animation);
        for (const bool last : {true, false}) {
            animation = new CBPAnimationObj(QStringList());
            connect(animation.data(), &CBPAnimationObj::runningChanged, this,
                    [&animation, last](bool running) {
                        if (running != last)
                            delete animation;
                    });
            animation->start();
            QCOMPARE(!animation, !last);
            if (last) {
                animation->setDelayInterval(-1);
                tick(*animation); // there is nothing to run for
            }
            QVERIFY(!animation);
        }
    }

    void newFrames()
    {
        const QString dir = folder(2);
        for (const int starts : {0, 1, 2}) {
            CBPAnimationObj animation(pictures(24));
            animation.setDelayInterval(-1);
            tick(animation);
            for (int i = 0; i < starts; ++i)
                animation.start();
            QSignalSpy told(&animation, &CBPAnimationObj::runningChanged);
            animation.setRes({dir + "/0.png", dir + "/1.png"});
            QCOMPARE(animation.isRunning(), starts > 0);
            QVERIFY(told.isEmpty());
            QVERIFY(animation.currentPixmap().isNull()); // number 16 of two
            QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
            tick(animation, 11);
            QCOMPARE(spy.count(), starts ? 1 : 11);
            for (int i = 0; i < starts; ++i) {
                QVERIFY(animation.isRunning());
                animation.stop();
            }
            QVERIFY(!animation.isRunning());
        }
    }

    void strips_data()
    {
        columns<int, bool, QVector<QSize>, QVector<QColor>>("count", "horizontal", "sizes", "colors");
        row("one", 1, true, QVector<QSize>{{16, 16}}, QVector<QColor>{Qt::red});
        row("two in a row", 2, true, QVector<QSize>{{8, 16}, {4, 16}}, QVector<QColor>{Qt::red, Qt::red});
        row("three below each other: nothing is left for the third", 3, false,
            QVector<QSize>{{16, 5}, {16, 1}, {0, 0}}, QVector<QColor>{Qt::red, Qt::green, QColor()});
        row("less than none", -3, true, QVector<QSize>(), QVector<QColor>());
    }
    void strips()
    {
        QFETCH(int, count);
        QFETCH(bool, horizontal);
        QFETCH(QVector<QSize>, sizes);
        QFETCH(QVector<QColor>, colors); // of the top left pixels
        QImage strip(16, 16, QImage::Format_RGB32);
        strip.fill(Qt::red);
        for (int x = 0; x < 16; ++x)
            strip.setPixelColor(x, 1, Qt::green);
        const QString file = m_dir.filePath("strip.png");
        QVERIFY(strip.save(file));
        CBPAnimationObj animation(file, count, horizontal);
        animation.setDelayInterval(-1);
        tick(animation);
        for (int i = 0; i < sizes.size(); ++i) {
            const QPixmap frame = animation.pixmapAt(i);
            QCOMPARE(frame.size() / frame.devicePixelRatio(), sizes.at(i));
            QCOMPARE(colorOf(frame), colors.at(i));
        }
        QVERIFY(animation.pixmapAt(sizes.size()).isNull());
        QCOMPARE(animation.curentIndex(), sizes.isEmpty() ? 255 : 256 % sizes.size());
    }

    void stripOfTooManyFrames()
    {
        const QString file = m_dir.filePath("none.png");
        QTest::ignoreMessage(QtWarningMsg, "CBPAnimationObj: a strip has no more than 4096 frames");
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("The image %1 is missing").arg(file)));
        CBPAnimationObj animation(file, INT_MAX, true);
        tick(animation, 11);
        QCOMPARE(animation.curentIndex(), 256); // of as many as were asked for
    }

    void gifPlaysOneFrameMoreThanItsCount()
    {
        const QString dir = folder(3);
        CBPGifLable label(dir, 2);
        QCOMPARE(label.size(), QSize(20, 10));
        QCOMPARE(label.minimumSize(), label.maximumSize());
        label.StopGif(); // was not running
        label.show();
        QVERIFY(!label.IsRunning());
        QVERIFY(label.StartGif() && label.IsRunning());
        QVERIFY(!shownBy(label).isValid()); // until the first tick
        QCOMPARE(timersOf(label).first().interval, 100);
        for (const int i : {0, 1, 2, 0, 1}) {
            tick(label);
            QCOMPARE(shownBy(label), kColors[i]);
        }
        QVERIFY(label.StartGif()); // from the beginning, on one timer still
        tick(label);
        tick(label, 1);
        QCOMPARE(shownBy(label), kColors[0]);
        AWAIT_EQUAL(shownBy(label), kColors[1]); // on the clock
        label.StopGif();
        QVERIFY(!label.IsRunning() && timersOf(label).isEmpty());
        QVERIFY(!shownBy(label).isValid());
        // As a rule there is no picture of the number that stands for none.
        picture(Qt::yellow).save(dir + "/-1.png");
        label.StartGif();
        label.StopGif();
        QCOMPARE(shownBy(label), QColor(Qt::yellow));
        QFile::remove(dir + "/-1.png");
    }

    void gifWithoutPictures()
    {
        CBPGifLable label;
        QCOMPARE(label.maximumWidth(), QWIDGETSIZE_MAX);
        label.show();
        QVERIFY(!label.StartGif());
        label.SetResInfo(QString(), 3);
        QCOMPARE(label.size(), QSize(0, 0));
        QVERIFY(label.StartGif() && label.IsRunning());
        tick(label);
        QVERIFY(!shownBy(label).isValid());
        for (const int count : {0, -5}) { // a start that fails leaves what plays alone
            for (const bool hidden : {false, true}) {
                label.SetResInfo(folder(3), 2);
                QCOMPARE(label.size(), QSize(20, 10));
                label.StartGif();
                tick(label);
                label.SetResInfo(folder(3), count);
                label.setVisible(!hidden);
                QVERIFY(!label.StartGif() && !label.IsRunning());
                QCOMPARE(timersOf(label).size(), hidden ? 0 : 1);
                QCOMPARE(shownBy(label), kColors[0]);
                label.StopGif();
                label.show();
                QVERIFY(timersOf(label).isEmpty() && !shownBy(label).isValid());
            }
        }
    }

    // Nobody sees them, so nothing ticks; they go on where they were.
    void restWhileHidden()
    {
        QWidget window;
        CBPGifLable gif(folder(3), 2, &window);
        CBPEllipsisGifLabel dots(3, &window);
        QVERIFY(gif.StartGif() && gif.IsRunning() && dots.ShowGifLable());
        for (const int turn : {1, 2}) {
            QVERIFY(timersOf(gif).isEmpty() && timersOf(dots).isEmpty());
            window.show();
            tick(gif);
            tick(dots);
            QCOMPARE(shownBy(gif), kColors[turn - 1]);
            QCOMPARE(dots.text(), QString(turn, '.'));
            window.hide();
            QVERIFY(gif.IsRunning() && !dots.ShowGifLable());
        }
        gif.StopGif(); // while it rests
        QVERIFY(!gif.IsRunning() && !shownBy(gif).isValid());
        window.show();
        QVERIFY(timersOf(gif).isEmpty());
    }

    // Three and one, none, less than none, and no end of them.
    void dots()
    {
        const QVector<QPair<int, QStringList>> rows{{3, {".", "..", "...", "", "."}},
                                                    {1, {".", "", "."}},
                                                    {0, {"", ""}},
                                                    {-7, {"", ""}},
                                                    {INT_MAX, {".", "..", "...", "...."}}};
        for (const auto &[most, texts] : rows) {
            CBPEllipsisGifLabel label(most);
            label.setText("Wait");
            QVERIFY(label.ShowGifLable() && label.isVisible());
            QVERIFY(!label.ShowGifLable());
            QCOMPARE(timersOf(label).first().interval, 1000);
            QCOMPARE(label.text(), QString("Wait"));
            QVERIFY(label.sizeHint().width() < 1000);
            tick(label);
            const QSize room = label.sizeHint();
            for (const QString &text : texts) {
                tick(label, 1); // a stranger's
                QCOMPARE(label.text(), text);
                QCOMPARE(label.sizeHint(), room); // nothing beside it moves
                QCOMPARE(label.minimumSizeHint(), room);
                tick(label);
            }
        }
    }

    void dotsPlayOnce()
    {
        CBPEllipsisGifLabel label;
        label.HideGifLable(); // never shown
        label.ShowGifLable();
        label.HideGifLable();
        QVERIFY(!label.isVisible());
        QVERIFY(!label.ShowGifLable() && !label.isVisible());
        label.show();
        QVERIFY(timersOf(label).isEmpty());
    }
};

LUMQT_TEST_MAIN(TestAnimation)
#include "tst_animation.moc"
