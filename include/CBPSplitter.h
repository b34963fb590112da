#pragma once

#include "LumQtGlobal.h"

#include <QBrush>
#include <QSplitter>

/// A splitter whose handles are CBPSplitterHandle: flat bars, filled and outlined.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPSplitter : public QSplitter
{
    Q_OBJECT
    /// What the handles are filled with, also those to come. A reset gives them the theme's colour again.
    /// \since 1.0
    Q_PROPERTY(QBrush handleBrush READ handleBrush WRITE setHandleBrush RESET resetHandleBrush)

public:
    /// An empty splitter.
    /// \since 1.0
    explicit CBPSplitter(Qt::Orientation orientation, QWidget *parent = nullptr);

    /// An empty splitter whose widgets stand side by side.
    /// \since 1.0
    explicit CBPSplitter(QWidget *parent = nullptr);
    ~CBPSplitter() override;

    /// Sets pen and brush of the handle with the index 0 only: the one before the first widget, which
    /// QSplitter keeps hidden. For the handles between the widgets use CBPSplitterHandle::setColr() of
    /// handle(1) and so on. Does nothing while the splitter is empty. \since 1.0
    void setHandlerClr(QPen pen, QBrush brush);

    /// The brush of setHandleBrush(); until it is called that of the built-in colour. What a single handle
    /// was given does not count. \since 1.0
    QBrush handleBrush() const;

    /// Fills all handles, and those to come, with \a brush, and repaints them. Outlines stay. \since 1.0
    void setHandleBrush(const QBrush &brush);

    /// Fills all handles, and those to come, in the theme's colour. \since 1.0
    void resetHandleBrush();

protected:
    /// A new CBPSplitterHandle of this splitter. \since 1.0
    QSplitterHandle *createHandle() override;

private:
    QBrush m_handleBrush;
    bool m_ownBrush = false; // set by a caller
};
