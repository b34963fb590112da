#include "CBPBox.h"
#include "CBPFrameBox.h"
#include "CBPGridBox.h"
#include "CBPWidget.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>

namespace {

const QColor kNothing(1, 2, 3); // what lies below a widget
const QColor kCell(120, 200, 120);
const QColor kLine(215, 215, 215);
const QColor kBand(250, 250, 250);
const QColor kOutline(179, 179, 179);

// The widget painted over kNothing at `ratio` device pixels to a logical one.
QImage picture(QWidget &widget, qreal ratio = 1.0)
{
    QImage image(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(kNothing);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

QWidget *cell(int width)
{
    auto *result = new CBPWidget;
    result->setBrush(kCell);
    result->setFixedSize(width, 20);
    return result;
}

// The columns of the row `y` that have the colour.
QVector<int> columnsOf(const QImage &image, const QColor &color, int y)
{
    QVector<int> columns;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == color)
            columns << x;
    }
    return columns;
}

class Repaints : public QObject
{
public:
    explicit Repaints(QWidget &widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::UpdateRequest || event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace

class TestBoxes : public QObject
{
    Q_OBJECT

private slots:
    void widgetPaintsItsRectangle()
    {
        CBPWidget widget;
        widget.resize(20, 10);
        QCOMPARE(picture(widget).pixelColor(0, 0), QColor(Qt::white));
        QCOMPARE(picture(widget).pixelColor(19, 9), QColor(Qt::white));
        widget.setPen(QPen(Qt::blue));
        widget.setBrush(Qt::NoBrush);
        const QImage outlined = picture(widget);
        QCOMPARE(outlined.pixelColor(0, 5), QColor(Qt::blue));
        QCOMPARE(outlined.pixelColor(10, 0), QColor(Qt::blue));
        QCOMPARE(outlined.pixelColor(10, 5), kNothing);

        widget.Show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        Repaints repaints(widget);
        QCoreApplication::processEvents();
        repaints.count = 0;
        widget.setPen(QPen(Qt::blue));
        QCoreApplication::processEvents();
        QVERIFY(repaints.count > 0);
        repaints.count = 0;
        widget.setBrush(Qt::red);
        QCoreApplication::processEvents();
        QVERIFY(repaints.count > 0);
        widget.Hide();
        QVERIFY(!widget.isVisible());
    }

    void boxMakesItsLayout_data()
    {
        QTest::addColumn<bool>("vertical");
        QTest::addColumn<int>("direction");
        QTest::newRow("column") << true << int(QBoxLayout::TopToBottom);
        QTest::newRow("row") << false << int(QBoxLayout::LeftToRight);
    }

    void boxMakesItsLayout()
    {
        QFETCH(bool, vertical);
        QFETCH(int, direction);
        CBPBox box(vertical, true, 7);
        auto *layout = qobject_cast<QBoxLayout *>(box.layout());
        QVERIFY(layout && !box.parent());
        QCOMPARE(int(layout->direction()), direction);
        QCOMPARE(layout->spacing(), 7);
        QCOMPARE(layout->contentsMargins(), QMargins());
        box.SetSpacing(3);
        QCOMPARE(layout->spacing(), 3);
        box.SetBorderWidth(1, 2, 3, 4);
        QCOMPARE(box.contentsMargins(), QMargins(1, 2, 3, 4));
        QCOMPARE(layout->contentsMargins(), QMargins());
        box.SetSizeConstraint(QLayout::SetFixedSize);
        QTest::ignoreMessage(QtWarningMsg, "CBPBox: 99 is no size constraint");
        box.SetSizeConstraint(99);
        QCOMPARE(layout->sizeConstraint(), QLayout::SetFixedSize);
    }

    void frame_data() { scalings(); }

    void frame()
    {
        QFETCH(qreal, ratio);
        CBPBox box;
        box.resize(40, 20);
        box.SetBgClr(Qt::green);
        QCOMPARE(picture(box, ratio).pixelColor(0, 0), kNothing);
        QCOMPARE(picture(box, ratio).pixelColor(20, 10), kNothing);
        box.SetDrawFrame(true);
        const QImage image = picture(box, ratio);
        const int right = image.width() - 1;
        const int bottom = image.height() - 1;
        for (const QPoint &edge :
             {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom), QPoint(right / 2, 0),
              QPoint(right / 2, bottom), QPoint(right, bottom / 2)})
            QCOMPARE(image.pixelColor(edge), QColor(Qt::red));
        const int line = qRound(ratio);
        QCOMPARE(image.pixelColor(line, line), QColor(Qt::green));
        QCOMPARE(image.pixelColor(right - line, bottom - line), QColor(Qt::green));
        box.SetFrameClr(Qt::blue);
        QCOMPARE(picture(box, ratio).pixelColor(right, 0), QColor(Qt::blue));
    }

    void repaintsOnColoursOnly()
    {
        CBPBox box;
        box.resize(40, 20);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        QCoreApplication::processEvents();
        Repaints repaints(box);
        box.SetDrawFrame(true);
        QCoreApplication::processEvents();
        QCOMPARE(repaints.count, 0);
        box.SetFrameClr(Qt::black);
        QCoreApplication::processEvents();
        QVERIFY(repaints.count > 0);
        repaints.count = 0;
        box.SetBgClr(Qt::black);
        QCoreApplication::processEvents();
        QVERIFY(repaints.count > 0);
    }

    void packsAWidgetAndASpace_data()
    {
        QTest::addColumn<bool>("vertical");
        QTest::addColumn<bool>("expand");
        QTest::addColumn<int>("padding");
        QTest::addColumn<QSize>("space");
        QTest::newRow("row") << false << false << 5 << QSize(5, 0);
        QTest::newRow("column, expanding") << true << true << 12 << QSize(0, 12);
        QTest::newRow("no padding") << false << true << 0 << QSize(0, 0);
    }

    void packsAWidgetAndASpace()
    {
        QFETCH(bool, vertical);
        QFETCH(bool, expand);
        QFETCH(int, padding);
        QFETCH(QSize, space);
        CBPBox box(vertical);
        auto *label = new QLabel;
        label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
        box.PackStart(label, expand, true, padding, Qt::AlignBottom);
        QCOMPARE(box.layout()->count(), 2);
        QCOMPARE(label->parentWidget(), &box);
        QCOMPARE(box.layout()->itemAt(0)->alignment(), Qt::AlignBottom);
        const QSizePolicy policy = label->sizePolicy();
        QCOMPARE(policy.horizontalPolicy(), expand ? QSizePolicy::Expanding : QSizePolicy::Fixed);
        QCOMPARE(policy.verticalPolicy(), expand ? QSizePolicy::Expanding : QSizePolicy::Maximum);
        QVERIFY(box.layout()->itemAt(1)->spacerItem());
        QCOMPARE(box.layout()->itemAt(1)->sizeHint(), space);
        auto *inner = new QHBoxLayout;
        box.PackStart(inner, padding, 3);
        QCOMPARE(box.layout()->count(), 4);
        QCOMPARE(qobject_cast<QBoxLayout *>(box.layout())->stretch(2), 3);
        QCOMPARE(box.layout()->itemAt(3)->sizeHint(), space);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("already has a parent"));
        box.PackStart(inner, padding, 3);
        QCOMPARE(box.layout()->count(), 4);
    }

    void insertsAtAnyIndex_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("place");
        QTest::newRow("front") << 0 << 0;
        QTest::newRow("behind the space") << 2 << 2;
        QTest::newRow("negative") << -7 << 4;
        QTest::newRow("beyond the end") << 99 << 4;
    }

    void insertsAtAnyIndex()
    {
        QFETCH(int, index);
        QFETCH(int, place);
        CBPBox box;
        box.PackStart(new QLabel);
        box.PackStart(new QLabel);
        QLabel *label = new QLabel;
        box.InsertWidget(index, label, 2, Qt::AlignTop);
        QCOMPARE(box.layout()->count(), 5);
        QCOMPARE(box.layout()->indexOf(label), place);
        QCOMPARE(qobject_cast<QBoxLayout *>(box.layout())->stretch(place), 2);
    }

    void leavesOutWhatItCannotHold()
    {
        QWidget window;
        auto *outer = new QVBoxLayout(&window);
        auto *box = new CBPGridBox;
        auto *frameBox = new CBPFrameBox(10, 10);
        outer->addWidget(box);
        outer->addWidget(frameBox);
        CBPBox &base = *box;
        box->PackStart(static_cast<QWidget *>(nullptr), true, false, 5);
        box->PackStart(static_cast<QLayout *>(nullptr), 5, 1);
        box->InsertWidget(0, nullptr);
        box->AddSpacerItem(nullptr);
        box->RemoveChild(nullptr, true);
        box->RemoveChild(&window, true);
        auto *around = new QHBoxLayout;
        auto *nested = new QHBoxLayout;
        around->addLayout(nested);
        nested->addWidget(&window);
        for (const char *name : {"CBPGridBox", "CBPGridBox", "CBPGridBox", "CBPFrameBox", "CBPGridBox"})
            QTest::ignoreMessage(QtWarningMsg,
                                 qPrintable(QString("A %1 cannot hold itself or a widget that it "
                                                    "lies in")
                                                .arg(name)));
        box->PackStart(&window, true);
        base.PackStart(box);
        box->InsertWidget(0, &window);
        frameBox->AddContentWidget(&window, 3);
        base.PackStart(around, 0, 0);
        delete around;
        frameBox->AddTitleWidget(nullptr, 3);
        frameBox->AddBottomWidget(nullptr, 3);
        QCOMPARE(box->layout()->count(), 0);
        QCOMPARE(frameBox->layout()->itemAt(1)->layout()->count(), 0);
        QVERIFY(!window.parentWidget());
        QVERIFY(window.sizePolicy().horizontalPolicy() != QSizePolicy::Expanding);
        auto *spacer = new QSpacerItem(9, 9);
        box->AddSpacerItem(spacer);
        box->AddSpacerItem(spacer);
        box->AddSpacing(4);
        QCOMPARE(box->layout()->count(), 2);
        QCOMPARE(picture(*box).isNull(), false);
    }

    void removesChildren_data()
    {
        QTest::addColumn<bool>("hide");
        QTest::newRow("hidden") << true;
        QTest::newRow("left where they are") << false;
    }

    void removesChildren()
    {
        QFETCH(bool, hide);
        CBPBox box(true);
        QPointer<QLabel> first = new QLabel("1");
        QPointer<QLabel> nested = new QLabel("2");
        QPointer<QHBoxLayout> inner = new QHBoxLayout;
        inner->addWidget(nested);
        auto *spacer = new QSpacerItem(9, 9);
        box.PackStart(first, false, false, 4);
        box.PackStart(inner, 4, 0);
        box.AddSpacerItem(spacer);
        box.show();
        const QRect place = first->geometry();
        box.RemoveChildren(hide);
        QCOMPARE(box.layout()->count(), 0);
        QVERIFY(first && nested);
        QCOMPARE(first->isVisible(), !hide);
        QCOMPARE(first->geometry(), place);
        QCOMPARE(first->parentWidget(), &box);
        QVERIFY(nested->isVisible()); // the box knows its own items only
        QCOMPARE(inner.isNull(), hide);
        if (hide)
            return;
        box.PackStart(inner, 0, 0); // they are the caller's again
        box.AddSpacerItem(spacer);
        QCOMPARE(box.layout()->count(), 3);
    }

    void removesOneChild_data()
    {
        QTest::addColumn<bool>("deleted");
        QTest::newRow("kept") << false;
        QTest::newRow("deleted later") << true;
    }

    void removesOneChild()
    {
        QFETCH(bool, deleted);
        CBPBox box;
        QPointer<QLabel> label = new QLabel;
        auto *other = new QLabel;
        box.PackStart(other);
        box.PackStart(label);
        box.RemoveChild(label, deleted);
        QCOMPARE(box.layout()->count(), 3); // the space stays
        QCOMPARE(box.layout()->indexOf(other), 0);
        QVERIFY(label);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(label.isNull(), deleted);
    }

    void opensAndFolds()
    {
        CBPBox box(true);
        box.AnimatedExpanding(10, 60, 40);
        QCOMPARE(box.maximumHeight(), 10);
        QTRY_COMPARE(box.maximumHeight(), 60);
        box.AnimatedCollapse(60, 0, 40);
        QCOMPARE(box.maximumHeight(), 60);
        QTRY_COMPARE(box.maximumHeight(), 0);
        box.AnimatedCollapse(80, 20, 0);
        QCOMPARE(box.maximumHeight(), 0);
        box.AnimatedExpanding(-5, 90, -3); // at once, without a complaint
        QCOMPARE(box.maximumHeight(), 90);
        box.AnimatedHorizontal(QSize(50, 20), QSize(150, 40), 40);
        QCOMPARE(box.size(), QSize(50, 20));
        QTRY_COMPARE(box.size(), QSize(150, 40));
    }

    // Also while another one is under way: start, end and time are the caller's.
    void animationsBeginWhereTold()
    {
        CBPBox box(true);
        box.AnimatedExpanding(0, 1000, 10000);
        QTRY_VERIFY(box.maximumHeight() > 0);
        box.AnimatedCollapse(700, 100, 10000); // on its way in between
        QCOMPARE(box.maximumHeight(), 700);
        QTRY_VERIFY(box.maximumHeight() < 700);
        box.AnimatedExpanding(0, 90, 40);
        box.AnimatedCollapse(90, 30, 0); // still folded: nothing happens
        QCOMPARE(box.maximumHeight(), 0);
        QTRY_COMPARE(box.maximumHeight(), 90);
        box.AnimatedHorizontal(QSize(100, 50), QSize(500, 50), 10000);
        QTRY_VERIFY(box.width() > 100);
        box.AnimatedHorizontal(QSize(500, 50), QSize(80, 50), 40);
        QCOMPARE(box.size(), QSize(500, 50));
        QTRY_COMPARE(box.size(), QSize(80, 50));
    }

    void gridLines_data()
    {
        QTest::addColumn<int>("cells");
        QTest::addColumn<bool>("rightToLeft");
        QTest::addColumn<QVector<int>>("lines");
        QTest::newRow("one cell") << 1 << false << QVector<int>{0, 39};
        QTest::newRow("two") << 2 << false << QVector<int>{0, 11, 32};
        QTest::newRow("three") << 3 << false << QVector<int>{0, 11, 32, 63};
        QTest::newRow("right to left") << 3 << true << QVector<int>{0, 31, 52, 63};
    }

    void gridLines()
    {
        QFETCH(int, cells);
        QFETCH(bool, rightToLeft);
        QFETCH(QVector<int>, lines);
        CBPGridBox box(false, false, 9);
        if (rightToLeft)
            box.setLayoutDirection(Qt::RightToLeft);
        for (int i = 0; i < cells; ++i)
            box.PackStart(cell(10 * (i + 1)), false, false, 0, Qt::AlignLeft);
        box.setFixedSize(lines.last() + 1, 22);
        box.ensurePolished();
        box.layout()->activate();
        const QImage image = picture(box);
        QCOMPARE(columnsOf(image, kLine, 10), lines);
        QCOMPARE(columnsOf(image, kLine, 0).size(), image.width());
        QCOMPARE(columnsOf(image, kLine, 21).size(), image.width());
        box.SetFrameClr(Qt::black);
        QCOMPARE(columnsOf(picture(box), Qt::black, 10), lines);
    }

    void gridForgetsDeadCells()
    {
        CBPGridBox box;
        QWidget *first = cell(10);
        box.PackStart(first);
        box.PackStart(cell(20));
        box.PackStart(cell(30));
        delete first;
        box.setFixedSize(53, 22);
        box.layout()->activate();
        QCOMPARE(columnsOf(picture(box), kLine, 10).contains(21), true);
        QCOMPARE(columnsOf(picture(box), kLine, 10).contains(11), false);
    }

    void frameBoxBands_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("first"); // last row of the first stretch that is a band, and so on
        QTest::addColumn<int>("last");
        // The bands, and what lies between them, are one: only the bottom area is left out.
        QTest::newRow("higher than both bands") << 200 << 1 << 159;
        QTest::newRow("just as high") << 70 << 1 << 29;
        QTest::newRow("bands overlap") << 50 << 1 << 29;
        QTest::newRow("lower than the bottom band") << 20 << 1 << 19;
    }

    void frameBoxBands()
    {
        QFETCH(int, height);
        QFETCH(int, first);
        QFETCH(int, last);
        for (const qreal ratio : {1.0, 2.0}) {
            CBPFrameBox box(30, 40);
            box.resize(60, height);
            const QImage image = picture(box, ratio);
            for (int y = 0; y < image.height(); ++y) {
                const int row = int(y / ratio);
                const QColor expected = row >= first && row <= last ? kBand : kNothing;
                QCOMPARE(image.pixelColor(image.width() - 1, y), row == 0 ? kOutline : expected);
                QCOMPARE(image.pixelColor(0, y), kOutline);
            }
        }
        for (const int wild : {INT_MIN, INT_MAX}) {
            CBPFrameBox box(wild, wild);
            box.resize(60, height);
            QVERIFY(!picture(box).isNull());
        }
    }

    void frameBoxRows()
    {
        QWidget window;
        auto *box = new CBPFrameBox(30, 40, &window);
        QVERIFY(!box->parent());
        auto *outer = new QVBoxLayout(&window);
        outer->addWidget(box);
        QCOMPARE(box->parentWidget(), &window);
        QWidget *bottom = cell(40);
        QWidget *left = cell(10);
        QWidget *right = cell(10);
        QWidget *content = cell(30);
        box->AddBottomWidget(bottom, 2);
        box->AddContentWidget(content, 5);
        box->AddTitleWidget(left, 3);
        box->AddTitleWidget(right, 0);
        QCOMPARE(box->sizeHint(), QSize(40 + 2, 20 + 20 + 5 + 20));
        box->setFixedSize(box->sizeHint());
        window.adjustSize();
        outer->activate();
        box->layout()->activate();
        QCOMPARE(right->x() - left->geometry().right() - 1 >= 3, true);
        QCOMPARE(left->y(), 0);
        QCOMPARE(content->y(), 20);
        QCOMPARE(bottom->y(), 45);
    }
};

LUMQT_TEST_MAIN(TestBoxes)
#include "tst_boxes.moc"
