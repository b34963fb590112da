#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPGradientProgressBar.h"
#include "CBPPushBtn.h"

#include <QApplication>
#include <QLabel>
#include <QVariant>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 240;
constexpr int kButtonWidth = 96;
constexpr theme::Tone kPanelGround{0xffe3e8ee, theme::Purpose::RaisedGround};
constexpr theme::Tone kDarkGround{0xff222a3e, theme::Purpose::RaisedGround};
constexpr theme::Tone kLightGround{0xffe3e8ee, theme::Purpose::Field};
constexpr theme::Tone kAccentGround{0xff1f71bf, theme::Purpose::Ground, theme::Purpose::Accent, 20};

CBPGradientProgressBar *bar(int width = kWidth)
{
    auto *result = new CBPGradientProgressBar;
    result->setFixedWidth(width);
    return result;
}

CBPGradientProgressBar *at(int percent, int width = kWidth)
{
    CBPGradientProgressBar *result = bar(width);
    result->setValue(percent);
    return result;
}

// The picture of a bar whose highlight is `steps` of a fiftieth of a second on its way.
QWidget *swept(const QColor &highlight, int steps)
{
    return pose::shown([=] {
        CBPGradientProgressBar moving(QColor(75, 174, 179), highlight);
        moving.resize(kWidth, moving.height());
        moving.setValue(80);
        for (int i = 0; i < steps; ++i)
            moving.slotGradientTimerOut();
        const qreal ratio = qApp->devicePixelRatio();
        QPixmap picture(moving.size() * ratio);
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::transparent);
        moving.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
        return picture;
    });
}

CBPPushBtn *button(const QString &text)
{
    auto *result = new CBPPushBtn(text, nullptr);
    result->setFixedWidth(kButtonWidth);
    return result;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it",
        "On its way up the bar follows a pixel at a time, faster after large steps than after small ones; on "
        "its way down it jumps. When it is full it stands still and costs nothing.");
    auto *progress = new CBPGradientProgressBar;
    progress->setAccessibleName("Progress");
    auto *percent = theme::label(QString(), theme::Normal, 14, theme::kText);
    const auto tell = [progress, percent](int value) {
        progress->setValue(value);
        percent->setText(QString("setValue(%1)").arg(value));
        percent->setProperty("percent", value);
    };
    tell(30);
    const auto step = [tell, percent](const QString &text, int by) {
        CBPPushBtn *result = button(text);
        QObject::connect(result, &CBPPushBtn::sigBtnClicked, percent, [tell, percent, by] {
            tell(qBound(0, percent->property("percent").toInt() + by, 100));
        });
        return result;
    };
    QWidget *ground = theme::ground(kPanelGround);
    auto *layout = new QVBoxLayout(ground);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addWidget(progress);
    section->addWide(ground);
    section->addSamples({{QString(), step("1 % more", 1)},
                         {QString(), step("10 % more", 10)},
                         {QString(), step("10 % less", -10)},
                         {QString(), step("Full", 100)},
                         {QString(), step("Start again", -100)},
                         {QString(), percent}});
}

void addValues(Page *page)
{
    Section *section = page->addSection("Values", "The first value shows at once. Below one per cent the bar "
                                                  "shows one per cent, and 99.99 count as full.");
    section->addWide(
        onGround(kDarkGround, {{"No value yet", bar()}, {"0, shown as 1 %", at(0)}, {"25 %", at(25)}}));
    section->addWide(
        onGround(kDarkGround, {{"50 %", at(50)}, {"99 %", at(99)}, {"100 %, at rest", at(100)}}));
}

void addHighlights(Page *page)
{
    Section *section = page->addSection(
        "Highlight", "It sweeps along the filled part until the bar is full, with a pause in "
                     "between. The second colour of the constructor is that of the highlight.");
    const QColor builtIn(88, 205, 210);
    section->addWide(onGround(kDarkGround, {{"On its way", swept(builtIn, 6)},
                                            {"Leaving", swept(builtIn, 16)},
                                            {"The pause", swept(builtIn, 24)}}));
    section->addWide(onGround(kDarkGround, {{"White", swept(Qt::white, 6)},
                                            {"Dark blue", swept(QColor(20, 90, 160), 6)},
                                            {"None: an invalid colour", swept(QColor(), 6)}}));
}

void addSizes(Page *page)
{
    Section *section = page->addSection(
        "Widths and grounds",
        "The track is white, so it needs a ground that is not. A resized bar keeps its share.");
    section->addWide(
        onGround(kDarkGround, {{"40 %, 400 wide", at(40, 400)}, {"120", at(40, 120)}, {"24", at(40, 24)}}));
    section->addWide(onGround(kLightGround, QVector<QWidget *>{at(60), at(100)}));
    section->addWide(onGround(kAccentGround, QVector<QWidget *>{at(60), at(100)}));
}

Page *makePage()
{
    auto *page =
        new Page("Progress bar", "CBPGradientProgressBar: 8 pixels high, filled with a gradient, never "
                                 "jumping ahead.");
    addLiveSamples(page);
    addValues(page);
    addHighlights(page);
    addSizes(page);
    return page;
}

void registerThis()
{
    registerPage({"progress-bar", "Progress bar", PageGroup::Displays, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
