#include "CBPWaitBtn.h"
#include "CExpandBtn.h"

#include "Acts.h"
#include "CBPEvtLoop.h"
#include "foundation/FontLookup.h"
#include "Later.h"
#include "Pixels.h"
#include "RealInput.h"
#include "Spoken.h"
#include "TestMain.h"
#include "Ticks.h"
#include "Util.h"

#include <QLineEdit>
#include <QSignalSpy>

namespace {

QStringList frames()
{
    QStringList paths;
    for (const char *number : {"00", "01", "02", "03"})
        paths << Util::getResFullPath(QString("../res/loading/loading%1.png").arg(number));
    return paths;
}

// The smallest rectangle around all that is drawn on a white ground.
QRect inked(QWidget &widget, const QRect &part)
{
    return inkOf(widget.grab(part).toImage(), 255).translated(part.topLeft());
}

// A white button without a frame, of red text.
void makePlain(CBPWaitBtn &button, int width)
{
    button.setFixedSize(width, 36);
    button.setBgColor(QVector<QColor>(4, Qt::white));
    button.setTextColor(QVector<QColor>(4, Qt::red));
    button.setFrmTrancent(true);
}

} // namespace

class TestWaitBtn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Whoever hears that the wait begins may end it: there would be nothing left to end it afterwards.
    void endsAsItBegins()
    {
        CBPWaitBtn button(frames(), "Go", "Wait");
        connect(&button, &CBPWaitBtn::waitingChanged, [&](bool waiting) {
            if (waiting)
                button.exit(nullptr, false);
        });
        QCOMPARE(button.run(nullptr, false), 0);
        QVERIFY(!button.isWaitting() && button.isEnabled());
    }

    void buttonWaits()
    {
        QWidget window;
        CBPWaitBtn button(frames(), "Go", "Wait", &window);
        QLineEdit other(&window);
        other.move(0, 40);
        showActive(window);
        CBPEvtLoop given;
        QSignalSpy told(&button, &CBPWaitBtn::waitingChanged);
        for (CBPEvtLoop *loop : {&given, static_cast<CBPEvtLoop *>(nullptr)}) {
            other.setFocus();
            CBPSyncObj &sync = button;
            sync.setText("text of the wait");
            bool looked = false;
            later(&button, [&] {
                looked = true;
                QVERIFY(button.isWaitting() && !button.isEnabled());
                QCOMPARE(button.text(), QString("Go")); // until there is a frame
                QCOMPARE(sync.run(loop, false), 0);     // waits already
                sync.exit(loop, true);
                QVERIFY(!button.isWaitting() && button.isEnabled());
            });
            QCOMPARE(sync.run(loop, true), 0);
            QVERIFY(looked && button.hasFocus());
            QCOMPARE(button.text(), QString("Go"));
            QCOMPARE(sync.text(), QString("text of the wait"));
            QCOMPARE(told, (QList<QList<QVariant>>{{true}, {false}}));
            told.clear();
        }
        // Somebody else's loop: nothing is begun that nobody would end, and the focus stays.
        later(&button, [&] {
            QCOMPARE(button.run(&given, false), 0);
            QVERIFY(button.hasFocus() && button.isEnabled() && !button.isWaitting());
            given.exit(0);
        });
        given.exec();
    }

    void spinner()
    {
        CBPWaitBtn button(frames(), "Go", QString());
        auto *accessible = QAccessible::queryAccessibleInterface(&button);
        QCOMPARE(accessible->role(), QAccessible::PushButton);
        makePlain(button, 100);
        button.show();
        const QRect go = inked(button, button.rect());
        button.Show(true);
        button.Show(true); // one stop is enough all the same
        QVERIFY(button.currentPixmap().isNull() && button.icon().isNull());
        showFirstFrame();
        QCOMPARE(button.text(), QString()); // the waiting text
        QCOMPARE(spokenName(&button), QString("Go"));
        QVERIFY(accessible->state().busy);
        QCOMPARE(button.iconSize(), QSize(20, 20));
        // The button is disabled, the spinner is not.
        const QSize size = button.currentPixmap().size();
        QCOMPARE(button.icon().pixmap(size, QIcon::Disabled).toImage(), button.currentPixmap().toImage());
        button.Show(false);
        QVERIFY(button.isEnabled() && !button.isWaitting() && button.icon().isNull());
        QVERIFY(!accessible->state().busy);
        QCOMPARE(button.text(), QString()); // stays, other than after exit(), but the button says what it is
        QCOMPARE(inked(button, button.rect()), go);
        button.setAccessibleName("Own");
        QCOMPARE(spokenName(&button), QString("Own"));
        button.Show(true);
        button.exit(nullptr, false);
        QCOMPARE(button.text(), QString("Go"));
    }

    void withoutFrames()
    {
        CBPWaitBtn button(QStringList(), "Go", "Wait");
        button.setReslist(QStringList());
        button.show();
        button.Show(true);
        QVERIFY(QMetaObject::invokeMethod(&button, "iconChanged", Q_ARG(int, 0)));
        QVERIFY(button.isWaitting() && !button.isEnabled() && button.icon().isNull());
        QCOMPARE(button.text(), QString("Go"));
        // A text that is there and a spinner that is not whole are both better than nothing.
        const QString missing = Util::getResFullPath("../res/loading/none.png");
        button.setReslist({missing, frames().first(), missing});
        QTimer *timer = spinnerTimer();
        tick(timer, 9);
        QVERIFY(button.icon().isNull());
        tick(timer); // the one in the middle is the first that shows
        QVERIFY(!button.currentPixmap().isNull() && !button.icon().isNull());
        tick(timer);
        QVERIFY(button.currentPixmap().isNull() && !button.icon().isNull());
        QCOMPARE(button.iconSize(), QSize(20, 20));
    }

    // What a wait ends with.
    void texts()
    {
        CBPWaitBtn button({frames().first()}, "Go", "Wait");
        button.show();
        const auto waitOnce = [&button](bool exits) {
            button.Show(true);
            showFirstFrame();
            QCOMPARE(button.text(), QString("Wait"));
            exits ? void(button.exit(nullptr, false)) : button.Show(false);
        };
        button.setText("Set before");
        waitOnce(false);
        QCOMPARE(button.text(), QString("Wait"));
        waitOnce(true); // the text that is left is not the button's own
        QCOMPARE(button.text(), QString("Set before"));
        QString text("Stop"), waiting("Wait");
        button.setWaitingText(text, waiting);
        QCOMPARE(button.text(), text);
        waitOnce(true);
        QCOMPARE(button.text(), text);
    }

    // The pointer that is over the button after the wait is over it for its look, too.
    void hoveredAfterwards()
    {
        QWidget window;
        CBPWaitBtn button(QStringList(), "Go", QString(), &window);
        window.resize(200, 100);
        showActive(window);
        for (const bool over : {true, false}) {
            RealInput::moveTo(over ? button.mapToGlobal(button.rect().center())
                                   : window.mapToGlobal(QPoint(190, 90)));
            AWAIT_EQUAL(button.underMouse(), over);
            button.Show(true);
            button.Show(false);
            QCOMPARE(button.state(), int(over));
            button.Show(true);
            button.exit(nullptr, false);
            QCOMPARE(button.state(), int(over));
            window.setEnabled(false);
            button.Show(false);
            QVERIFY(button.state() != 1);
            window.setEnabled(true);
        }
    }

    // Nobody sees it, so nothing moves; also what nobody has seen yet, such as a page that was never opened.
    void spinnerRests()
    {
        QWidget window;
        QWidget page(&window);
        CBPWaitBtn button(frames(), "Go", "Wait", &page);
        const auto verifyRests = [&button] {
            const qint64 key = button.icon().cacheKey();
            CBPAnimationObj another(frames());
            another.start();
            QCOMPARE(spinnerTimers().size(), 1);
            QCOMPARE(button.icon().cacheKey(), key);
            QVERIFY(button.isWaitting() && !button.isEnabled());
        };
        page.hide();
        window.show();
        button.Show(true);
        verifyRests();
        QCOMPARE(button.text(), QString("Go"));
        page.show();
        showFirstFrame();
        QVERIFY(!button.icon().isNull());
        window.hide();
        verifyRests();
        const qint64 key = button.icon().cacheKey();
        window.show();
        spinnerTimer(); // a start delay would take ten ticks more
        QVERIFY(button.icon().cacheKey() != key);
    }

    // Whatever the text, the whole spinner is seen, and the text on one line beside it.
    void spinnerAndText()
    {
        for (const QString &text : {QString("Wait"), QString("A waiting text too long for this"),
                                    QString(20000, 'w'), QString("Please\nwait")}) {
            CBPWaitBtn button({frames().first()}, "Go", text);
            makePlain(button, 120);
            button.show();
            button.Show(true);
            showFirstFrame();
            for (const bool mirrored : {false, true}) {
                button.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
                button.setTextColor(QVector<QColor>(4, Qt::white));
                const QRect spinner = inked(button, button.rect());
                button.setTextColor(QVector<QColor>(4, Qt::red));
                const QRect both = inked(button, button.rect());
                QVERIFY2(spinner.width() >= 18 && spinner.height() >= 18, wordsOf(spinner));
                QVERIFY2(both.left() >= 4 && both.right() < 120 - 4 && both.height() <= 24, wordsOf(both));
                if (mirrored)
                    QVERIFY(both.left() < spinner.left() - 6 && both.right() == spinner.right());
                else
                    QVERIFY(both.right() > spinner.right() + 6 && both.left() == spinner.left());
            }
        }
    }

    // It is drawn as ever, also by a button that has waited.
    void iconOfTheApplication()
    {
        QPixmap picture(16, 16);
        picture.fill(Qt::blue);
        CBPWaitBtn button({frames().first()}, "Go", "Wait");
        makePlain(button, 120);
        button.setIcon(picture);
        const QImage before = drawn(button);
        button.show();
        button.Show(true);
        showFirstFrame();
        button.exit(nullptr, false);
        button.setIcon(picture);
        button.setIconSize(picture.size());
        QCOMPARE(drawn(button), before);
    }

    // Nobody else would give the button its look back.
    void loopLeftByOthers()
    {
        for (const bool stopped : {false, true}) { // by Show(false), which alone leaves the text
            CBPWaitBtn button(frames(), "Go", QString());
            button.show();
            CBPEvtLoop loop;
            later(&button, [&] {
                showFirstFrame();
                QVERIFY(!button.icon().isNull());
                if (stopped)
                    button.Show(false);
                loop.quit();
            });
            button.run(&loop, false);
            QVERIFY(button.isEnabled() && !button.isWaitting() && button.icon().isNull());
            QCOMPARE(button.text(), QString("Go"));
        }
    }

    void expandButton()
    {
        CExpandBtn button(frames(), "Details", "Loading");
        QSignalSpy changes(&button, &CExpandBtn::sigExpandChanged);
        auto *accessible = QAccessible::queryAccessibleInterface(&button);
        const Deeds deeds{{"expand", [&] { button.setExpand(true); }},
                          {"slot", [&] { button.onExpand(); }},
                          {"unable", [&] { button.setExpandable(false); }},
                          {"able", [&] { button.setExpandable(true); }}};
        const std::tuple<const char *, bool, bool, int> rows[] = {{"", true, false, 0},
                                                                  {"press release", true, true, 1},
                                                                  {"expand", true, true, 1},
                                                                  {"space spaceup", true, false, 2},
                                                                  {"slot", true, true, 3},
                                                                  {"unable", false, false, 4},
                                                                  {"slot expand", false, false, 4},
                                                                  {"able", true, false, 4}};
        for (const auto &[deed, expandable, expanded, told] : rows) {
            perform(&button, deed, deeds);
            QCOMPARE(button.isExpand(), expanded);
            QCOMPARE(changes.size(), told);
            QCOMPARE(bool(accessible->state().expandable), expandable);
            QCOMPARE(bool(accessible->state().expanded), expanded);
            QCOMPARE(bool(accessible->state().collapsed), expandable && !expanded);
        }
        QCOMPARE(spokenName(&button), QString("Details"));
        for (const QString &text : {QString("A rather long caption of a row"), QString(20000, 'w')}) {
            button.setText(text);
            const int wanted = QFontMetrics(lumqt::uiFont()).horizontalAdvance(text) + 2 * (16 + 16);
            QVERIFY(button.sizeHint().width() >= qMin(wanted, QWIDGETSIZE_MAX));
        }
        button.setText("Details");
        for (const bool waits : {true, false}) {
            button.Show(waits);
            QCOMPARE(bool(accessible->state().busy), waits);
        }
        button.exit(nullptr, false);
        QCOMPARE(button.text(), QString("Details"));
    }
};

LUMQT_TEST_MAIN(TestWaitBtn)
#include "tst_waitbtn.moc"
