#include "Page.h"
#include "PageRegistry.h"
#include "Theme.h"

#include "IBPDateTime.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int kNameWidth = 360;
constexpr int kEditWidth = 200;
constexpr unsigned long long kFileTime = 133542975090000000ULL; // 2024-03-07 15:05:09 UTC

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

QString quoted(const std::string &utf8)
{
    return QLatin1Char('"') + text(utf8) + QLatin1Char('"');
}

QString fields(const _BPDateTime &dt)
{
    return QString("%1-%2-%3 %4:%5:%6, day %7 of the week")
        .arg(dt.wYear, 4, 10, QLatin1Char('0'))
        .arg(dt.wMonth, 2, 10, QLatin1Char('0'))
        .arg(dt.wDay, 2, 10, QLatin1Char('0'))
        .arg(dt.wHour, 2, 10, QLatin1Char('0'))
        .arg(dt.wMinute, 2, 10, QLatin1Char('0'))
        .arg(dt.wSecond, 2, 10, QLatin1Char('0'))
        .arg(dt.wDayOfWeek);
}

// A call on the left, what it gives on the right.
QWidget *table(const QVector<QPair<QString, QString>> &rows)
{
    auto *box = new QWidget;
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(theme::kUnit);
    grid->setColumnMinimumWidth(0, kNameWidth);
    grid->setColumnStretch(1, 1);
    for (int row = 0; row < rows.size(); ++row) {
        grid->addWidget(theme::label(rows[row].first, theme::Normal, 14, theme::kText), row, 0);
        grid->addWidget(theme::label(rows[row].second, theme::Semibold, 14, theme::kInk), row, 1);
    }
    return box;
}

// A field whose text is read at every key.
QWidget *reader(const QString &name, const QString &start, bool (*read)(_BPDateTime &, const std::string &))
{
    auto *box = new QWidget;
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kNameWidth - kEditWidth);
    auto *edit = new QLineEdit;
    edit->setFixedWidth(kEditWidth);
    edit->setAccessibleName(name);
    edit->setFont(theme::font(theme::Normal, 14));
    QLabel *result = theme::label(QString(), theme::Semibold, 14, theme::kInk);
    row->addWidget(edit);
    row->addWidget(result, 1);
    QObject::connect(edit, &QLineEdit::textChanged, result, [result, read](const QString &typed) {
        _BPDateTime dt;
        const bool three = read(dt, typed.toStdString());
        result->setText(three ? fields(dt) : "not three numbers");
    });
    edit->setText(start);
    return box;
}

void addLiveSamples(Page *page)
{
    Section *section = page->addSection(
        "Try it",
        "Type three numbers in the order of the settings, with anything that is not a digit between them. "
        "With AM or PM the time is read as a 12-hour one.");
    std::string date;
    IBPDateTime::TransSystemDateToString({2024, 3, 7, 0, 0, 0, 0}, date);
    section->addWide(reader("Date", text(date), IBPDateTime::TransSystemDateFromString));
    section->addWide(reader("Time", "03:05:09 PM", IBPDateTime::TransSystemTimeFromString));
}

void addSettings(Page *page)
{
    page->addSection("Settings of this user", "They are read once, when they are first needed.")
        ->addWide(table({{"GetStringDateFormat()", text(IBPDateTime::GetStringDateFormat())},
                         {"GetSystemDateFormat()", QString::number(IBPDateTime::GetSystemDateFormat())},
                         {"GetSystemDateSplitor()", quoted(IBPDateTime::GetSystemDateSplitor())},
                         {"GetStringTimeFormat(true)", text(IBPDateTime::GetStringTimeFormat(true))},
                         {"GetStringTimeFormat(false)", text(IBPDateTime::GetStringTimeFormat(false))},
                         {"GetSystemTimeFormat()", QString::number(IBPDateTime::GetSystemTimeFormat())},
                         {"GetSystemTimeSplitor()", quoted(IBPDateTime::GetSystemTimeSplitor())}}));
}

void addTexts(Page *page)
{
    const _BPDateTime dt{2024, 3, 7, 15, 5, 9, 0};
    std::string date;
    std::string time;
    IBPDateTime::TransSystemDateToString(dt, date);
    IBPDateTime::TransSystemTimeToString(dt, time, true);
    page->addSection("Texts", "How 7 March 2024, 15:05:09, is written.")
        ->addWide(table({{"TransSystemDateToString()", text(date)},
                         {"TransSystemTimeToString(), with seconds", text(time)},
                         {"CombinDate()", text(IBPDateTime::CombinDate(dt))},
                         {"CombinTime(), 12 hours", text(IBPDateTime::CombinTime(dt, true))},
                         {"TranDateTimeToString()", text(IBPDateTime::TranDateTimeToString(dt))},
                         {"Tran64SecToBPDateTime(133542975090000000)",
                          fields(IBPDateTime::Tran64SecToBPDateTime(kFileTime))}}));
}

Page *makePage()
{
    auto *page = new Page("Date and time texts", "IBPDateTime writes and reads dates and times in the order "
                                                 "of the user's regional settings.");
    addLiveSamples(page);
    addSettings(page);
    addTexts(page);
    return page;
}

void registerThis()
{
    registerPage({"datetexts", "Date and time texts", PageGroup::DateAndTime, makePage});
}
Q_CONSTRUCTOR_FUNCTION(registerThis)

} // namespace
