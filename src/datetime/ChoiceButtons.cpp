#include "datetime/ChoiceButtons.h"

#include "CTriStateButton.h"
#include "foundation/FontLookup.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QPainter>
#include <QSet>

namespace lumqt {

namespace {

constexpr int kMarkHeight = 2;
constexpr int kMarkInset = 4; // from the button's edges: off its frame, at any scale

// A disabled toggle has the same colours whether it is checked or not. Here one goes on looking at what is
// chosen, so the chosen ones have a line under their text.
class Choice : public CTriStateButton
{
public:
    explicit Choice(const QString &text) : CTriStateButton(text, false, false, nullptr) {}

protected:
    void paintEvent(QPaintEvent *event) override
    {
        CTriStateButton::paintEvent(event);
        if (isEnabled() || !IsChecked())
            return;
        QPainter painter(this);
        const QRectF line(kMarkInset, height() - kMarkInset - kMarkHeight, width() - 2 * kMarkInset,
                          kMarkHeight);
        painter.fillRect(wholeDevicePixels(painter, line), themeColor(Purpose::ChoiceMark));
    }
};

} // namespace

CTriStateButton *makeChoice(const QString &text)
{
    auto *button = new Choice(text);
    if (text.isEmpty())
        button->setFocusPolicy(Qt::NoFocus); // there is nothing to see of it, nor to be told
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
