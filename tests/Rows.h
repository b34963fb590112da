#pragma once

#include <QtTest>

// The table of a test, a line a row: the formatter gives every text of a chain of << a line of its own.

// The columns of the table: columns<int, QString>("length", "text").
template <class... Types, class... Names> void columns(Names... names)
{
    (QTest::addColumn<Types>(names), ...);
}

template <class... Cells> void row(const char *name, const Cells &...cells)
{
    (QTest::newRow(name) << ... << cells);
}

// A table of one column of names, each of which is its row's, too.
inline void names(const char *column, std::initializer_list<const char *> all)
{
    columns<QString>(column);
    for (const char *name : all)
        row(name, QString(name));
}
