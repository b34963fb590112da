#include "CBPQtGroupBox.h"
#include "CBPQtLine.h"
#include "CBPQtMainWindow.h"
#include "CBPQtTableView.h"
#include "CBPTableWidget.h"
#include "CBPTreeView.h"
#include "CBPTreeWidget.h"
#include "FrameProbe.h"
#include "frames/FrameGeometry.h"
#include "Pixels.h"
#include "TestMain.h"
#include "Util.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <private/qhighdpiscaling_p.h>

using namespace lumqt::frame;

namespace {

QVector<QSize> logicalSizes(const QWidget &window)
{
    QVector<QSize> sizes{window.size()};
    const auto all = window.findChildren<QWidget *>();
    for (const QWidget *one : all)
        sizes << one->size();
    return sizes;
}

const QColor kNothing(1, 2, 3); // what lies below a widget

template <class Widget> void checkParent(const char *name, bool taken)
{
    QWidget parent;
    auto *widget = new Widget(&parent);
    QCOMPARE(widget->parentWidget(), taken ? &parent : nullptr);
    (new QVBoxLayout(&parent))->addWidget(widget);
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(widget->metaObject()->className(), name); // what style sheets go by
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
            QCOMPARE(titleBarRect(600, fw, false), QRect(0, fw, 600, 38));
            QCOMPARE(titleBarRect(600, fw, true), QRect(0, 0, 600, 38 + fw));

            const auto at = [&](int x, int y) { return int(partAt(QPoint(x, y), 640, fw, sizes, icon)); };
            for (int id = 1; id < kButtonCount; ++id) {
                const QRect hit = hitRects(640, fw, sizes)[id];
                QVERIFY(at(hit.left(), hit.top()) == id && at(hit.right(), hit.bottom()) == id);
                QVERIFY(at(hit.left() - 1, hit.top()) == -1 && at(hit.right(), hit.bottom() + 1) == -1);
            }
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

    // Which corners are round, and that the plate and its line reach the last pixel.
    void corners()
    {
        struct Plate : CRoundedRectBase
        {
            using CRoundedRectBase::CRoundedRectBase;
            using CRoundedRectBase::m_pen;
        };
        const QPoint at[] = {{0, 0}, {59, 0}, {59, 39}, {0, 39}};
        for (int row = 0; row < 18; ++row) {
            const int radius = row < 16 ? 12 : row == 16 ? 0 : 100000; // none, and one that is too large
            const int flags = qMin(row, 15);                           // from top left on, clockwise
            Plate plate(unsigned(radius), nullptr, flags & 1, flags & 2, flags & 4, flags & 8);
            plate.resize(60, 40);
            for (int i = 0; i < 4; ++i) {
                const bool round = radius > 0 && flags & (1 << i);
                QVERIFY2(drawn(plate).pixelColor(at[i]).alpha() == (round ? 0 : 255),
                         QByteArray::number(row));
            }
            plate.m_pen = QPen(Qt::blue, 0); // as thin as can be
            QCOMPARE(boxOf(drawn(plate), Qt::blue), radius > 20 ? QRect(20, 0, 20, 40) : plate.rect());
        }
    }

    // A bar that is round above is put together from parts, of which none shows.
    void bars()
    {
        struct Plate : CRoundedRectBase
        {
            explicit Plate(bool isBar) : CRoundedRectBase(12, nullptr, true, true, !isBar, !isBar) {}
            QImage picture(const QColor &color, const QSize &size, qreal ratio)
            {
                m_brush = color;
                resize(size);
                QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied); // as a window has it
                image.setDevicePixelRatio(ratio);
                image.fill(kNothing);
                render(&image);
                return image;
            }
        };
        for (const QColor &color : {QColor(34, 42, 62), QColor(34, 42, 62, 100)}) {
            for (const QSize &size : {QSize(300, 60), QSize(28, 32), QSize(24, 60), QSize(60, 30)}) {
                for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
                    const QImage bar = Plate(true).picture(color, size, ratio);
                    const QImage plate = Plate(false).picture(color, size, ratio);
                    const QRect upper(0, 0, plate.width(), plate.height() / 2);
                    QVERIFY2(bar.copy(upper) == plate.copy(upper), QByteArray::number(ratio));
                    const QImage line = plate.copy(0, upper.bottom(), plate.width(), 1);
                    for (int y = upper.bottom(); y < bar.height(); ++y)
                        QVERIFY2(bar.copy(0, y, bar.width(), 1) == line, QByteArray::number(ratio));
                }
            }
        }
    }

    // One screen whose scaling changes under its windows: what a window meets that is moved to another one.
    void anotherScaling()
    {
        Dialog dialog;
        dialog.Init();
        dialog.SetWindowLog(Util::getResFullPath("../res/title_logo.png"));
        dialog.ShowTitleBtn(2 | 8 | 64 | 128, true);
        dialog.AppendContent(new QLineEdit, true, false, 0);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog, kPatience));
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

    // ---- The classes that fix a few defaults of one of Qt's.

    void parents()
    {
        QVERIFY(CBPQtMainWindow(nullptr, Qt::FramelessWindowHint).windowFlags() & Qt::FramelessWindowHint);
        checkParent<CBPQtMainWindow>("CBPQtMainWindow", true);
        checkParent<CBPQtGroupBox>("CBPQtGroupBox", true);
        checkParent<CBPQtLine>("CBPQtLine", true);
        checkParent<CBPQtTableView>("CBPQtTableView", true);
        checkParent<CBPTableWidget>("CBPTableWidget", false);
        checkParent<CBPTreeView>("CBPTreeView", false);
    }

    // As many device pixels as a logical one has at any scaling.
    void lineIsOnePixelWide()
    {
        CBPQtLine line;
        line.resize(10, 100);
        for (const qreal ratio : {1.5, 2.0}) {
            const QRect ground = boxOf(pictureOf(line, ratio, kNothing), kNothing);
            QCOMPARE(ground, QRect(2, 0, qRound(10 * ratio) - 2, qRound(100 * ratio)));
        }
    }

    void views()
    {
        CBPTableWidget table;
        CBPTreeWidget tree;
        for (const QAbstractItemView *view : QList<QAbstractItemView *>{&table, &tree}) {
            QCOMPARE(view->editTriggers(),
                     QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed);
            QVERIFY(view->hasMouseTracking() && view->viewport()->hasMouseTracking());
            QVERIFY(view->property("sortingEnabled").toBool() && !view->parent());
        }
        QVERIFY(!table.horizontalHeader()->highlightSections());
        QCOMPARE(table.selectionMode(), QAbstractItemView::SingleSelection);
        QVERIFY(tree.contextMenuPolicy() == Qt::CustomContextMenu);
        for (const char *text : {"b", "a"})
            new QTreeWidgetItem(&tree, {text});
        tree.sortItems(0, Qt::AscendingOrder);
        tree.show();
        // Events go the base's way, with the flags set too.
        tree.setPtOffsetSwitchOn(true);
        tree.setOffsetPt(true);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree.visualItemRect(tree.topLevelItem(0)).center());
        QCOMPARE(tree.currentItem()->text(0), QString("a"));
        QTest::keyClick(tree.viewport(), Qt::Key_Down);
        QCOMPARE(tree.currentItem()->text(0), QString("b"));
    }
};

LUMQT_TEST_MAIN(TestFrames)
#include "tst_frames.moc"
