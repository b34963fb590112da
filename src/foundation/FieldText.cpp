#include "foundation/FieldText.h"

#include <QLineEdit>
#include <QVariant>

namespace lumqt {

namespace {

const char kNothingRefused[] = "_lumqt_nothingRefused";

// How many characters an input mask puts into the text itself, as "." in "000.000".
int fixedCharacters(const QString &mask)
{
    const QString places = QStringLiteral("AaNnXx90Dd#HhBb");
    const QString marks = QStringLiteral("><![]{}");
    int count = 0;
    for (int i = 0; i < mask.size() && mask[i] != QLatin1Char(';'); ++i) {
        const bool escaped = mask[i] == QLatin1Char('\\');
        i += escaped ? 1 : 0;
        const bool fixed = escaped ? i < mask.size() : !places.contains(mask[i]) && !marks.contains(mask[i]);
        count += fixed ? 1 : 0;
    }
    return count;
}

} // namespace

bool isRefused(const QLineEdit *edit)
{
    if (!edit || !edit->isEnabled() || edit->isReadOnly() || edit->hasFocus() || edit->hasAcceptableInput())
        return false;
    return edit->text().size() > fixedCharacters(edit->inputMask()) &&
           !edit->property(kNothingRefused).toBool();
}

void setNothingRefused(QLineEdit *edit)
{
    edit->setProperty(kNothingRefused, true);
}

} // namespace lumqt
