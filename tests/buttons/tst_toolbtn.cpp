#include "Acts.h"
#include "CBPDropdownBtn.h"
#include "CBPMenuBtn.h"
#include "CBPMenuItem.h"
#include "CBPToolButton.h"
#include "foundation/FontLookup.h"
#include "Pictures.h"
#include "Pixels.h"
#include "platform/Platform.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QScreen>
#include <QSignalSpy>

// Tool buttons, the drop-down button, and the menus of buttons, whatever the class.

namespace {

constexpr int kFrame = 3; // of the system, in these tests
constexpr int kCaption = 11;
const QString kText = QStringLiteral("More");

CBPPushBtn *pushButton()
{
    auto *button = new CBPPushBtn(kText, nullptr, true);
    button->setHasMenu(true);
    return button;
}

const Click kWays[] = {Click::Left, Click::Space, Click::Enter, Click::Tool};

void clickAsDefault(QWidget *button, Click how)
{
    if (auto *push = qobject_cast<QPushButton *>(button))
        push->setDefault(true); // for Enter
    click(button, how);
}

const QVector<QColor> kFour{QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255), QColor(0, 0, 0)};

struct Vetoing : CBPStateWidget
{
    bool onEnter() override { return enters; }
    bool onLeave() override { return leaves; }
    void OnExpose() override { ++exposed; }

    bool enters = true;
    bool leaves = true;
    int exposed = 0;
};

} // namespace

class TestToolBtn : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_image = savePictures(m_folder, "%1.png", QSize(20, 16), {Qt::magenta}).first();
        lumqt::platform::answers().frameWidth = [](const QWidget *) { return kFrame; };
        lumqt::platform::answers().captionHeight = [](const QWidget *) { return kCaption; };
    }

    // What happens, and the colour that is painted then.
    void states()
    {
        Vetoing widget;
        widget.resize(40, 30);
        widget.SetBgColor(kFour);
        Deeds own{{"Disable", [&] { widget.SetEnabled(false); }},
                  {"Enable", [&] { widget.SetEnabled(true); }},
                  {"select", [&] { widget.SetSelected(true); }},
                  {"deselect", [&] { widget.SetSelected(false); }},
                  {"noenter", [&] { widget.enters = false; }},
                  {"noleave", [&] { widget.enters = !(widget.leaves = false); }}};
        for (const int state : {-1, 0, 2, 4})
            own.insert(QString::number(state), [&widget, state] { widget.SetState(ENState(state)); });
        int paints = 0;
        const auto painted = [&] {
            const QString index = indexOf(grabbedAt(widget, 20, 15), kFour);
            return widget.exposed == ++paints ? index : QStringLiteral("not exposed once");
        };
        for (const QString trace :
             {"enter=1 leave=0 enter=1 press=2 release=2 leave=0 right=2 leave=0 focusin=1 focusout=0",
              "2=2 4=2 -1=2 0=0 select=1 press=1 2=1 deselect=0 disable=3 enable=0",
              // Enabled, it is so when the mouse or the focus comes or goes.
              "Disable=3 Enable=3 enter=1 Disable=3 enter=3 focusin=3 select=1 deselect=0 Enable=3",
              "leave=0 noenter=0 enter=0 noleave=0 enter=1 leave=1"})
            QCOMPARE(traced(&widget, trace, painted, own), trace);
    }

    // The colours of a corner, of the edge and of the inside: of the ground, the frame or what fills it.
    void outlines()
    {
        const QVector<QColor> colors{QColor(255, 255, 255), QColor(0, 0, 255), QColor(255, 0, 0)};
        const auto check = [&](double x, double y, bool transparentFrame, bool ground, const char *expected) {
            CBPStateWidget widget;
            widget.resize(40, 30);
            widget.SetBgColor({colors[2]});
            widget.SetFrmColor({colors[1]});
            widget.SetRoundRadius(x, y);
            widget.SetFrmTrancent(transparentFrame);
            widget.SetDrawBg(ground);
            QString seen;
            for (const QPoint &at : {QPoint(0, 0), QPoint(0, 15), QPoint(20, 15)})
                seen += indexOf(pictureOf(widget, 1).pixelColor(at), colors);
            QCOMPARE(seen, QString(expected));
        };
        check(0, 0, false, true, "112");
        check(6, 0, false, true, "112"); // one radius is none
        check(0, 6, true, true, "222");
        check(6, 6, false, true, "012");
        check(6, 6, true, true, "012"); // a round one keeps its frame
        check(0, 0, true, true, "222");
        check(0, 0, false, false, "110");
        check(qQNaN(), 6, false, true, "112");
        check(-6, -6, false, true, "112");
    }

    void widths()
    {
        const QString text = QStringLiteral("Some text");
        const int advance = QFontMetrics(lumqt::uiFont()).size(Qt::TextExpandTabs, text).width();
        const auto check = [this](int align, bool image, const QString &label, int expected) {
            CBPToolButton button(label, 1, ENAlign(align), true);
            if (image)
                button.SetImage(m_image);
            QVERIFY(button.minimumWidth() == expected && button.maximumWidth() == expected);
            QVERIFY(button.maximumHeight() == QWIDGETSIZE_MAX);
            button.AppendMenuItem(QString(), label, 1);
            button.setPixelSize(40); // takes effect at the next setter that sizes
            QTest::ignoreMessage(QtWarningMsg, "CBPToolButton: 0 is no font size");
            button.setPixelSize(0);
            QTest::ignoreMessage(QtWarningMsg, "CBPToolButton: -3 is no font size");
            button.SetTextFont(QString(), -3);
            QCOMPARE(button.minimumWidth(), expected + 10);
        };
        check(0, true, text, 10 + 10 + 20 + 5 + advance);
        check(0, false, QString(), 10 + 10 - 1 + 5); // an empty text is less than nothing
        check(1, true, text, 10 + 10 + advance);
        check(1, true, QString(), 10 + 10 + 20);
        check(1, false, QString(), 10 + 10);
        check(2, true, text, 0);
    }

    // Which setters size the button: a font that has grown since shows it.
    void sizingSetters()
    {
        const auto width = [](const std::function<void(CBPToolButton &)> &set) {
            CBPToolButton button("Some text", 1, ENAlignLeft, true);
            button.AppendMenuItem(QString(), "One", 1);
            button.setPixelSize(40);
            set(button);
            return button.minimumWidth();
        };
        CBPMenu menu;
        QColor color(Qt::red);
        const int before = width([](CBPToolButton &) {});
        const int after = width([](CBPToolButton &b) { b.SetText("Some text"); });
        QVERIFY(after > before + 50);
        QCOMPARE(width([&](CBPToolButton &b) { b.SetTextColor(color); }), after);
        QCOMPARE(width([&](CBPToolButton &b) { b.SetSpacing(9); }), after + 4);
        QCOMPARE(width([&](CBPToolButton &b) { b.SetHorBorder(11, 12); }), after + 3);
        QCOMPARE(width([&](CBPToolButton &b) { b.SetMenu(&menu); }), after);
        QCOMPARE(width([&](CBPToolButton &b) { b.AppendSubMenu(&menu); }), after);
        QCOMPARE(width([&](CBPToolButton &b) { b.SetArrowSize(60, 4); }), before);
        QCOMPARE(width([&](CBPToolButton &b) { b.SetTextFont(QString(), 50); }), before);
        QCOMPARE(width([&](CBPToolButton &b) { b.setAutoResize(true); }), before);
        QCOMPARE(width([&](CBPToolButton &b) { b.SetState(ENStateHover); }), before);
    }

    // Without an image the text is where it is whatever the border, in a colour of its own if it has none.
    void textAlone()
    {
        QSet<int> lefts;
        for (const int border : {0, 30}) {
            CBPToolButton button(kText, 1, ENAlignLeft, false);
            button.SetHorBorder(border, 0);
            button.SetTextColor(QVector<QColor>());
            button.resize(200, 80);
            const QRect ink = boxOf(pictureOf(button, 1), QColor(14, 115, 173));
            QVERIFY(!ink.isEmpty());
            lefts << ink.left();
        }
        QCOMPARE(lefts.size(), 1);
    }

    void lists()
    {
        QVector<QString> four{"a", "b", "c", "d"};
        CBPToolButton button(four, "x", 5, ENAlignLeft, true);
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

    // Each way to click opens the menu, once, and is no click. Menu and button may be deleted.
    void opens()
    {
        const auto check = [this](auto make, const char *signal, QAccessible::Role role) {
            auto *made = make();
            const QScopedPointer<QWidget> owner(made);
            made->show();
            QSignalSpy clicked(made, signal);
            QSignalSpy chosen(made, SIGNAL(sigActionTriggered(CBPMenuItem *)));
            if (!qobject_cast<CBPToolButton *>(made)) { // which is no button with a menu yet
                for (const Click how : kWays)
                    clickAsDefault(made, how); // there is nothing to open
            }
            made->AppendMenuItem(QString(), "One", 11);
            made->AppendMenuItem("none.png", "Two", 12);
            CBPMenu *menu = made->GetMenu();
            QCOMPARE(menu->actions().size(), 2);
            QSignalSpy opened(menu, &QMenu::aboutToShow);
            const bool ownPlace = qobject_cast<CBPDropdownBtn *>(made);
            const QPoint place(0, made->height() + (ownPlace ? 2 : 46 - kFrame - kCaption + 1));
            int times = 0;
            for (const Click how : kWays) {
                whileOpen(this, menu, [&](CBPMenu *open) {
                    QCOMPARE(open->pos(), made->mapToGlobal(place));
                    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
                        QTest::keyClick(open, key);
                });
                clickAsDefault(made, how);
                QVERIFY2(opened.count() == ++times && chosen.count() == times, signal);
                QCOMPARE(chosen.last().first().value<CBPMenuItem *>()->data().toInt(), 12);
                const auto *push = qobject_cast<QPushButton *>(made);
                QVERIFY(!push || !push->isDown());
            }
            QAccessibleInterface *face = QAccessible::queryAccessibleInterface(made);
            QCOMPARE(face->role(), role);
            QCOMPARE(face->state().hasPopup, role == QAccessible::ButtonMenu);
            QCOMPARE(spokenName(made), kText);
            click(made, Click::Right);
            made->setEnabled(false);
            for (const Click how : kWays)
                clickAsDefault(made, how);
            QVERIFY2(opened.count() == times && clicked.isEmpty(), signal);
            for (const Click how : kWays) {
                QPointer button = make();
                button->AppendMenuItem(QString(), "One", 1);
                delete button->GetMenu(); // the application's right
                clickAsDefault(button, how);
                QVERIFY(!button->GetMenu());
                button->AppendMenuItem(QString(), "Two", 2);
                const QPointer<CBPMenu> doomed = button->GetMenu();
                button->show();
                whileOpen(this, doomed, [&](CBPMenu *) { delete button.data(); });
                clickAsDefault(button, how);
                QVERIFY(!button);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY(!doomed);
            }
        };
        check(pushButton, SIGNAL(sigBtnClicked(int)), QAccessible::PushButton);
        check([] { return new CBPMenuBtn(kText); }, SIGNAL(sigBtnClicked(int)), QAccessible::ButtonMenu);
        check([] { return new CBPToolButton(kText, 7, ENAlignLeft, true); }, SIGNAL(sigClick(int)),
              QAccessible::ButtonMenu);
        check([] { return new CBPDropdownBtn(kText, 9); }, SIGNAL(sigBtnClicked(int)),
              QAccessible::ButtonMenu);
    }

    // A tool button takes menus of others, too, and the menu goes with it unless it is "shrinked".
    void toolMenus()
    {
        CBPToolButton button(QString(), 7, ENAlignLeft, true);
        button.setToolTip("Tip");
        CBPMenu sub(kText);
        button.SetMenu(&sub); // it has none to replace
        button.AppendSubMenu(nullptr);
        QVERIFY(!button.GetMenu());
        button.AppendSubMenu(&sub);
        QCOMPARE(button.GetMenu()->actions().size(), 1);
        QCOMPARE(spokenName(&button), QStringLiteral("Tip"));
        for (const bool stays : {false, true}) {
            button.show();
            button.setIsShrinked(stays);
            bool visible = !stays;
            whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
                button.hide();
                visible = menu->isVisible();
            });
            QTest::keyClick(&button, Qt::Key_Down);
            QCOMPARE(visible, stays);
        }
        const QPointer<CBPMenu> own = button.GetMenu();
        CBPMenu given;
        QAction *item = given.AddAction("Three", 3);
        button.SetMenu(&given);
        QCOMPARE(button.GetMenu(), &given);
        QSignalSpy chosen(&button, &CBPToolButton::sigActionTriggered);
        emit given.triggered(item);
        QVERIFY(chosen.isEmpty());
        button.SetMenu(nullptr);
        click(&button, Click::Left);
        QVERIFY(own);
    }

    void splitButton()
    {
        CBPDropdownBtn button("Sort", 9);
        button.AppendSubMenu(nullptr);
        QVERIFY(!button.GetMenu());
        button.AppendMenuItem(QString(), "One", 11);
        button.setSplit(true);
        button.resize(button.sizeHint());
        button.show();
        QSignalSpy shown(button.GetMenu(), &QMenu::aboutToShow);
        SignalLog log(&button);
        const auto mouse = [&](QEvent::Type type, int x) {
            return [=, &button] { sendMouse(button, type, Qt::LeftButton, QPoint(x, 10)); };
        };
        const auto key = [&](Qt::KeyboardModifier with) {
            return [=, &button] {
                QKeyEvent event(QEvent::KeyPress, Qt::Key_F4, with); // closes windows
                QCoreApplication::sendEvent(&button, &event);
                QVERIFY(!event.isAccepted());
            };
        };
        const Deeds own{{"text", mouse(QEvent::MouseButtonPress, 5)},
                        {"textup", mouse(QEvent::MouseButtonRelease, 5)},
                        {"arrow", mouse(QEvent::MouseButtonPress, button.width() - 10)},
                        {"arrowup", mouse(QEvent::MouseButtonRelease, button.width() - 10)},
                        {"f4", [&] { QTest::keyClick(&button, Qt::Key_F4); }},
                        {"altf4", key(Qt::AltModifier)},
                        {"controlf4", key(Qt::ControlModifier)},
                        {"open", [&] { button.OpenMenu(); }}};
        bool expanded = false;
        whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
            expanded = QAccessible::queryAccessibleInterface(&button)->state().expanded;
            menu->hide(); // the press on the button that closes the menu does not open it again
            perform(&button, "arrow arrowup text textup", own);
        });
        const auto look = [&] {
            return QString::number(button.state()) + log.taken() + QString(shown.count(), '+');
        };
        const QString life = "text=2 textup=0sigBtnClicked9 arrow=0+ arrowup=0+";
        QCOMPARE(traced(&button, life, look, own), life);
        QVERIFY(expanded);
        whileOpen(this, button.GetMenu(), [](CBPMenu *) {});
        // Released over the triangle, or without the focus, a press on the text is nothing.
        const QString more =
            "f4=0++ altf4=0++ controlf4=0++ disable=3++ open=3++ enable=0++ text=2++ arrowup=0++ "
            "text=2++ focusout=0++ textup=0++";
        QCOMPARE(traced(&button, more, look, own), more);
        // No layout sees to it that these are shown.
        QVERIFY(repaints(button, [&] { button.setText("Order"); }));
        QVERIFY(repaints(button, [&] { button.setIcon(QIcon(m_image)); }));
        QVERIFY(repaints(button, [&] { button.SetFont(QFont()); }));
        QVERIFY(repaints(button, [&] { button.setSplit(false); }));
        QVERIFY(repaints(button, [&] { button.setFocusFrameColor(Qt::red); }));
    }

    void menuLeavesTheButtonFree()
    {
        CBPDropdownBtn button("Sort", 9);
        button.AppendMenuItem(QString(), "One", 11);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        for (const int y : {screen.center().y(), screen.bottom() - 60}) {
            button.move(screen.left() + 50, y);
            button.show();
            QRect place;
            bool left = true;
            whileOpen(this, button.GetMenu(), [&](CBPMenu *menu) {
                place = menu->geometry();
                button.hide();
                left = menu->isVisible();
            });
            button.OpenMenu();
            QVERIFY(place.isValid() && screen.contains(place));
            const QRect own(button.mapToGlobal(QPoint(0, 0)), button.size());
            QCOMPARE(place.top() == own.bottom() + 3, y == screen.center().y()); // where there is room
            QVERIFY(!place.intersects(own));
            QVERIFY(!left);
        }
    }

private:
    QTemporaryDir m_folder;
    QString m_image;
};

LUMQT_TEST_MAIN(TestToolBtn)
#include "tst_toolbtn.moc"
