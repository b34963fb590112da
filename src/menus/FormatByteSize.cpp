#include "FormatByteSize.h"

namespace {

constexpr qint64 kKilo = 1024;
constexpr int kMostDecimals = 17; // a double has no more to tell

struct Unit
{
    qint64 bytes;
    QLatin1String text;
};

const Unit kUnits[] = {{kKilo * kKilo * kKilo * kKilo, QLatin1String("%1 TB")},
                       {kKilo * kKilo * kKilo, QLatin1String("%1 GB")},
                       {kKilo * kKilo, QLatin1String("%1 MB")},
                       {kKilo, QLatin1String("%1 KB")}};

} // namespace

QString FormatByteSize(qint64 bytes, bool zeroAsKilobytes, int decimals)
{
    if (bytes == 0 && zeroAsKilobytes)
        return QStringLiteral("0 KB");
    for (const Unit &unit : kUnits) {
        if (bytes >= unit.bytes)
            return QString(unit.text).arg(double(bytes) / double(unit.bytes), 0, 'f',
                                          qBound(0, decimals, kMostDecimals), QLatin1Char(' '));
    }
    return QStringLiteral("%1 Bytes").arg(double(bytes), 0, 'f', 0, QLatin1Char(' '));
}
