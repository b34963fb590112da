#pragma once

#include "PageRegistry.h"

class QWidget;

// Shows the source of a page in a dialog, at the function that makes a section of it.
void showSource(const PageInfo &page, const QString &section, QWidget *parent);

// The lines of `source`, first and last, of the function in which the section's title stands; -1 when it
// stands nowhere.
struct LineRange
{
    int first = -1;
    int last = -1;
};
LineRange linesOfSection(const QString &source, const QString &section);
