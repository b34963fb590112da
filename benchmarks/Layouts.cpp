#include "Bench.h"

#include "CBPFlowLayout.h"

#include <QCoreApplication>
#include <QVector>
#include <QWidget>

#include <memory>

// A flow layout that is laid out anew, beside a plain loop that asks the same items for their hints, and the
// same layout with four times as many items.
namespace {

constexpr int kWidths[] = {900, 1100}; // by turns, so that items move
constexpr int kTimes = 10;             // a round

struct Flow
{
    QWidget window;
    CBPFlowLayout *layout = new CBPFlowLayout(&window, 0, 6, 6);
    QVector<QLayoutItem *> items;

    explicit Flow(int count)
    {
        for (int i = 0; i < count; ++i) {
            auto *widget = new QWidget;
            widget->setMinimumSize(40 + i % 50, 20 + i % 3);
            layout->addWidget(widget);
            items.append(layout->itemAt(i));
        }
        // Qt looks through what is still to be delivered for each widget that goes.
        QCoreApplication::sendPostedEvents();
    }
};

// Microseconds per thousand items.
template <class Work> double perThousand(const Flow &flow, Work work)
{
    const double time = Bench::time([&] {
        for (int i = 0; i < kTimes; ++i)
            work(kWidths[i % 2]);
    });
    return time / kTimes / flow.items.size() * 1000;
}

double ask(const Flow &flow)
{
    return perThousand(flow, [&](int width) { flow.layout->heightForWidth(width); });
}

// What a layout cannot do without: each hint, and the sum of them.
double plainAsk(const Flow &flow)
{
    volatile int sum = 0;
    return perThousand(flow, [&](int) {
        int total = 0;
        for (const QLayoutItem *item : flow.items)
            total += item->sizeHint().width();
        sum = total;
    });
}

double place(const Flow &flow)
{
    return perThousand(flow, [&](int width) { flow.layout->setGeometry(QRect(0, 0, width, 100000)); });
}

// The same places, known before.
double plainPlace(const Flow &flow)
{
    QVector<QVector<QRect>> places;
    for (const int width : kWidths) {
        flow.layout->setGeometry(QRect(0, 0, width, 100000));
        QVector<QRect> rects;
        for (const QLayoutItem *item : flow.items)
            rects.append(item->geometry());
        places.append(rects);
    }
    volatile int sum = 0;
    return perThousand(flow, [&](int width) {
        const QVector<QRect> &rects = places[width == kWidths[1]];
        int total = 0;
        for (int i = 0; i < rects.size(); ++i) {
            total += flow.items[i]->sizeHint().width();
            flow.items[i]->setGeometry(rects[i]);
        }
        sum = total;
    });
}

} // namespace

void benchLayouts(Bench &bench)
{
    const Flow middle(5000);
    const Flow large(25000);
    const Flow huge(100000);
    const QString hints = QStringLiteral("loop over hints");
    const auto flow = QStringLiteral("CBPFlowLayout");
    bench.compare(QStringLiteral("flow, 5,000 items: height"), QStringLiteral("us"),
                  {{flow, [&] { return ask(middle); }}, {hints, [&] { return plainAsk(middle); }}}, {1.75});
    bench.compare(QStringLiteral("flow, 5,000 items: re-laid"), QStringLiteral("us"),
                  {{flow, [&] { return place(middle); }}, {hints, [&] { return plainPlace(middle); }}},
                  {1.5});
    // Per thousand items, so 1 is linear; more widgets than the processor's caches hold cost a little more
    // each.
    bench.compare(QStringLiteral("flow, 1,000 items re-laid"), QStringLiteral("us"),
                  {{QStringLiteral("of 100,000"), [&] { return place(huge); }},
                   {QStringLiteral("of 25,000"), [&] { return place(large); }}},
                  {1.5});
}
