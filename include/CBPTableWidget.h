#pragma once

#include "LumQtGlobal.h"

#include <QTableWidget>

/// The library's table: rows 41 pixels high without frame, grid or row numbers, of which one is selected as a
/// whole; a click on the selected row or the edit key (F2) edits.
///
/// Sorting is on, by the first column, falling, until somebody clicks a header: each text that is set
/// there, by setItem() or an editor, moves its row at once. The row that a loop counts is another one then:
/// the next cells land in wrong rows and half-empty rows come to be, takeItem() and cellWidget() find another
/// item. So switch sorting off while you fill the table (setSortingEnabled()), and hold an item rather than
/// its row. With sorting off its items stay where they are put. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    /// An empty table. It has no parent, whatever \a parent says: place it in a layout, or delete it.
    /// \since 1.0
    explicit CBPTableWidget(QWidget *parent = nullptr);
    ~CBPTableWidget() override;
};
