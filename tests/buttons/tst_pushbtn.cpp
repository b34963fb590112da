#include "Acts.h"
#include "CBPPushBtn.h"
#include "foundation/FontLookup.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QDialog>
#include <QSignalSpy>

namespace {

const QColor kNormal(255, 255, 255);
const QColor kHover(0xed, 0xf7, 0xf8);
const QColor kPressed(0xe2, 0xf2, 0xf3);
const QColor kFrame(0x3c, 0x43, 0x4b);
const QVector<QColor> kFrames{kFrame, QColor(0xbc, 0xe0, 0xe2), QColor(0x87, 0xc8, 0xcc),
                              QColor(0xbb, 0xbb, 0xbb)}; // of the states
const QVector<QColor> kFills{kNormal, kHover, kPressed};
const QColor kRing(75, 167, 245);

QColor fillOf(QWidget &button)
{
    return grabbedAt(button, 4, 14);
}

void giveIcon(CBPPushBtn &button, const QSize &size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::red);
    button.setIconSize(size);
    button.setIcon(QIcon(pixmap));
}

} // namespace

class TestPushBtn : public QObject
{
    Q_OBJECT

private slots:
    // What no picture of a button shows, and what is kept of bad numbers.
    void record()
    {
        CBtnObj record;
        for (int state = 0; state < 4; ++state) {
            QCOMPARE(record.focusColor(state), record.bgColor(state));
            QCOMPARE(record.textColor(state), QColor(state == 3 ? "#bbbbbb" : "#666666"));
        }
        QVERIFY(record.frmWidth() == 1 && record.roundRadius(0) == 0 && record.roundRadius(1) == 0);
        QVERIFY(!record.checkedBgColor().isValid() && !record.checkedFrmColor().isValid());
        record.setState(2);
        for (const int bad : {4, -1, 1000})
            record.setState(bad);
        QCOMPARE(record.state(), 2);
        record.setBgTrancent(true);
        QCOMPARE(record.bgColor(1), QColor(0xed, 0xf7, 0xf8, 0));
        QVERIFY(!record.bgColor(9).isValid() && record.roundRadius(9) == 0);
    }

    void sizes()
    {
        // A width of 0 is left to the layout.
        const auto check = [](bool autoResize, int icon, bool menu, int minimum, int width) {
            CBPPushBtn button("A text much longer than the button", nullptr, autoResize, false);
            if (icon)
                giveIcon(button, QSize(icon, icon));
            button.SetMininzerWidth(minimum);
            button.setHasMenu(menu);
            QVERIFY(button.minimumHeight() == 28 && button.maximumHeight() == 28);
            QCOMPARE(button.minimumWidth() == button.maximumWidth(), autoResize);
            if (width)
                QCOMPARE(button.minimumWidth(), width);
        };
        check(false, 16, true, 85, 0);
        check(true, 0, false, 85, 85); // a text never counts
        check(true, 90, false, 85, 120);
        check(true, 90, true, 85, 130);
        check(true, 0, false, 200, 200);
        check(true, 0, false, -50, 20);
        CBPPushBtn button("x", nullptr, true);
        giveIcon(button, QSize(90, 20));
        button.setSpacing(50); // waits for the next setter that sizes
        QCOMPARE(button.minimumWidth(), 120);
        button.setText("y");
        QCOMPARE(button.minimumWidth(), 160);
    }

    // What befalls the button, its state then, and what it reported. Each report may be the last one.
    void reactions()
    {
        const QString down = "=2pressed";
        const QString click = "released,clicked0,sigBtnClicked7";
        const QString call = "=0pressed,released,sigBtnClicked7,clicked0";
        const QString life =
            "enter=1 leave=0 enter=1 press" + down + " leave=0 move=0 release=1" + click + " leave=0 press" +
            down + " out=1sigBtnClicked7 leave=0 right=0 rightup=0 middle=0 press" + down + " release=1" +
            click + " double=2doubleClicked,pressed release=1" + click + " leave=0 space" + down +
            " spaceup=0" + click + " call" + call + " tool" + call +
            " enter=1 disable=3 space=3 spaceup=3 enter=3 leave=3 call=3 enable=0 markdisabled=3 press=3";
        for (const QString last :
             {"", "pressed", "released", "clicked0", "doubleClicked", "sigBtnClicked7"}) {
            QPointer<CBPPushBtn> button = new CBPPushBtn("OK", 7, CBPPushBtn::ALIGN_CENTER, false, false);
            SignalLog log(button, [&](const QString &signal) {
                if (signal == last)
                    delete button;
            });
            CBPPushBtn *const it = button;
            const auto look = [&] {
                it->CBtnObj::setFocus(false); // the ring
                const bool painted =
                    fillOf(*it) == kFills[it->state() % 3] && grabbedAt(*it, 0, 14) == kFrames[it->state()];
                return (painted ? QString::number(it->state()) : QString("not painted")) + log.taken();
            };
            const QString lived = traced(
                it, life, look,
                {{"move", [=] { sendMouse(*it, QEvent::MouseMove, Qt::LeftButton, QPoint(200, 200)); }},
                 {"middle", [=] { QTest::mouseClick(it, Qt::MiddleButton); }},
                 {"markdisabled", [=] { it->setState(3); }}});
            QVERIFY2(button.isNull() != last.isEmpty(), qPrintable(last));
            QVERIFY2(!button || lived == life, qPrintable(lived));
            delete button;
        }
    }

    // Marked as with the focus, and pressed by the dialog.
    void defaultButton()
    {
        QDialog dialog;
        CBPPushBtn button("First", &dialog);
        button.setAsDefaultBtn();
        QVERIFY(button.IsFocus() && button.isDefault() && grabbedAt(button, 0, 14) == kRing);
        showActive(dialog);
        SignalLog log(&button);
        QTest::keyClick(&dialog, Qt::Key_Enter);
        QCOMPARE(log.taken(), QString("pressed,released,sigBtnClicked0,clicked0"));
    }

    // Waits and dialogs that run inside clicked() are the rule in an application.
    void clicksInsideClicks()
    {
        CBPPushBtn button("OK", 6, CBPPushBtn::ALIGN_CENTER, false, false);
        showActive(button);
        int depth = 0;
        connect(&button, &QPushButton::clicked, this, [&] {
            if (depth++ == 0) {
                QTest::mouseClick(&button, Qt::LeftButton);
                QTest::keyClick(&button, Qt::Key_Space);
                button.click();
            }
        });
        QSignalSpy reported(&button, &CBPPushBtn::sigBtnClicked);
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(reported.count(), 4);
        depth = 0;
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(reported.count(), 8);
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(reported.count(), 9);
        connect(&button, &QPushButton::clicked, this, [&] { button.setEnabled(false); });
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(button.state(), 3);
    }

    void textsAndIconsFollowTheState()
    {
        const QVector<QColor> colors{QColor(200, 0, 0), QColor(0, 160, 0), QColor(0, 0, 200),
                                     QColor(160, 0, 160)};
        const QIcon::Mode modes[] = {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled};
        QIcon icon;
        for (int i = 0; i < 4; ++i) {
            QPixmap pixmap(12, 12);
            pixmap.fill(colors[i]);
            icon.addPixmap(pixmap, modes[i]);
        }
        CBPPushBtn pictured(QString(), nullptr);
        pictured.setIconSize(QSize(12, 12));
        pictured.setIcon(icon);
        CBPPushBtn button("MMM", nullptr);
        button.setBgColor(QVector<QColor>(4, Qt::white));
        button.setTextColor(colors);
        QFont font(QApplication::font());
        font.setBold(true);
        for (int state = 0; state < 4; ++state) {
            for (CBPPushBtn *one : {&pictured, &button}) {
                one->resize(160, 28);
                one->setEnabled(state != 3);
                one->setState(state);
            }
            QCOMPARE(grabbedAt(pictured, 80, 14), colors[state]);
            for (const int size : {22, 11}) {
                font.setPixelSize(size);
                button.SetFont(font);
                const QRect ink = boxOf(drawn(button), colors[state]);
                QVERIFY2((ink.height() >= 12) == (size == 22), wordsOf(ink));
                QVERIFY2(qAbs(ink.center().x() - 80) <= 2, wordsOf(ink));
            }
        }
    }

    void flags()
    {
        CBPPushBtn button("OK", nullptr);
        button.resize(120, 28);
        button.CBtnObj::setFocus(true);
        button.setFocusFrameColor(Qt::red);
        // The colours of edge and inside, and the state.
        const QVector<QColor> colors{QColor(255, 0, 0), kNormal,           kHover,
                                     kPressed,          QColor(200, 0, 0), QColor(0, 0, 200),
                                     kFrames[2],        kFrames[3],        QColor(227, 127, 127)};
        const auto look = [&] {
            return indexOf(grabbedAt(button, 1, 14), colors) + indexOf(grabbedAt(button, 0, 14), colors) +
                   indexOf(fillOf(button), colors) + QString::number(button.state());
        };
        const QString life =
            "ring=0010 select=3630 Disable=1713 Enable=3630 press=3632 focusout=3630 "
            "deselect=1?10 frameless=1110 "                               // edge to edge
            "checkable:1=1110 checked:1=1110 ownfill=4440 ownframe=4540 " // no checked colours at first
            "Disable=8?83 checked:0=1113";
        QCOMPARE(traced(&button, life, look,
                        {{"ring", [] {}},
                         {"select", [&] { button.setSelected(true); }},
                         {"deselect", [&] { button.setSelected(false); }},
                         {"Disable", [&] { button.setDisabled(true); }},
                         {"Enable", [&] { button.setEnabled(true); }},
                         {"frameless", [&] { button.setFrmTrancent(true); }},
                         {"ownfill", [&] { button.setCheckedBgColor(colors[4]); }},
                         {"ownframe", [&] { button.setCheckedFrmColor(colors[5]); }}}),
                 life);
        for (const bool transparent : {true, false}) {
            button.setBgTrancent(transparent);
            QCOMPARE(button.testAttribute(Qt::WA_TranslucentBackground), transparent);
            QVERIFY(transparent || !button.testAttribute(Qt::WA_NoSystemBackground));
            QCOMPARE(button.bgColor(0).alpha(), transparent ? 0 : 255);
        }
    }

    // What lies at some points of a button on a ground: 0 the ground, 1 the frame, 2 what fills it, 3 the
    // checked look.
    void removedMarginsAndCorners()
    {
        const QVector<QColor> colors{QColor(255, 0, 255), kFrame, kNormal, QColor(200, 0, 0)};
        QWidget ground;
        ground.setStyleSheet("background: #ff00ff");
        ground.resize(120, 28);
        auto *button = new CBPPushBtn(&ground);
        button->setStyleSheet(QString());
        button->resize(120, 28);
        button->setCheckable(true);
        button->setCheckedBgColor(colors[3]);
        const auto look = [&] {
            QString all;
            for (const QPoint &at : {QPoint(0, 0), {0, 5}, {60, 0}, {9, 14}, {10, 14}, {99, 14}, {60, 22}})
                all += indexOf(grabbedAt(ground, at.x(), at.y()), colors);
            return all;
        };
        const auto corners = [=](int x, int y) { return [=] { button->setRoundRadius({x, y}); }; };
        const QString life = "removed=0000110 whole=1112222 round=0?12222 " // a round body keeps its frame
                             "frameless=0?12222 checked:1=3333333 checked:0=0?12222 framed=0?12222 "
                             "flat=0112222 square=1112222"; // flat: straight from the second pixel on
        QCOMPARE(traced(button, life, look,
                        {{"removed", [=] { button->setRemoveMargin(QMargins(10, 4, 20, 6)); }},
                         {"whole", [=] { button->setRemoveMargin(QMargins()); }},
                         {"round", corners(8, 8)},
                         {"flat", corners(20, 2)},
                         {"square", [=] { button->setRoundRadius({}); }},
                         {"frameless", [=] { button->setFrmTrancent(true); }},
                         {"framed", [=] { button->setFrmTrancent(false); }}}),
                 life);
    }

    void colorListsOfAnyLength()
    {
        for (const int count : {0, 1, 3, 4, 5, 9}) {
            CBPPushBtn button("OK", nullptr);
            button.resize(100, 28);
            const QVector<QColor> colors(count, QColor(1, 2, 3));
            for (const auto set : {&CBtnObj::setBgColor, &CBtnObj::setFrmColor, &CBtnObj::setTextColor,
                                   &CBtnObj::setFocusColor, &CBtnObj::setTriangleColor}) {
                if (count != 4)
                    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("colours for 4 states"));
                (button.*set)(colors);
            }
            button.setRoundRadius(QVector<int>(count));
            button.CBtnObj::setBgTrancent(false);
            QVERIFY2((fillOf(button) == QColor(1, 2, 3)) == (count == 4), QByteArray::number(count));
        }
    }

    void iconPlaces()
    {
        const auto check = [](int align, bool after, const QString &text) {
            CBPPushBtn button(text, 0, CBPPushBtn::__ALIGN_TYPE(align), false, after);
            button.resize(200, 28);
            giveIcon(button, QSize(12, 12));
            const int textWidth = QFontMetrics(lumqt::uiFont()).size(Qt::TextExpandTabs, text).width();
            const int block = 12 + 10 + textWidth;
            int x = align == 0 ? 16 : align == 1 ? (200 - block) / 2 : 0;
            if (after)
                x += textWidth + 10;
            if (text.isEmpty())
                x = (200 - 12) / 2;
            const QRect box = boxOf(drawn(button), Qt::red);
            QVERIFY2(box.size() == QSize(12, 12) && box.y() == 8 && qAbs(box.x() - x) <= 1, wordsOf(box));
            button.SetIconVoffSet(3);
            QCOMPARE(boxOf(drawn(button), Qt::red).y(), after ? 11 : 8);
        };
        check(0, false, "OK");
        check(1, false, "OK");
        check(5, false, "OK");
        check(1, true, "OK");
        check(0, false, "");
    }
};

LUMQT_TEST_MAIN(TestPushBtn)
#include "tst_pushbtn.moc"
