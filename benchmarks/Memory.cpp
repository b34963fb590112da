#include "Bench.h"

#include "CBPPushBtn.h"
#include "Dialogs.h"

#include <QApplication>
#include <QGridLayout>

#include <memory>
#include <vector>

// What of the heap buttons and dialogs keep while they are shown, as the allocator counts it.

#if defined(__GLIBC__)
#include <malloc.h>

#if __GLIBC_PREREQ(2, 33)

namespace {

constexpr int kColumns = 20;
constexpr int kButtons = 400;
constexpr int kDialogs = 20; // shown at once
constexpr int kWarmUp = 20;
constexpr int kOpenings = 500;

double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

// The picture of a window, which is as large as that on the screen, and no part of the heap elsewhere.
double pictureOf(const QWidget &window)
{
    const bool onHeap = QGuiApplication::platformName() == QLatin1String("offscreen");
    return onHeap ? 4.0 * window.width() * window.height() : 0;
}

template <class Button> double bytesOfButton()
{
    double bytes = 0;
    for (int window = 0; window < 2; ++window) { // of the second one caches are filled
        const double before = heapInUse();
        QWidget owner;
        auto *grid = new QGridLayout(&owner);
        for (int i = 0; i < kButtons; ++i)
            grid->addWidget(new Button(QStringLiteral("Button %1").arg(i), &owner), i / kColumns,
                            i % kColumns);
        if constexpr (std::is_same_v<Button, CBPPushBtn>) {
            for (CBPPushBtn *button : owner.findChildren<CBPPushBtn *>())
                button->setRoundRadius({4, 4});
        }
        owner.resize(1900, 700);
        owner.show();
        QApplication::processEvents();
        bytes = heapInUse() - before - pictureOf(owner);
    }
    return bytes / kButtons;
}

template <class Dialog> void openAndClose()
{
    Dialog dialog;
    dialog.show();
    QApplication::processEvents();
    dialog.close();
}

template <class Dialog> double bytesOfDialog()
{
    for (int i = 0; i < kWarmUp; ++i)
        openAndClose<Dialog>();
    std::vector<std::unique_ptr<Dialog>> dialogs(kDialogs);
    const double before = heapInUse();
    for (auto &dialog : dialogs) {
        dialog = std::make_unique<Dialog>();
        dialog->show();
        QApplication::processEvents();
    }
    return (heapInUse() - before) / kDialogs - pictureOf(*dialogs.front());
}

void openAndClose(int times)
{
    for (int i = 0; i < times; ++i)
        openAndClose<FramedDialog>();
}

} // namespace

void benchMemory(Bench &bench)
{
    bench.compare(QStringLiteral("memory: a shown button"), QStringLiteral("bytes"),
                  {{QStringLiteral("CBPPushBtn"), bytesOfButton<CBPPushBtn>},
                   {QStringLiteral("QPushButton"), bytesOfButton<QPushButton>}},
                  {1.7}); // with the text as it is quickest to draw
    bench.compare(QStringLiteral("memory: a shown dialog"), QStringLiteral("bytes"),
                  {{QStringLiteral("CBPWinFrm"), bytesOfDialog<FramedDialog>},
                   {QStringLiteral("QDialog"), bytesOfDialog<PlainDialog>}},
                  {1.95}); // plain Qt with the same bar and one button in it: 1.41
    double before = 0;
    const auto after = [&before] {
        openAndClose(kWarmUp);
        before = heapInUse();
        openAndClose(kOpenings);
        return heapInUse();
    };
    bench.compare(
        QStringLiteral("memory: 500 dialogs opened"), QStringLiteral("bytes"),
        {{QStringLiteral("after"), after}, {QStringLiteral("before"), [&before] { return before; }}}, {1.01});
}

#else

void benchMemory(Bench &) {}

#endif

#else // other allocators do not tell

void benchMemory(Bench &) {}

#endif
