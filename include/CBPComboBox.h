#pragma once

#include "LumQtGlobal.h"

#include <QComboBox>

/// A combo box that the mouse wheel does nothing to: scrolling a page with one on it changes no choice and
/// moves no focus. That is how it differs from a QComboBox, whose choice the wheel steps, past separators and
/// disabled items; in the open list the wheel scrolls as there.
///
/// It has the look of CBPStyle, and so has its list: a plain QListView, so that style sheets for the items of
/// one apply. Its rows are at least as high as fields, unless the application sets a delegate. GUI thread
/// only. \since 1.0
class LUMQT_EXPORT CBPComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// An empty combo box.
    /// \since 1.0
    explicit CBPComboBox(QWidget *parent = nullptr);
    ~CBPComboBox() override;

protected:
    /// Takes the wheel and does nothing; the parent does not get it either. \since 1.0
    void wheelEvent(QWheelEvent *event) override;
};
