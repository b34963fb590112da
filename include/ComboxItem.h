#pragma once

#include <QString>

/// \file
/// \since 1.0

/// What a row of a path list shows: a location, such as a drive or a folder. Copied by value. \since 1.0
struct ComboxItem
{
    QString icon;          ///< path of the row's image file
    QString path;          ///< the location: text and key of the row; upper and lower case differ
    QString extra1;        ///< the application's; carried along, not shown
    QString extra2;        ///< as extra1
    QString extra3;        ///< as extra1
    qint64 freeBytes = 0;  ///< free space of the location in bytes
    qint64 totalBytes = 0; ///< its whole space in bytes; 0: no space is shown
    int extraNumber = 0;   ///< the application's; carried along, not shown
    bool selected = false; ///< set by the list: whether the row is the current one
};
