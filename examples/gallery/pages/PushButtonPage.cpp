#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "CBPPushBtn.h"

#include <QVBoxLayout>

namespace {

constexpr int kWidth = 112;
constexpr theme::Tone kPale{0xffeef4f8, theme::Purpose::RaisedGround};
constexpr int kIconSampleWidth = 168;
constexpr int kIconSpacing = 32; // leaves 8 pixels between a 16 pixel icon and a text

const QString kUser = QStringLiteral("icon_user.png");

int widthOf(const QString &text)
{
    return QFontMetrics(theme::font(theme::Normal, 14)).horizontalAdvance(text);
}

// The triangle of a menu stands half of the spacing right of the middle, whatever the text: 6 pixels behind
// this one.
int triangleSpacing(const QString &text)
{
    return widthOf(text) + 2 * 6;
}

CBPPushBtn *button(const QString &text, int width = kWidth)
{
    auto *result = new CBPPushBtn(text, nullptr);
    result->setFixedWidth(width);
    return result;
}

CBPPushBtn *filled(const QString &text)
{
    CBPPushBtn *result = button(text);
    theme::fillButton(result);
    // The built-in blue is as light as the ground.
    theme::follow(result, [result] { result->setFocusFrameColor(theme::kInk); });
    return result;
}

void addMenu(CBPPushBtn *menuButton)
{
    menuButton->AppendMenuItem(theme::picturePath("Common/ico_onlinesupport_normal.svg"), "Support", 21);
    menuButton->AppendMenuItem(theme::picturePath("Common/gift_normal.svg"), "Offers", 22);
    menuButton->AppendMenuItem(QString(), "No picture", 23);
    menuButton->GetMenu()->SetDefIconWidth(32); // as wide as the pictures: aligns the texts
}

// Live samples are the only ones that answer the mouse and keyboard.
CBPPushBtn *live(EventLog *log, const QString &text, int id)
{
    auto *result = new CBPPushBtn(text, id, CBPPushBtn::ALIGN_CENTER);
    result->setFixedWidth(kWidth);
    QObject::connect(result, &QAbstractButton::clicked, log, [log] { log->add("clicked()"); });
    QObject::connect(result, &CBPPushBtn::doubleClicked, log, [log] { log->add("doubleClicked()"); });
    QObject::connect(result, &CBPPushBtn::sigBtnClicked, log,
                     [log](int clicked) { log->add(QString("sigBtnClicked(%1)").arg(clicked)); });
    QObject::connect(result, &CBPPushBtn::sigActionTriggered, log, [log](CBPMenuItem *item) {
        log->add(QString("sigActionTriggered(\"%1\", %2)").arg(item->text(), item->data().toString()));
    });
    return result;
}

void addLiveSamples(Page *page)
{
    Section *section =
        page->addSection("Try it", "Mouse, Tab and Space work here. Every signal appears below.");
    auto *log = new EventLog("No signal yet: press a button.");
    CBPPushBtn *checkable = live(log, "Checkable", 3);
    checkable->setCheckable(true);
    theme::follow(checkable, [checkable] {
        checkable->setCheckedBgColor(theme::kAccentTint);
        checkable->setCheckedFrmColor(theme::kAccent);
    });
    CBPPushBtn *withMenu = live(log, "Contact", 4);
    withMenu->setSpacing(triangleSpacing(withMenu->text()));
    addMenu(withMenu);
    CBPPushBtn *disabled = live(log, "Disabled", 5);
    disabled->setEnabled(false);
    CBPPushBtn *accent = filled("Accent");
    QObject::connect(accent, &CBPPushBtn::sigBtnClicked, log, [log](int id) {
        log->add(QString("sigBtnClicked(%1), from a button made without an id").arg(id));
    });
    section->addSamples({{"Id 1", live(log, "Plain", 1)},
                         {"No id", accent},
                         {"Checkable, id 3", checkable},
                         {"Opens a menu", withMenu},
                         {"Disabled, id 5", disabled}});
    section->addWide(log);
}

using Maker = CBPPushBtn *(*)();

SampleRow statesOf(const QString &caption, Maker make)
{
    return {caption,
            {pose::in(pose::Normal, make()), pose::in(pose::Hovered, make()), pose::in(pose::Pressed, make()),
             pose::in(pose::Focused, make()), pose::in(pose::Disabled, make())}};
}

CBPPushBtn *rounded()
{
    CBPPushBtn *result = button("Save");
    result->setRoundRadius({4, 4});
    return result;
}

CBPPushBtn *pill()
{
    CBPPushBtn *result = button("Save");
    result->setRoundRadius({14, 14});
    return result;
}

CBPPushBtn *selected()
{
    CBPPushBtn *result = button("Save");
    result->setSelected(true);
    return result;
}

CBPPushBtn *checked()
{
    CBPPushBtn *result = button("Save");
    result->setCheckable(true);
    result->setChecked(true);
    theme::follow(result, [result] {
        result->setCheckedBgColor(theme::kAccent);
        result->setCheckedFrmColor(theme::kAccentPressed);
        constexpr theme::Tone disabled{0xffffffff, theme::Purpose::Text}; // the ground is paler then
        result->setTextColor(
            theme::colorsOf({theme::kOnAccent, theme::kOnAccent, theme::kOnAccent, disabled}));
    });
    return result;
}

CBPPushBtn *frameless()
{
    CBPPushBtn *result = button("Save");
    result->setFrmTrancent(true);
    return result;
}

CBPPushBtn *withIcon()
{
    CBPPushBtn *result = button("Save");
    result->setSpacing(kIconSpacing);
    theme::setIcon(result, kUser);
    return result;
}

CBPPushBtn *withTriangle()
{
    CBPPushBtn *result = button("Sort");
    result->setHasMenu(true);
    result->setSpacing(triangleSpacing(result->text()));
    return result;
}

void addStates(Page *page)
{
    Section *section = page->addSection(
        "States",
        "One button at rest, under the mouse, held down, with the keyboard focus, and disabled. The "
        "focus ring shows at rest only and needs a frame; selected and checked buttons show none, and "
        "checked ones look the same whatever the mouse does. The triangle keeps its grey when the button is "
        "disabled. All of this is drawn so on purpose.");
    section->addTable({"Normal", "Hovered", "Pressed", "Focused", "Disabled"},
                      {statesOf("Square", [] { return button("Save"); }), statesOf("Rounded", rounded),
                       statesOf("Half round", pill), statesOf("Own colours", [] { return filled("Save"); }),
                       statesOf("Selected", selected), statesOf("Checked", checked),
                       statesOf("Without a frame", frameless), statesOf("With an icon", withIcon),
                       statesOf("With a menu", withTriangle)});
}

CBPPushBtn *iconSample(const QString &text, CBPPushBtn::__ALIGN_TYPE align, bool after,
                       int spacing = kIconSpacing)
{
    auto *result = new CBPPushBtn(text, 0, align, false, after);
    result->setFixedWidth(kIconSampleWidth);
    result->setSpacing(spacing);
    theme::setIcon(result, kUser);
    return result;
}

void addIcons(Page *page)
{
    Section *section = page->addSection(
        "Icon and text",
        "The text is centred in the button wherever the icon stands, and the icon as if both were one "
        "centred block. It is drawn so on purpose: texts in a column of buttons line up. What lies between "
        "them is half of the spacing less half of the icon's width: "
        "8 pixels here, with a spacing of 32; with the default of 10 they overlap.");
    CBPPushBtn *alone = iconSample(QString(), CBPPushBtn::ALIGN_CENTER, false);
    alone->setToolTip("Account"); // its name for screen readers, too
    CBPPushBtn *lowered = iconSample("Account", CBPPushBtn::ALIGN_CENTER, true);
    lowered->SetIconVoffSet(4);
    section->addColumns(
        4,
        {{"Before the text", iconSample("Account", CBPPushBtn::ALIGN_CENTER, false)},
         {"After the text", iconSample("Account", CBPPushBtn::ALIGN_CENTER, true)},
         {"At the left edge", iconSample("Account", CBPPushBtn::ALIGN_LEFT, false)},
         {"Alone", alone},
         {"Spacing 10, the default", iconSample("Account", CBPPushBtn::ALIGN_CENTER, false, 10)},
         {"Spacing 56", iconSample("Account", CBPPushBtn::ALIGN_CENTER, false, 56)},
         {"After it, 4 pixels lower", lowered},
         {"Left edge, after the text", iconSample("Account", CBPPushBtn::ALIGN_LEFT, true, 64)}},
        kIconSampleWidth);
}

void addWidths(Page *page)
{
    Section *section = page->addSection(
        "Width",
        "A button that sizes itself counts icon, menu and least width, never its text: a row of dialog "
        "buttons keeps one width in every language. Give long texts a width of their own.");
    auto *menuButton = new CBPPushBtn("Sort", nullptr, true);
    menuButton->setSpacing(triangleSpacing(menuButton->text()));
    menuButton->setHasMenu(true);
    auto *wide = new CBPPushBtn("Least 140", nullptr, true);
    wide->SetMininzerWidth(140);
    auto *withPicture = new CBPPushBtn("Me", nullptr, true);
    withPicture->setSpacing(kIconSpacing);
    theme::setIcon(withPicture, kUser);
    section->addSamples({{"85, the least", new CBPPushBtn("OK", nullptr, true)},
                         {"85, with an icon", withPicture},
                         {"95, with a menu", menuButton},
                         {"140", wide},
                         {"152, set for its text", button("Repeat every week", 152)}});

    CBPPushBtn *twoLines = button("A long text wraps at its words", 168);
    twoLines->setFixedHeight(48);
    // As wide as the first line, and half of the wide letter that the second one begins with.
    CBPPushBtn *anywhere = button("Straßenbahnhaltestellenmast", widthOf("Straßenbahnhaltestellen") + 12);
    anywhere->setFixedHeight(48);
    CBPPushBtn *plain = button("R&D <b>plain</b>", 144);
    plain->setFixedHeight(48);
    CBPPushBtn *large = button("Larger font", 144);
    large->setFixedHeight(48);
    large->SetFont(theme::font(theme::Semibold, 20));
    section->addSamples({{"Two lines, 48 high", twoLines},
                         {"Breaks anywhere", anywhere},
                         {"No markup in texts", plain},
                         {"Own font", large}});
}

CBPPushBtn *withColors(int count)
{
    CBPPushBtn *result = button(QString("%1 colours").arg(count));
    theme::follow(result, [result, count] {
        // Pale, or as dark, as the ground: the text on it is the theme's.
        const QColor ground = theme::kGround;
        QVector<QColor> colors;
        for (int i = 0; i < count; ++i)
            colors << (ground.lightness() > 128 ? QColor::fromHsv(i * 40 % 360, 26, 253)
                                                : QColor::fromHsv(i * 40 % 360, 140, 70));
        result->setBgColor(colors);
    });
    return result;
}

// On a ground that shows what the button leaves of its own rectangle.
QWidget *withoutMargins()
{
    auto *whole = new QWidget;
    theme::fill(whole, theme::kLine);
    CBPPushBtn *cut = button("Cut off");
    cut->setRemoveMargin(QMargins(16, 3, 16, 3));
    auto *layout = new QVBoxLayout(whole);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(cut);
    return whole;
}

void addColors(Page *page)
{
    Section *section =
        page->addSection("Colours", "One colour per state for background, frame and text. A list that has "
                                    "not exactly four entries is ignored, and the built-in colours show.");
    section->addSamples({{"Four are used", withColors(4)},
                         {"Built-in colours", withColors(0)},
                         {"Built-in colours", withColors(3)},
                         {"Built-in colours", withColors(9)}});

    CBPPushBtn *ring = button("Red ring");
    ring->setFocusFrameColor(QColor(224, 72, 72)); // on light and dark
    CBPPushBtn *standard = button("Default");
    standard->setAsDefaultBtn();
    CBPPushBtn *half = checked();
    CBPPushBtn *ellipse = button("20 by 8");
    ellipse->setRoundRadius({20, 8});
    section->addSamples({{"Own focus ring", pose::in(pose::Focused, ring)},
                         {"Default button", pose::in(pose::Normal, standard)},
                         {"Checked, disabled", pose::in(pose::Disabled, half)},
                         {"Two radii", ellipse},
                         {"Margins removed", withoutMargins()}});
}

CBPPushBtn *seeThrough(const QString &text, int radius)
{
    CBPPushBtn *result = button(text);
    result->setBgTrancent(true);
    result->setRoundRadius({radius, radius});
    constexpr theme::Tone disabled{0xff5d6880, theme::Purpose::DisabledText};
    theme::follow(result, [result, disabled] {
        const QVector<QColor> texts =
            theme::colorsOf({theme::kSideText, theme::kSideMarked, theme::kTeal, disabled});
        result->setTextColor(texts);
        result->setFrmColor(texts);
    });
    return result;
}

CBPPushBtn *clear(const QString &text, int radius)
{
    CBPPushBtn *result = button(text);
    result->setBgTrancent(true);
    result->setRoundRadius({radius, radius});
    return result;
}

void addGrounds(Page *page)
{
    Section *section =
        page->addSection("On a ground of its own",
                         "With a transparent background the button shows what lies below it in every state.");
    section->addWide(onGround(theme::kSide, {pose::in(pose::Normal, seeThrough("Normal", 4)),
                                            pose::in(pose::Hovered, seeThrough("Hovered", 4)),
                                            pose::in(pose::Pressed, seeThrough("Pressed", 4)),
                                            pose::in(pose::Focused, seeThrough("Focused", 4)),
                                            pose::in(pose::Disabled, seeThrough("Disabled", 4))}));
    section->addWide(
        onGround(kPale, {button("Opaque"), clear("See-through", 0), clear("And round", 4)}));
}

Page *makePage()
{
    auto *page = new Page("Push button", "CBPPushBtn has a text, an icon before or after it, a colour for "
                                         "each state, an id and, if wanted, a drop-down menu.");
    addLiveSamples(page);
    addStates(page);
    addIcons(page);
    addWidths(page);
    addColors(page);
    addGrounds(page);
    return page;
}

void registerThis()
{
    registerPage({"push-button", "Push button", PageGroup::Buttons, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
