#include "Bench.h"

#include "CBaseWin.h"
#include "CBPCheckBox.h"
#include "CBPComboBox.h"
#include "CBPDateSelector.h"
#include "CBPJumpSlider.h"
#include "CBPLabel.h"
#include "CBPLineEdit.h"
#include "CBPScrollWnd.h"
#include "CBPSearchEdit.h"
#include "CBPTextEdit.h"
#include "CBPWinFrm.h"

#include <QApplication>
#include <QDateEdit>
#include <QDialog>
#include <QVBoxLayout>

#include <memory>

// Making, first showing and repainting what Qt paints with a palette, beside the class of Qt it is made from.
// What stands in a window by the hundred is made in one; windows by themselves.
namespace {

constexpr int kParts = 100; // in a window
constexpr int kWindows = 20;
constexpr int kRepaints = 5; // a round

using Make = std::function<QWidget *(QWidget *)>;

std::unique_ptr<QWidget> build(const Make &make)
{
    auto window = std::make_unique<QWidget>();
    auto *column = new QVBoxLayout(window.get());
    for (int i = 0; i < kParts; ++i)
        column->addWidget(make(window.get()));
    return window;
}

void show(QWidget &window)
{
    window.show();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

double makeTime(const Make &make)
{
    return Bench::time([&] { build(make); }) / kParts;
}

double showTime(const Make &make)
{
    const auto window = build(make);
    return Bench::time([&] { show(*window); }) / kParts;
}

double repaintTime(const Make &make)
{
    const auto window = build(make);
    show(*window);
    QImage target(window->size(), QImage::Format_ARGB32_Premultiplied);
    return Bench::time([&] {
               for (int i = 0; i < kRepaints; ++i)
                   window->render(&target, QPoint(), QRegion(), QWidget::DrawChildren);
           }) /
           (kParts * kRepaints);
}

double windowTime(const Make &make)
{
    return Bench::time([&] {
               for (int i = 0; i < kWindows; ++i)
                   delete make(nullptr);
           }) /
           kWindows;
}

template <class Widget> QWidget *made(QWidget *parent)
{
    return new Widget(parent);
}

template <class Widget> QWidget *withText(QWidget *parent)
{
    return new Widget(QStringLiteral("A text"), parent);
}

class FramedWindow : public CBPWinFrm
{
public:
    explicit FramedWindow(QWidget *parent) : CBPWinFrm(parent) { Init(); }
};

struct Pair
{
    QString name;
    Make ours;
    Make plain;
};

} // namespace

void benchWidgets(Bench &bench)
{
    const Pair parts[] = {
        {QStringLiteral("check box"), withText<CBPCheckBox>, withText<QCheckBox>},
        {QStringLiteral("label"), withText<CBPLabel>, withText<QLabel>},
        {QStringLiteral("combo box"), made<CBPComboBox>, made<QComboBox>},
        {QStringLiteral("line edit"), [](QWidget *parent) { return new CBPLineEdit(parent, false); },
         made<QLineEdit>},
        {QStringLiteral("search edit"), made<CBPSearchEdit>, made<QLineEdit>},
        {QStringLiteral("text edit"), made<CBPTextEdit>, made<QTextEdit>},
        {QStringLiteral("date selector"), made<CBPDateSelector>, made<QDateEdit>},
        {QStringLiteral("slider"), made<CBPJumpSlider>, made<QSlider>},
        {QStringLiteral("scroll window"), made<CBPScrollWnd>, made<QScrollArea>},
    };
    const Pair windows[] = {
        {QStringLiteral("CBaseWin"), made<CBaseWin>, made<QMainWindow>},
        {QStringLiteral("CBPWinFrm"), made<FramedWindow>, made<QDialog>},
    };
    const auto compare = [&](const Pair &pair, const char *what, double (*measure)(const Make &)) {
        bench.compare(pair.name + QLatin1String(what), QStringLiteral("us a piece"),
                      {{QStringLiteral("ours"), [=] { return measure(pair.ours); }},
                       {QStringLiteral("Qt"), [=] { return measure(pair.plain); }}},
                      {0.0});
    };
    for (const Pair &part : parts) {
        compare(part, ": make", makeTime);
        compare(part, ": first show", showTime);
        compare(part, ": repaint", repaintTime);
    }
    for (const Pair &window : windows)
        compare(window, ": make", windowTime);
}
