#pragma once

#include "LumQtGlobal.h"

#include <QMainWindow>

/// The library's main window: a QMainWindow that a style sheet can address by its class.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPQtMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// A main window; both arguments are QMainWindow's.
    /// \since 1.0
    explicit CBPQtMainWindow(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~CBPQtMainWindow() override;
};
