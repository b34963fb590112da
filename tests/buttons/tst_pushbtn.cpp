#include "Acts.h"
#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "CBPPushBtn.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "TestMain.h"

#include <QAccessible>
#include <QDialog>
#include <QPainter>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <climits>

namespace {

const QColor kNormal(255, 255, 255);
const QColor kHover(0xed, 0xf7, 0xf8);
const QColor kPressed(0xe2, 0xf2, 0xf3);
const QColor kRing(75, 167, 245);

QColor pixel(QWidget &widget, int x, int y)
{
    const QImage image = widget.grab().toImage();
    return image.pixelColor(qRound(x * image.devicePixelRatio()), qRound(y * image.devicePixelRatio()));
}

QColor fillOf(QWidget &button)
{
    return pixel(button, 4, 14);
}

QIcon plainIcon(const QSize &size, const QColor &color)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return QIcon(pixmap);
}

} // namespace

class TestPushBtn : public QObject
{
    Q_OBJECT

private slots:
    void recordDefaults()
    {
        const char *table[][4] = {{"#ffffff", "#edf7f8", "#e2f2f3", "#ffffff"},
                                  {"#3c434b", "#bce0e2", "#87c8cc", "#bbbbbb"},
                                  {"#666666", "#666666", "#666666", "#bbbbbb"},
                                  {"#ffffff", "#edf7f8", "#e2f2f3", "#ffffff"},
                                  {"#228fc2", "#228fc2", "#228fc2", "#a0a0a0"}};
        const CBtnObj record;
        QColor (CBtnObj::*const getters[])(int)
            const = {&CBtnObj::bgColor, &CBtnObj::frmColor, &CBtnObj::textColor, &CBtnObj::focusColor,
                     &CBtnObj::triangleColor};
        for (int row = 0; row < 5; ++row) {
            for (int state = 0; state < 4; ++state)
                QCOMPARE((record.*getters[row])(state), QColor(QLatin1String(table[row][state])));
        }
        QCOMPARE(record.frmWidth(), 1);
        QCOMPARE(record.roundRadius(0), 0);
        QCOMPARE(record.roundRadius(1), 0);
        QVERIFY(!record.IsFocus());
    }

    void record()
    {
        CBtnObj record;
        QCOMPARE(record.state(), 0);
        QVERIFY(!record.checkedBgColor().isValid() && !record.checkedFrmColor().isValid());
        record.setState(2);
        for (const int bad : {4, -1, 1000})
            record.setState(bad);
        QCOMPARE(record.state(), 2);

        const CBtnObj copy = record;
        record.setBgTrancent(true);
        QCOMPARE(record.bgColor(1), QColor(0xed, 0xf7, 0xf8, 0));
        QCOMPARE(copy.bgColor(1), QColor(0xed, 0xf7, 0xf8));
        record.setBgTrancent(false);
        QCOMPARE(record.bgColor(1), QColor(0xed, 0xf7, 0xf8));
        const QIcon::Mode modes[] = {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled};
        for (int i = 0; i < 4; ++i) {
            record.setState(i);
            QCOMPARE(record.iconMode(), modes[i]);
        }
        QVERIFY(!record.bgColor(9).isValid());
        QCOMPARE(record.roundRadius(9), 0);
    }

    void sizes_data()
    {
        QTest::addColumn<bool>("autoResize");
        QTest::addColumn<int>("icon");
        QTest::addColumn<bool>("menu");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("width"); // 0: not fixed
        QTest::newRow("fixed by the layout") << false << 16 << true << 85 << 0;
        QTest::newRow("text never counts") << true << 0 << false << 85 << 85;
        QTest::newRow("small icon") << true << 16 << false << 85 << 85;
        QTest::newRow("large icon") << true << 90 << false << 85 << 120;
        QTest::newRow("menu") << true << 0 << true << 85 << 95;
        QTest::newRow("menu and icon") << true << 90 << true << 85 << 130;
        QTest::newRow("wider minimum") << true << 0 << false << 200 << 200;
        QTest::newRow("negative minimum") << true << 0 << false << -50 << 20;
    }

    void sizes()
    {
        QFETCH(bool, autoResize);
        QFETCH(int, icon);
        QFETCH(bool, menu);
        QFETCH(int, minimum);
        QFETCH(int, width);
        CBPPushBtn button(QStringLiteral("A text much longer than the button"), nullptr, autoResize, false);
        button.setIconSize(QSize(icon, icon));
        if (icon)
            button.setIcon(plainIcon(QSize(icon, icon), Qt::red));
        button.SetMininzerWidth(minimum);
        button.setHasMenu(menu);
        QCOMPARE(button.minimumHeight(), 28);
        QCOMPARE(button.maximumHeight(), 28);
        QCOMPARE(button.minimumWidth() == button.maximumWidth(), autoResize);
        if (width)
            QCOMPARE(button.minimumWidth(), width);
    }

    void spacingWaitsForTheNextResize()
    {
        CBPPushBtn button(QStringLiteral("x"), nullptr, true, false);
        button.setIconSize(QSize(90, 20));
        button.setIcon(plainIcon(QSize(90, 20), Qt::red));
        button.setSpacing(50);
        QCOMPARE(button.minimumWidth(), 120);
        button.setText(QStringLiteral("y"));
        QCOMPARE(button.minimumWidth(), 160);
    }

    void mouseStates()
    {
        CBPPushBtn button(QStringLiteral("OK"), 7, CBPPushBtn::ALIGN_CENTER, false, false);
        show(button);
        QCOMPARE(fillOf(button), kNormal);
        sendEvent(button, QEvent::Enter);
        QCOMPARE(button.state(), 1);
        QCOMPARE(fillOf(button), kHover);

        QStringList order;
        connect(&button, &QPushButton::pressed, this, [&] { order << QStringLiteral("pressed"); });
        connect(&button, &QPushButton::released, this, [&] { order << QStringLiteral("released"); });
        connect(&button, &QPushButton::clicked, this, [&] { order << QStringLiteral("clicked"); });
        connect(&button, &CBPPushBtn::sigBtnClicked, this, [&](int id) { order << QString::number(id); });
        QTest::mousePress(&button, Qt::LeftButton);
        QCOMPARE(fillOf(button), kPressed);
        QVERIFY(button.IsFocus());
        QTest::mouseMove(&button, QPoint(200, 200));
        QVERIFY(button.isDown()); // moves are not seen
        QTest::mouseRelease(&button, Qt::LeftButton);
        QCOMPARE(button.state(), 1);
        QCOMPARE(order.join(QLatin1Char(' ')), QStringLiteral("pressed released clicked 7"));

        order.clear();
        QTest::mousePress(&button, Qt::LeftButton);
        QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(500, 500));
        QCOMPARE(order.last(), QStringLiteral("7"));
        QVERIFY(!order.contains(QStringLiteral("clicked")));

        sendEvent(button, QEvent::Leave);
        QCOMPARE(button.state(), 0);
        button.setState(2);
        QFocusEvent away(QEvent::FocusOut);
        QCoreApplication::sendEvent(&button, &away);
        QCOMPARE(button.state(), 0);
        QVERIFY(!button.IsFocus());
        button.setState(3); // a record that says disabled takes no press
        QTest::mousePress(&button, Qt::LeftButton);
        QCOMPARE(button.state(), 3);
        button.setState(0);
        order.clear();
        QTest::mouseClick(&button, Qt::RightButton);
        QTest::mouseClick(&button, Qt::MiddleButton);
        QCOMPARE(button.state(), 0);
        QVERIFY(order.isEmpty());
    }

    void doubleClick()
    {
        CBPPushBtn button(QStringLiteral("OK"), 3, CBPPushBtn::ALIGN_CENTER, false, false);
        show(button);
        QSignalSpy twice(&button, &CBPPushBtn::doubleClicked);
        QSignalSpy clicks(&button, &CBPPushBtn::sigBtnClicked);
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseDClick(&button, Qt::LeftButton);
        QTest::mouseRelease(&button, Qt::LeftButton);
        QCOMPARE(twice.count(), 1);
        QCOMPARE(clicks.count(), 2);
        QCOMPARE(clicks.last().first().toInt(), 3);
    }

    void keyboard()
    {
        QDialog dialog;
        auto *layout = new QVBoxLayout(&dialog);
        auto *first = new CBPPushBtn(QStringLiteral("First"), 1, CBPPushBtn::ALIGN_CENTER, false, false);
        auto *second = new CBPPushBtn(QStringLiteral("Second"), 2, CBPPushBtn::ALIGN_CENTER, false, false);
        layout->addWidget(first);
        layout->addWidget(second);
        show(dialog);
        first->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(first->hasFocus());
        QCOMPARE(pixel(*first, 0, 14), kRing);
        QCOMPARE(pixel(*first, 1, 14), kRing);
        QCOMPARE(pixel(*first, first->width() - 1, 14), kRing);

        QSignalSpy one(first, &CBPPushBtn::sigBtnClicked);
        QSignalSpy two(second, &CBPPushBtn::sigBtnClicked);
        QSignalSpy clicked(first, &QPushButton::clicked);
        QTest::keyPress(first, Qt::Key_Space);
        QCOMPARE(first->state(), 2);
        QCOMPARE(fillOf(*first), kPressed);
        QTest::keyRelease(first, Qt::Key_Space);
        QCOMPARE(one.count(), 1);
        QCOMPARE(one.first().first().toInt(), 1);
        QCOMPARE(clicked.count(), 1);
        QVERIFY(first->state() != 2);

        QTest::keyClick(first, Qt::Key_Return); // the focused button of a dialog is its default button
        QCOMPARE(one.count(), 2);
        QCOMPARE(clicked.count(), 2);

        QTest::keyClick(first, Qt::Key_Tab);
        QTRY_VERIFY(second->hasFocus());
        QVERIFY(!first->IsFocus());
        QVERIFY(pixel(*first, 0, 14) != kRing);
        second->setAutoDefault(false);
        first->setAsDefaultBtn();
        QVERIFY(first->IsFocus() && first->isDefault());
        QTest::keyClick(&dialog, Qt::Key_Enter); // the dialog presses its default button
        QCOMPARE(one.count(), 3);
        QCOMPARE(two.count(), 0);
        QTest::keyClick(second, Qt::Key_Space);
        QCOMPARE(two.count(), 1);
    }

    // Waits and dialogs that run inside clicked() are the rule in an application.
    void clicksInsideClicks()
    {
        CBPPushBtn button(QStringLiteral("OK"), 6, CBPPushBtn::ALIGN_CENTER, false, false);
        show(button);
        int depth = 0;
        int clicked = 0;
        connect(&button, &QPushButton::clicked, this, [&] {
            ++clicked;
            if (depth++ == 0) {
                QTest::mouseClick(&button, Qt::LeftButton);
                QTest::keyClick(&button, Qt::Key_Space);
                button.click();
            }
        });
        QSignalSpy reported(&button, &CBPPushBtn::sigBtnClicked);
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(clicked, 4);
        QCOMPARE(reported.count(), 4);
        depth = 0;
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(reported.count(), 8);
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(reported.count(), 9);
    }

    void disabledByItsOwnClick()
    {
        CBPPushBtn button(QStringLiteral("OK"), nullptr, false, false);
        show(button);
        connect(&button, &QPushButton::clicked, this, [&] { button.setEnabled(false); });
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(button.state(), 3);
    }

    void texts()
    {
        const QVector<QColor> colors{QColor(200, 0, 0), QColor(0, 160, 0), QColor(0, 0, 200),
                                     QColor(160, 0, 160)};
        CBPPushBtn button(QStringLiteral("MMM"), nullptr, false, false);
        button.resize(160, 28);
        button.setBgColor(QVector<QColor>(4, Qt::white));
        button.setTextColor(colors);
        QFont font(QApplication::font());
        font.setPixelSize(22);
        font.setBold(true);
        button.SetFont(font);
        for (int state = 0; state < 4; ++state) {
            button.setState(state);
            const QRect ink =
                boxOf(button.grab().toImage().convertToFormat(QImage::Format_RGB32), colors[state]);
            QVERIFY2(ink.height() >= 12, qPrintable(QString::number(state)));
            QVERIFY(qAbs(ink.center().x() - 80) <= 2);
        }
        font.setPixelSize(11);
        button.SetFont(font);
        button.setState(0);
        const QRect smaller = boxOf(button.grab().toImage().convertToFormat(QImage::Format_RGB32), colors[0]);
        QVERIFY(smaller.height() < 12);
    }

    void iconFollowsTheState()
    {
        const QColor colors[] = {Qt::red, Qt::green, Qt::blue, Qt::magenta};
        const QIcon::Mode modes[] = {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled};
        QIcon icon;
        for (int i = 0; i < 4; ++i) {
            QPixmap pixmap(12, 12);
            pixmap.fill(colors[i]);
            icon.addPixmap(pixmap, modes[i]);
        }
        CBPPushBtn button(QString(), nullptr, false, false);
        button.resize(100, 28);
        button.setIconSize(QSize(12, 12));
        button.setIcon(icon);
        for (int i = 0; i < 4; ++i) {
            button.setEnabled(i != 3);
            button.setState(i);
            QCOMPARE(pixel(button, 50, 14), colors[i]);
        }
    }

    // Numbers that no widget has end in a button, not in an overflow.
    void extremeNumbers()
    {
        for (const int number : {INT_MAX, INT_MIN}) {
            CBPPushBtn button(QStringLiteral("x"), nullptr, true, true);
            button.setIconSize(QSize(12, 12));
            button.setIcon(plainIcon(QSize(12, 12), Qt::red));
            button.setSpacing(number);
            button.SetIconVoffSet(number);
            button.SetMininzerWidth(number);
            button.setHasMenu(true);
            button.setMaximumWidth(100);
            button.resize(100, 28);
            button.setRoundRadius({number, number});
            QVERIFY(!button.grab().isNull());
            button.setRemoveMargin(QMargins(number, number, number, number));
            QVERIFY(!button.grab().isNull());
        }
    }

    void disabled()
    {
        CBPPushBtn button(QStringLiteral("OK"), nullptr, false, false);
        show(button);
        QSignalSpy clicks(&button, &CBPPushBtn::sigBtnClicked);
        sendEvent(button, QEvent::Enter);
        button.setDisabled(true);
        QCOMPARE(button.state(), 3);
        button.setSelected(true);
        QCOMPARE(fillOf(button), kNormal);
        QCOMPARE(pixel(button, 0, 14), QColor(0xbb, 0xbb, 0xbb));
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::keyClick(&button, Qt::Key_Space);
        QVERIFY(clicks.isEmpty());
        sendEvent(button, QEvent::Enter);
        QCOMPARE(button.state(), 3);
        button.setEnabled(true);
        QCOMPARE(button.state(), 0);
        QCOMPARE(fillOf(button), kPressed); // selected
        static_cast<QWidget &>(button).setEnabled(false);
        QCOMPARE(button.state(), 3);
    }

    void focusRing()
    {
        CBPPushBtn button(QStringLiteral("OK"), nullptr, false, false);
        button.resize(120, 28);
        button.CBtnObj::setFocus(true);
        QCOMPARE(pixel(button, 1, 14), kRing);
        button.setFocusFrameColor(Qt::red);
        QCOMPARE(pixel(button, 60, 1), QColor(Qt::red));
        button.setSelected(true);
        QVERIFY(pixel(button, 1, 14) != QColor(Qt::red));
        button.setSelected(false);
        button.setFrmTrancent(true);
        QCOMPARE(pixel(button, 0, 14), kNormal); // edge to edge
    }

    void removedMarginsAndCorners()
    {
        QWidget ground;
        ground.setStyleSheet(QStringLiteral("background: #ff00ff"));
        ground.resize(120, 28);
        auto *button = new CBPPushBtn(&ground);
        button->setStyleSheet(QString());
        button->resize(120, 28);
        button->setRemoveMargin(QMargins(10, 4, 20, 6));
        QCOMPARE(pixel(ground, 9, 14), QColor(255, 0, 255));
        QCOMPARE(pixel(ground, 10, 14), QColor(0x3c, 0x43, 0x4b));
        QCOMPARE(pixel(ground, 99, 14), QColor(0x3c, 0x43, 0x4b));
        QCOMPARE(pixel(ground, 60, 22), QColor(255, 0, 255));
        button->setRemoveMargin(QMargins());
        button->setRoundRadius({8, 8});
        QCOMPARE(pixel(ground, 0, 0), QColor(255, 0, 255));
        button->setFrmTrancent(true); // a round body keeps its frame
        QCOMPARE(pixel(ground, 60, 0), QColor(0x3c, 0x43, 0x4b));
        button->setCheckable(true);
        button->setChecked(true);
        button->setCheckedBgColor(QColor(200, 0, 0));
        QCOMPARE(pixel(ground, 0, 0), QColor(200, 0, 0)); // and the checked look has square corners
        button->setChecked(false);
        button->setFrmTrancent(false);
        button->setRoundRadius({20, 2});
        QCOMPARE(pixel(ground, 0, 13),
                 QColor(0x3c, 0x43, 0x4b)); // flat corners: straight from the second pixel on
        QCOMPARE(pixel(ground, 0, 5), QColor(0x3c, 0x43, 0x4b));
        button->setRoundRadius({});
        QCOMPARE(pixel(ground, 0, 0), QColor(0x3c, 0x43, 0x4b));
    }

    void checkedLook()
    {
        CBPPushBtn button(QString(), nullptr, false, false);
        button.resize(100, 28);
        button.setCheckable(true);
        button.setChecked(true);
        QCOMPARE(fillOf(button), kNormal); // no checked colours yet
        button.setCheckedBgColor(QColor(200, 0, 0));
        button.setCheckedFrmColor(QColor(0, 0, 200));
        QCOMPARE(fillOf(button), QColor(200, 0, 0));
        QCOMPARE(pixel(button, 0, 14), QColor(0, 0, 200));
        button.setEnabled(false);
        const QColor half = fillOf(button);
        QVERIFY(qAbs(half.green() - 127) < 4 && half.red() > 200);
        button.setChecked(false);
        QCOMPARE(fillOf(button), kNormal);
    }

    void colorListsOfAnyLength_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("used");
        for (const int count : {0, 1, 3, 4, 5, 9})
            QTest::addRow("%d", count) << count << (count == 4);
    }

    void colorListsOfAnyLength()
    {
        QFETCH(int, count);
        QFETCH(bool, used);
        CBPPushBtn button(QStringLiteral("OK"), nullptr, false, false);
        button.resize(100, 28);
        const QVector<QColor> colors(count, QColor(1, 2, 3));
        for (int i = 0; i < (used ? 0 : 5); ++i)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("colours for 4 states")));
        button.setBgColor(colors);
        button.setFrmColor(colors);
        button.setTextColor(colors);
        button.setFocusColor(colors);
        button.setTriangleColor(colors);
        button.setRoundRadius(QVector<int>(count));
        button.CBtnObj::setBgTrancent(false);
        for (int state = 0; state < 4; ++state) {
            button.setState(state);
            QCOMPARE(fillOf(button) == QColor(1, 2, 3), used);
        }
    }

    void iconPlaces_data()
    {
        QTest::addColumn<int>("align");
        QTest::addColumn<bool>("after");
        QTest::addColumn<QString>("text");
        QTest::newRow("left") << 0 << false << "OK";
        QTest::newRow("centre") << 1 << false << "OK";
        QTest::newRow("other") << 5 << false << "OK";
        QTest::newRow("behind") << 1 << true << "OK";
        QTest::newRow("alone") << 0 << false << "";
    }

    void iconPlaces()
    {
        QFETCH(int, align);
        QFETCH(bool, after);
        QFETCH(QString, text);
        const QColor red(255, 0, 0);
        CBPPushBtn button(text, 0, CBPPushBtn::__ALIGN_TYPE(align), false, after);
        button.resize(200, 28);
        button.setIconSize(QSize(12, 12));
        button.setIcon(plainIcon(QSize(12, 12), red));
        const int textWidth = QFontMetrics(buttonFont()).size(Qt::TextExpandTabs, text).width();
        const int block = 12 + 10 + textWidth;
        int x = align == 0 ? 16 : align == 1 ? (200 - block) / 2 : 0;
        if (after)
            x += textWidth + 10;
        if (text.isEmpty())
            x = (200 - 12) / 2;
        const QRect box = boxOf(button.grab().toImage().convertToFormat(QImage::Format_RGB32), red);
        QCOMPARE(box.size(), QSize(12, 12));
        QCOMPARE(box.y(), 8);
        QVERIFY2(qAbs(box.x() - x) <= 1, qPrintable(QStringLiteral("%1 for %2").arg(box.x()).arg(x)));
        if (after) {
            button.SetIconVoffSet(3);
            QCOMPARE(boxOf(button.grab().toImage(), red).y(), 11);
        }
    }

    void menuButton()
    {
        CBPPushBtn button(QStringLiteral("More"), 5, CBPPushBtn::ALIGN_CENTER, true, false);
        QVERIFY(!button.GetMenu());
        button.setHasMenu(true);
        show(button);
        QSignalSpy clicked(&button, &QPushButton::clicked);
        QSignalSpy reported(&button, &CBPPushBtn::sigBtnClicked);
        QSignalSpy chosen(&button, &CBPPushBtn::sigActionTriggered);
        QTest::mouseClick(&button, Qt::LeftButton); // nothing to open, and no click
        QVERIFY(!button.isDown());

        button.AppendMenuItem(QString(), QStringLiteral("One"), 11);
        button.AppendMenuItem(QStringLiteral("none.png"), QStringLiteral("Two"), 12);
        QVERIFY(button.GetMenu());
        QCOMPARE(button.minimumWidth(), 95);
        QCOMPARE(button.GetMenu()->actions().first()->text(), QStringLiteral("One"));
        // The triangle stands where it does for a button without a text: half of the spacing right of the
        // middle.
        const QImage image = button.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRect arrow = boxOf(image, QColor(127, 134, 143));
        const int left = (95 - 10) / 2 + 10;
        QVERIFY(QRect(left, 12, 8, 4).contains(arrow) && arrow.width() >= 4 && arrow.height() >= 2);

        QPoint where;
        whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
            where = menu->pos();
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(chosen.count(), 1);
        auto *item = chosen.first().first().value<CBPMenuItem *>();
        QVERIFY(item);
        QCOMPARE(item->data().toInt(), 12);
        const auto &system = lumqt::platform::answers();
        QCOMPARE(where,
                 button.mapToGlobal(QPoint(0, 46 - system.frameWidth(&button) -
                                                  system.captionHeight(&button) + button.height() + 1)));
        QVERIFY(!button.isDown());

        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            button.setDefault(true);
            int opened = 0;
            whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
                ++opened;
                QTest::keyClick(menu, Qt::Key_Escape);
            });
            QTest::keyClick(&button, key);
            QCOMPARE(opened, 1);
        }
        QVERIFY(clicked.isEmpty() && reported.isEmpty());
        int opened = 0;
        whileOpen(this, button.GetMenu(), [&](CBPMenu *) { ++opened; });
        button.click(); // as a dialog presses its default button
        QCOMPARE(opened, 1);
        QVERIFY(reported.isEmpty());
        QCOMPARE(chosen.count(), 1);
    }

    void menuLifetimes()
    {
        auto *button = new CBPPushBtn(QStringLiteral("x"), nullptr, false, false);
        button->AppendMenuItem(QString(), QStringLiteral("One"), 1);
        QPointer<CBPMenu> menu = button->GetMenu();
        delete menu; // the application's right
        QVERIFY(!button->GetMenu());
        button->AppendMenuItem(QString(), QStringLiteral("Two"), 2);
        menu = button->GetMenu();
        QVERIFY(menu);
        delete button;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!menu);
    }

    void deletedInItsOwnSignals_data()
    {
        QTest::addColumn<int>("signal");
        for (int i = 0; i < 5; ++i)
            QTest::addRow("%d", i) << i;
    }

    void deletedInItsOwnSignals()
    {
        QFETCH(int, signal);
        QPointer<CBPPushBtn> button = new CBPPushBtn(QStringLiteral("x"), nullptr, false, false);
        const auto die = [&] { delete button.data(); };
        switch (signal) {
        case 0:
            connect(button.data(), &CBPPushBtn::doubleClicked, this, die);
            break;
        case 1:
            connect(button.data(), &QPushButton::pressed, this, die);
            break;
        case 2:
            connect(button.data(), &QPushButton::clicked, this, die);
            break;
        case 3:
            connect(button.data(), &CBPPushBtn::sigBtnClicked, this, die);
            break;
        default: // while the menu is open
            button->AppendMenuItem(QString(), QStringLiteral("One"), 1);
            whileOpen(this, button->GetMenu(), [&](CBPMenu *) { die(); });
        }
        show(*button);
        const auto mouse = [&](QEvent::Type type) {
            if (!button)
                return;
            QMouseEvent event(type, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(button, &event);
        };
        mouse(QEvent::MouseButtonPress);
        mouse(QEvent::MouseButtonRelease);
        mouse(QEvent::MouseButtonDblClick);
        QVERIFY(!button);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void transparency()
    {
        CBPPushBtn button(QStringLiteral("OK"), nullptr, false, false);
        button.setBgTrancent(true);
        QVERIFY(button.testAttribute(Qt::WA_TranslucentBackground));
        QCOMPARE(button.bgColor(0).alpha(), 0);
        button.setBgTrancent(false);
        QVERIFY(!button.testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(!button.testAttribute(Qt::WA_NoSystemBackground));
        QCOMPARE(button.bgColor(0).alpha(), 255);
    }

    void accessibility()
    {
        CBPPushBtn button(QStringLiteral("Save"), 4, CBPPushBtn::ALIGN_CENTER, false, false);
        show(button);
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&button);
        QVERIFY(face);
        QCOMPARE(face->role(), QAccessible::PushButton);
        QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Save"));
        QSignalSpy reported(&button, &CBPPushBtn::sigBtnClicked);
        face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(reported.count(), 1);
    }

private:
    static QFont buttonFont()
    {
        QFont font;
        font.setFamily(QSettings(QStringLiteral("../res/Common/langind.ini"), QSettings::IniFormat)
                           .value(QStringLiteral("English/font_normal"))
                           .toString());
        font.setPixelSize(14);
        return font;
    }

    static void show(QWidget &widget)
    {
        widget.show();
        widget.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
    }
};

LUMQT_TEST_MAIN(TestPushBtn)
#include "tst_pushbtn.moc"
