#pragma once

#include "foundation/Palette.h"

#include <QWidget>

namespace lumqt {

// The frame of a widget, over what the widget holds. Where a pixel is one and a half on the screen, what lies
// a pixel within an edge begins one or two device pixels from it, as the place falls: of a frame below it
// there would be as much to see. Mouse and keyboard pass through.
class FrameAbove : public QWidget
{
    // Style sheets give a plain QWidget their ground.
    Q_OBJECT

public:
    // Lies along the edges of `around`, which owns it, whatever its size.
    explicit FrameAbove(QWidget *around);

    void setColor(Purpose color);
    // The ring of the keyboard focus in its place.
    void setFocusRing(bool shown);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Purpose m_color = Purpose::Frame;
    bool m_ring = false;
};

} // namespace lumqt
