#pragma once

#include <QString>

namespace lumqt {

// The key of the style that the application has by now, for a QProxyStyle of its kind. Handing the style
// object itself to one would take it away from the application and destroy it with the first proxy. Empty
// where the style has no key, as under a style sheet of the application: a proxy then takes the desktop's
// style.
QString applicationStyleKey();

// Whether the application's style draws most parts as the system has them, whatever palette a widget has.
bool hasNativeLook();

} // namespace lumqt
