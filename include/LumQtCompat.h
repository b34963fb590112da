#pragma once

/// \file
/// What differs between the Qt 5 and the Qt 6 build for those who derive from the library's classes. A class
/// that overrides with these names compiles with both. \since 1.0

#include <QtGlobal>

class QEnterEvent;
class QEvent;

namespace lumqt {

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
/// What enterEvent() of a widget takes: a QEnterEvent, which knows where the pointer is; with Qt 5 a QEvent.
/// \since 1.0
using EnterEvent = QEnterEvent;
/// Where nativeEvent() of a widget puts the answer to the system: a qintptr; with Qt 5 a long.
/// \since 1.0
using NativeResult = qintptr;
#else
using EnterEvent = QEvent;
using NativeResult = long;
#endif

} // namespace lumqt
