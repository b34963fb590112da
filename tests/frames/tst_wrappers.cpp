#include "Await.h"
#include "CBPMenuItemSizeStyle.h"
#include "CBPQtGroupBox.h"
#include "CBPQtLine.h"
#include "CBPQtMainWindow.h"
#include "CBPQtTableView.h"
#include "CBPScrollBar.h"
#include "CBPScrollBarStyle.h"
#include "CBPScrollWnd.h"
#include "CBPSplitter.h"
#include "CBPSplitterHandle.h"
#include "CBPTableWidget.h"
#include "CBPTreeView.h"
#include "CBPTreeWidget.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>
#include <QStyleOptionSlider>
#include <QVBoxLayout>

#include <climits>
#include <memory>
#include <tuple>

namespace {

const QColor kNothing(1, 2, 3); // what lies below a widget
const QColor kPage(241, 241, 241);
const QColor kGround(246, 252, 255);
const QColor kSlider(182, 182, 182);
const QColor kDarkSlider(106, 106, 106);
constexpr int kLength = 201; // odd: its edges lie between pixels at 150 per cent

QImage picture(QWidget &widget, qreal ratio = 1.0)
{
    return pictureOf(widget, ratio, kNothing);
}

struct Bar : CBPScrollBar
{
    explicit Bar(Qt::Orientation orientation = Qt::Vertical) : CBPScrollBar(orientation, nullptr)
    {
        setRange(0, 100);
        setPageStep(50);
        setValue(50);
        resize(orientation == Qt::Vertical ? QSize(10, kLength) : QSize(kLength, 10));
    }

    QRect part(QStyle::SubControl control) const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
    }
};

// Within a step of what the gradient rounds to.
bool near(const QColor &color, const QColor &expected)
{
    return qAbs(color.red() - expected.red()) <= 3 && qAbs(color.green() - expected.green()) <= 3 &&
           qAbs(color.blue() - expected.blue()) <= 3;
}

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

// The classes that restyle one of Qt's, and those that fix a few defaults of one.
class TestWrappers : public QObject
{
    Q_OBJECT

private slots:
    void parents()
    {
        QVERIFY(CBPQtMainWindow(nullptr, Qt::FramelessWindowHint).windowFlags() & Qt::FramelessWindowHint);
        checkParent<CBPQtMainWindow>("CBPQtMainWindow", true);
        checkParent<CBPQtGroupBox>("CBPQtGroupBox", true);
        checkParent<CBPQtLine>("CBPQtLine", true);
        checkParent<CBPQtTableView>("CBPQtTableView", true);
        checkParent<CBPTableWidget>("CBPTableWidget", false);
        checkParent<CBPTreeView>("CBPTreeView", false);
        checkParent<CBPScrollWnd>("CBPScrollWnd", false);
        QCOMPARE(CBPScrollWnd(nullptr).frameShape(), QFrame::NoFrame);
    }

    void groupBoxPaintsOnlyItsChildren()
    {
        CBPQtGroupBox box;
        box.setTitle("A title that is not seen");
        box.resize(120, 60);
        auto *child = new QWidget(&box);
        child->setGeometry(20, 30, 10, 10);
        child->setAutoFillBackground(true);
        child->setPalette(QPalette(Qt::red));
        QImage expected(box.size(), QImage::Format_ARGB32);
        expected.fill(kNothing);
        QPainter(&expected).fillRect(child->geometry(), Qt::red);
        QCOMPARE(picture(box), expected);
    }

    void lineIsOnePixelWide()
    {
        CBPQtLine line;
        line.resize(10, 100);
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage image = picture(line, ratio);
            const int bottom = image.height() - 1;
            const QPair<int, QColor> stops[] = {
                {0, {214, 231, 249}}, {bottom / 2, {189, 201, 211}}, {bottom, {237, 244, 251}}};
            for (const auto &[y, color] : stops) {
                for (int x = 0; x < qRound(ratio); ++x)
                    QVERIFY(near(image.pixelColor(x, y), color));
                QCOMPARE(image.pixelColor(qRound(ratio), y), kNothing);
            }
        }
        line.resize(0, 0);
        line.grab();
    }

    void views()
    {
        CBPTableWidget table;
        CBPTreeWidget tree;
        QVERIFY(!tree.parent());
        for (QAbstractItemView *view :
             {static_cast<QAbstractItemView *>(&table), static_cast<QAbstractItemView *>(&tree)}) {
            QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
            QCOMPARE(view->editTriggers(),
                     QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed);
            QVERIFY(view->hasMouseTracking() && view->viewport()->hasMouseTracking());
            QVERIFY(view->property("sortingEnabled").toBool());
        }
        QVERIFY(!table.showGrid() && table.frameShape() == QFrame::NoFrame);
        QVERIFY(table.verticalHeader()->isHidden() && !table.horizontalHeader()->highlightSections());
        QCOMPARE(table.textElideMode(), Qt::ElideRight);
        table.setColumnCount(2);
        table.setRowCount(3);
        QCOMPARE(table.rowHeight(2), 41);
        table.show();
        table.selectRow(0);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          table.visualRect(table.model()->index(2, 1)).center());
        const QModelIndexList selected = table.selectionModel()->selectedRows();
        QVERIFY(selected.size() == 1 && selected.at(0).row() == 2); // one, as a whole

        QVERIFY(tree.contextMenuPolicy() == Qt::CustomContextMenu && !tree.rootIsDecorated());
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

    // Of the application's kind, and never the application's: of the style that it starts with, and of
    // others.
    void styleIsTheBarsOwn()
    {
        const QString before = QApplication::style()->objectName();
        const auto restore = qScopeGuard([&] { QApplication::setStyle(before); });
        const auto kindOf = [](const QStyle &style) { return style.metaObject()->className(); };
        for (const char *applications : {"", "windows", "fusion"}) {
            if (*applications)
                QApplication::setStyle(applications);
            CBPScrollBarStyle style;
            QCOMPARE(style.pixelMetric(QStyle::PM_ScrollBarExtent), 0);
            const QPointer<QStyle> its = QApplication::style();
            QCOMPARE(kindOf(*style.baseStyle()), kindOf(*its));
            QCOMPARE(kindOf(*CBPMenuItemSizeStyle(QSize()).baseStyle()), kindOf(*its));
            auto bar = std::make_unique<Bar>();
            const QPointer<QStyle> own = bar->style();
            QCOMPARE(bar->sizeHint().width(), 10);
            bar.reset();
            QVERIFY(!own && its && QApplication::style() == its);
            QVERIFY(!its->parent() || its->parent() == qApp);
        }
    }

    void barParts_data() { scalings(); }
    void barParts()
    {
        QFETCH(qreal, ratio);
        for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
            Bar bar(orientation);
            const QRectF slider = bar.part(QStyle::SC_ScrollBarSlider);
            for (const bool underMouse : {false, true}) {
                bar.setAttribute(Qt::WA_UnderMouse, underMouse);
                const QImage image = picture(bar, ratio);
                const QPoint end = (slider.bottomRight() * ratio).toPoint() - QPoint(1, 1);
                QCOMPARE(boxOf(image, underMouse ? kDarkSlider : kSlider),
                         QRect((slider.topLeft() * ratio).toPoint(), end));
                for (const auto page : {QStyle::SC_ScrollBarSubPage, QStyle::SC_ScrollBarAddPage})
                    QCOMPARE(image.pixelColor(bar.part(page).center() * ratio), kPage);
                for (const auto arrow : {QStyle::SC_ScrollBarSubLine, QStyle::SC_ScrollBarAddLine}) {
                    if (!bar.part(arrow).isEmpty()) // not every style has them
                        QCOMPARE(image.pixelColor(bar.part(arrow).center() * ratio), kGround);
                }
                QVERIFY(boxOf(image, kNothing).isEmpty()); // sharp up to the edges
            }
        }
    }

    void barTakesItsColors()
    {
        Bar bar;
        const QImage before = picture(bar);
        QColor color = Qt::magenta;
        bar.SetArrowBg(color, color);
        bar.SetBgMidLine(color);
        bar.SetSliderRadius(3, 4);
        QCOMPARE(picture(bar), before); // kept only
        const QPoint slider = bar.part(QStyle::SC_ScrollBarSlider).center();
        const std::tuple<QVector<QColor>, QColor, QColor> lists[] = {
            {{Qt::red, Qt::green, Qt::blue, Qt::black}, Qt::red, Qt::green},
            {{Qt::red}, Qt::red, kDarkSlider},
            {{}, kSlider, kDarkSlider}};
        for (const auto &[list, normal, underMouse] : lists) {
            QVector<QColor> given = list;
            bar.SetSliderBg(given);
            bar.setAttribute(Qt::WA_UnderMouse, false);
            QCOMPARE(picture(bar).pixelColor(slider), normal);
            bar.setAttribute(Qt::WA_UnderMouse, true);
            QCOMPARE(picture(bar).pixelColor(slider), underMouse);
        }
        QColor none;
        bar.SetBarBg(none); // and what lies below is seen, not what was there before
        QVERIFY(!boxOf(picture(bar), kNothing).isEmpty() && !bar.testAttribute(Qt::WA_OpaquePaintEvent));
        bar.SetBarBg(color);
        QVERIFY(!boxOf(picture(bar), color).isEmpty() && bar.testAttribute(Qt::WA_OpaquePaintEvent));
        // The mouse is noticed as it comes.
        bar.setAttribute(Qt::WA_UnderMouse, false);
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        for (const QPoint &at : {QPoint(1, 1), slider})
            QTest::mouseMove(&bar, at);
        AWAIT_EQUAL(bar.grab().toImage().pixelColor(slider * bar.devicePixelRatioF()), kDarkSlider);
    }

    void splitterColorsItsFirstHandleOnly()
    {
        CBPSplitter splitter(Qt::Horizontal);
        splitter.setHandlerClr(QPen(Qt::red), QBrush(Qt::green)); // there is none
        for (int i = 0; i < 3; ++i)
            splitter.addWidget(new QWidget);
        splitter.setHandleWidth(9);
        splitter.resize(300, 40);
        splitter.show();
        splitter.setHandlerClr(QPen(Qt::red), QBrush(Qt::green));
        splitter.handle(0)->resize(9, 40);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(boxOf(picture(*splitter.handle(i)), Qt::green).isEmpty(), i > 0);

        auto *handle = qobject_cast<CBPSplitterHandle *>(splitter.handle(1));
        const QImage light = picture(*handle); // as it was made, the upper line outside
        QVERIFY(light.pixelColor(4, 0) == kPage && light.pixelColor(4, 20) == kPage);
        for (const QPoint &line : {QPoint(0, 20), QPoint(8, 20), QPoint(4, 39)})
            QVERIFY(light.pixelColor(line) != kPage && light.pixelColor(line) != kNothing);
        handle->setColr(QPen(QColor(Qt::red), INT_MAX), QBrush(Qt::green));
        picture(*handle); // no size overflows
        handle->setColr(QPen(Qt::red), QBrush(Qt::green));
        QCOMPARE(boxOf(picture(*handle), Qt::green), QRect(1, 0, 7, 39));
        QCOMPARE(boxOf(picture(*handle), Qt::red), QRect(0, 0, 9, 40));
    }
};

LUMQT_TEST_MAIN(TestWrappers)
#include "tst_wrappers.moc"
