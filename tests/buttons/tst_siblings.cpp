#include "Acts.h"
#include "Await.h"
#include "CAddBtn.h"
#include "CBPDropdownBtn.h"
#include "CBPImageCheckBox.h"
#include "CBPImageTextBtn.h"
#include "CBPLinkerButton.h"
#include "CBPMenuBtn.h"
#include "CBPRoundBtn.h"
#include "CBPToolButton.h"
#include "CBPWaitBtn.h"
#include "CButtonGroupBox.h"
#include "CExpandBtn.h"
#include "CFoucsLabel.h"
#include "CTriStateButton.h"
#include "foundation/FocusRing.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "Pictures.h"
#include "Pixels.h"
#include "Spoken.h"
#include "TestMain.h"

#include <QDialog>
#include <QLineEdit>
#include <QScrollArea>
#include <QSignalSpy>
#include <QVBoxLayout>

// What all buttons of the library have in common: what a text is, when the focus shows, what a press is.

namespace {

const QRgb kOwnRing = QColor(75, 167, 245).rgb(); // of push buttons
const QString kText = QStringLiteral("Q&A");

QVector<QString> images; // four files

// Whose ring also shows when the mouse brought the focus, and who Enter is for, in a dialog and elsewhere.
enum Trait {
    None = 0,
    MouseRing = 1,
    ReleaseOutside = 2,
    EnterInDialog = 4,
    EnterElsewhere = 8,
    RightClick = 16,
    ToolToggles = 32,
    Opens = 64,     // a menu, by Down and F4, too
    NoClicks = 128, // it is pressed, and opens a menu
    QtHovers = 256, // Qt repaints it
    Stays = 512,    // where it is, from right to left, too
    Circle = 1024
};

struct Sibling
{
    const char *name;
    const char *clicked; // its signal
    QRgb ring;
    int traits;
    std::function<QWidget *()> make;
};

const int kPush = MouseRing | ReleaseOutside | EnterInDialog;
const int kToggle = ReleaseOutside | RightClick;
const int kTool = ReleaseOutside | EnterElsewhere;

template <class Button, class... Arguments> std::function<QWidget *()> made(Arguments... arguments)
{
    return [=] { return new Button(arguments...); };
}

QWidget *imageButton()
{
    auto *button = new CBPImageButton(images, false, 1);
    button->SetText(kText, true, 2);
    return button;
}

QWidget *roundButton()
{
    auto *button = new CBPRoundBtn(60);
    button->setText(kText);
    return button;
}

QWidget *groupButton()
{
    CButtonGroupBox group(true, nullptr);
    CBPPushBtn *button = group.AddButton(1, kText, QString());
    button->setParent(nullptr);
    return button;
}

QWidget *splitButton()
{
    auto *button = new CBPDropdownBtn(kText, 1);
    button->setSplit(true);
    return button;
}

const char *const kById = SIGNAL(sigBtnClicked(int));
const char *const kByCheck = SIGNAL(clicked(bool));
const char *const kByImage = SIGNAL(btn_released(int));
const QRgb kRing = lumqt::builtInColor(lumqt::Purpose::FocusRing).rgb();

const QVector<Sibling> kSiblings{
    {"push", kById, kOwnRing, kPush, made<CBPPushBtn>(kText, nullptr)},
    {"add", kById, kRing, kPush, made<CAddBtn>(kText)},
    {"round", kById, kRing, kPush | Circle, roundButton},
    {"expand", kById, kRing, kPush, made<CExpandBtn>(QStringList(), kText, QString())},
    {"image", kByImage, kRing, Stays, imageButton},
    {"image and text", kByImage, kRing, None, [] { return new CBPImageTextBtn(images, kText); }},
    {"toggle", kByCheck, kRing, kToggle, made<CTriStateButton>(kText, false, false, nullptr)},
    {"group", kById, kRing, ReleaseOutside, groupButton},
    {"tool", SIGNAL(sigClick(int)), kRing, kTool | Stays, made<CBPToolButton>(kText, 1, ENAlignLeft, true)},
    {"link", SIGNAL(sigLinkerClick(int)), kRing, kTool | EnterInDialog, made<CBPLinkerButton>(kText)},
    {"drop-down", kById, kRing, EnterInDialog | EnterElsewhere | Opens, splitButton},
    {"image check box", kByCheck, kRing, ToolToggles | QtHovers,
     [] { return new CBPImageCheckBox(images, images, "Q&&A"); }},
    {"wait", kById, kOwnRing, kPush, made<CBPWaitBtn>(QStringList(), kText, QString())},
    {"menu", SIGNAL(pressed()), kRing, kPush | NoClicks, made<CBPMenuBtn>(kText)},
    {"title", SIGNAL(FocusChanged(CFoucsLabel *)), kRing, EnterInDialog | EnterElsewhere | QtHovers,
     made<CFoucsLabel>(kText)},
};

// A sibling in a window, below a field that has the focus.
template <class Window> struct Scene
{
    Window window;
    QLineEdit *field = new QLineEdit;
    QWidget *widget;
    QPushButton *ok = new QPushButton;

    explicit Scene(const Sibling &sibling) : widget(sibling.make())
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(widget);
        layout->addWidget(ok);
        window.move(100, 100);
        showActive(window);
        field->setFocus();
    }
};

// A key that is held.
void repeat(QWidget *widget, Qt::Key key)
{
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(widget, &event);
    }
}

// Counts how often it is told to close, and stays.
struct PatientDialog : QDialog
{
    void reject() override { ++rejections; }
    int rejections = 0;
};

// A ring of `thick` device pixels with nothing over it, and of one colour along it what it is drawn on: no
// ink, that is.
void checkRing(const QImage &image, const QColor &color, int thick)
{
    const QRect box = boxOf(image, color);
    for (int depth = 0; depth <= thick; ++depth) {
        const QRect line = box.adjusted(depth, depth, -depth, -depth);
        const QColor wanted = depth < thick ? color : image.pixelColor(line.left(), line.center().y());
        QVERIFY2((wanted == color) == (depth < thick), wordsOf(box));
        for (int i = 4 * thick; i < qMax(line.width(), line.height()) - 4 * thick; ++i) {
            const int x = line.left() + qMin(i, line.width() - 4 * thick);
            const int y = line.top() + qMin(i, line.height() - 4 * thick);
            for (const QPoint at : {QPoint(x, line.top()), QPoint(x, line.bottom()), QPoint(line.left(), y),
                                    QPoint(line.right(), y)})
                QVERIFY2(image.pixelColor(at) == wanted, wordsOf(box));
        }
    }
}

// From where to where something is drawn, from left to right. Letters of a word are one part.
QVector<int> partsOf(const QImage &image)
{
    QVector<int> ends;
    for (int x = 3; x < image.width() - 3; ++x) {
        bool ink = false;
        for (int y = 5; y < image.height() - 5; ++y)
            ink = ink || qGray(image.pixel(x, y)) < 235;
        if (ink && (ends.isEmpty() || x - ends.last() > 5))
            ends << x << x;
        else if (ink)
            ends.last() = x;
    }
    return ends;
}

// Deletes a button in the middle of what it tells.
class Killer : public QObject
{
    Q_OBJECT

public slots:
    void kill() { delete sender(); }
};

void forAll(const std::function<void(const Sibling &)> &check)
{
    for (const Sibling &sibling : kSiblings) {
        check(sibling);
        if (QTest::currentTestFailed()) {
            qWarning("with: %s", sibling.name);
            return;
        }
    }
}

} // namespace

class TestSiblings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        images = savePictures(m_folder, "%1.png", QSize(20, 16), QVector<QColor>(4, Qt::gray));
    }

    // Each may be the last thing that the button does.
    void clicks()
    {
        forAll([](const Sibling &sibling) {
            for (const char *how : {"press release", "right rightup", "space spaceup", "tool"}) {
                if (*how == 't' && (sibling.traits & ToolToggles))
                    continue;
                const bool clicks = *how != 'r' || (sibling.traits & RightClick);
                QPointer<QWidget> button = sibling.make();
                QSignalSpy clicked(button, sibling.clicked);
                perform(button, how);
                button->setEnabled(false);
                perform(button, how);
                QVERIFY2(clicked.count() == int(clicks), how);
                button->setEnabled(true);
                Killer killer;
                connect(button, sibling.clicked, &killer, SLOT(kill()));
                perform(button, how);
                QVERIFY2(button.isNull() == clicks, how);
                delete button;
            }
        });
    }

    // What changes the look is on the screen soon. A tool tip that the painting sets is set once.
    void newLooks()
    {
        const auto check = [](QWidget *widget, const QVector<const char *> &events, const Deeds &own = {}) {
            for (const char *event : events)
                QVERIFY2(repaints(*widget, [&] { perform(widget, event, own); }), event);
        };
        forAll([&](const Sibling &sibling) {
            if (sibling.traits & QtHovers)
                return;
            Scene<QWidget> scene(sibling);
            scene.widget->setFixedWidth(20);
            EventCounter tips(scene.widget, {QEvent::ToolTipChange});
            check(scene.widget,
                  {"focusin", "enter", "press release", "leave", "space", "spaceup", "focusout", "disable"});
            QVERIFY(tips.count <= 1);
        });
        Scene<QWidget> scene(kSiblings[4]);
        auto *image = static_cast<CBPImageButton *>(scene.widget);
        check(image, {"select", "deselect", "images", "text", "border"},
              {{"select", [&] { image->SetSelect(true); }},
               {"deselect", [&] { image->SetSelect(false); }},
               {"images", [&] { image->SetImgButtonRes(images); }},
               {"text", [&] { image->SetText("x", QFont()); }},
               {"border", [&] { image->SetBorder(1, false); }}});
        // The pressed look is on the screen before the events that wait in line.
        EventCounter paints(image, {QEvent::Paint});
        perform(image, "right");
        QCOMPARE(paints.count, 1);
    }

    // An "&" is a character like any other, also in a text that came by a pointer to Qt's class.
    void plainTexts()
    {
        forAll([](const Sibling &sibling) {
            Scene<QWidget> scene(sibling);
            QSignalSpy clicked(scene.widget, sibling.clicked);
            auto *button = qobject_cast<QAbstractButton *>(scene.widget);
            QCOMPARE(spokenName(scene.widget), kText);
            const auto altClicks = [&](Qt::Key key) {
                clicked.clear();
                QTest::keyClick(scene.field, key, Qt::AltModifier);
                QTest::qWait(0);
                return clicked.count() > 0 || (button && button->isDown());
            };
            QVERIFY(!altClicks(Qt::Key_A));
            if (auto *image = qobject_cast<CBPImageButton *>(button)) { // the first of three names
                image->SetText(QString(), true, 0);
                if (sibling.name == QLatin1String("image")) {
                    image->SetTipsTxt("tip");
                    QCOMPARE(spokenName(image), QString("tip"));
                    image->setToolTip("tool tip");
                    QCOMPARE(spokenName(image), QString("tool tip"));
                }
            }
            if (!button || qobject_cast<QCheckBox *>(button))
                return;
            button->setText("R&D");
            QVERIFY(!altClicks(Qt::Key_D));
            QVERIFY(button->shortcut().isEmpty());
            // A shortcut of the application's own, though it is the same.
            button->setShortcut(QKeySequence(Qt::ALT | Qt::Key_D));
            QVERIFY(altClicks(Qt::Key_D));
            // Without a text its tool tip says what it is.
            button->setText(QString());
            button->setToolTip("tip");
            if (!qobject_cast<CBPImageButton *>(button) && !qobject_cast<CBPWaitBtn *>(button))
                QCOMPARE(spokenName(button), QString("tip"));
        });
    }

    void focusRing()
    {
        QWidget elsewhere;
        elsewhere.setGeometry(900, 600, 200, 100);
        elsewhere.show();
        forAll([&](const Sibling &sibling) {
            Scene<QWidget> scene(sibling);
            QWidget *const widget = scene.widget;
            const auto ring = [&] { return !boxOf(pictureOf(scene.window), sibling.ring).isEmpty(); };
            QVERIFY(!ring());
            for (const Qt::FocusReason reason :
                 {Qt::OtherFocusReason, Qt::TabFocusReason, Qt::ShortcutFocusReason, Qt::MouseFocusReason}) {
                scene.field->setFocus();
                widget->setFocus(reason);
                const bool shown = reason != Qt::MouseFocusReason || (sibling.traits & MouseRing);
                QCOMPARE(ring(), shown);
                if (reason != Qt::TabFocusReason && reason != Qt::MouseFocusReason)
                    continue;
                elsewhere.activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&elsewhere, kPatience));
                QVERIFY(!ring());
                scene.window.activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&scene.window, kPatience));
                QCOMPARE(ring(), shown);
            }
            const QPair<Qt::Key, int> keys[] = {{Qt::Key_Space, ~0},
                                                {Qt::Key_Return, EnterElsewhere},
                                                {Qt::Key_Down, Opens},
                                                {Qt::Key_F4, Opens}};
            for (const auto &key : keys) {
                scene.field->setFocus();
                widget->setFocus(Qt::MouseFocusReason);
                QTest::keyClick(widget, key.first);
                QVERIFY(ring() || !(sibling.traits & key.second));
            }
            // None stays where no focus is.
            scene.field->setFocus();
            widget->setFocusPolicy(Qt::NoFocus);
            for (const char *events : {"press release leave", "press disable enable", "press hide leave"}) {
                perform(widget, events);
                QVERIFY2(!widget->hasFocus() && !ring(), events);
            }
            if (auto *push = qobject_cast<CBPPushBtn *>(widget)) {
                push->CBtnObj::setFocus(true); // marked by a dialog
                perform(widget, "press release leave");
                QVERIFY(push->IsFocus());
            }
        });
    }

    // One scene of what the size of a button brings: the same seen in a mirror, as far as words go; a ring
    // that is as thick at any scale, and nothing of the button below it or right beside it; and the size that
    // an application gave, which fonts leave alone.
    void shapes()
    {
        forAll([&](const Sibling &sibling) {
            Scene<QWidget> scene(sibling);
            QWidget *const widget = scene.widget;
            const bool sized = widget->minimumSize() == widget->maximumSize();
            const auto parts = [&] { return partsOf(pictureOf(*widget, 1)); };
            if (!(sibling.traits & (Stays | Circle))) {
                widget->setFixedWidth(widget->sizeHint().width() + 2); // some are too wide for the eye
                QCoreApplication::processEvents();
                const QVector<int> there = parts();
                widget->setLayoutDirection(Qt::RightToLeft);
                const QVector<int> here = parts();
                QVERIFY(!there.isEmpty() && here.size() == there.size());
                for (int i = 0; i < here.size(); ++i)
                    QVERIFY(qAbs(widget->width() - 1 - here[i] - there[there.size() - 1 - i]) <= 2);
            }
            if (!sized)
                widget->setFixedSize(180, 44); // whole at every ratio
            widget->setFocus(Qt::TabFocusReason);
            QCoreApplication::processEvents();
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                widget->setLayoutDirection(direction);
                for (const qreal ratio : {1.0, 1.25, 1.5, 1.75}) {
                    const QImage inside = pictureOf(*widget, ratio);
                    const bool outside = boxOf(inside, sibling.ring).isEmpty();
                    if (sibling.traits & Circle || (outside && ratio > 1))
                        continue;
                    checkRing(outside ? pictureOf(scene.window, 1) : inside, sibling.ring, int(2 * ratio));
                }
            }
            widget->setFixedSize(200, 40);
            scene.window.setStyleSheet("QWidget { font-size: 30px; }");
            QFont font(scene.window.font());
            font.setBold(true);
            scene.window.setFont(font);
            QCOMPARE(widget->size(), QSize(200, 40));
        });
    }

    // Also around what is scrolled to, inside where there is no outside, and whatever a style sheet says.
    void ringPlace()
    {
        for (const char *sheet : {"", "* { border: 1px solid red; max-height: 40px; }"}) {
            QScrollArea area;
            area.setWidget(new QWidget);
            area.widget()->setFixedSize(90, 900);
            area.setStyleSheet(sheet);
            showActive(area);
            for (const auto &[at, outside] :
                 {std::pair(QPoint(20, 800), 2 * lumqt::kRingMargin), {QPoint(), lumqt::kRingMargin}}) {
                CBPLinkerButton link(kText, ENLinkerTypeAlways, 1, area.widget());
                link.move(at);
                link.show();
                link.setFocus(Qt::TabFocusReason);
                area.ensureWidgetVisible(&link);
                QCOMPARE(boxOf(pictureOf(*area.viewport()), kRing).size(),
                         link.size() + QSize(outside, outside));
            }
            CBPLinkerButton window(kText);
            showActive(window);
            window.setFocus(Qt::TabFocusReason);
            QCOMPARE(boxOf(pictureOf(window), kRing), window.rect());
        }
    }

    // What befalls the button in a dialog; how often it clicks, and the trait that makes it one more. What it
    // does not take of Enter and Escape is the dialog's.
    void presses()
    {
        const std::tuple<const char *, int, Trait> rows[] = {
            {"space escape spaceup", 0, None},
            {"press escape release", 0, None},
            {"space escape spaceup press escape release press release space spaceup", 2, None},
            {"press escape right rightup", 0, RightClick}, // which is no release of the press
            {"press escape right rightup release", 0, RightClick},
            {"space escape spaceup right rightup", 0, RightClick},
            {"space away spaceup", 0, None},
            {"space hold spaceup", 1, None},
            {"press out", 0, ReleaseOutside},
            {"return", 0, EnterInDialog}};
        forAll([&](const Sibling &sibling) {
            if (sibling.traits & NoClicks)
                return;
            Scene<PatientDialog> scene(sibling);
            QSignalSpy clicked(scene.widget, sibling.clicked);
            QSignalSpy theirs(scene.ok, &QPushButton::clicked);
            for (const auto &[events, clicks, trait] : rows) {
                scene.widget->setFocus(Qt::TabFocusReason);
                perform(scene.widget, events,
                        {{"escape", [&] { QTest::keyClick(scene.widget, Qt::Key_Escape); }},
                         {"hold", [&] { repeat(scene.widget, Qt::Key_Space); }},
                         {"away", [&] { scene.field->setFocus(); }}});
                const bool own = sibling.traits & trait;
                QVERIFY2(clicked.count() == clicks + own, events);
                QVERIFY2(theirs.count() == int(trait == EnterInDialog && !own), events);
                QVERIFY2(scene.window.rejections == 0, events);
                QTest::keyClick(scene.widget, Qt::Key_Escape); // nothing is held now
                QVERIFY2(std::exchange(scene.window.rejections, 0) == 1, events);
                clicked.clear();
                theirs.clear();
            }
            scene.widget->setParent(nullptr); // out of the dialog
            showActive(*scene.widget);
            scene.widget->setFocus();
            QTest::keyClick(scene.widget, Qt::Key_Enter);
            repeat(scene.widget, Qt::Key_Enter);
            QCOMPARE(clicked.count(), sibling.traits & EnterElsewhere ? 1 : 0);
            delete scene.widget;
        });
    }

private:
    QTemporaryDir m_folder;
};

LUMQT_TEST_MAIN(TestSiblings)
#include "tst_siblings.moc"
