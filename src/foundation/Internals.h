#pragma once

#include <QtGlobal>

// Internals that the tests look at are exported from builds that have tests, and from no other.
#if defined(LUMQT_BUILD_LIBRARY)
#if defined(LUMQT_EXPORT_INTERNALS)
#define LUMQT_TESTED Q_DECL_EXPORT
#else
#define LUMQT_TESTED
#endif
#else
#define LUMQT_TESTED Q_DECL_IMPORT
#endif
