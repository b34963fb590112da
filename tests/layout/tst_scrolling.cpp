#include "Acts.h"
#include "Await.h"
#include "CBPMenuItemSizeStyle.h"
#include "CBPScrollBar.h"
#include "CBPScrollBarStyle.h"
#include "CBPScrollWnd.h"
#include "CBPSplitter.h"
#include "CBPSplitterHandle.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QApplication>
#include <QPointer>
#include <QScopeGuard>
#include <QStyleOptionSlider>

#include <climits>
#include <memory>
#include <tuple>

namespace {

const QColor kNothing(1, 2, 3); // what lies below a widget
const QColor kPage(241, 241, 241);
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

} // namespace

// Scroll bars, what is scrolled, and splitters.
class TestScrolling : public QObject
{
    Q_OBJECT

private slots:
    void scrolledWindow()
    {
        QWidget parent;
        const CBPScrollWnd window(&parent); // which it is given in a layout only
        QVERIFY(!window.parent() && window.frameShape() == QFrame::NoFrame);
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

    // All there is, sharp up to the edges.
    void barParts_data() { scalings(); }
    void barParts()
    {
        QFETCH(qreal, ratio);
        for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
            Bar bar(orientation);
            const QImage image = picture(bar, ratio);
            QCOMPARE(colorsIn(image, image.rect()).size(), 3); // with that of the ground
            const QRect pages = bar.part(QStyle::SC_ScrollBarSubPage) | bar.part(QStyle::SC_ScrollBarAddPage);
            for (const auto &[part, color] :
                 {std::pair(pages, kPage), std::pair(bar.part(QStyle::SC_ScrollBarSlider), kSlider)}) {
                const QRectF scaled(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio);
                QCOMPARE(boxOf(image, color),
                         QRect(scaled.topLeft().toPoint(), scaled.bottomRight().toPoint() - QPoint(1, 1)));
            }
        }
    }

    // A padding that a sheet gives to all widgets leaves a bar its slider; one that is meant for it, or
    // leaves a pixel, is taken as it is.
    void barsOfPaddedWindows()
    {
        for (const auto &[padding, isTaken] :
             {std::pair("6px", false), std::pair("5px", false), std::pair("4px 4px 5px 5px", true)}) {
            for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
                QWidget window;
                window.setStyleSheet(QString("* { padding: %1; }").arg(padding));
                Bar bar(orientation);
                bar.setParent(&window);
                window.show();
                QVERIFY(!bar.part(QStyle::SC_ScrollBarSlider).isEmpty());
                QCOMPARE(bar.styleSheet().isEmpty(), isTaken);
                bar.setStyleSheet("CBPScrollBar { padding: 6px; }");
                QVERIFY(bar.part(QStyle::SC_ScrollBarSlider).isEmpty());
            }
        }
    }

    void barTakesItsColors()
    {
        Bar bar;
        QColor color = Qt::magenta;
        const QPoint slider = bar.part(QStyle::SC_ScrollBarSlider).center();
        const std::tuple<QVector<QColor>, QColor, QColor> lists[] = {{{Qt::red}, Qt::red, kDarkSlider},
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
        QVERIFY(QTest::qWaitForWindowExposed(&bar, kPatience));
        QVector<QColor> reds{Qt::red, kDarkSlider};
        QVERIFY(repaints(bar, [&] { bar.SetSliderBg(reds); }) && repaints(bar, [&] { bar.SetBarBg(none); }));
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
        handle->setColr(QPen(QColor(Qt::red), INT_MAX), QBrush(Qt::green));
        picture(*handle);                                  // no size overflows
        handle->setColr(QPen(Qt::red), QBrush(Qt::green)); // the upper line outside
        QCOMPARE(boxOf(picture(*handle), Qt::green), QRect(1, 0, 7, 39));
    }
};

LUMQT_TEST_MAIN(TestScrolling)
#include "tst_scrolling.moc"
