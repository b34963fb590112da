#include "GalleryWindow.h"
#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "CBaseSyncExecuter.h"
#include "CBPDateSelector.h"
#include "CBPDropdownBtn.h"
#include "CBPGradientProgressBar.h"
#include "CBPIPInputWidget.h"
#include "CBPLinkerButton.h"
#include "CBPPushBtn.h"
#include "CBPSearchEdit.h"
#include "CBPSmoothSlider.h"
#include "CBPWaitBtn.h"
#include "CButtonGroupBox.h"
#include "CEditTimeEdit.h"
#include "CMsgBox.h"
#include "CTabContainer.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int kColumns = 2;
constexpr int kGap = 3 * theme::kUnit;
constexpr int kPadding = 3 * theme::kUnit;
constexpr QSize kCardSize((theme::kPageWidth - kGap) / kColumns, 240);
constexpr int kAboveControls = 12;
constexpr int kButtonWidth = 96;
constexpr int kWideButton = 160;
constexpr int kSearchWidth = 168;
constexpr int kStepMs = 40;
constexpr double kStep = 0.004;

struct Link
{
    const char *text;
    const char *page;
};

class Card : public QWidget
{
public:
    Card(const QString &title, const QString &words)
    {
        setFixedSize(kCardSize);
        m_column = new QVBoxLayout(this);
        m_column->setContentsMargins(kPadding, 2 * theme::kUnit, kPadding, 2 * theme::kUnit);
        m_column->setSpacing(theme::kUnit / 2);
        m_column->addWidget(theme::label(title, theme::Semibold, 17, theme::kInk));
        // Two lines in every card, so that the controls of neighbours stand at one height.
        QLabel *sentence = theme::label(words, theme::Normal, 14, theme::kText, true);
        sentence->setMinimumHeight(2 * sentence->fontMetrics().lineSpacing());
        sentence->setAlignment(theme::lineStart() | Qt::AlignTop);
        m_column->addWidget(sentence);
        m_column->addSpacing(kAboveControls);
    }

    void addRow(const QVector<QWidget *> &widgets)
    {
        auto *row = new QHBoxLayout;
        row->setSpacing(2 * theme::kUnit);
        row->addStrut(theme::kControlHeight);
        for (QWidget *widget : widgets)
            row->addWidget(widget, 0, Qt::AlignVCenter);
        row->addStretch();
        m_column->addLayout(row);
    }

    // Takes all the room there is.
    void addWide(QWidget *widget) { m_column->addWidget(widget); }

    void addGap() { m_column->addSpacing(theme::kUnit); }

    void addLinks(const QVector<Link> &links)
    {
        auto *row = new QHBoxLayout;
        row->setSpacing(2 * theme::kUnit);
        for (const Link &link : links) {
            CBPLinkerButton *button = theme::link(QString::fromLatin1(link.text), this);
            const QString page = QString::fromLatin1(link.page);
            connect(button, &CBPLinkerButton::sigLinkerClick, this, [this, page] {
                if (auto *gallery = qobject_cast<GalleryWindow *>(window()))
                    gallery->showPage(page);
            });
            row->addWidget(button);
        }
        row->addStretch();
        m_column->addStretch();
        m_column->addLayout(row);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        theme::paintPanel(painter, rect());
    }

private:
    QVBoxLayout *m_column;
};

// Of the height that everything in a row has.
template <class Control> Control *inRow(Control *control, int width)
{
    control->setFixedSize(width, theme::kControlHeight);
    return control;
}

// A second and a half on its own thread.
class ShortJob : public CBaseSyncExecuter
{
public:
    using CBaseSyncExecuter::CBaseSyncExecuter;

protected:
    void run() override { msleep(1500); }
};

void waitIn(CBPWaitBtn *button)
{
    auto *job = new ShortJob(button, QString(), button->window(), nullptr);
    job->execute();
    if (job->isNeedDelete())
        delete job;
}

// Runs from 0 to 100 per cent and begins anew, while it can be seen.
class Progress : public CBPGradientProgressBar
{
public:
    Progress()
    {
        setAccessibleName(QStringLiteral("Progress"));
        m_timer.setInterval(kStepMs);
        connect(&m_timer, &QTimer::timeout, this, [this] {
            m_value = m_value >= 1.0 ? 0.0 : m_value + kStep;
            setValue(m_value);
        });
        setValue(m_value);
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        CBPGradientProgressBar::showEvent(event);
        m_timer.start();
    }
    void hideEvent(QHideEvent *event) override
    {
        CBPGradientProgressBar::hideEvent(event);
        m_timer.stop();
    }

private:
    QTimer m_timer;
    double m_value = 0.62;
};

Card *buttonsCard()
{
    auto *card = new Card("Buttons", "A look per state, a menu, a choice.");
    CButtonGroupBox *group = theme::buttonGroup(true);
    for (const auto &[id, text] : {std::pair(1, "Day"), std::pair(2, "Week")})
        group->AddButton(id, text, QString());
    theme::lowerButtons(group);
    group->GetButton(2)->setSelected(true);
    auto *menu = new CBPDropdownBtn("New", 1);
    menu->AppendMenuItem(QString(), "Folder", 1);
    menu->AppendMenuItem(QString(), "File", 2);
    card->addRow({inRow(theme::primaryButton("Save"), kButtonWidth), menu, group});
    card->addLinks({{"Push button", "push-button"},
                    {"Drop-down", "drop-down-button"},
                    {"Toggles and groups", "toggle-button"}});
    return card;
}

Card *windowsCard()
{
    auto *card = new Card("Windows and dialogs", "They draw their own frame and behave like the system's.");
    auto *ask = inRow(new CBPPushBtn("Ask a question", nullptr), kWideButton);
    QObject::connect(ask, &QAbstractButton::clicked, ask, [ask] {
        CMsgBox box(ask->window());
        box.message(1, "It holds 38 files. They are kept in the bin for 30 days.", "Delete the folder?",
                    0x1800);
    });
    auto *tell = inRow(new CBPPushBtn("Ask for a password", nullptr), kWideButton);
    QObject::connect(tell, &QAbstractButton::clicked, tell, [tell] {
        CMsgBox box(tell->window());
        box.showUserAndPasswordBox(0, "Sign in to the archive.", 3, 64, 0x104, "Sign in");
    });
    card->addRow({ask, tell});
    card->addLinks(
        {{"Message box", "message-box"}, {"Frameless window", "frameless-window"}, {"Tips", "tips"}});
    return card;
}

Card *waitingCard()
{
    auto *card =
        new Card("Waiting", "A job on its own thread: call execute(), and the interface stays alive.");
    auto *button = inRow(new CBPWaitBtn(theme::spinnerFrames(), "Run a job", "Working"), kWideButton);
    QObject::connect(button, &QAbstractButton::clicked, button, [button] { waitIn(button); });
    card->addRow({button});
    card->addLinks({{"Waiting", "waiting"}, {"Waiters", "waiters"}});
    return card;
}

Card *dateCard()
{
    auto *card = new Card("Date and time", "A calendar to open, days to pick, times to list.");
    auto *date = new CBPDateSelector;
    QDate day(2026, 3, 7);
    date->SetDate(day);
    date->setAccessibleName(QStringLiteral("Date"));
    auto *times =
        new CEditTimeEdit(QStringLiteral(":/gallery/plus.svg"), theme::picturePath("delete.png"), 2, nullptr);
    times->Initialize({QTime(6, 30)});
    card->addRow({date, times});
    card->addLinks(
        {{"Date selector", "dateselector"}, {"Days and weeks", "selectors"}, {"Time list", "timelist"}});
    return card;
}

Card *inputCard()
{
    auto *card = new Card("Input", "Fields that know what belongs in them.");
    auto *search = inRow(new CBPSearchEdit(nullptr), kSearchWidth);
    search->setPlaceholderText(QStringLiteral("Search"));
    search->setAccessibleName(QStringLiteral("Search"));
    auto *address = new CBPIPInputWidget;
    address->setFixedHeight(theme::kControlHeight);
    address->setAccessibleName(QStringLiteral("Address"));
    address->setIP(QStringLiteral("192.168.0.1"));
    card->addRow({search, address});
    card->addLinks({{"Line edits", "lineedits"}, {"IP address", "ip-address"}, {"Path list", "path-list"}});
    return card;
}

// The white rest of a bar needs a ground that is not.
QWidget *onDark(QWidget *bar)
{
    QWidget *strip = theme::ground(theme::kSide);
    auto *row = new QHBoxLayout(strip);
    row->setContentsMargins(12, theme::kUnit, 12, theme::kUnit);
    row->addWidget(bar);
    return strip;
}

Card *displayCard()
{
    auto *card = new Card("Display", "Progress and values, drawn at any size.");
    card->addWide(onDark(new Progress));
    card->addGap();
    auto *slider = new CBPSmoothSlider(nullptr);
    slider->Init({"0", "25", "50", "75", "100"}, 100, 0);
    slider->SetValue(60);
    slider->setAccessibleName(QStringLiteral("Value"));
    card->addWide(slider);
    card->addLinks(
        {{"Progress bar", "progress-bar"}, {"Sliders", "sliders"}, {"Frame animation", "animation"}});
    return card;
}

Card *containersCard()
{
    auto *card = new Card("Containers", "Boxes, tabs, a layout that flows.");
    auto *tabs = new CTabContainer;
    tabs->Appendtab(theme::label("What changed today", theme::Normal, 14, theme::kText), "Today", 1,
                    QString());
    tabs->Appendtab(theme::label("What changed this week", theme::Normal, 14, theme::kText), "Week", 2,
                    QString());
    theme::lowerButtons(tabs->findChild<CButtonGroupBox *>());
    card->addWide(tabs);
    card->addLinks({{"Tabs", "tabs"}, {"Flow layout", "flow-layout"}, {"Boxes", "boxes"}});
    return card;
}

Card *menusCard()
{
    auto *card =
        new Card("Menus and resources", "Pictures, fonts and colours come from files beside the program.");
    auto *button = new CBPDropdownBtn("Open a menu", 2);
    button->AppendMenuItem(QString(), "Rename", 1);
    button->AppendMenuItem(QString(), "Copy the address", 2);
    button->AppendMenuItem(QString(), "Delete", 3);
    card->addRow({button});
    card->addLinks({{"Menu", "menu"}, {"Resources", "resources"}});
    return card;
}

Page *makePage()
{
    auto *page = new Page(
        "LumQtLib",
        QString("Widgets for Qt %1 that look as if one designer had made them all. Everything here is "
                "live; the pages in the side bar show every widget in every state, and how it is made.")
            .arg(QT_VERSION_MAJOR));
    auto *cards = new QWidget;
    auto *grid = new QGridLayout(cards);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kGap);
    int place = 0;
    for (Card *card : {buttonsCard(), windowsCard(), waitingCard(), dateCard(), inputCard(), displayCard(),
                       containersCard(), menusCard()}) {
        grid->addWidget(card, place / kColumns, place % kColumns);
        ++place;
    }
    grid->setColumnStretch(kColumns, 1);
    page->addSection("The best of each group", QString())->addWide(cards);
    return page;
}

void registerThis()
{
    registerPage({"start", "Start", PageGroup::Start, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
