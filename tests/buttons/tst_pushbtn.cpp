#include "Acts.h"
#include "CBPPushBtn.h"
#include "Pixels.h"
#include "TestMain.h"

#include <QDialog>
#include <QSignalSpy>
#include <QStyleFactory>

#include <functional>
#include <memory>

namespace {

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
        for (int state = 0; state < 4; ++state)
            QCOMPARE(record.focusColor(state), record.bgColor(state));
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
        button.AppendMenuItem(QString(), "One", 11);
        QCOMPARE(button.minimumWidth(), 170);
    }

    // What befalls the button, its state then, and what it reported. Each report may be the last one.
    // The hint is QPushButton's for the widget's own font, wherever the text has been laid out.
    void hints()
    {
        QFont larger = QApplication::font();
        larger.setPixelSize(21);
        const QString sheet = "QPushButton { padding: 9px; font-weight: bold; }";
        for (const char *style : {"fusion", "windows"}) {
            const std::unique_ptr<QStyle> owned(QStyleFactory::create(style));
            for (const QString &text : {QString("OK"), QString("A && B"), QString("Save all files "),
                                        QString("a\nb"), QString::fromUtf8("\u6587\u5b57")}) {
                QDialog dialog;
                CBPPushBtn button(text, &dialog);
                QPushButton plain(text, &dialog);
                button.setStyle(owned.get());
                plain.setStyle(owned.get());
                const auto verify = [&](const char *what) {
                    const int least = QFontMetrics(button.textFont()).horizontalAdvance(text) + 16;
                    const QSize hint = plain.sizeHint().expandedTo(QSize(text.contains('\n') ? 0 : least, 0));
                    QVERIFY2(button.sizeHint() == hint && button.minimumSizeHint() == hint, what);
                };
                const auto both = [&](const std::function<void(QPushButton *)> &change) {
                    change(&button);
                    change(&plain);
                };
                verify("at first");
                QFont close = button.textFont();
                close.setLetterSpacing(QFont::AbsoluteSpacing, -2);
                button.SetFont(close);
                verify("with letters closer to each other");
                button.resetTextFont();
                both([](QPushButton *each) {
                    each->setStyleSheet("QPushButton:flat { padding: 3px 40px }"
                                        "QPushButton:checked, QPushButton:disabled { padding: 0 90px }");
                });
                verify("with a style sheet for some looks");
                both([&](QPushButton *each) { each->setFlat(true); });
                verify("flat");
                both([&](QPushButton *each) { each->setEnabled(false); });
                verify("disabled");
                both([](QPushButton *each) {
                    each->setEnabled(true);
                    each->setStyleSheet(QString());
                });
                both([&](QPushButton *each) { each->setAutoDefault(false); });
                verify("without room for the default indicator");
                both([&](QPushButton *each) { each->setFont(larger); });
                verify("larger");
                both([&](QPushButton *each) { each->setFont(QApplication::font()); });
                button.SetFont(larger);
                verify("with larger letters in it");
                button.resetTextFont();
                dialog.setStyleSheet(sheet);
                verify("with a style sheet");
                dialog.setStyleSheet(QString());
                verify("without it again");
                QIcon icon(QPixmap(16, 16));
                button.setIcon(icon);
                plain.setIcon(icon);
                verify("with an icon");
            }
        }
    }

    // What a font leaves open is the widget's, also where another button has the same font and means it.
    void openFonts()
    {
        QWidget window;
        QFont font;
        font.setPixelSize(40);
        window.setFont(font);
        font.setPixelSize(17);
        CBPPushBtn button(QStringLiteral("Text"), &window);
        for (int time = 0; time < 2; ++time) {
            button.SetFont(font);
            QCOMPARE(button.textFont().pixelSize(), 17);
            button.SetFont(QFont().resolve(font));
            QCOMPARE(button.textFont().pixelSize(), 40);
        }
    }

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
            const auto look = [&] { return QString::number(it->state()) + log.taken(); };
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
        QVERIFY(button.IsFocus() && button.isDefault());
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

    void iconsFollowTheState()
    {
        const QVector<QColor> colors{Qt::red, Qt::green, Qt::blue, Qt::magenta};
        const QIcon::Mode modes[] = {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled};
        QIcon icon;
        for (int i = 0; i < 4; ++i) {
            QPixmap pixmap(12, 12);
            pixmap.fill(colors[i]);
            icon.addPixmap(pixmap, modes[i]);
        }
        CBPPushBtn button(QString(), nullptr);
        button.setIcon(icon);
        for (int state = 0; state < 4; ++state) {
            button.setEnabled(state != 3);
            button.setState(state);
            QCOMPARE(boxOf(drawn(button), colors[state]).size(), QSize(12, 12));
        }
    }

    void flags()
    {
        CBPPushBtn button("OK", nullptr);
        for (const bool enabled : {false, true}) { // these set the state, too
            button.setDisabled(!enabled);
            QCOMPARE(button.state(), enabled ? 0 : 3);
        }
        for (const bool transparent : {true, false}) {
            button.setBgTrancent(transparent);
            QCOMPARE(button.testAttribute(Qt::WA_TranslucentBackground), transparent);
            QVERIFY(transparent || !button.testAttribute(Qt::WA_NoSystemBackground));
            QCOMPARE(button.bgColor(0).alpha(), transparent ? 0 : 255);
        }
        button.setFrmTrancent(true);
        for (const int radius : {0, 8}) { // a round body keeps its frame
            button.setRoundRadius({radius, radius});
            QCOMPARE(grabbedAt(button, 0, 14) == button.frmColor(0), radius > 0);
        }
    }

    // Taken as they are, and none is painted beyond its end.
    void colorListsOfAnyLength()
    {
        for (const int count : {0, 3, 5}) {
            CBPPushBtn button("OK", nullptr);
            const QVector<QColor> colors(count, QColor(1, 2, 3));
            for (const auto set : {&CBtnObj::setBgColor, &CBtnObj::setFrmColor, &CBtnObj::setTextColor,
                                   &CBtnObj::setFocusColor, &CBtnObj::setTriangleColor}) {
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression("colours for 4 states"));
                (button.*set)(colors);
            }
            button.setRoundRadius(QVector<int>(count));
            button.CBtnObj::setBgTrancent(false);
            button.setDisabled(true);
            QVERIFY(boxOf(pictureOf(button), QColor(1, 2, 3)).isEmpty());
        }
    }
};

LUMQT_TEST_MAIN(TestPushBtn)
#include "tst_pushbtn.moc"
