#pragma once

#include <QPointer>
#include <QStringList>
#include <QVector>

class CTriStateButton;

// What the day and the week selector share.
namespace lumqt {

using ChoiceButtons = QVector<QPointer<CTriStateButton>>;

constexpr int kChoiceWidth = 60;
constexpr int kChoiceHeight = 28;
constexpr int kChoiceSpacing = 5;

// A button that stands for one choice, without a parent.
CTriStateButton *makeChoice(const QString &text);

QStringList checkedTexts(const ChoiceButtons &buttons);

// Checks exactly the buttons whose texts are in `texts`. An empty list changes nothing.
void checkTexts(const ChoiceButtons &buttons, const QStringList &texts);

} // namespace lumqt
