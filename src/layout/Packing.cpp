#include "layout/Packing.h"

#include "foundation/Log.h"

#include <QLayout>
#include <QWidget>

namespace lumqt {

bool canPack(const QWidget *container, const QWidget *widget)
{
    if (!widget)
        return false;
    for (const QWidget *around = container; around; around = around->parentWidget()) {
        if (around == widget) {
            qCWarning(lcLumQt, "A %s cannot hold itself or a widget that it lies in",
                      container->metaObject()->className());
            return false;
        }
    }
    return true;
}

bool canPack(const QWidget *container, const QLayout *layout)
{
    if (!layout)
        return false;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if ((item->widget() && !canPack(container, item->widget())) ||
            (item->layout() && !canPack(container, item->layout())))
            return false;
    }
    return true;
}

} // namespace lumqt
