#include "FrameProbe.h"

#include "CBPImageButton.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QAccessible>
#include <QVBoxLayout>
#include <QWindow>

class TestWinFrm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    void beforeInit()
    {
        inBoth([](auto &w) {
            QWidget content;
            w.SetWindowTitle("T");
            w.ShowTitleBtn(~0, true); // as do all that hand on to the title bar
            w.AppendContent(&content, true, false, 3);
            w.SetMainBoxBorder(1, 2, 3, 4);
            w.SetStatusBoxBorder(1, 2, 3, 4);
            w.SetBottomHeight(30);
            w.OnMenuClick();
            QVERIFY(!w.titleBtn(8) && !w.titleBar() && !w.contentBox() && !w.statusBox() && !w.layout());
            QVERIFY(!content.parent() && w.template findChildren<QWidget *>().isEmpty());
            w.OnMax();
            w.OnMax();
            w.show();
            closeBySystem(w);
            QVERIFY(!w.isVisible() && w.calls.join(' ') == "max max close");
        });
    }

    void builtUp()
    {
        inBoth([](auto &w) {
            QCOMPARE(w.windowFlags() & ~Qt::WindowFlags(Qt::WindowSystemMenuHint),
                     Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint);
            QVERIFY(w.testAttribute(Qt::WA_TranslucentBackground));
            auto *bottom = new QWidget;
            w.setStatusBox(bottom);
            w.SetMainBoxBorder(5, 6, 7, 8);
            w.Init();
            auto *content = new QWidget;
            w.AppendContent(nullptr, true, true, 9);
            w.AppendContent(&w, true, true, 9);
            w.AppendContent(content, true, true, 9);
            w.SetWindowTitle("Title");
            w.resize(400, 300);
            w.show();
            QVERIFY(w.titleBar()->y() == 10 && bottom->geometry() == QRect(10, 220, 380, 70));
            QVERIFY(bottom->contentsMargins() == QMargins(12, 12, 12, 16) && w.contentBox()->count() == 2);
            QVERIFY(QTest::qWaitForWindowExposed(&w, kPatience));
            QVERIFY(repaints(w, [&] { w.SetBottomHeight(40); }) && bottom->height() == 40);
            QVERIFY(repaints(w, [&] { w.SetDrawBottomHLine(false); }));
            const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&w);
            QVERIFY(spoken->role() == QAccessible::Dialog && spoken->text(QAccessible::Name) == "Title");
            w.SetWindowTitle("a.png", true);
            QCOMPARE(w.windowTitle(), "Title");
            w.SetMainBoxBorder(1, 2, 3, 4);
            w.SetStatusBoxBorder(5, 6, 7, 8);
            w.SetShadowBorder(30); // from the next maximising and restoring on
            QCOMPARE(w.contentBox()->contentsMargins(), QMargins(1, 2, 3, 4));
            QCOMPARE(bottom->contentsMargins(), QMargins(5, 6, 7, 8));
            QCOMPARE(w.layout()->contentsMargins(), QMargins(10, 10, 10, 10));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("was called twice"));
            w.Init();
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("comes too late"));
            w.setStatusBox(content);
            QCOMPARE(w.statusBox(), bottom);
            QCOMPARE(w.template findChildren<CBPWinFrmTitle *>().size(), 1);
            delete w.titleBar();
            w.SetWindowTitle("T");
            w.OnMax();
        });
    }

    void defaults()
    {
        inBoth([](auto &w) {
            w.SetShadowBorder(-5);
            w.Init();
            QCOMPARE(w.layout()->contentsMargins(), QMargins());
            QCOMPARE(w.contentBox()->contentsMargins(), QMargins(12, 16, 12, 12));
            QVERIFY(w.layout()->spacing() == 0 && !w.statusBox());
            QVERIFY(w.bottomHeight() == 70 && w.drawsBottomLine());
            w.SetBottomHeight(0);
            w.SetBottomHeight(50);
            QVERIFY(w.bottomHeight() == 50 && !w.drawsBottomLine()); // once gone, gone
            w.SetDrawBottomHLine(true);
            QVERIFY(w.drawsBottomLine());
        });
    }

    // What is asked of a window about its title bar, the bar does. The window paints nothing itself.
    void titleBar()
    {
        inBoth([](auto &w) {
            w.Init();
            const auto look = [&w] {
                w.layout()->activate();
                return pictureOf(w);
            };
            const QString icon = Util::getResFullPath("../res/title_logo.png");
            w.ShowTitleBtn(8 | 64, true);
            w.titleBar()->InsertWidget(0, new CBPImageButton({icon}, false, 4), 0, Qt::AlignCenter);
            w.ShowTitleBtn(4, true);
            w.resize(500, 200);
            const std::function<void()> changes[] = {
                [&] { w.SetWindowLog(icon); },         [&] { w.SetTitleBg(Qt::red); },
                [&] { w.SetHasNewVersion(true); },     [&] { w.EnabledTitleRoundRc(false); },
                [&] { w.EnableTitleBtn(8, false); },   [&] { w.SetTitleBarEnabled(false); },
                [&] { w.ResetMaxBtn(true); },          [&] { w.SetTitleHeight(90); },
                [&] { w.SetWindowTitle("T", false); }, [&] { w.ShowTitleBtn(8, false); },
                [&] { w.showWindowTitle(false); }};
            QImage before = look();
            for (const auto &change : changes) {
                change();
                const QImage after = look();
                QVERIFY2(after != before, QByteArray::number(int(&change - changes)));
                before = after;
            }
            QVERIFY(w.titleBar()->isHidden() && inkOf(before, 255).isEmpty());
            // It may outlive its window, to which it reports no longer then.
            auto *owner = new std::decay_t<decltype(w)>;
            owner->Init();
            const std::unique_ptr<CBPWinFrmTitle> bar(owner->titleBar());
            bar->setParent(nullptr);
            destroy(owner);
            bar->on_btn_clicekedSlot(2);
        });
    }

    void titleIds_data()
    {
        columns<int, QString>("id", "hook");
        const std::pair<int, const char *> hooks[] = {{2, "min"},        {4, "max"},        {8, "close"},
                                                      {16, "setting"},   {64, "menu"},      {128, "previous"},
                                                      {1024, "contact"}, {2048, "support"}, {4096, "offer"}};
        for (const auto &[id, hook] : hooks)
            row(hook, id, hook);
        for (const int id : {0, -1, 12})
            QTest::addRow("%d", id) << id << QString();
    }
    void titleIds()
    {
        inBoth([](auto &w) {
            QFETCH(int, id);
            QFETCH(QString, hook);
            if (id == 4096 && !std::is_same_v<decltype(w), Dialog &>)
                hook.clear();
            w.Init();
            w.ShowTitleBtn(64, true);
            w.SetTitleHeight(81);
            id == 2 ? showActive(w) : w.show();
            clickTitle(w, id);
            AWAIT_EQUAL(w.isMinimized(), id == 2);
            QCOMPARE(w.calls.join(QLatin1Char(' ')), hook);
            QCOMPARE(w.isVisible(), id != 8);
            if (id == 64) { // its menu belongs below the title bar
                const CBPImageButton *button = w.titleBtn(64);
                const int h = button->height();
                QCOMPARE(w.menuAt, button->mapToGlobal(QPoint(0, 0)) + QPoint(0, h + (81 - h) / 2));
                delete button;
                w.OnMenuClick();
                QCOMPARE(w.calls, QStringList{"menu"});
            }
            const bool survived = survives(w, hook, [id](auto &dying) {
                if (CBPImageButton *button = dying.titleBtn(id))
                    QTest::mouseClick(button, Qt::LeftButton); // the whole way, from the button's own events
                else
                    clickTitle(dying, id);
            });
            QCOMPARE(survived, hook.isEmpty());
        });
    }

    void maximising_data()
    {
        columns<bool, QRect>("isWinPE", "filled");
        row("everywhere", false, QRect(40, 30, 700, 501));
        row("WinPE", true, QRect(45, 35, 690, 491));
    }
    void maximising()
    {
        lumqt::platform::answers().workArea = [] { return QRect(40, 30, 700, 501); };
        inBoth([](auto &w) {
            QFETCH(bool, isWinPE);
            QFETCH(QRect, filled);
            w.Init();
            w.setIsWinPE(isWinPE);
            const QRect restored(120, 110, 300, 200);
            w.setGeometry(restored);
            w.show();
            QVERIFY(QTest::qWaitForWindowExposed(&w, kPatience));
            AWAIT_EQUAL(w.geometry(), restored);
            clickTitle(w, 4);
            QVERIFY(w.isMaximized() && w.minimumSize() == w.maximumSize());
            AWAIT_EQUAL(w.geometry(), filled);
            QCOMPARE(w.layout()->contentsMargins(), QMargins(1, 1, 1, 1));
            QCOMPARE(drawn(*w.titleBar()).pixelColor(0, 0).alpha(), 255); // square corners
            w.SetShadowBorder(14);
            emit w.titleBar()->on_dbl_clickedSignal(false);
            QVERIFY(!w.isMaximized() && w.maximumSize() == QSize(300, 200)); // fixed from now on
            AWAIT_EQUAL(w.geometry(), restored);
            QCOMPARE(w.layout()->contentsMargins(), QMargins(14, 14, 14, 14));
            QVERIFY(drawn(*w.titleBar()).pixelColor(0, 0).alpha() == 0 && w.calls.join(' ') == "max max");
            // At once again, as soon as the window manager reports a place on the way here, if it does.
            for (int turn = 0; turn < 20; turn += 2) { // milliseconds
                w.OnMax();
                QElapsedTimer sinceRestored;
                sinceRestored.start();
                w.OnMax();
                awaited([&w, restored] { return w.geometry() != restored; }, turn);
                if (sinceRestored.elapsed() > 250) // a late report holds after 500, and the machine is slow
                    AWAIT_EQUAL(w.geometry(), restored);
                w.OnMax();
                AWAIT_EQUAL(w.geometry(), filled);
                w.OnMax();
                AWAIT_EQUAL(w.geometry(), restored);
            }
            // A place of its own is kept, even that of a maximised window.
            for (const QPoint &place : {QPoint(150, 140), filled.topLeft()}) {
                w.move(place);
                AWAIT_EQUAL(w.pos(), place);
            }
            w.OnMax();
            AWAIT_EQUAL(w.geometry(), filled);
            w.OnMax();
            AWAIT_EQUAL(w.geometry(), QRect(filled.topLeft(), restored.size()));
        });
    }

    // By the system, and by the hook back again.
    void maximisedBySystem()
    {
        inBoth([](auto &w) {
            w.Init();
            w.setGeometry(120, 110, 300, 200);
            for (const bool byHook : {true, false}) {
                w.showMaximized();
                QVERIFY(w.isMaximized());
                AWAIT(w.width() > 300);
                QCOMPARE(w.layout()->contentsMargins(), QMargins(1, 1, 1, 1));
                byHook ? w.OnMax() : w.showNormal();
                QVERIFY(!w.isMaximized() && w.isVisible());
                AWAIT_EQUAL(w.size(), QSize(300, 200));
                QCOMPARE(w.layout()->contentsMargins(), QMargins(10, 10, 10, 10));
            }
        });
    }

    void visibleAncestor()
    {
        inBoth([](auto &like) {
            using Window = std::decay_t<decltype(like)>;
            QWidget top;
            auto *middle = new QWidget(&top);
            auto *inner = new QWidget(middle);
            QCOMPARE(Window(inner).parentWidget(), inner); // nothing is visible
            top.show();
            QCOMPARE(Window(inner).parentWidget(), inner);
            middle->hide();
            Window w(inner);
            QCOMPARE(w.parentWidget(), &top);
            QVERIFY(w.isWindow() && w.testAttribute(Qt::WA_TranslucentBackground));
        });
    }

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
};

LUMQT_TEST_MAIN(TestWinFrm)
#include "tst_winfrm.moc"
