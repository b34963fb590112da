#include "Acts.h"
#include "CBPCheckBox.h"
#include "CBPComboBox.h"
#include "CBPScrollWnd.h"
#include "CBPStyle.h"
#include "CBPTableWidget.h"
#include "CBPTreeWidget.h"
#include "foundation/Fade.h"
#include "foundation/Look.h"
#include "foundation/Palette.h"
#include "foundation/StyleWatch.h"
#include "Later.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QAbstractItemView>
#include <QFocusFrame>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QStyleFactory>
#include <QTabBar>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>

#include <memory>

using P = lumqt::Purpose;

namespace {

template <class Widget> QWidget *make()
{
    return new Widget;
}

void send(QWidget &widget, QEvent &&event)
{
    QCoreApplication::sendEvent(&widget, &event);
}

template <class... Widgets> bool allOurs(const Widgets *...widgets)
{
    return ((widgets->style()->styleHint(lumqt::kIsOurs) == lumqt::kOurs) && ...);
}

bool hasRing(QWidget &widget)
{
    return !boxOf(pictureOf(widget, 1), lumqt::builtInColor(P::FocusRing)).isEmpty();
}

// All round, in lines of whole pixels, with no half of one further in.
bool isFramed(const QImage &image, int line, const QColor &frame)
{
    QImage framed = image;
    framed.setDevicePixelRatio(1);
    QPainter painter(&framed);
    painter.setPen(QPen(frame, line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    const qreal half = line / 2.0;
    painter.drawRect(QRectF(framed.rect()).adjusted(half, half, -half, -half));
    painter.end();
    return image == framed && qGray(image.pixel(line, line)) > 240;
}

} // namespace

// The look of Qt's own widgets, and whose it is.
class TestStyle : public QObject
{
    Q_OBJECT

private slots:
    void states()
    {
        const auto check = [](QWidget *made, bool framed, bool typedInto) {
            const std::unique_ptr<QWidget> widget(made);
            const auto tell = qScopeGuard([&] {
                if (QTest::currentTestFailed())
                    qWarning("with: %s", widget->metaObject()->className());
            });
            CBPStyle::Apply(widget.get());
            widget->resize(101, 61); // odd: edges lie between device pixels
            const QImage rest = pictureOf(*widget, 1);
            QVERIFY(!hasRing(*widget));
            send(*widget, QEvent(QEvent::Enter));
            QVERIFY(pictureOf(*widget, 1) != rest);
            send(*widget, QEvent(QEvent::Leave));
            QCOMPARE(pictureOf(*widget, 1), rest);
            send(*widget, QFocusEvent(QEvent::FocusIn, Qt::MouseFocusReason));
            QCOMPARE(hasRing(*widget), typedInto);
            send(*widget, QFocusEvent(QEvent::FocusOut, Qt::MouseFocusReason));
            send(*widget, QFocusEvent(QEvent::FocusIn, Qt::TabFocusReason));
            QVERIFY(hasRing(*widget));
            send(*widget, QFocusEvent(QEvent::FocusOut, Qt::TabFocusReason));
            for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0})
                QVERIFY(!framed || isFramed(pictureOf(*widget, ratio), qRound(ratio),
                                            lumqt::builtInColor(qobject_cast<QPushButton *>(widget.get())
                                                                    ? P::FrameHovered
                                                                    : P::Frame)));
            widget->setEnabled(false);
            QVERIFY(pictureOf(*widget, 1) != rest);
        };
        check(make<CBPCheckBox>(), false, false);
        check(make<QRadioButton>(), false, false);
        check(make<CBPComboBox>(), true, false);
        check(make<QSpinBox>(), true, true);
        check(make<QLineEdit>(), true, true);
        check(make<QTextEdit>(), true, true);
        check(make<CBPTreeWidget>(), true, false);
        check(make<QPushButton>(), true, false);
        check(make<QToolButton>(), true, false);
        QTabBar tabs; // the chosen one has a line where its page is
        CBPStyle::Apply(&tabs);
        tabs.addTab("Chosen");
        for (const auto shape : {QTabBar::RoundedNorth, QTabBar::RoundedSouth, QTabBar::RoundedWest}) {
            tabs.setShape(shape);
            tabs.resize(tabs.sizeHint());
            const QSize line = boxOf(pictureOf(tabs, 1), lumqt::builtInColor(P::Accent)).size();
            QCOMPARE(qMin(line.width(), line.height()), 2);
        }
        tabs.setShape(QTabBar::RoundedNorth);
        tabs.addTab("Other");
        tabs.resize(400, tabs.sizeHint().height()); // the line at its foot goes on beside the tabs
        const QImage bar = pictureOf(tabs, 1);
        QCOMPARE(bar.pixelColor(tabs.tabRect(1).topLeft() + QPoint(3, 3)), bar.pixelColor(380, 3));
        QVERIFY(bar.pixelColor(380, tabs.height() - 1) != bar.pixelColor(380, 3));
    }

    void parts()
    {
        CBPTreeWidget tree;
        QVERIFY(allOurs(&tree, tree.header(), tree.verticalScrollBar()));
        const std::unique_ptr<QStyle> own(QStyleFactory::create("Windows"));
        auto *bar = new QScrollBar;
        bar->setStyle(own.get());
        tree.setVerticalScrollBar(bar);
        tree.setHorizontalScrollBar(new QScrollBar);
        tree.setHeader(new QHeaderView(Qt::Horizontal));
        auto *content = new QPushButton(tree.viewport());
        tree.show();
        QVERIFY(allOurs(tree.header(), tree.horizontalScrollBar()));
        QCOMPARE(bar->style(), own.get());
        QVERIFY(!allOurs(content));
        CBPComboBox combo;
        combo.addItem("One");
        combo.view()->ensurePolished();
        combo.show();
        QCOMPARE(combo.view()->sizeHintForRow(0), lumqt::kFieldHeight);
        combo.insertSeparator(1);
        QImage picture(20, 20, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QStyleOptionViewItem row;
        row.rect = QRect(0, 0, 20, 9);
        combo.itemDelegate()->paint(&painter, row, combo.model()->index(1, 0));
        QCOMPARE(boxOf(picture, lumqt::builtInColor(P::Rule)), QRect(0, 4, 20, 1));
        row.rect = QRect(0, 12, 8, 8);                               // less than a mark is made for
        row.state |= QStyle::State_NoChange | QStyle::State_Enabled; // a mark of whole pixels
        combo.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &row, &painter);
        QVERIFY(boxOf(picture, Qt::white).isValid() && row.rect.contains(boxOf(picture, Qt::white)));
        struct Delegate : QStyledItemDelegate // without a meta-object of its own
        {
        } delegate;
        CBPComboBox chosen;
        chosen.setItemDelegate(&delegate);
        chosen.show();
        QCOMPARE(chosen.itemDelegate(), &delegate);
        qApp->setStyleSheet("QPushButton { color: red }"); // Qt wraps every style
        tree.grab();
        QCOMPARE(tree.frameWidth(), 2);
        AWAIT(!qobject_cast<CBPStyle *>(tree.style()) && allOurs(&tree));
        qApp->setStyleSheet(QString());
        QVERIFY(allOurs(&tree, tree.header()));
        tree.setStyle(nullptr);
        QVERIFY(!allOurs(&tree) && !allOurs(tree.header()) && !allOurs(tree.horizontalScrollBar()));
    }

    void motion()
    {
        auto &lessMotion = lumqt::platform::answers().lessMotion;
        const auto restore = restoring(lessMotion);
        auto box = std::make_unique<CBPCheckBox>();
        box->setFocusPolicy(Qt::NoFocus); // which the window would bring
        box->resize(120, 40);             // which every window may have
        box->show();
        const QImage rest = pictureOf(*box, 1);
        const auto hover = [&](bool over) {
            send(*box, QEvent(over ? QEvent::Enter : QEvent::Leave));
            return pictureOf(*box, 1);
        };
        const QImage hovered = hover(true);
        QCOMPARE(lumqt::runningFades(), 0);
        QCOMPARE(hover(false), rest);
        lessMotion = [] { return false; };
        QVERIFY(hover(true) != hovered);
        QVERIFY(lumqt::runningFades() > 0);
        AWAIT_EQUAL(lumqt::runningFades(), 0);
        QCOMPARE(pictureOf(*box, 1), hovered);
        hover(false);
        box.reset();
        QCOMPARE(lumqt::runningFades(), 0);
        bool ticked = false; // after the last tick of the fades, which is not to paint what is gone
        QTimer::singleShot(50, [&] { ticked = true; });
        AWAIT(ticked);
        CBPStyle style; // of what one menu paints, no entry is another's past
        QMenu menu;
        menu.setStyle(&style);
        for (const char *text : {"On", "Off"})
            menu.addAction(text)->setCheckable(true);
        menu.actions().first()->setChecked(true);
        menu.popup(QPoint());
        menu.grab();
        const QImage checked = menu.grab().toImage();
        menu.actions().first()->setChecked(false);
        QVERIFY(menu.grab().toImage() != checked);
        QCOMPARE(lumqt::runningFades(), 0);
    }

    // What has no frame for the ring has it on its outside.
    void ringsOutside()
    {
        for (QWidget *widget : {make<CBPScrollWnd>(), make<CBPTableWidget>(), make<QSlider>()}) {
            QWidget window;
            widget->setParent(&window);
            CBPStyle::Apply(widget);
            window.show();
            for (const auto type : {QEvent::FocusIn, QEvent::FocusOut}) {
                send(*widget, QFocusEvent(type, Qt::TabFocusReason));
                QCOMPARE(bool(window.findChild<QFocusFrame *>()), type == QEvent::FocusIn);
            }
        }
    }

    void installs()
    {
        const QString kind = QApplication::style()->objectName();
        CBPStyle::Install();
        const QStyle *style = QApplication::style();
        QVERIFY(qobject_cast<const CBPStyle *>(style));
        QCOMPARE(style->objectName(), kind);
        CBPStyle::Install();
        QCOMPARE(QApplication::style(), style);
        QVERIFY(allOurs(std::make_unique<QSpinBox>().get()));
    }
};

// Nothing happens before there is an application, and a widget may outlive one.
int main(int argc, char *argv[])
{
    CBPStyle::Install();
    CBPStyle::Apply(nullptr);
    std::unique_ptr<QWidget> left;
    {
        QApplication application(argc, argv);
        left = std::make_unique<CBPCheckBox>();
        left->grab();
    }
    left.reset();
    return runTest<TestStyle>(argc, argv);
}

#include "tst_style.moc"
