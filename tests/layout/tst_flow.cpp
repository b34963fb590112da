#include "Await.h"
#include "CBPFlowLayout.h"
#include "CBPFlowWidget.h"
#include "TestMain.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QPointer>
#include <QProxyStyle>
#include <QWidget>

#include <limits>
#include <memory>
#include <tuple>

namespace {

QWidget *box(const QSize &size)
{
    auto *widget = new QWidget;
    widget->setFixedSize(size);
    return widget;
}

// A style with spacings of layouts, and others between buttons.
class GapStyle : public QProxyStyle
{
public:
    GapStyle(const QPoint &layouts, const QPoint &buttons) : m_layouts(layouts), m_buttons(buttons) {}

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        return metric == PM_LayoutHorizontalSpacing ? m_layouts.x()
               : metric == PM_LayoutVerticalSpacing ? m_layouts.y()
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
    // Margins of 3, gaps of 10 and 7. Places are given from the left.
    void rows()
    {
        const QVector<QSize> three(3, QSize(50, 20));
        const std::tuple<QVector<QSize>, int, QVector<QPoint>, int> cases[] = {
            {{}, 100, {}, 6},
            {three, 116, {{3, 3}, {3, 30}, {3, 57}}, 80}, // room for the second but for a pixel
            {three, 117, {{3, 3}, {63, 3}, {3, 30}}, 53},
            {three, 2, {{3, 3}, {3, 30}, {3, 57}}, 80},                             // less than the margins
            {{{10, 10}, {400, 30}, {10, 10}}, 106, {{3, 3}, {3, 20}, {3, 57}}, 70}, // wider than the room
            {{{40, 10}, {40, 30}, {40, 20}},
             100,
             {{3, 3}, {53, 3}, {3, 40}},
             63},                                               // the highest rules its row
            {{{90, 0}, {90, 5}}, 106, {{3, 3}, {103, 3}}, 11}}; // no height, no row
        for (const auto &[sizes, width, topLefts, height] : cases) {
            QWidget window;
            auto *layout = new CBPFlowLayout(&window, 3, 10, 7);
            for (const QSize &size : sizes)
                layout->addItem(new QSpacerItem(size.width(), size.height()));
            QCOMPARE(layout->heightForWidth(width), height);
            const QPoint origin(100, 200);
            for (const bool mirrored : {false, true}) {
                window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
                layout->setGeometry(QRect(origin, QSize(width, 1000)));
                QCOMPARE(layout->geometry(), QRect(origin, QSize(width, 1000)));
                for (int i = 0; i < sizes.size(); ++i) {
                    QPoint at = topLefts[i];
                    if (mirrored)
                        at.setX(width - at.x() - sizes[i].width());
                    QCOMPARE(layout->itemAt(i)->geometry(), QRect(origin + at, sizes[i]));
                }
            }
        }
    }

    void sizesOfTheLayout()
    {
        CBPFlowLayout layout(4);
        QCOMPARE(layout.minimumSize(), QSize(8, 8));
        QVERIFY(layout.horizontalSpacing() == -1 && layout.verticalSpacing() == -1);
        layout.setContentsMargins(1, 2, 3, 4);
        layout.addItem(new QSpacerItem(30, 10));
        layout.addItem(new QSpacerItem(10, 40));
        QCOMPARE(layout.minimumSize(), QSize(34, 46));
        QVERIFY(layout.sizeHint() == QSize(34, 46) && !layout.expandingDirections());
        QVERIFY(layout.hasHeightForWidth());
        // As far as numbers go, and no farther.
        constexpr int most = std::numeric_limits<int>::max();
        CBPFlowLayout huge(most, most, most);
        for (int i = 0; i < 10000; ++i)
            huge.addItem(new QSpacerItem(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        for (const int width : {-1, 0, 1000})
            QCOMPARE(huge.heightForWidth(width), most);
        QVERIFY(huge.heightForWidth(most) > 0);
        huge.setGeometry(QRect(0, 0, 1000, 1000));
        for (const int index : {1, 9999})
            QVERIFY(huge.itemAt(index)->geometry().top() > 0);
    }

    // Given ones, those of the style's layouts, of its buttons, or of an outer layout. A style that has none
    // would let the items overlap. Items without a widget have no style to ask.
    void gaps()
    {
        const QPoint open(-1, -1);
        const std::tuple<QPoint, QPoint, QPoint, bool, QPoint> cases[] = {
            {{4, 5}, {6, 7}, {9, 11}, false, {4, 5}}, {{0, 0}, {6, 7}, {9, 11}, false, {0, 0}},
            {open, {6, 7}, {9, 11}, false, {6, 7}},   {open, open, {9, 11}, false, {9, 11}},
            {open, {6, -1}, {9, 11}, false, {6, 11}}, {open, {6, 7}, {9, 11}, true, {13, 13}},
            {open, open, open, false, {0, 0}}};
        for (const auto &[given, layouts, buttons, nested, gap] : cases) {
            GapStyle style(layouts, buttons);
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
            for (int i = 0; i < 4; ++i)
                QCOMPARE(layout->itemAt(i)->geometry(),
                         QRect(i % 2 * (20 + gap.x()), i / 2 * (10 + gap.y()), 20, 10));
        }
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
        layout->addItem(layout->takeAt(0));
        QCOMPARE(layout->count(), 1);
        const std::unique_ptr<QLayoutItem> taken(layout->takeAt(0));
        QVERIFY(taken.get() == inner && !inner->parent() && layout->count() == 0);
    }

    void badItems()
    {
        QWidget window;
        QWidget panel(&window);
        QWidget other;
        auto *outer = new QHBoxLayout(&panel);
        auto *layout = new CBPFlowLayout;
        outer->addLayout(layout);
        auto *spacer = new QSpacerItem(10, 10);
        layout->addItem(spacer);
        QHBoxLayout circle;
        circle.addItem(new QWidgetItem(&window));
        QWidgetItem around(&panel);
        auto *owned = new QHBoxLayout(&other); // two owners would both delete what they have
        auto *nested = new QHBoxLayout;
        owned->addLayout(nested);
        const QVector<QPair<const char *, QVector<QLayoutItem *>>> refused{
            {"CBPFlowLayout: null is no item", {nullptr}},
            {"A QWidget cannot hold itself or a widget that it lies in", {&circle, &around}},
            {"A CBPFlowLayout cannot hold itself or a layout that it lies in", {layout, outer}},
            {"CBPFlowLayout: the layout lies in another one, or is a widget's", {owned, nested}},
            {"CBPFlowLayout: the item is there already", {spacer}}};
        for (const auto &[words, items] : refused) {
            for (QLayoutItem *item : items) {
                QTest::ignoreMessage(QtWarningMsg, words);
                layout->addItem(item);
            }
        }
        for (const auto &[words, widget] :
             {std::pair(refused[0].first, static_cast<QWidget *>(nullptr)),
              std::pair(refused[1].first, &panel), std::pair(refused[1].first, &window)}) {
            QTest::ignoreMessage(QtWarningMsg, words);
            layout->addWidget(widget);
        }
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

    // Hidden ones take neither room nor a gap.
    void followsItsWidget()
    {
        QWidget window;
        auto *layout = new CBPFlowLayout(&window, 0, 5, 0);
        for (int i = 0; i < 10; ++i)
            layout->addWidget(box({45, 20}));
        window.resize(251, 300);
        window.show();
        const auto at = [layout](int index) { return layout->itemAt(index)->widget()->pos(); };
        AWAIT_EQUAL(at(9), QPoint(200, 20));
        window.setLayoutDirection(Qt::RightToLeft);
        AWAIT_EQUAL(at(9), QPoint(6, 20));
        layout->itemAt(0)->widget()->hide();
        AWAIT_EQUAL(at(9), QPoint(56, 20));
        QCOMPARE(at(1), QPoint(206, 0));
        delete layout->itemAt(1)->widget();
        AWAIT_EQUAL(at(8), QPoint(106, 20));
    }

    // What is made in it, or moved into it, flows; windows and what has left do not.
    void widgetTakesItsChildren()
    {
        CBPFlowWidget flow;
        flow.setMargin(3);
        flow.setHorizontalSpacing(10);
        flow.setVerticalSpacing(7);
        auto *made = new QWidget(&flow);
        QWidget *moved = box({50, 20});
        made->setFixedSize(50, 20);
        moved->setParent(&flow);
        auto *dialog = new QDialog(&flow);
        QCOMPARE(flow.layout()->count(), 2);
        flow.resize(120, 60);
        flow.layout()->setGeometry(flow.rect());
        QCOMPARE(made->pos(), QPoint(3, 3));
        QCOMPARE(moved->pos(), QPoint(63, 3));
        flow.resize(100, 60);
        flow.layout()->setGeometry(flow.rect());
        QCOMPARE(moved->pos(), QPoint(3, 30));
        QCOMPARE(flow.heightForWidth(100), 53);
        moved->setParent(nullptr);
        QCOMPARE(flow.layout()->count(), 1);
        delete moved;
        delete dialog;
    }
};

LUMQT_TEST_MAIN(TestFlow)
#include "tst_flow.moc"
