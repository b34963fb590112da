#include "datetime/ChoiceButtons.h"

#include "CTriStateButton.h"
#include "foundation/FontLookup.h"

#include <QSet>

namespace lumqt {

CTriStateButton *makeChoice(const QString &text)
{
    auto *button = new CTriStateButton(text, false, false, nullptr);
    QFont font = button->font();
    font.setPixelSize(kTextPixelSize);
    button->setFont(font);
    button->setFixedSize(kChoiceWidth, kChoiceHeight);
    return button;
}

QStringList checkedTexts(const ChoiceButtons &buttons)
{
    QStringList texts;
    for (const CTriStateButton *button : buttons) {
        if (button && button->IsChecked())
            texts.append(button->text());
    }
    return texts;
}

void checkTexts(const ChoiceButtons &buttons, const QStringList &texts)
{
    if (texts.isEmpty())
        return;
    const QSet<QString> wanted(texts.cbegin(), texts.cend());
    for (CTriStateButton *button : buttons) {
        if (button)
            button->SetChecked(wanted.contains(button->text()));
    }
}

} // namespace lumqt
