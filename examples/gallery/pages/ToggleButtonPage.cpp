#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPPushBtn.h"
#include "CButtonGroupBox.h"
#include "CTriStateButton.h"

#include <QVariant>

namespace {

CTriStateButton *toggle(const QString &text, bool checked = false, bool locked = false, bool noToggle = false)
{
    auto *button = new CTriStateButton(text, false, noToggle, nullptr);
    button->SetChecked(checked);
    if (locked) {
        delete button;
        button = new CTriStateButton(text, true, noToggle, nullptr);
    }
    return button;
}

CTriStateButton *live(EventLog *log, CTriStateButton *button)
{
    QObject::connect(button, &QAbstractButton::clicked, log, [log, button](bool checked) {
        log->add(QString("clicked(%1), and IsChecked() is %2")
                     .arg(checked ? "true" : "false", button->IsChecked() ? "true" : "false"));
    });
    return button;
}

constexpr char kChosen[] = "chosenButton"; // a dynamic property

void tintIcons(CButtonGroupBox *box)
{
    for (int id = 0; CBPPushBtn *button = box->GetButton(id); ++id)
        theme::setTintedIcon(button, theme::picturePath("icon_user.png"), theme::groupTexts(),
                             id == box->property(kChosen).toInt());
}

CButtonGroupBox *group(bool exclusive, int selected = -1, bool icons = false)
{
    CButtonGroupBox *box = theme::buttonGroup(exclusive);
    box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const QStringList texts{"Day", "Week", "Month", "Year"};
    for (int i = 0; i < texts.size(); ++i) {
        CBPPushBtn *button =
            box->AddButton(i, texts[i], icons ? theme::picturePath("icon_user.png") : QString());
        if (icons) {
            button->setSpacing(32);
            button->setFixedWidth(120);
        }
        button->setSelected(i == selected);
    }
    theme::lowerButtons(box);
    if (icons) {
        box->setProperty(kChosen, selected);
        theme::follow(box, [box] { tintIcons(box); });
        QObject::connect(box, &CButtonGroupBox::sigBtnClicked, box, [box](int id) {
            box->setProperty(kChosen, id);
            tintIcons(box);
        });
    }
    return box;
}

CButtonGroupBox *live(EventLog *log, CButtonGroupBox *box)
{
    QObject::connect(box, &CButtonGroupBox::sigBtnClicked, log,
                     [log](int id) { log->add(QString("sigBtnClicked(%1)").arg(id)); });
    return box;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it",
        "Mouse, Tab and Space work here, and the arrow keys in a group. Every signal appears below.");
    auto *log = new EventLog("No signal yet: click a button.");
    CTriStateButton *off = live(log, toggle("Disabled"));
    off->setEnabled(false);
    section->addSamples({{"Free", live(log, toggle("Free"))},
                         {"Only clicks change it", live(log, toggle("Locked", false, true))},
                         {"Never changes", live(log, toggle("Push", false, false, true))},
                         {"Disabled", off},
                         {"One at a time", live(log, group(true, 1))}});
    section->addWide(log);
}

void paintOrange(CTriStateButton *button)
{
    using theme::Purpose;
    QColor plain = theme::kCaption;
    QColor deep = theme::Tone(0xffa04a0e, Purpose::Warning);
    QColor hover = theme::Tone(0xff783c10, Purpose::Warning, Purpose::Text, 40);
    button->SetColor(plain, deep, hover);
    button->setBgColor(theme::colorsOf({theme::kGround,
                                        {0xfffdf6f0, Purpose::Ground, Purpose::Warning, 10},
                                        {0xfffcecde, Purpose::Ground, Purpose::Warning, 18},
                                        theme::kGround}));
}

SampleRow statesOf(const QString &caption, bool checked, const QString &text, bool ownColors = false)
{
    SampleRow row{caption, {}};
    for (const pose::State state :
         {pose::Normal, pose::Hovered, pose::Pressed, pose::Focused, pose::Disabled}) {
        CTriStateButton *sample = toggle(text, checked);
        if (ownColors)
            theme::follow(sample, [sample] { paintOrange(sample); });
        row.widgets << pose::in(state, sample);
    }
    return row;
}

void addStates(Page *page)
{
    page->addSection("States of a toggle",
                     "A toggle has three looks: plain, hovered and checked; pressing it shows the hover "
                     "colours. The text is black until colours are set and follows the frame from then on, "
                     "and without a text there is no frame. All of this is drawn so on purpose.")
        ->addTable({"Normal", "Hovered", "Pressed", "Focused", "Disabled"},
                   {statesOf("Plain", false, "Mon"), statesOf("Checked", true, "Mon"),
                    statesOf("Own colours", false, "Mon", true), statesOf("Own, checked", true, "Mon", true),
                    statesOf("No text", true, QString()),
                    statesOf("Text too long", false, "Wednesday afternoon")});
}

void addGroups(Page *page)
{
    Section *section = page->addSection(
        "Groups",
        "Buttons stand edge to edge in a frame, with thin lines of the same colour between them. The "
        "built-in text colours are pale on purpose; the other groups have colours of their own.");
    CButtonGroupBox *off = group(true, 2);
    off->setEnabled(false);
    CButtonGroupBox *single = theme::buttonGroup(true);
    single->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    single->AddButton(1, "Alone", QString());
    theme::lowerButtons(single);
    auto *builtIn = new CButtonGroupBox(true, nullptr);
    builtIn->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (const char *text : {"One", "Two", "Three"})
        builtIn->AddButton(0, text, QString());
    theme::lowerButtons(builtIn);
    CButtonGroupBox *focused = group(true, 0);
    pose::put(focused->GetButton(1), pose::Focused);
    CButtonGroupBox *hovered = group(true, 0);
    pose::put(hovered->GetButton(2), pose::Hovered);
    section->addColumns(2, {{"Exclusive, the second selected", group(true, 1)},
                            {"Not exclusive", group(false)},
                            {"Hovered", hovered},
                            {"Keyboard focus on the second", focused},
                            {"Disabled", off},
                            {"Built-in colours", builtIn}});
    CButtonGroupBox *wide = group(true, 1);
    CButtonGroupBox *icons = group(true, 3, true);
    wide->setFixedWidth(icons->sizeHint().width()); // some 480
    section->addSamples({{"Wider than its buttons", wide}});
    section->addSamples({{"With icons", icons}, {"One button, no line", single}});
}

Page *makePage()
{
    auto *page = new Page("Toggle buttons", "CTriStateButton is a button that stays checked. CButtonGroupBox "
                                            "is a row of buttons, of which one can be selected.");
    addLiveSamples(page);
    addStates(page);
    addGroups(page);
    return page;
}

void registerThis()
{
    registerPage({"toggle-button", "Toggle buttons", PageGroup::Buttons, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
