#include "Bench.h"

#include "CBPPushBtn.h"

#include <QApplication>
#include <QGridLayout>
#include <QImage>
#include <QWidget>

#include <memory>

// A window of 400 rounded buttons: ours, plain ones in the Fusion style, and plain ones with a style sheet
// that gives them the same look.
namespace {

constexpr int kColumns = 20;
constexpr int kRows = 20;
constexpr int kButtons = kColumns * kRows;
constexpr int kRepaints = 5; // a round

const char kStyleSheet[] =
    "QPushButton { background: #ffffff; border: 1px solid #3c434b; border-radius: 4px; color: #666666; }"
    "QPushButton:hover { background: #edf7f8; border-color: #bce0e2; }"
    "QPushButton:pressed { background: #e2f2f3; border-color: #87c8cc; }"
    "QPushButton:disabled { border-color: #bbbbbb; color: #bbbbbb; }";

enum Kind { Ours, Fusion, StyleSheet };

QPushButton *makeButton(Kind kind, const QString &text, QWidget *parent)
{
    if (kind == Ours) {
        auto *button = new CBPPushBtn(text, parent);
        button->setRoundRadius({4, 4});
        return button;
    }
    auto *button = new QPushButton(text, parent);
    button->setFixedHeight(28);
    return button;
}

std::unique_ptr<QWidget> build(Kind kind)
{
    auto window = std::make_unique<QWidget>();
    if (kind == StyleSheet)
        window->setStyleSheet(QLatin1String(kStyleSheet));
    auto *grid = new QGridLayout(window.get());
    grid->setSpacing(4);
    for (int i = 0; i < kButtons; ++i)
        grid->addWidget(makeButton(kind, QStringLiteral("Button %1").arg(i), window.get()), i / kColumns,
                        i % kColumns);
    window->resize(1900, 700);
    return window;
}

double buildTime(Kind kind)
{
    return Bench::time([kind] { build(kind); }) / kButtons;
}

double firstShowTime(Kind kind)
{
    const auto window = build(kind);
    const double time = Bench::time([&] {
        window->show();
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    });
    return time / kButtons;
}

// The whole window at once: single render calls hide the work in their own overhead.
double repaintTime(QWidget &window, QImage &target)
{
    const double time = Bench::time([&] {
        for (int i = 0; i < kRepaints; ++i)
            window.render(&target, QPoint(), QRegion(), QWidget::DrawChildren);
    });
    return time / (kButtons * kRepaints);
}

} // namespace

void benchPushButtons(Bench &bench)
{
    const QString unit = QStringLiteral("us a button");
    const QVector<Kind> kinds{Ours, Fusion, StyleSheet};
    const QStringList names{QStringLiteral("CBPPushBtn"), QStringLiteral("Fusion"),
                            QStringLiteral("style sheet")};
    const auto variants = [&](const std::function<double(Kind)> &measure) {
        QVector<Bench::Variant> all;
        for (const Kind kind : kinds)
            all.append({names[kind], [measure, kind] { return measure(kind); }});
        return all;
    };

    bench.compare(QStringLiteral("push button: build"), unit, variants(buildTime), {1.0, 0.4});
    bench.compare(QStringLiteral("push button: first show"), unit, variants(firstShowTime), {0.82, 0.3});

    std::vector<std::unique_ptr<QWidget>> windows;
    for (const Kind kind : kinds) {
        windows.push_back(build(kind));
        windows.back()->show();
    }
    QApplication::processEvents();
    QImage target(windows.front()->size(), QImage::Format_ARGB32_Premultiplied);
    bench.compare(QStringLiteral("push button: repaint"), unit,
                  variants([&](Kind kind) { return repaintTime(*windows[size_t(kind)], target); }),
                  {0.6, 0.24});
}
