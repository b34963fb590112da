#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CAddBtn.h"
#include "CBPCheckBox.h"
#include "CBPComboBox.h"
#include "CBPComboxItem.h"
#include "CBPDateSelector.h"
#include "CBPDaySelector.h"
#include "CBPDropdownBtn.h"
#include "CBPImage.h"
#include "CBPImageCheckBox.h"
#include "CBPImageTextBtn.h"
#include "CBPIPAddrEdit.h"
#include "CBPIPInputWidget.h"
#include "CBPJumpSlider.h"
#include "CBPLinkerButton.h"
#include "CBPMenuBtn.h"
#include "CBPQtTableView.h"
#include "CBPRoundBtn.h"
#include "CBPScrollWnd.h"
#include "CBPSearchEdit.h"
#include "CBPSmoothSlider.h"
#include "CBPTableWidget.h"
#include "CBPTextEdit.h"
#include "CBPToolButton.h"
#include "CBPTreeView.h"
#include "CBPTreeWidget.h"
#include "CBPWaitBtn.h"
#include "CBPWeekSelector.h"
#include "CButtonGroupBox.h"
#include "CEditTimeEdit.h"
#include "CExpandBtn.h"
#include "CFoucsLabel.h"
#include "ComboxItem.h"
#include "CTabContainer.h"
#include "CTriStateButton.h"

#include <QDateEdit>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QToolButton>

namespace {

constexpr int kColumns = 4;
constexpr int kWidth = 176;      // of what is as wide as it is given room
constexpr int kViewHeight = 104; // and of what is as high
const char kText[] = "Learn";

QVector<QString> stateFiles(const QString &pattern)
{
    QVector<QString> files;
    for (const char *state : {"normal", "hover", "press", "disable"})
        files << pattern.arg(QLatin1String(state));
    return files;
}

QVector<QString> icons()
{
    return stateFiles(theme::picturePath("list_%1.png"));
}

// A sample whose part `part` has the focus, or the whole of it, under the name of its class.
Sample focused(QWidget *sample, QWidget *part = nullptr, const QString &caption = QString())
{
    const auto children = sample->findChildren<QWidget *>();
    for (QWidget *child : children)
        child->setFocusPolicy(Qt::NoFocus);
    pose::put(sample, pose::Normal);
    pose::put(part ? part : sample, pose::Focused);
    return {caption.isEmpty() ? QString::fromLatin1(sample->metaObject()->className()) : caption, sample};
}

template <class Widget> Widget *sized(Widget *widget, int width = kWidth, int height = 0)
{
    widget->setFixedWidth(width);
    if (height > 0)
        widget->setFixedHeight(height);
    return widget;
}

template <class Widget> Widget *typed(Widget *widget)
{
    widget->setFont(theme::font(theme::Normal, 14));
    return widget;
}

Sample group()
{
    auto *box = new CButtonGroupBox(true, nullptr);
    box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    theme::follow(box, [box] {
        constexpr theme::Tone text{0xff0e649b, theme::Purpose::Text};
        const QVector<QColor> texts = theme::colorsOf({text, text, text, theme::kCaption});
        box->SetTextClr(texts); // of buttons to come
        const auto buttons = box->findChildren<CBPPushBtn *>();
        for (CBPPushBtn *button : buttons)
            button->setTextColor(texts);
    });
    CBPPushBtn *first = box->AddButton(1, "Day", QString());
    box->AddButton(2, "Week", QString());
    return focused(box, first);
}

Sample tabs()
{
    auto *container = new CTabContainer;
    for (const char *name : {"Backup", "Restore"})
        container->Appendtab(new QWidget, name, container->findChildren<CBPPushBtn *>().size() + 1,
                             QString());
    sized(container, kWidth, 64);
    return focused(container, container->findChildren<CBPPushBtn *>().value(0));
}

Sample expand()
{
    return focused(sized(new CExpandBtn({}, "Details", QString())));
}

Sample tool()
{
    QVector<QString> files = icons();
    auto *button = new CBPToolButton(files, kText, 0, ENAlignLeft, true);
    button->setFixedHeight(36);
    return focused(button);
}

Sample imageButton()
{
    auto *button = new CBPImageButton(icons(), false, 0);
    button->SetBorder(6, false);
    button->setFixedSize(40, 40);
    return focused(button);
}

Sample picture()
{
    auto *image = new CBPImage(theme::picturePath("icon_info.png"));
    image->SetChgCursor(true);
    return focused(image);
}

Sample days()
{
    QStringList names{"1", "2", "3"};
    QString none;
    auto *selector = new CBPDaySelector(names, none, none);
    return focused(selector, selector->findChild<CTriStateButton *>());
}

Sample week()
{
    QStringList names{"Mon", "Tue"};
    auto *selector = new CBPWeekSelector(names);
    return focused(selector, selector->findChild<CTriStateButton *>());
}

QVector<Sample> buttons()
{
    auto *round = new CBPRoundBtn(40, 0);
    theme::setIcon(round, "icon_user.png");
    const auto star = [](const char *look) {
        return stateFiles(QString(":/gallery/star_%1_%2.svg").arg(look));
    };
    auto *wait = sized(new CBPWaitBtn(theme::spinnerFrames(), kText, "Wait", nullptr, false), 112);
    return {focused(sized(new CBPPushBtn(kText, nullptr), 112)),
            focused(wait),
            expand(),
            focused(new CAddBtn(kText)),
            focused(round),
            focused(new CBPMenuBtn(kText)),
            focused(new CBPDropdownBtn(kText, 0)),
            tool(),
            imageButton(),
            focused(new CBPImageTextBtn(icons(), kText)),
            focused(new CBPLinkerButton(kText)),
            focused(typed(new CBPImageCheckBox(star("off"), star("on"), kText))),
            focused(typed(new CBPCheckBox(kText, nullptr))),
            focused(new CTriStateButton(kText, false, false, nullptr)),
            group(),
            tabs(),
            focused(sized(new CFoucsLabel(kText), kWidth, 40)),
            picture()};
}

Sample search(bool inside)
{
    auto *edit = sized(typed(new CBPSearchEdit(nullptr)), kWidth, 28);
    edit->setPlaceholderText("Search");
    QWidget *part = inside ? edit->findChild<QToolButton *>("btnSearch") : nullptr;
    return focused(edit, part, inside ? QString("The button in it") : QString());
}

Sample address()
{
    auto *edit = new CBPIPInputWidget;
    edit->setFixedHeight(theme::kControlHeight);
    edit->setIP("192.168.0.1");
    return focused(edit, edit->findChildren<CBPIPAddrEdit *>().value(1));
}

Sample date(bool onButton)
{
    auto *selector = sized(new CBPDateSelector, 144, 28);
    auto *edit = typed(selector->findChild<QDateEdit *>());
    edit->setDisplayFormat("yyyy-MM-dd"); // the same on every machine
    QWidget *part = edit;
    if (onButton)
        part = selector->findChild<CBPImageButton *>();
    return focused(selector, part, onButton ? QString("Its button") : QString());
}

Sample times()
{
    auto *list = new CEditTimeEdit(":/gallery/plus.svg", theme::picturePath("delete.png"), 3);
    list->Initialize({QTime(8, 30)});
    list->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QTimeEdit *edit = typed(list->findChild<QTimeEdit *>());
    edit->setDisplayFormat("HH:mm");
    edit->setFixedSize(80, 28);
    return focused(list, edit);
}

template <class Combo> Sample combo()
{
    auto *box = sized(typed(new Combo));
    box->addItems({kText, "Teach"});
    return focused(box);
}

Sample row()
{
    ComboxItem item;
    item.icon = ":/gallery/folder.svg";
    item.path = "documents";
    auto *result = sized(new CBPComboxItem(item, nullptr), 2 * kWidth);
    result->SetPathMaxWidth(2 * kWidth);
    return focused(result);
}

QVector<Sample> fields()
{
    auto *text = sized(typed(new CBPTextEdit), kWidth, 56);
    text->setPlainText(kText);
    auto *line = sized(typed(new CBPLineEdit), kWidth, 28);
    line->setText(kText);
    return {focused(line), search(false), search(true), address(),           focused(text),
            date(false),   date(true),    times(),      combo<CBPComboBox>()};
}

template <class Slider> Slider *ranged(Slider *slider)
{
    slider->setFixedWidth(kWidth);
    return typed(slider);
}

Sample steps()
{
    auto *slider = ranged(new CBPJumpSlider(nullptr));
    slider->Init({"Off", "Low", "High"});
    return focused(slider, slider->findChild<QSlider *>());
}

Sample smooth()
{
    auto *slider = ranged(new CBPSmoothSlider(nullptr));
    slider->Init({"None", "All"}, 100, 0);
    return focused(slider, slider->findChild<QSlider *>());
}

QStandardItemModel *model(QObject *owner)
{
    auto *items = new QStandardItemModel(2, 2, owner);
    for (int i = 0; i < 4; ++i)
        items->setItem(i / 2, i % 2,
                       new QStandardItem(QStringList{"Letters", "Folder", "Notes", "Text"}.at(i)));
    return items;
}

template <class View> Sample view()
{
    auto *result = sized(typed(new View), kWidth, kViewHeight);
    result->setModel(model(result));
    result->setCurrentIndex(result->model()->index(0, 0));
    return focused(result);
}

Sample tableOfItems()
{
    auto *table = sized(typed(new CBPTableWidget), kWidth, kViewHeight);
    table->setRowCount(2);
    table->setColumnCount(1);
    table->setItem(0, 0, new QTableWidgetItem("Letters"));
    table->setItem(1, 0, new QTableWidgetItem("Notes"));
    table->setCurrentCell(0, 0);
    return focused(table);
}

template <class List> Sample items()
{
    auto *list = sized(typed(new List), kWidth, kViewHeight);
    if constexpr (std::is_same_v<List, CBPTreeWidget>) {
        list->addTopLevelItem(new QTreeWidgetItem({"Letters"}));
        list->setCurrentItem(list->topLevelItem(0));
    } else {
        list->addItems({"Letters", "Notes"});
        list->setCurrentRow(0);
    }
    return focused(list);
}

Sample area()
{
    auto *result = sized(new CBPScrollWnd(nullptr), kWidth, kViewHeight);
    auto *content = theme::label("Larger than its area.", theme::Normal, 14, theme::kText);
    content->setAlignment(Qt::AlignTop);
    content->setFixedSize(2 * kWidth, 2 * kViewHeight);
    result->setWidget(content);
    return focused(result);
}

QVector<Sample> choices()
{
    return {steps(),
            smooth(),
            view<CBPQtTableView>(),
            tableOfItems(),
            view<CBPTreeView>(),
            items<CBPTreeWidget>(),
            area()};
}

QVector<Sample> plain()
{
    auto *line = sized(typed(new QLineEdit(kText)));
    return {focused(typed(new QPushButton(kText))),      focused(typed(new QCheckBox(kText))),
            focused(typed(new QRadioButton(kText))),     combo<QComboBox>(),
            focused(sized(typed(new QSpinBox), 96)),     focused(line),
            focused(sized(new QSlider(Qt::Horizontal))), items<QListWidget>()};
}

Page *makePage()
{
    auto *page =
        new Page("Keyboard focus",
                 "Everything that the Tab key comes to, with the keyboard focus all at once: one ring, two "
                 "pixels wide, that crosses no letter, icon or tick. Push buttons have a lighter one, and "
                 "selected rows a white one.");
    Section *section = page->addSection(
        "Buttons", "What has room within its edges has the ring there; around all others it lies outside.");
    section->addColumns(kColumns, buttons());
    section->addSamples({days(), week()}); // whose last day is wide
    section = page->addSection(
        "Fields", "The ring takes the place of the frame, or lies around it where the frame is fixed.");
    section->addColumns(kColumns, fields());
    section->addSamples({row()});
    page->addSection("Sliders and views", "In a view the current item shows the focus, too.")
        ->addColumns(kColumns, choices());
    page->addSection("Plain Qt widgets", "These are Qt's own classes in the style of the gallery.")
        ->addColumns(kColumns, plain());
    return page;
}

void registerThis()
{
    registerPage({"keyboard-focus", "Keyboard focus", PageGroup::Foundation, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
