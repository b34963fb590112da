#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPLineEdit.h"
#include "CBPPushBtn.h"
#include "CMsgBox.h"

#include <QCheckBox>
#include <QLabel>
#include <QPointer>

#include <functional>

namespace {

constexpr int kColumns = 2;
constexpr int kSampleWidth = 420;

enum Type { Info, Question, Warning, Error, Other };
enum Flag { Ok = 0x4, Retry = 0x8, Cancel = 0x100, Yes = 0x800, No = 0x1000 };
enum Field { User = 0x1, Password = 0x2, Hint = 0x4 };

const char kText[] = "The folder \"Invoices\" holds 38 files. They are kept in the bin for 30 days.";
const char kLong[] = "A text that needs more than a line is broken into as many as it takes, and the box "
                     "becomes taller for it. Nothing of it is cut off: neither an address without a place to "
                     "break, such as "
                     "https://www.example.org/a/rather/long/path/to/one/single/document/of/the/archive.html, "
                     "nor a list.\n\n1. It keeps the line ends it has.\n2. What is taller than the screen "
                     "scrolls.";

// Takes the picture of itself while it is being shown, and ends before anything is seen.
class Posed : public CMsgBox
{
public:
    explicit Posed(int width)
    {
        setAttribute(Qt::WA_DontShowOnScreen);
        if (width > 0)
            setFixedWidth(width);
    }

    std::function<void()> prepare;
    QPixmap picture;

protected:
    void showEvent(QShowEvent *event) override
    {
        CMsgBox::showEvent(event);
        if (prepare)
            prepare();
        picture = grab();
        UnRun();
    }
};

using Ask = std::function<int(CMsgBox *)>;

QWidget *portrait(const Ask &ask, int width = kSampleWidth, const std::function<void(Posed *)> &prepare = {})
{
    return pose::shown([=] {
        Posed box(width);
        if (prepare)
            box.prepare = [&box, &prepare] { prepare(&box); };
        ask(&box);
        return box.picture;
    });
}

void addMessages(Page *page)
{
    const auto of = [](int type, const char *head, int buttons) {
        return portrait([=](CMsgBox *box) { return box->message(type, kText, head, buttons); });
    };
    Section *section = page->addSection(
        "Messages", "The type brings the icon and the title. A number with a bit for each button brings "
                    "the buttons: 0x104 is OK, 0x4, and Cancel, 0x100. A box is 500 pixels wide; "
                    "those side by side here are narrower.");
    section->addSamples(
        {{"A message with OK: message(0, text, head, 0x4)",
          portrait([](CMsgBox *box) { return box->message(Info, kText, "The folder was deleted", Ok); },
                   0)}});
    section->addColumns(kColumns,
                        {{"A question with Yes and No: message(1, text, head, 0x1800)",
                          of(Question, "Delete the folder?", Yes | No)},
                         {"A warning with OK and Cancel: message(2, text, head, 0x104)",
                          of(Warning, "The folder is not empty", Ok | Cancel)},
                         {"An error with Retry and Cancel: message(3, text, head, 0x108)",
                          of(Error, "The folder is in use", Retry | Cancel)},
                         {"A message without a heading: message(0, text, \"\", 0x4)", of(Info, "", Ok)}});
}

void addVariants(Page *page)
{
    Section *section = page->addSection("Check box, link and long texts",
                                        "The check box answers in the result, the link with a signal.");
    const Ask checked = [](CMsgBox *box) {
        return box->messageWithCheckbox(Question, kText, "Do not ask again", "Delete the folder?", Yes | No);
    };
    const Ask longCheck = [](CMsgBox *box) {
        return box->messageWithCheckbox(Warning, kText,
                                        "Delete shared folders, too, and do not ask me about any of them",
                                        "Delete the folder?", Ok | Cancel);
    };
    const Ask link = [](CMsgBox *box) {
        return box->messageWithLink(Info, kText, "What happens to the files in it?",
                                    "https://www.example.org/help", "The folder was deleted", Ok,
                                    "A title of its own");
    };
    const Ask markup = [](CMsgBox *box) {
        return box->message(Error,
                            "Rich text is <b>shown</b> as in any label:<ul><li>one</li>"
                            "<li><i>two</i></li></ul>",
                            "The folder is in use", Ok);
    };
    section->addColumns(
        kColumns, {{"messageWithCheckbox()", portrait(checked, kSampleWidth,
                                                      [](Posed *box) {
                                                          if (auto *check = box->findChild<QCheckBox *>())
                                                              check->setChecked(true);
                                                      })},
                   {"A check text on several lines", portrait(longCheck)},
                   {"messageWithLink() with a title", portrait(link)},
                   {"A rich text", portrait(markup)}});
    section->addSamples({{"A long text", portrait(
                                             [](CMsgBox *box) {
                                                 return box->message(Warning, kLong,
                                                                     "A box grows with its texts",
                                                                     Ok | Cancel);
                                             },
                                             0)}});
}

void addForms(Page *page)
{
    Section *section =
        page->addSection("Forms", "The OK button is enabled once all required fields are filled in.");
    const Ask folder = [](CMsgBox *box) {
        return box->showCreateDirBox(Question, "Name of the new folder:", Ok | Cancel, "New folder");
    };
    const auto name = [](Posed *box) {
        if (auto *edit = box->findChild<CBPLineEdit *>())
            edit->setText("Invoices");
    };
    const Ask user = [](CMsgBox *box) {
        return box->showUserAndPasswordBox(Question, "Sign in to the server archive.", User | Password, 64,
                                           Ok | Cancel, "Sign in", "Robin", "a secret");
    };
    const Ask wrong = [](CMsgBox *box) {
        return box->showUserAndPasswordBox(Warning, "", Password | Hint, 64, Ok | Cancel, "Sign in", "Robin",
                                           "", "The password is wrong. Two attempts are left.");
    };
    section->addColumns(kColumns,
                        {{"showCreateDirBox()", portrait(folder)},
                         {"showCreateDirBox() with a name", portrait(folder, kSampleWidth, name)},
                         {"showUserAndPasswordBox() with name and password: fields 0x3", portrait(user)},
                         {"With password and hint: fields 0x6", portrait(wrong)}});
}

void run(EventLog *log, const Ask &ask)
{
    const QPointer<EventLog> to(log);
    QPointer<CMsgBox> box(new CMsgBox(log->window()));
    QObject::connect(box.data(), &CMsgBox::sigLinkClicked, log,
                     [log](const QString &target) { log->add("sigLinkClicked(" + target + ")"); });
    const int result = ask(box);
    if (to)
        to->add(result < 0 ? QString("-1") : QString("0x%1").arg(result, 0, 16));
    if (to && box && !box->GetUser().isEmpty())
        to->add("GetUser() is " + box->GetUser());
    delete box;
}

CBPPushBtn *opener(const QString &text, EventLog *log, const Ask &ask)
{
    auto *button = new CBPPushBtn(text, nullptr);
    button->setFixedWidth(144);
    QObject::connect(button, &CBPPushBtn::sigBtnClicked, log, [log, ask] { run(log, ask); });
    return button;
}

Page *makePage()
{
    auto *page = new Page("Message box", "CMsgBox: messages with an icon and a heading, and two small forms. "
                                         "Each call runs the box and returns the button that ended it.");
    Section *section =
        page->addSection("Try it", "Each box tells its result. The usual copy shortcut copies its texts.");
    auto *log = new EventLog("No result yet: open a box and press one of its buttons.");
    const Ask message = [](CMsgBox *box) { return box->message(Warning, kLong, "Go on?", Ok | Cancel); };
    const Ask check = [](CMsgBox *box) {
        return box->messageWithCheckbox(Question, kText, "Do not ask again", "Delete the folder?", Yes | No);
    };
    const Ask link = [](CMsgBox *box) {
        return box->messageWithLink(Info, kText, "Tell the log", QString(), "The folder was deleted", Ok);
    };
    const Ask folder = [](CMsgBox *box) {
        return box->showCreateDirBox(Question, "Name of the new folder:", Ok | Cancel, "New folder");
    };
    const Ask user = [](CMsgBox *box) {
        return box->showUserAndPasswordBox(Question, "Sign in to the server archive.", User | Password, 64,
                                           Ok | Cancel, "Sign in");
    };
    section->addSamples({{"message()", opener("A long message", log, message)},
                         {"messageWithCheckbox()", opener("A check box", log, check)},
                         {"messageWithLink()", opener("A link", log, link)},
                         {"showCreateDirBox()", opener("A folder's name", log, folder)},
                         {"showUserAndPasswordBox()", opener("A password", log, user)}});
    section->addWide(log);
    addMessages(page);
    addVariants(page);
    addForms(page);
    return page;
}

void registerThis()
{
    registerPage({"message-box", "Message box", PageGroup::Windows, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
