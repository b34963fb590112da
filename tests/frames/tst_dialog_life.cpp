#include "CBPWinFrm.h"

#include "CBPWinFrmTitle.h"
#include "TestMain.h"
#include "Util.h"

#include <QLabel>
#include <QLineEdit>

#include <private/qhighdpiscaling_p.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

// A dialog from its making to its end, many times, and on a screen whose scaling changes.
namespace {

constexpr int kOpenings = 500;
constexpr qint64 kTolerance = 256 * 1024; // bytes: the smallest leak of an opening is some hundred

// Bytes that the process has in use, -1 where that cannot be asked.
qint64 memoryInUse()
{
#ifdef __GLIBC__
    return qint64(mallinfo2().uordblks);
#else
    return -1;
#endif
}

class Dialog : public CBPWinFrm
{
public:
    Dialog() : CBPWinFrm(nullptr)
    {
        Init();
        SetWindowLog(Util::getResFullPath(QStringLiteral("../res/title_logo.png")));
        ShowTitleBtn(2 | 8 | 64 | 128, true);
        AppendContent(new QLineEdit, true, false, 0);
    }

    using CBPWinFrm::titleBar;
};

QVector<QSize> logicalSizes(const QWidget &window)
{
    QVector<QSize> sizes{window.size()};
    const auto all = window.findChildren<QWidget *>();
    for (const QWidget *one : all)
        sizes << one->size();
    return sizes;
}

} // namespace

class TestDialogLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // One screen whose scaling changes under its windows: what a window meets that is moved to another one.
    void anotherScaling()
    {
        Dialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const auto *icon = dialog.titleBar()->findChild<QLabel *>();
        QVERIFY(!icon->pixmap(Qt::ReturnByValue).isNull());
        const QVector<QSize> before = logicalSizes(dialog);
        for (const qreal factor : {2.0, 1.5, 1.0}) {
            QHighDpiScaling::setScreenFactor(QGuiApplication::primaryScreen(), factor);
            QCOMPARE(dialog.devicePixelRatioF(), factor);
            QEvent moved(QEvent::ScreenChangeInternal); // as Qt sends it to every widget of the window
            QCoreApplication::sendEvent(dialog.titleBar(), &moved);
            QCOMPARE(icon->pixmap(Qt::ReturnByValue).devicePixelRatioF(), factor);
            QCOMPARE(logicalSizes(dialog), before);
        }
    }

    void memory()
    {
        if (memoryInUse() < 0)
            QSKIP("the memory in use is not known here");
        const auto open = [] {
            Dialog dialog;
            dialog.show();
            QCoreApplication::processEvents();
            dialog.close();
        };
        for (int i = 0; i < kOpenings / 25; ++i)
            open(); // fills what is cached
        const qint64 before = memoryInUse();
        for (int i = 0; i < kOpenings; ++i)
            open();
        const qint64 growth = memoryInUse() - before;
        QVERIFY2(growth < kTolerance, qPrintable(QString::number(growth)));
    }
};

LUMQT_TEST_MAIN(TestDialogLife)
#include "tst_dialog_life.moc"
