#include "Page.h"

#include "Theme.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kSectionGap = 4 * theme::kUnit;
constexpr int kRowGap = 3 * theme::kUnit;
constexpr int kSampleGap = 3 * theme::kUnit;
constexpr int kCaptionGap = theme::kUnit;
constexpr int kRowCaptionWidth = 17 * theme::kUnit;
constexpr int kCaptionSize = 12;

QLabel *captionLabel(const QString &text)
{
    return theme::label(text, theme::Normal, kCaptionSize, theme::kCaption);
}

// A sample with its caption below; both start at the left.
QWidget *captioned(const Sample &sample)
{
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kCaptionGap);
    if (sample.widget)
        layout->addWidget(sample.widget, 0, Qt::AlignLeft);
    if (!sample.caption.isEmpty()) {
        QLabel *caption = captionLabel(sample.caption);
        caption->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        layout->addWidget(caption);
    }
    layout->addStretch();
    return box;
}

QFrame *rule()
{
    auto *line = new QFrame;
    line->setFixedHeight(1);
    line->setAutoFillBackground(true);
    QPalette palette = line->palette();
    palette.setColor(QPalette::Window, theme::kLine);
    line->setPalette(palette);
    return line;
}

} // namespace

QWidget *onGround(const QColor &ground, const QVector<QWidget *> &widgets)
{
    auto *box = new QWidget;
    box->setAutoFillBackground(true);
    QPalette palette = box->palette();
    palette.setColor(QPalette::Window, ground);
    box->setPalette(palette);
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(kSampleGap, kSampleGap, kSampleGap, kSampleGap);
    layout->setSpacing(kSampleGap);
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    layout->addStretch();
    return box;
}

// ------------------------------------------------------------------------------------------------------------
// Section

Section::Section(const QString &title, const QString &explanation, QWidget *parent)
    : QWidget(parent), m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(kRowGap);
    auto *heading = new QVBoxLayout;
    heading->setSpacing(theme::kUnit / 2);
    heading->addWidget(theme::label(title, theme::Semibold, 17, theme::kInk));
    if (!explanation.isEmpty())
        heading->addWidget(theme::label(explanation, theme::Normal, 14, theme::kText, true));
    m_layout->addLayout(heading);
}

void Section::addSamples(const QVector<Sample> &samples)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(kSampleGap);
    for (const Sample &sample : samples)
        row->addWidget(captioned(sample), 0, Qt::AlignTop);
    row->addStretch();
    m_layout->addLayout(row);
}

void Section::addColumns(int columnWidth, const QVector<Sample> &samples)
{
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(kRowGap);
    const int columns = qMax(1, theme::kPageWidth / qMax(1, columnWidth));
    for (int i = 0; i < samples.size(); ++i)
        grid->addWidget(captioned(samples[i]), i / columns, i % columns, Qt::AlignTop);
    for (int column = 0; column < columns; ++column)
        grid->setColumnMinimumWidth(column, columnWidth);
    grid->setColumnStretch(columns, 1);
    m_layout->addLayout(grid);
}

void Section::addTable(const QStringList &columns, const QVector<SampleRow> &rows)
{
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
            if (QWidget *sample = rows[row].widgets[column])
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
    setAutoFillBackground(true);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);

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
    return section;
}

int Page::fullHeight(int width) const
{
    const int forWidth = layout()->totalHeightForWidth(width);
    return qMax(forWidth, layout()->totalMinimumSize().height());
}
