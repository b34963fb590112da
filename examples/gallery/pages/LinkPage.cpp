#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPCheckBox.h"
#include "CBPLinkerButton.h"

namespace {

constexpr theme::Tone kBrown{0xff8a3e0c, theme::Purpose::Warning, theme::Purpose::Text, 50};
constexpr theme::Tone kPale{0xffb4bec8, theme::Purpose::DisabledText};

const char kText[] = "Learn more";
const char kLongText[] = "What happens to my files when I cancel?";

CBPLinkerButton *link(ENLinkerType type, const QString &text = QLatin1String(kText))
{
    return new CBPLinkerButton(text, type);
}

CBPLinkerButton *live(EventLog *log, const QString &text, ENLinkerType type, int id)
{
    auto *result = new CBPLinkerButton(text, type, id);
    QObject::connect(result, &CBPLinkerButton::sigLinkerClick, log,
                     [log](int clicked) { log->add(QString("sigLinkerClick(%1)").arg(clicked)); });
    return result;
}

CBPCheckBox *checkBox(const QString &text, Qt::CheckState state = Qt::Unchecked)
{
    auto *result = new CBPCheckBox(text, nullptr);
    result->setFont(theme::font(theme::Normal, 14));
    result->setTristate(state == Qt::PartiallyChecked);
    result->setCheckState(state);
    return result;
}

void addLiveSamples(Page *page)
{
    Section *section =
        page->addSection("Try it", "Mouse, Tab, Space and Enter work here. Every signal appears below.");
    auto *log = new EventLog("No signal yet: click a link.");
    CBPLinkerButton *disabled = live(log, "Disabled", ENLinkerTypeAlways, 4);
    disabled->setEnabled(false);
    CBPCheckBox *box = checkBox("Remember me");
    QObject::connect(box, &QCheckBox::toggled, log,
                     [log](bool on) { log->add(QString("toggled(%1)").arg(on ? "true" : "false")); });
    section->addSamples({{"Type 0, id 1", live(log, "Always underlined", ENLinkerTypeAlways, 1)},
                         {"Type 1, id 2", live(log, "Underlined under the mouse", ENLinkerTypeHover, 2)},
                         {"Type 2, id 3", live(log, "Never underlined", ENLinkerTypeNever, 3)},
                         {"Id 4", disabled},
                         {"Check box", box}});
    section->addWide(log);
}

SampleRow statesOf(const QString &caption, ENLinkerType type, bool selected = false,
                   const QVector<theme::Tone> &tones = {})
{
    SampleRow row{caption, {}};
    for (const pose::State state :
         {pose::Normal, pose::Hovered, pose::Pressed, pose::Focused, pose::Disabled}) {
        CBPLinkerButton *sample = link(type);
        sample->SetSelected(selected);
        if (!tones.isEmpty())
            theme::follow(sample, [sample, tones] { sample->SetTextColor(theme::colorsOf(tones)); });
        row.widgets << pose::in(state, sample);
    }
    return row;
}

void addStates(Page *page)
{
    page->addSection("States",
                     "The keyboard focus gives a link its hover colour and a ring, but no underline.")
        ->addTable({"Normal", "Hovered", "Pressed", "Focused", "Disabled"},
                   {statesOf("Always", ENLinkerTypeAlways), statesOf("Under the mouse", ENLinkerTypeHover),
                    statesOf("Never", ENLinkerTypeNever), statesOf("Selected", ENLinkerTypeHover, true),
                    statesOf("Own colours", ENLinkerTypeHover, false,
                             {theme::kOrange, kBrown, theme::kInk, kPale})});
}

CBPLinkerButton *sized(int px)
{
    CBPLinkerButton *result = link(ENLinkerTypeAlways);
    result->SetFontPixel(px);
    return result;
}

CBPLinkerButton *narrow(int width)
{
    CBPLinkerButton *result = link(ENLinkerTypeAlways, QLatin1String(kLongText));
    result->setFixedWidth(width);
    return result;
}

void addTexts(Page *page)
{
    Section *section = page->addSection(
        "Text", "Texts are plain and stay on one line. One that is cut off appears whole as the tool tip.");
    section->addSamples(
        {{"12 pixels", sized(12)}, {"14, the default", sized(14)}, {"20", sized(20)}, {"28", sized(28)}});
    section->addSamples({{"Whole", link(ENLinkerTypeAlways, QLatin1String(kLongText))},
                         {"160 wide", narrow(160)},
                         {"64 wide", narrow(64)},
                         {"No markup", link(ENLinkerTypeAlways, "R&D <b>plain</b>")}});
}

// What an application does with the class name.
const char kCheckSheet[] =
    "CBPCheckBox { spacing: 8px; color: %1; }"
    "CBPCheckBox:disabled { color: %2; }"
    "CBPCheckBox::indicator { width: 16px; height: 16px; border: 1px solid %3; background: %4; }"
    "CBPCheckBox::indicator:hover { border-color: %5; }"
    "CBPCheckBox::indicator:checked, CBPCheckBox::indicator:indeterminate"
    " { background: %5; border-color: %5; }"
    "CBPCheckBox::indicator:checked { image: url(:/gallery/tick%9.svg); }"
    "CBPCheckBox::indicator:indeterminate { image: url(:/gallery/dash%9.svg); }"
    "CBPCheckBox::indicator:disabled { background: %6; border-color: %7; }"
    "CBPCheckBox::indicator:checked:disabled, CBPCheckBox::indicator:indeterminate:disabled"
    " { background: %8; border-color: %8; }";

QString checkSheet()
{
    using theme::Purpose;
    const theme::Tone tones[] = {theme::kText,
                                 {0xffbdbdbd, Purpose::DisabledText},
                                 {0xff7b8798, Purpose::Frame},
                                 theme::kGround,
                                 theme::kAccent,
                                 {0xffeef1f4, Purpose::FieldDisabled},
                                 {0xffd5dbe2, Purpose::FrameDisabled},
                                 theme::kAccentDisabled};
    QString sheet = QString::fromLatin1(kCheckSheet);
    for (const theme::Tone &tone : tones)
        sheet = sheet.arg(tone.color().name());
    const QColor mark = theme::kOnAccent;
    return sheet.arg(mark.lightness() < 128 ? QStringLiteral("_dark") : QString());
}

CBPCheckBox *styled(Qt::CheckState state)
{
    CBPCheckBox *result = checkBox("Remember me", state);
    theme::follow(result, [result] { result->setStyleSheet(checkSheet()); });
    return result;
}

CBPCheckBox *unstyled(Qt::CheckState state)
{
    return checkBox("Remember me", state);
}

SampleRow checkRow(const QString &caption, CBPCheckBox *(*make)(Qt::CheckState), pose::State state)
{
    return {caption,
            {pose::in(state, make(Qt::Unchecked)), pose::in(state, make(Qt::Checked)),
             pose::in(state, make(Qt::PartiallyChecked))}};
}

void addCheckBoxes(Page *page)
{
    page->addSection(
            "Check box",
            "CBPCheckBox is a QCheckBox that the style sheet of an application can address by its class.")
        ->addTable(
            {"Off", "On", "Partly"},
            {checkRow("At rest", unstyled, pose::Normal), checkRow("Hovered", unstyled, pose::Hovered),
             checkRow("Pressed", unstyled, pose::Pressed), checkRow("Focused", unstyled, pose::Focused),
             checkRow("Disabled", unstyled, pose::Disabled), checkRow("By style sheet", styled, pose::Normal),
             checkRow("By style sheet, disabled", styled, pose::Disabled)});
}

Page *makePage()
{
    auto *page = new Page("Link and check box",
                          "CBPLinkerButton is a hyperlink that reports a number when it is clicked. "
                          "CBPCheckBox: the library's check box.");
    addLiveSamples(page);
    addStates(page);
    addTexts(page);
    addCheckBoxes(page);
    return page;
}

void registerThis()
{
    registerPage({"link", "Link and check box", PageGroup::Buttons, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
