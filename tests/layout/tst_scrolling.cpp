#include "CBPMenuItemSizeStyle.h"
#include "CBPScrollBar.h"
#include "CBPScrollBarStyle.h"
#include "CBPScrollWnd.h"
#include "CBPSplitter.h"
#include "CBPSplitterHandle.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>
#include <QStyle>
#include <QStyleOptionSlider>

#include <climits>

namespace {

const QColor kNothing(1, 2, 3); // what lies below a widget
const QColor kPage(241, 241, 241);
const QColor kGround(246, 252, 255);
const QColor kSlider(182, 182, 182);
const QColor kDarkSlider(106, 106, 106);
constexpr int kLength = 201; // odd: its edges lie between pixels at 150 per cent

QImage picture(QWidget &widget, qreal ratio = 1.0)
{
    QImage image(QSize(qRound(widget.width() * ratio), qRound(widget.height() * ratio)),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(kNothing);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
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

QVector<QColor> colors(int count)
{
    return QVector<QColor>{Qt::red, Qt::green, Qt::blue, Qt::black}.mid(0, count);
}

} // namespace

class TestScrolling : public QObject
{
    Q_OBJECT

private slots:
    void styleIsTheBarsOwn_data()
    {
        QTest::addColumn<QString>("applications");
        QTest::newRow("as it starts") << QString();
        QTest::newRow("another than the desktop's") << QStringLiteral("windows");
        QTest::newRow("a third") << QStringLiteral("fusion");
    }

    // Of the application's kind, and never the application's.
    void styleIsTheBarsOwn()
    {
        QFETCH(QString, applications);
        const QString before = QApplication::style()->objectName();
        const auto restore = qScopeGuard([&] { QApplication::setStyle(before); });
        if (!applications.isEmpty())
            QApplication::setStyle(applications);
        const auto kindOf = [](const QStyle &style) { return style.metaObject()->className(); };
        CBPScrollBarStyle style;
        QCOMPARE(style.pixelMetric(QStyle::PM_ScrollBarExtent), 0);
        const QPointer<QStyle> its = QApplication::style();
        QCOMPARE(kindOf(*style.baseStyle()), kindOf(*its));
        QCOMPARE(kindOf(*CBPMenuItemSizeStyle(QSize()).baseStyle()), kindOf(*its));
        QPointer<QStyle> own;
        {
            Bar bar;
            own = bar.style();
            QCOMPARE(bar.sizeHint().width(), 10);
        }
        QVERIFY(!own && its);
        QCOMPARE(QApplication::style(), its.data());
        QVERIFY(!its->parent() || its->parent() == qApp);
    }

    void barParts_data()
    {
        QTest::addColumn<bool>("vertical");
        QTest::addColumn<qreal>("ratio");
        for (const bool vertical : {true, false}) {
            for (const qreal ratio : {1.0, 1.5, 2.0})
                QTest::addRow("%s, %g", vertical ? "vertical" : "horizontal", ratio) << vertical << ratio;
        }
    }

    void barParts()
    {
        QFETCH(bool, vertical);
        QFETCH(qreal, ratio);
        Bar bar(vertical ? Qt::Vertical : Qt::Horizontal);
        const QRect slider = bar.part(QStyle::SC_ScrollBarSlider);
        for (const bool underMouse : {false, true}) {
            bar.setAttribute(Qt::WA_UnderMouse, underMouse);
            const QImage image = picture(bar, ratio);
            const QColor color = underMouse ? kDarkSlider : kSlider;
            const auto device = [ratio](int at) { return qRound(at * ratio); };
            QCOMPARE(boxOf(image, color),
                     QRect(QPoint(device(slider.left()), device(slider.top())),
                           QPoint(device(slider.right() + 1) - 1, device(slider.bottom() + 1) - 1)));
            for (const auto page : {QStyle::SC_ScrollBarSubPage, QStyle::SC_ScrollBarAddPage})
                QCOMPARE(image.pixelColor(bar.part(page).center() * ratio), kPage);
            for (const auto arrow : {QStyle::SC_ScrollBarSubLine, QStyle::SC_ScrollBarAddLine}) {
                if (!bar.part(arrow).isEmpty()) // not every style has them
                    QCOMPARE(image.pixelColor(bar.part(arrow).center() * ratio), kGround);
            }
            QVERIFY(boxOf(image, kNothing).isEmpty()); // sharp up to the edges
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
        const struct
        {
            int count;
            QColor normal, underMouse;
        } lists[] = {{4, Qt::red, Qt::green}, {1, Qt::red, kDarkSlider}, {0, kSlider, kDarkSlider}};
        for (const auto &list : lists) {
            QVector<QColor> given = colors(list.count);
            bar.SetSliderBg(given);
            bar.setAttribute(Qt::WA_UnderMouse, false);
            QCOMPARE(picture(bar).pixelColor(slider), list.normal);
            bar.setAttribute(Qt::WA_UnderMouse, true);
            QCOMPARE(picture(bar).pixelColor(slider), list.underMouse);
        }
        QColor none;
        bar.SetBarBg(none); // and what lies below is seen, not what was there before
        QVERIFY(!boxOf(picture(bar), kNothing).isEmpty());
        QVERIFY(!bar.testAttribute(Qt::WA_OpaquePaintEvent));
        bar.SetBarBg(color);
        QVERIFY(!boxOf(picture(bar), color).isEmpty());
        QVERIFY(bar.testAttribute(Qt::WA_OpaquePaintEvent));
    }

    void hoverIsNoticed()
    {
        Bar bar;
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        const QPoint slider = bar.part(QStyle::SC_ScrollBarSlider).center();
        QTest::mouseMove(&bar, QPoint(1, 1));
        QTest::mouseMove(&bar, slider);
        QTRY_COMPARE(bar.grab().toImage().pixelColor(slider * bar.devicePixelRatioF()), kDarkSlider);
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
        for (int i = 1; i < 3; ++i)
            QVERIFY(boxOf(picture(*splitter.handle(i)), Qt::green).isEmpty());
        splitter.handle(0)->resize(9, 40);
        QVERIFY(!boxOf(picture(*splitter.handle(0)), Qt::green).isEmpty());

        auto *handle = qobject_cast<CBPSplitterHandle *>(splitter.handle(1));
        QVERIFY(handle);
        handle->setColr(QPen(QColor(Qt::red), INT_MAX), QBrush(Qt::green));
        picture(*handle); // no size overflows
        handle->setColr(QPen(Qt::red), QBrush(Qt::green));
        QCOMPARE(boxOf(picture(*handle), Qt::green), QRect(1, 0, 7, 39));
        QCOMPARE(boxOf(picture(*handle), Qt::red), QRect(0, 0, 9, 40));
    }

    void handleLooksLight()
    {
        CBPSplitter splitter(Qt::Vertical);
        splitter.addWidget(new QWidget);
        splitter.addWidget(new QWidget);
        splitter.setHandleWidth(9);
        splitter.resize(60, 200);
        splitter.show();
        const QImage image = picture(*splitter.handle(1));
        QCOMPARE(image.pixelColor(30, 4), kPage);
        QVERIFY(image.pixelColor(0, 4) != kPage && image.pixelColor(0, 4) != kNothing);
        QCOMPARE(image.pixelColor(30, 0), kPage); // the upper line lies outside
        QVERIFY(image.pixelColor(30, 8) != kPage && image.pixelColor(30, 8) != kNothing);
    }

    void scrollAreaIsNobodys()
    {
        QWidget parent;
        const QScopedPointer<CBPScrollWnd> area(new CBPScrollWnd(&parent));
        QVERIFY(!area->parent());
        QCOMPARE(area->frameShape(), QFrame::NoFrame);
    }
};

LUMQT_TEST_MAIN(TestScrolling)
#include "tst_scrolling.moc"
