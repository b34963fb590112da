#include "Acts.h"
#include "CBPDateSelector.h"
#include "CBPImageButton.h"
#include "CBPTipWnd.h"
#include "foundation/Palette.h"
#include "Pixels.h"
#include "RealInput.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QCalendarWidget>
#include <QDateEdit>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <tuple>

namespace {

const QColor kFrame(215, 215, 215);
const QColor kAccent = lumqt::builtInColor(lumqt::Purpose::Accent);

// A window with a selector on the seventh of March 2024 and something else to go to.
struct Scene
{
    QWidget window;
    QPointer<CBPDateSelector> selector = new CBPDateSelector;
    QPushButton *elsewhere = new QPushButton("Elsewhere");
    QDateEdit *edit = selector->findChild<QDateEdit *>();
    CBPImageButton *button = selector->findChild<CBPImageButton *>();

    Scene()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(selector);
        layout->addWidget(elsewhere);
        QDate date(2024, 3, 7);
        selector->SetDate(date);
        window.setGeometry(300, 100, 400, 120);
        showActive(window);
        edit->setFocus();
    }

    CBPTipWnd *tip() const { return button->findChild<CBPTipWnd *>(); }
    QCalendarWidget *calendar() const { return tip() ? tip()->findChild<QCalendarWidget *>() : nullptr; }
    QTableView *view() const { return calendar()->findChild<QTableView *>(); }
    QToolButton *barButton(const char *name) const
    {
        return calendar()->findChild<QToolButton *>(QString("qt_calendar_%1").arg(name));
    }

    bool open(const QString &how = "Alt+Down")
    {
        if (how == "mouse")
            QTest::mouseClick(button, Qt::LeftButton);
        else if (how == "Space")
            QTest::keyClick(button, Qt::Key_Space);
        else
            QTest::keyClick(edit, Qt::Key_Down, Qt::AltModifier);
        return tip() && becomesActive(*tip()) && awaited([this] { return view()->hasFocus(); });
    }

    // Of the calendar, in the view's coordinates.
    QPoint dayAt(int day) const
    {
        const QAbstractItemModel *days = view()->model();
        for (int row = 1; row < days->rowCount(); ++row) {
            for (int column = 0; column < days->columnCount(); ++column) {
                const QModelIndex index = days->index(row, column);
                if (index.data().toInt() == day && (row > 2 || day < 20)) // not of the month before
                    return view()->visualRect(index).center();
            }
        }
        return QPoint();
    }
};

} // namespace

class TestDateSelector : public QObject
{
    Q_OBJECT

private slots:
    void field()
    {
        Scene scene;
        scene.elsewhere->setFocus();
        const auto frame = [&] { return scene.selector->grab().toImage().pixelColor(0, 0); };
        QCOMPARE(frame(), kFrame);
        scene.selector->setFocus(); // goes to the field, which shows it
        QVERIFY(scene.edit->hasFocus());
        QVERIFY(frame() != kFrame);
        // Tab goes on to the button, and out.
        QTest::keyClick(scene.edit, Qt::Key_Tab);
        for (int part = 1; part < 3 && scene.edit->hasFocus(); ++part) // of the date, in some styles
            QTest::keyClick(scene.edit, Qt::Key_Tab);
        QVERIFY(scene.button->hasFocus());
        QTest::keyClick(scene.button, Qt::Key_Tab);
        QVERIFY(scene.elsewhere->hasFocus());
        QCOMPARE(frame(), kFrame);
        for (QWidget *part : scene.selector->findChildren<QWidget *>())
            QVERIFY(part->focusPolicy() == Qt::NoFocus || !spokenName(part).isEmpty());
        QSignalSpy spy(scene.selector.data(), SIGNAL(sigDateEditFinish()));
        QTest::keyClick(scene.edit, Qt::Key_Return);
        QCOMPARE(spy.count(), 1);
        scene.selector->setEnabled(false);
        QTest::keyClick(scene.edit, Qt::Key_Down, Qt::AltModifier);
        QVERIFY(!scene.tip());
    }

    void range()
    {
        const QDate before(2024, 3, 7);
        const QDate first(1980, 1, 1);
        const QDate last(2099, 12, 31);
        const QDate rows[][2] = {{first, first},    {first.addDays(-1), first},
                                 {last, last},      {last.addDays(1), last},
                                 {QDate(), before}, {QDate(2023, 2, 29), before}};
        for (const auto &row : rows) {
            CBPDateSelector selector;
            QDate date = before;
            selector.SetDate(date);
            QSignalSpy spy(&selector, SIGNAL(sigDateEditFinish()));
            date = row[0];
            selector.SetDate(date);
            QCOMPARE(selector.GetDate(), row[1]);
            QCOMPARE(spy.count(), 0);
        }
    }

    // Where there is room for it. Escape closes it, in the days and then in a button of the bar.
    void opens()
    {
        const std::tuple<QString, QPoint, bool> rows[] = {
            {"mouse", {300, 100}, false}, // the window's corner; -1: as far as the screen goes
            {"Space", {300, 100}, true},
            {"Alt+Down", {-1, -1}, false},
            {"Alt+Down", {10, -1}, true}};
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        for (const auto &[how, corner, mirrored] : rows) {
            Scene scene;
            scene.window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            const QRect frame = scene.window.frameGeometry();
            scene.window.move(corner.x() < 0 ? area.right() - frame.width() + 1 : corner.x(),
                              corner.y() < 0 ? area.bottom() - frame.height() + 1 : corner.y());
            if (how == "Space")
                scene.button->setFocus();
            QVERIFY(scene.open(how));
            QWidget *const focus = scene.window.focusWidget();
            QVERIFY(how != "Space" || focus == scene.button);
            QCOMPARE(scene.calendar()->selectedDate(), QDate(2024, 3, 7));
            QCOMPARE(scene.selector->GetDate(), QDate(2024, 3, 7)); // the key did not step it
            const QRect button(scene.button->mapToGlobal(QPoint()), scene.button->size());
            const QRect tip = scene.tip()->geometry();
            QVERIFY(area.contains(tip) && !tip.intersects(button));
            QVERIFY(corner.y() < 0 ? tip.bottom() + 1 == button.top()
                                   : tip.topLeft() == button.bottomLeft() + QPoint(-1, 1));
            // The calendar fills the window but for its frame.
            QCOMPARE(scene.calendar()->geometry(), scene.tip()->rect().adjusted(1, 1, -1, -1));
            QCOMPARE(scene.tip()->layout()->count(), 1);
            QTest::keyClick(scene.view(), Qt::Key_Right);
            QSignalSpy spy(scene.selector.data(), SIGNAL(sigDateEditFinish()));
            QTest::keyClick(scene.view(), Qt::Key_Escape);
            QVERIFY(!scene.tip()->isVisible() && becomesActive(scene.window));
            AWAIT_EQUAL(QApplication::focusWidget(), focus);
            QCOMPARE(scene.selector->GetDate(), QDate(2024, 3, 7));
#ifndef Q_OS_WIN // Wine makes the calendar active once more when it has gone, and the field is left by that
            QCOMPARE(spy.count(), 0);
#endif
            QVERIFY(scene.open(how));
            QTest::keyClick(scene.barButton("nextmonth"), Qt::Key_Escape);
            QVERIFY(!scene.tip()->isVisible() && becomesActive(scene.window));
        }
    }

    void picks()
    {
        for (const QString how : {"click", "Return", "double click"}) {
            Scene scene;
            QVERIFY(scene.open());
            QSignalSpy spy(scene.selector.data(), SIGNAL(sigDateEditFinish()));
            if (how == "click") {
                QTest::mouseClick(scene.view()->viewport(), Qt::LeftButton, {}, scene.dayAt(15));
            } else if (how == "Return") {
                for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return})
                    QTest::keyClick(scene.view(), key);
            } else { // the calendar says both
                emit scene.calendar()->clicked(QDate(2024, 3, 15));
                emit scene.calendar()->activated(QDate(2024, 3, 15));
            }
            QCOMPARE(spy.count(), how == "double click" ? 2 : 1);
            QCOMPARE(scene.selector->GetDate(), QDate(2024, 3, 15));
            QVERIFY(!scene.tip()->isVisible() && becomesActive(scene.window));
            AWAIT(scene.edit->hasFocus());
        }
    }

    // The second click is no click on what lies beneath the calendar.
    void doubleClick()
    {
        if (!RealInput::available())
            QSKIP("no screen of its own");
#ifdef Q_OS_WIN
        QSKIP("Wine makes the calendar active once more when it has gone, where a desktop of its own runs");
#endif
        const auto restore = qScopeGuard(
            [before = QApplication::doubleClickInterval()] { QApplication::setDoubleClickInterval(before); });
        QApplication::setDoubleClickInterval(20000);
        Scene scene;
        scene.selector->setMaximumWidth(200);
        scene.elsewhere->setFixedSize(600, 320);
        QVERIFY(becomesActive(scene.window));
        QVERIFY(scene.open());
        QSignalSpy picks(scene.selector.data(), SIGNAL(sigDateEditFinish()));
        QSignalSpy beneath(scene.elsewhere, SIGNAL(clicked()));
        const QPoint day = scene.view()->viewport()->mapToGlobal(scene.dayAt(15));
        QVERIFY(scene.elsewhere->rect().contains(scene.elsewhere->mapFromGlobal(day)));
        const auto isGone = [&] {
            return !scene.tip()->windowHandle()->isExposed() && scene.window.isActiveWindow();
        };
        RealInput::click(day);
        AWAIT(isGone()); // sooner, and the window manager may lose the second one
        int tries = 0;   // it loses one even so where the machine is busy
        do
            RealInput::click(day);
        while (!awaited([&] { return picks.count() > 1; }, 5000) && ++tries < 4);
        QVERIFY(picks.count() > 1); // or three, where one of them was only late
        AWAIT(isGone() && QApplication::mouseButtons() == Qt::NoButton);
        QCOMPARE(beneath.count(), 0);
        QTest::mouseClick(scene.elsewhere, Qt::LeftButton); // not for ever
        QCOMPARE(beneath.count(), 1);
    }

    // The button changes its side, and the date reads as before. Field and box around it have one colour,
    // whatever the palette; seen beside the button, as some styles paint a field of their own ground.
    void mirrored()
    {
        for (const bool mirrored : {false, true}) {
            CBPDateSelector selector;
            selector.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            QPalette palette = selector.palette();
            palette.setColor(QPalette::Base, QColor(30, 30, 30));
            if (mirrored)
                selector.setPalette(palette);
            auto *edit = selector.findChild<QDateEdit *>();
            edit->setDisplayFormat("yyyy-MM-dd");
            QCOMPARE(edit->text(), QString("2000-01-01"));
            const QImage picture = selector.grab().toImage();
            const QPoint beside(mirrored ? 3 : picture.width() - 4, picture.height() / 2);
            QCOMPARE(picture.pixelColor(beside), selector.palette().color(QPalette::Base));
            QCOMPARE(selector.findChild<CBPImageButton *>()->x() < edit->x(), mirrored);
            edit->setAlignment(Qt::AlignHCenter); // an application's stays
            sendEvent(selector, QEvent::Enter);
            QCOMPARE(edit->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
            selector.setEnabled(false);
            QCOMPARE(grabbedAt(selector, 0, 9), kFrame);
        }
    }

    void openedAgain()
    {
        Scene scene;
        QVERIFY(scene.open());
        const QPointer<QCalendarWidget> calendar = scene.calendar();
        calendar->showNextYear();
        // Who clicks elsewhere has said where the focus goes.
        scene.window.activateWindow();
        scene.elsewhere->setFocus();
        QVERIFY(becomesActive(scene.window));
        AWAIT(!scene.tip()->isVisible() && scene.elsewhere->hasFocus());
        QVERIFY(scene.open()); // the same date, but another month was left open
        QCOMPARE(scene.calendar(), calendar.data());
        QCOMPARE(QDate(calendar->yearShown(), calendar->monthShown(), 1), QDate(2024, 3, 1));
        QTest::keyClick(scene.view(), Qt::Key_Escape);
        QVERIFY(becomesActive(scene.window));
        QDate later(2031, 10, 2);
        scene.selector->SetDate(later);
        QVERIFY(scene.open());
        QCOMPARE(calendar->selectedDate(), later);
        // Fields of large letters have a large calendar.
        const QSize usual = calendar->size();
        QTest::keyClick(scene.view(), Qt::Key_Escape);
        QFont large = scene.edit->font();
        large.setPixelSize(26);
        scene.edit->setFont(large);
        QVERIFY(becomesActive(scene.window));
        QVERIFY(scene.open());
        AWAIT_EQUAL(calendar->size(), usual * 2);
        QCOMPARE(scene.barButton("nextmonth")->height(), 56);
        QCOMPARE(scene.button->findChildren<CBPTipWnd *>().size(), 1);
    }

    // What its pictures do not have: the bar under the mouse, a day without the focus, today, the year.
    void calendarLook()
    {
        Scene scene;
        QVERIFY(scene.open());
        QCalendarWidget *calendar = scene.calendar();
        auto *year = calendar->findChild<QSpinBox *>("qt_calendar_yearedit");
        QVERIFY(!year->findChild<QLineEdit *>("qt_spinbox_lineedit")->isEnabled());
        QVERIFY(year->isEnabled());
        for (const char *name : {"prevmonth", "nextmonth", "monthbutton", "yearbutton"}) {
            QToolButton *button = scene.barButton(name);
            QVector<QColor> tiles{pictureOf(*button, 1).pixelColor(4, 4)};
            sendEvent(*button, QEvent::Enter);
            tiles << pictureOf(*button, 1).pixelColor(4, 4);
            button->setDown(true);
            tiles << pictureOf(*button, 1).pixelColor(4, 4);
            QCOMPARE(tiles, QVector<QColor>({Qt::white, QColor(211, 231, 250), QColor(187, 217, 248)}));
        }
        const QImage months = scene.barButton("monthbutton")->menu()->grab().toImage();
        QCOMPARE(boxOf(months, QColor(0xa3, 0xc8, 0xff)), months.rect());
        QCOMPARE(months.pixelColor(2, 2), QColor(Qt::white));
        for (QWidget *part : calendar->findChildren<QWidget *>())
            QVERIFY(part->focusPolicy() == Qt::NoFocus || !spokenName(part).isEmpty());

        QWidget *days = scene.view()->viewport();
        const auto day = [&](int number) {
            const QModelIndex index = scene.view()->indexAt(scene.dayAt(number));
            return days->grab(scene.view()->visualRect(index)).toImage();
        };
        scene.barButton("nextmonth")->setFocus();
        QCOMPARE(boxOf(day(7), kAccent), QRect(1, 1, 34, 28));
        calendar->setMinimumDate(QDate(2024, 3, 5)); // before it the pointer shows nothing
        for (const int under : {4, 20, 21}) {
            const QPoint at = scene.dayAt(under);
            QMouseEvent move(QEvent::MouseMove, at, days->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
            QCoreApplication::sendEvent(days, &move);
            for (const int number : {4, 20})
                QCOMPARE(day(number).pixelColor(8, 6) == QColor(220, 236, 252), under == 20 && number == 20);
        }
        const QDate today = QDate::currentDate();
        calendar->setSelectedDate(today.addDays(today.day() == 1 ? 1 : -1));
        QVERIFY(boxOf(day(today.day()), kAccent) == QRect(1, 1, 34, 28) || today != QDate::currentDate());
        calendar->setSelectedDate(QDate(2024, 3, 7));

        // Stepping the year is given up first, then the calendar closes.
        QTest::mouseClick(scene.barButton("yearbutton"), Qt::LeftButton);
        AWAIT(year->hasFocus());
        QCOMPARE(year->sizeHint().width(), year->fontMetrics().horizontalAdvance("2099 ") + 28);
        const QRect inner = year->rect().adjusted(2, 2, -2, -2); // the ring lies around it
        QCOMPARE(year->findChild<QLineEdit *>()->geometry(), inner.adjusted(0, 0, -14, 0));
        const QImage steps = pictureOf(*year, 1).copy(inner.right() - 13, inner.top() + 2, 12, 20);
        QCOMPARE(inkOf(steps.copy(0, 0, 12, 10)), QRect(4, 3, 6, 3));
        QCOMPARE(inkOf(steps.copy(0, 10, 12, 10)), QRect(4, 4, 6, 3));
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Escape})
            QTest::keyClick(year, key);
        QVERIFY(!year->isVisible() && scene.tip()->isVisible() && scene.view()->hasFocus());
        QCOMPARE(calendar->yearShown(), 2024);
        QTest::keyClick(scene.view(), Qt::Key_Escape);
        QVERIFY(!scene.tip()->isVisible());
    }

    // By somebody who hears of a pick with the mouse or by Return, or by anybody.
    void deleted()
    {
        for (const bool byMouse : {true, false}) {
            Scene scene;
            QVERIFY(scene.open());
            const QPointer<QCalendarWidget> calendar = scene.calendar();
            const auto kill = [&] { delete scene.selector; };
            connect(scene.selector.data(), &CBPDateSelector::sigDateEditFinish, this, kill);
            if (byMouse)
                QTest::mouseClick(scene.view()->viewport(), Qt::LeftButton, {}, scene.dayAt(15));
            else
                QTest::keyClick(scene.view(), Qt::Key_Return);
            QVERIFY(!scene.selector);
            AWAIT(!calendar);
        }
        QDate date(2031, 10, 2);
        for (const int what : {0, 1, 2, 3}) {
            Scene scene;
            QVERIFY(scene.open());
            const QPointer<CBPTipWnd> tip = scene.tip();
            QWidget *parts[] = {scene.selector, scene.button, scene.edit, scene.calendar()};
            delete parts[what];
            QCOMPARE(!tip, what < 2);
            if (what == 0)
                continue;
            scene.selector->SetDate(date);
            QCOMPARE(scene.selector->GetDate(), what == 2 ? QDate() : date);
            if (what == 3) {
                tip->hide();
                QVERIFY(becomesActive(scene.window));
                QVERIFY(scene.open());
                QCOMPARE(scene.calendar()->selectedDate(), date);
            }
        }
    }

    // With the menu of the months open, in whose loop it happens. A press alone: QTest's click would go on to
    // send the release to a button that is no more.
    void deletedWithTheMonths()
    {
        Scene scene;
        QVERIFY(scene.open());
        QToolButton *months = scene.barButton("monthbutton");
        const QPointer<QMenu> menu = months->menu();
        const auto kill = [selector = scene.selector] { delete selector; };
        connect(menu, &QMenu::aboutToShow, qApp, [=] { QTimer::singleShot(0, qApp, kill); });
        QTest::mousePress(months, Qt::LeftButton); // until it is deleted
        QVERIFY(!scene.selector && !menu);
        QSignalSpy clicks(scene.elsewhere, SIGNAL(clicked()));
        QTest::mouseClick(scene.window.windowHandle(), Qt::LeftButton, {},
                          scene.elsewhere->geometry().center());
        QCOMPARE(clicks.count(), 1);
    }
};

LUMQT_TEST_MAIN(TestDateSelector)
#include "tst_dateselector.moc"
