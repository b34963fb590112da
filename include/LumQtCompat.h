#pragma once

/// \file
/// What differs between the Qt 5 and the Qt 6 build for those who derive from the library's classes.
///
/// A class that overrides with these names compiles with both; see \ref guide-qt6. \since 1.0

#include <QtGlobal>

class QEnterEvent;
class QEvent;

/// Holds the names of LumQtCompat.h; what else it holds is internal. \since 1.0
namespace lumqt {

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
/// What enterEvent() of a widget takes: with Qt 6 a QEnterEvent, with Qt 5 a QEvent.
///
/// Where the mouse is, each says under other names; \c mapFromGlobal(QCursor::pos()) says it with both.
/// \since 1.0
using EnterEvent = QEnterEvent;
/// Where nativeEvent() of a widget puts its answer to the system: with Qt 6 a qintptr, with Qt 5 a long.
/// \since 1.0
using NativeResult = qintptr;
#else
using EnterEvent = QEvent;
using NativeResult = long;
#endif

} // namespace lumqt
