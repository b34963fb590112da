#include "Acts.h"
#include "Await.h"
#include "CBPSearchEdit.h"
#include "Pixels.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCryptographicHash>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTimer>
#include <QToolButton>

#include <tuple>

namespace {

// A window with a search field between two other edits.
struct Form
{
    Form()
    {
        auto *layout = new QHBoxLayout(&window);
        for (QLineEdit *widget : {before, static_cast<QLineEdit *>(edit), after})
            layout->addWidget(widget);
        edit->completer()->setModel(new QStringListModel({"alpha", "beta"}, edit->completer()));
    }

    bool show()
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window, kPatience))
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
    QLineEdit *before = new QLineEdit;
    CBPSearchEdit *edit = new CBPSearchEdit(nullptr);
    QLineEdit *after = new QLineEdit;
    QToolButton *close = edit->findChild<QToolButton *>("btnClose");
    QToolButton *search = edit->findChild<QToolButton *>("btnSearch");
};

// How long the pauses were that have ended.
class Pauses : public QObject
{
public:
    Pauses() { qApp->installEventFilter(this); }
    QVector<int> lengths;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *timer = qobject_cast<QTimer *>(object);
        if (event->type() == QEvent::Timer && timer && timer->isSingleShot() && timer->interval() > 1000)
            lengths << timer->interval();
        return false;
    }
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
    // With a parent, and without one: that decides about the blocked keys and nothing else.
    void construction()
    {
        for (const bool parent : {false, true}) {
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
                QVERIFY(button && button->autoRaise() && button->focusPolicy() == Qt::NoFocus);
                QCOMPARE(button->cursor().shape(), Qt::ArrowCursor);
            }
            // The sheet's own spelling to the letter and tab: applications replace parts of it.
            const QByteArray sheet = edit.styleSheet().toUtf8();
            QCOMPARE(QCryptographicHash::hash(sheet, QCryptographicHash::Sha1).toHex(),
                     QByteArray("93e90dd092d4bcc27d88b0c44a8c6b994450e09d"));
        }
    }

    void buttonsFollowTheText()
    {
        Form form;
        QVERIFY(form.show());
        QVERIFY(form.search->isVisible() && !form.close->isVisible());
        // On dense screens it is the denser one, also where the application has no AA_UseHighDpiPixmaps.
        QLabel dense;
        dense.setPixmap(QPixmap("../res/search_icon@2x.png"));
        dense.resize(16, 16);
        const QImage shown = pictureOf(*form.search);
        QVERIFY(shown.devicePixelRatio() != 2.0 || shown.copy(10, 4, 32, 32) == pictureOf(dense));
        QTest::keyClicks(form.edit, "a");
        QVERIFY(!form.search->isVisible() && form.close->isVisible());
        form.edit->setFocus();
        QTest::keyClick(form.edit, Qt::Key_Backspace);
        QVERIFY(form.search->isVisible() && !form.close->isVisible());
    }

    void textKeepsClearOfTheButtons()
    {
        for (const char *look : {"", "text before it is shown", "right to left", "right to left, turned"}) {
            const bool mirrored = QByteArray(look).startsWith("right");
            const bool empty = mirrored || !*look;
            Form form;
            form.edit->setText(empty ? "" : look);
            const bool turned = QByteArray(look).endsWith("turned");
            form.window.setLayoutDirection(mirrored && !turned ? Qt::RightToLeft : Qt::LeftToRight);
            form.window.show();
            form.window.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            QCoreApplication::processEvents(); // the layout's turn
            const QToolButton *button = empty ? form.search : form.close;
            const QMargins margins = form.edit->textMargins();
            QVERIFY(button->width() > 0);
            QCOMPARE(mirrored ? margins.left() : margins.right(), button->width()); // both are of one size
            QCOMPARE(margins.left() + margins.right(), button->width());
            QCOMPARE(mirrored ? button->x() : form.edit->width() - button->geometry().right() - 1, 0);
        }
    }

    // All wait at the same time, since their pause is a long one.
    void onePauseOneSearch()
    {
        CBPSearchEdit impatient(nullptr);
        CBPSearchEdit edit(nullptr);
        QPointer<CBPSearchEdit> dying = new CBPSearchEdit(nullptr);
        const Searches early(&impatient);
        const Searches searches(&edit);
        CBPSearchEdit quiet(nullptr); // empty at the end of its pause
        const Searches ends(&quiet);
        connect(dying.data(), &CBPSearchEdit::DoSearch, this, [&dying] { delete dying; });
        QTest::keyClicks(&impatient, "abc");
        QTest::keyClick(&impatient, Qt::Key_Return);
        QCOMPARE(early.heard, QStringList("+abc")); // at once
        QTest::keyClicks(&edit, "abc");
        QTest::keyClicks(&quiet, "x");
        quiet.blockSignals(true);
        quiet.clear();
        quiet.blockSignals(false);
        QTest::keyClicks(dying, "x");
        QVERIFY(searches.heard.isEmpty() && dying);
        const Pauses pauses;
        AWAIT(!searches.heard.isEmpty() && !ends.heard.isEmpty() && !dying);
        QCOMPARE(pauses.lengths, QVector<int>(3, 1500)); // and no fourth one, which the search was to end
        QCOMPARE(ends.heard, QStringList("-"));
        QCOMPARE(searches.heard, QStringList("+abc"));
        QCOMPARE(early.heard, QStringList("+abc"));
        QTest::keyClick(&edit, Qt::Key_Backspace);
        edit.clear();
        QCOMPARE(searches.heard, QStringList({"+abc", "-"})); // at once
    }

    // Whatever was typed before, all suggestions open.
    void nothingToSearch()
    {
        for (const char *before : {"", "al", "zzz"}) {
            for (const char *by : {"key", "magnifier", "clear button"}) {
                const bool clears = by[0] == 'c';
                if (clears && !*before)
                    continue; // it is not to be seen
                Form form;
                QVERIFY(form.show());
                QTest::keyClicks(form.edit, before);
                for (int i = 0; !clears && i < int(qstrlen(before)); ++i)
                    QTest::keyClick(form.edit, Qt::Key_Backspace);
                form.edit->completer()->popup()->hide();
                const Searches searches(form.edit);
                if (by[0] == 'k') {
                    QTest::keyClick(form.edit, Qt::Key_Return);
                } else {
                    form.after->setFocus();
                    QTest::mouseClick(clears ? form.close : form.search, Qt::LeftButton);
                }
                QCOMPARE(form.suggestions(), 2);
                QVERIFY(form.edit->completer()->popup()->testAttribute(Qt::WA_SetStyle)); // as those of boxes
                QVERIFY(form.edit->hasFocus() && form.edit->text().isEmpty());
                QCOMPARE(searches.heard, clears ? QStringList({"-", "-"}) : QStringList());
                QVERIFY(form.search->isVisible() && !form.close->isVisible());
            }
        }
    }

    // The field loses the focus as a whole.
    void keyboard()
    {
        Form form;
        form.edit->completer()->setModel(nullptr);
        QVERIFY(form.show());
        Searches searches(form.edit);
        const QSignalSpy losses(form.edit, &CBPLineEdit::sigLoseFocus);
        const std::tuple<Qt::Key, QWidget *, int> walk[] = {
            {Qt::Key_Tab, form.search, 0},   {Qt::Key_Backtab, form.edit, 0},
            {Qt::Key_Tab, form.search, 0},   {Qt::Key_Tab, form.after, 1},
            {Qt::Key_Backtab, form.edit, 1}, {Qt::Key_Backtab, form.before, 2}};
        for (const auto &[key, to, lost] : walk) {
            QTest::keyClick(QApplication::focusWidget(), key,
                            key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            QVERIFY(to->hasFocus());
            QCOMPARE(losses.count(), lost);
        }
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            form.edit->setFocus();
            form.edit->setText("abc");
            QTest::keyClick(form.edit, Qt::Key_Tab);
            QVERIFY(form.close->hasFocus());
            searches.heard.clear();
            QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(form.close, &repeated);
            QVERIFY(searches.heard.isEmpty());
            QTest::keyClick(form.close, key);
            QCOMPARE(searches.heard, QStringList({"-", "-"}));
            QVERIFY(form.edit->hasFocus()); // the button has gone
        }
        form.edit->setText("abc");
        QTest::keyClick(form.edit, Qt::Key_Tab);
        form.edit->clear(); // by the application
        QVERIFY(form.edit->hasFocus());
        // A field that is closed on it.
        QTest::keyClick(form.edit, Qt::Key_Tab);
        const QPointer<CBPSearchEdit> edit = form.edit;
        connect(form.edit, &CBPLineEdit::sigLoseFocus, this, [&edit] { delete edit; });
        form.after->setFocus();
        QVERIFY(!edit);
    }

    void screenReader()
    {
        Form form;
        QCOMPARE(spokenName(form.search), QString("Search"));
        QCOMPARE(spokenName(form.close), QString("Clear"));
        form.edit->setText("abc");
        click(form.close, Click::Tool);
        QCOMPARE(form.edit->text(), QString());
        QLabel label("Find", &form.window);
        for (const char *name : {"Search", "People", "Find"}) {
            form.edit->setPlaceholderText(name[0] == 'S' ? "" : "People");
            label.setBuddy(name[0] == 'F' ? form.edit : nullptr);
            form.window.show();
            QCOMPARE(spokenName(form.edit), QString(name));
            form.window.hide();
        }
        form.edit->setAccessibleName("The application's");
        form.window.show();
        QCOMPARE(spokenName(form.edit), QString("The application's"));
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

    void diesInItsSignal()
    {
        for (const QString by : {"return", "mouse"}) {
            QPointer<CBPSearchEdit> edit = new CBPSearchEdit(nullptr);
            edit->setText("abc");
            edit->show();
            auto *close = edit->findChild<QToolButton *>("btnClose");
            const int last = by == "return" ? 1 : 2; // the first time of two the text is being changed
            int heard = 0;
            connect(edit.data(), &CBPSearchEdit::DoSearch, this, [&] {
                if (++heard == last && by == "return")
                    edit->deleteLater(); // as the key is at work
                else if (heard == last)
                    delete edit;
            });
            if (by == "return")
                QTest::keyClick(edit.data(), Qt::Key_Return);
            else
                QTest::mouseClick(close, Qt::LeftButton);
            AWAIT(!edit);
            QCOMPARE(heard, last);
        }
    }
};

LUMQT_TEST_MAIN(TestSearchEdit)
#include "tst_searchedit.moc"
