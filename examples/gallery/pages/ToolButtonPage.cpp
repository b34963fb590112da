#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "CBPToolButton.h"

#include <QPainter>

namespace {

using theme::Purpose;

constexpr int kBesideHeight = 36;
constexpr int kBelowHeight = 64;

QVector<QString> images(const char *pattern)
{
    QVector<QString> files;
    for (const char *state : {"normal", "hover", "press", "disable"})
        files << theme::picturePath(QString(pattern).arg(state));
    return files;
}

CBPToolButton *tool(const QString &text, ENAlign align, int id = 0)
{
    QVector<QString> files = images("list_%1.png");
    auto *button = new CBPToolButton(files, text, id, align, true);
    button->setFixedHeight(align == ENAlignLeft ? kBesideHeight : kBelowHeight);
    theme::follow(button, [button] {
        constexpr theme::Tone rest{0xff0e73ad, Purpose::ToolText}, pressed{0xff095c8c, Purpose::ToolText};
        button->SetTextColor(theme::colorsOf({rest, rest, pressed, theme::kFaint}));
    });
    return button;
}

CBPToolButton *withMenu(const QString &text, ENAlign align, int id = 0)
{
    CBPToolButton *button = tool(text, align, id);
    button->AppendMenuItem(theme::picturePath("Common/ico_onlinesupport_normal.svg"), "Support", 21);
    button->AppendMenuItem(theme::picturePath("Common/gift_normal.svg"), "Offers", 22);
    auto *more = new CBPMenu("More", button);
    more->AddAction("Archive", 31);
    more->AddAction("Print", 32);
    button->AppendSubMenu(more);
    button->GetMenu()->SetDefIconWidth(32);
    button->GetMenu()->SetSubMenuRightIcon(":/gallery/nested.svg");
    return button;
}

CBPToolButton *rounded(CBPToolButton *button)
{
    button->SetRoundRadius(4, 4);
    return button;
}

CBPToolButton *live(EventLog *log, CBPToolButton *button)
{
    QObject::connect(button, &CBPToolButton::sigClick, log,
                     [log](int id) { log->add(QString("sigClick(%1)").arg(id)); });
    QObject::connect(button, &CBPToolButton::sigActionTriggered, log, [log](CBPMenuItem *item) {
        log->add(QString("sigActionTriggered(\"%1\", %2)").arg(item->text(), item->data().toString()));
    });
    return button;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it", "Mouse, Tab, Space and Enter work here; Down opens a menu. Every signal appears below.");
    auto *log = new EventLog("No signal yet: click a button.");
    CBPToolButton *hand = live(log, tool("Hand", ENAlignLeft, 2));
    hand->SetChgCursor(true);
    CBPToolButton *off = live(log, tool("Disabled", ENAlignLeft, 4));
    off->SetEnabled(false);
    section->addSamples({{"Id 1", live(log, tool("List", ENAlignLeft, 1))},
                         {"Open hand, id 2", hand},
                         {"Opens a menu", live(log, withMenu("Menu", ENAlignLeft, 3))},
                         {"Disabled, id 4", off},
                         {"Below, id 5", live(log, tool("List", ENAlignTop, 5))},
                         {"Below, with a menu", live(log, withMenu("Menu", ENAlignTop, 6))}});
    section->addWide(log);
}

using Maker = CBPToolButton *(*)();

SampleRow statesOf(const QString &caption, Maker make)
{
    SampleRow row{caption, {}};
    for (const pose::State state :
         {pose::Normal, pose::Hovered, pose::Pressed, pose::Focused, pose::Disabled})
        row.widgets << pose::in(state, make());
    return row;
}

void addStates(Page *page)
{
    Section *section = page->addSection(
        "States", "The pressed look stays until the mouse leaves; this is intended. The keyboard focus shows "
                  "the hover colours and a ring. A selected button shows the hover colours in every state.");
    section->addTable({"Normal", "Hovered", "Pressed", "Focused", "Disabled"},
                      {statesOf("Beside", [] { return tool("List", ENAlignLeft); }),
                       statesOf("Round corners", [] { return rounded(tool("List", ENAlignLeft)); }),
                       statesOf("With a menu", [] { return withMenu("List", ENAlignLeft); }),
                       statesOf("Selected",
                                [] {
                                    CBPToolButton *button = tool("List", ENAlignLeft);
                                    button->SetSelected(true);
                                    return button;
                                }),
                       statesOf("Without a frame",
                                [] {
                                    CBPToolButton *button = tool("List", ENAlignLeft);
                                    button->SetFrmTrancent(true);
                                    return button;
                                }),
                       statesOf("Below", [] { return rounded(tool("List", ENAlignTop)); }),
                       statesOf("Below, with a menu", [] { return rounded(withMenu("List", ENAlignTop)); })});
}

CBPToolButton *framed(CBPToolButton *button)
{
    theme::follow(button, [button] {
        button->SetFrmColor(QVector<QColor>(4, theme::Tone(0xffbee0e2, Purpose::Frame)));
    });
    return button;
}

void addSizes(Page *page)
{
    Section *section = page->addSection(
        "Image, text and width",
        "The width follows from borders, image, spacing and text. The height is yours to set.");
    const auto sample = [](int border, int spacing) {
        CBPToolButton *button = framed(tool("List", ENAlignLeft));
        button->SetHorBorder(border, border);
        button->SetSpacing(spacing);
        return button;
    };
    auto *words = framed(new CBPToolButton("Text alone", 0, ENAlignLeft, true));
    words->SetSpacing(11);     // a text without an image starts at the spacing less one pixel,
    words->SetHorBorder(0, 9); // whatever the border
    words->setFixedHeight(kBesideHeight);
    CBPToolButton *large = framed(tool("Larger font", ENAlignLeft));
    large->SetTextFont(theme::font(theme::Semibold, 18).family(), 18);
    large->SetText("Larger font"); // sizes
    CBPToolButton *arrow = framed(withMenu("Arrow 10 x 6", ENAlignLeft));
    arrow->SetArrowSize(10, 6);
    CBPToolButton *wordless = framed(tool(QString(), ENAlignLeft));
    wordless->setToolTip("List"); // its name for screen readers, too
    CBPToolButton *below = framed(tool("A wide text", ENAlignTop));
    section->addColumns(4, {{"Borders 10, spacing 5", sample(10, 5)},
                            {"Borders 4", sample(4, 5)},
                            {"Spacing 12", sample(10, 12)},
                            {"No text", wordless},
                            {"No image", words},
                            {"Own font", large},
                            {"Own triangle", arrow},
                            {"Text wider than image", below}});
}

// What an application derives from the widget of states.
class Swatch : public CBPStateWidget
{
public:
    explicit Swatch(double radius)
    {
        setFixedSize(112, 56);
        SetRoundRadius(radius, radius);
        theme::follow(this, [this] {
            constexpr theme::Tone frame{0xffbec8d4, Purpose::Frame}, ground{0xfffafcfd, Purpose::RaisedGround};
            constexpr theme::Tone frameOff{0xffdde2e7, Purpose::FrameDisabled};
            SetFrmColor(theme::colorsOf({frame, theme::kAccent, theme::kAccentPressed, frameOff}));
            SetBgColor(
                theme::colorsOf({ground, theme::kAccentTint, theme::kAccentTintDeep, theme::kPanel}));
        });
    }

    void OnExpose() override
    {
        static const char *const names[] = {"Normal", "Hover", "Pressed", "Disabled"};
        QPainter painter(this);
        painter.setFont(theme::font(theme::Normal, 14));
        painter.setPen(isEnabled() ? theme::kText : theme::kCaption);
        painter.drawText(rect(), Qt::AlignCenter, QLatin1String(names[state()]));
    }
};

void addStateWidget(Page *page)
{
    Section *section = page->addSection(
        "The widget it is based on",
        "CBPStateWidget follows mouse and focus and paints ground and frame; what is derived from it adds "
        "the content. The first one is live.");
    section->addSamples({{"Live", new Swatch(6)},
                         {"Hovered", pose::in(pose::Hovered, new Swatch(6))},
                         {"Pressed, square", pose::in(pose::Pressed, new Swatch(0))},
                         {"Radius 28", pose::in(pose::Normal, new Swatch(28))},
                         {"Disabled", pose::in(pose::Disabled, new Swatch(6))}});
}

Page *makePage()
{
    auto *page = new Page("Tool button", "CBPToolButton has an image for each state, a text beside or below "
                                         "it, an id and, if wanted, a drop-down menu.");
    addLiveSamples(page);
    addStates(page);
    addSizes(page);
    addStateWidget(page);
    return page;
}

void registerThis()
{
    registerPage({"tool-button", "Tool button", PageGroup::Buttons, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
