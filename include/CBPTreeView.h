#pragma once

#include "LumQtGlobal.h"

#include <QTreeView>

/// The library's tree view: a QTreeView that a style sheet can address by its class.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPTreeView : public QTreeView
{
    Q_OBJECT

public:
    /// A view without a model. It has no parent, whatever \a parent says: place it in a layout, or delete it.
    /// \since 1.0
    explicit CBPTreeView(QWidget *parent = nullptr);
    ~CBPTreeView() override;
};
