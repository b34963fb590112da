#include "buttons/DropMenu.h"

#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "platform/Platform.h"

namespace lumqt {

namespace {

// From the button's top to the menu, less the native frame and caption and the button's height. The number
// grew with the Windows themes; applications place their buttons for it.
constexpr int kMenuOffset = 46;

} // namespace

CBPMenu *makeDropMenu(QWidget *button)
{
    auto *menu = new CBPMenu(static_cast<QWidget *>(nullptr));
    QObject::connect(menu, SIGNAL(triggered(QAction *)), button, SLOT(OnActionTriggered(QAction *)));
    QObject::connect(button, &QObject::destroyed, menu, &QObject::deleteLater);
    return menu;
}

void openDropMenu(const QWidget *button, CBPMenu *menu)
{
    const auto &system = platform::answers();
    const QPoint topLeft = button->mapToGlobal(QPoint(0, 0));
    const int below =
        kMenuOffset - system.frameWidth(button) - system.captionHeight(button) + button->height() + 1;
    menu->exec(QPoint(topLeft.x(), topLeft.y() + below));
}

CBPMenuItem *chosenItem(QAction *action)
{
    return qobject_cast<CBPMenuItem *>(action);
}

void registerMenuItem()
{
    static const int type = qRegisterMetaType<CBPMenuItem *>();
    Q_UNUSED(type)
}

} // namespace lumqt
