#include "dialogs/TipAccessible.h"

#include "dialogs/WrappedLabel.h"

namespace lumqt {

QString TipAccessible::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name || !own.isEmpty())
        return own;
    QStringList said;
    const auto labels = widget()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const bool plain = label->textFormat() == Qt::PlainText;
        const QString words = plain ? label->text() : WrappedLabel::plainText(label->text());
        if (!words.isEmpty() && label->isVisibleTo(widget()))
            said << words;
    }
    return said.join(QLatin1Char('\n'));
}

} // namespace lumqt
