#pragma once

#include "FontSetup.h"
#include "platform/Platform.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QScreen>
#include <QtTest>

// What every test program does. Programs of the library start in the folder that lies beside `res/`; the
// pointer rests where no window comes up under it.
template <class Test> int runTest(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    setUpFonts();
    lumqt::platform::answers().lessMotion = [] { return true; }; // pictures show how things end
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#define LUMQT_TEST_MAIN(TestClass)                                                                           \
    int main(int argc, char *argv[])                                                                         \
    {                                                                                                        \
        return runTest<TestClass>(argc, argv);                                                               \
    }
