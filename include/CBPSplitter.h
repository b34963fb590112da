#pragma once

#include "LumQtGlobal.h"

#include <QSplitter>

/// A splitter whose handles are CBPSplitterHandle: flat bars, filled and outlined.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPSplitter : public QSplitter
{
    Q_OBJECT

public:
    /// An empty splitter.
    /// \since 1.0
    explicit CBPSplitter(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~CBPSplitter() override;

    /// Sets pen and brush of the handle with the index 0 only: the one before the first widget, which
    /// QSplitter keeps hidden. For the handles between the widgets use CBPSplitterHandle::setColr() of
    /// handle(1) and so on. Does nothing while the splitter is empty. \since 1.0
    void setHandlerClr(QPen pen, QBrush brush);

protected:
    /// A new CBPSplitterHandle of this splitter. \since 1.0
    QSplitterHandle *createHandle() override;
};
