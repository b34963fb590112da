#pragma once

#include "LumQtGlobal.h"

#include <QTableView>

/// The library's table view: a QTableView that a style sheet can address by its class.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPQtTableView : public QTableView
{
    Q_OBJECT

public:
    /// A view without a model.
    /// \since 1.0
    explicit CBPQtTableView(QWidget *parent = nullptr);
    ~CBPQtTableView() override;
};
