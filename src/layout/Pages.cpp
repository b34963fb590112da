#include "layout/Pages.h"

#include <QSet>

namespace lumqt {

void showChosen(const QVector<PageChoice> &pages)
{
    QSet<const QWidget *> shown;
    for (const PageChoice &choice : pages) {
        if (choice.shown)
            shown.insert(choice.page);
    }
    for (const PageChoice &choice : pages) {
        if (choice.page && !shown.contains(choice.page))
            choice.page->setVisible(false);
    }
    for (const PageChoice &choice : pages) {
        if (choice.page && choice.shown)
            choice.page->setVisible(true);
    }
}

} // namespace lumqt
