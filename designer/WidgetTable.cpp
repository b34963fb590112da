#include "WidgetTable.h"

#include "CAddBtn.h"
#include "CBaseWin.h"
#include "CBPBox.h"
#include "CBPCheckBox.h"
#include "CBPComboBox.h"
#include "CBPDateSelector.h"
#include "CBPDaySelector.h"
#include "CBPDrawLabel.h"
#include "CBPDropdownBtn.h"
#include "CBPEllipsisGifLabel.h"
#include "CBPFlowWidget.h"
#include "CBPGifLable.h"
#include "CBPGradientProgressBar.h"
#include "CBPGridBox.h"
#include "CBPImage.h"
#include "CBPImageButton.h"
#include "CBPImageCheckBox.h"
#include "CBPImageTextBtn.h"
#include "CBPIPInputWidget.h"
#include "CBPJumpSlider.h"
#include "CBPLabel.h"
#include "CBPLine.h"
#include "CBPLineEdit.h"
#include "CBPLinkerButton.h"
#include "CBPMenuBtn.h"
#include "CBPPopWnd.h"
#include "CBPPushBtn.h"
#include "CBPQtGroupBox.h"
#include "CBPQtLine.h"
#include "CBPQtTableView.h"
#include "CBPRoundBtn.h"
#include "CBPScrollBar.h"
#include "CBPScrollWnd.h"
#include "CBPSearchEdit.h"
#include "CBPSmoothSlider.h"
#include "CBPTableWidget.h"
#include "CBPTextEdit.h"
#include "CBPTheme.h"
#include "CBPToolButton.h"
#include "CBPTreeView.h"
#include "CBPTreeWidget.h"
#include "CBPWaitBtn.h"
#include "CBPWeekSelector.h"
#include "CBPWidget.h"
#include "CBPWinWidget.h"
#include "CButtonGroupBox.h"
#include "CEditTimeEdit.h"
#include "CExpandBtn.h"
#include "CFoucsLabel.h"
#include "CTabContainer.h"
#include "CTriStateButton.h"

#include <QPainter>

namespace {

const char kButtons[] = "LumQtLib: Buttons";
const char kMenus[] = "LumQtLib: Menus and lists";
const char kWindows[] = "LumQtLib: Windows and dialogs";
const char kInput[] = "LumQtLib: Input";
const char kDates[] = "LumQtLib: Date and time";
const char kContainers[] = "LumQtLib: Containers";
const char kDisplay[] = "LumQtLib: Display";
const char kWaiting[] = "LumQtLib: Waiting";

// Some classes do not take the parent that they are given; a form's widgets are in the form.
template <class Widget> QWidget *make(QWidget *parent)
{
    auto *widget = new Widget(parent);
    if (parent && !widget->parentWidget())
        widget->setParent(parent);
    return widget;
}

// The main window of an application ends it when it is closed; here the application is Designer, and the
// window its preview.
class MainWindow : public CBaseWin
{
public:
    explicit MainWindow(QWidget *parent) : CBaseWin(parent) {}

protected:
    void onExit() override
    {
        hide();
        if (testAttribute(
                Qt::WA_DeleteOnClose)) // the closing does not come to that when the window is hidden already
            deleteLater();
    }
};

// A window as an application has it after Init().
template <class Window> QWidget *makeWindow(QWidget *parent);

template <> QWidget *makeWindow<CBPPopWnd>(QWidget *parent)
{
    auto *window = new CBPPopWnd(parent);
    window->Init(true);
    return window;
}

// What the derived classes of an application do: they call Init(), and paint the ground.
class InitialisedWindow : public CBPWinWidget
{
public:
    explicit InitialisedWindow(QWidget *parent) : CBPWinWidget(parent) { Init(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const int border = isMaximized() ? 0 : shadowBorder();
        painter.fillRect(rect().adjusted(border, border, -border, -border),
                         CBPTheme::color(CBPTheme::Purpose::Ground));
    }
};

template <> QWidget *makeWindow<CBPWinWidget>(QWidget *parent)
{
    return new InitialisedWindow(parent);
}

template <class Widget>
WidgetRow row(const char *group, const char *tip, const QByteArray &inside = {}, const QSize &size = {})
{
    return {&Widget::staticMetaObject, make<Widget>, group, tip, size, inside, false, nullptr};
}

WidgetRow container(WidgetRow row, const char *addPage = nullptr)
{
    row.isContainer = true;
    row.addPage = addPage;
    return row;
}

// What a new one has: a property as a form file has it.
QByteArray text(const char *name, const char *value)
{
    return QByteArray("<property name='") + name + "'><string>" + value + "</string></property>";
}

QByteArray list(const char *name, std::initializer_list<const char *> entries)
{
    QByteArray xml = QByteArray("<property name='") + name + "'><stringlist>";
    for (const char *entry : entries)
        xml += QByteArray("<string>") + entry + "</string>";
    return xml + "</stringlist></property>";
}

QByteArray on(const char *name)
{
    return QByteArray("<property name='") + name + "'><bool>true</bool></property>";
}

QByteArray number(const char *name, int value)
{
    return QByteArray("<property name='") + name + "'><number>" + QByteArray::number(value) +
           "</number></property>";
}

QByteArray page(const char *name, const char *title = nullptr)
{
    return QByteArray("<widget class='QWidget' name='") + name + "'>" +
           (title ? text("windowTitle", title) : "") + "</widget>";
}

// The library's own pictures, one for each state.
QByteArray pictures(const char *property, const QByteArray &stem)
{
    QByteArray xml = QByteArray("<property name='") + property + "'><stringlist>";
    for (const char *state : {"normal", "hover", "press", "disable"})
        xml += "<string>../res/" + stem + '_' + state + ".png</string>";
    return xml + "</stringlist></property>";
}

QByteArray frames()
{
    QByteArray xml = "<property name='frames'><stringlist>";
    for (int i = 0; i < 24; ++i)
        xml +=
            "<string>../res/loading/loading" + QByteArray::number(i).rightJustified(2, '0') + ".png</string>";
    return xml + "</stringlist></property>";
}

// ------------------------------------------------------------------------------------------------------------
// the groups

QVector<WidgetRow> buttons()
{
    return {
        row<CBPPushBtn>(kButtons, "A push button with an icon, an id and a menu if wanted",
                        text("text", "Button") + on("autoResize")),
        row<CBPMenuBtn>(kButtons, "A push button that opens a menu", text("text", "Menu") + on("hasMenu")),
        row<CAddBtn>(kButtons, "A button with a plus, to add something", text("text", "Add")),
        row<CBPRoundBtn>(kButtons, "A round push button", text("text", "1")),
        row<CTriStateButton>(kButtons, "A button that is chosen or not", text("text", "Choice"),
                             QSize(60, 28)),
        row<CButtonGroupBox>(kButtons, "A row of buttons, of which one is chosen",
                             list("items", {"One", "Two", "Three"})),
        row<CExpandBtn>(kButtons, "A button that opens and closes what lies below it", text("text", "More")),
        row<CBPImageButton>(kButtons, "A button drawn from a picture for each state",
                            pictures("images", "list")),
        row<CBPImageTextBtn>(kButtons, "A picture with a text beside or below it",
                             pictures("images", "list") + text("label", "List")),
        row<CBPToolButton>(kButtons, "A flat button with a picture, a text and a menu if wanted",
                           pictures("images", "list") + text("text", "List") + on("autoResize")),
        row<CBPDropdownBtn>(kButtons, "A button with a menu, as a whole or at its end",
                            text("text", "Choose")),
        row<CBPLinkerButton>(kButtons, "A text that is clicked as a link", text("text", "Read more")),
        row<CBPCheckBox>(kButtons, "A check box", text("text", "Check box")),
        row<CBPImageCheckBox>(kButtons, "A check box drawn from pictures", text("text", "Check box")),
    };
}

QVector<WidgetRow> menusAndViews()
{
    return {
        row<CBPComboBox>(kMenus, "A combo box that the wheel does not change"),
        row<CBPTreeWidget>(kMenus, "A tree of items", {}, QSize(256, 192)),
        row<CBPTreeView>(kMenus, "A view of a tree of data", {}, QSize(256, 192)),
        row<CBPTableWidget>(kMenus, "A table of items", {}, QSize(256, 192)),
        row<CBPQtTableView>(kMenus, "A view of a table of data", {}, QSize(256, 192)),
    };
}

QVector<WidgetRow> input()
{
    return {
        row<CBPLineEdit>(kInput, "A line edit, with an icon if wanted", {}, QSize(160, 28)),
        row<CBPTextEdit>(kInput, "An edit of several lines with a greatest length", {}, QSize(240, 120)),
        row<CBPSearchEdit>(kInput, "A search field with a clear button", {}, QSize(200, 28)),
        row<CBPIPInputWidget>(kInput, "An IPv4 address in four parts"),
    };
}

QVector<WidgetRow> datesAndTimes()
{
    return {
        row<CBPDateSelector>(kDates, "A date to type, or to pick from a calendar", {}, QSize(160, 30)),
        row<CBPDaySelector>(kDates, "A choice of several days",
                            list("items", {"1", "2", "3", "4", "5", "6", "7"}) +
                                text("selectAllItem", "All")),
        row<CBPWeekSelector>(kDates, "A choice of several days of the week",
                             list("items", {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"})),
        row<CEditTimeEdit>(kDates, "A short list of times of day",
                           text("addIcon", "../res/add.png") + text("deleteIcon", "../res/delete.png") +
                               number("maximumCount", 3),
                           QSize(320, 28)),
    };
}

QVector<WidgetRow> containers()
{
    return {
        container(row<CBPWidget>(kContainers, "A plain ground", {}, QSize(160, 120))),
        container(row<CBPBox>(kContainers, "A ground with a frame if wanted, which its layout fills", {},
                              QSize(160, 120))),
        container(
            row<CBPGridBox>(kContainers, "A box with lines between what is in it", {}, QSize(160, 120))),
        container(row<CBPFlowWidget>(kContainers, "Widgets that flow from line to line, as words do", {},
                                     QSize(200, 120))),
        container(row<CTabContainer>(kContainers, "Pages behind tabs",
                                     page("tab", "First") + page("tab_2", "Second"), QSize(320, 200)),
                  "addPage"),
        container(row<CBPScrollWnd>(kContainers, "A scroll area", on("widgetResizable") + page("contents"),
                                    QSize(200, 150))),
        container(row<CBPQtGroupBox>(kContainers, "A group box", text("title", "Group"), QSize(160, 120))),
    };
}

QVector<WidgetRow> displays()
{
    return {
        row<CBPLabel>(kDisplay, "A label in the library's font", text("text", "Text")),
        row<CBPDrawLabel>(kDisplay, "A text in the middle, with the outline of a pill if wanted",
                          text("text", "Text") + on("rounded")),
        row<CFoucsLabel>(kDisplay, "A heading that is clicked, one of several", text("text", "Heading")),
        row<CBPImage>(kDisplay, "A picture from a file", text("imagePath", "../res/icon_info.png")),
        row<CBPGifLable>(kDisplay, "Pictures of a folder, one after the other", {}, QSize(32, 32)),
        row<CBPEllipsisGifLabel>(kDisplay, "Dots that come and go", text("text", "..."), QSize(32, 20)),
        row<CBPLine>(kDisplay, "A filled line", {}, QSize(120, 2)),
        row<CBPQtLine>(kDisplay, "A line as Qt draws it", {}, QSize(120, 3)),
        row<CBPGradientProgressBar>(kDisplay, "A progress bar with a moving gradient",
                                    "<property name='value'><double>0.4</double></property>", QSize(240, 20)),
        row<CBPJumpSlider>(kDisplay, "A slider that jumps from label to label",
                           list("labels", {"Low", "Medium", "High"}), QSize(280, 60)),
        row<CBPSmoothSlider>(kDisplay, "A slider with a value", list("labels", {"0", "50", "100"}),
                             QSize(280, 60)),
        row<CBPScrollBar>(kDisplay, "A scroll bar", {}, QSize(120, 12)),
    };
}

QVector<WidgetRow> windows()
{
    const auto window = [](const QMetaObject &type, QWidget *(*make)(QWidget *), const char *tip,
                           const QByteArray &inside) {
        return WidgetRow{&type, make, kWindows, tip, QSize(480, 320), inside, true, "setContentWidget"};
    };
    WidgetRow mainWindow =
        container(row<CBaseWin>(kWindows, "The main window without the system's frame",
                                text("caption", "Window") + page("centralwidget"), QSize(640, 400)));
    mainWindow.make = [](QWidget *parent) -> QWidget * { return new MainWindow(parent); };
    return {
        mainWindow,
        window(CBPWinWidget::staticMetaObject, makeWindow<CBPWinWidget>, "A framed window",
               text("title", "Window") + page("content")),
        window(CBPPopWnd::staticMetaObject, makeWindow<CBPPopWnd>, "A framed dialog with a row of buttons",
               text("title", "Dialog") + page("content")),
    };
}

} // namespace

const char *WidgetRow::base() const
{
    const QMetaObject *base = type;
    while (base->className()[0] == 'C')
        base = base->superClass();
    return base->className();
}

const QVector<WidgetRow> &widgetTable()
{
    static const QVector<WidgetRow> table = [] {
        QVector<WidgetRow> rows = buttons();
        rows += menusAndViews();
        rows += input();
        rows += datesAndTimes();
        rows += containers();
        rows += displays();
        rows += row<CBPWaitBtn>(kWaiting, "A push button that shows a spinner while something is going on",
                                text("text", "Start") + frames() + on("autoResize"));
        rows += windows();
        return rows;
    }();
    return table;
}
