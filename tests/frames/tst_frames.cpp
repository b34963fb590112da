#include "FrameProbe.h"
#include "frames/FrameGeometry.h"
#include "frames/FramePainter.h"
#include "Pixels.h"
#include "TestMain.h"
#include "Util.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>

#include <private/qhighdpiscaling_p.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace lumqt::frame;

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

void fill(Dialog &dialog)
{
    dialog.Init();
    dialog.SetWindowLog(Util::getResFullPath("../res/title_logo.png"));
    dialog.ShowTitleBtn(2 | 8 | 64 | 128, true);
    dialog.AppendContent(new QLineEdit, true, false, 0);
}

QVector<QSize> logicalSizes(const QWidget &window)
{
    QVector<QSize> sizes{window.size()};
    const auto all = window.findChildren<QWidget *>();
    for (const QWidget *one : all)
        sizes << one->size();
    return sizes;
}

} // namespace

// What of frames needs no window manager: that of CBaseWin as plain functions of sizes, the shape of rounded
// plates, and a dialog from its making to its end.
class TestFrames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void geometry()
    {
        const QSize glyph(28, 28);
        const ButtonSizes sizes{QSize(0, 0), glyph, QSize(9, 28), glyph, glyph, glyph};
        const int lefts[] = {146, 141, 108, 94, 61, 28};
        for (const int fw : {4, 8}) {
            const int right = fw == 4 ? 634 : 630; // of the close button, as it is pressed
            const int top = fw == 4 ? 7 : 9;
            for (int id = 0; id < kButtonCount; ++id) {
                const QPoint at(right - lefts[id], id == 0 ? 14 : 0); // there is no image 0
                QCOMPARE(hitRects(640, fw, sizes)[id], QRect(at + QPoint(0, top), sizes[id]));
                QCOMPARE(paintedRects(640, fw, sizes)[id], QRect(at + QPoint(-6, fw + 7), sizes[id]));
            }
            const QRect icon = iconRect(fw, QSize(24, 24));
            QCOMPARE(icon.topLeft(), QPoint(fw + 8, fw / 2 + (38 + fw - 24) / 2));
            QCOMPARE(captionRect(fw, true, 24), QRect(fw + 37, fw / 2, 65535, 38 + fw));
            QCOMPARE(captionRect(fw, false, 0).left(), fw + 8);
            QCOMPARE(captionEnd(640, fw, sizes), right - 152); // the spacing before the first button there is
            QCOMPARE(captionEnd(640, fw, ButtonSizes()), 640 - fw - 5);
            QCOMPARE(lowestWidth(fw, true, 24, sizes), 640 - (right - 147) + fw + 37);
            QCOMPARE(titleBarRect(600, fw, false), QRect(0, fw, 600, 38));
            QCOMPARE(titleBarRect(600, fw, true), QRect(0, 0, 600, 38 + fw));

            const auto at = [&](int x, int y) { return int(partAt(QPoint(x, y), 640, fw, sizes, icon)); };
            const QList<int> buttons{at(right - 1, top), at(right - 28, top + 27), at(right - 61, top),
                                     at(right - 100, top), at(right - 141, top)};
            QCOMPARE(buttons, (QList<int>{5, 5, 4, 2, 1}));
            const QList<int> besides{at(right, top), at(right - 29, top), at(right - 146, top + 14),
                                     at(-3, -3)};
            QCOMPARE(besides, (QList<int>{-1, -1, -1, -1}));
            QCOMPARE(at(icon.left(), icon.top()), 7);
            QCOMPARE(int(partAt(QPoint(10, 10), -50, fw, ButtonSizes(), QRect())), -1);
            QCOMPARE(int(partAt(QPoint(right - 1, top), 640, fw, sizes, QRect(0, 0, 640, 60))), 5);
        }
    }

    void edges()
    {
        const auto at = [](int x, int y) { return edgesAt(QPoint(x, y), QSize(200, 100), 4); };
        QCOMPARE(at(3, 50), Qt::LeftEdge);
        QCOMPARE(at(196, 50), Qt::RightEdge);
        QCOMPARE(at(100, 99), Qt::BottomEdge);
        QCOMPARE(at(16, 0), Qt::TopEdge);
        QCOMPARE(at(15, 0), Qt::TopEdge | Qt::LeftEdge); // a corner reaches along its edges
        QCOMPARE(at(199, 84), Qt::BottomEdge | Qt::RightEdge);
        QCOMPARE(at(4, 50) | at(4, 4) | at(-1, 50), Qt::Edges());
    }

    void picture()
    {
        for (int fw : {3, 4, 8}) {
            for (qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
                for (const QSize &size : {QSize(240, 160), QSize(241, 163)})
                    QVERIFY2(isRight(fw, ratio, size),
                             qPrintable(QStringLiteral("%1 at %2").arg(fw).arg(ratio)));
            }
        }
    }

    void corners()
    {
        const QPoint at[] = {{0, 0}, {59, 0}, {59, 39}, {0, 39}};
        for (int row = 0; row < 18; ++row) {
            const int radius = row < 16 ? 12 : row == 16 ? 0 : 100000; // none, and one that is too large
            const int flags = qMin(row, 15);                           // from top left on, clockwise
            CRoundedRectBase plate(unsigned(radius), nullptr, flags & 1, flags & 2, flags & 4, flags & 8);
            plate.resize(60, 40);
            for (bool enabled : {true, false, true}) {
                plate.SetRoundRectEnabled(enabled);
                const QImage image = drawn(plate);
                for (int i = 0; i < 4; ++i) {
                    const bool round = enabled && radius > 0 && flags & (1 << i);
                    QVERIFY2(image.pixelColor(at[i]).alpha() == (round ? 0 : 255), QByteArray::number(row));
                }
                // The edges are covered to the last pixel.
                for (const QPoint &edge : {QPoint(30, 0), QPoint(30, 39), QPoint(0, 20), QPoint(59, 20)})
                    QVERIFY(image.pixelColor(edge).alpha() >= (radius > 20 ? 200 : 255));
            }
        }
    }

    // One screen whose scaling changes under its windows: what a window meets that is moved to another one.
    void anotherScaling()
    {
        Dialog dialog;
        fill(dialog);
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
            fill(dialog);
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

private:
    // The frame around a client area of `size`.
    static bool isRight(int fw, qreal ratio, const QSize &size)
    {
        const QColor outside(1, 2, 3);
        const QColor untouched(4, 5, 6);
        // The system makes a frame of whole pixels.
        const QMargins margins = (QMarginsF(fw, titleHeight(fw), fw, fw) * ratio).toMargins();
        const QRect client(QPoint(margins.left(), margins.top()), (QSizeF(size) * ratio).toSize());
        const QSize all = client.marginsAdded(margins).size();
        QImage image(all, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(untouched);
        QPainter painter(&image);
        paintFrame(painter, QSizeF(-3, 0), QRectF(fw, fw, -3, -3), fw, outside); // paints nothing
        const QRectF area(QPointF(client.topLeft()) / ratio, QSizeF(client.size()) / ratio);
        paintFrame(painter, QSizeF(all) / ratio, area, fw, outside);
        painter.end();

        const int line = qMax(1, qRound(ratio));
        const QRect strip(QPoint(client.left(), qRound(fw * ratio)), client.topRight() - QPoint(0, 1));
        QImage expected(all, QImage::Format_RGB32);
        expected.fill(outside);
        painter.begin(&expected);
        painter.fillRect((strip | client).adjusted(-line, -line, line, line), QColor(34, 133, 212));
        painter.fillRect(strip, Qt::white);
        painter.fillRect(strip.adjusted(0, strip.height() - line, line, 0),
                         QColor(221, 221, 221)); // over the border, too
        painter.fillRect(client, untouched);
        painter.end();
        image.setDevicePixelRatio(1);
        return image == expected;
    }
};

LUMQT_TEST_MAIN(TestFrames)
#include "tst_frames.moc"
