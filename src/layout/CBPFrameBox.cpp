#include "CBPFrameBox.h"

#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "layout/BoxPainting.h"
#include "layout/Packing.h"

#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int kOutlineWidth = 1;
constexpr int kTitleHeight = 60; // of a form's box, as the framed windows have them
constexpr int kBottomHeight = 70;

template <class Layout> Layout *emptyLayout()
{
    auto *layout = new Layout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    return layout;
}

void append(QBoxLayout *layout, QWidget *widget, int spacing)
{
    layout->addWidget(widget);
    layout->addSpacing(spacing);
}

} // namespace

CBPFrameBox::CBPFrameBox(int iTitleHeight, int iBottomHeight, QWidget *)
    : QWidget(nullptr),
      m_iTitleHeight(lumqt::boundedPixels(iTitleHeight)),
      m_iBottomHeight(lumqt::boundedPixels(iBottomHeight))
{
    Init();
}

CBPFrameBox::CBPFrameBox(QWidget *parent)
    : QWidget(parent), m_iTitleHeight(kTitleHeight), m_iBottomHeight(kBottomHeight)
{
    Init();
}

CBPFrameBox::~CBPFrameBox() = default;

void CBPFrameBox::Init()
{
    auto *column = emptyLayout<QVBoxLayout>();
    setLayout(column);
    m_pTitleLayout = emptyLayout<QHBoxLayout>();
    m_pContentLayout = emptyLayout<QVBoxLayout>();
    m_pBottomLayout = emptyLayout<QHBoxLayout>();
    column->addLayout(m_pTitleLayout);
    column->addLayout(m_pContentLayout);
    column->addLayout(m_pBottomLayout);
}

void CBPFrameBox::AddTitleWidget(QWidget *pWidget, int iSpacing)
{
    if (lumqt::canPack(this, pWidget))
        append(m_pTitleLayout, pWidget, iSpacing);
}

void CBPFrameBox::AddContentWidget(QWidget *pWidget, int iSpacing)
{
    if (lumqt::canPack(this, pWidget))
        append(m_pContentLayout, pWidget, iSpacing);
}

void CBPFrameBox::AddBottomWidget(QWidget *pWidget, int iSpacing)
{
    if (lumqt::canPack(this, pWidget))
        append(m_pBottomLayout, pWidget, iSpacing);
}

void CBPFrameBox::setTitleHeight(int height)
{
    m_iTitleHeight = lumqt::boundedPixels(height);
    update();
}

void CBPFrameBox::resetTitleHeight()
{
    setTitleHeight(kTitleHeight);
}

void CBPFrameBox::setBottomHeight(int height)
{
    m_iBottomHeight = lumqt::boundedPixels(height);
    update();
}

void CBPFrameBox::resetBottomHeight()
{
    setBottomHeight(kBottomHeight);
}

void CBPFrameBox::paintEvent(QPaintEvent *)
{
    using lumqt::Purpose;
    QPainter painter(this);
    QRect band = rect();
    band.setHeight(m_iTitleHeight);
    lumqt::fillPixels(painter, QRectF(band).normalized(), lumqt::themeColor(Purpose::BandGround));
    // Only the top edge moves: in a box higher than both bands together the rectangle is upside down and
    // covers what lies between them. Meant so; windows were drawn for it.
    band.setTop(rect().height() - m_iBottomHeight);
    lumqt::fillPixels(painter, QRectF(band).normalized(), lumqt::themeColor(Purpose::BandGround));
    // An outline of the whole rectangle: its right and bottom lines are outside the widget.
    lumqt::fillLine(painter, QRectF(0, 0, width(), kOutlineWidth), lumqt::themeColor(Purpose::BandFrame));
    lumqt::fillLine(painter, QRectF(0, 0, kOutlineWidth, height()), lumqt::themeColor(Purpose::BandFrame));
}
