#pragma once

#include <QString>
#include <QVector>

class Page;

// Where a page stands in the list.
enum class PageGroup {
    Buttons,
    Menus,
    Windows,
    Input,
    DateAndTime,
    Containers,
    Display,
    Waiting,
    Foundation
};

struct PageInfo
{
    QString id; // of the command line, and of the screenshot's file
    QString title;
    PageGroup group;
    Page *(*make)();
};

// A file of pages/ registers its page while the program loads, by a function that it gives to
// Q_CONSTRUCTOR_FUNCTION; nothing else knows the page.
void registerPage(const PageInfo &page);

// All pages, by group and then by title.
const QVector<PageInfo> &pages();

QString groupTitle(PageGroup group);
