#include "CBPWinFrmTitle.h"

#include "Acts.h"
#include "Await.h"
#include "CBPImageButton.h"
#include "Later.h"
#include "Pixels.h"
#include "Rows.h"
#include "Spoken.h"
#include "TestMain.h"
#include "Util.h"

#include <QAccessible>
#include <QLabel>
#include <QLayout>
#include <QLinearGradient>
#include <QSignalSpy>
#include <QToolTip>

namespace {

const QColor kGround(34, 42, 62);
constexpr int kIds[] = {2, 8, 64, 128, 2048, 4096};

QString common(const char *name)
{
    return Util::getLumResFullPath(QLatin1String(name));
}

CBPImageButton *button(QWidget &bar, int id)
{
    const auto all = bar.findChildren<CBPImageButton *>();
    for (CBPImageButton *one : all) {
        if (one->GetID() == id)
            return one;
    }
    return nullptr;
}

QLabel *titleLabel(QWidget &bar)
{
    return bar.findChild<QLabel *>("CBPWinFrmTitle_WindTitle");
}

QLabel *iconLabel(QWidget &bar)
{
    const QRegularExpression nameless("^$");
    return bar.findChildren<QLabel *>(nameless, Qt::FindDirectChildrenOnly).value(0);
}

void send(QWidget &bar, QEvent::Type type, const QPoint &global, Qt::MouseButton pressed = Qt::LeftButton)
{
    QMouseEvent event(type, QPoint(5, 5), global, pressed, pressed, Qt::NoModifier);
    QCoreApplication::sendEvent(&bar, &event);
}

void recordId(void *context, int id)
{
    static_cast<QVector<int> *>(context)->append(id);
}

// A window with a bar in it, as wide as it.
struct Window : QWidget
{
    CBPWinFrmTitle bar{this};
    explicit Window(int width = 800)
    {
        resize(width, 200);
        bar.resize(width, bar.height());
        show();
    }
};

QColor textColor(QWidget &bar)
{
    return titleLabel(bar)->palette().color(QPalette::WindowText);
}

// Of all buttons for which `is` says so, the ids in one number.
int idsWhere(bool (QWidget::*is)() const, const QWidget &bar)
{
    int ids = 0;
    for (const CBPImageButton *one : bar.findChildren<CBPImageButton *>())
        ids |= (one->*is)() ? one->GetID() : 0;
    return ids;
}

} // namespace

class TestTitle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void atFirst()
    {
        Window w;
        QCOMPARE(QAccessible::queryAccessibleInterface(&w.bar)->role(), QAccessible::TitleBar);
        QStringList names;
        for (int id : kIds) {
            CBPImageButton *tested = button(w.bar, id);
            names += spokenName(tested);
            QCOMPARE(tested->toolTip(), id == 2 || id == 8 ? QString() : names.last());
            QVERIFY(tested->focusPolicy() == Qt::NoFocus &&
                    !tested->size().isEmpty()); // its images are there
            tested->setToolTip("other");
        }
        QCOMPARE(names.join(','), "Minimize,Close,Menu,Back,Online Support,Limited-time Offer");
        // The language changes: what the application has set stays.
        button(w.bar, 8)->setAccessibleName("Own");
        sendEvent(w.bar, QEvent::LanguageChange);
        QVERIFY(spokenName(button(w.bar, 8)) == "Own" && button(w.bar, 8)->toolTip() == "other");
        for (int id : {64, 128, 2048, 4096})
            QCOMPARE(button(w.bar, id)->toolTip(), spokenName(button(w.bar, id)));
    }

    void placesAndBits()
    {
        Window w;
        QString icon = common("gift_normal.svg");
        w.bar.SetLog(icon);
        w.bar.SetTitle("T", false);
        w.bar.ShowTitleBtn(~0, true);
        w.bar.setLayoutDirection(Qt::RightToLeft); // mirrors the margins, too
        w.bar.layout()->activate();
        QVERIFY(button(w.bar, 8)->x() == 12 + 6 && iconLabel(w.bar)->geometry().right() == 800 - 16 - 1);
        w.bar.ShowTitleBtn(~0, false);
        for (int id : kIds) {
            w.bar.ShowTitleBtn(id | 4 | 16 | 32 | 1024 | 1 | 8192, true);
            QCOMPARE(idsWhere(&QWidget::isVisible, w.bar), id);
            w.bar.ShowTitleBtn(id, false);
            w.bar.EnableTitleBtn(~id, false);
            QCOMPARE(idsWhere(&QWidget::isEnabled, w.bar), id);
            w.bar.EnableTitleBtn(~0, true);
        }
        w.bar.ShowTitleBtn(256, true);
        QVERIFY(iconLabel(w.bar)->isVisible() && titleLabel(w.bar)->isHidden());
        w.bar.SetTitleBtnEnable(false);
        QCOMPARE(idsWhere(&QWidget::isEnabled, w.bar), 2048 | 4096);
        delete button(w.bar, 2048);
        w.bar.ShowTitleBtn(4096 | 2048, true); // the one not without the other
        QVERIFY(button(w.bar, 4096)->isHidden());
        for (int id : {2, 8, 64, 128})
            delete button(w.bar, id);
        w.bar.ShowTitleBtn(~0, true);
        w.bar.SetTitleBtnEnable(true);
        w.bar.SetHasNewVersion(true);
        w.bar.SetIconTips();
        QVERIFY(!w.bar.titleBtn(255));
    }

    void labels()
    {
        Window w;
        w.bar.ShowTitleBtn(512, false); // switched off before there is anything
        w.bar.SetTitle("A <b>&title</b>", false);
        QVERIFY(titleLabel(w.bar)->isHidden());
        w.bar.ShowTitleBtn(512, true);
        QVERIFY(titleLabel(w.bar)->isVisible());
        QCOMPARE(titleLabel(w.bar)->text(), QString("A <b>&title</b>"));
        QCOMPARE(titleLabel(w.bar)->textFormat(), Qt::PlainText);
        w.bar.SetTitle(common("back_normal.png"), true);
        QCOMPARE(titleLabel(w.bar)->pixmap(Qt::ReturnByValue).size(), QSize(48, 32) * w.devicePixelRatioF());
        w.bar.layout()->activate();
        QCOMPARE(titleLabel(w.bar)->size(), QSize(48, 32));
        for (const bool image : {true, false}) {
            w.bar.SetTitle(image ? "no such.png" : "", image);
            QVERIFY(titleLabel(w.bar)->isHidden());
        }
        QString missing;
        w.bar.SetLog(missing);
        QVERIFY(iconLabel(w.bar)->isHidden());
        w.bar.SetTitleTextStyle("QLabel { font-size: 30px; }");
        QCOMPARE(titleLabel(w.bar)->styleSheet(), QString("QLabel { font-size: 30px; }"));
        // Cut short of the buttons, with less at the end of the line than a row of the letter has: an
        // ellipsis.
        Window small(300);
        small.bar.ShowTitleBtn(8, true);
        small.bar.SetTitle(QString(200, QLatin1Char('M')), false);
        QVERIFY(small.bar.width() == 300 && small.bar.minimumSizeHint().width() < 300);
        const QLabel *cut = titleLabel(small.bar);
        QVERIFY(cut->geometry().right() < button(small.bar, 8)->x());
        for (QLabel *label : {titleLabel(w.bar), titleLabel(small.bar)}) { // the tool tip has all of it
            label->setText(label == cut ? label->text() : "short");
            QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), label->mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(label, &asked);
            QCOMPARE(QToolTip::text().contains("MMM"), label == cut);
        }
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) { // it ends at the same side
            small.bar.setLayoutDirection(direction);
            QCoreApplication::processEvents();
            for (int x = 0; x < 8; ++x)
                QCOMPARE(drawn(small.bar).pixelColor(cut->geometry().right() - x, 26), kGround);
        }
    }

    // The title takes the room that a label of Qt would.
    void titleRoom()
    {
        Window w;
        w.bar.ShowTitleBtn(512, true);
        for (const char *style :
             {"", "padding: 3px; font-size: 20px;", "border: 1px solid red; margin: 2px;"}) {
            for (const char *text : {"", "T", "Title", "two\nlines", "tab\tand spaces  ", "&a <b>",
                                     "\xd7\x90\xd7\x91", "longer\xc2\x9cshort"}) {
                QLabel *label = titleLabel(w.bar);
                label->setStyleSheet(style);
                label->setText(QString::fromUtf8(text));
                QCOMPARE(label->sizeHint(), label->QLabel::sizeHint());
                QCOMPARE(label->minimumSizeHint(), label->QLabel::minimumSizeHint());
            }
        }
    }

    void colours()
    {
        Window w;
        const QPoint inside(300, 30);
        const auto ground = [&] { return drawn(w.bar).pixelColor(inside); };
        CBPImageButton *dotted = button(w.bar, 64);
        dotted->show();
        QVERIFY(QTest::qWaitForWindowExposed(&w, kPatience));
        QColor red(Qt::red);
        QVERIFY(repaints(w.bar, [&] { w.bar.SetBgColor(red); }));
        QCOMPARE(ground(), red);
        QColor none;
        w.bar.SetBgColor(none);
        QCOMPARE(ground(), red);
        QLinearGradient gradient;
        QVERIFY(repaints(w.bar, [&] { w.bar.setLinerBrush(gradient); }));
        QVERIFY(repaints(w.bar, [&] { w.bar.SetRoundRectEnabled(false); }));
        for (const bool hasNews : {true, false})
            QVERIFY(repaints(*dotted, [&] { w.bar.SetHasNewVersion(hasNews); }));
        QVERIFY(boxOf(drawn(*dotted), QColor(0xe0, 0x20, 0x20)).isEmpty());
        w.bar.SetTitleClr(Qt::green);
        w.bar.SetTitleClr(none);
        QCOMPARE(textColor(w.bar), QColor(Qt::green));
        // The configured ones, for what is made after.
        const QString file = Util::getResFullPath(QString("../res/UIConfig.ini"));
        const auto write = [&file](const char *key, const QVariant &value) {
            Util::writeIni("window", QLatin1String(key), value, file);
        };
        const auto restore = restoringFile(file);
        for (const bool groundIsRight : {true, false}) {
            write("title_bgcolor", groundIsRight ? "#102030" : "no colour");
            write("title_textcolor", groundIsRight ? "no colour" : "#405060");
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("title_(text|bg)color .* is no colour"));
            Window configured;
            QCOMPARE(drawn(configured.bar).pixelColor(inside), groundIsRight ? QColor("#102030") : kGround);
            QCOMPARE(textColor(configured.bar), QColor(groundIsRight ? "#7f8fa4" : "#405060"));
        }
    }

    void clicks()
    {
        Window w;
        w.bar.ShowTitleBtn(~0, true);
        QVector<int> ids;
        w.bar.on_btn_clicekedSlot(8); // nobody listens
        w.bar.SetBtnCallbackFunc(&recordId, &ids);
        for (int id : kIds)
            QTest::mouseClick(button(w.bar, id), Qt::LeftButton);
        w.bar.on_back_btnSlot();
        QCOMPARE(ids, (QVector<int>{2, 8, 64, 128, 2048, 4096, 128}));
        w.bar.SetBtnCallbackFunc(nullptr, nullptr);
        QTest::mouseClick(button(w.bar, 8), Qt::LeftButton);
        QCOMPARE(ids.size(), 7);
        // Of several bits the last wins, and wins too when its button is missing.
        QVERIFY(w.bar.titleBtn(2 | 8 | 64) == button(w.bar, 64) && w.bar.titleBtn(255) == button(w.bar, 128));
        for (int none : {0, 2 | 4, 2048})
            QVERIFY(!w.bar.titleBtn(none));
        auto *maximise = new CBPImageButton({4, common("minimize_normal.png")}, false, 4, nullptr);
        auto *second = new CBPImageButton({}, false, 4); // not the first
        auto *last = new QWidget;
        connect(maximise, SIGNAL(btn_released(int)), &w.bar, SLOT(on_btn_clicekedSlot(int)));
        w.bar.InsertWidget(8, maximise, 0, Qt::AlignCenter);
        w.bar.InsertWidget(1000, last, 0, Qt::AlignCenter);
        w.bar.InsertWidget(-7, second, 0, Qt::AlignCenter);
        QTest::ignoreMessage(QtWarningMsg, "CBPWinFrmTitle::InsertWidget: there is no widget");
        w.bar.InsertWidget(0, nullptr, 0, Qt::AlignCenter);
        const QLayout *right = w.bar.layout()->itemAt(4)->layout();
        QVERIFY(right->indexOf(maximise) == 8 && right->indexOf(button(w.bar, 8)) == 9);
        QVERIFY(right->indexOf(last) == 10 && right->indexOf(second) == 11);
        QCOMPARE(w.bar.titleBtn(4), maximise);
        QImage looks[2];
        for (const bool maximised : {false, true, false}) {
            w.bar.ResetMaxBtn(maximised);
            QVERIFY(looks[maximised].isNull() || looks[maximised] == drawn(*maximise));
            looks[maximised] = drawn(*maximise);
            for (CBPImageButton *each : {maximise, second})
                QCOMPARE(spokenName(each), QString(maximised ? "Restore" : "Maximize"));
        }
        QVERIFY(looks[0] != looks[1]);
        w.bar.SetBtnCallbackFunc(&recordId, &ids);
        QTest::mouseClick(maximise, Qt::LeftButton);
        QVERIFY(ids.size() == 8 && ids.last() == 4);
        w.bar.EnableTitleBtn(4, false);
        QVERIFY(!maximise->isEnabled());
        delete maximise;
        w.bar.ResetMaxBtn(true);
        QVERIFY(!w.bar.titleBtn(4));
    }

    void dragging()
    {
        for (const auto &[pressed, maximised] :
             {std::pair(Qt::LeftButton, false), std::pair(Qt::RightButton, false),
              std::pair(Qt::LeftButton, true)}) {
            Window w;
            w.move(50, 60);
            w.bar.ResetMaxBtn(maximised);
            const QPoint start = w.pos();
            const QPoint way = maximised ? QPoint() : QPoint(20, -10);
            send(w.bar, QEvent::MouseMove, {500, 500}, pressed); // nothing is pressed yet
            QCOMPARE(w.pos(), start);
            send(w.bar, QEvent::MouseButtonPress, {200, 200}, pressed);
            send(w.bar, QEvent::MouseMove, {220, 190}, pressed);
            AWAIT_EQUAL(w.pos(), start + way);
            send(w.bar, QEvent::MouseButtonRelease, {220, 190}, pressed);
            send(w.bar, QEvent::MouseMove, {400, 400}, pressed);
            QCOMPARE(w.pos(), start + way);
            send(w.bar, QEvent::MouseButtonPress, {200, 200}, pressed);
            w.hide(); // whoever shows it again has not pressed
            w.show();
            send(w.bar, QEvent::MouseMove, {300, 300}, pressed);
            QCOMPARE(w.pos(), start + way);
        }
        // A double click does nothing, nor does a bar that has no window to drag.
        Window w;
        const QSignalSpy spy(&w.bar, &CBPWinFrmTitle::on_dbl_clickedSignal);
        const QRect before = w.geometry();
        QTest::mouseDClick(&w.bar, Qt::LeftButton, {}, QPoint(300, 30));
        QVERIFY(spy.isEmpty() && w.geometry() == before);
        CBPWinFrmTitle alone(nullptr);
        send(alone, QEvent::MouseButtonPress, QPoint(200, 200));
        send(alone, QEvent::MouseMove, QPoint(220, 190));
        QCOMPARE(alone.pos(), QPoint(0, 0));
    }
};

LUMQT_TEST_MAIN(TestTitle)
#include "tst_title.moc"
