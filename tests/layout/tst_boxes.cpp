#include "CBPBox.h"
#include "CBPFrameBox.h"
#include "CBPGridBox.h"
#include "CBPWidget.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPointer>

#include <tuple>

namespace {

const QColor kNothing(1, 2, 3); // what lies below a widget
const QColor kCell(120, 200, 120);
const QColor kLine(215, 215, 215);
const QColor kBand(250, 250, 250);
const QColor kOutline(179, 179, 179);

QImage picture(QWidget &widget, qreal ratio = 1.0)
{
    return pictureOf(widget, ratio, kNothing);
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

// Tells whether it is painted anew after an act.
template <class Base> struct Watched : Base
{
    template <class Act> bool repaintsAfter(Act act)
    {
        QCoreApplication::processEvents();
        paints = 0;
        act();
        QCoreApplication::processEvents();
        return paints > 0;
    }

    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        Base::paintEvent(event);
    }

    int paints = 0;
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
        QCOMPARE(boxOf(picture(widget), Qt::white), QRect(0, 0, 20, 10));
        widget.setPen(QPen(Qt::blue));
        widget.setBrush(Qt::NoBrush);
        const QImage outlined = picture(widget);
        QCOMPARE(boxOf(outlined, Qt::blue).topLeft(), QPoint(0, 0));
        QCOMPARE(outlined.pixelColor(10, 5), kNothing);
        widget.Show();
        QVERIFY(widget.isVisible());
        widget.Hide();
        QVERIFY(!widget.isVisible());
    }

    void repaints()
    {
        Watched<CBPWidget> widget;
        Watched<CBPBox> box;
        for (QWidget *each : {static_cast<QWidget *>(&widget), static_cast<QWidget *>(&box)}) {
            each->resize(40, 20);
            each->show();
            QVERIFY(QTest::qWaitForWindowExposed(each));
        }
        QVERIFY(widget.repaintsAfter([&] { widget.setPen(QPen(Qt::blue)); }));
        QVERIFY(widget.repaintsAfter([&] { widget.setBrush(Qt::red); }));
        QVERIFY(!box.repaintsAfter([&] { box.SetDrawFrame(true); })); // shows at the next one
        QVERIFY(box.repaintsAfter([&] { box.SetFrameClr(Qt::black); }));
        QVERIFY(box.repaintsAfter([&] { box.SetBgClr(Qt::black); }));
    }

    void boxMakesItsLayout()
    {
        for (const bool vertical : {true, false}) {
            CBPBox box(vertical, true, 7);
            auto *layout = qobject_cast<QBoxLayout *>(box.layout());
            QVERIFY(layout && !box.parent());
            QCOMPARE(layout->direction(), vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
            QCOMPARE(layout->spacing(), 7);
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
    }

    void frame()
    {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            CBPBox box;
            box.resize(40, 20);
            box.SetBgClr(Qt::green);
            QVERIFY(boxOf(picture(box, ratio), Qt::green).isEmpty());
            box.SetDrawFrame(true);
            const QImage image = picture(box, ratio);
            const int right = image.width() - 1;
            const int bottom = image.height() - 1;
            for (const QPoint &edge :
                 {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom),
                  QPoint(right / 2, 0), QPoint(right / 2, bottom), QPoint(right, bottom / 2)})
                QCOMPARE(image.pixelColor(edge), QColor(Qt::red));
            const int line = qRound(ratio);
            for (const QPoint &inside : {QPoint(line, line), QPoint(right - line, bottom - line)})
                QCOMPARE(image.pixelColor(inside), QColor(Qt::green));
            box.SetFrameClr(Qt::blue);
            QCOMPARE(picture(box, ratio).pixelColor(right, 0), QColor(Qt::blue));
        }
    }

    // A column that expands, a row, and a space of nothing, which is an item all the same.
    void packsAWidgetAndASpace()
    {
        const std::tuple<bool, bool, int, QSize> rows[] = {
            {false, false, 5, QSize(5, 0)}, {true, true, 12, QSize(0, 12)}, {false, true, 0, QSize(0, 0)}};
        for (const auto &[vertical, expand, padding, space] : rows) {
            CBPBox box(vertical);
            auto *layout = qobject_cast<QBoxLayout *>(box.layout());
            auto *label = new QLabel;
            label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
            box.PackStart(label, expand, true, padding, Qt::AlignBottom);
            QVERIFY(layout->count() == 2 && label->parentWidget() == &box);
            QCOMPARE(layout->itemAt(0)->alignment(), Qt::AlignBottom);
            const QSizePolicy policy = label->sizePolicy();
            QCOMPARE(policy.horizontalPolicy(), expand ? QSizePolicy::Expanding : QSizePolicy::Fixed);
            QCOMPARE(policy.verticalPolicy(), expand ? QSizePolicy::Expanding : QSizePolicy::Maximum);
            QVERIFY(layout->itemAt(1)->spacerItem() && layout->itemAt(1)->sizeHint() == space);
            auto *inner = new QHBoxLayout;
            box.PackStart(inner, padding, 3);
            QVERIFY(layout->count() == 4 && layout->stretch(2) == 3);
            QCOMPARE(layout->itemAt(3)->sizeHint(), space);
        }
    }

    // In front, behind the first space, and at the end, where there is no such index.
    void insertsAtAnyIndex()
    {
        for (const auto &[index, place] :
             {std::pair(0, 0), std::pair(2, 2), std::pair(-7, 4), std::pair(99, 4)}) {
            CBPBox box;
            box.PackStart(new QLabel);
            box.PackStart(new QLabel);
            QLabel *label = new QLabel;
            box.InsertWidget(index, label, 2, Qt::AlignTop);
            QCOMPARE(box.layout()->indexOf(label), place);
            QCOMPARE(qobject_cast<QBoxLayout *>(box.layout())->stretch(place), 2);
        }
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
        for (const char *name : {"CBPGridBox", "CBPGridBox", "CBPGridBox", "CBPFrameBox", "CBPGridBox"}) {
            const QString text = QString("A %1 cannot hold itself or a widget that it lies in").arg(name);
            QTest::ignoreMessage(QtWarningMsg, qPrintable(text));
        }
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

    // Hidden, or left where they are.
    void removesChildren()
    {
        for (const bool hide : {true, false}) {
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
            QVERIFY(first && nested && box.layout()->count() == 0);
            QCOMPARE(first->isVisible(), !hide);
            QCOMPARE(first->geometry(), place);
            QCOMPARE(first->parentWidget(), &box);
            QVERIFY(nested->isVisible()); // the box knows its own items only
            QCOMPARE(inner.isNull(), hide);
            if (hide)
                continue;
            box.PackStart(inner, 0, 0); // they are the caller's again
            box.AddSpacerItem(spacer);
            QCOMPARE(box.layout()->count(), 3);
        }
    }

    void removesOneChild()
    {
        for (const bool deleted : {false, true}) {
            CBPBox box;
            QPointer<QLabel> label = new QLabel;
            auto *other = new QLabel;
            box.PackStart(other);
            box.PackStart(label);
            box.RemoveChild(label, deleted);
            QCOMPARE(box.layout()->count(), 3); // the space stays
            QVERIFY(label && box.layout()->indexOf(other) == 0);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(label.isNull(), deleted); // later
        }
    }

    // Start, end and time are the caller's, also while another animation is under way.
    void animations()
    {
        CBPBox box(true);
        const struct
        {
            bool opens;
            int start, end, duration, at, until; // the last: -1 waits for a move, -2 not at all
        } steps[] = {{true, 10, 60, 40, 10, 60},        {false, 60, 0, 40, 60, 0},
                     {false, 80, 20, 0, 0, 0}, // it is folded
                     {true, -5, 90, -3, 90, 90},        {true, 0, 1000, 10000, 0, -1},
                     {false, 700, 100, 10000, 700, -1}, {true, 0, 90, 40, 0, -2},
                     {false, 90, 30, 0, 0, 90}}; // folded still: it opens all the same
        for (const auto &step : steps) {
            if (step.opens)
                box.AnimatedExpanding(step.start, step.end, step.duration);
            else
                box.AnimatedCollapse(step.start, step.end, step.duration);
            QCOMPARE(box.maximumHeight(), step.at);
            QTRY_VERIFY(step.until < 0 || box.maximumHeight() == step.until);
            QTRY_VERIFY(step.until != -1 || box.maximumHeight() != step.at);
        }
        box.AnimatedHorizontal(QSize(100, 50), QSize(500, 50), 10000);
        QTRY_VERIFY(box.width() > 100);
        box.AnimatedHorizontal(QSize(500, 20), QSize(80, 50), 40);
        QCOMPARE(box.size(), QSize(500, 20));
        QTRY_COMPARE(box.size(), QSize(80, 50));
    }

    void gridLines()
    {
        using Lines = QVector<int>;
        const std::tuple<int, bool, Lines> rows[] = {{1, false, Lines{0, 39}},
                                                     {2, false, Lines{0, 11, 32}},
                                                     {3, false, Lines{0, 11, 32, 63}},
                                                     {3, true, Lines{0, 31, 52, 63}}};
        for (const auto &[cells, rightToLeft, lines] : rows) {
            CBPGridBox box(false, false, 9);
            box.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
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
    }

    void gridForgetsDeadCells()
    {
        CBPGridBox box;
        for (const int width : {10, 20, 30})
            box.PackStart(cell(width));
        delete box.layout()->itemAt(0)->widget();
        box.setFixedSize(53, 22);
        box.layout()->activate();
        QCOMPARE(columnsOf(picture(box), kLine, 10), QVector<int>({0, 21, 52}));
    }

    // The bands, and what lies between them, are one: only the bottom area is left out. Boxes that are higher
    // than both bands, just as high, lower, and lower than the bottom band.
    void frameBoxBands()
    {
        for (const auto &[height, last] :
             {std::pair(200, 159), std::pair(70, 29), std::pair(50, 29), std::pair(20, 19)}) {
            for (const qreal ratio : {1.0, 2.0}) {
                CBPFrameBox box(30, 40);
                box.resize(60, height);
                const QImage image = picture(box, ratio);
                for (int y = 0; y < image.height(); ++y) {
                    const int row = int(y / ratio);
                    const QColor expected = row == 0 ? kOutline : row <= last ? kBand : kNothing;
                    QCOMPARE(image.pixelColor(image.width() - 1, y), expected);
                    QCOMPARE(image.pixelColor(0, y), kOutline);
                }
            }
        }
        for (const int wild : {INT_MIN, INT_MAX}) {
            CBPFrameBox box(wild, wild);
            box.resize(60, 200);
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
        const QVector<QWidget *> cells{cell(10), cell(10), cell(30), cell(40)};
        box->AddBottomWidget(cells[3], 2);
        box->AddContentWidget(cells[2], 5);
        box->AddTitleWidget(cells[0], 3);
        box->AddTitleWidget(cells[1], 0);
        QCOMPARE(box->sizeHint(), QSize(40 + 2, 20 + 20 + 5 + 20));
        box->setFixedSize(box->sizeHint());
        window.adjustSize();
        outer->activate();
        box->layout()->activate();
        QVERIFY(cells[1]->x() - cells[0]->geometry().right() - 1 >= 3);
        QVERIFY(cells[0]->y() == 0 && cells[2]->y() == 20 && cells[3]->y() == 45);
    }
};

LUMQT_TEST_MAIN(TestBoxes)
#include "tst_boxes.moc"
