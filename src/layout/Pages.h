#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

namespace lumqt {

struct PageChoice
{
    QPointer<QWidget> page; // may be null
    bool shown;
};

// Hides and shows pages; one that is named more than once is shown if it is to be once. What is to go goes
// first: a layout never has to make room for both. Pages may be deleted by what that sets off.
void showChosen(const QVector<PageChoice> &pages);

} // namespace lumqt
