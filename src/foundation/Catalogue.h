#pragma once

#include "foundation/Internals.h"

#include <QByteArray>
#include <QString>

class QObject;
class QTranslator;

namespace lumqt {

// Whether Qt's translator can read `content`, a compiled catalogue, without ever reading beyond it. The
// format has no checksum of its own, and Qt trusts the lengths and offsets in it at each look-up.
LUMQT_TESTED bool isSoundCatalogue(const QByteArray &content);

// The translator of a catalogue that is sound, and has the checksum that a file beside it tells, if there is
// one. Null otherwise, which the log tells. What the translator reads is in memory: the file may change.
QTranslator *loadCatalogue(const QString &file, QObject *parent);

// Installs the catalogue of the library that fits `language` best, once. False: there is none, or no
// application.
bool installOwnCatalogue(const QString &language);

} // namespace lumqt
