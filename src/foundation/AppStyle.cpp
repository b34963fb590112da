#include "foundation/AppStyle.h"

#include <QApplication>
#include <QStyle>

namespace lumqt {

QString applicationStyleKey()
{
    const bool hasStyle = qobject_cast<QApplication *>(QCoreApplication::instance());
    return hasStyle ? QApplication::style()->objectName() : QString();
}

} // namespace lumqt
