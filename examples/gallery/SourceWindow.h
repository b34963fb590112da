#pragma once

#include "PageRegistry.h"

class QWidget;

// Shows the source of a page in a dialog, at the function that makes a section of it.
void showSource(const PageInfo &page, const QString &section, QWidget *parent);
