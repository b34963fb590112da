#include "Bench.h"

#include "CBPPushBtn.h"
#include "CBPTheme.h"

#include <QApplication>
#include <QGridLayout>

// Another theme for a window of 400 buttons on the screen, beside one whole repaint of it.
namespace {

constexpr int kColumns = 20;
constexpr int kButtons = 400;
constexpr int kTimes = 4; // a round; even, so that each round ends as it began

double timeOf(const std::function<void(int)> &act)
{
    return Bench::time([&] {
               for (int i = 0; i < kTimes; ++i) {
                   act(i);
                   QApplication::sendPostedEvents();
                   QApplication::processEvents();
               }
           }) /
           kTimes;
}

} // namespace

void benchThemes(Bench &bench)
{
    QWidget window;
    auto *grid = new QGridLayout(&window);
    for (int i = 0; i < kButtons; ++i)
        grid->addWidget(new CBPPushBtn(QStringLiteral("Button %1").arg(i), &window), i / kColumns,
                        i % kColumns);
    window.resize(1900, 700);
    window.show();
    QApplication::processEvents();
    const QString themes[] = {QStringLiteral("dark"), QStringLiteral("light")};
    bench.compare(
        QStringLiteral("theme: 400 buttons"), QStringLiteral("us a switch"),
        {{QStringLiteral("switch"), [&] { return timeOf([&](int i) { CBPTheme::apply(themes[i % 2]); }); }},
         {QStringLiteral("whole repaint"), [&] { return timeOf([&](int) { window.update(); }); }}},
        {3.0});
}
