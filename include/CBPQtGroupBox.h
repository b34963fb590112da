#pragma once

#include "LumQtGlobal.h"

#include <QGroupBox>

/// A group box that is not seen: neither its frame nor its title is painted, its children are.
///
/// Screen readers still read the title as the name of the group; an "&" in it is Qt's, and marks a key. A
/// checkable one has no visible check mark. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPQtGroupBox : public QGroupBox
{
    Q_OBJECT

public:
    /// A group box without a title.
    /// \since 1.0
    explicit CBPQtGroupBox(QWidget *parent = nullptr);
    ~CBPQtGroupBox() override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
