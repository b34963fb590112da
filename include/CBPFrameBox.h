#pragma once

#include "LumQtGlobal.h"

#include <QWidget>

class QHBoxLayout;
class QVBoxLayout;

/// Three areas on top of each other: a title row, a column of content, and a row at the bottom.
///
/// Bands of light grey are painted behind the rows, and a grey line along the left and the top edge. The
/// bottom band reaches from the title band to one bottom height above the lower edge, that is behind the
/// content, not behind the bottom row; in a box lower than both bands together it covers what they share. The
/// band heights are the painting's: they do not size
/// the rows. Sizes are logical pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPFrameBox : public QWidget
{
    Q_OBJECT
    /// Height of the band at the top, in pixels; 60 in a box of a form. \since 1.0
    Q_PROPERTY(int titleHeight READ titleHeight WRITE setTitleHeight RESET resetTitleHeight)
    /// How far above the lower edge the other band ends, in pixels; 70 in a box of a form. \since 1.0
    Q_PROPERTY(int bottomHeight READ bottomHeight WRITE setBottomHeight RESET resetBottomHeight)

public:
    /// An empty box. It has no parent, whatever \a parent says: place it in a layout, or delete it.
    /// \since 1.0
    CBPFrameBox(int iTitleHeight, int iBottomHeight, QWidget *parent = nullptr);

    /// An empty box in \a parent, with bands of 60 and 70 pixels: for forms.
    /// \since 1.0
    explicit CBPFrameBox(QWidget *parent = nullptr);
    ~CBPFrameBox() override;

    /// Adds a widget at the right end of the title row and \a iSpacing pixels of space behind it. A null
    /// widget is left out. \since 1.0
    void AddTitleWidget(QWidget *pWidget, int iSpacing = 0);

    /// The same at the bottom end of the content.
    /// \since 1.0
    void AddContentWidget(QWidget *pWidget, int iSpacing = 0);

    /// The same at the right end of the bottom row.
    /// \since 1.0
    void AddBottomWidget(QWidget *pWidget, int iSpacing = 0);

    /// The height of the title band. \since 1.0
    int titleHeight() const { return m_iTitleHeight; }

    /// Sets the height of the title band. \since 1.0
    void setTitleHeight(int height);

    /// Makes it 60 pixels, as in a box of a form. \since 1.0
    void resetTitleHeight();

    /// The bottom height. \since 1.0
    int bottomHeight() const { return m_iBottomHeight; }

    /// Sets the bottom height. \since 1.0
    void setBottomHeight(int height);

    /// Makes it 70 pixels, as in a box of a form. \since 1.0
    void resetBottomHeight();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void Init();

    QHBoxLayout *m_pTitleLayout = nullptr;
    QVBoxLayout *m_pContentLayout = nullptr;
    QHBoxLayout *m_pBottomLayout = nullptr;
    int m_iTitleHeight;
    int m_iBottomHeight;
};
