#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPImageButton.h"

#include <QLinearGradient>

namespace {

constexpr int kHeight = 40;

using Purpose = theme::Purpose;

QVector<QColor> grounds()
{
    constexpr theme::Tone rest{0xfff3f7fc, Purpose::RaisedGround, Purpose::Hovered, 70};
    constexpr theme::Tone off{0xfff2f4f6, Purpose::FieldDisabled, Purpose::Hovered, 40};
    return theme::colorsOf({rest, theme::kAccentTint, theme::kAccentTintDeep, off});
}

QVector<QColor> frames()
{
    constexpr theme::Tone rest{0xffbed3e8, Purpose::Frame}, off{0xffdde2e7, Purpose::FrameDisabled};
    return theme::colorsOf({rest, theme::kAccent, theme::kAccentPressed, off});
}

QVector<QColor> texts()
{
    return theme::colorsOf({theme::kInk, theme::kInk, theme::kInk, theme::kFaint});
}

void fill(CBPImageButton *button)
{
    theme::follow(button, [button] { button->SetBkgColors(grounds()); });
}

void frame(CBPImageButton *button)
{
    theme::follow(button, [button] { button->SetBorderColor(frames()); });
}

// Sizes the button, and leaves the size alone from then on.
void addText(CBPImageButton *button, const QString &text, bool beside, int spacing, int margin)
{
    const auto set = [=] {
        button->SetText(text, theme::font(theme::Normal, 14), texts(), beside, spacing, margin);
    };
    set();
    QObject::connect(CBPTheme::instance(), &CBPTheme::changed, button, [button, set] {
        const QSize least = button->minimumSize();
        const QSize most = button->maximumSize();
        set();
        button->setMinimumSize(least);
        button->setMaximumSize(most);
    });
}

// "list_%1.png": one file for each of the four states.
QVector<QString> images(const char *pattern)
{
    QVector<QString> files;
    for (const char *state : {"normal", "hover", "press", "disable"})
        files << theme::picturePath(QString(pattern).arg(state));
    return files;
}

// An icon alone, in a square of its own.
CBPImageButton *icon(const char *pattern, int id = 0)
{
    auto *button = new CBPImageButton(images(pattern), false, id);
    const int image = button->GetSize().width(); // some are wider than the square
    const int width = qMax(kHeight, image);
    button->SetBorder((width - image) / 2, false);
    button->setFixedSize(width, kHeight);
    button->setAccessibleName("Sample"); // unless a tip says more
    return button;
}

CBPImageButton *labelled(const QString &text, bool round = false, int spacing = 8, int margin = 8)
{
    auto *button = new CBPImageButton(images("list_%1.png"), round, 0);
    addText(button, text, true, spacing, margin);
    button->setFixedSize(button->GetSize().width() + 8, kHeight);
    return button;
}

CBPImageButton *filled(const QString &text, bool round = false)
{
    CBPImageButton *button = labelled(text, round);
    fill(button);
    return button;
}

using Maker = CBPImageButton *(*)();

CBPImageButton *selected(CBPImageButton *button)
{
    button->SetSelect(true);
    return button;
}

SampleRow statesOf(const QString &caption, Maker make)
{
    return {caption,
            {pose::in(pose::Normal, make()), pose::in(pose::Hovered, make()), pose::in(pose::Pressed, make()),
             pose::in(pose::Focused, make()), pose::in(pose::Disabled, make()),
             pose::in(pose::Normal, selected(make()))}};
}

CBPImageButton *rounded()
{
    CBPImageButton *button = filled("List");
    button->SetBorderRadius(4);
    return button;
}

CBPImageButton *framed()
{
    CBPImageButton *button = rounded();
    frame(button);
    return button;
}

CBPImageButton *round()
{
    // Round ends add to the width: the table has room for less between image and text.
    CBPImageButton *button = labelled("List", true, 4, 0);
    fill(button);
    button->setFixedSize(92, kHeight);
    return button;
}

void addStates(Page *page)
{
    Section *section =
        page->addSection("States", "An image file per state, and a colour per state for text, ground and "
                                   "frame. Only the keyboard shows the focus ring.");
    section->addTable({"Normal", "Hovered", "Pressed", "Focused", "Disabled", "Selected"},
                      {statesOf("Image alone", [] { return icon("list_%1.png"); }),
                       statesOf("With a text", [] { return labelled("List"); }),
                       statesOf("On a ground", [] { return filled("List"); }),
                       statesOf("Corner radius 4", rounded), statesOf("And a frame", framed),
                       statesOf("Round", round)});
}

CBPImageButton *live(EventLog *log, CBPImageButton *button, const QString &tip)
{
    button->SetTipsTxt(tip);
    button->setAccessibleName(QString());
    QObject::connect(button, &CBPImageButton::btn_released, log,
                     [log](int id) { log->add(QString("btn_released(%1)").arg(id)); });
    QObject::connect(button, &QAbstractButton::clicked, log, [log] { log->add("clicked(), by keyboard"); });
    return button;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection("Try it", "Rest the mouse on a button for its tip. A click reports "
                                                  "btn_released() and not clicked(); Space reports both.");
    auto *log = new EventLog("No signal yet: press a button.");
    CBPImageButton *off = live(log, icon("close_%1.png", 4), "Never shown");
    off->setEnabled(false);
    section->addSamples({{"Id 1", live(log, icon("list_%1.png", 1), "Show as a list")},
                         {"Id 2", live(log, icon("minimize_%1.png", 2), "Minimise")},
                         {"Id 3", live(log, icon("maximize_%1.png", 3), "<b>Maximize</b>, in rich text")},
                         {"Disabled, id 4", off}});
    section->addWide(log);
}

CBPImageButton *below(int spacing)
{
    auto *button = new CBPImageButton(images("list_%1.png"), false, 0);
    fill(button);
    button->SetBorder(0, false);
    addText(button, "List", false, spacing, 0);
    // The image stays centred in the whole height: lifted by half of what the text takes.
    button->SetIconVoffset(-(button->GetSize().height() - 28) / 2);
    return button;
}

void addTexts(Page *page)
{
    Section *section = page->addSection(
        "Image and text",
        "The border lies at either side, the spacing between image and text, and the margin before the "
        "image. A text below the image begins at the left edge; it is drawn so on purpose.");
    const auto sample = [](int spacing, int margin, int border) {
        auto *button = new CBPImageButton(images("list_%1.png"), false, 0);
        fill(button);
        button->SetBorder(border, false);
        addText(button, "List", true, spacing, margin);
        return button;
    };
    CBPImageButton *tall = sample(8, 0, 8);
    tall->SetHight(kHeight);
    CBPImageButton *lowered = sample(8, 0, 8);
    lowered->SetHight(kHeight);
    lowered->SetIconVoffset(4);
    section->addColumns(4, {{"Beside, as made", sample(0, 0, 5)},
                            {"Spacing 8", sample(8, 0, 5)},
                            {"Margin 16", sample(8, 16, 5)},
                            {"Border 16", sample(8, 0, 16)},
                            {"Text height 40", tall},
                            {"Image 4 pixels lower", lowered},
                            {"Below, image lifted", below(4)},
                            {"Below, spacing 12", below(12)}});
}

void addExtras(Page *page)
{
    Section *section = page->addSection("Grounds and marks",
                                        "A brush takes precedence over a colour. The dot marks what is new.");
    CBPImageButton *brushed = labelled("Gradient");
    theme::follow(brushed, [brushed] {
        constexpr theme::Tone top{0xfff8fbfd, Purpose::RaisedGround};
        QLinearGradient gradient(0, 0, 0, kHeight);
        gradient.setColorAt(0, top);
        gradient.setColorAt(1, theme::kAccentTintDeep);
        brushed->SetBkgBrush(QVector<QBrush>(4, QBrush(gradient)));
    });
    brushed->SetBorderRadius(4);
    frame(brushed);
    CBPImageButton *capsule = filled("Capsule", true);
    frame(capsule);
    CBPImageButton *red = icon("list_%1.png");
    red->SetSpecialIcon(true, QColor(224, 72, 72));
    CBPImageButton *green = rounded();
    theme::follow(green, [green] { green->SetSpecialIcon(true, theme::kAccent); });
    CBPImageButton *three = filled("Three images");
    QVector<QString> tooFew = images("list_%1.png").mid(0, 3);
    three->SetImgButtonRes(tooFew);
    section->addSamples({{"Brushes and a frame", brushed},
                         {"Round, framed", capsule},
                         {"A red dot", red},
                         {"A dot of your colour", green},
                         {"With three images none is drawn", three}});
    const auto more = [](pose::State state) { return pose::in(state, icon("Common/ico_more_%1.svg")); };
    section->addWide(onGround(
        theme::kSide,
        QVector<Sample>{{"At rest", more(pose::Normal)},
                        {"Hovered", more(pose::Hovered)},
                        {"Pressed", more(pose::Pressed)},
                        {"Focused", more(pose::Focused)},
                        {"Disabled", more(pose::Disabled)},
                        {"A picture of 48 by 32", pose::in(pose::Normal, icon("Common/back_%1.png"))}}));
}

Page *makePage()
{
    auto *page = new Page("Image button", "CBPImageButton has an image for each state and, if wanted, a "
                                          "text, a ground, a frame, a dot and a tip.");
    addLiveSamples(page);
    addStates(page);
    addTexts(page);
    addExtras(page);
    return page;
}

void registerThis()
{
    registerPage({"image-button", "Image button", PageGroup::Buttons, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
