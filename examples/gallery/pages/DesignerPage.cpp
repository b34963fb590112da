#include "Page.h"
#include "PageRegistry.h"
#include "Pose.h"
#include "Theme.h"
#include "ui_settings.h"

#include "CBPPushBtn.h"

#include <QFile>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>

namespace {

constexpr QSize kDialog(620, 632);
constexpr int kGap = 2 * theme::kUnit;
constexpr int kFontSize = 12;

//! [dialog]
// All that is left to write for a dialog of Designer.
class SettingsDialog : public CBPPopWnd
{
public:
    explicit SettingsDialog(QWidget *parent = nullptr, int page = 0) : CBPPopWnd(false, parent)
    {
        Init(true);
        m_form.setupUi(this);
        m_form.pages->setCurrentPage(page);
    }

private:
    Ui::SettingsDialog m_form;
};
//! [dialog]

QPixmap portrait(int page)
{
    SettingsDialog dialog(nullptr, page);
    dialog.grab(); // of what was never painted the style has not said the size
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return pose::portrait(dialog, kDialog.width(), kDialog.height());
}

QString formText()
{
    QFile file(QStringLiteral(":/form/settings.ui"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QWidget *formView()
{
    auto *view = new QPlainTextEdit(formText());
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(kFontSize);
    view->setFont(font);
    view->setReadOnly(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFrameShape(QFrame::NoFrame);
    view->setAccessibleName("The form as it is saved");
    return view;
}

void addDialog(Page *page)
{
    Section *section = page->addSection(
        "A dialog made in Designer",
        "At the left as the program shows it, at the right as Designer saves it. Every size, text, value and "
        "list of it comes from the form.");
    auto *both = new QWidget;
    auto *row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    row->addWidget(pose::shown([] { return portrait(0); }));
    QWidget *view = formView();
    view->setFixedHeight(kDialog.height());
    row->addWidget(view, 1);
    section->addWide(both);
}

void addPages(Page *page)
{
    Section *section =
        page->addSection("Its other pages", "A page of a tab container is a page in Designer, too.");
    for (const int number : {1, 2})
        section->addWide(pose::shown([number] { return portrait(number); }));
}

void addButton(Page *page)
{
    auto *open = new CBPPushBtn("Open it", nullptr);
    QObject::connect(open, &CBPPushBtn::sigBtnClicked, open, [open] {
        SettingsDialog dialog(open->window());
        dialog.Run();
    });
    page->addSection("Try it", "The dialog as a program has it: tabs, keys and values work.")
        ->addSamples({{QString(), open}});
}

Page *makePage()
{
    auto *page =
        new Page("Designer form", "With the library's plugin Qt Designer shows its widgets, sets their "
                                  "properties and saves forms, which uic compiles or QUiLoader loads.");
    addButton(page);
    addDialog(page);
    addPages(page);
    return page;
}

void registerThis()
{
    registerPage({"designer-form", "Designer form", PageGroup::Foundation, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
