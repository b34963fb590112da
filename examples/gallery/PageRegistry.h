#pragma once

#include <QString>
#include <QVector>

class Page;

// Where a page stands in the list.
enum class PageGroup {
    Start,
    Buttons,
    Menus,
    Windows,
    Input,
    DateAndTime,
    Containers,
    Displays, // not Display, which is a type of X11
    Waiting,
    Foundation
};

struct PageInfo
{
    QString id; // of the command line, and of the screenshot's file
    QString title;
    PageGroup group;
    Page *(*make)();
    QString file = QString(); // of pages/, without its folder
};

// A file of pages/ registers its page while the program loads, by a function that it gives to
// Q_CONSTRUCTOR_FUNCTION; nothing else knows the page.
void registerPage(PageInfo page, const char *file = __builtin_FILE());

// All pages, by group and then by title.
const QVector<PageInfo> &pages();

// Empty for the start page, which stands alone.
QString groupTitle(PageGroup group);

// The text of the file that a page is made in; empty when there is none.
QString sourceOf(const PageInfo &page);

// Whether every word is in the title of a page, its group's or its source: names of classes are found, too.
bool matches(const PageInfo &page, const QStringList &words);
