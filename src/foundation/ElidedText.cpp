#include "foundation/ElidedText.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace lumqt {

namespace {

constexpr int kOneLineTip = 100;  // characters
constexpr int kLongestTip = 4096; // nobody reads more, and Qt would lay all of it out

} // namespace

QString elidedLine(const QString &text, const QFont &font, int width)
{
    const int room = qMax(0, width);
    QString line = text.left(room + 1); // more cannot fit, and need not be measured at each paint
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    // A width that was asked for as that of the text is rounded, and enough.
    const QFontMetrics metrics(font);
    const bool fits = text.size() <= room && metrics.horizontalAdvance(line) <= room;
    return fits ? line : metrics.elidedText(line, Qt::ElideRight, room);
}

QString toolTipOf(const QString &whole)
{
    // A tool tip takes what looks like markup for markup, and breaks lines in markup only.
    if (whole.size() <= kOneLineTip && !Qt::mightBeRichText(whole))
        return whole;
    return Qt::convertFromPlainText(whole.left(kLongestTip), Qt::WhiteSpaceNormal);
}

bool showWholeText(QWidget *widget, QEvent *event, const QString &whole, bool cut)
{
    if (!cut || event->type() != QEvent::ToolTip || !widget->toolTip().isEmpty())
        return false;
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), toolTipOf(whole), widget);
    return true;
}

} // namespace lumqt
