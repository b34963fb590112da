#include "CBPAnimationObj.h"
#include "CBPEllipsisGifLabel.h"
#include "CBPGifLable.h"
#include "TestMain.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const QColor kColors[] = {Qt::red, Qt::green, Qt::blue};
int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &, const QString &)
{
    warnings += type == QtWarningMsg || type == QtCriticalMsg;
}

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

QList<QAbstractEventDispatcher::TimerInfo> timersOf(QObject *object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object);
}

// What the clock would do, without waiting for it.
void tick(CBPAnimationObj &animation, int times = 1)
{
    for (int i = 0; i < times; ++i)
        QVERIFY(QMetaObject::invokeMethod(&animation, "onTimeout", Qt::DirectConnection));
}

void tick(QObject &label)
{
    const auto timers = timersOf(&label);
    QCOMPARE(timers.size(), 1);
    QTimerEvent event(timers.first().timerId);
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
    void nothingBeforeTheFirstTick()
    {
        CBPAnimationObj animation(pictures(3));
        QCOMPARE(animation.curentIndex(), 255);
        QVERIFY(animation.currentPixmap().isNull());
        QVERIFY(animation.pixmapAt(0).isNull());
        QVERIFY(!animation.isRunning());
    }

    void ticks_data()
    {
        QTest::addColumn<int>("frames");
        QTest::addColumn<int>("delay"); // -1000: the default
        QTest::addColumn<int>("silentTicks");
        QTest::addColumn<QVector<int>>("indexes");
        QTest::newRow("24 frames") << 24 << -1000 << 10 << QVector<int>{16, 17, 18};
        QTest::newRow("3 frames, around") << 3 << -1000 << 10 << QVector<int>{1, 2, 0, 1};
        QTest::newRow("one frame") << 1 << -1000 << 10 << QVector<int>{0, 0};
        QTest::newRow("delay 0") << 3 << 0 << 0 << QVector<int>{1, 2};
        QTest::newRow("delay of one tick") << 3 << 80 << 1 << QVector<int>{1, 2};
        QTest::newRow("delay of less than a tick") << 3 << 79 << 0 << QVector<int>{1, 2};
        QTest::newRow("least delay there is") << 3 << INT_MIN << 0 << QVector<int>{1, 2};
    }

    void ticks()
    {
        QFETCH(int, frames);
        QFETCH(int, delay);
        QFETCH(int, silentTicks);
        QFETCH(QVector<int>, indexes);
        CBPAnimationObj animation(pictures(frames));
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        if (delay != -1000)
            animation.setDelayInterval(delay);
        tick(animation, silentTicks);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(animation.curentIndex(), 255);
        for (const int index : indexes) {
            spy.clear();
            tick(animation);
            QCOMPARE(spy.count(), 1);
            QCOMPARE(spy.at(0).at(0).toInt(), index);
            QCOMPARE(animation.curentIndex(), index);
            QCOMPARE(animation.currentPixmap().width(), index + 1);
            QCOMPARE(animation.pixmapAt(0).width(), 1);
            QVERIFY(animation.pixmapAt(frames).isNull());
            QVERIFY(animation.pixmapAt(-1).isNull());
        }
    }

    void runsOnAClock()
    {
        CBPAnimationObj animation(pictures(24));
        animation.setInterval(20);
        animation.stop(); // takes over ten times the interval as delay
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        QElapsedTimer clock;
        clock.start();
        animation.start();
        QTRY_VERIFY(!spy.isEmpty());
        QVERIFY2(clock.elapsed() >= 200, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(spy.at(0).at(0).toInt(), 16);
        QTRY_VERIFY(spy.count() > 2);
    }

    void countsItsRuns()
    {
        CBPAnimationObj animation(pictures(3));
        animation.setDelayInterval(-1);
        animation.stop(); // one too many is none, and sets the delay
        animation.start();
        animation.start();
        QVERIFY(animation.isRunning());
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        tick(animation, 10);
        QCOMPARE(spy.count(), 0);
        animation.stop();
        QVERIFY(animation.isRunning());
        tick(animation, 10); // the delay began anew
        QCOMPARE(spy.count(), 0);
        tick(animation);
        QCOMPARE(spy.count(), 1);
        animation.stop();
        QVERIFY(!animation.isRunning());
        QCOMPARE(animation.curentIndex(), 1); // stays
    }

    void withoutFramesItStops()
    {
        CBPAnimationObj animation{QVector<QPixmap>()};
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        animation.start();
        tick(animation, 10);
        QVERIFY(animation.isRunning());
        tick(animation);
        QVERIFY(!animation.isRunning());
        QCOMPARE(spy.count(), 0);
    }

    void badIntervals()
    {
        CBPAnimationObj animation(pictures(3));
        for (const int bad : {0, -20, INT_MIN}) {
            QTest::ignoreMessage(QtWarningMsg,
                                 qPrintable(QString("CBPAnimationObj: %1 ms is no interval").arg(bad)));
            animation.setInterval(bad);
        }
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        animation.setInterval(INT_MAX);
        animation.stop(); // ten times as much is more than a number holds
        tick(animation);
        QCOMPARE(spy.count(), 0);
        tick(animation);
        QCOMPARE(spy.count(), 1);
    }

    void framesFromFiles()
    {
        const QString dir = folder(3);
        const QString missing = dir + "/no such file.png";
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("The image %1 is missing").arg(missing)));
        CBPAnimationObj animation(QStringList{dir + "/1.png", missing, dir + "/2.png", QString()});
        animation.setDelayInterval(-1);
        tick(animation); // 256 mod 4
        QCOMPARE(colorOf(animation.pixmapAt(0)), kColors[1]);
        QVERIFY(animation.pixmapAt(1).isNull());
        QCOMPARE(colorOf(animation.pixmapAt(2)), kColors[2]);
        tick(animation);
        QCOMPARE(animation.curentIndex(), 1);
        QVERIFY(animation.currentPixmap().isNull());
    }

    void newFrames_data()
    {
        QTest::addColumn<int>("starts");
        QTest::newRow("at rest") << 0;
        QTest::newRow("running") << 1;
        QTest::newRow("running twice") << 2;
    }

    void newFrames()
    {
        QFETCH(int, starts);
        CBPAnimationObj animation(pictures(24));
        animation.setDelayInterval(-1);
        tick(animation);
        QCOMPARE(animation.curentIndex(), 16);
        for (int i = 0; i < starts; ++i)
            animation.start();
        const QString dir = folder(2);
        animation.setRes({dir + "/0.png", dir + "/1.png"});
        QCOMPARE(animation.isRunning(), starts > 0);
        QVERIFY(animation.currentPixmap().isNull()); // number 16 of two
        QSignalSpy spy(&animation, &CBPAnimationObj::frameChanged);
        tick(animation, 11);
        QCOMPARE(spy.count(), starts ? 1 : 11);
        QCOMPARE(animation.curentIndex(), starts ? 1 : 1 - 16 % 2);
        for (int i = 0; i < starts; ++i) {
            QVERIFY(animation.isRunning());
            animation.stop();
        }
        QVERIFY(!animation.isRunning());
    }

    void strips_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<QVector<QSize>>("sizes");
        QTest::addColumn<QVector<QColor>>("colors"); // of the top left pixels
        // 16 x 16: red above and at the left, blue elsewhere in the lower right quarter
        QTest::newRow("one") << 1 << true << QVector<QSize>{{16, 16}} << QVector<QColor>{Qt::red};
        QTest::newRow("two in a row")
            << 2 << true << QVector<QSize>{{8, 16}, {4, 16}} << QVector<QColor>{Qt::red, Qt::red};
        QTest::newRow("three below each other: nothing is left for the third")
            << 3 << false << QVector<QSize>{{16, 5}, {16, 1}, {0, 0}}
            << QVector<QColor>{Qt::red, Qt::green, QColor()};
        QTest::newRow("none") << 0 << true << QVector<QSize>{} << QVector<QColor>{};
        QTest::newRow("less than none") << -3 << true << QVector<QSize>{} << QVector<QColor>{};
    }

    void strips()
    {
        QFETCH(int, count);
        QFETCH(bool, horizontal);
        QFETCH(QVector<QSize>, sizes);
        QFETCH(QVector<QColor>, colors);
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

    void badStrips()
    {
        const QString file = m_dir.filePath("none.png");
        QTest::ignoreMessage(QtWarningMsg, "CBPAnimationObj: a strip has no more than 4096 frames");
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QString("The image %1 is missing").arg(file)));
        CBPAnimationObj animation(file, INT_MAX, true);
        animation.setDelayInterval(-1);
        tick(animation);
        QVERIFY(animation.currentPixmap().isNull());
    }

    void diesInItsSignal()
    {
        QPointer<CBPAnimationObj> animation = new CBPAnimationObj(pictures(3));
        connect(animation.data(), &CBPAnimationObj::frameChanged, this, [&animation] { delete animation; });
        animation->setDelayInterval(-1);
        tick(*animation);
        QVERIFY(!animation);
    }

    void gifPlaysOneFrameMoreThanItsCount()
    {
        CBPGifLable label(folder(3), 2);
        QCOMPARE(label.size(), QSize(20, 10));
        QCOMPARE(label.minimumSize(), label.maximumSize());
        QVERIFY(!label.IsRunning());
        label.show();
        QVERIFY(label.StartGif());
        QVERIFY(label.IsRunning());
        QVERIFY(!shownBy(label).isValid()); // until the first tick
        QCOMPARE(timersOf(&label).first().interval, 100);
        for (const int i : {0, 1, 2, 0, 1}) {
            tick(label);
            QCOMPARE(shownBy(label), kColors[i]);
        }
        QVERIFY(label.StartGif()); // from the beginning, on one timer still
        tick(label);
        QCOMPARE(shownBy(label), kColors[0]);
        QTimerEvent other(timersOf(&label).first().timerId + 1);
        QCoreApplication::sendEvent(&label, &other);
        QCOMPARE(shownBy(label), kColors[0]);
        QTRY_COMPARE(shownBy(label), kColors[1]); // on the clock
        label.StopGif();
        QVERIFY(!label.IsRunning());
        QVERIFY(!shownBy(label).isValid());
        QVERIFY(timersOf(&label).isEmpty());
    }

    void gifStopShowsThePictureForNone()
    {
        const QString dir = folder(1);
        picture(Qt::yellow).save(dir + "/-1.png");
        CBPGifLable label(dir, 1);
        label.StopGif(); // was not running
        QVERIFY(!shownBy(label).isValid());
        label.StartGif();
        label.StopGif();
        QCOMPARE(shownBy(label), QColor(Qt::yellow));
        QFile::remove(dir + "/-1.png");
    }

    void gifWithoutPictures_data()
    {
        QTest::addColumn<bool>("folder");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("starts");
        QTest::newRow("no count") << true << 0 << false;
        QTest::newRow("negative count") << true << -5 << false;
        QTest::newRow("no folder") << false << 3 << true;
    }

    void gifWithoutPictures()
    {
        QFETCH(bool, folder);
        QFETCH(int, count);
        QFETCH(bool, starts);
        CBPGifLable label;
        QCOMPARE(label.maximumWidth(), QWIDGETSIZE_MAX);
        QVERIFY(!label.StartGif());
        label.SetResInfo(folder ? this->folder(1) : QString(), count);
        QCOMPARE(label.size(), folder ? QSize(20, 10) : QSize(0, 0));
        label.show();
        QCOMPARE(label.StartGif(), starts);
        QCOMPARE(label.IsRunning(), starts);
        QCOMPARE(timersOf(&label).size(), starts ? 1 : 0);
        if (starts)
            tick(label);
        QVERIFY(!shownBy(label).isValid());
    }

    void gifPlaysOnAfterAStartThatFailed_data()
    {
        QTest::addColumn<bool>("rests");
        QTest::newRow("shown") << false;
        QTest::newRow("hidden") << true;
    }

    void gifPlaysOnAfterAStartThatFailed()
    {
        QFETCH(bool, rests);
        CBPGifLable label(folder(3), 2);
        label.show();
        label.StartGif();
        tick(label);
        label.SetResInfo(folder(3), 0);
        label.setVisible(!rests);
        QVERIFY(!label.StartGif());
        QVERIFY(!label.IsRunning());
        QCOMPARE(timersOf(&label).size(), rests ? 0 : 1);
        QCOMPARE(shownBy(label), kColors[0]);
        label.StopGif();
        QVERIFY(!shownBy(label).isValid());
        label.show();
        QVERIFY(timersOf(&label).isEmpty());
    }

    void gifRestsWhileHidden()
    {
        QWidget window;
        CBPGifLable label(folder(3), 2, &window);
        QVERIFY(label.StartGif());
        QVERIFY(label.IsRunning());
        QVERIFY(timersOf(&label).isEmpty()); // nobody sees it
        window.show();
        tick(label);
        window.hide();
        QVERIFY(timersOf(&label).isEmpty());
        QVERIFY(label.IsRunning());
        window.show();
        QCOMPARE(timersOf(&label).size(), 1);
        tick(label);
        QCOMPARE(shownBy(label), kColors[1]); // went on
        window.hide();
        label.StopGif(); // while it rests
        QVERIFY(!label.IsRunning());
        QVERIFY(!shownBy(label).isValid());
        window.show();
        QVERIFY(timersOf(&label).isEmpty());
    }

    void dots_data()
    {
        QTest::addColumn<int>("most");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("three") << 3 << QStringList{".", "..", "...", "", "."};
        QTest::newRow("one") << 1 << QStringList{".", "", "."};
        QTest::newRow("none") << 0 << QStringList{"", ""};
        QTest::newRow("less than none") << -7 << QStringList{"", ""};
        QTest::newRow("without end") << INT_MAX << QStringList{".", "..", "...", "...."};
    }

    void dots()
    {
        QFETCH(int, most);
        QFETCH(QStringList, texts);
        CBPEllipsisGifLabel label(most);
        label.setText("Wait");
        QVERIFY(label.ShowGifLable());
        QVERIFY(label.isVisible());
        QVERIFY(!label.ShowGifLable());
        QCOMPARE(timersOf(&label).first().interval, 1000);
        QCOMPARE(label.text(), QString("Wait"));
        QVERIFY(label.sizeHint().width() < 1000);
        tick(label);
        const QSize room = label.sizeHint();
        for (const QString &text : texts) {
            QCOMPARE(label.text(), text);
            QCOMPARE(label.sizeHint(), room); // nothing beside it moves
            tick(label);
        }
        QTimerEvent other(timersOf(&label).first().timerId + 1);
        const QString before = label.text();
        QCoreApplication::sendEvent(&label, &other);
        QCOMPARE(label.text(), before);
    }

    void dotsPlayOnce()
    {
        warnings = 0;
        const auto before = qInstallMessageHandler(countWarnings);
        {
            CBPEllipsisGifLabel label;
            label.HideGifLable(); // never shown
            label.ShowGifLable();
            label.HideGifLable();
            label.HideGifLable();
            QVERIFY(!label.isVisible());
            QVERIFY(timersOf(&label).isEmpty());
            QVERIFY(!label.ShowGifLable());
            QVERIFY(!label.isVisible());
            label.show();
            QVERIFY(timersOf(&label).isEmpty());
        }
        qInstallMessageHandler(before);
        QCOMPARE(warnings, 0); // of timers that are gone
    }

    void dotsRestWhileHidden()
    {
        QWidget window;
        CBPEllipsisGifLabel label(3, &window);
        QVERIFY(label.ShowGifLable());
        QVERIFY(timersOf(&label).isEmpty());
        window.show();
        tick(label);
        QCOMPARE(label.text(), QString("."));
        window.hide();
        QVERIFY(timersOf(&label).isEmpty());
        QVERIFY(!label.ShowGifLable());
        window.show();
        tick(label);
        QCOMPARE(label.text(), QString(".."));
    }
};

LUMQT_TEST_MAIN(TestAnimation)
#include "tst_animation.moc"
