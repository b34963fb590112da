#pragma once

#include "foundation/Internals.h"

#include <QColor>
#include <QStringList>
#include <QVector>

namespace lumqt {

// Lists as properties hold them. A style sheet can give a property one text only: a list of one entry is
// taken apart at its commas, and blanks around the parts go.
LUMQT_TESTED QStringList listOf(const QStringList &entries);

// Names of colours: "#rrggbb", or "#aarrggbb" where one is see-through; empty for an invalid one, which in
// most lists stands for the built-in colour.
LUMQT_TESTED QStringList colorNames(const QVector<QColor> &colors);

// The colours of such names. What is no colour is an invalid one, and said in the log unless it is empty.
LUMQT_TESTED QVector<QColor> colorsOf(const QStringList &names);

// The same for files.
QVector<QString> filesOf(const QStringList &names);
QStringList fileNames(const QVector<QString> &files);

} // namespace lumqt
