#pragma once

#include "CBPMenu.h"

// The themes there are, that of the system, and one to be loaded from a file; the one in use is ticked.
class ThemeMenu : public CBPMenu
{
    Q_OBJECT

public:
    explicit ThemeMenu(QWidget *parent);

private:
    void list();
    void choose(int id);
    void load();
};
