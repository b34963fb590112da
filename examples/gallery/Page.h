#pragma once

#include "PageRegistry.h"
#include "Theme.h"

#include <QVector>
#include <QWidget>

class QGridLayout;
class QHBoxLayout;
class QVBoxLayout;

// A sample and the words under it; a null widget leaves the place free.
struct Sample
{
    QString caption;
    QWidget *widget;
};

// A row of a table of samples: what it shows, and a sample per column.
struct SampleRow
{
    QString caption;
    QVector<QWidget *> widgets;
};

// Widgets side by side on a ground of their own, as wide as the page; captions suit a dark one.
QWidget *onGround(const theme::Tone &ground, const QVector<QWidget *> &widgets);
QWidget *onGround(const theme::Tone &ground, const QVector<Sample> &samples);

// Dynamic property of the link to a section's source.
constexpr char kSourceLink[] = "sourceLink";

// A titled part of a page. Samples become its children; they keep their own size.
class Section : public QWidget
{
public:
    Section(const QString &title, const QString &explanation, QWidget *parent);

    QString title() const { return m_title; }

    // Samples side by side, each with its caption below.
    void addSamples(const QVector<Sample> &samples);

    // The same in `columns` columns of equal width that fill the page. Where all samples are `width` pixels
    // wide, the last column of them ends at the page's right edge.
    void addColumns(int columns, const QVector<Sample> &samples, int width = 0);

    // A table: column captions on top, one row of samples each below. A table wider than the page is told
    // of in a warning: it would be squeezed.
    void addTable(const QStringList &columns, const QVector<SampleRow> &rows);

    // Anything that takes the whole width.
    void addWide(QWidget *widget);

private:
    friend class Page;

    QString m_title;
    QVBoxLayout *m_layout;
    QHBoxLayout *m_titleRow;
};

// A page of the gallery: a title, a few words, sections.
class Page : public QWidget
{
public:
    Page(const QString &title, const QString &introduction);

    Section *addSection(const QString &title, const QString &explanation);

    // Each section gets a link to its source.
    void offerSource(const PageInfo &page);

    QVector<Section *> sections() const { return m_sections; }

    // Height at which nothing of the page is cut off when it is `width` pixels wide.
    int fullHeight(int width) const;

private:
    QVBoxLayout *m_column;
    QVector<Section *> m_sections;
};
