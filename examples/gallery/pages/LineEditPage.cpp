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
#include <QKeyEvent>
#include <QStringListModel>
#include <QToolButton>

namespace {

constexpr int kEditWidth = 248;
constexpr int kEditHeight = 32;
constexpr int kColumnWidth = 280;
constexpr int kTextHeight = 96;
constexpr int kMaxLength = 100;

// What an application does with the class names; the library brings no look for edits of its own.
const char kSheet[] = "QLineEdit, QTextEdit { border: 1px solid #8793a1; border-radius: 3px;"
                      " background: white; selection-background-color: #4baeb2; }"
                      "QLineEdit { padding: 0 4px; }"
                      "QLineEdit:focus, QTextEdit:focus { border-color: #2f86d8; }"
                      "QLineEdit:disabled { background: #f3f5f7; }";

template <class Edit> Edit *framed(Edit *edit)
{
    // A search field has a sheet of its own, which stays.
    edit->setStyleSheet(edit->styleSheet() + QLatin1String(kSheet));
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Text, theme::kInk);
    palette.setColor(QPalette::Disabled, QPalette::Text, theme::kCaption);
    palette.setColor(QPalette::PlaceholderText, theme::kCaption);
    edit->setPalette(palette);
    edit->setFont(theme::font(theme::Normal, 14));
    edit->setFixedSize(kEditWidth, kEditHeight);
    return edit;
}

CBPLineEdit *line(const QString &text, const QString &icon = QString(), bool blocks = false)
{
    auto *edit = framed(new CBPLineEdit(icon.isEmpty() ? QString() : theme::picturePath(icon), blocks));
    edit->setText(text);
    return edit;
}

CBPLineEdit *password()
{
    CBPLineEdit *edit = line("a secret", "icon_lock.png", true);
    edit->setEchoMode(QLineEdit::Password);
    return edit;
}

CBPLineEdit *disabled()
{
    CBPLineEdit *edit = line("Not now", "icon_user.png");
    edit->setEnabled(false);
    return edit;
}

CBPSearchEdit *searchField(const QString &text = QString())
{
    auto *edit = framed(new CBPSearchEdit(nullptr));
    edit->setPlaceholderText("Search");
    edit->setText(text);
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
    CBPLineEdit *edit = line("Click: all is selected", "icon_user.png");
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
                                   "goes on to the button inside.");
    auto *log = new EventLog("No signal yet: type something.");
    section->addColumns(kColumnWidth, {{"CBPLineEdit", liveLine(log)}, {"CBPSearchEdit", liveSearch(log)}});
    section->addWide(log);
}

void addLineEdits(Page *page)
{
    Section *section = page->addSection(
        "Line edits", "With an icon or without. A password blocks the keys for select all, copy and paste.");
    section->addColumns(kColumnWidth, {{"Plain", line("Kim Larsen")},
                                       {"With an icon", line("Kim Larsen", "icon_user.png")},
                                       {"Password", password()}});
    section->addColumns(kColumnWidth, {{"Disabled", disabled()}});
}

void addSearchFields(Page *page)
{
    Section *section = page->addSection("Search fields",
                                        "The clear button takes the magnifier's place while there is a text, "
                                        "which never runs below it.");
    section->addColumns(kColumnWidth,
                        {{"Empty", searchField()},
                         {"With a text", searchField("calendar")},
                         {"The longest text: 50", searchField(QString("calendar ").repeated(9))}});
    section->addColumns(kColumnWidth, {{"Focus on the magnifier", withFocusInside(QString())},
                                       {"Focus on the clear button", withFocusInside("calendar")},
                                       {"Disabled", pose::in(pose::Disabled, searchField("calendar"))}});
}

CBPTextEdit *textEdit(const QString &text, int maxLength, int margin)
{
    auto *edit = framed(new CBPTextEdit);
    edit->setFixedHeight(kTextHeight);
    edit->setMaxLength(maxLength);
    edit->setTextMargin(margin, margin, margin, margin);
    edit->setPlainText(text);
    return edit;
}

void addTextEdits(Page *page)
{
    const QString text = "The text may go on over several lines, as long as its limit allows. ";
    page->addSection("Text edits", "With a greatest length, and space around the text.")
        ->addColumns(kColumnWidth, {{"No limit", textEdit(text, 0, 0)},
                                    {"Margins of 8", textEdit(text, 0, 8)},
                                    {"At most 100 characters", textEdit(text + text, kMaxLength, 0)}});
}

Page *makePage()
{
    auto *page = new Page("Line edits", "CBPLineEdit, CBPSearchEdit and CBPTextEdit, in the frame that this "
                                        "gallery's style sheet gives them.");
    addLiveSamples(page);
    addLineEdits(page);
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
