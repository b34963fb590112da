#include "CBPGridBox.h"

#include "foundation/Palette.h"
#include "layout/BoxPainting.h"

#include <QLayout>
#include <QPainter>

namespace {

constexpr int kLineWidth = 1;

} // namespace

CBPGridBox::CBPGridBox(bool bVertical, bool bOption, int iSpacing) : CBPBox(bVertical, bOption, iSpacing)
{
    setFramePurpose(int(lumqt::Purpose::GridLine));
    SetDrawFrame(true);
    SetBorderWidth(kLineWidth, kLineWidth, kLineWidth, kLineWidth);
    SetSpacing(kLineWidth);
}

CBPGridBox::~CBPGridBox() = default;

void CBPGridBox::PackStart(QWidget *pWidget, bool bExpand, bool bOption, int iPadding, Qt::Alignment align)
{
    CBPBox::PackStart(pWidget, bExpand, bOption, iPadding, align);
    if (pWidget && layout() && layout()->indexOf(pWidget) >= 0)
        m_listWidgets.append(pWidget);
}

void CBPGridBox::paintEvent(QPaintEvent *event)
{
    CBPBox::paintEvent(event);
    QPainter painter(this);
    int x = 0;
    for (int i = 0; i + 1 < m_listWidgets.size(); ++i) {
        const QWidget *cell = m_listWidgets.at(i);
        if (!cell)
            continue;
        x += kLineWidth + cell->width();
        // Cells run from right to left where the language does.
        const int left = layoutDirection() == Qt::RightToLeft ? width() - kLineWidth - x : x;
        lumqt::fillLine(painter, QRectF(left, 1, kLineWidth, height() - 1), frameColor());
    }
}
