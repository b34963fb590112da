#pragma once

#include "foundation/Internals.h"

#include <QByteArray>
#include <QString>

class QObject;
class QTranslator;

namespace lumqt {

// The translator of `content`, a compiled catalogue. Null unless Qt's translator can look texts up in it
// without reading anywhere else: the format has no checksum of its own, and Qt trusts the lengths and offsets
// in it at each look-up.
LUMQT_TESTED QTranslator *readCatalogue(const QByteArray &content, QObject *parent);

// The same of a file, which also has the checksum that a file beside it tells, if there is one. The log tells
// why one is not used. What the translator reads is in memory: the file may change.
QTranslator *loadCatalogue(const QString &file, QObject *parent);

// Installs the catalogue of the library that fits `language` best, once. False: there is none, or no
// application.
bool installOwnCatalogue(const QString &language);

} // namespace lumqt
