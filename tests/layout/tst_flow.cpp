#include "CBPFlowLayout.h"
#include "TestMain.h"

#include <QHBoxLayout>
#include <QProxyStyle>
#include <QWidget>

#include <limits>
#include <memory>

namespace {

QWidget *box(const QSize &size)
{
    auto *widget = new QWidget;
    widget->setFixedSize(size);
    return widget;
}

QVector<QRect> places(const QLayout &layout)
{
    QVector<QRect> found;
    for (int i = 0; i < layout.count(); ++i)
        found << layout.itemAt(i)->geometry();
    return found;
}

// A style that leaves the gaps of layouts to layoutSpacing().
class GapStyle : public QProxyStyle
{
public:
    GapStyle(int gapX, int gapY) : m_gapX(gapX), m_gapY(gapY) {}

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        const bool gap = metric == PM_LayoutHorizontalSpacing || metric == PM_LayoutVerticalSpacing;
        return gap ? -1 : QProxyStyle::pixelMetric(metric, option, widget);
    }
    int layoutSpacing(QSizePolicy::ControlType, QSizePolicy::ControlType, Qt::Orientation orientation,
                      const QStyleOption *, const QWidget *) const override
    {
        return orientation == Qt::Horizontal ? m_gapX : m_gapY;
    }

private:
    int m_gapX;
    int m_gapY;
};

} // namespace

class TestFlow : public QObject
{
    Q_OBJECT

private slots:
    void rows_data()
    {
        QTest::addColumn<QVector<QSize>>("sizes");
        QTest::addColumn<int>("width");
        QTest::addColumn<QVector<QPoint>>("topLefts"); // from the left
        QTest::addColumn<int>("height");
        const QVector<QSize> three(3, QSize(50, 20));
        QTest::newRow("empty") << QVector<QSize>() << 100 << QVector<QPoint>() << 6;
        QTest::newRow("the third wraps")
            << three << 126 << QVector<QPoint>{{3, 3}, {63, 3}, {3, 30}} << 53; // room of 120
        QTest::newRow("room for the second but for a pixel")
            << three << 116 << QVector<QPoint>{{3, 3}, {3, 30}, {3, 57}} << 80;
        QTest::newRow("one pixel of room to spare")
            << three << 117 << QVector<QPoint>{{3, 3}, {63, 3}, {3, 30}} << 53;
        QTest::newRow("wider than the room") << QVector<QSize>{{10, 10}, {400, 30}, {10, 10}} << 106
                                             << QVector<QPoint>{{3, 3}, {3, 20}, {3, 57}} << 70;
        QTest::newRow("the highest rules its row") << QVector<QSize>{{40, 10}, {40, 30}, {40, 20}} << 100
                                                   << QVector<QPoint>{{3, 3}, {53, 3}, {3, 40}} << 63;
        QTest::newRow("no height, no row")
            << QVector<QSize>{{90, 0}, {90, 5}} << 106 << QVector<QPoint>{{3, 3}, {103, 3}} << 11;
        QTest::newRow("less than the margins")
            << three << 2 << QVector<QPoint>{{3, 3}, {3, 30}, {3, 57}} << 80;
    }

    void rows()
    {
        QFETCH(QVector<QSize>, sizes);
        QFETCH(int, width);
        QFETCH(QVector<QPoint>, topLefts);
        QFETCH(int, height);
        QWidget window;
        auto *layout = new CBPFlowLayout(&window, 3, 10, 7);
        for (const QSize &size : sizes)
            layout->addItem(new QSpacerItem(size.width(), size.height()));
        QCOMPARE(layout->heightForWidth(width), height);
        const QPoint origin(100, 200);
        for (const bool mirrored : {false, true}) {
            window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            layout->setGeometry(QRect(origin, QSize(width, 1000)));
            for (int i = 0; i < sizes.size(); ++i) {
                QPoint at = topLefts[i];
                if (mirrored)
                    at.setX(width - at.x() - sizes[i].width());
                QCOMPARE(layout->itemAt(i)->geometry(), QRect(origin + at, sizes[i]));
            }
        }
    }

    void sizesOfTheLayout()
    {
        CBPFlowLayout layout(4);
        QCOMPARE(layout.minimumSize(), QSize(8, 8));
        QCOMPARE(layout.horizontalSpacing(), -1);
        layout.setContentsMargins(1, 2, 3, 4);
        layout.addItem(new QSpacerItem(30, 10));
        layout.addItem(new QSpacerItem(10, 40));
        QCOMPARE(layout.minimumSize(), QSize(34, 46));
        QCOMPARE(layout.sizeHint(), layout.minimumSize());
        QVERIFY(layout.hasHeightForWidth() && layout.expandingDirections() == Qt::Orientations());
    }

    void gaps_data()
    {
        QTest::addColumn<int>("given");
        QTest::addColumn<int>("styles");
        QTest::addColumn<bool>("nested");
        QTest::addColumn<int>("gap");
        QTest::newRow("given") << 4 << 9 << false << 4;
        QTest::newRow("none") << 0 << 9 << false << 0;
        QTest::newRow("style's") << -1 << 9 << false << 9;
        QTest::newRow("style has none") << -1 << -1 << false << 0;
        QTest::newRow("outer layout's") << -1 << 9 << true << 13;
    }

    // Items without a widget have no style to ask.
    void gaps()
    {
        QFETCH(int, given);
        QFETCH(int, styles);
        QFETCH(bool, nested);
        QFETCH(int, gap);
        GapStyle style(styles, styles);
        QWidget window;
        window.setStyle(&style);
        auto *layout =
            nested ? new CBPFlowLayout(0, given, given) : new CBPFlowLayout(&window, 0, given, given);
        if (nested) {
            auto *outer = new QHBoxLayout(&window);
            outer->setSpacing(13);
            outer->addLayout(layout);
        }
        for (int i = 0; i < 2; ++i) {
            QWidget *widget = box({20, 10});
            widget->setStyle(&style);
            layout->addWidget(widget);
            layout->addItem(new QSpacerItem(20, 10));
        }
        layout->setGeometry(QRect(0, 0, 41 + gap, 200));
        const int right = 20 + gap;
        const int below = 10 + gap;
        QCOMPARE(
            places(*layout),
            (QVector<QRect>{{0, 0, 20, 10}, {right, 0, 20, 10}, {0, below, 20, 10}, {right, below, 20, 10}}));
    }

    void hiddenWidgetsTakeNoGap()
    {
        QWidget window;
        CBPFlowLayout layout(&window, 0, 5, 5);
        QVector<QWidget *> boxes;
        for (int i = 0; i < 3; ++i) {
            boxes << box({20, 10});
            layout.addWidget(boxes.last());
        }
        boxes[1]->hide();
        layout.setGeometry(QRect(0, 0, 100, 100));
        QCOMPARE(boxes[2]->pos(), QPoint(25, 0));
        delete boxes[0];
        QCOMPARE(layout.count(), 2);
    }

    void takesOut()
    {
        QWidget window;
        auto *layout = new CBPFlowLayout(&window);
        auto *inner = new QHBoxLayout;
        inner->addWidget(box({20, 10}));
        layout->addItem(inner);
        QCOMPARE(inner->parentWidget(), &window);
        QTest::ignoreMessage(QtWarningMsg, "CBPFlowLayout: null is no item");
        layout->addItem(nullptr);
        for (const int index : {-1, 1, std::numeric_limits<int>::max()})
            QVERIFY(!layout->takeAt(index) && !layout->itemAt(index));
        const std::unique_ptr<QLayoutItem> taken(layout->takeAt(0));
        QCOMPARE(taken.get(), inner);
        QVERIFY(!inner->parent() && layout->count() == 0);
    }

    void followsItsWidget()
    {
        QWidget window;
        auto *layout = new CBPFlowLayout(&window, 0, 0, 0);
        for (int i = 0; i < 10; ++i)
            layout->addWidget(box({50, 20}));
        window.resize(251, 300);
        window.show();
        const auto isAt = [layout](int index, const QPoint &pos) {
            return QTest::qWaitFor([=] { return layout->itemAt(index)->widget()->pos() == pos; });
        };
        QVERIFY(isAt(9, {200, 20}));
        window.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(isAt(9, {1, 20}));
        layout->itemAt(0)->widget()->hide();
        QVERIFY(isAt(9, {51, 20}));
    }

    void manyAndHuge()
    {
        QWidget window;
        CBPFlowLayout layout(&window, std::numeric_limits<int>::max(), std::numeric_limits<int>::max(),
                             std::numeric_limits<int>::max());
        for (int i = 0; i < 10000; ++i)
            layout.addItem(new QSpacerItem(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        for (const int width : {-1, 0, 1000, std::numeric_limits<int>::max()})
            QVERIFY(layout.heightForWidth(width) > 0);
        layout.setGeometry(QRect(0, 0, 1000, 1000));
    }
};

LUMQT_TEST_MAIN(TestFlow)
#include "tst_flow.moc"
