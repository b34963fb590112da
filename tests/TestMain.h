#pragma once

#include "FontSetup.h"
#include "platform/Platform.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QtTest>

// Leaves the event loops of a test that would wait in them for ever: of one that has failed, whose rest is
// what ends them, and of one that has been in them for two minutes.
class Watchdog : public QObject
{
public:
    Watchdog()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            const QByteArray now = QByteArray(QTest::currentTestFunction()) + QTest::currentDataTag();
            if (now != m_test || QThread::currentThread()->loopLevel() == 0) {
                m_test = now;
                m_since.restart();
            } else if (QTest::currentTestFailed() || m_since.elapsed() > 120000) {
                if (!QTest::currentTestFailed())
                    QTest::qFail("an event loop that nothing ends", __FILE__, __LINE__);
                QCoreApplication::exit();
            }
        });
        m_since.start();
        m_timer.start(200);
    }

private:
    QTimer m_timer;
    QElapsedTimer m_since;
    QByteArray m_test;
};

// What every test program does. Programs of the library start in the folder that lies beside `res/`; the
// pointer rests where no window comes up under it.
template <class Test> int runTest(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    setUpFonts();
    lumqt::platform::answers().lessMotion = [] { return true; }; // pictures show how things end
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    const Watchdog watchdog;
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#define LUMQT_TEST_MAIN(TestClass)                                                                           \
    int main(int argc, char *argv[])                                                                         \
    {                                                                                                        \
        return runTest<TestClass>(argc, argv);                                                               \
    }
