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
    becomeGrid();
}

CBPGridBox::CBPGridBox(lumqt::InForm, QWidget *parent) : CBPBox(lumqt::InForm(), parent), m_inForm(true)
{
    becomeGrid();
}

void CBPGridBox::becomeGrid()
{
    setFramePurpose(int(lumqt::Purpose::GridLine));
    SetDrawFrame(true);
    SetBorderWidth(kLineWidth, kLineWidth, kLineWidth, kLineWidth);
    SetSpacing(kLineWidth);
    m_iFirstSpacing = kLineWidth;
}

CBPGridBox::~CBPGridBox() = default;

void CBPGridBox::PackStart(QWidget *pWidget, bool bExpand, bool bOption, int iPadding, Qt::Alignment align)
{
    const int before = layout() ? layout()->count() : 0;
    CBPBox::PackStart(pWidget, bExpand, bOption, iPadding, align);
    if (layout() && layout()->count() > before)
        m_listWidgets.append(pWidget);
}

void CBPGridBox::paintEvent(QPaintEvent *event)
{
    CBPBox::paintEvent(event);
    QPainter painter(this);
    if (m_inForm && m_listWidgets.isEmpty()) {
        paintLinesOfForm(painter);
        return;
    }
    int x = 0;
    for (int i = 0; i + 1 < m_listWidgets.size(); ++i) {
        const QWidget *cell = m_listWidgets.at(i);
        if (!cell)
            continue;
        x += kLineWidth + cell->width();
        // Cells run from right to left where the language does.
        paintLine(painter, layoutDirection() == Qt::RightToLeft ? width() - kLineWidth - x : x);
    }
}

void CBPGridBox::paintLine(QPainter &painter, int x)
{
    lumqt::fillLine(painter, QRectF(x, 1, kLineWidth, height() - 1), frameColor());
}

// The layout of a form has gaps of its own: the lines lie in their middle.
void CBPGridBox::paintLinesOfForm(QPainter &painter)
{
    const QWidget *before = nullptr;
    const int count = layout() && orientation() == Qt::Horizontal ? layout()->count() : 0;
    for (int i = 0; i < count; ++i) {
        const QWidget *cell = layout()->itemAt(i)->widget();
        if (!cell || cell->isHidden())
            continue;
        if (before) {
            const QWidget *left = isRightToLeft() ? cell : before;
            const QWidget *right = isRightToLeft() ? before : cell;
            paintLine(painter, (left->geometry().right() + right->geometry().left()) / 2);
        }
        before = cell;
    }
}
