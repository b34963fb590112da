#pragma once

#include <QPointer>
#include <QStringList>
#include <QVector>

class CTriStateButton;
class QWidget;

// What the day and the week selector share.
namespace lumqt {

using ChoiceButtons = QVector<QPointer<CTriStateButton>>;

constexpr int kChoiceWidth = 60;
constexpr int kChoiceHeight = 28;
constexpr int kChoiceSpacing = 5;

// A button that stands for one choice, without a parent.
CTriStateButton *makeChoice(const QString &text);

QStringList checkedTexts(const ChoiceButtons &buttons);

// Checks exactly the buttons whose texts are in `texts`, also none.
// Who hears of it may delete any of them, and who holds them.
void checkTexts(ChoiceButtons buttons, const QStringList &texts);

// What a selector shows, while others take its place.
class FormerChoices
{
public:
    // Takes layout and focus group off `selector` and its buttons off `choices`, so that it can have new
    // ones. What is checked of them, or `wanted` if that is not empty, is to be checked of the new ones.
    FormerChoices(QWidget *selector, ChoiceButtons &choices, const QStringList &wanted);

    // Once the new buttons are in the layout: they have the places of the former ones, or of the selector, in
    // the order of the Tab key, and the focus if it was there. The former ones are hidden now and deleted
    // later, as one may be in the middle of its click. What hears of the focus may delete the selector: false
    // then.
    bool giveWay();

private:
    QPointer<QWidget> m_selector;
    ChoiceButtons &m_choices;
    QStringList m_checked;
    QVector<QPointer<QWidget>> m_buttons;
};

} // namespace lumqt
