#pragma once

#include "LumQtGlobal.h"

#include <QScrollArea>

/// A scroll area without a frame, its scroll bars in the look of CBPStyle. With the keyboard focus it has a
/// ring around it, which lies outside: leave it three pixels there.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPScrollWnd : public QScrollArea
{
    Q_OBJECT

public:
    /// An empty scroll area. It has no parent, whatever \a parent is: put it into a layout, or delete it.
    /// \since 1.0
    explicit CBPScrollWnd(QWidget *parent = nullptr);
    ~CBPScrollWnd() override;
};
