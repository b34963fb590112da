#include "Acts.h"
#include "CBPPopWnd.h"

#include "CBPBox.h"
#include "CBPEvtLoop.h"
#include "CBPWaitBtn.h"
#include "foundation/FontLookup.h"
#include "platform/Platform.h"
#include "PopUpProbe.h"
#include "Rows.h"
#include "TestMain.h"
#include "Ticks.h"

#include <QLayout>

namespace {

// What a callback of SetBtnClickCB() is to answer, and what it was told.
struct Callback
{
    int verdict = 0;
    QVector<int> results;
    std::function<void()> act;

    static int call(int result, void *self)
    {
        auto *callback = static_cast<Callback *>(self);
        callback->results << result;
        const int verdict = callback->verdict;
        if (callback->act)
            callback->act();
        return verdict;
    }
};

} // namespace

class TestPopWnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // ------------------------------------------------------------------------------------------------------
    // buttons

    void rows_data()
    {
        columns<int, int, QRect, QString>("appended", "prepended", "area", "rows");
        const QRect screen(0, 0, 1600, 1200);
        row("no buttons", 0x601, 1 << 23 | 1 << 30, screen, "");
        row("OK and No", kNo | kOk, 0, screen, "Ok No");
        row("parts", kCancel | kOk, 0x80000, screen, "Back Ok Cancel");
        const QString all =
            "Add Ok Retry Continue Skip Export Yes Other Browse Reboot SkipAll Erase Change Quit "
            "No Cancel Back Close RestartNow RestartLater";
        row("all", 0x7fffff, 0, QRect(0, 0, 2600, 1200), all);
        row("all, two rows", 0x7fffff, 0, screen, QString(all).replace(" Back", "|Back"));
        row("small screen", kOk | kYes | kNo | kCancel, 0, QRect(0, 0, 260, 600), "Ok Yes|No Cancel");
        row("parts in rows", kOk | kNo | kCancel, 0x80000 | 0x20, QRect(0, 0, 260, 600),
            "Skip Back|Ok No|Cancel");
    }
    void rows()
    {
        QFETCH(int, appended);
        QFETCH(int, prepended);
        QFETCH(QRect, area);
        const auto restore = restoring(lumqt::platform::answers());
        lumqt::platform::answers().workArea = [&area] { return area; };
        for (const bool mirrored : {false, true}) {
            PopUp w(nullptr, appended);
            w.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
            w.PrependBtn(prepended);
            w.show();
            QVERIFY(w.width() <= area.width());
            QMap<int, QMap<int, QString>> names; // by their places
            QRegion covered;
            const auto buttons = w.findChildren<CBPPushBtn *>();
            for (CBPPushBtn *button : buttons) {
                const QRect place(button->mapTo(&w, QPoint(0, 0)), button->size());
                QVERIFY(isWholeIn(button, &w) && !covered.intersects(place));
                QCOMPARE(qobject_cast<CBPWaitBtn *>(button) != nullptr, button->objectName() != "id_BtnNo");
                covered += place;
                names[place.y()][mirrored ? -place.x() : place.x()] = button->objectName().mid(6);
            }
            QStringList rows;
            for (const auto &row : qAsConst(names))
                rows << QStringList(row.values()).join(' ');
            QTEST(rows.join('|'), "rows");
            QCOMPARE(w.statusBox()->height(), 70 + 48 * qMax(0, int(rows.size()) - 1));
            const QRect all = covered.boundingRect();
            const QRect bottom = w.statusBox()->geometry().marginsRemoved(w.statusBox()->contentsMargins());
            if (!rows.isEmpty())
                QCOMPARE(mirrored ? all.left() : all.right(), mirrored ? bottom.left() : bottom.right());
            if (rows.size() > 1) { // one row again where there is room for it
                w.hide();
                const QRect large = std::exchange(area, QRect(0, 0, 2600, 1200));
                w.show();
                QCOMPARE(w.statusBox()->height(), 70);
                area = large;
            }
        }
    }

    void otherLayout()
    {
        CBPPopWnd w(nullptr);
        auto *layout = new QVBoxLayout(&w);
        QTest::ignoreMessage(QtWarningMsg,
                             "CBPPopWnd: Init() was called twice, or after another layout was set");
        w.Init(true);
        QVERIFY(w.layout() == layout && w.findChildren<QWidget *>().isEmpty());
    }

    void buttonsByFlag()
    {
        // In the gallery's pictures there is no hue.
        QCOMPARE(PopUp(nullptr, kOk).GetBtn(kOk)->bgColor(0), QColor("#49a7f5"));
        PopUp w(nullptr, kCancel | kNo);
        QVERIFY(!w.GetBtn(kOk) && !w.GetBtn(kOk | kCancel) && !w.ButtonIsEnable(kOk));
        QVERIFY(w.GetBtn(kNo)->isDefault() && !w.GetBtn(kCancel)->isDefault());
        w.EnableButton(kOk, true);
        w.ResetBtnText(kOk, "text");
        QVERIFY(!w.GetBtn(kOk));
        for (const bool enabled : {false, true}) {
            w.EnableButton(kCancel, enabled);
            QVERIFY(w.ButtonIsEnable(kCancel) == enabled && w.GetBtn(kCancel)->isEnabled() == enabled);
        }
        // Wider for its text, up to 480 pixels.
        for (const int flag : {kCancel, kNo}) {
            const QString wide = "A text that needs more room than that";
            w.ResetBtnText(flag, wide);
            QCOMPARE(w.GetBtn(flag)->width(), QFontMetrics(lumqt::uiFont()).horizontalAdvance(wide) + 20);
            w.ResetBtnText(flag, QString(20000, 'w'));
            QCOMPARE(w.GetBtn(flag)->width(), 480);
            w.ResetBtnText(flag, "A & B");
            QCOMPARE(w.GetBtn(flag)->text(), QString("A & B"));
        }
        // A wait gives back what the application has set.
        auto *button = qobject_cast<CBPWaitBtn *>(w.GetBtn(kCancel));
        button->Show(true);
        button->exit(nullptr, false);
        QCOMPARE(button->text(), QString("A & B"));
        delete button;
        QVERIFY(!w.GetBtn(kCancel) && !w.ButtonIsEnable(kCancel));
    }

    // A standard button waits without a text: its spinner stands for it, a whole turn of it, and again.
    void waitingButton()
    {
        PopUp w(nullptr, kCancel);
        w.show();
        auto *button = qobject_cast<CBPWaitBtn *>(w.GetBtn(kCancel));
        button->Show(true);
        QTimer *timer = spinnerTimer();
        tick(timer, 10);
        const QImage first = button->currentPixmap().toImage();
        QVERIFY(button->text().isEmpty() && !button->icon().isNull() && !button->isEnabled());
        int frames = 0;
        do {
            tick(timer);
            ++frames;
        } while (button->currentPixmap().toImage() != first && frames < 99);
        QCOMPARE(frames, 24);
        button->exit(nullptr, false);
    }

    void widgetsInRow()
    {
        PopUp w;
        auto *left = new QWidget;
        auto *right = new QWidget;
        w.PrependWidget(left, true, false, 7, Qt::AlignBottom);
        w.AppendWidget(right, false, false, 0xffffffffu, {});
        w.PrependWidget(nullptr, false, false, 0, {});
        QCOMPARE(left->parentWidget(), static_cast<QWidget *>(w.GetPreBox()));
        QCOMPARE(left->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QVERIFY(w.isAncestorOf(right) && !w.GetPreBox()->isAncestorOf(right));
        const QLayout *row = w.GetPreBox()->layout();
        QVERIFY(row->count() == 2 && row->itemAt(1)->sizeHint().width() == 7 &&
                row->itemAt(0)->alignment() == Qt::AlignBottom);
    }

    void withoutInit()
    {
        CBPPopWnd w(false, nullptr);
        QWidget widget;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Init"));
        w.AppendBtn(kOk);
        w.PrependWidget(&widget, false, false, 0, {});
        QVERIFY(!w.GetPreBox() && !w.GetBtn(kOk) && !widget.parent());
        w.grab();
        w.Init(false); // without a bottom area
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Init"));
        w.Init(true);
        w.AppendBtn(kOk);
        QVERIFY(w.GetBtn(kOk) && !w.isAncestorOf(w.GetBtn(kOk)));
        emit w.GetBtn(kOk)->released();
        QCOMPARE(w.GetResult(), kOk);
    }

    // ------------------------------------------------------------------------------------------------------
    // clicks

    void clicks_data()
    {
        // `callback`: what it answers, if there is one.
        columns<bool, QString, int, bool>("accepts", "callback", "result", "closes");
        row("accepted", true, "", kOk, true);
        row("refused", false, "", -1, false);
        row("accepted, kept open by the callback", true, "-1", kOk, false);
        row("accepted, the callback agrees", true, "0", kOk, true);
        row("accepted, another verdict", true, "-2", kOk, true);
        row("refused, the callback closes", false, "0", -1, true);
        row("refused twice", false, "-1", -1, false);
    }
    void clicks()
    {
        QFETCH(bool, accepts);
        QFETCH(QString, callback);
        QFETCH(int, result);
        QFETCH(bool, closes);
        PopUp w(nullptr, kOk | kNo);
        CBPPushBtn *first = w.GetBtn(kOk);
        w.AppendBtn(kOk); // of two buttons with one flag only the second is one
        w.answer = [accepts](int) { return accepts; };
        Callback asked;
        asked.verdict = callback.toInt();
        if (!callback.isEmpty())
            w.SetBtnClickCB(&Callback::call, &asked);
        QSignalSpy quits(&w, &CBPPopWnd::sigQuit);
        w.GetBtn(kCancel); // leaves an entry without a button
        w.show();
        QTest::mouseClick(w.GetBtn(kOk), Qt::LeftButton);
        QCOMPARE(w.asked, QVector<int>{kOk});
        QCOMPARE(asked.results, callback.isEmpty() ? QVector<int>() : QVector<int>{result});
        QCOMPARE(w.GetResult(), result);
        QVERIFY(w.isVisible() != closes && quits.size() == int(closes));
        if (closes)
            QCOMPARE(quits[0][0].value<void *>(), static_cast<void *>(static_cast<QObject *>(&w)));
        w.show();
        emit first->released();
        QCOMPARE(w.asked.size(), 1);
        QCOMPARE(w.isVisible(), callback.isEmpty() || asked.verdict == -1);
    }

    void endedWhileAsked_data() { names("how", {"close", "other button", "delete", "parent"}); }
    void endedWhileAsked()
    {
        QFETCH(QString, how);
        for (const bool byCallback : {false, true}) {
            QPointer<QWidget> parent(new QWidget);
            parent->show();
            QPointer<PopUp> w(new PopUp(parent, kOk | kYes));
            QSignalSpy quits(w, &CBPPopWnd::sigQuit);
            QSignalSpy finished(w, &QDialog::finished);
            const Deeds deeds{{"delete", [&] { destroy(w); }},
                              {"parent", [&] { destroy(parent); }},
                              {"close", [&] { w->OnClose(); }},
                              {"other button", [&] { emit w->GetBtn(kYes)->released(); }}};
            int asked = 0;
            const auto end = [&] { asked++ > 0 ? void() : deeds[how](); };
            Callback callback;
            if (byCallback)
                w->SetBtnClickCB(&Callback::call, &callback);
            else
                w->answer = [&](int) {
                    end();
                    return true;
                };
            callback.act = end;
            w->show();
            QTest::mouseClick(w->GetBtn(kOk), Qt::LeftButton);
            QVERIFY(asked > 0);
            QCOMPARE(w.isNull(), how == "delete" || how == "parent");
            if (w) { // the first end holds, and happens once
                QCOMPARE(w->GetResult(), how == "close" ? kCancel : kYes);
                QVERIFY(!w->isVisible() && quits.size() == 1 && finished.size() == 1);
            }
            delete parent;
        }
    }

    void brokenPresses_data()
    {
        columns<QString, bool, int>("by", "space", "result");
        row("disabled", "disable", false, -1);
        row("another focus", "focus", false, -1);
        row("Escape, Space held", "Escape", true, -1);
        row("Escape, mouse held", "Escape", false, -1);
        row("not at all", "", false, kOk);
        row("disabled when accepted", "accept", false, kOk);
    }
    // Qt lets a button that is held down come up in these cases, and says so as of a click.
    void brokenPresses()
    {
        QFETCH(QString, by);
        QFETCH(bool, space);
        PopUp w(nullptr, kOk | kNo);
        w.answer = [&w, by](int flag) {
            w.EnableButton(flag, by != "accept");
            return true;
        };
        showActive(w);
        CBPPushBtn *button = w.GetBtn(kOk);
        if (by == "disable") // or it would be the focus that leaves
            button->setFocusPolicy(Qt::NoFocus);
        else
            button->QWidget::setFocus();
        space ? QTest::keyPress(button, Qt::Key_Space) : QTest::mousePress(button, Qt::LeftButton);
        QVERIFY(button->isDown());
        if (by == "disable")
            w.EnableButton(kOk, false);
        else if (by == "focus")
            w.GetBtn(kNo)->QWidget::setFocus();
        else if (by == "Escape")
            QTest::keyClick(button, Qt::Key_Escape);
        QVERIFY(w.isVisible());
        if (by.isEmpty() || by == "accept")
            QTest::mouseRelease(button, Qt::LeftButton);
        QTEST(w.GetResult(), "result");
        QVERIFY(!button->isDown());
    }

    // Keys that come while a job runs in the button press no other one, whether it waits in a loop or only
    // shows so.
    void focusDuringJob()
    {
        for (const bool shown : {false, true}) {
            PopUp w(nullptr, kOk | kYes | kNo);
            auto *button = qobject_cast<CBPWaitBtn *>(w.GetBtn(kOk));
            w.answer = [&](int) {
                for (const auto key : {Qt::Key_Return, Qt::Key_Space})
                    later(&w, [key] { QTest::keyClick(QApplication::focusWidget(), key); });
                CBPEvtLoop loop;
                later(&w, [&] {
                    if (shown)
                        loop.exit(0);
                    else
                        button->exit(&loop, false);
                    button->Show(false);
                });
                if (shown)
                    button->Show(true);
                shown ? loop.exec() : button->run(&loop, false);
                return false;
            };
            showActive(w);
            AWAIT(button->hasFocus());
            QTest::keyClick(button, Qt::Key_Space);
            QCOMPARE(w.asked, QVector<int>{kOk});
            QVERIFY(button->hasFocus() && button->isEnabled());
        }
    }
};

LUMQT_TEST_MAIN(TestPopWnd)
#include "tst_popwnd.moc"
