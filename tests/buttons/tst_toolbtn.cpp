#include "Acts.h"
#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "CBPToolButton.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <climits>
#include <limits>

namespace {

const QVector<QColor> kFour{Qt::red, Qt::green, Qt::blue, Qt::black};

QColor pixel(QWidget &widget, int x, int y)
{
    return widget.grab().toImage().pixelColor(x, y);
}

class Vetoing : public CBPStateWidget
{
public:
    bool onEnter() override { return enters; }
    bool onLeave() override { return false; }
    void OnExpose() override { ++exposed; }

    bool enters = false;
    int exposed = 0;
};

} // namespace

class TestToolBtn : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        QPixmap picture(20, 16);
        picture.fill(Qt::magenta);
        m_image = m_folder.filePath(QStringLiteral("picture.png"));
        QVERIFY(picture.save(m_image));
    }

    // What happens, a letter each, and the colour that is painted in the end.
    void states_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("painted");
        const QPair<const char *, int> rows[] = {
            {"", 0},   {"e", 1},  {"el", 0}, {"ep", 2},  {"epr", 2}, {"P", 2},   {"f", 1},
            {"fo", 0}, {"D", 3},  {"DE", 3}, {"DEe", 1}, {"DEl", 0}, {"DEp", 2}, {"De", 3},
            {"Df", 3}, {"s", 1},  {"sp", 1}, {"sl", 1},  {"spu", 0}, {"Ds", 1},  {"pu", 0},
            {"d", 3},  {"dn", 0}, {"1", 1},  {"3", 3},   {"29", 2},
        };
        for (const auto &row : rows)
            QTest::newRow(row.first) << row.first << row.second;
    }

    void states()
    {
        QFETCH(QString, script);
        QFETCH(int, painted);
        CBPStateWidget widget;
        widget.resize(40, 30);
        widget.SetBgColor(kFour);
        for (const QChar step : script) {
            switch (step.toLatin1()) {
            case 'e':
                sendEvent(widget, QEvent::Enter);
                break;
            case 'l':
                sendEvent(widget, QEvent::Leave);
                break;
            case 'p':
                sendMouse(widget, QEvent::MouseButtonPress);
                break;
            case 'P':
                sendMouse(widget, QEvent::MouseButtonPress, Qt::RightButton);
                break;
            case 'r':
                sendMouse(widget, QEvent::MouseButtonRelease);
                break;
            case 'f':
                sendFocus(widget, QEvent::FocusIn);
                break;
            case 'o':
                sendFocus(widget, QEvent::FocusOut);
                break;
            case 'D':
                widget.SetEnabled(false);
                break;
            case 'E':
                widget.SetEnabled(true);
                break;
            case 'd':
                widget.setEnabled(false);
                break;
            case 'n':
                widget.setEnabled(true);
                break;
            case 's':
                widget.SetSelected(true);
                break;
            case 'u':
                widget.SetSelected(false);
                break;
            default:
                widget.SetState(ENState(step.digitValue()));
                break;
            }
        }
        QCOMPARE(pixel(widget, 20, 15), kFour[painted]);
    }

    void hooks()
    {
        Vetoing widget;
        widget.resize(40, 30);
        widget.SetBgColor(kFour);
        sendEvent(widget, QEvent::Enter);
        QCOMPARE(pixel(widget, 20, 15), kFour[0]);
        widget.enters = true;
        sendEvent(widget, QEvent::Enter);
        sendEvent(widget, QEvent::Leave);
        QCOMPARE(pixel(widget, 20, 15), kFour[1]);
        QCOMPARE(widget.exposed, 2);
    }

    void outlines_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<bool>("transparentFrame");
        QTest::addColumn<bool>("ground");
        QTest::addColumn<QColor>("corner");
        QTest::addColumn<QColor>("edge");
        QTest::addColumn<QColor>("inside");
        const QColor frame(Qt::blue);
        const QColor fill(Qt::red);
        const QColor none(Qt::white);
        QTest::newRow("square") << 0.0 << 0.0 << false << true << frame << frame << fill;
        QTest::newRow("one radius is none") << 6.0 << 0.0 << false << true << frame << frame << fill;
        QTest::newRow("round") << 6.0 << 6.0 << false << true << none << frame << fill;
        QTest::newRow("round keeps its frame") << 6.0 << 6.0 << true << true << none << frame << fill;
        QTest::newRow("fill only") << 0.0 << 0.0 << true << true << fill << fill << fill;
        QTest::newRow("frame only") << 0.0 << 0.0 << false << false << frame << frame << none;
        QTest::newRow("no number") << qQNaN() << 6.0 << false << true << frame << frame << fill;
        QTest::newRow("negative") << -6.0 << -6.0 << false << true << frame << frame << fill;
    }

    void outlines()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(bool, transparentFrame);
        QFETCH(bool, ground);
        QWidget below;
        below.resize(40, 30);
        below.setStyleSheet(QStringLiteral("background: #ffffff"));
        auto *widget = new CBPStateWidget(&below);
        widget->setStyleSheet(QStringLiteral("background: none"));
        widget->resize(40, 30);
        widget->SetBgColor({Qt::red});
        widget->SetFrmColor({Qt::blue});
        widget->SetRoundRadius(x, y);
        widget->SetFrmTrancent(transparentFrame);
        widget->SetDrawBg(ground);
        const QImage image = below.grab().toImage();
        QTEST(image.pixelColor(0, 0), "corner");
        QTEST(image.pixelColor(0, 15), "edge");
        QTEST(image.pixelColor(20, 15), "inside");
        widget->SetRoundRadius(1e300, 1e300);
        widget->SetState(ENStateDisable); // there is no such colour in either list
        QVERIFY(!widget->grab().isNull());
    }

    void widths_data()
    {
        QTest::addColumn<int>("align");
        QTest::addColumn<bool>("image");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("besideText");  // what the text is added to; -1: it is not
        QTest::addColumn<int>("withoutText"); // the width when the text counts for nothing
        const QString text = QStringLiteral("Some text");
        QTest::newRow("beside") << 0 << true << text << 10 + 10 + 20 + 5 << 0;
        QTest::newRow("text alone") << 0 << false << text << 10 + 10 + 5 << 0;
        QTest::newRow("empty, beside") << 0 << true << QString() << -1 << 10 + 10 + 20 - 1 + 5;
        QTest::newRow("nothing, beside") << 0 << false << QString() << -1 << 10 + 10 - 1 + 5;
        QTest::newRow("above") << 1 << true << text << 10 + 10 << 0;
        QTest::newRow("above no text") << 1 << true << QString() << -1 << 10 + 10 + 20;
        QTest::newRow("above nothing") << 1 << false << QString() << -1 << 10 + 10;
        QTest::newRow("another alignment") << 2 << true << text << -1 << 0;
    }

    void widths()
    {
        QFETCH(int, align);
        QFETCH(bool, image);
        QFETCH(QString, text);
        QFETCH(int, besideText);
        QFETCH(int, withoutText);
        CBPToolButton button(text, 1, ENAlign(align), true);
        if (image)
            button.SetImage(m_image);
        const int expected = besideText < 0
                                 ? withoutText
                                 : besideText + QFontMetrics(font()).size(Qt::TextExpandTabs, text).width();
        QCOMPARE(button.minimumWidth(), expected);
        QCOMPARE(button.maximumWidth(), expected);
        QVERIFY(button.maximumHeight() == QWIDGETSIZE_MAX);
        button.AppendMenuItem(QString(), text, 1);
        QCOMPARE(button.minimumWidth(), expected + 10);
        button.setPixelSize(40); // takes effect at the next setter that sizes
        button.setPixelSize(0);
        button.SetTextFont(QString(), -3);
        QCOMPARE(button.minimumWidth(), expected + 10);
        button.SetHorBorder(INT_MAX, INT_MAX);
        button.SetHorBorder(INT_MIN, INT_MIN);
        QCOMPARE(button.minimumWidth(), align > 1 ? 10 : 0);
        button.setAutoResize(false);
        button.SetSpacing(INT_MAX);
        button.SetArrowSize(INT_MIN, INT_MAX);
        button.setFixedSize(60, 30);
        QVERIFY(!button.grab().isNull());
    }

    // Where image and triangle lie, by their colours.
    void places()
    {
        const QString text = QStringLiteral("Tool");
        const QSize size = QFontMetrics(font()).size(Qt::TextExpandTabs, text);
        QColor ink(0, 90, 0);
        for (const ENAlign align : {ENAlignLeft, ENAlignTop}) {
            CBPToolButton button(m_image, text, 1, align, false);
            button.SetTextColor(ink);
            button.SetArrowSize(20, 12);
            button.AppendMenuItem(QString(), text, 1);
            button.resize(200, 80);
            QImage image = button.grab().toImage().convertToFormat(QImage::Format_RGB32);
            const int top = (80 - 16 - 5 - size.height()) / 2;
            const QPoint imageAt = align == ENAlignLeft ? QPoint(10, 32) : QPoint(90, top);
            QCOMPARE(boxOf(image, Qt::magenta), QRect(imageAt, QSize(20, 16)));
            const QPoint arrowAt =
                align == ENAlignLeft
                    ? QPoint((200 - 25 - size.width()) / 2 + 25 + size.width(), 34)
                    : QPoint((200 - size.width()) / 2 + size.width() + 3, top + 21 + size.height() / 2);
            const QRect arrow(arrowAt, QSize(20, 12));
            QVERIFY(arrow.contains(boxOf(image.copy(arrow), ink).translated(arrowAt)));
            QVERIFY(boxOf(image.copy(arrow), ink).width() >= 16);
            QPainter(&image).fillRect(arrow, Qt::white);
            const QRect words(align == ENAlignLeft ? QPoint(35, (80 - size.height()) / 2)
                                                   : QPoint((200 - size.width()) / 2, top + 21),
                              size);
            const QRect seen = boxOf(image, ink);
            QVERIFY(!seen.isEmpty() && words.contains(seen));

            CBPToolButton alone(text, 1, align, false); // its text starts elsewhere
            alone.SetTextColor(ink);
            alone.resize(200, 80);
            const QRect lone = boxOf(alone.grab().toImage().convertToFormat(QImage::Format_RGB32), ink);
            const QPoint shift = align == ENAlignLeft ? QPoint(4 - 35, 0) : QPoint(0, 4 - (top + 21));
            QCOMPARE(lone, seen.translated(shift));
        }
    }

    void lists()
    {
        QVector<QString> four{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                              QStringLiteral("d")};
        CBPToolButton button(four, QStringLiteral("x"), 5, ENAlignLeft, true);
        QCOMPARE(button.GetBtnID(), 5);
        QCOMPARE(button.icon(), QStringLiteral("a"));
        QCOMPARE(button.textClr(), QColor(14, 115, 173));
        button.SetTextColor(kFour);
        button.SetEnabled(false);
        QCOMPARE(button.icon(), QStringLiteral("d"));
        QCOMPARE(button.textClr(), kFour[3]);
        for (int count = 0; count < 6; ++count) {
            QVector<QString> images(count, m_image);
            button.SetImage(images);
            button.SetTextColor(QVector<QColor>(count, Qt::red));
            button.SetBgColor(QVector<QColor>(count, Qt::white));
            QCOMPARE(button.icon(), count == 4 ? m_image : QString());
            for (int state = 0; state < 4; ++state) {
                button.SetState(ENState(state));
                QCOMPARE(button.textClr().isValid(), state < count);
                const bool shown = !boxOf(button.grab().toImage(), Qt::magenta).isEmpty();
                QCOMPARE(shown, state < count);
            }
        }
    }

    void clicks()
    {
        const QPair<Click, int> rows[] = {
            {Click::Left, 1}, {Click::Right, 0}, {Click::Space, 1}, {Click::Enter, 1}, {Click::Tool, 1}};
        for (const auto &row : rows) {
            CBPToolButton button(QStringLiteral("x"), 7, ENAlignLeft, true);
            QSignalSpy clicked(&button, &CBPToolButton::sigClick);
            click(&button, row.first);
            QCOMPARE(clicked.count(), row.second);
            if (row.second)
                QCOMPARE(clicked.first().first().toInt(), 7);
            clicked.clear();
            button.SetEnabled(false);
            click(&button, row.first);
            QVERIFY(clicked.isEmpty());

            QPointer<CBPToolButton> dying = new CBPToolButton(QStringLiteral("x"), 7, ENAlignLeft, true);
            connect(dying.data(), &CBPToolButton::sigClick, this, [&] { delete dying.data(); });
            click(dying, row.first);
            QCOMPARE(dying.isNull(), row.second == 1);
            delete dying.data();
        }
        CBPToolButton button(QStringLiteral("x"), 7, ENAlignLeft, true);
        QSignalSpy clicked(&button, &CBPToolButton::sigClick);
        QTest::keyPress(&button, Qt::Key_Space);
        sendFocus(button, QEvent::FocusOut); // the release goes elsewhere
        QTest::keyRelease(&button, Qt::Key_Space);
        QVERIFY(clicked.isEmpty());
    }

    void menu()
    {
        auto &system = lumqt::platform::answers();
        const auto real = system;
        system.frameWidth = [](const QWidget *) { return 3; };
        system.captionHeight = [](const QWidget *) { return 11; };
        CBPToolButton button(QStringLiteral("Menu"), 7, ENAlignLeft, true);
        QSignalSpy clicked(&button, &CBPToolButton::sigClick);
        QSignalSpy chosen(&button, &CBPToolButton::sigActionTriggered);
        CBPMenu sub(QStringLiteral("More"));
        button.SetMenu(&sub); // it has none to replace
        button.AppendSubMenu(nullptr);
        QVERIFY(!button.GetMenu());
        button.AppendMenuItem(QString(), QStringLiteral("One"), 11);
        button.AppendSubMenu(&sub);
        QCOMPARE(button.GetMenu()->actions().size(), 2);
        button.show();

        QPoint where;
        whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
            where = menu->pos();
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        click(&button, Click::Left);
        QCOMPARE(where, button.mapToGlobal(QPoint(0, 46 - 3 - 11 + button.height() + 1)));
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().value<CBPMenuItem *>()->data().toInt(), 11);
        click(&button, Click::Right);
        for (const Click how : {Click::Space, Click::Enter, Click::Tool}) {
            int opened = 0;
            whileOpen(this, button.GetMenu(), [&](CBPMenu *) { ++opened; });
            click(&button, how);
            QCOMPARE(opened, 1);
        }
        QVERIFY(clicked.isEmpty());
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&button);
        QCOMPARE(face->role(), QAccessible::ButtonMenu);
        QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Menu"));
        button.SetText(QString());
        button.setToolTip(QStringLiteral("Tip"));
        QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Tip"));

        // Hiding the button takes the menu along, unless it is "shrinked".
        for (const bool stays : {false, true}) {
            button.show();
            button.setIsShrinked(stays);
            bool visible = !stays;
            whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
                button.hide();
                visible = menu->isVisible();
            });
            click(&button, Click::Left);
            QCOMPARE(visible, stays);
        }
        system = real;
    }

    void menuLifetimes()
    {
        auto *button = new CBPToolButton(QStringLiteral("x"), 1, ENAlignTop, true);
        button->AppendMenuItem(QString(), QStringLiteral("One"), 1);
        delete button->GetMenu();   // the application's right
        click(button, Click::Left); // nothing opens
        button->AppendMenuItem(QString(), QStringLiteral("Two"), 2);
        const QPointer<CBPMenu> own = button->GetMenu();
        QPointer<CBPMenu> given = new CBPMenu;
        QAction *item = given->AddAction(QStringLiteral("Three"), 3);
        button->SetMenu(given);
        QCOMPARE(button->GetMenu(), given.data());
        QSignalSpy chosen(button, &CBPToolButton::sigActionTriggered);
        emit given->triggered(item);
        QVERIFY(chosen.isEmpty());
        button->SetMenu(nullptr);
        click(button, Click::Left);
        delete button;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!own);
        QVERIFY(given);
        delete given.data();

        QPointer<CBPToolButton> dying = new CBPToolButton(QStringLiteral("x"), 1, ENAlignLeft, true);
        dying->AppendMenuItem(QString(), QStringLiteral("One"), 1);
        whileOpen(this, dying->GetMenu(), [&](CBPMenu *) { delete dying.data(); });
        click(dying, Click::Left);
        QVERIFY(!dying);
    }

private:
    static QFont font()
    {
        QFont font(QSettings(QStringLiteral("../res/Common/langind.ini"), QSettings::IniFormat)
                       .value(QStringLiteral("English/font_normal"))
                       .toString());
        font.setPixelSize(14);
        return font;
    }

    QTemporaryDir m_folder;
    QString m_image;
};

LUMQT_TEST_MAIN(TestToolBtn)
#include "tst_toolbtn.moc"
