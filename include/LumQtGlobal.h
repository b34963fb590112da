#pragma once

/// \file
/// What every public header of the library needs: the export macro and the version.
/// \since 1.0

#include "LumQtVersion.h"

#include <QtGlobal>

/// \def LUMQT_EXPORT
/// Marks what the library exports. An application has no use for it.
/// \since 1.0
#if defined(LUMQT_BUILD_LIBRARY)
#define LUMQT_EXPORT Q_DECL_EXPORT
#else
#define LUMQT_EXPORT Q_DECL_IMPORT
#endif

#if defined(_MSC_VER)
// Exported classes hold Qt's template containers; application and library are built with the same Qt and
// compiler.
#pragma warning(disable : 4251)
#endif
