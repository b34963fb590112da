#include "Bench.h"

#include "IBPDateTime.h"

#include <QDate>

// Dates to texts and back, beside Qt's own with the same pattern.
namespace {

constexpr int kDates = 2000; // a round

// The pattern that texts have in the order of the user's settings.
QString qtPattern()
{
    std::string text;
    IBPDateTime::GetSystemDateFormat();
    IBPDateTime::TransSystemDateToString({2024, 3, 17, 0, 0, 0, 0}, text, "-");
    return QString::fromStdString(text)
        .replace(QLatin1String("2024"), QLatin1String("yyyy"))
        .replace(QLatin1String("24"), QLatin1String("yy"))
        .replace(QLatin1String("03"), QLatin1String("MM"))
        .replace(QLatin1String("17"), QLatin1String("dd"));
}

int dayOf(int i)
{
    return 1 + i % 28;
}

double perDate(const std::function<int(int)> &work)
{
    int sum = 0;
    const double time = Bench::time([&] {
        for (int i = 0; i < kDates; ++i)
            sum += work(i);
    });
    if (sum == 0)
        qFatal("nothing was read or written");
    return time / kDates;
}

} // namespace

void benchDateTimes(Bench &bench)
{
    const QString pattern = qtPattern();
    QVector<std::string> texts;
    QVector<QString> qtTexts;
    for (int i = 0; i < kDates; ++i) {
        qtTexts.append(QDate(2024, 1 + i % 12, dayOf(i)).toString(pattern));
        texts.append(qtTexts.last().toStdString());
    }
    bench.compare(QStringLiteral("date: write as text"), QStringLiteral("us a date"),
                  {{QStringLiteral("IBPDateTime"),
                    [] {
                        return perDate([](int i) {
                            const auto day = static_cast<unsigned short>(dayOf(i));
                            std::string text;
                            IBPDateTime::TransSystemDateToString({2024, 3, day, 0, 0, 0, 0}, text, "-");
                            return int(text.size());
                        });
                    }},
                   {QStringLiteral("QDate::toString"),
                    [pattern] {
                        return perDate(
                            [&](int i) { return QDate(2024, 3, dayOf(i)).toString(pattern).size(); });
                    }}},
                  {1.0});
    bench.compare(QStringLiteral("date: read from text"), QStringLiteral("us a date"),
                  {{QStringLiteral("IBPDateTime"),
                    [texts] {
                        return perDate([&](int i) {
                            _BPDateTime dt;
                            IBPDateTime::TransSystemDateFromString(dt, texts.at(i));
                            return int(dt.wDay);
                        });
                    }},
                   {QStringLiteral("QDate::fromString"),
                    [qtTexts, pattern] {
                        return perDate(
                            [&](int i) { return QDate::fromString(qtTexts.at(i), pattern).day(); });
                    }}},
                  {1.0});
}
