#pragma once

#include "CBPBox.h"

#include <QList>
#include <QPointer>

class QPainter;

/// A box that looks like a row of cells: framed, with a line one pixel wide between the widgets packed by
/// PackStart().
///
/// Frame and lines are light grey (215, 215, 215) until SetFrameClr(), the border and the spacing 1 pixel:
/// each line lies in the gap behind a cell. Pack with a padding of 0, or the lines miss the gaps. GUI thread
/// only. \since 1.0
class LUMQT_EXPORT CBPGridBox : public CBPBox
{
    Q_OBJECT

public:
    /// An empty row of cells without a parent. The arguments are those of CBPBox, but the spacing is 1
    /// whatever \a iSpacing says; change it with SetSpacing(). Lines are vertical in a column, too.
    /// \since 1.0
    explicit CBPGridBox(bool bVertical = false, bool bOption = false, int iSpacing = 0);

    /// An empty row of cells in \a parent, a pointer to a widget, for forms: without a layout, see CBPBox.
    /// Lines are drawn behind the widgets of a row that the form sets, too, whatever its spacing. \since 1.0
    template <class Parent, class = lumqt::IfParent<Parent>>
    explicit CBPGridBox(Parent parent) : CBPGridBox(lumqt::InForm(), parent)
    {
    }
    ~CBPGridBox() override;

    using CBPBox::PackStart;

    /// Packs a widget as CBPBox::PackStart() does, and draws a line behind it once another follows. A widget
    /// that is deleted later leaves no line. \since 1.0
    void PackStart(QWidget *pWidget, bool bExpand = false, bool bOption = false, int iPadding = 0,
                   Qt::Alignment align = {});

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    CBPGridBox(lumqt::InForm, QWidget *parent);
    void becomeGrid();
    void paintLine(QPainter &painter, int x);
    void paintLinesOfForm(QPainter &painter);

    QList<QPointer<QWidget>> m_listWidgets; // in packing order
    const bool m_inForm = false;
};
