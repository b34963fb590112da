#include "foundation/AppStyle.h"

#include "foundation/StyleWatch.h"

#include <QApplication>
#include <QStyle>

#include <algorithm>

namespace lumqt {

QString applicationStyleKey()
{
    const bool hasStyle = qobject_cast<QApplication *>(QCoreApplication::instance());
    return hasStyle ? QApplication::style()->objectName() : QString();
}

bool hasNativeLook()
{
    const char native[] = "QWindowsXPStyle"; // which all later ones of Windows are made of
    const QStyle *style =
        qobject_cast<QApplication *>(QCoreApplication::instance()) ? QApplication::style() : nullptr;
    if (!style || style->styleHint(kIsOurs) == kOurs)
        return false;
    // With a style sheet it is not the application's style itself, but still one of the application.
    const QObjectList &all = QCoreApplication::instance()->children();
    return style->inherits(native) || (style->inherits("QStyleSheetStyle") &&
                                       std::any_of(all.begin(), all.end(), [&](const QObject *child) {
                                           return child->inherits(native);
                                       }));
}

} // namespace lumqt
