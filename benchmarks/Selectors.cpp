#include "Bench.h"

#include "CBPDaySelector.h"

#include <QApplication>
#include <QGridLayout>
#include <QPushButton>

#include <memory>

// A selector of 31 days and its button for all of them, beside as many plain buttons that can be checked.
namespace {

constexpr int kColumns = 7;
constexpr int kDays = 31;
constexpr int kTimes = 5; // a round

QStringList days()
{
    QStringList names;
    for (int day = 1; day <= kDays; ++day)
        names += QString::number(day);
    return names;
}

std::unique_ptr<QWidget> selector()
{
    QStringList names = days();
    QString extra;
    QString all = QStringLiteral("Select all");
    return std::make_unique<CBPDaySelector>(names, extra, all);
}

std::unique_ptr<QWidget> plainButtons()
{
    auto window = std::make_unique<QWidget>();
    auto *grid = new QGridLayout(window.get());
    const QStringList names = days() << QStringLiteral("Select all");
    for (int i = 0; i < names.size(); ++i) {
        auto *button = new QPushButton(names[i]);
        button->setCheckable(true);
        grid->addWidget(button, i / kColumns, i % kColumns);
    }
    return window;
}

template <class Make> double buildAndShow(Make make)
{
    const double time = Bench::time([make] {
        for (int i = 0; i < kTimes; ++i) {
            const std::unique_ptr<QWidget> window = make();
            window->show();
            QApplication::sendPostedEvents();
            QApplication::processEvents();
        }
    });
    return time / kTimes;
}

} // namespace

void benchSelectors(Bench &bench)
{
    bench.compare(QStringLiteral("day selector: build and show"), QStringLiteral("us"),
                  {{QStringLiteral("CBPDaySelector"), [] { return buildAndShow(selector); }},
                   {QStringLiteral("32 plain buttons"), [] { return buildAndShow(plainButtons); }}},
                  {1.5});
}
