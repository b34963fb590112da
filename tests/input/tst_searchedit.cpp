#include "CBPSearchEdit.h"
#include "TestMain.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCompleter>
#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QPointer>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QStringListModel>
#include <QToolButton>

namespace {

constexpr int kPause = 1500; // ms

// A window with a search field between two other edits.
struct Form
{
    Form()
    {
        layout = new QHBoxLayout(&window);
        before = new QLineEdit;
        edit = new CBPSearchEdit(nullptr);
        after = new QLineEdit;
        for (QWidget *widget :
             {static_cast<QWidget *>(before), static_cast<QWidget *>(edit), static_cast<QWidget *>(after)})
            layout->addWidget(widget);
        close = edit->findChild<QToolButton *>("btnClose");
        search = edit->findChild<QToolButton *>("btnSearch");
        edit->completer()->setModel(new QStringListModel({"alpha", "beta"}, edit->completer()));
    }

    bool show()
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            return false;
        edit->setFocus();
        return edit->hasFocus();
    }

    int suggestions() const
    {
        const QAbstractItemView *popup = edit->completer()->popup();
        return popup->isVisible() ? popup->model()->rowCount() : 0;
    }

    QWidget window;
    QHBoxLayout *layout;
    QLineEdit *before;
    CBPSearchEdit *edit;
    QLineEdit *after;
    QToolButton *close;
    QToolButton *search;
};

// "+text" for a search, "-" for the end of one.
class Searches : public QObject
{
public:
    explicit Searches(CBPSearchEdit *edit)
    {
        connect(edit, &CBPSearchEdit::DoSearch, this,
                [this](bool search, const QString &text) { heard << (search ? "+" : "-") + text; });
    }
    QStringList heard;
};

} // namespace

class TestSearchEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void construction_data()
    {
        QTest::addColumn<bool>("parent");
        QTest::newRow("without a parent") << false;
        QTest::newRow("with one") << true;
    }

    void construction()
    {
        QFETCH(bool, parent);
        QWidget window;
        CBPSearchEdit edit(parent ? &window : nullptr);
        QVERIFY(!edit.parentWidget());
        QCOMPARE(edit.objectName(), QString("edtSearch"));
        QCOMPARE(edit.focusPolicy(), Qt::StrongFocus);
        QVERIFY(!edit.completer()->model() || !edit.completer()->model()->rowCount());
        edit.setText(QString(300, 'x'));
        QCOMPARE(edit.text().size(), 50);
        edit.deselect();
        QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(edit.hasSelectedText(), !parent);
        for (const char *name : {"btnClose", "btnSearch"}) {
            auto *button = edit.findChild<QToolButton *>(name);
            QVERIFY(button && button->autoRaise());
            QCOMPARE(button->cursor().shape(), Qt::ArrowCursor);
            QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        }
        // The sheet's own spelling to the letter and tab: applications replace parts of it.
        const QByteArray sheet = edit.styleSheet().toUtf8();
        QCOMPARE(QCryptographicHash::hash(sheet, QCryptographicHash::Sha1).toHex(),
                 QByteArray("93e90dd092d4bcc27d88b0c44a8c6b994450e09d"));
    }

    void buttonsFollowTheText()
    {
        Form form;
        QVERIFY(form.show());
        QVERIFY(form.search->isVisible() && !form.close->isVisible());
        const QImage magnifier = form.search->grab().toImage();
        // The picture stands in the middle at its own size, whatever the density.
        QRect ink;
        for (int y = 0; y < magnifier.height(); ++y) {
            for (int x = 0; x < magnifier.width(); ++x) {
                if (magnifier.pixelColor(x, y) != magnifier.pixelColor(0, 0))
                    ink |= QRect(x, y, 1, 1);
            }
        }
        const qreal side = ink.width() / magnifier.devicePixelRatio();
        QVERIFY2(side > 12 && side <= 16, qPrintable(QString::number(side)));
        QTest::keyClicks(form.edit, "a");
        QVERIFY(!form.search->isVisible() && form.close->isVisible());
        QVERIFY(form.close->grab().toImage() != magnifier);
        QTest::keyClick(form.edit, Qt::Key_Backspace);
        QVERIFY(form.search->isVisible() && !form.close->isVisible());
    }

    void textKeepsClearOfTheButtons_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("mirrored");
        QTest::newRow("empty") << "" << false;
        QTest::newRow("text before it is shown") << "text" << false;
        QTest::newRow("right to left") << "" << true;
    }

    void textKeepsClearOfTheButtons()
    {
        QFETCH(QString, text);
        QFETCH(bool, mirrored);
        Form form;
        form.edit->setText(text);
        form.window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        form.window.show();
        const QToolButton *button = text.isEmpty() ? form.search : form.close;
        const QMargins margins = form.edit->textMargins();
        const int reserve = mirrored ? margins.left() : margins.right();
        QVERIFY(button->width() > 0);
        QCOMPARE(reserve, button->width()); // both are of one size
        QCOMPARE(margins.left() + margins.right(), reserve);
        QCOMPARE(mirrored ? button->x() : form.edit->width() - button->geometry().right() - 1, 0);
    }

    void onePauseOneSearch()
    {
        CBPSearchEdit edit(nullptr);
        const Searches searches(&edit);
        QTest::keyClicks(&edit, "ab");
        QElapsedTimer clock;
        clock.start();
        QTest::keyClicks(&edit, "c");
        QVERIFY(searches.heard.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!searches.heard.isEmpty(), 4 * kPause);
        const qint64 paused = clock.elapsed();
        QVERIFY2(paused >= kPause - 100 && paused < 2 * kPause, qPrintable(QString::number(paused)));
        CBPSearchEdit other(nullptr);
        const Searches later(&other);
        QTest::keyClicks(&other, "x");
        QTRY_COMPARE_WITH_TIMEOUT(later.heard, QStringList("+x"), 4 * kPause);
        QCOMPARE(searches.heard, QStringList("+abc")); // another pause long
        QTest::keyClick(&edit, Qt::Key_Backspace);
        edit.clear();
        QCOMPARE(searches.heard, QStringList({"+abc", "-"})); // at once
    }

    void returnDoesNotWait()
    {
        CBPSearchEdit edit(nullptr);
        CBPSearchEdit other(nullptr);
        const Searches searches(&edit);
        const Searches later(&other);
        QTest::keyClicks(&edit, "abc");
        QTest::keyClicks(&other, "x");
        QTest::keyClick(&edit, Qt::Key_Return);
        QCOMPARE(searches.heard, QStringList("+abc"));
        QTRY_COMPARE_WITH_TIMEOUT(later.heard, QStringList("+x"), 4 * kPause);
        QCOMPARE(searches.heard, QStringList("+abc")); // the pause that went before is over by now
    }

    void nothingToSearch_data()
    {
        QTest::addColumn<bool>("key");
        QTest::addColumn<QString>("before"); // typed and deleted
        for (const char *before : {"", "al", "zzz"}) {
            QTest::newRow(qPrintable(QString("Return, before it: %1").arg(before))) << true << before;
            QTest::newRow(qPrintable(QString("magnifier, before it: %1").arg(before))) << false << before;
        }
    }

    void nothingToSearch()
    {
        QFETCH(bool, key);
        QFETCH(QString, before);
        Form form;
        QVERIFY(form.show());
        QTest::keyClicks(form.edit, before);
        for (int i = 0; i < before.size(); ++i)
            QTest::keyClick(form.edit, Qt::Key_Backspace);
        form.edit->completer()->popup()->hide();
        if (!key)
            form.after->setFocus();
        const Searches searches(form.edit);
        if (key)
            QTest::keyClick(form.edit, Qt::Key_Return);
        else
            QTest::mouseClick(form.search, Qt::LeftButton);
        QCOMPARE(form.suggestions(), 2);
        QVERIFY(form.edit->hasFocus());
        QCOMPARE(searches.heard, QStringList());
    }

    void clearing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("suggestions for it") << "al";
        QTest::newRow("none") << "zzz";
    }

    void clearing()
    {
        QFETCH(QString, text);
        Form form;
        QVERIFY(form.show());
        QTest::keyClicks(form.edit, text);
        form.edit->completer()->popup()->hide();
        form.after->setFocus();
        const Searches searches(form.edit);
        QTest::mouseClick(form.close, Qt::LeftButton);
        QCOMPARE(searches.heard, QStringList({"-", "-"}));
        QCOMPARE(form.edit->text(), QString());
        QCOMPARE(form.suggestions(), 2);
        QVERIFY(form.edit->hasFocus());
        QVERIFY(form.search->isVisible() && !form.close->isVisible());
    }

    void keyboard()
    {
        Form form;
        form.edit->completer()->setModel(nullptr);
        QVERIFY(form.show());
        Searches searches(form.edit);
        const QImage before = form.search->grab().toImage();
        QTest::keyClick(form.edit, Qt::Key_Tab);
        QVERIFY(form.search->hasFocus());
        QVERIFY(form.search->grab().toImage() != before); // the ring
        QTest::keyClick(form.search, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(form.edit->hasFocus());
        QCOMPARE(form.search->grab().toImage(), before);
        QTest::keyClick(form.edit, Qt::Key_Tab);
        QTest::keyClick(form.search, Qt::Key_Tab);
        QVERIFY(form.after->hasFocus());
        QTest::keyClick(form.after, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(form.edit->hasFocus());
        QTest::keyClick(form.edit, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(form.before->hasFocus());
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            form.edit->setFocus();
            form.edit->setText("abc");
            QTest::keyClick(form.edit, Qt::Key_Tab);
            QVERIFY(form.close->hasFocus());
            searches.heard.clear();
            QTest::keyClick(form.close, key);
            QCOMPARE(searches.heard, QStringList({"-", "-"}));
            QVERIFY(form.edit->hasFocus()); // the button has gone
        }
        form.edit->setText("abc");
        QTest::keyClick(form.edit, Qt::Key_Tab);
        form.edit->clear(); // by the application
        QVERIFY(form.edit->hasFocus());
    }

    void losesTheFocusAsAWhole()
    {
        Form form;
        QVERIFY(form.show());
        QSignalSpy spy(form.edit, &CBPLineEdit::sigLoseFocus);
        QTest::keyClick(form.edit, Qt::Key_Tab);
        QVERIFY(form.search->hasFocus());
        QTest::keyClick(form.search, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(form.edit->hasFocus());
        QCOMPARE(spy.count(), 0); // only within the field
        QTest::keyClick(form.edit, Qt::Key_Tab);
        QTest::keyClick(form.search, Qt::Key_Tab);
        QVERIFY(form.after->hasFocus());
        QCOMPARE(spy.count(), 1);
        form.edit->setFocus();
        form.before->setFocus();
        QCOMPARE(spy.count(), 2);
        // A field that is closed on it
        form.edit->setFocus();
        QTest::keyClick(form.edit, Qt::Key_Tab);
        const QPointer<CBPSearchEdit> edit = form.edit;
        connect(form.edit, &CBPLineEdit::sigLoseFocus, this, [&edit] { delete edit; });
        form.after->setFocus();
        QVERIFY(!edit);
    }

    void screenReader()
    {
        Form form;
        QVERIFY(form.show());
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(form.search);
        QCOMPARE(reader->role(), QAccessible::PushButton);
        QCOMPARE(reader->text(QAccessible::Name), QString("Search"));
        QAccessibleInterface *close = QAccessible::queryAccessibleInterface(form.close);
        QCOMPARE(close->text(QAccessible::Name), QString("Clear"));
        form.edit->setText("abc");
        close->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(form.edit->text(), QString());
    }

    void completers()
    {
        QScopedPointer<CBPSearchEdit> edit(new CBPSearchEdit(nullptr));
        const QPointer<QCompleter> own = edit->completer();
        QStringListModel words({"alpha"});
        QCompleter other(&words);
        other.setCompletionMode(QCompleter::UnfilteredPopupCompletion);
        edit->setCompleter(&other);
        edit->show();
        QTest::keyClick(edit.data(), Qt::Key_Return);
        QVERIFY(other.popup()->isVisible());
        QVERIFY(own);
        edit->setCompleter(nullptr);
        QTest::keyClick(edit.data(), Qt::Key_Return);
        edit.reset();
        QVERIFY(!own);

        edit.reset(new CBPSearchEdit(nullptr));
        delete edit->completer(); // by the application
        QTest::keyClick(edit.data(), Qt::Key_Return);
    }

    void diesInItsSignal_data()
    {
        QTest::addColumn<QString>("by");
        QTest::newRow("Return: later, as the key is at work") << "return";
        QTest::newRow("pause") << "pause";
        QTest::newRow("clear button: mouse") << "mouse";
        QTest::newRow("clear button: key") << "key";
        QTest::newRow("clear button: screen reader") << "click";
    }

    void diesInItsSignal()
    {
        QFETCH(QString, by);
        QPointer<CBPSearchEdit> edit = new CBPSearchEdit(nullptr);
        edit->setText("abc");
        edit->show();
        auto *close = edit->findChild<QToolButton *>("btnClose");
        const bool clears = by == "mouse" || by == "key" || by == "click";
        int heard = 0;
        connect(edit.data(), &CBPSearchEdit::DoSearch, this, [&] {
            ++heard;
            if (by == "return")
                edit->deleteLater();
            else if (!clears || heard == 2) // the first time the text is being changed
                delete edit;
        });
        if (by == "return")
            QTest::keyClick(edit.data(), Qt::Key_Return);
        else if (by == "mouse")
            QTest::mouseClick(close, Qt::LeftButton);
        else if (by == "key")
            QTest::keyClick(close, Qt::Key_Return);
        else if (by == "click")
            close->click();
        QTRY_VERIFY_WITH_TIMEOUT(!edit, 4 * kPause);
        QCOMPARE(heard, clears ? 2 : 1);
    }
};

LUMQT_TEST_MAIN(TestSearchEdit)
#include "tst_searchedit.moc"
