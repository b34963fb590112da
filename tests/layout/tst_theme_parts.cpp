#include "Acts.h"
#include "Await.h"
#include "CBPAnimationObj.h"
#include "CBPDateSelector.h"
#include "CBPDaySelector.h"
#include "CBPGradientProgressBar.h"
#include "CBPGridBox.h"
#include "CBPImage.h"
#include "CBPIPAddrEdit.h"
#include "CBPIPInputWidget.h"
#include "CBPJumpSlider.h"
#include "CBPLabel.h"
#include "CBPScrollBar.h"
#include "CBPSearchEdit.h"
#include "CBPSplitterHandle.h"
#include "CBPTextEdit.h"
#include "CFoucsLabel.h"
#include "CRoundedRectBase.h"
#include "foundation/Palette.h"
#include "foundation/QtCompat.h"
#include "Pixels.h"
#include "Rows.h"
#include "TestMain.h"

#include <QCalendarWidget>
#include <QMenu>
#include <QSplitter>
#include <QTextCharFormat>
#include <QToolButton>

using lumqt::Purpose;
using Make = QWidget *(*)();
using SetOwn = void (*)(QWidget *, const QColor &); // null: there is nothing to set
Q_DECLARE_METATYPE(Make)
Q_DECLARE_METATYPE(SetOwn)

namespace {

struct Rounded : CRoundedRectBase
{
    Rounded() : CRoundedRectBase(4, nullptr, true, true, true, true) {}
    void fill(QColor color) { m_brush = color; }
};

struct Box : CBPBox
{
    Box() { SetDrawFrame(true); }
};

struct Grid : CBPGridBox
{
    Grid() { PackStart(new QWidget); }
};

struct Handle : CBPSplitterHandle
{
    explicit Handle(QSplitter *splitter = new QSplitter) : CBPSplitterHandle(Qt::Horizontal, splitter)
    {
        setParent(nullptr);
        connect(this, &QObject::destroyed, splitter, &QObject::deleteLater);
    }
    void fill(QColor color) { setColr(Qt::NoPen, color); }
};

struct Bar : CBPScrollBar
{
    Bar() : CBPScrollBar(Qt::Horizontal) { setRange(0, 10); }
    void fillSlider(QColor color)
    {
        QVector<QColor> colors(4, color);
        SetSliderBg(colors);
    }
    void fill(QColor color) { SetBarBg(color); }
};

struct Slider : CBPJumpSlider
{
    Slider() : CBPJumpSlider(nullptr) { Init({QStringLiteral("a"), QStringLiteral("b")}); }
};

struct Heading : CFoucsLabel
{
    Heading() : CFoucsLabel(QStringLiteral("Heading"), 0, 4, QString(), nullptr) { SetFocus(true); }
    void fill(QColor color) { SetColor(color, color); }
};

QString s_text = QStringLiteral("HHH");

struct Label : CBPLabel
{
    Label() : CBPLabel(s_text, 40) {}
};

struct Days : CBPDaySelector
{
    Days(QStringList names = {s_text, s_text}) : CBPDaySelector(names, s_text, s_text, nullptr)
    {
        SetSelected({s_text});
    }
};

struct Field : CBPLineEdit
{
    void fill(QColor color)
    {
        QPalette own = palette();
        own.setColor(QPalette::Base, color);
        setPalette(own);
    }
};

template <class Widget> QWidget *make()
{
    if constexpr (std::is_constructible_v<Widget>)
        return new Widget;
    else
        return new Widget(nullptr);
}

template <class Widget> QWidget *makeDisabled()
{
    QWidget *widget = make<Widget>();
    widget->setEnabled(false);
    return widget;
}

template <class Widget, class Color>
void set(void (Widget::*setter)(Color), QWidget *widget, const QColor &color)
{
    (static_cast<Widget *>(widget)->*setter)(color);
}

template <auto setter> void setOwn(QWidget *widget, const QColor &color)
{
    set(setter, widget, color);
}

// How many of the pixels of `before` that have the colour `from`, have `to` in `after`, and how many others.
QPair<int, int> changed(const QImage &before, const QColor &from, const QImage &after, const QColor &to)
{
    QPair<int, int> counts(0, 0);
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixelColor(x, y) == from)
                ++(after.pixelColor(x, y) == to ? counts.first : counts.second);
        }
    }
    return counts;
}

} // namespace

class TestThemeParts : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { CBPTheme::apply(QStringLiteral("light")); }

    void partsFollowTheThemeUntilTheyAreSet_data()
    {
        columns<Make, Purpose, SetOwn>("made", "purpose", "own");
        const auto part = [](const char *name, Make made, Purpose purpose, SetOwn own = nullptr) {
            row(name, made, purpose, own);
        };
        part("box's frame", make<Box>, Purpose::BoxFrame, setOwn<&CBPBox::SetFrameClr>);
        part("box's ground", make<Box>, Purpose::BoxGround, setOwn<&CBPBox::SetBgClr>);
        part("grid's lines", make<Grid>, Purpose::GridLine, setOwn<&CBPBox::SetFrameClr>);
        part("plain widget", make<CBPWidget>, Purpose::PanelGround, setOwn<&CBPWidget::setBrush>);
        part("rounded widget", make<Rounded>, Purpose::RoundedGround, setOwn<&Rounded::fill>);
        part("splitter", make<Handle>, Purpose::SplitterGround, setOwn<&Handle::fill>);
        part("scroll bar's slider", make<Bar>, Purpose::ScrollSlider, setOwn<&Bar::fillSlider>);
        part("scroll bar's page", make<Bar>, Purpose::ScrollPage);
        part("scroll bar's ground", make<Bar>, Purpose::ScrollGround, setOwn<&Bar::fill>);
        part("slider's track", make<Slider>, Purpose::SliderTrack);
        part("slider's handle", make<Slider>, Purpose::SliderHandle);
        part("heading's bar", make<Heading>, Purpose::HeadingFocused, setOwn<&Heading::fill>);
        part("label", make<Label>, Purpose::LabelText, setOwn<&CBPLabel::SetTextColor>);
        part("disabled chosen day", makeDisabled<Days>, Purpose::ChoiceMark);
        part("address", make<CBPIPInputWidget>, Purpose::Field);
        part("disabled address", makeDisabled<CBPIPInputWidget>, Purpose::AddressFrameDisabled);
        part("line edit", make<Field>, Purpose::Field, setOwn<&Field::fill>);
        part("search edit", make<CBPSearchEdit>, Purpose::Field);
        part("text edit", make<CBPTextEdit>, Purpose::Field);
    }

    // Also where what is set is what the light theme has.
    void partsFollowTheThemeUntilTheyAreSet()
    {
        QFETCH(Make, made);
        QFETCH(Purpose, purpose);
        QFETCH(SetOwn, own);
        const std::unique_ptr<QWidget> part(made());
        part->resize(160, 60);
        part->show();
        const QColor light = lumqt::builtInColor(purpose);
        const QImage before = part->grab().toImage();
        CBPTheme::apply(QStringLiteral("dark"));
        QVERIFY(CBPTheme::color(purpose) != light);
        const auto counts = changed(before, light, part->grab().toImage(), CBPTheme::color(purpose));
        QVERIFY2(counts.first > 40 * counts.second,
                 qPrintable(QStringLiteral("%1 of %2").arg(counts.first).arg(counts.second)));
        CBPTheme::apply(QStringLiteral("light"));
        QCOMPARE(part->grab().toImage(), before);
        if (!own)
            return;
        own(part.get(), light);
        CBPTheme::apply(QStringLiteral("dark"));
        const auto kept = changed(before, light, part->grab().toImage(), light);
        QVERIFY(kept.first > 40 * kept.second);
    }

    // Of three colours that are not those of the constructor's declaration none is replaced.
    void coloursOfAProgressBarAreSetTogether()
    {
        const QColor second = lumqt::builtInColor(Purpose::ProgressSecond);
        CBPGradientProgressBar plain;
        CBPGradientProgressBar own(Qt::red, second);
        CBPTheme::apply(QStringLiteral("contrast"));
        const auto middle = [](CBPGradientProgressBar &bar) { // of the highlight
            bar.resize(200, bar.height());
            bar.setValue(0.9);
            return grabbedAt(bar, 50, 4);
        };
        QVERIFY(qAbs(middle(own).red() - second.red()) < 8);
        QVERIFY(qAbs(middle(plain).red() - CBPTheme::color(Purpose::ProgressSecond).red()) < 8);
    }

    void whatLightNeedsNot()
    {
        CBPGradientProgressBar bar;
        CFoucsLabel heading(s_text, 0, 4, QString(), nullptr);
        for (QWidget *widget : std::initializer_list<QWidget *>{&bar, &heading})
            widget->resize(200, bar.height());
        heading.setAttribute(Qt::WA_UnderMouse);
        bar.setValue(0.5);
        const QColor light = grabbedAt(bar, 150, 0);
        CBPTheme::apply(QStringLiteral("contrast"));
        QCOMPARE(grabbedAt(bar, 150, 0), CBPTheme::color(Purpose::ProgressFrame));
        QCOMPARE(grabbedAt(bar, 150, 3), CBPTheme::color(Purpose::ProgressTrack));
        QCOMPARE(grabbedAt(heading, 150, 3), CBPTheme::color(Purpose::Hovered));
        CBPTheme::apply(QStringLiteral("light"));
        QCOMPARE(grabbedAt(bar, 150, 0), light);
    }

    void links()
    {
        CBPLabel label(QStringLiteral("<a href='x'>%1</a>").arg(s_text), 40);
        const auto has = [&label](const QColor &color) {
            return !boxOf(label.grab().toImage(), color).isEmpty();
        };
        label.show();
        const QImage before = label.grab().toImage();
        CBPTheme::apply(QStringLiteral("dark"));
        QVERIFY(has(CBPTheme::color(Purpose::Link)));
        label.setText(s_text);
        QVERIFY(!has(CBPTheme::color(Purpose::Link)));
        label.setText(
            QStringLiteral("<a href='x'>%1</a><a href='y' style='color:#ff0000'>%1</a>").arg(s_text));
        label.adjustSize();
        QVERIFY(has(CBPTheme::color(Purpose::Link)) && has(Qt::red));
        label.setText(QStringLiteral("<a href='x'>%1</a>").arg(s_text));
        CBPTheme::apply(QStringLiteral("light"));
        label.resize(before.size());
        QCOMPARE(label.grab().toImage(), before);
        QCOMPARE(label.textFormat(), Qt::AutoText);
    }

    void fieldsWearTheThemeInTheirPalettes()
    {
        CBPLineEdit edit;
        const QPalette before = edit.palette();
        CBPTheme::apply(QStringLiteral("dark"));
        QCOMPARE(edit.palette().color(QPalette::Text), CBPTheme::color(Purpose::Text));
        QCOMPARE(edit.palette().color(QPalette::Disabled, QPalette::Text),
                 CBPTheme::color(Purpose::DisabledText));
        CBPTheme::apply(QStringLiteral("light"));
        QCOMPARE(edit.palette(), before);
        QCOMPARE(lumqt::marksOf(edit.palette()), lumqt::marksOf(before));
    }

    // An application may add to it in one theme and find it again in another.
    void sheetOfAnOctetHasTheThemesPartAlone()
    {
        CBPIPAddrEdit edit(nullptr);
        const QString sheet = edit.styleSheet();
        const QString added = QStringLiteral("QLineEdit{color:red;}");
        for (const char *theme : {"dark", "light"}) {
            CBPTheme::apply(QLatin1String(theme));
            edit.setStyleSheet(edit.styleSheet() + added);
        }
        QCOMPARE(edit.styleSheet(), sheet + added + added);
        CBPTheme::apply(QStringLiteral("contrast"));
        QVERIFY(grabbedAt(edit, 2, 2) == CBPTheme::color(Purpose::Field));
    }

    // Applications compare the field's sheet and replace parts of it.
    void buttonsOfASearchFieldFollowButForASheetOfTheApplication()
    {
        CBPSearchEdit edit(nullptr);
        auto *button = edit.findChild<QToolButton *>(QStringLiteral("btnSearch"));
        const QString sheet = edit.styleSheet();
        const QString lights = button->styleSheet();
        CBPTheme::apply(QStringLiteral("dark"));
        QCOMPARE(edit.styleSheet(), sheet);
        QVERIFY(button->styleSheet().contains(QStringLiteral("url(../res/dark/search_icon.png)")));
        edit.setStyleSheet(
            QString(sheet).replace(QStringLiteral("search_icon"), QStringLiteral("icon_user")));
        edit.show();
        QCOMPARE(button->styleSheet(), lights);
        edit.setStyleSheet(sheet);
        QVERIFY(button->styleSheet() != lights);
        CBPTheme::apply(QStringLiteral("light"));
        QCOMPARE(button->styleSheet(), lights);
    }

    void openCalendarChangesAtOnce()
    {
        CBPDateSelector selector(nullptr);
        selector.show();
        QVERIFY(QMetaObject::invokeMethod(&selector, "OnCalendarBtn", Q_ARG(int, 255)));
        auto *calendar = selector.findChild<QCalendarWidget *>();
        auto *menu = calendar->findChild<QMenu *>();
        auto *next = calendar->findChild<QToolButton *>(QStringLiteral("qt_calendar_nextmonth"));
        QTextCharFormat own;
        own.setForeground(lumqt::builtInColor(Purpose::CalendarWeekend));
        calendar->setWeekdayTextFormat(Qt::Sunday, own);
        const QImage before = calendar->grab().toImage();
        const QImage arrow = next->icon().pixmap(16).toImage();
        CBPTheme::apply(QStringLiteral("dark"));
        const auto ground =
            changed(before, Qt::white, calendar->grab().toImage(), CBPTheme::color(Purpose::CalendarGround));
        QVERIFY(ground.first > 1000);
        QVERIFY2(ground.second < ground.first / 100,
                 "but for what is white of the arrows and the chosen day");
        QCOMPARE(calendar->weekdayTextFormat(Qt::Saturday).foreground().color(),
                 CBPTheme::color(Purpose::CalendarWeekend));
        QCOMPARE(calendar->weekdayTextFormat(Qt::Sunday).foreground(), own.foreground());
        QCOMPARE(calendar->headerTextFormat().foreground().color(),
                 CBPTheme::color(Purpose::CalendarQuietText));
        QCOMPARE(menu->palette().color(QPalette::Text), CBPTheme::color(Purpose::CalendarText));
        QVERIFY(next->icon().pixmap(16).toImage() != arrow);
        CBPTheme::apply(QStringLiteral("light"));
        QCOMPARE(calendar->grab().toImage(), before);
        QPalette same = calendar->palette();
        same.setColor(QPalette::Base, lumqt::builtInColor(Purpose::CalendarGround));
        calendar->setPalette(same);
        CBPTheme::apply(QStringLiteral("dark"));
        QCOMPARE(calendar->palette().color(QPalette::Base), lumqt::builtInColor(Purpose::CalendarGround));
        QCOMPARE(calendar->palette().color(QPalette::Window), CBPTheme::color(Purpose::CalendarGround));
    }

    void keptPicturesAreTheThemes()
    {
        CBPImage image("../res/search_icon.png");
        CBPImage own("../res/search_icon.png");
        QPixmap set(8, 8);
        set.fill(Qt::red);
        own.setPixmap(set);
        CBPAnimationObj frames(QStringList{QStringLiteral("../res/search_icon.png")});
        frames.setInterval(1);
        frames.setDelayInterval(-1);
        frames.start();
        AWAIT(frames.curentIndex() == 0);
        frames.stop();
        const auto pictures = [&] {
            image.grab();
            own.grab();
            return QList<QImage>{image.pixmap(Qt::ReturnByValue).toImage(), frames.currentPixmap().toImage()};
        };
        const QList<QImage> before = pictures();
        CBPTheme::apply(QStringLiteral("dark"));
        const QList<QImage> after = pictures();
        for (int i = 0; i < before.size(); ++i) {
            QVERIFY(after[i] != before[i]);
            QCOMPARE(after[i].size(), before[i].size());
        }
        QCOMPARE(own.pixmap(Qt::ReturnByValue).cacheKey(), set.cacheKey());
        image.show();
        QVERIFY(QTest::qWaitForWindowExposed(&image));
        QTest::qWait(50);
        const EventCounter repaints(&image, {QEvent::Paint});
        CBPTheme::apply(QStringLiteral("light"));
        QTest::qWait(50);
        QCOMPARE(repaints.count, 1);
        QCOMPARE(pictures(), before);
    }
};

LUMQT_TEST_MAIN(TestThemeParts)
#include "tst_theme_parts.moc"
