#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPDropdownBtn.h"
#include "CBPMenu.h"
#include "CBPMenuItem.h"


namespace {

CBPDropdownBtn *button(const QString &text, bool split = false, bool icon = false)
{
    auto *result = new CBPDropdownBtn(text, 1);
    result->setSplit(split);
    if (icon)
        theme::setIcon(result, "icon_user.png");
    return result;
}

CBPDropdownBtn *accent(const QString &text)
{
    CBPDropdownBtn *result = button(text, true);
    theme::fillButton(result);
    theme::follow(result, [result] {
        result->setFocusFrameColor(theme::kInk);
        result->setTriangleColor(theme::onAccents());
    });
    return result;
}

CBPDropdownBtn *live(EventLog *log, CBPDropdownBtn *result)
{
    result->AppendMenuItem(theme::picturePath("Common/ico_onlinesupport_normal.svg"), "Support", 21);
    result->AppendMenuItem(theme::picturePath("Common/gift_normal.svg"), "Offers", 22);
    auto *more = new CBPMenu("More", result);
    more->AddAction("Archive", 31);
    result->AppendSubMenu(more);
    result->GetMenu()->SetDefIconWidth(32);
    result->GetMenu()->SetSubMenuRightIcon(":/gallery/nested.svg");
    QObject::connect(result, &CBPDropdownBtn::sigBtnClicked, log,
                     [log](int id) { log->add(QString("sigBtnClicked(%1)").arg(id)); });
    QObject::connect(result, &CBPDropdownBtn::sigActionTriggered, log, [log](CBPMenuItem *item) {
        log->add(QString("sigActionTriggered(\"%1\", %2)").arg(item->text(), item->data().toString()));
    });
    return result;
}

using Maker = CBPDropdownBtn *(*)();

SampleRow statesOf(const QString &caption, Maker make)
{
    SampleRow row{caption, {}};
    for (const pose::State state :
         {pose::Normal, pose::Hovered, pose::Pressed, pose::Focused, pose::Disabled}) {
        CBPDropdownBtn *sample = make();
        // A press would open a menu; none of these has one.
        row.widgets << pose::in(state, sample);
        if (state == pose::Pressed)
            sample->setState(2);
    }
    return row;
}

Page *makePage()
{
    auto *page =
        new Page("Drop-down button",
                 "CBPDropdownBtn has a text, an icon if wanted, and a menu that drops down right below it.");
    Section *section = page->addSection(
        "Try it",
        "Mouse, Tab, Space and Enter work here; Down and F4 open the menu. Every signal appears below.");
    auto *log = new EventLog("No signal yet: open a menu.");
    CBPDropdownBtn *off = live(log, button("Disabled"));
    off->setEnabled(false);
    section->addSamples({{"Opens as a whole", live(log, button("Contact"))},
                         {"Split, id 1", live(log, button("Save", true))},
                         {"Split, with an icon", live(log, button("Account", true, true))},
                         {"Own colours", live(log, accent("Send"))},
                         {"Disabled", off}});
    section->addWide(log);

    section = page->addSection("States", "Text and triangle share one look; a line divides them on a split "
                                         "button. The ring shows the keyboard focus.");
    section->addTable({"Normal", "Hovered", "Pressed, open", "Focused", "Disabled"},
                      {statesOf("Whole", [] { return button("Sort"); }),
                       statesOf("Split", [] { return button("Sort", true); }),
                       statesOf("With an icon", [] { return button("Sort", true, true); }),
                       statesOf("Own colours", [] { return accent("Sort"); }), statesOf("Rounded", [] {
                           CBPDropdownBtn *rounded = button("Sort");
                           rounded->setRoundRadius({4, 4});
                           return rounded;
                       })});

    section = page->addSection(
        "Widths", "A button is as wide as its text at first. With less room the text ends in an ellipsis.");
    CBPDropdownBtn *narrow = button("A text that is too long", true);
    narrow->setFixedWidth(120);
    CBPDropdownBtn *wide = button("Wide");
    wide->setFixedWidth(160);
    CBPDropdownBtn *large = button("Larger font");
    large->SetFont(theme::font(theme::Semibold, 18));
    CBPDropdownBtn *icon = button(QString(), true, true);
    icon->setToolTip("Account"); // its name for screen readers, too
    CBPDropdownBtn *empty = button(QString());
    empty->setToolTip("More");
    section->addSamples({{"120 wide", narrow},
                         {"160 wide", wide},
                         {"Own font", large},
                         {"Icon alone", icon},
                         {"Triangle alone", empty}});
    return page;
}

void registerThis()
{
    registerPage({"drop-down-button", "Drop-down button", PageGroup::Buttons, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
