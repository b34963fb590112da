#include "CMsgBox.h"

#include "MsgBoxProbe.h"
#include "platform/Platform.h"
#include "TestMain.h"
#include "Util.h"

#include <QAccessible>
#include <QClipboard>
#include <QDesktopServices>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTranslator>
#include <QVBoxLayout>

namespace {

constexpr int kChecked = 0x200;
constexpr int kUnchecked = 0x400;

// Translates every text into itself, with a mark.
class Marker : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QLatin1Char('*') + QString::fromUtf8(source);
    }
};

QString longWord(int length)
{
    return QString(length, QLatin1Char('m'));
}

} // namespace

class TestMsgBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { lumqt::platform::answers() = m_answers; }

    // ------------------------------------------------------------------------------------------------------
    // content

    void types_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("icon");
        QTest::newRow("information") << 0 << "{caption}Message"
                                     << "icon_info.png";
        QTest::newRow("question") << 1 << "{caption}Question"
                                  << "icon_quest.png";
        QTest::newRow("warning") << 2 << "{caption}Warning"
                                 << "icon_alert.png";
        QTest::newRow("error") << 3 << "{caption}Error"
                               << "icon_wrong.png";
        QTest::newRow("above") << 4 << ""
                               << "icon_info.png";
        QTest::newRow("below") << -1 << ""
                               << "icon_info.png";
    }
    void types()
    {
        QFETCH(int, type);
        QFETCH(QString, icon);
        const auto comparable = [](const QImage &image) {
            return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        };
        const QImage picture = comparable(QImage(Util::getResFullPath("../res/" + icon)));
        QVERIFY(!picture.isNull());
        for (const QString &caption : {QString(), QString("Own")}) {
            MsgBox box;
            box.whileRunning([&] {
                if (caption.isEmpty())
                    QTEST(box.windowTitle(), "title");
                else
                    QCOMPARE(box.windowTitle(), caption);
                const auto labels = box.findChildren<QLabel *>();
                const bool shows = std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
                    const QImage shown = label->pixmap(Qt::ReturnByValue).toImage();
                    return label->isVisible() && comparable(shown) == picture;
                });
                QVERIFY(shows);
                QVERIFY(box.label("<font color=\"#4baeb3\">Head %1</font>"));
            });
            QCOMPARE(box.message(type, "Text", "Head %1", kOk, caption), -1);
        }
    }

    void frame()
    {
        MsgBox box;
        QCOMPARE(box.objectName(), QString("id_ErrorMsgWnd"));
        QVERIFY(!box.drawsBottomLine());
        box.whileRunning([&] {
            QVERIFY(box.isModal());
            QVERIFY(box.titleBtn(8)->isVisible() && !box.titleBtn(2)->isVisible());
            QCOMPARE(box.size(), QSize(500, 200));
            QCOMPARE(box.contentBox()->contentsMargins(), QMargins(12, 0, 12, 0));
            QCOMPARE(box.statusBox()->contentsMargins(), QMargins(12, 0, 12, 16));
            QVERIFY(box.label("Text")->wordWrap());
            QCOMPARE(box.label("Text")->palette().color(QPalette::WindowText), QColor(51, 51, 51));
            QVERIFY(!box.findChild<CBPLinkerButton *>()->isVisible());
        });
        box.message(0, "Text", "", kOk);
    }

    void heading_data()
    {
        QTest::addColumn<QString>("head");
        QTest::newRow("none") << "";
        QTest::newRow("some") << "Head";
        QTest::newRow("broken markup") << "<b>Head</i> <font";
    }
    // And the same as message, which takes markup, too.
    void heading()
    {
        QFETCH(QString, head);
        MsgBox box;
        box.whileRunning([&] {
            QLabel *label = box.label("<font color=\"#4baeb3\">" + head + "</font>");
            QVERIFY(label);
            QCOMPARE(label->isVisible(), !head.isEmpty());
            QVERIFY(box.label("Text" + head)->isVisible());
            box.grab();
        });
        box.message(1, "Text" + head, head, kOk);
    }

    // ------------------------------------------------------------------------------------------------------
    // answers

    void answers_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("pressed"); // 0: UnRun(), 8: the title bar
        QTest::addColumn<bool>("checked");
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("withCheckBox");
        QTest::newRow("OK") << (kOk | kCancel) << kOk << false << kOk << (kOk | kUnchecked);
        QTest::newRow("No") << (kYes | kNo) << kNo << true << kNo << (kNo | kChecked);
        QTest::newRow("close") << kYes << 8 << false << kCancel << 0x500;
        QTest::newRow("close, checked") << kYes << 8 << true << kCancel << 0x300;
        QTest::newRow("no button") << kYes << 0 << true << -1 << -1;
        QTest::newRow("bits without one") << (0x601 | 1 << 30) << 0 << false << -1 << -1;
    }
    void answers()
    {
        QFETCH(int, buttons);
        QFETCH(int, pressed);
        QFETCH(bool, checked);
        for (const bool withCheckBox : {false, true}) {
            MsgBox box;
            box.whileRunning([&] {
                auto *check = box.findChild<QCheckBox *>();
                QCOMPARE(check != nullptr, withCheckBox);
                if (check) {
                    QVERIFY(box.GetPreBox()->isAncestorOf(check) && !check->isChecked());
                    check->setChecked(checked);
                }
                QCOMPARE(box.findChildren<CBPPushBtn *>().isEmpty(), !(buttons & ~0x40000601));
                if (pressed == 8)
                    QTest::mouseClick(box.titleBtn(8), Qt::LeftButton);
                else if (pressed)
                    QTest::mouseClick(box.GetBtn(pressed), Qt::LeftButton);
            });
            if (withCheckBox)
                QTEST(box.messageWithCheckbox(2, "Text", "&Check", "", buttons), "withCheckBox");
            else
                QTEST(box.message(2, "Text", "", buttons), "result");
            QCOMPARE(box.GetUser() + box.GetPassword(), QString());
        }
    }

    void destroyed_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<int>("call");
        for (const char *what : {"box", "parent", "by the link"}) {
            for (int call = 0; call < 5; ++call)
                QTest::addRow("%s, call %d", what, call) << QString(what) << call;
        }
    }
    void destroyed()
    {
        QFETCH(QString, what);
        QFETCH(int, call);
        auto *parent = new QWidget;
        parent->show();
        QPointer<MsgBox> box(new MsgBox(parent));
        connect(box, &CMsgBox::sigLinkClicked, [&] { destroy(box); });
        later(box, [&] {
            auto *link = box->findChild<CBPLinkerButton *>();
            if (what == "parent")
                destroy(parent);
            else if (what == "by the link" && link)
                emit link->sigLinkerClick(0);
            else
                destroy(box);
        });
        int result = 0;
        if (call == 0)
            result = box->message(0, "Text", "Head", kOk);
        else if (call == 1)
            result = box->messageWithCheckbox(0, "Text", "Check", "Head", kOk);
        else if (call == 2)
            result = box->messageWithLink(0, "Text", "Link", "", "Head", kOk);
        else if (call == 3)
            result = box->showCreateDirBox(0, "Text", kOk);
        else
            result = box->showUserAndPasswordBox(0, "Text", 7, 9, kOk);
        QCOMPARE(result, -1);
        QVERIFY(!box);
        if (what != "parent")
            delete parent;
    }

    // A misuse, which adds to what there is.
    void twice()
    {
        MsgBox box;
        box.press(kOk);
        QCOMPARE(box.message(0, "First", "", kOk), kOk);
        box.whileRunning([&] {
            QVERIFY(box.label("First")->isVisible() && box.label("Second")->isVisible());
            QCOMPARE(box.findChildren<CBPPushBtn *>().size(), 2);
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Recursive call"));
            QCOMPARE(box.message(0, "Third", "", kOk), kOk);                  // at once, as it runs already
            QTest::mouseClick(box.findChild<CBPPushBtn *>(), Qt::LeftButton); // that of the first call
            QVERIFY(box.isVisible());
            QTest::mouseClick(box.GetBtn(kNo), Qt::LeftButton);
        });
        QCOMPARE(box.message(0, "Second", "", kNo), kNo);
    }

    // ------------------------------------------------------------------------------------------------------
    // link

    void link_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("opened");
        QTest::newRow("of a scheme") << "lumqt-test:any thing"
                                     << "lumqt-test:any%20thing";
        QTest::newRow("another") << "LUMQT-other://host/%41?q=1#f"
                                 << "lumqt-other://host/A?q=1#f";
        QTest::newRow("none") << ""
                              << "";
    }
    void link()
    {
        QFETCH(QString, target);
        for (const char *scheme : {"lumqt-test", "lumqt-other"})
            QDesktopServices::setUrlHandler(scheme, this, "noteUrl");
        m_opened.clear();
        MsgBox box;
        QSignalSpy clicks(&box, &CMsgBox::sigLinkClicked);
        box.whileRunning([&] {
            auto *link = box.findChild<CBPLinkerButton *>();
            QVERIFY(link->isVisible());
            QCOMPARE(link->text(), QString("<b>Read & more"));
            QVERIFY(link->y() > box.label("Text")->geometry().bottom());
            QVERIFY(m_opened.isEmpty() && clicks.isEmpty());
            QTest::mouseClick(link, Qt::LeftButton);
            QVERIFY(box.isVisible());
        });
        box.messageWithLink(0, "Text", "<b>Read & more", target, "", kOk);
        QTEST(m_opened.join(' '), "opened");
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(clicks[0][0].toString(), target);
        for (const char *scheme : {"lumqt-test", "lumqt-other"})
            QDesktopServices::unsetUrlHandler(scheme);
    }

    // ------------------------------------------------------------------------------------------------------
    // size

    void longTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("head");
        QTest::addColumn<bool>("scrolls");
        const QString words = QString("word ").repeated(4000);
        QTest::newRow("empty") << ""
                               << "" << false;
        QTest::newRow("lines") << QString("a line of it\n").repeated(12) << "Head" << false;
        QTest::newRow("a long word") << longWord(300) << longWord(200) << false;
        QTest::newRow("20000, words") << words << "Head" << true;
        QTest::newRow("20000, one word") << longWord(20000) << "Head" << true;
        QTest::newRow("20000, rich") << "<b>" + words << "Head" << true;
        QTest::newRow("20000, the heading") << "Text" << longWord(20000) << true;
    }
    void longTexts()
    {
        QFETCH(QString, text);
        QFETCH(QString, head);
        QFETCH(bool, scrolls);
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        MsgBox box;
        box.whileRunning([&] {
            box.grab();
            QCOMPARE(box.width(), 500);
            QVERIFY(box.height() <= 600);
            auto *area = box.findChild<QScrollArea *>();
            QCOMPARE(area != nullptr, scrolls);
            for (QLabel *label :
                 {box.label(text), box.label("<font color=\"#4baeb3\">" + head + "</font>")}) {
                if (label->isHidden() || label->text().isEmpty())
                    continue;
                QVERIFY(label->height() >= label->heightForWidth(label->width()));
                QVERIFY(isWholeIn(label, scrolls ? area->widget() : &box));
            }
            QVERIFY(isWholeIn(box.GetBtn(kOk), &box));
            if (scrolls) {
                QVERIFY(area->verticalScrollBar()->isVisible() && area->verticalScrollBar()->maximum() > 0);
                QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
                QVERIFY(area->focusPolicy() & Qt::TabFocus);
            }
        });
        box.message(0, text, head, kOk);
    }

    void wideTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("width"); // the label's, at least
        QTest::addColumn<bool>("scrolls");
        QTest::newRow("wider than 500") << "<pre>" + QString(60, 'm') + "</pre>" << 400 << false;
        QTest::newRow("wider than the screen") << "<pre>" + QString(4000, 'm') + "</pre>" << 1025 << true;
        QTest::newRow("wide and high")
            << "<pre>" + (QString(200, 'm') + "\n").repeated(99) + "</pre>" << 1025 << true;
        QTest::newRow("a huge picture") << "<img width=3000 height=20> and words" << 3000 << true;
    }
    // At once, or when the text comes later.
    void wideTexts()
    {
        QFETCH(QString, text);
        QFETCH(int, width);
        QFETCH(bool, scrolls);
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        for (const bool later : {false, true}) {
            MsgBox box;
            box.whileRunning([&] {
                if (later) {
                    box.move(100, 50);
                    QTRY_COMPARE(box.pos(), QPoint(100, 50));
                    box.label("Text")->setText(text);
                }
                QLabel *label = box.label(text);
                QTRY_VERIFY(label->width() >= width);
                auto *area = box.findChild<QScrollArea *>();
                QCOMPARE(area != nullptr, scrolls);
                QVERIFY(isWholeIn(label, scrolls ? area->widget() : &box));
                QVERIFY(isWholeIn(box.GetBtn(kOk), &box));
                QVERIFY(box.height() <= 600);
                // A window system that is asked to move and resize at once may answer in any order.
                if (later && QGuiApplication::platformName() == "offscreen")
                    QVERIFY(QRect(0, 0, 1024, 600).contains(box.geometry()));
                QVERIFY(box.width() > 500);
                if (!scrolls)
                    return;
                QCOMPARE(box.width(), 1024);
                QVERIFY(area->horizontalScrollBar()->maximum() > 0);
                QTRY_COMPARE(area->verticalScrollBar()->maximum() > 0, box.height() == 600);
            });
            box.message(0, later ? "Text" : text, "", kOk);
        }
    }

    // What a label shows at the end of a long text is to be seen: the last line is inked.
    void lastLine()
    {
        MsgBox box;
        box.whileRunning([&] {
            QLabel *label = box.label(longWord(200));
            const QImage image = shot(*label);
            const int line = label->fontMetrics().height();
            const QImage last = image.copy(0, image.height() - line, image.width(), line);
            QImage blank = last;
            blank.fill(last.pixel(last.width() - 1, 0));
            QVERIFY(last != blank);
            // And nothing of it ends at the right edge, but for what no line can hold.
            const QImage edge = image.copy(image.width() - 1, 0, 1, image.height());
            QImage empty = edge;
            empty.fill(edge.pixel(0, 0));
            QCOMPARE(edge, empty);
        });
        box.message(0, longWord(200), "", kOk);
    }

    void checkTexts_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("buttons");
        QTest::addColumn<bool>("cut");
        QTest::newRow("none") << 0 << kOk << false;
        QTest::newRow("fits") << 4 << (kOk | kCancel) << false;
        QTest::newRow("lines") << 16 << (kOk | kCancel) << false;
        QTest::newRow("too long") << 4000 << kOk << true;
        QTest::newRow("no room") << 8 << (kOk | kYes | kNo | kCancel | 0x8) << false;
    }
    void checkTexts()
    {
        QFETCH(int, length);
        QFETCH(int, buttons);
        QFETCH(bool, cut);
        const QString text = QString("word ").repeated(length).trimmed();
        MsgBox box;
        box.whileRunning([&] {
            box.grab();
            auto *check = box.findChild<QCheckBox *>();
            QString shown = check->text();
            QCOMPARE(shown.replace('\n', ' ') == text, !cut);
            QCOMPARE(check->toolTip(), cut ? text : QString());
            QCOMPARE(check->accessibleName(), text);
            QVERIFY(check->height() >= check->sizeHint().height());
            QVERIFY(check->width() >= check->sizeHint().width());
            QVERIFY(isWholeIn(check, &box));
            const auto all = box.findChildren<CBPPushBtn *>();
            for (const CBPPushBtn *button : all) {
                QVERIFY(isWholeIn(button, &box));
                QVERIFY(button->mapTo(&box, QPoint(0, 0)).x() >
                        check->mapTo(&box, QPoint(check->width(), 0)).x());
            }
            QVERIFY(box.width() == 500 || all.size() == 5);
        });
        box.messageWithCheckbox(0, "Text", text, "", buttons);
    }

    void longLink()
    {
        MsgBox box;
        box.whileRunning([&] {
            box.grab();
            auto *link = box.findChild<CBPLinkerButton *>();
            QCOMPARE(box.width(), 500);
            QVERIFY(isWholeIn(link, &box));
            QCOMPARE(link->toolTip(), link->text());
        });
        box.messageWithLink(0, "Text", longWord(20000), "", "", kOk);
    }

    void growsLater()
    {
        MsgBox box;
        box.whileRunning([&] {
            const int before = box.height();
            QLabel *label = box.label("Text");
            label->setText(QString("line\n").repeated(10));
            QTRY_VERIFY(box.height() > before);
            QVERIFY(label->height() >= label->heightForWidth(label->width()));
        });
        box.message(0, "Text", "", kOk);
    }

    // Also once it scrolls, and as far as the screen allows.
    void growsScrolling()
    {
        lumqt::platform::answers().workArea = [] { return QRect(0, 0, 1024, 600); };
        MsgBox box;
        const QString wide = "<pre>" + QString(400, 'm');
        box.whileRunning([&] {
            QLabel *label = box.label(wide);
            auto *area = box.findChild<QScrollArea *>();
            for (const auto &[lines, whole] : {std::pair(15, true), std::pair(400, false)}) {
                const int before = box.height();
                label->setText(wide + QString("\nline").repeated(lines));
                QTRY_VERIFY(box.height() > before);
                QTRY_COMPARE(area->verticalScrollBar()->maximum() == 0, whole);
            }
            QCOMPARE(box.height(), 600);
        });
        box.message(0, wide, "", kOk);
    }

    // ------------------------------------------------------------------------------------------------------
    // texts

    void languages()
    {
        Marker marker;
        MsgBox box;
        box.whileRunning([&] {
            QCOMPARE(box.GetBtn(kYes)->text(), QString("Yes"));
            box.ResetBtnText(kNo, "Never");
            QCoreApplication::installTranslator(&marker);
            QTRY_COMPARE(box.windowTitle(), QString("*{caption}Error"));
            QCOMPARE(box.GetBtn(kYes)->text(), QString("*Yes"));
            QCOMPARE(box.GetBtn(kNo)->text(), QString("Never"));
            box.SetWindowTitle("Own"); // which stays
            QCoreApplication::removeTranslator(&marker);
            QTRY_COMPARE(box.GetBtn(kYes)->text(), QString("Yes"));
            QCOMPARE(box.windowTitle(), QString("Own"));
        });
        box.message(3, "Text", "", kYes | kNo);
    }

    void catalogue()
    {
        QTranslator english;
        QVERIFY(english.load(Util::getResFullPath("../res/lumqtlib_en.qm")));
        QCoreApplication::installTranslator(&english);
        QStringList titles;
        for (int type = 0; type < 4; ++type) {
            MsgBox box;
            box.whileRunning([&] { titles << box.windowTitle() << box.GetBtn(kCancel)->text(); });
            box.message(type, "Text", "", kCancel);
        }
        QCoreApplication::removeTranslator(&english);
        QCOMPARE(titles.join(' '), QString("Message Cancel Question Cancel Warning Cancel Error Cancel"));
    }

    void accessible()
    {
        MsgBox box;
        box.whileRunning([&] {
            QAccessibleInterface *found = QAccessible::queryAccessibleInterface(&box);
            QCOMPARE(found->role(), QAccessible::Dialog);
            QCOMPARE(found->text(QAccessible::Name), QString("Title"));
            QCOMPARE(found->text(QAccessible::Description), QString("Head\nBold & text"));
            box.label("<b>Bold</b> &amp; text")->setText("Another");
            QTRY_COMPARE(found->text(QAccessible::Description), QString("Head\nAnother"));
            box.setAccessibleDescription("Better"); // the application's own stays
            box.label("Another")->setText("Text");
            QTest::qWait(0);
            QCOMPARE(found->text(QAccessible::Description), QString("Better"));
        });
        box.message(0, "<b>Bold</b> &amp; text", "Head", kOk, "Title");
    }

    void copying()
    {
        const QString rule(27, '-');
        MsgBox box;
        box.whileRunning([&] {
            QApplication::clipboard()->clear();
            QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QApplication::clipboard()->text().remove('\r').split('\n'),
                     QStringList({rule, "Title", rule, "Head", rule, "Two", "lines", rule, "Link", rule,
                                  "Yes   No   Cancel", rule, ""}));
        });
        box.messageWithLink(0, "Two\nlines", "Link", "", "<i>Head</i>", kCancel | kNo | kYes, "Title");
    }

public Q_SLOTS:
    void noteUrl(const QUrl &url) { m_opened << url.toString(QUrl::FullyEncoded); }

private:
    const lumqt::platform::Answers m_answers = lumqt::platform::answers();
    QStringList m_opened;
};

LUMQT_TEST_MAIN(TestMsgBox)
#include "tst_msgbox.moc"
