#include "CBPBox.h"

#include "foundation/Log.h"
#include "foundation/Palette.h"
#include "layout/BoxPainting.h"
#include "layout/Packing.h"

#include <QBoxLayout>
#include <QPainter>
#include <QPointer>
#include <QPropertyAnimation>

namespace {

// Start, end and time are the caller's also where the animation is on its way already: an application that
// wants no jump passes what it sees. A running animation takes no notice of start(), so it is stopped first.
void run(QPropertyAnimation *animation, const QVariant &from, const QVariant &to, int duration)
{
    if (!animation)
        return;
    animation->stop();
    animation->setDuration(qMax(0, duration));
    animation->setStartValue(from);
    animation->setEndValue(to);
    animation->start(QAbstractAnimation::KeepWhenStopped);
}

} // namespace

CBPBox::CBPBox(bool bVertical, bool bOption, int iSpacing)
    : CBPWidget(nullptr),
      m_bVertical(bVertical),
      m_bOption(bOption),
      m_iSpacing(iSpacing),
      m_framePurpose(int(lumqt::Purpose::BoxFrame)) // callers set their own; red shows where one forgot
{
    Init();
}

CBPBox::~CBPBox()
{
    delete m_pHeightAnimation;
    m_pHeightAnimation = nullptr;
    delete m_pSizeAnimation;
    m_pSizeAnimation = nullptr;
}

void CBPBox::Init()
{
    if (m_bVertical)
        m_pLayout = new QVBoxLayout;
    else
        m_pLayout = new QHBoxLayout;
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(m_iSpacing);
    setLayout(m_pLayout);
    m_pHeightAnimation = new QPropertyAnimation(this, "maximumHeight");
    m_pSizeAnimation = new QPropertyAnimation(this, "size");
}

// ------------------------------------------------------------------------------------------------------------
// packing

void CBPBox::PackStart(QWidget *pWidget, bool bExpand, bool, int iPadding, Qt::Alignment align)
{
    if (!m_pLayout || !lumqt::canPack(this, pWidget))
        return;
    if (bExpand)
        pWidget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_pLayout->addWidget(pWidget, 0, align);
    m_pLayout->addSpacing(iPadding);
}

void CBPBox::PackStart(QLayout *pLayout, int iPadding, int iStretch)
{
    if (!m_pLayout || !lumqt::canPack(this, pLayout))
        return;
    const int before = m_pLayout->count();
    m_pLayout->addLayout(pLayout, iStretch);
    if (m_pLayout->count() > before) // not when it belongs to another already
        m_pLayout->addSpacing(iPadding);
}

void CBPBox::InsertWidget(int index, QWidget *pWidget, int iStretch, Qt::Alignment align)
{
    if (!m_pLayout || !lumqt::canPack(this, pWidget))
        return;
    m_pLayout->insertWidget(index <= m_pLayout->count() ? index : -1, pWidget, iStretch, align);
}

void CBPBox::AddSpacerItem(QSpacerItem *pItem)
{
    if (!pItem || !m_pLayout || m_pLayout->indexOf(pItem) >= 0)
        return;
    m_pLayout->addSpacerItem(pItem);
    m_givenSpacers.append(pItem);
}

void CBPBox::AddSpacing(int iSpacing)
{
    if (m_pLayout)
        m_pLayout->addSpacing(iSpacing);
}

void CBPBox::RemoveChildren(bool bHide)
{
    const QPointer<CBPBox> alive(this);
    while (alive && m_pLayout) {
        QLayoutItem *item = m_pLayout->takeAt(0);
        if (!item)
            break;
        const QPointer<QWidget> widget = item->widget();
        const bool given = item->layout() || m_givenSpacers.contains(item->spacerItem());
        if (bHide || !given)
            delete item;
        if (bHide && widget)
            widget->hide(); // last: whoever watches it may delete the box
    }
    if (alive)
        m_givenSpacers.clear();
}

void CBPBox::RemoveChild(QWidget *pWidget, bool bDelete)
{
    if (!pWidget || !m_pLayout)
        return;
    const int count = m_pLayout->count();
    for (int i = 0; i < count; ++i) {
        QLayoutItem *item = m_pLayout->itemAt(i);
        if (!item || item->widget() != pWidget)
            continue;
        m_pLayout->removeWidget(pWidget);
        if (bDelete)
            pWidget->deleteLater();
    }
}

// ------------------------------------------------------------------------------------------------------------
// settings

void CBPBox::SetBorderWidth(int left, int top, int right, int bottom)
{
    setContentsMargins(left, top, right, bottom);
}

void CBPBox::SetSpacing(int iSpacing)
{
    m_iSpacing = iSpacing;
    if (m_pLayout)
        m_pLayout->setSpacing(iSpacing);
}

void CBPBox::SetSizeConstraint(int iConstraint)
{
    if (iConstraint < QLayout::SetDefaultConstraint || iConstraint > QLayout::SetMinAndMaxSize) {
        qCWarning(lcLumQt, "CBPBox: %d is no size constraint", iConstraint);
        return;
    }
    if (m_pLayout)
        m_pLayout->setSizeConstraint(static_cast<QLayout::SizeConstraint>(iConstraint));
}

void CBPBox::SetDrawFrame(bool bDrawFrame)
{
    m_bDrawFrame = bDrawFrame;
}

QColor CBPBox::frameColor() const
{
    return m_ownFrame ? m_clrFrame : lumqt::themeColor(lumqt::Purpose(m_framePurpose));
}

void CBPBox::SetFrameClr(QColor clrFrame)
{
    m_clrFrame = clrFrame;
    m_ownFrame = true;
    update();
}

void CBPBox::setFramePurpose(int purpose)
{
    m_framePurpose = purpose;
}

void CBPBox::SetBgClr(QColor clrBg)
{
    m_clrBg = clrBg;
    m_ownBg = true;
    update();
}

// ------------------------------------------------------------------------------------------------------------
// animations

void CBPBox::AnimatedExpanding(int iStart, int iEnd, int iDuration)
{
    run(m_pHeightAnimation, qMax(0, iStart), qMax(0, iEnd), iDuration);
}

void CBPBox::AnimatedCollapse(int iStart, int iEnd, int iDuration)
{
    // What has no height is folded: also a box that is about to open from 0, which goes on.
    if (maximumHeight() != 0)
        run(m_pHeightAnimation, qMax(0, iStart), qMax(0, iEnd), iDuration);
}

void CBPBox::AnimatedHorizontal(QSize start, QSize end, int iDuration)
{
    run(m_pSizeAnimation, start.expandedTo(QSize(0, 0)), end.expandedTo(QSize(0, 0)), iDuration);
}

void CBPBox::paintEvent(QPaintEvent *event)
{
    if (!m_bDrawFrame) {
        // Not CBPWidget's: what lies below the box shows.
        QWidget::paintEvent(event); // NOLINT(bugprone-parent-virtual-call)
        return;
    }
    QPainter painter(this);
    const QColor ground = m_ownBg ? m_clrBg : lumqt::themeColor(lumqt::Purpose::BoxGround);
    lumqt::fillFramed(painter, QRectF(rect()), ground, frameColor());
}
