#include "Page.h"

#include "SourceWindow.h"
#include "Theme.h"

#include "CBPLinkerButton.h"

#include <QAccessible>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QVariant>
#include <QVBoxLayout>

namespace {

constexpr int kSectionGap = 4 * theme::kUnit;
constexpr int kRowGap = 3 * theme::kUnit;
constexpr int kSampleGap = 3 * theme::kUnit;
constexpr int kCaptionGap = theme::kUnit;
constexpr int kRowCaptionWidth = 17 * theme::kUnit;
constexpr int kCaptionSize = 12;
constexpr int kLowSample = 8 * theme::kUnit;    // samples no higher are centred in their row
constexpr int kCaptionReach = 4 * theme::kUnit; // the farthest that a caption stands below its sample

QLabel *captionLabel(const QString &text)
{
    return theme::label(text, theme::Normal, kCaptionSize, theme::kCaption);
}

// What has no text of its own is called as its caption is.
void nameByCaption(QWidget *sample, const QString &caption)
{
    const QAccessibleInterface *face = sample ? QAccessible::queryAccessibleInterface(sample) : nullptr;
    if (face && face->text(QAccessible::Name).isEmpty())
        sample->setAccessibleName(caption);
}

int heightOf(const Sample &sample)
{
    return sample.widget ? sample.widget->sizeHint()
                               .boundedTo(sample.widget->maximumSize())
                               .expandedTo(sample.widget->minimumSize())
                               .height()
                         : 0;
}

// A sample and its caption right below.
QVBoxLayout *stacked(const Sample &sample, QLabel *caption)
{
    auto *column = new QVBoxLayout;
    column->setSpacing(kCaptionGap);
    column->addWidget(sample.widget, 0, Qt::AlignLeft);
    column->addWidget(caption);
    column->addStretch();
    return column;
}

// Samples side by side, their captions on one line below. Low samples share their middle, high ones their
// upper edge; the caption of one that is much lower than its neighbours stays with it.
QGridLayout *rowOfSamples(const QVector<Sample> &samples, const theme::Tone &captionColor)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(kSampleGap);
    grid->setVerticalSpacing(kCaptionGap);
    int height = 0;
    for (const Sample &sample : samples)
        height = qMax(height, heightOf(sample));
    const bool low = height <= kLowSample;
    for (int column = 0; column < samples.size(); ++column) {
        const Sample &sample = samples[column];
        nameByCaption(sample.widget, sample.caption);
        QLabel *caption = nullptr;
        if (!sample.caption.isEmpty())
            caption = theme::label(sample.caption, theme::Normal, kCaptionSize, captionColor);
        if (sample.widget && caption && !low && height - heightOf(sample) > kCaptionReach) {
            grid->addLayout(stacked(sample, caption), 0, column, 2, 1);
            continue;
        }
        if (sample.widget)
            grid->addWidget(sample.widget, 0, column,
                            Qt::AlignLeft | (low ? Qt::AlignVCenter : Qt::AlignTop));
        if (caption)
            grid->addWidget(caption, 1, column, Qt::AlignLeft | Qt::AlignTop);
    }
    grid->setColumnStretch(samples.size(), 1);
    return grid;
}

void warnOfWideTable(const QStringList &columns, const QVector<SampleRow> &rows)
{
    int width = kRowCaptionWidth + columns.size() * kSampleGap;
    for (int column = 0; column < columns.size(); ++column) {
        int widest = 0;
        for (const SampleRow &row : rows) {
            if (const QWidget *sample = row.widgets.value(column))
                widest = qMax(widest, sample->minimumSizeHint()
                                          .boundedTo(sample->maximumSize())
                                          .expandedTo(sample->minimumSize())
                                          .width());
        }
        width += widest;
    }
    if (width > theme::kPageWidth)
        qWarning("A table under \"%s\" is %d pixels wide, the page %d", qPrintable(columns.join(", ")), width,
                 theme::kPageWidth);
}

QFrame *rule()
{
    auto *line = new QFrame;
    line->setFixedHeight(1);
    theme::fill(line, theme::kLine);
    return line;
}

} // namespace

QWidget *onGround(const theme::Tone &ground, const QVector<QWidget *> &widgets)
{
    QVector<Sample> samples;
    for (QWidget *widget : widgets)
        samples << Sample{QString(), widget};
    return onGround(ground, samples);
}

QWidget *onGround(const theme::Tone &ground, const QVector<Sample> &samples)
{
    QWidget *box = theme::ground(ground);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(kSampleGap, kSampleGap, kSampleGap, kSampleGap);
    layout->addLayout(rowOfSamples(samples, theme::kSideText));
    return box;
}

// ------------------------------------------------------------------------------------------------------------
// Section

Section::Section(const QString &title, const QString &explanation, QWidget *parent)
    : QWidget(parent), m_title(title), m_layout(new QVBoxLayout(this)), m_titleRow(new QHBoxLayout)
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(kRowGap);
    auto *heading = new QVBoxLayout;
    heading->setSpacing(theme::kUnit / 2);
    m_titleRow->addWidget(theme::label(title, theme::Semibold, 17, theme::kInk));
    m_titleRow->addStretch();
    heading->addLayout(m_titleRow);
    if (!explanation.isEmpty())
        heading->addWidget(theme::label(explanation, theme::Normal, 14, theme::kText, true));
    m_layout->addLayout(heading);
}

void Section::addSamples(const QVector<Sample> &samples)
{
    m_layout->addLayout(rowOfSamples(samples, theme::kCaption));
}

void Section::addColumns(int columns, const QVector<Sample> &samples, int width)
{
    const int gaps = columns - 1;
    if (width <= 0)
        width = (theme::kPageWidth - gaps * kSampleGap) / columns;
    // From column to column; the samples themselves may be somewhat wider.
    const int step = gaps > 0 ? (theme::kPageWidth - width) / gaps : width;
    for (int first = 0; first < samples.size(); first += columns) {
        const QVector<Sample> inRow = samples.mid(first, columns);
        QGridLayout *row = rowOfSamples(inRow, theme::kCaption);
        for (int column = 0; column < inRow.size(); ++column) // the last may reach over what is free
            row->setColumnMinimumWidth(column, column < gaps ? step - kSampleGap : width);
        m_layout->addLayout(row);
    }
}

void Section::addTable(const QStringList &columns, const QVector<SampleRow> &rows)
{
    warnOfWideTable(columns, rows);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(kSampleGap);
    grid->setVerticalSpacing(2 * theme::kUnit);
    grid->setColumnMinimumWidth(0, kRowCaptionWidth);
    for (int column = 0; column < columns.size(); ++column)
        grid->addWidget(captionLabel(columns[column]), 0, column + 1);
    grid->addWidget(rule(), 1, 0, 1, columns.size() + 2);
    for (int row = 0; row < rows.size(); ++row) {
        QLabel *caption = theme::label(rows[row].caption, theme::Normal, 14, theme::kText);
        grid->addWidget(caption, row + 2, 0, Qt::AlignVCenter);
        for (int column = 0; column < rows[row].widgets.size(); ++column) {
            QWidget *sample = rows[row].widgets[column];
            nameByCaption(sample, rows[row].caption);
            if (sample)
                grid->addWidget(sample, row + 2, column + 1, Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
    grid->setColumnStretch(columns.size() + 1, 1);
    m_layout->addLayout(grid);
}

void Section::addWide(QWidget *widget)
{
    m_layout->addWidget(widget);
}

// ---------------------------------------------------------------------------------------------------------------
// Page

Page::Page(const QString &title, const QString &introduction)
{
    theme::fill(this, theme::kGround);

    auto *content = new QWidget;
    content->setMaximumWidth(theme::kPageWidth);
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(kSectionGap);
    auto *head = new QVBoxLayout;
    head->setSpacing(theme::kUnit);
    head->addWidget(theme::label(title, theme::Light, 30, theme::kInk));
    head->addWidget(theme::label(introduction, theme::Normal, 15, theme::kText, true));
    m_column->addLayout(head);

    auto *outer = new QHBoxLayout(this);
    outer->setContentsMargins(theme::kPageMargin, 4 * theme::kUnit, theme::kPageMargin, theme::kPageMargin);
    outer->setSpacing(0);
    outer->addWidget(content, 1, Qt::AlignTop);
    outer->addStretch();
}

Section *Page::addSection(const QString &title, const QString &explanation)
{
    auto *section = new Section(title, explanation, this);
    m_column->addWidget(rule());
    m_column->addWidget(section);
    m_sections << section;
    return section;
}

void Page::offerSource(const PageInfo &page)
{
    for (Section *section : qAsConst(m_sections)) {
        auto *link = theme::link(tr("Source"), section);
        link->setProperty(kSourceLink, true);
        link->setAccessibleName(tr("Source of %1").arg(section->title()));
        section->m_titleRow->addWidget(link, 0, Qt::AlignVCenter);
        connect(link, &CBPLinkerButton::sigLinkerClick, section,
                [=] { showSource(page, section->title(), window()); });
    }
}

int Page::fullHeight(int width) const
{
    const int forWidth = layout()->totalHeightForWidth(width);
    return qMax(forWidth, layout()->totalMinimumSize().height());
}
