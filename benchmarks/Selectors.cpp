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

QStringList days(int count = kDays)
{
    QStringList names;
    for (int day = 1; day <= count; ++day)
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

// Microseconds a day.
double build(int count)
{
    QStringList names = days(count);
    QString none;
    std::unique_ptr<QWidget> made;
    const double time = Bench::time([&] { made = std::make_unique<CBPDaySelector>(names, none, none); });
    // Qt looks through what is still to be delivered for each button that goes.
    QCoreApplication::sendPostedEvents();
    return time / count;
}

// Other days again and again, before the event loop has taken the former ones away: microseconds a change.
double change(int times)
{
    CBPDaySelector selector;
    QStringList names = days();
    const double time = Bench::time([&] {
        for (int i = 0; i < times; ++i) {
            names[0] = QString::number(-i);
            selector.setItems(names);
        }
    });
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return time / times;
}

} // namespace

void benchSelectors(Bench &bench)
{
    bench.compare(QStringLiteral("day selector: build and show"), QStringLiteral("us"),
                  {{QStringLiteral("CBPDaySelector"), [] { return buildAndShow(selector); }},
                   {QStringLiteral("32 plain buttons"), [] { return buildAndShow(plainButtons); }}},
                  {1.5});
    // Per day and per change, so 1 is linear.
    bench.compare(QStringLiteral("day selector: building"), QStringLiteral("us a day"),
                  {{QStringLiteral("of 1,240 days"), [] { return build(1240); }},
                   {QStringLiteral("of 310 days"), [] { return build(310); }}},
                  {1.25});
    bench.compare(QStringLiteral("day selector: changing its days"), QStringLiteral("us a change"),
                  {{QStringLiteral("80 times"), [] { return change(80); }},
                   {QStringLiteral("20 times"), [] { return change(20); }}},
                  {1.25});
}
