#pragma once

#include "Acts.h"
#include "Await.h"
#include "CBPMenu.h"
#include "CBPMenuItem.h"
#include "Pictures.h"
#include "Pixels.h"

// What the tests of menus share.

inline const QColor kHover(75, 174, 178);
inline const QColor kBody(60, 67, 75);
inline const QColor kLime(0, 255, 0);

inline QRect itemRect(const QMenu &menu, int index)
{
    return menu.actionGeometry(menu.actions().at(index));
}

// The colour without its alpha. The body's two translucent layers may round one step beside kBody.
inline QColor colorAt(QWidget &menu, const QPoint &pos)
{
    QColor color = pixelOf(menu.grab().toImage(), pos.x(), pos.y());
    color.setAlpha(255);
    const bool body = qAbs(color.red() - kBody.red()) <= 1 && qAbs(color.green() - kBody.green()) <= 1 &&
                      qAbs(color.blue() - kBody.blue()) <= 1;
    return body ? kBody : color;
}

// The item's own background, away from image, text and arrow.
inline QColor itemColor(QMenu &menu, int index)
{
    const QRect rect = itemRect(menu, index);
    return colorAt(menu, QPoint(rect.right() - 40, rect.center().y()));
}

inline QRect boxIn(QMenu &menu, int index, const QColor &color)
{
    return boxOf(menu.grab(itemRect(menu, index)).toImage(), color);
}

inline void fill(CBPMenu &menu, int count)
{
    for (int i = 0; i < count; ++i)
        menu.AddAction(QStringLiteral("Item &%1").arg(i), i + 1);
}

// Once more when the window manager, late with the focus after a menu that was deleted, has closed it at
// once.
inline bool open(QMenu &menu)
{
    for (int attempt = 0; attempt < 3; ++attempt) {
        menu.popup(QPoint(20, 20));
        const bool exposed = QTest::qWaitForWindowExposed(&menu, kPatience);
        QTest::qWait(20);
        if (exposed && menu.isVisible())
            return true;
    }
    return false;
}

// Pictures, and an active window: without one the system closes the menus of an application at once.
class MenuStage
{
public:
    void set()
    {
        for (const char *name : {"red", "lime", "blue"})
            savePicture(picture(name), QSize(10, 10), QColor(QLatin1String(name)));
        m_host.setGeometry(700, 300, 100, 100);
    }
    // Before each test: the window manager may have taken its time with what the last one closed.
    void activate() { showActive(m_host); }

    QString picture(const char *name) const { return m_folder.filePath(QLatin1String(name) + ".png"); }

private:
    QWidget m_host;
    QTemporaryDir m_folder;
};
