#pragma once

#include "LumQtGlobal.h"

#include <QTreeWidget>

/// The library's tree: whole rows are selected, top-level items have no branch mark, a click on the selected
/// item or the edit key (F2) edits.
///
/// Sorting is on, by the first column, falling, until somebody clicks a header: items do not stay where
/// they are added, and one whose text is edited may move, so that takeTopLevelItem(), itemAbove() and indexes
/// find another one than in a plain QTreeWidget. Switch sorting off while you fill the tree
/// (setSortingEnabled()), or hold items rather than their indexes. A context menu is the application's:
/// connect customContextMenuRequested(). GUI thread only. \since 1.0
class LUMQT_EXPORT CBPTreeWidget : public QTreeWidget
{
    Q_OBJECT
    /// Whether points are to be offset, for whoever asks. \since 1.0
    Q_PROPERTY(bool ptOffsetSwitchOn READ isPtOffsetSwitchOn WRITE setPtOffsetSwitchOn)
    /// Whether the point is offset, for whoever asks. \since 1.0
    Q_PROPERTY(bool offsetPt READ isOffsetPt WRITE setOffsetPt)

public:
    /// An empty tree without a parent: place it in a layout, or delete it.
    /// \since 1.0
    CBPTreeWidget();

    /// An empty tree in \a parent, for forms.
    /// \since 1.0
    explicit CBPTreeWidget(QWidget *parent);
    ~CBPTreeWidget() override;

    /// Remembers whether points are to be offset, false at first. The tree itself does nothing with it.
    /// \since 1.0
    void setPtOffsetSwitchOn(bool on);

    /// What setPtOffsetSwitchOn() was told. \since 1.0
    bool isPtOffsetSwitchOn() const { return m_ptOffsetSwitchOn; }

    /// Remembers whether the point is offset, false at first. The tree itself does nothing with it.
    /// \since 1.0
    void setOffsetPt(bool offset);

    /// What setOffsetPt() was told. \since 1.0
    bool isOffsetPt() const { return m_offsetPt; }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;

private:
    bool m_ptOffsetSwitchOn = false;
    bool m_offsetPt = false;
};
