#pragma once

#include "LumQtGlobal.h"

#include <QCheckBox>

/// The library's check box: a QCheckBox that a style sheet can address by its class.
///
/// It has the look of CBPStyle. Mouse, keyboard and screen readers are QCheckBox's, and so is what an "&" in
/// the text does: unlike in the other classes of the library it marks a shortcut, and "&&" is an "&". GUI
/// thread only. \since 1.0
class LUMQT_EXPORT CBPCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    /// A check box without a text.
    /// \since 1.0
    explicit CBPCheckBox(QWidget *parent = nullptr);

    /// A check box with a text; an "&" makes the next letter its shortcut.
    /// \since 1.0
    explicit CBPCheckBox(QString text, QWidget *parent = nullptr);
    ~CBPCheckBox() override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
