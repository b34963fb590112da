#include "ThemeMenu.h"

#include "CBPTheme.h"
#include "CMsgBox.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>

namespace {

constexpr int kTickWidth = 16;
constexpr int kFollow = 1000; // above the themes, which are numbered from 1
constexpr int kLoad = kFollow + 1;
constexpr int kWarning = 2; // of message()
constexpr int kOk = 0x4;

QString titleOf(const QString &theme)
{
    if (theme == QLatin1String("light"))
        return ThemeMenu::tr("Light");
    if (theme == QLatin1String("dark"))
        return ThemeMenu::tr("Dark");
    return theme == QLatin1String("contrast") ? ThemeMenu::tr("High contrast") : theme;
}

} // namespace

ThemeMenu::ThemeMenu(QWidget *parent) : CBPMenu(tr("Theme"), parent)
{
    SetSubLeveMennu();
    SetDefIconWidth(kTickWidth);
    list();
    connect(this, &QMenu::aboutToShow, this, &ThemeMenu::list);
    connect(this, &QMenu::triggered, this, [this](QAction *action) { choose(action->data().toInt()); });
}

void ThemeMenu::list()
{
    const QStringList themes = CBPTheme::names();
    const int system = themes.size();
    if (actions().size() != system + 2) {
        clear();
        for (int i = 0; i < system; ++i)
            AddAction(titleOf(themes[i]), i + 1);
        AddAction(tr("As the system"), kFollow);
        AddAction(tr("Load a theme file …"), kLoad);
    }
    const int current = CBPTheme::isFollowingSystem() ? kFollow : themes.indexOf(CBPTheme::current()) + 1;
    SetShowCheckIcon(current, QIcon(QStringLiteral(":/gallery/tick.svg")));
}

void ThemeMenu::choose(int id)
{
    if (id == kFollow)
        CBPTheme::followSystem(true);
    else if (id == kLoad)
        load();
    else
        CBPTheme::apply(CBPTheme::names().value(id - 1));
}

void ThemeMenu::load()
{
    QWidget *window = parentWidget() ? parentWidget()->window() : nullptr;
    const QString file =
        QFileDialog::getOpenFileName(window, tr("A theme file"), QString(), tr("Theme files (*.ini)"));
    if (file.isEmpty())
        return;
    const QString name = CBPTheme::load(file);
    if (!name.isEmpty()) {
        CBPTheme::apply(name);
        return;
    }
    CMsgBox box(window);
    box.message(kWarning, tr("What is wrong with it stands in the program's log."),
                tr("%1 is no theme").arg(QFileInfo(file).fileName()), kOk);
}
