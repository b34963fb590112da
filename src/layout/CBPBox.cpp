#include "CBPBox.h"

#include "foundation/Log.h"
#include "foundation/Palette.h"
#include "layout/BoxPainting.h"
#include "layout/Packing.h"

#include <QBoxLayout>
#include <QPainter>
#include <QPointer>
#include <QPropertyAnimation>
#include <QSet>

namespace {

constexpr int kFrameWidth = 1; // pixels

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
      m_iFirstSpacing(iSpacing),
      m_framePurpose(int(lumqt::Purpose::BoxFrame)) // callers set their own; red shows where one forgot
{
    Init();
    packedLayout();
}

CBPBox::CBPBox(lumqt::InForm, QWidget *parent)
    : CBPWidget(parent), m_framePurpose(int(lumqt::Purpose::BoxFrame))
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
    m_pHeightAnimation = new QPropertyAnimation(this, "maximumHeight");
    m_pSizeAnimation = new QPropertyAnimation(this, "size");
}

// ------------------------------------------------------------------------------------------------------------
// packing

// The row or column that is packed into; made where a box of a form has none yet. Null where the form has set
// a layout of another kind.
QBoxLayout *CBPBox::packedLayout()
{
    if (layout()) {
        auto *theirs = qobject_cast<QBoxLayout *>(layout());
        if (!theirs && !m_bToldLayout)
            qCWarning(lcLumQt, "%s: nothing can be packed into a %s", metaObject()->className(),
                      layout()->metaObject()->className());
        m_bToldLayout = m_bToldLayout || !theirs;
        return theirs;
    }
    QBoxLayout *own = nullptr;
    if (m_bVertical)
        own = new QVBoxLayout;
    else
        own = new QHBoxLayout;
    own->setContentsMargins(0, 0, 0, 0);
    own->setSpacing(m_iSpacing);
    if (m_iConstraint >= 0)
        own->setSizeConstraint(static_cast<QLayout::SizeConstraint>(m_iConstraint));
    setLayout(own);
    return own;
}

void CBPBox::PackStart(QWidget *pWidget, bool bExpand, bool, int iPadding, Qt::Alignment align)
{
    if (!lumqt::canPack(this, pWidget))
        return;
    QBoxLayout *items = packedLayout();
    if (!items) {
        pWidget->setParent(this);
        return;
    }
    if (bExpand)
        pWidget->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    items->addWidget(pWidget, 0, align);
    items->addSpacing(iPadding);
}

void CBPBox::PackStart(QLayout *pLayout, int iPadding, int iStretch)
{
    QBoxLayout *items = lumqt::canPack(this, pLayout) ? packedLayout() : nullptr;
    if (!items)
        return;
    const int before = items->count();
    items->addLayout(pLayout, iStretch);
    if (items->count() > before) // not when it belongs to another already
        items->addSpacing(iPadding);
}

void CBPBox::InsertWidget(int index, QWidget *pWidget, int iStretch, Qt::Alignment align)
{
    if (!lumqt::canPack(this, pWidget))
        return;
    if (QBoxLayout *items = packedLayout())
        items->insertWidget(index <= items->count() ? index : -1, pWidget, iStretch, align);
    else
        pWidget->setParent(this);
}

void CBPBox::AddSpacerItem(QSpacerItem *pItem)
{
    QBoxLayout *items = pItem ? packedLayout() : nullptr;
    if (!items || items->indexOf(pItem) >= 0)
        return;
    items->addSpacerItem(pItem);
    m_givenSpacers.append(pItem);
}

void CBPBox::AddSpacing(int iSpacing)
{
    if (QBoxLayout *items = packedLayout())
        items->addSpacing(iSpacing);
}

void CBPBox::RemoveChildren(bool bHide)
{
    const QPointer<CBPBox> alive(this);
    const QSet<const QLayoutItem *> spacers(m_givenSpacers.cbegin(), m_givenSpacers.cend());
    while (alive && layout()) {
        QLayoutItem *item = layout()->takeAt(0);
        if (!item)
            break;
        const QPointer<QWidget> widget = item->widget();
        const bool given = item->layout() || spacers.contains(item);
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
    const int place = pWidget && layout() ? layout()->indexOf(pWidget) : -1;
    if (place < 0)
        return;
    // Not by removeWidget(), which goes on to the end of the layout.
    delete layout()->takeAt(place);
    layout()->invalidate();
    if (bDelete)
        pWidget->deleteLater();
}

// ------------------------------------------------------------------------------------------------------------
// settings

void CBPBox::SetBorderWidth(int left, int top, int right, int bottom)
{
    setContentsMargins(left, top, right, bottom);
}

void CBPBox::setLeftBorder(int border)
{
    SetBorderWidth(border, topBorder(), rightBorder(), bottomBorder());
}

void CBPBox::resetLeftBorder()
{
    setLeftBorder(m_iFirstBorder);
}

void CBPBox::setTopBorder(int border)
{
    SetBorderWidth(leftBorder(), border, rightBorder(), bottomBorder());
}

void CBPBox::resetTopBorder()
{
    setTopBorder(m_iFirstBorder);
}

void CBPBox::setRightBorder(int border)
{
    SetBorderWidth(leftBorder(), topBorder(), border, bottomBorder());
}

void CBPBox::resetRightBorder()
{
    setRightBorder(m_iFirstBorder);
}

void CBPBox::setBottomBorder(int border)
{
    SetBorderWidth(leftBorder(), topBorder(), rightBorder(), border);
}

void CBPBox::resetBottomBorder()
{
    setBottomBorder(m_iFirstBorder);
}

void CBPBox::SetSpacing(int iSpacing)
{
    m_iSpacing = iSpacing;
    if (layout())
        layout()->setSpacing(iSpacing);
}

int CBPBox::spacing() const
{
    return layout() ? layout()->spacing() : m_iSpacing;
}

void CBPBox::resetSpacing()
{
    SetSpacing(m_iFirstSpacing);
}

void CBPBox::setOrientation(Qt::Orientation orientation)
{
    m_bVertical = orientation == Qt::Vertical;
    auto *items = qobject_cast<QBoxLayout *>(layout());
    if (items && this->orientation() != (m_bVertical ? Qt::Vertical : Qt::Horizontal))
        items->setDirection(m_bVertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

Qt::Orientation CBPBox::orientation() const
{
    bool vertical = m_bVertical;
    if (const auto *items = qobject_cast<const QBoxLayout *>(layout()))
        vertical =
            items->direction() == QBoxLayout::TopToBottom || items->direction() == QBoxLayout::BottomToTop;
    return vertical ? Qt::Vertical : Qt::Horizontal;
}

void CBPBox::SetSizeConstraint(int iConstraint)
{
    if (iConstraint < QLayout::SetDefaultConstraint || iConstraint > QLayout::SetMinAndMaxSize) {
        qCWarning(lcLumQt, "CBPBox: %d is no size constraint", iConstraint);
        return;
    }
    m_iConstraint = iConstraint;
    if (layout())
        layout()->setSizeConstraint(static_cast<QLayout::SizeConstraint>(iConstraint));
}

QLayout::SizeConstraint CBPBox::sizeConstraint() const
{
    if (layout())
        return layout()->sizeConstraint();
    return m_iConstraint < 0 ? QLayout::SetDefaultConstraint : QLayout::SizeConstraint(m_iConstraint);
}

void CBPBox::resetSizeConstraint()
{
    SetSizeConstraint(QLayout::SetDefaultConstraint);
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

void CBPBox::resetFrameColor()
{
    m_ownFrame = false;
    update();
}

// Of boxes that have a frame from the start, and keep room for it.
void CBPBox::setFramePurpose(int purpose)
{
    m_framePurpose = purpose;
    m_iFirstBorder = kFrameWidth;
}

void CBPBox::SetBgClr(QColor clrBg)
{
    m_clrBg = clrBg;
    m_ownBg = true;
    update();
}

QColor CBPBox::backgroundColor() const
{
    return m_ownBg ? m_clrBg : lumqt::builtInColor(lumqt::Purpose::BoxGround);
}

void CBPBox::resetBackgroundColor()
{
    m_ownBg = false;
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
