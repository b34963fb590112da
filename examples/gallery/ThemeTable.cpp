#include "ThemeTable.h"

#include "CBPTheme.h"

#include <QFile>
#include <QMetaEnum>

bool writeThemeTable(const QString &file)
{
    const auto purposes = QMetaEnum::fromType<CBPTheme::Purpose>();
    const QString before = CBPTheme::current();
    QVector<QStringList> rows{{QStringLiteral("purpose")}};
    for (int i = 0; i < purposes.keyCount(); ++i)
        rows << QStringList(QString::fromLatin1(purposes.key(i)));
    for (const char *theme : {"light", "dark", "contrast"}) {
        CBPTheme::apply(QLatin1String(theme));
        rows[0] << QLatin1String(theme);
        for (int i = 0; i < purposes.keyCount(); ++i) {
            const QColor color = CBPTheme::color(CBPTheme::Purpose(purposes.value(i)));
            rows[i + 1] << color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
        }
    }
    CBPTheme::apply(before);
    QFile table(file);
    if (!table.open(QIODevice::WriteOnly))
        return false;
    for (const QStringList &row : qAsConst(rows))
        table.write(row.join(QLatin1Char('\t')).toLatin1() + '\n');
    return table.flush();
}
