#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPBox.h"
#include "CBPCheckBox.h"
#include "CBPPopWnd.h"
#include "CBPPushBtn.h"
#include "CBPWaitBtn.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr int kColumns = 2;
constexpr int kSampleWidth = 420;

enum TitleId { Minimize = 2, Close = 8 };
enum Flag {
    Add = 0x2,
    Ok = 0x4,
    Retry = 0x8,
    Skip = 0x20,
    SkipAll = 0x40,
    Cancel = 0x100,
    Yes = 0x800,
    No = 0x1000,
    Other = 0x8000,
    Browse = 0x40000,
    Back = 0x80000,
    RestartNow = 0x200000,
    RestartLater = 0x400000,
};

// Every bit that has a button, four to a row of the page.
const QVector<int> kRows[] = {{0x2, 0x4, 0x8, 0x10},
                              {0x20, 0x80, 0x800, 0x8000},
                              {0x40000, 0x4000, 0x40, 0x10000},
                              {0x20000, 0x2000, 0x1000, 0x100},
                              {0x80000, 0x100000, 0x200000, 0x400000}};

// A dialog as an application derives it: a field that must hold something before OK is accepted.
class PopUp : public CBPPopWnd
{
public:
    PopUp(const QString &title, QWidget *parent, bool fadeIn = false) : CBPPopWnd(fadeIn, parent)
    {
        Init(true);
        SetMainBoxBorder(24, 20, 24, 16);
        SetStatusBoxBorder(24, 12, 24, 16);
        SetWindowTitle(title);
        ShowTitleBtn(Close, true);
    }

    void addText(const QString &text)
    {
        AppendContent(theme::label(text, theme::Normal, 14, theme::kText, true), false, false, 8);
    }

    QLineEdit *addField()
    {
        m_field = new QLineEdit;
        m_field->setMinimumHeight(32);
        m_field->setAccessibleName("Name");
        AppendContent(m_field, false, false, 0);
        return m_field;
    }

protected:
    bool proceedBtnClicked(int flag) override
    {
        if (flag != Ok || !m_field || !m_field->text().trimmed().isEmpty())
            return true;
        m_field->setPlaceholderText("A name is needed");
        m_field->setFocus();
        return false;
    }

private:
    QLineEdit *m_field = nullptr;
};

QPixmap plainPortrait()
{
    PopUp dialog("Replace the file?", nullptr);
    dialog.addText("A file of this name is there already. It is kept under another name.");
    dialog.AppendBtn(Yes | No | Cancel);
    return pose::portrait(dialog, kSampleWidth, 232);
}

QPixmap groupsPortrait()
{
    PopUp dialog("Two groups", nullptr);
    dialog.addText("Buttons are appended at the right and prepended at the left.");
    dialog.PrependBtn(Back);
    dialog.AppendBtn(Ok | Cancel);
    return pose::portrait(dialog, kSampleWidth, 232);
}

QPixmap widgetPortrait()
{
    PopUp dialog("Widgets in the row", nullptr);
    dialog.addText("The row takes any widget, here a check box.");
    auto *box = new CBPCheckBox("Do not ask again", nullptr);
    dialog.PrependWidget(box, false, false, 0, Qt::AlignLeft | Qt::AlignVCenter);
    dialog.AppendBtn(Ok | Cancel);
    return pose::portrait(dialog, kSampleWidth, 232);
}

QPixmap disabledPortrait()
{
    PopUp dialog("Disabled buttons", nullptr);
    dialog.addText("Each button is enabled and disabled by its flag.");
    dialog.AppendBtn(Ok | Retry | Cancel);
    dialog.EnableButton(Ok, false);
    dialog.EnableButton(Cancel, false);
    return pose::portrait(dialog, kSampleWidth, 232);
}

QPixmap textPortrait()
{
    PopUp dialog("Texts of the application", nullptr);
    dialog.addText("A button whose text is longer than the others' becomes wider.");
    dialog.PrependBtn(Other);
    dialog.AppendBtn(Ok | RestartLater);
    dialog.ResetBtnText(Other, "Details");
    dialog.ResetBtnText(Ok, "Save the changes");
    return pose::portrait(dialog, kSampleWidth, 232);
}

// The ring around a primary button is the pop-up's to paint: it has to have the focus in earnest.
QPixmap focusPortrait(int flag)
{
    const QPointer<QWidget> before = QApplication::activeWindow();
    PopUp dialog("Keyboard focus", nullptr);
    dialog.addText("A ring marks the button that the keyboard presses.");
    dialog.AppendBtn(Ok | Cancel);
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.setAttribute(Qt::WA_QuitOnClose, false);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    dialog.GetBtn(flag)->QWidget::setFocus();
    const QPixmap shown = pose::portrait(dialog, kSampleWidth, 232);
    QApplication::setActiveWindow(before);
    return shown;
}

QPixmap waitingPortrait()
{
    PopUp dialog("A button waits", nullptr);
    dialog.addText("Its spinner stands in place of the caption until the job is done.");
    dialog.AppendBtn(Yes | No | Cancel);
    for (const int flag : {Yes, Cancel}) {
        CBPPushBtn *button = dialog.GetBtn(flag);
        QIcon icon;
        icon.addPixmap(theme::picture("loading/loading04.png"), QIcon::Disabled);
        button->setIconSize(QSize(20, 20));
        button->setIcon(icon);
        button->setText(QString());
        qobject_cast<CBPWaitBtn *>(button)->Show(true);
    }
    return pose::portrait(dialog, kSampleWidth, 232);
}

QPixmap plainFramePortrait()
{
    PopUp dialog("Without a line", nullptr);
    dialog.SetDrawBottomHLine(false);
    dialog.addText("The line above the buttons can be left out.");
    dialog.AppendBtn(Ok);
    return pose::portrait(dialog, kSampleWidth, 232);
}

// Rows are made when a dialog is shown, and here for its width, on a large screen.
QPixmap wrappedPortrait()
{
    PopUp dialog("More than one row", nullptr);
    dialog.addText("Buttons that do not fit beside the others move to another row.");
    dialog.PrependBtn(Back);
    dialog.AppendBtn(Yes | Retry | Skip | SkipAll | No | Cancel);
    dialog.setFixedWidth(kSampleWidth);
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.setAttribute(Qt::WA_QuitOnClose, false);
    dialog.show();
    return pose::portrait(dialog, kSampleWidth, 328);
}

void addPortraits(Page *page)
{
    page->addSection("Windows",
                     "The pop-up paints a white body, a soft shadow around it and a line above "
                     "the row of buttons. Where a screen cannot blend windows, an outline takes the "
                     "place of the shadow.")
        ->addColumns(
            kColumns,
            {{"Yes, No and Cancel: AppendBtn(0x1900)", pose::shown(plainPortrait)},
             {"Back at the left: PrependBtn(0x80000), AppendBtn(0x104)", pose::shown(groupsPortrait)},
             {"A check box at the left: PrependWidget()", pose::shown(widgetPortrait)},
             {"Disabled buttons: EnableButton(flag, false)", pose::shown(disabledPortrait)},
             {"Other texts: ResetBtnText()", pose::shown(textPortrait)},
             {"The keyboard focus on a primary button", pose::shown([] { return focusPortrait(Ok); })},
             {"The keyboard focus on a secondary button", pose::shown([] { return focusPortrait(Cancel); })},
             {"Two buttons that wait: CBPWaitBtn::run()", pose::shown(waitingPortrait)},
             {"No line above the buttons: SetDrawBottomHLine(false)", pose::shown(plainFramePortrait)},
             {"Several rows: PrependBtn(0x80000), AppendBtn(0x1968)", pose::shown(wrappedPortrait)}});
}

// The buttons of a pop-up, out of it: the captions and kinds of all flags.
void addButtons(Page *page)
{
    Section *section = page->addSection(
        "Standard buttons", "They stand in the order in which a row holds them. Cancel, No, "
                            "Restart later and the one whose text the application sets are secondary.");
    auto *keeper = new CBPPopWnd(false, page); // owns the row that the buttons come from
    keeper->Init(false);
    for (const QVector<int> &flags : kRows) {
        QVector<Sample> samples;
        for (const int flag : flags) {
            keeper->AppendBtn(flag);
            CBPPushBtn *button = keeper->GetBtn(flag);
            if (flag == Other)
                keeper->ResetBtnText(flag, "Other");
            button->disconnect(keeper);
            button->removeEventFilter(keeper);
            samples << Sample{"0x" + QString::number(flag, 16), button};
        }
        section->addColumns(2 * kColumns, samples);
    }
    QVector<SampleRow> rows;
    for (const int flag : {Ok, Cancel}) {
        SampleRow row{flag == Ok ? "Primary" : "Secondary", {}};
        for (const auto state : {pose::Normal, pose::Hovered, pose::Pressed, pose::Disabled}) {
            keeper->AppendBtn(flag);
            CBPPushBtn *button = keeper->GetBtn(flag);
            button->disconnect(keeper);
            button->removeEventFilter(keeper);
            row.widgets << pose::in(state, button);
        }
        rows << row;
    }
    section->addTable({"At rest", "Under the pointer", "Pressed", "Disabled"}, rows);
}

int refuse(int, void *)
{
    return -1;
}

void report(EventLog *log, const QString &what)
{
    if (log)
        log->add(what);
}

void run(EventLog *log, PopUp *dialog)
{
    const QPointer<PopUp> alive(dialog);
    const QPointer<EventLog> to(log);
    dialog->setFixedWidth(kSampleWidth);
    QObject::connect(dialog, &CBPPopWnd::sigQuit, log, [log] { log->add("sigQuit()"); });
    dialog->Run();
    if (!alive)
        return;
    report(to, QString("GetResult() is 0x%1").arg(dialog->GetResult(), 0, 16));
    delete dialog;
}

void askName(EventLog *log)
{
    auto *dialog = new PopUp("New folder", log->window(), true);
    dialog->PrependBtn(Browse);
    dialog->AppendBtn(Ok | Cancel);
    dialog->addText("OK is accepted once there is a name. Escape does nothing, the title bar closes.");
    dialog->addField();
    run(log, dialog);
}

void askStubbornly(EventLog *log)
{
    auto *dialog = new PopUp("Kept open", log->window(), true);
    dialog->AppendBtn(Retry | Skip);
    dialog->addText("A callback answers -1 to every button: only the title bar ends this one.");
    dialog->SetBtnClickCB(&refuse, nullptr);
    run(log, dialog);
}

Page *makePage()
{
    auto *page =
        new Page("Pop-up windows", "CBPPopWnd: the modal dialog with a row of standard buttons, one of "
                                   "which is its result.");
    Section *section = page->addSection("Try it", "Each pop-up tells its result when it is closed.");
    auto *log = new EventLog("No result yet: run a pop-up and press one of its buttons.");
    section->addSamples({{"proceedBtnClicked()", loggedButton("Ask for a name", log, &askName)},
                         {"SetBtnClickCB()", loggedButton("Refuse every button", log, &askStubbornly)}});
    section->addWide(log);
    addPortraits(page);
    addButtons(page);
    return page;
}

void registerThis()
{
    registerPage({"pop-up-windows", "Pop-up windows", PageGroup::Windows, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
