#pragma once

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QStringList>

namespace fontsetup {

// The family that the library's font table names on Windows.
inline QString wantedFamily()
{
    return QStringLiteral("Segoe UI");
}

// The installed sans family nearest to it; empty when there is none of those looked for.
inline QString substituteFamily(const QStringList &installed)
{
    const QStringList candidates{QStringLiteral("Open Sans"), QStringLiteral("Noto Sans"),
                                 QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")};
    for (const QString &family : candidates) {
        if (installed.contains(family))
            return family;
    }
    return QString();
}

} // namespace fontsetup

/// Gives a program of this project a sans font on every system; call it after the QApplication is made.
///
/// Where "Segoe UI" is not installed, it and its weights are substituted by an installed family, so that
/// widgets which ask for it by name get that one. The application's font becomes the same family at 14
/// pixels: under Wine the system's own default is a serif, and elsewhere its size differs from desktop to
/// desktop.
inline void setUpFonts()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const QStringList installed = QFontDatabase::families();
#else
    const QStringList installed = QFontDatabase().families();
#endif
    QString family = fontsetup::wantedFamily();
    if (!installed.contains(family)) {
        const QString substitute = fontsetup::substituteFamily(installed);
        if (substitute.isEmpty())
            return;
        for (const char *weight : {"", " Light", " Semilight", " Semibold", " Bold"}) {
            const QString suffix = QLatin1String(weight);
            const QString exact = substitute + suffix;
            QFont::insertSubstitution(family + suffix, installed.contains(exact) ? exact : substitute);
        }
        family = substitute;
    }
    QFont font(family);
    font.setPixelSize(14);
    QApplication::setFont(font);
}
