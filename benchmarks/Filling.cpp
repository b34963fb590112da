#include "Bench.h"

#include "CBPFlowLayout.h"
#include "CBPGridBox.h"
#include "CBPMenu.h"
#include "CTabContainer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QProxyStyle>
#include <QWheelEvent>

#include <memory>

// What holds many things: one more must not cost more for those that are there. Menus beside plain ones, in
// which Qt goes through all entries at each step, too.
namespace {

constexpr int kEntries = 10000; // of a menu
constexpr int kSteps = 10;      // a round

// One to four; 1 is linear. More than the processor's caches hold costs a little more each.
void compareFourfold(Bench &bench, const QString &title, const std::function<double(int)> &timeOfEach,
                     int count, double limit)
{
    const auto variant = [&timeOfEach](int things) -> Bench::Variant {
        return {QStringLiteral("of %L1").arg(things), [&timeOfEach, things] { return timeOfEach(things); }};
    };
    bench.compare(title, QStringLiteral("us each"), {variant(4 * count), variant(count)}, {limit});
}

QVector<QWidget *> plainWidgets(int count)
{
    QVector<QWidget *> widgets;
    for (int i = 0; i < count; ++i)
        widgets.append(new QWidget);
    return widgets;
}

// Adds widgets to what `make` makes.
template <class Holder, class Add> double timeToFill(int count, Holder &holder, Add add)
{
    const QVector<QWidget *> widgets = plainWidgets(count);
    const double time = Bench::time([&] {
        for (QWidget *widget : widgets)
            add(holder, widget);
    });
    // Qt looks through what is still to be delivered for each widget that goes.
    QCoreApplication::sendPostedEvents();
    return time / count;
}

double fillFlow(int count)
{
    QWidget window;
    CBPFlowLayout layout(&window, 0, 6, 6);
    return timeToFill(count, layout, [](CBPFlowLayout &flow, QWidget *widget) { flow.addWidget(widget); });
}

double fillBox(int count)
{
    CBPGridBox box;
    return timeToFill(count, box, [](CBPGridBox &grid, QWidget *widget) { grid.PackStart(widget); });
}

double fillTabs(int count)
{
    CTabContainer tabs;
    return timeToFill(count, tabs, [](CTabContainer &container, QWidget *page) { container.addPage(page); });
}

// ------------------------------------------------------------------------------------------------------------
// menus

// Has one column, as ours do.
class OneColumn : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override
    {
        return hint == SH_Menu_Scrollable ? 1 : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

QString entryText(int i)
{
    return QStringLiteral("%1 entry &%2").arg(QChar('a' + i % 26)).arg(i);
}

void fill(QMenu &menu, int count)
{
    for (int i = 0; i < count; ++i)
        menu.addAction(entryText(i))->setData(i);
}

void fill(CBPMenu &menu, int count)
{
    for (int i = 0; i < count; ++i) {
        menu.AddAction(entryText(i), i);
        menu.SetActionSpecialFlag(i, true, QString());
    }
}

double fillMenu(int count)
{
    CBPMenu menu;
    return Bench::time([&menu, count] { fill(menu, count); }) / count;
}

void open(QMenu &menu)
{
    menu.popup(QPoint(10, 10));
    QCoreApplication::processEvents();
}

template <class Menu> double openMenu(int count)
{
    OneColumn style;
    Menu menu;
    if (!qobject_cast<CBPMenu *>(&menu))
        menu.setStyle(&style);
    fill(menu, count);
    return Bench::time([&menu] { open(menu); }) / count;
}

template <class Menu> class OpenMenu
{
public:
    OpenMenu()
    {
        if (!qobject_cast<CBPMenu *>(&m_menu))
            m_menu.setStyle(&m_style);
        fill(m_menu, kEntries);
    }

    template <class Step> double time(Step step)
    {
        open(m_menu);
        const double time = Bench::time([this, step] {
            for (int i = 0; i < kSteps; ++i) {
                step(m_menu);
                QCoreApplication::processEvents();
            }
        });
        m_menu.hide(); // an open one takes mouse and keys from others
        QCoreApplication::processEvents();
        return time / kSteps;
    }

private:
    OneColumn m_style;
    Menu m_menu;
};

void press(QMenu &menu, int key, const QString &text = QString())
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&menu, &event);
}

void goDown(QMenu &menu)
{
    press(menu, Qt::Key_Down);
}

// Goes from one of those with the mnemonic to the next.
void find(QMenu &menu)
{
    press(menu, Qt::Key_7, QStringLiteral("7"));
}

void scroll(QMenu &menu)
{
    const QPoint place = menu.rect().center();
    QWheelEvent event(place, menu.mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&menu, &event);
}

void benchMenus(Bench &bench)
{
    const auto us = QStringLiteral("us");
    const auto ours = QStringLiteral("CBPMenu");
    const auto plain = QStringLiteral("QMenu");
    // QWidget::insertAction() looks twice through all that are there.
    compareFourfold(bench, QStringLiteral("menu: filling"), fillMenu, kEntries / 4, 1.75);
    compareFourfold(bench, QStringLiteral("menu: opening"), openMenu<CBPMenu>, kEntries / 4, 1.25);
    bench.compare(QStringLiteral("menu of 10,000: opening"), us,
                  {{ours, [] { return openMenu<CBPMenu>(kEntries); }},
                   {plain, [] { return openMenu<QMenu>(kEntries); }}},
                  {1.1});
    OpenMenu<CBPMenu> menu;
    OpenMenu<QMenu> plainMenu;
    const auto compare = [&](const char *what, void (*step)(QMenu &)) {
        bench.compare(QStringLiteral("menu of 10,000: a step %1").arg(QLatin1String(what)), us,
                      {{ours, [&, step] { return menu.time(step); }},
                       {plain, [&, step] { return plainMenu.time(step); }}},
                      {1.25});
    };
    compare("down", goDown);
    compare("to a key", find);
    compare("of the wheel", scroll);
}

} // namespace

void benchFilling(Bench &bench)
{
    compareFourfold(bench, QStringLiteral("flow: filling"), fillFlow, 25000, 1.25);
    compareFourfold(bench, QStringLiteral("grid box: filling"), fillBox, 10000, 1.25);
    compareFourfold(bench, QStringLiteral("tabs: filling"), fillTabs, 2500, 1.5);
    benchMenus(bench);
}
