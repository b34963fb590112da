#pragma once

#include "LumQtGlobal.h"

#include <QTableWidget>

/// The library's table: rows 41 pixels high without frame, grid or row numbers, of which one is selected as a
/// whole; a click on the selected row or the edit key (F2) edits.
///
/// Sorting is on: filling a row cell by cell may move it under your hands. Switch sorting off while you fill
/// the table. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    /// An empty table. It has no parent, whatever \a parent says: place it in a layout, or delete it.
    /// \since 1.0
    explicit CBPTableWidget(QWidget *parent = nullptr);
    ~CBPTableWidget() override;
};
