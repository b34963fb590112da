#include "CBPFlowLayout.h"
#include "TestMain.h"

#include <QHBoxLayout>
#include <QPointer>
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

// A style with spacings of layouts, and others between buttons.
class GapStyle : public QProxyStyle
{
public:
    GapStyle(const QPoint &layouts, const QPoint &buttons) : m_layouts(layouts), m_buttons(buttons) {}

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        if (metric == PM_LayoutHorizontalSpacing)
            return m_layouts.x();
        return metric == PM_LayoutVerticalSpacing ? m_layouts.y()
                                                  : QProxyStyle::pixelMetric(metric, option, widget);
    }
    int layoutSpacing(QSizePolicy::ControlType, QSizePolicy::ControlType, Qt::Orientation orientation,
                      const QStyleOption *, const QWidget *) const override
    {
        return orientation == Qt::Horizontal ? m_buttons.x() : m_buttons.y();
    }

private:
    const QPoint m_layouts;
    const QPoint m_buttons;
};

// Deletes another widget when it is moved.
class Wrecker : public QWidget
{
public:
    QPointer<QWidget> victim;

protected:
    void moveEvent(QMoveEvent *) override { delete victim; }
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
        QTest::addColumn<QPoint>("given");
        QTest::addColumn<QPoint>("layouts"); // the style's spacings
        QTest::addColumn<bool>("nested");
        QTest::addColumn<QPoint>("gap");
        const QPoint open(-1, -1);
        QTest::newRow("given") << QPoint(4, 5) << QPoint(6, 7) << false << QPoint(4, 5);
        QTest::newRow("none") << QPoint(0, 0) << QPoint(6, 7) << false << QPoint(0, 0);
        QTest::newRow("style's") << open << QPoint(6, 7) << false << QPoint(6, 7);
        QTest::newRow("of buttons") << open << open << false << QPoint(9, 11);
        QTest::newRow("half of it of buttons") << open << QPoint(6, -1) << false << QPoint(6, 11);
        QTest::newRow("outer layout's") << open << QPoint(6, 7) << true << QPoint(13, 13);
    }

    // Items without a widget have no style to ask.
    void gaps()
    {
        QFETCH(QPoint, given);
        QFETCH(QPoint, layouts);
        QFETCH(bool, nested);
        QFETCH(QPoint, gap);
        GapStyle style(layouts, {9, 11});
        QWidget window;
        window.setStyle(&style);
        auto *layout = nested ? new CBPFlowLayout(0, given.x(), given.y())
                              : new CBPFlowLayout(&window, 0, given.x(), given.y());
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
        layout->setGeometry(QRect(0, 0, 41 + gap.x(), 200));
        const int right = 20 + gap.x();
        const int below = 10 + gap.y();
        QCOMPARE(
            places(*layout),
            (QVector<QRect>{{0, 0, 20, 10}, {right, 0, 20, 10}, {0, below, 20, 10}, {right, below, 20, 10}}));
    }

    // A style without an answer would have the items overlap.
    void styleWithoutGaps()
    {
        GapStyle style({-1, -1}, {-1, -1});
        QWidget window;
        window.setStyle(&style);
        CBPFlowLayout layout(&window, 0);
        for (int i = 0; i < 2; ++i)
            layout.addItem(new QSpacerItem(20, 10));
        layout.setGeometry(QRect(0, 0, 100, 100));
        QCOMPARE(layout.itemAt(1)->geometry().topLeft(), QPoint(20, 0));
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
        for (const int index : {-1, 1, std::numeric_limits<int>::max()})
            QVERIFY(!layout->takeAt(index) && !layout->itemAt(index));
        const std::unique_ptr<QLayoutItem> taken(layout->takeAt(0));
        QCOMPARE(taken.get(), inner);
        QVERIFY(!inner->parent() && layout->count() == 0);
    }

    void badItems()
    {
        QWidget window;
        QWidget panel(&window);
        auto *outer = new QHBoxLayout(&panel);
        auto *layout = new CBPFlowLayout;
        outer->addLayout(layout);
        auto *spacer = new QSpacerItem(10, 10);
        layout->addItem(spacer);
        QHBoxLayout circle;
        circle.addItem(new QWidgetItem(&window));
        const auto warns = [](const char *words) { QTest::ignoreMessage(QtWarningMsg, words); };
        warns("CBPFlowLayout: null is no item");
        layout->addItem(nullptr);
        warns("CBPFlowLayout: null is no item");
        layout->addWidget(nullptr);
        for (QWidget *around : {&panel, &window}) {
            warns("A QWidget cannot hold itself or a widget that it lies in");
            layout->addWidget(around);
        }
        warns("A QWidget cannot hold itself or a widget that it lies in");
        layout->addItem(&circle);
        for (QLayout *around : {static_cast<QLayout *>(layout), static_cast<QLayout *>(outer)}) {
            warns("A CBPFlowLayout cannot hold itself or a layout that it lies in");
            layout->addItem(around);
        }
        QWidget other; // two owners would both delete what they have
        auto *owned = new QHBoxLayout(&other);
        auto *nested = new QHBoxLayout;
        owned->addLayout(nested);
        for (QLayout *taken : {owned, nested}) {
            warns("CBPFlowLayout: the layout lies in another one, or is a widget's");
            layout->addItem(taken);
        }
        warns("CBPFlowLayout: the item is there already");
        layout->addItem(spacer);
        QCOMPARE(layout->count(), 1);
        QVERIFY(window.parent() == nullptr && panel.parent() == &window && !circle.parent());
    }

    // The items after those that a widget takes along are placed all the same.
    void itemsMayGoMeanwhile()
    {
        QWidget window;
        CBPFlowLayout layout(&window, 0, 0, 0);
        QVector<Wrecker *> boxes;
        for (int i = 0; i < 4; ++i) {
            boxes << new Wrecker;
            boxes.last()->setFixedSize(20, 10);
            layout.addWidget(boxes.last());
        }
        window.show();
        boxes[0]->victim = boxes[1];
        boxes[2]->victim = boxes[3];
        layout.setGeometry(QRect(5, 5, 100, 100));
        QCOMPARE(layout.count(), 2);
        QCOMPARE(boxes[2]->pos(), QPoint(25, 5));
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
