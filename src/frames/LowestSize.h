#pragma once

#include <QSize>

class QWidget;

namespace lumqt::frame {

// Keeps a window as large as its layout's content, as the layout itself does for a plain window, and besides
// no smaller than a size of its own. A minimum that the application sets counts alone, for the side that it
// is set for; 0 leaves the content's.
//
// A layout knows nothing of a second limit, and takes any minimum that is set for the application's: so the
// layout's own is switched off. GUI thread only.
class LowestSize
{
public:
    // `window` has a layout, is not owned and outlives this.
    explicit LowestSize(QWidget *window);

    // To be called when the content or `own`, the size of the window's own, changes.
    void fit(const QSize &own);

private:
    struct Side
    {
        int set = 0;     // by this; -1: the application has set another
        bool own = true; // until it does
        int fit(int now, int content, int wanted);
    };

    QWidget *m_window;
    Side m_width;
    Side m_height;
};

} // namespace lumqt::frame
