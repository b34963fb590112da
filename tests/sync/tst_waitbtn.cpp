#include "CBPWaitBtn.h"
#include "CExpandBtn.h"

#include "CBPEvtLoop.h"
#include "foundation/FontLookup.h"
#include "Pixels.h"
#include "TestMain.h"
#include "Util.h"
#include "Waiting.h"

#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>

namespace {

constexpr int kFirstFrame = 880; // ms, the start delay and a tick

QStringList frames()
{
    QStringList paths;
    for (int i = 0; i < 24; ++i)
        paths << Util::getResFullPath(
            QString("../res/loading/loading%1.png").arg(i, 2, 10, QLatin1Char('0')));
    return paths;
}

QString picturePath(int frame)
{
    return frames().at(frame);
}

// The smallest rectangle around all that is drawn on `ground`, in logical pixels.
QRect inked(QWidget &widget, const QRect &part, const QColor &ground)
{
    const QImage image = widget.grab(part).toImage();
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != ground)
                box |= QRect(QPoint(x, y) / image.devicePixelRatio(), QSize(1, 1));
        }
    }
    return box.translated(box.isValid() ? part.topLeft() : QPoint());
}

} // namespace

class TestWaitBtn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttonWaits_data()
    {
        QTest::addColumn<bool>("ownLoop");
        QTest::newRow("the caller's loop") << false;
        QTest::newRow("its own loop") << true;
    }
    void buttonWaits()
    {
        QFETCH(bool, ownLoop);
        QWidget window;
        CBPWaitBtn button(frames(), "Go", "Wait", &window);
        auto *other = new QLineEdit(&window);
        other->move(0, 40);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other->setFocus();
        CBPEvtLoop own;
        CBPEvtLoop *loop = ownLoop ? nullptr : &own;
        CBPSyncObj &sync = button;
        sync.setText("text of the wait");
        QVERIFY(!button.isWaitting() && button.isEnabled());
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
        QVERIFY(looked);
        QVERIFY(button.hasFocus());
        QCOMPARE(button.text(), QString("Go"));
        QCOMPARE(sync.text(), QString("text of the wait"));
    }

    // Somebody else's loop: nothing is begun that nobody would end, and the focus stays.
    void foreignLoop()
    {
        QWidget window;
        CBPWaitBtn button(frames(), "Go", QString(), &window);
        QLineEdit other(&window);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        button.QWidget::setFocus();
        CBPEvtLoop loop;
        later(&button, [&] {
            QCOMPARE(button.run(&loop, false), 0);
            QVERIFY(button.hasFocus() && button.isEnabled() && !button.isWaitting());
            loop.exit(0);
        });
        loop.exec();
    }

    void spinner()
    {
        CBPWaitBtn button(frames(), "Go", QString());
        button.resize(100, 36);
        button.show();
        button.Show(true);
        button.Show(true); // one stop is enough all the same
        QVERIFY(button.currentPixmap().isNull() && button.icon().isNull());
        QElapsedTimer clock;
        clock.start();
        QTRY_VERIFY(!button.icon().isNull());
        QVERIFY(clock.elapsed() >= kFirstFrame / 2);
        QCOMPARE(button.text(), QString()); // the waiting text
        QCOMPARE(button.iconSize(), QSize(20, 20));
        QCOMPARE(button.currentPixmap().size() / button.currentPixmap().devicePixelRatio(), QSize(20, 20));
        // The button is disabled, the spinner is not.
        const qreal ratio = button.currentPixmap().devicePixelRatio();
        QCOMPARE(button.icon().pixmap(QSize(20, 20) * ratio, QIcon::Disabled).toImage(),
                 button.currentPixmap().toImage());
        button.Show(false);
        QVERIFY(button.isEnabled() && !button.isWaitting());
        QVERIFY(!button.icon().isNull()); // it and the text stay, other than after exit()
        QCOMPARE(button.text(), QString());
        button.exit(nullptr, false);
        QVERIFY(button.icon().isNull());
        QCOMPARE(button.text(), QString("Go"));
    }

    void withoutFrames()
    {
        CBPWaitBtn button(QStringList(), "Go", "Wait");
        button.setReslist(QStringList());
        button.show();
        button.Show(true);
        QVERIFY(button.isWaitting() && !button.isEnabled());
        QTest::qWait(kFirstFrame + 200);
        QVERIFY(button.isWaitting() && button.icon().isNull());
        QCOMPARE(button.text(), QString("Go"));
        button.Show(false);
        QVERIFY(button.isEnabled());

        QString text("Stop"), waiting("Stopping");
        button.setWaitingText(text, waiting);
        QCOMPARE(button.text(), text);
        button.resize(160, 36);
        button.setReslist(frames());
        button.Show(true);
        QTRY_COMPARE(button.text(), waiting);
        // The text stands in the middle, as ever, and the spinner beside it.
        button.setTextColor(QVector<QColor>(4, Qt::red));
        button.setBgColor(QVector<QColor>(4, Qt::white));
        const QRect inked = boxOf(button.grab().toImage(), Qt::red);
        QVERIFY(inked.isValid());
        button.setIcon(QIcon());
        QCOMPARE(boxOf(button.grab().toImage(), Qt::red), inked);
        button.exit(nullptr, false);
        QCOMPARE(button.text(), text);
    }

    // Nobody sees it, so nothing moves.
    void spinnerRests()
    {
        QWidget window;
        CBPWaitBtn button(frames(), "Go", QString(), &window);
        window.show();
        button.Show(true);
        QTRY_VERIFY(!button.icon().isNull());
        window.hide();
        const qint64 key = button.icon().cacheKey();
        QTest::qWait(250);
        QCOMPARE(button.icon().cacheKey(), key);
        QVERIFY(button.isWaitting() && !button.isEnabled());
        window.show();
        QElapsedTimer clock;
        clock.start();
        QTRY_VERIFY(button.icon().cacheKey() != key);
        QVERIFY(clock.elapsed() < kFirstFrame); // no new start delay
        window.hide();
        button.exit(nullptr, false);
        button.Show(true); // begun while hidden
        window.show();
        QTRY_VERIFY(!button.icon().isNull());
    }

    // Also what nobody has seen yet, such as a page that was never opened.
    void spinnerOfHiddenButton()
    {
        QWidget window;
        auto *page = new QWidget(&window);
        CBPWaitBtn button(frames(), "Go", "Wait", page);
        page->hide();
        window.show();
        button.Show(true);
        QTest::qWait(kFirstFrame + 300);
        QVERIFY(button.icon().isNull() && button.isWaitting());
        QCOMPARE(button.text(), QString("Go"));
        page->show();
        QTRY_VERIFY(!button.icon().isNull());
    }

    // A text that is there and a spinner that is not whole are both better than nothing.
    void missingFrames()
    {
        const QString missing = Util::getResFullPath("../res/loading/none.png");
        CBPWaitBtn button({missing, missing}, "Go", QString());
        button.show();
        button.Show(true);
        QTest::qWait(kFirstFrame + 300);
        QCOMPARE(button.text(), QString("Go"));
        QVERIFY(button.icon().isNull());

        button.setReslist({missing, picturePath(4), missing});
        QTRY_VERIFY(!button.icon().isNull());
        QTest::qWait(200); // the missing one comes and goes
        QCOMPARE(button.iconSize(), QSize(20, 20));
        QVERIFY(!button.icon().isNull());
    }

    void spinnerAndText_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("text");
        QTest::newRow("room for both") << 200 << "Wait";
        QTest::newRow("just too wide") << 180 << "Loading the details";
        QTest::newRow("far too wide") << 120 << "A waiting text too long for this";
        QTest::newRow("endless") << 120 << QString(20000, 'w');
        QTest::newRow("two lines") << 120 << "Please\nwait";
    }
    // Whatever the text, the whole spinner is seen, and the text on one line beside it.
    void spinnerAndText()
    {
        QFETCH(int, width);
        QFETCH(QString, text);
        CBPWaitBtn button(frames(), "Go", text);
        button.setFixedSize(width, 36);
        button.setBgColor(QVector<QColor>(4, Qt::white));
        button.setTextColor(QVector<QColor>(4, Qt::red));
        button.setFrmTrancent(true);
        button.show();
        button.Show(true);
        QTRY_COMPARE(button.text(), text);
        const QRect drawn = inked(button, button.rect(), Qt::white);
        button.setTextColor(QVector<QColor>(4, Qt::white)); // the spinner alone
        const QRect spinner = inked(button, button.rect(), Qt::white);
        QVERIFY2(spinner.width() >= 18 && spinner.height() >= 18,
                 qPrintable(QString::number(spinner.width())));
        QVERIFY(spinner.left() >= 4);
        QVERIFY(drawn.right() > spinner.right() + 6 && drawn.right() < width - 4);
        QVERIFY(drawn.height() <= 24); // one line
        button.exit(nullptr, false);

        // An icon of the application's stands after the wait where it stood before.
        CBPWaitBtn fresh(QStringList(), "Go", QString());
        fresh.setFixedSize(width, 36);
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::blue);
        QRect places[2];
        for (CBPWaitBtn *shown : {&button, &fresh}) {
            shown->setIcon(pixmap);
            shown->setIconSize(QSize(16, 16));
            places[shown == &fresh] = boxOf(shown->grab().toImage(), Qt::blue);
        }
        QVERIFY(places[0].isValid());
        QCOMPARE(places[0], places[1]);
    }

    void buttonWaitsEnd_data()
    {
        QTest::addColumn<QString>("how");
        for (const char *how : {"deleted", "window deleted", "loop left", "loop left, shown"})
            QTest::newRow(how) << QString(how);
    }
    void buttonWaitsEnd()
    {
        QFETCH(QString, how);
        Watchdog dog;
        auto *window = new QWidget;
        QPointer<CBPWaitBtn> button(new CBPWaitBtn(frames(), "Go", QString(), window));
        window->show();
        auto loop = std::make_shared<CBPEvtLoop>();
        later(button, [&] {
            if (how == "deleted")
                destroy(button);
            else if (how == "window deleted")
                destroy(window);
            else if (how == "loop left")
                loop->quit();
            else { // with the spinner stopped, which alone leaves it and its text
                QTRY_VERIFY(!button->icon().isNull());
                button->Show(false);
                loop->quit();
            }
        });
        button->run(loop.get(), false);
        QVERIFY(!dog.bit());
        QCOMPARE(button.isNull(), how.contains("deleted"));
        if (button) { // nobody else would give it its look back
            QVERIFY(button->isEnabled() && !button->isWaitting());
            QVERIFY(button->icon().isNull());
            QCOMPARE(button->text(), QString("Go"));
        }
        if (how != "window deleted")
            delete window;
    }

    void buttonIsNamed()
    {
        CBPWaitBtn button(frames(), "Go", QString());
        auto *accessible = QAccessible::queryAccessibleInterface(&button);
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), QAccessible::PushButton);
        QVERIFY(!accessible->state().busy);
        button.Show(true);
        button.setText(QString());
        QCOMPARE(accessible->text(QAccessible::Name), QString("Go"));
        QVERIFY(accessible->state().busy);
        button.setAccessibleName("Own");
        QCOMPARE(accessible->text(QAccessible::Name), QString("Own"));
    }

    void expandButton()
    {
        CExpandBtn button(frames(), "Details", "Loading");
        QCOMPARE(button.height(), 44);
        QCOMPARE(button.text(), QString("Details"));
        button.resize(200, 44);
        button.show();
        QSignalSpy changes(&button, &CExpandBtn::sigExpandChanged);
        auto *accessible = QAccessible::queryAccessibleInterface(&button);
        QVERIFY(!button.isExpand() && accessible->state().collapsed && accessible->state().expandable);
        const QRect arrow(200 - 16 - 16, 14, 16, 16);
        const QImage down = button.grab(arrow).toImage();
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(button.isExpand() && accessible->state().expanded && !accessible->state().collapsed);
        QVERIFY(button.grab(arrow).toImage() != down);
        button.setExpand(true);
        QCOMPARE(changes.size(), 1);
        QTest::keyClick(&button, Qt::Key_Space);
        QVERIFY(!button.isExpand());
        QCOMPARE(changes.size(), 2);

        button.setExpand(true);
        button.setExpandable(false);
        QVERIFY(!button.isExpand() && !accessible->state().expandable);
        button.onExpand();
        button.setExpand(true);
        QVERIFY(!button.isExpand());
        QCOMPARE(changes.size(), 4);
        QCOMPARE(accessible->text(QAccessible::Name), QString("Details"));
        button.Show(true);
        QVERIFY(accessible->state().busy);
        button.exit(nullptr, false);
        QCOMPARE(button.text(), QString("Details"));
    }

    void expandLook()
    {
        QWidget window;
        CExpandBtn button(frames(), "Details", "Loading", &window);
        QLineEdit other(&window); // takes the focus at first
        button.resize(200, 44);
        other.move(0, 60);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other.setFocus();
        button.setBgColor(QVector<QColor>(4, Qt::white));
        const QRect arrow(200 - 16 - 16, 14, 16, 16);
        const auto corner = [&] { return button.grab().toImage().pixelColor(0, 0); };
        // Of an arrow that points down the upper end is the wide one.
        const auto downwards = [&] {
            const QRect box = inked(button, arrow, Qt::white);
            const QRect top = inked(button, QRect(arrow.left(), box.top(), 16, 1), Qt::white);
            const QRect bottom = inked(button, QRect(arrow.left(), box.bottom(), 16, 1), Qt::white);
            return top.width() - bottom.width();
        };
        QVERIFY(downwards() > 2);
        button.setExpand(true);
        QVERIFY(downwards() < -2);
        button.setExpand(false);

        QCOMPARE(corner(), QColor(Qt::white)); // no frame
        button.QWidget::setFocus();
        QCOMPARE(corner(), QColor("#4ba7f5"));
        other.setFocus();
        QCOMPARE(corner(), QColor(Qt::white));

        button.Show(true);
        QVERIFY(inked(button, arrow, Qt::white).isEmpty());
        button.Show(false);
        QVERIFY(!inked(button, arrow, Qt::white).isEmpty());
    }

    void expandTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("short") << "Off";
        QTest::newRow("up to the arrow") << "A rather long caption of a row";
        QTest::newRow("endless") << QString(20000, 'w');
    }
    // The text is on one line, and ends before the arrow.
    void expandTexts()
    {
        QFETCH(QString, text);
        CExpandBtn button(frames(), text, QString());
        const int wanted = QFontMetrics(lumqt::uiFont()).horizontalAdvance(text) + 2 * (16 + 16);
        QVERIFY(button.sizeHint().width() >= qMin(wanted, QWIDGETSIZE_MAX));
        QCOMPARE(button.sizeHint().height(), 44);
        button.setFixedWidth(200);
        button.setFocusPolicy(Qt::NoFocus);
        button.setBgColor(QVector<QColor>(4, Qt::white));
        const QRect beside(200 - 16 - 16 - 4, 0, 4, 44);
        QVERIFY(inked(button, beside, Qt::white).isEmpty());
        const QRect drawn = inked(button, QRect(0, 0, beside.left(), 44), Qt::white);
        QVERIFY(drawn.width() > 10 && drawn.height() <= 20);
        QVERIFY(drawn.left() >= 16 + 16);
    }
};

LUMQT_TEST_MAIN(TestWaitBtn)
#include "tst_waitbtn.moc"
