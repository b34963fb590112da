#include "foundation/ElidedText.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace lumqt {

QString elidedLine(const QString &text, const QFont &font, int width)
{
    const int room = qMax(0, width);
    QString line = text.left(room + 1); // more cannot fit, and need not be measured at each paint
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return QFontMetrics(font).elidedText(line, Qt::ElideRight, room);
}

bool showWholeText(QWidget *widget, QEvent *event, const QString &whole, bool cut)
{
    if (!cut || event->type() != QEvent::ToolTip || !widget->toolTip().isEmpty())
        return false;
    // Escaped: a tool tip would take what looks like markup for markup.
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), whole.toHtmlEscaped(), widget);
    return true;
}

} // namespace lumqt
