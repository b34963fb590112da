#include "CMsgBox.h"

#include "MsgBoxProbe.h"
#include "Rows.h"
#include "TestMain.h"
#include "Util.h"

#include <QAccessible>
#include <QClipboard>
#include <QDesktopServices>
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

} // namespace

class TestMsgBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // ------------------------------------------------------------------------------------------------------
    // content

    void types_data()
    {
        columns<int, QString, QString, QString>("type", "title", "icon", "head");
        row("information", 0, "{caption}Message", "icon_info.png", "");
        row("question", 1, "{caption}Question", "icon_quest.png", "Head %1");
        row("warning", 2, "{caption}Warning", "icon_alert.png", "<b>Head</i> <font"); // broken markup
        row("error", 3, "{caption}Error", "icon_wrong.png", "Head");
        row("above", 4, "", "icon_info.png", "Head");
        row("below", -1, "", "icon_info.png", "Head");
    }
    void types()
    {
        QFETCH(int, type);
        QFETCH(QString, title);
        QFETCH(QString, icon);
        QFETCH(QString, head);
        const auto comparable = [](const QImage &image) {
            return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        };
        const QImage picture = comparable(QImage(Util::getResFullPath("../res/" + icon)));
        QVERIFY(!picture.isNull());
        for (const QString &caption : {QString(), QString("Own")}) {
            MsgBox box;
            box.whileRunning([&] {
                QCOMPARE(box.windowTitle(), caption.isEmpty() ? title : caption);
                const auto labels = box.findChildren<QLabel *>();
                QVERIFY(std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
                    const QImage shown = label->pixmap(Qt::ReturnByValue).toImage();
                    return label->isVisible() && comparable(shown) == picture;
                }));
                QLabel *heading = box.label("<font color=\"#4baeb3\">" + head + "</font>");
                QVERIFY(heading && heading->isVisible() == !head.isEmpty());
                QVERIFY(box.label("Text" + head)->isVisible());
                box.grab();
            });
            QCOMPARE(box.message(type, "Text" + head, head, kOk, caption), -1);
        }
    }

    void frame()
    {
        MsgBox box;
        QCOMPARE(box.objectName(), QString("id_ErrorMsgWnd"));
        QVERIFY(!box.drawsBottomLine());
        box.whileRunning([&] {
            QVERIFY(box.isModal() && box.size() == QSize(500, 200));
            QVERIFY(box.titleBtn(8)->isVisible() && !box.titleBtn(2)->isVisible());
            QCOMPARE(box.contentBox()->contentsMargins(), QMargins(12, 0, 12, 0));
            QCOMPARE(box.statusBox()->contentsMargins(), QMargins(12, 0, 12, 16));
            QVERIFY(box.label("Text")->wordWrap() && !box.findChild<CBPLinkerButton *>()->isVisible());
            QCOMPARE(box.label("Text")->palette().color(QPalette::WindowText), QColor(51, 51, 51));
        });
        box.message(0, "Text", "", kOk);
    }

    // ------------------------------------------------------------------------------------------------------
    // answers

    void answers_data()
    {
        columns<int, int, bool, int>("buttons", "pressed", "checked", "result");
        row("OK", kOk | kCancel, kOk, false, kOk);
        row("No", kYes | kNo, kNo, true, kNo);
        row("close", kYes, 8, false, kCancel);
        row("close, checked", kYes, 8, true, kCancel);
        row("no button", kYes, 0, true, -1);
        row("bits without one", 0x601 | 1 << 30, 0, false, -1);
    }
    void answers()
    {
        QFETCH(int, buttons);
        QFETCH(int, pressed); // 0: UnRun(), 8: the title bar
        QFETCH(bool, checked);
        QFETCH(int, result);
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
            if (withCheckBox) // of -1 no bit is missing
                QCOMPARE(box.messageWithCheckbox(2, "Text", "Check", "", buttons),
                         result | (checked ? kChecked : kUnchecked));
            else
                QCOMPARE(box.message(2, "Text", "", buttons), result);
            QCOMPARE(box.GetUser() + box.GetPassword(), QString());
        }
    }

    void destroyed()
    {
        QPointer<MsgBox> box;
        const std::function<int()> calls[] = {
            [&] { return box->message(0, "Text", "Head", kOk); },
            [&] { return box->messageWithCheckbox(0, "Text", "Check", "Head", kOk); },
            [&] { return box->messageWithLink(0, "Text", "Link", "", "Head", kOk); },
            [&] { return box->showCreateDirBox(0, "Text", kOk); },
            [&] { return box->showUserAndPasswordBox(0, "Text", 7, 9, kOk); },
        };
        for (const auto &call : calls) {
            for (const QString what : {"box", "parent", "by the link"}) {
                QPointer<QWidget> parent(new QWidget);
                parent->show();
                box = new MsgBox(parent);
                connect(box, &CMsgBox::sigLinkClicked, [&] { destroy(box); });
                later(box, [&] {
                    auto *link = box->findChild<CBPLinkerButton *>();
                    if (what == "by the link" && link)
                        emit link->sigLinkerClick(0);
                    else
                        destroy(what == "parent" ? parent.data() : box.data());
                });
                QCOMPARE(call(), -1);
                QVERIFY2(!box, qPrintable(what));
                delete parent;
            }
        }
    }

    // A misuse, which adds to what there is.
    void twice()
    {
        MsgBox box;
        box.whileRunning([&] { QTest::mouseClick(box.GetBtn(kOk), Qt::LeftButton); });
        QCOMPARE(box.message(0, "First", "", kOk), kOk);
        box.whileRunning([&] {
            QVERIFY(box.label("First")->isVisible() && box.label("Second")->isVisible());
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
        columns<QString, QString>("target", "opened");
        row("of a scheme", "lumqt-test:any thing", "lumqt-test:any%20thing");
        row("another", "LUMQT-test://host/%41?q=1#f", "lumqt-test://host/A?q=1#f");
        row("none", "", "");
    }
    void link()
    {
        QFETCH(QString, target);
        QDesktopServices::setUrlHandler("lumqt-test", this, "noteUrl");
        m_opened.clear();
        MsgBox box;
        QSignalSpy clicks(&box, &CMsgBox::sigLinkClicked);
        box.whileRunning([&] {
            auto *link = box.findChild<CBPLinkerButton *>();
            QVERIFY(link->isVisible() && link->y() > box.label("Text")->geometry().bottom());
            QCOMPARE(link->text(), QString("<b>Read & more"));
            QTest::mouseClick(link, Qt::LeftButton);
            QVERIFY(box.isVisible());
        });
        box.messageWithLink(0, "Text", "<b>Read & more", target, "", kOk);
        QTEST(m_opened.join(' '), "opened");
        QVERIFY(clicks.size() == 1 && clicks[0][0].toString() == target);
        QDesktopServices::unsetUrlHandler("lumqt-test");
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

    void spokenAndCopied()
    {
        const QString rule(27, '-');
        MsgBox box;
        box.whileRunning([&] {
            QApplication::clipboard()->clear();
            QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
            QCOMPARE(QApplication::clipboard()->text().remove('\r').split('\n'),
                     QStringList({rule, "Title", rule, "Head", rule, "Bold & text", rule, "Link", rule,
                                  "Yes   No   Cancel", rule, ""}));
            QAccessibleInterface *found = QAccessible::queryAccessibleInterface(&box);
            QVERIFY(found->role() == QAccessible::Dialog && found->text(QAccessible::Name) == "Title");
            QCOMPARE(found->text(QAccessible::Description), QString("Head\nBold & text\nLink"));
            box.label("<b>Bold</b> &amp; text")->setText("Another");
            QTRY_COMPARE(found->text(QAccessible::Description), QString("Head\nAnother\nLink"));
            box.setAccessibleDescription("Better"); // the application's own stays
            box.label("Another")->setText("Text");
            QTest::qWait(0);
            QCOMPARE(found->text(QAccessible::Description), QString("Better"));
        });
        box.messageWithLink(0, "<b>Bold</b> &amp; text", "Link", "", "<i>Head</i>", kCancel | kNo | kYes,
                            "Title");
    }

public Q_SLOTS:
    void noteUrl(const QUrl &url) { m_opened << url.toString(QUrl::FullyEncoded); }

private:
    QStringList m_opened;
};

LUMQT_TEST_MAIN(TestMsgBox)
#include "tst_msgbox.moc"
