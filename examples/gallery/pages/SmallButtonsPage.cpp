#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CAddBtn.h"
#include "CBPImageCheckBox.h"
#include "CBPImageTextBtn.h"
#include "CBPMenuBtn.h"
#include "CBPMenuItem.h"
#include "CBPRoundBtn.h"

#include <QIcon>

namespace {

QVector<QString> stateFiles(const QString &pattern)
{
    QVector<QString> files;
    for (const char *state : {"normal", "hover", "press", "disable"})
        files << pattern.arg(QLatin1String(state));
    return files;
}

CBPImageCheckBox *star(bool checked, const QString &text = QStringLiteral("Favourite"))
{
    auto *result = new CBPImageCheckBox(stateFiles(":/gallery/star_off_%1.svg"),
                                        stateFiles(":/gallery/star_on_%1.svg"), text);
    result->setFont(theme::font(theme::Normal, 14));
    result->setChecked(checked);
    if (text.isEmpty())
        result->setAccessibleName("Favourite");
    return result;
}

CBPImageTextBtn *imageText(bool below)
{
    auto *result = new CBPImageTextBtn(stateFiles(theme::picturePath("list_%1.png")), "Tasks", 2);
    result->SetTextBelow(below);
    return result;
}

CBPRoundBtn *round(int diameter = 40, const QString &picture = "icon_user.png")
{
    auto *result = new CBPRoundBtn(diameter, 3);
    theme::setIcon(result, picture);
    result->setToolTip("Account");
    return result;
}

CBPMenuBtn *menu()
{
    auto *result = new CBPMenuBtn("Sort by");
    result->AppendMenuItem(QString(), "Name", 1);
    result->AppendMenuItem(QString(), "Size", 2);
    result->AppendMenuItem(QString(), "Date", 3);
    return result;
}

CAddBtn *add(const QString &text)
{
    auto *result = new CAddBtn(text, 4);
    return result;
}

void addLiveSamples(Page *page)
{
    Section *section =
        page->addSection("Try it", "Mouse, Tab and Space work here. Every signal appears below.");
    auto *log = new EventLog("No signal yet: press a button.");
    const auto tellId = [log](int id) { log->add(QString("sigBtnClicked(%1)").arg(id)); };
    CBPImageCheckBox *box = star(false);
    QObject::connect(box, &QCheckBox::toggled, log,
                     [log](bool on) { log->add(QString("toggled(%1)").arg(on ? "true" : "false")); });
    CBPImageTextBtn *text = imageText(false);
    QObject::connect(text, &CBPImageButton::btn_released, log,
                     [log](int id) { log->add(QString("btn_released(%1)").arg(id)); });
    CBPRoundBtn *circle = round();
    QObject::connect(circle, &CBPPushBtn::sigBtnClicked, log, tellId);
    CBPMenuBtn *sort = menu();
    QObject::connect(sort, &CBPPushBtn::sigActionTriggered, log, [log](CBPMenuItem *item) {
        log->add(QString("sigActionTriggered(\"%1\", %2)").arg(item->text(), item->data().toString()));
    });
    CAddBtn *plus = add("Add a time");
    QObject::connect(plus, &CBPPushBtn::sigBtnClicked, log, tellId);
    section->addSamples({{"Image check box", box},
                         {"Image and text, id 2", text},
                         {"Round, id 3", circle},
                         {"Menu", sort},
                         {"Add, id 4", plus}});
    section->addWide(log);
}

SampleRow statesOf(const QString &caption, QWidget *(*make)())
{
    SampleRow row{caption, {}};
    for (const pose::State state :
         {pose::Normal, pose::Hovered, pose::Pressed, pose::Focused, pose::Disabled})
        row.widgets << pose::in(state, make());
    return row;
}

void addStates(Page *page)
{
    page->addSection("States",
                     "Each state has the colours of a push button or the images of an image button.")
        ->addTable({"Normal", "Hovered", "Pressed", "Focused", "Disabled"},
                   {statesOf("Unchecked", []() -> QWidget * { return star(false); }),
                    statesOf("Checked", []() -> QWidget * { return star(true); }),
                    statesOf("Image and text", []() -> QWidget * { return imageText(false); }),
                    statesOf("Text below", []() -> QWidget * { return imageText(true); }),
                    statesOf("Round", []() -> QWidget * { return round(); }),
                    statesOf("Menu", []() -> QWidget * { return menu(); }),
                    statesOf("Add", []() -> QWidget * { return add("Add"); }),
                    statesOf("Mark alone", []() -> QWidget * { return add(QString()); })});
}

void addSizes(Page *page)
{
    Section *section = page->addSection(
        "Sizes", "Each is as large as its content; a text that does not fit ends in an ellipsis.");
    auto *letter = new CBPRoundBtn(56, 0);
    letter->setText("AB");
    letter->SetFont(theme::font(theme::Semibold, 20));
    CBPMenuBtn *narrow = menu();
    narrow->setText("Sort by the date of the last change");
    narrow->setFixedWidth(140);
    CAddBtn *cut = add("Add another of these");
    cut->setFixedWidth(120);
    CBPMenuBtn *bare = menu();
    bare->setText(QString());
    bare->setToolTip("More");
    section->addSamples({{"28", round(28)},
                         {"56", letter},
                         {"Menu, too narrow", narrow},
                         {"Add, too narrow", cut},
                         {"No text", bare},
                         {"Mark alone", star(true, QString())}});
}

Page *makePage()
{
    auto *page = new Page("Small buttons",
                          "CBPImageCheckBox, CBPImageTextBtn, CBPRoundBtn, CBPMenuBtn and CAddBtn: "
                          "small buttons based on the push button, the image button and the check box.");
    addLiveSamples(page);
    addStates(page);
    addSizes(page);
    return page;
}

void registerThis()
{
    registerPage({"small-buttons", "Small buttons", PageGroup::Buttons, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
