#include "datetime/ChoiceButtons.h"

#include "buttons/FocusGroup.h"
#include "CTriStateButton.h"
#include "foundation/FontLookup.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"

#include <QLayout>
#include <QPainter>
#include <QSet>

namespace lumqt {

namespace {

constexpr int kMarkHeight = 2;
constexpr int kMarkInset = 4; // from the button's edges: off its frame, at any scale

// What the Tab key reaches before it comes to `widget`, outside of that; null for nothing.
QWidget *stopBefore(const QWidget *widget)
{
    QWidget *before = widget->previousInFocusChain();
    while (before != widget && (before->focusPolicy() == Qt::NoFocus || widget->isAncestorOf(before)))
        before = before->previousInFocusChain();
    return before == widget ? nullptr : before;
}

// All that a selector shows, in their order.
QVector<CTriStateButton *> shownButtons(const QWidget *selector)
{
    QVector<CTriStateButton *> buttons;
    const QLayout *layout = selector->layout();
    for (int i = 0; layout && i < layout->count(); ++i) {
        if (auto *button = qobject_cast<CTriStateButton *>(layout->itemAt(i)->widget()))
            buttons.append(button);
    }
    return buttons;
}

// The focus group of the buttons that a selector shows. Former ones, which were made earlier, may still wait
// for the event loop, thousands of buttons with them.
FocusGroup *lastGroup(const QWidget *selector)
{
    const QObjectList &children = selector->children();
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        if (auto *group = dynamic_cast<FocusGroup *>(*child))
            return group;
    }
    return nullptr;
}

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

void checkTexts(ChoiceButtons buttons, const QStringList &texts)
{
    const QSet<QString> wanted(texts.cbegin(), texts.cend());
    for (CTriStateButton *button : qAsConst(buttons)) {
        if (button)
            button->SetChecked(wanted.contains(button->text()));
    }
}

FormerChoices::FormerChoices(QWidget *selector, ChoiceButtons &choices, const QStringList &wanted)
    : m_selector(selector), m_choices(choices), m_checked(wanted.isEmpty() ? checkedTexts(choices) : wanted)
{
    m_choices.clear();
    for (CTriStateButton *button : shownButtons(selector)) {
        QObject::disconnect(button, nullptr, selector, nullptr);
        m_buttons.append(button);
    }
    if (FocusGroup *group = lastGroup(selector)) {
        group->release();
        group->deleteLater(); // a key may be on its way through it
    }
    delete selector->layout();
}

bool FormerChoices::giveWay()
{
    checkTexts(m_choices, m_checked);
    if (!m_selector)
        return false;
    QWidget *before = nullptr; // in the order of the Tab key, which knows no others
    QWidget *stop = nullptr;
    const QWidget *focus = m_selector->window()->focusWidget();
    const bool focused = focus && m_selector->isAncestorOf(focus);
    for (QWidget *button : qAsConst(m_buttons)) {
        if (button && button->focusPolicy() != Qt::NoFocus)
            before = button;
    }
    if (!before)
        before = stopBefore(m_selector);
    for (CTriStateButton *button : shownButtons(m_selector)) {
        if (m_selector->isVisible())
            button->show(); // what is hidden cannot take the focus
        if (button->focusPolicy() == Qt::NoFocus)
            continue;
        if (before)
            QWidget::setTabOrder(before, button);
        before = button;
        if (button->focusPolicy() & Qt::TabFocus)
            stop = button;
    }
    if (!m_selector->layout())
        m_selector->updateGeometry(); // it is empty now
    if (focused && stop)
        stop->setFocus();
    for (QWidget *button : qAsConst(m_buttons)) {
        if (!button)
            continue;
        button->deleteLater();
        button->hide();
    }
    return m_selector;
}

} // namespace lumqt
