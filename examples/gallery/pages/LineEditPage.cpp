#include "EventLog.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"

#include "CBPLineEdit.h"
#include "CBPSearchEdit.h"
#include "CBPTextEdit.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QIntValidator>
#include <QKeyEvent>
#include <QStringListModel>
#include <QToolButton>

namespace {

constexpr int kEditWidth = 248;
constexpr int kColumnWidth = 280;
constexpr int kTextHeight = 96;
constexpr int kMaxLength = 100;
constexpr int kLeastNumber = 100;
constexpr int kGreatestNumber = 999;

// The page's type and colours, and a name for screen readers; the look is the edit's own.
template <class Edit> Edit *prepared(Edit *edit, const QString &name)
{
    theme::setFieldTexts(edit);
    edit->setFont(theme::font(theme::Normal, 14));
    edit->setFixedWidth(kEditWidth);
    edit->setAccessibleName(name);
    return edit;
}

CBPLineEdit *line(const QString &text, const QString &icon = QString(), bool blocks = false)
{
    const QString path = icon.isEmpty() ? QString() : theme::picturePath(icon);
    auto *edit = prepared(new CBPLineEdit(path, blocks), QStringLiteral("Name"));
    edit->setText(text);
    return edit;
}

CBPLineEdit *password()
{
    CBPLineEdit *edit = line("a secret", "icon_lock.png", true);
    edit->setAccessibleName("Password");
    edit->setEchoMode(QLineEdit::Password);
    return edit;
}

CBPLineEdit *readOnly()
{
    CBPLineEdit *edit = line("Kim Larsen");
    edit->setReadOnly(true);
    return edit;
}

CBPLineEdit *number(const QString &text)
{
    CBPLineEdit *edit = line(text);
    edit->setAccessibleName("Number");
    edit->setValidator(new QIntValidator(kLeastNumber, kGreatestNumber, edit));
    edit->setPlaceholderText("100 to 999");
    return edit;
}

CBPSearchEdit *searchField(const QString &text = QString())
{
    auto *edit = prepared(new CBPSearchEdit(nullptr), QString()); // which names itself
    edit->setPlaceholderText("Search");
    edit->setText(text);
    edit->home(false);
    return edit;
}

// As the Tab key leaves it, which moves on to the button inside.
CBPSearchEdit *withFocusInside(const QString &text)
{
    CBPSearchEdit *edit = searchField(text);
    auto *button = edit->findChild<QToolButton *>(text.isEmpty() ? "btnSearch" : "btnClose");
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(button, &in);
    return edit;
}

CBPSearchEdit *liveSearch(EventLog *log)
{
    CBPSearchEdit *edit = searchField();
    auto *words = new QStringListModel({"calendar", "camera", "contacts"}, edit->completer());
    edit->completer()->setModel(words);
    QObject::connect(edit, &CBPSearchEdit::DoSearch, log, [log](bool search, const QString &text) {
        log->add(QString("DoSearch(%1, \"%2\")").arg(search ? "true" : "false", text));
    });
    return edit;
}

CBPLineEdit *liveLine(EventLog *log)
{
    CBPLineEdit *edit = line("A click selects everything", "icon_user.png");
    QObject::connect(edit, &CBPLineEdit::KeyPressed, log, [log](QKeyEvent *event) {
        log->add(QString("KeyPressed(%1)").arg(QKeySequence(event->key()).toString()));
    });
    QObject::connect(edit, &CBPLineEdit::sigLoseFocus, log, [log] { log->add("sigLoseFocus()"); });
    return edit;
}

void addLiveSamples(Page *page)
{
    Section *section =
        page->addSection("Try it", "The search starts 1.5 seconds after the last key, or with Return. Tab "
                                   "goes on to the button inside. A number that is too small has a red frame "
                                   "once the focus has left it.");
    auto *log = new EventLog("No signal yet: type something.");
    section->addColumns(3,
                        {{"CBPLineEdit", liveLine(log)},
                         {"CBPSearchEdit", liveSearch(log)},
                         {"CBPLineEdit with a validator", number(QString())}},
                        kEditWidth);
    section->addWide(log);
}

void addLineEdits(Page *page)
{
    page->addSection("Line edits",
                     "A field may have an icon. A password blocks the keys for select all, copy and paste.")
        ->addColumns(3,
                     {{"Plain", line("Kim Larsen")},
                      {"With an icon", line("Kim Larsen", "icon_user.png")},
                      {"Password", password()}},
                     kEditWidth);
}

void addStates(Page *page)
{
    Section *section = page->addSection("States", "A text that the validator would not accept is marked once "
                                                  "the focus has left it, not while it is being typed.");
    section->addColumns(3,
                        {{"Normal", line("Kim Larsen")},
                         {"Hovered", pose::in(pose::Hovered, line("Kim Larsen"))},
                         {"Focused", pose::in(pose::Focused, line("Kim Larsen"))},
                         {"Invalid: less than 100", pose::in(pose::Normal, number("12"))},
                         {"Disabled", pose::in(pose::Disabled, line("Kim Larsen", "icon_user.png"))},
                         {"Read-only", readOnly()}},
                        kEditWidth);
}

void addSearchFields(Page *page)
{
    Section *section = page->addSection("Search fields",
                                        "The clear button takes the magnifier's place while there is a text, "
                                        "which never runs below it.");
    section->addColumns(
        3,
        {{"Empty", searchField()},
         {"With a text", searchField("calendar")},
         {"The longest text has 50 characters", searchField(QString("calendar ").repeated(9))},
         {"Focus on the magnifier", withFocusInside(QString())},
         {"Focus on the clear button", withFocusInside("calendar")},
         {"Disabled", pose::in(pose::Disabled, searchField("calendar"))}},
        kEditWidth);
}

CBPTextEdit *textEdit(const QString &text, int maxLength, int margin)
{
    auto *edit = prepared(new CBPTextEdit, QStringLiteral("Notes"));
    edit->setFixedHeight(kTextHeight);
    edit->setMaxLength(maxLength);
    edit->setTextMargin(margin, margin, margin, margin);
    edit->setPlainText(text);
    return edit;
}

void addTextEdits(Page *page)
{
    const QString text = "The text may go on over several lines, as long as its limit allows. ";
    page->addSection("Text edits", "There may be a limit to the text, and space around it.")
        ->addColumns(3,
                     {{"No limit", textEdit(text, 0, 0)},
                      {"Margins of 8 pixels", textEdit(text, 0, 8)},
                      {"At most 100 characters", textEdit(text + text, kMaxLength, 0)},
                      {"Focused", pose::in(pose::Focused, textEdit(text, 0, 0))},
                      {"Disabled, with margins", pose::in(pose::Disabled, textEdit(text, 0, 8))}},
                     kEditWidth);
}

Page *makePage()
{
    auto *page =
        new Page("Line edits", "CBPLineEdit, CBPSearchEdit and CBPTextEdit: fields for a line, for a "
                               "search and for a longer text.");
    addLiveSamples(page);
    addLineEdits(page);
    addStates(page);
    addSearchFields(page);
    addTextEdits(page);
    return page;
}

void registerThis()
{
    registerPage({"lineedits", "Line edits", PageGroup::Input, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
