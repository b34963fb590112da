#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "CBPPushBtn.h"
#include "CBPTheme.h"
#include "CButtonGroupBox.h"

#include <QFormLayout>
#include <QLabel>
#include <QMetaEnum>
#include <QPainter>
#include <QtMath>

namespace {

using Purpose = CBPTheme::Purpose;

constexpr int kColumns = 6;
constexpr int kGap = 3 * theme::kUnit;
constexpr QSize kSwatch((theme::kPageWidth - (kColumns - 1) * kGap) / kColumns, 56);
constexpr int kButtonWidth = 128;
const char kPaper[] = ":/gallery/paper.ini"; // a theme of the application's own

// Whether black is easier to read on it than white.
bool isBright(const QColor &color)
{
    const double light = 0.2126 * qPow(color.redF(), 2.2) + 0.7152 * qPow(color.greenF(), 2.2) +
                         0.0722 * qPow(color.blueF(), 2.2);
    return light > 0.18;
}

// The colour of a purpose, and its number.
class Swatch : public QWidget
{
public:
    explicit Swatch(Purpose purpose) : m_purpose(purpose)
    {
        setFixedSize(kSwatch);
        setFont(theme::font(theme::Normal, 12));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QColor color = CBPTheme::color(m_purpose);
        theme::paintPanel(painter, rect(), color);
        painter.setPen(isBright(color) ? Qt::black : Qt::white);
        painter.drawText(rect().adjusted(theme::kUnit, 0, -theme::kUnit, 1 - theme::kUnit),
                         Qt::AlignLeft | Qt::AlignBottom, color.name());
    }

private:
    Purpose m_purpose;
};

// The button of a theme is the selected one while it is shown, whoever applied it.
CButtonGroupBox *themes()
{
    static const QStringList names{"light", "dark", "contrast", "Paper"};
    CButtonGroupBox *group = theme::buttonGroup(true);
    group->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const QStringList texts{"Light", "Dark", "High contrast", "Paper, from a file"};
    for (int i = 0; i < texts.size(); ++i)
        group->AddButton(i, texts[i], QString())->setFixedWidth(kButtonWidth);
    theme::lowerButtons(group);
    theme::follow(group, [group] {
        for (int i = 0; i < names.size(); ++i)
            group->GetButton(i)->setSelected(names[i] == CBPTheme::current());
    });
    QObject::connect(group, &CButtonGroupBox::sigBtnClicked, group, [](int id) {
        if (CBPTheme::names().contains(names[id]) || CBPTheme::load(kPaper) == names[id])
            CBPTheme::apply(names[id]);
    });
    return group;
}

void addLiveSamples(Page *page)
{
    Section *section =
        page->addSection("Try it", "Everything that is there takes the colours and pictures of a theme at "
                                   "once; nothing is made anew. The menu of the title strip has the themes, too.");
    auto *system = new CBPPushBtn("As the system", nullptr);
    system->setFixedSize(kButtonWidth, theme::kControlHeight);
    QObject::connect(system, &CBPPushBtn::sigBtnClicked, system, [] { CBPTheme::followSystem(true); });
    section->addSamples({{"apply(name)", themes()}, {"followSystem(true)", system}});
}

void addColors(Page *page)
{
    Section *section = page->addSection(
        "Colours by purpose",
        "These are what the others, those of each class, are made of. A theme's file names purposes and "
        "colours; what it leaves out is as in the theme that it is based on, and follows the colours it has.");
    const auto purposes = QMetaEnum::fromType<Purpose>();
    QVector<Sample> samples;
    for (int purpose = 0; purpose < int(Purpose::Badge); ++purpose)
        samples << Sample{QString::fromLatin1(purposes.valueToKey(purpose)), new Swatch(Purpose(purpose))};
    section->addColumns(kColumns, samples);
}

void addUse(Page *page)
{
    const QPair<const char *, const char *> calls[] = {
        {"givePalette(true)", "Plain Qt widgets in the library's windows go with the theme."},
        {"apply(\"dark\")", "Shows a theme by its name."},
        {"load(\"paper.ini\")", "Reads a theme of the application's own, and answers its name."},
        {"followSystem(true)", "Light or dark as the user set it for programs, and high contrast."},
        {"color(Purpose::Field)", "A colour for painting of one's own."},
        {"changed(name)", "The signal for what keeps a colour."},
    };
    auto *box = new QWidget;
    auto *form = new QFormLayout(box);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(kGap);
    form->setVerticalSpacing(theme::kUnit);
    for (const auto &call : calls) {
        form->addRow(theme::label(call.first, theme::Semibold, 14, theme::kInk),
                     theme::label(call.second, theme::Normal, 14, theme::kText, true));
    }
    page->addSection("In a program",
                     "What an application has set itself, a colour of a button or a palette, stays as it is in "
                     "each theme, and what a getter reports is what was set.")
        ->addWide(box);
}

Page *makePage()
{
    auto *page = new Page("Themes", "CBPTheme: light, dark, high contrast and those of an application, one "
                                    "table of colours by purpose.");
    addLiveSamples(page);
    addColors(page);
    addUse(page);
    return page;
}

void registerThis()
{
    registerPage({"themes", "Themes", PageGroup::Foundation, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
