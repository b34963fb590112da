#include "frames/LowestSize.h"

#include <QLayout>
#include <QWidget>

namespace lumqt::frame {

LowestSize::LowestSize(QWidget *window) : m_window(window)
{
    window->layout()->setSizeConstraint(QLayout::SetNoConstraint);
}

void LowestSize::fit(const QSize &own)
{
    const QLayout *layout = m_window->layout();
    if (!layout || layout->sizeConstraint() != QLayout::SetNoConstraint)
        return; // the application leaves it to its layout
    const QSize now = m_window->minimumSize();
    const QSize content = layout->totalMinimumSize();
    const QSize wanted = own.boundedTo(m_window->maximumSize());
    const QSize lowest(m_width.fit(now.width(), content.width(), wanted.width()),
                       m_height.fit(now.height(), content.height(), wanted.height()));
    if (lowest != now)
        m_window->setMinimumSize(lowest);
}

int LowestSize::Side::fit(int now, int content, int wanted)
{
    if (now != set) {
        own = false;
        if (now > 0) {
            set = -1;
            return now;
        }
    }
    set = qMax(content, own ? wanted : 0);
    return set;
}

} // namespace lumqt::frame
