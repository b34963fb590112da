#include "CBPStyle.h"

#include "foundation/AppStyle.h"
#include "foundation/QtCompat.h"
#include "foundation/StyleParts.h"
#include "foundation/StyleWatch.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QFrame>
#include <QPointer>
#include <QStyleOption>
#include <QToolTip>

namespace {

CBPStyle *sharedStyle()
{
    static QPointer<CBPStyle> style;
    if (!style) {
        style = new CBPStyle;
        style->setParent(QCoreApplication::instance()); // setStyle() does not take it over
    }
    return style;
}

bool isStyledPanel(const QStyleOption *option)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    return frame && frame->frameShape == QFrame::StyledPanel;
}

bool hasFrame(const QStyleOption *option)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    return frame && frame->lineWidth > 0;
}

// The controls that paint an icon themselves, and leave it to no other.
bool paintsIcon(QStyle::ControlElement element)
{
    switch (element) {
    case QStyle::CE_PushButtonLabel:
    case QStyle::CE_CheckBoxLabel:
    case QStyle::CE_RadioButtonLabel:
    case QStyle::CE_ToolButtonLabel:
    case QStyle::CE_ComboBoxLabel:
    case QStyle::CE_TabBarTabLabel:
    case QStyle::CE_ToolBoxTabLabel:
    case QStyle::CE_MenuItem:
    case QStyle::CE_MenuBarItem:
    case QStyle::CE_ItemViewItem:
        return true;
    default:
        return false;
    }
}

template <class Option, class Draw>
bool drawDense(const QStyleOption &given, QIcon Option::*icon, const Draw &draw)
{
    const auto *option = qstyleoption_cast<const Option *>(&given);
    if (!option || (option->*icon).isNull())
        return false;
    Option dense(*option);
    dense.*icon = lumqt::denseIcon(option->*icon);
    draw(&dense);
    return true;
}

// Draws a control with its icon's denser picture, if it has an icon. That of a header is not here: a copy of
// its option would be without how its text is cut.
template <class Draw> bool drawDenseIcon(const QStyleOption &option, const Draw &draw)
{
    return drawDense(option, &QStyleOptionButton::icon, draw) ||
           drawDense(option, &QStyleOptionToolButton::icon, draw) ||
           drawDense(option, &QStyleOptionComboBox::currentIcon, draw) ||
           drawDense(option, &QStyleOptionTab::icon, draw) ||
           drawDense(option, &QStyleOptionToolBox::icon, draw) ||
           drawDense(option, &QStyleOptionMenuItem::icon, draw) ||
           drawDense(option, &QStyleOptionViewItem::icon, draw);
}

} // namespace

CBPStyle::CBPStyle() : QProxyStyle(lumqt::applicationStyleKey()), m_pWatch(new lumqt::StyleWatch(this))
{
    setObjectName(lumqt::applicationStyleKey()); // so that proxies go on to find the kind of style
}

CBPStyle::~CBPStyle() = default;

void CBPStyle::Install()
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()) ||
        QApplication::style()->styleHint(lumqt::kIsOurs) == lumqt::kOurs)
        return;
    QApplication::setStyle(new CBPStyle);
}

void CBPStyle::Apply(QWidget *widget)
{
    if (widget)
        sharedStyle()->m_pWatch->dress(widget);
}

void CBPStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (lumqt::wantsPalette() && widget->inherits("QTipLabel"))
        widget->setPalette(QToolTip::palette()); // Windows' own style has given it another one
    if (!lumqt::StyleWatch::wants(widget))
        return;
    m_pWatch->watch(widget);
    lumqt::furnishList(widget);
    // Not of a view itself: all of it would be painted anew when the mouse comes.
    if (!qobject_cast<QAbstractScrollArea *>(widget))
        widget->setAttribute(Qt::WA_Hover);
}

void CBPStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    const lumqt::Canvas canvas{*painter, widget, *proxy(), *m_pWatch};
    if (option && (lumqt::drawFieldPrimitive(element, *option, canvas) ||
                   lumqt::drawIndicator(element, *option, canvas) ||
                   lumqt::drawViewPrimitive(element, *option, canvas) ||
                   lumqt::drawBarPrimitive(element, *option, canvas)))
        return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void CBPStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const
{
    const auto draw = [&](const QStyleOption *dense) { drawOnce(element, dense, painter, widget); };
    if (!option || !paintsIcon(element) || !lumqt::iconsAreCoarse(painter->device()->devicePixelRatio()) ||
        !drawDenseIcon(*option, draw))
        draw(option);
}

void CBPStyle::drawOnce(ControlElement element, const QStyleOption *option, QPainter *painter,
                        const QWidget *widget) const
{
    const lumqt::Canvas canvas{*painter, widget, *proxy(), *m_pWatch};
    if (option &&
        (lumqt::drawButtonControl(element, *option, canvas) ||
         lumqt::drawFieldControl(element, *option, canvas) ||
         lumqt::drawViewControl(element, *option, canvas) || lumqt::drawBarControl(element, *option, canvas)))
        return;
    const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(option);
    if (element == CE_ItemViewItem && item) {
        QStyleOptionViewItem row =
            item->state & State_Selected ? lumqt::selectedItem(*item, *this) : QStyleOptionViewItem(*item);
        if (m_pWatch->knows(widget))
            row.state &= ~State_HasFocus; // the ring lies below what is in the row, see drawItem()
        QProxyStyle::drawControl(element, &row, painter, widget);
        return;
    }
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (element == CE_PushButtonLabel && button) {
        const QStyleOptionButton label = lumqt::pushButtonLabel(*button, *this);
        QProxyStyle::drawControl(element, &label, painter, widget);
        return;
    }
    const auto *progress = qstyleoption_cast<const QStyleOptionProgressBar *>(option);
    if ((element == CE_ProgressBarGroove || element == CE_ProgressBarContents) && progress &&
        lumqt::liesOnDark(*option)) {
        QStyleOptionProgressBar bar = *progress;
        bar.palette = lumqt::outlinedPalette(*option, lumqt::StyleColors(*option).frame);
        QProxyStyle::drawControl(element, &bar, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void CBPStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                  QPainter *painter, const QWidget *widget) const
{
    const lumqt::Canvas canvas{*painter, widget, *proxy(), *m_pWatch};
    const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    const auto *tool = qstyleoption_cast<const QStyleOptionToolButton *>(option);
    if (control == CC_ComboBox && combo)
        lumqt::drawComboBox(*combo, canvas);
    else if (control == CC_SpinBox && spin)
        lumqt::drawSpinBox(*spin, canvas);
    else if (control == CC_ToolButton && tool)
        lumqt::drawToolButton(*tool, canvas);
    else if (control == CC_ScrollBar && slider)
        lumqt::drawScrollBar(*slider, canvas);
    else if (control == CC_Slider && slider && lumqt::liesOnDark(*slider)) {
        const QStyleOptionSlider ticks = lumqt::ticksOf(*slider); // and the ring
        QProxyStyle::drawComplexControl(control, &ticks, painter, widget);
        lumqt::drawSlider(*slider, canvas);
    } else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect CBPStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    if (!option)
        return QProxyStyle::subElementRect(element, option, widget);
    switch (element) {
    case SE_LineEditContents: {
        QRect rect;
        if (hasFrame(option)) {
            const int beside = lumqt::kFieldInset - lumqt::kLineEditMargin;
            rect = option->rect.adjusted(beside, lumqt::kFocusRingWidth, -beside, -lumqt::kFocusRingWidth);
        } else if (const int beside = lumqt::editorInset(widget)) { // where the row has its text
            rect = option->rect.adjusted(beside, 0, -beside, 0);
        } else {
            rect = QProxyStyle::subElementRect(element, option, widget);
        }
        return rect.adjusted(0, 0, 0, -lumqt::excessBelow(rect.height() - option->fontMetrics.height()));
    }
    case SE_ShapedFrameContents:
        if (isStyledPanel(option) && qobject_cast<const QAbstractScrollArea *>(widget)) {
            constexpr int frame = lumqt::kViewFrame;
            return option->rect.adjusted(frame, frame, -frame, -frame);
        }
        break;
    case SE_ItemViewItemFocusRect:
        return option->rect;
    case SE_HeaderLabel: { // beside whose text the header counts with a margin of the style
        const int beside = lumqt::kFieldInset - proxy()->pixelMetric(PM_HeaderMargin, option, widget);
        return option->rect.adjusted(beside, 0, -beside, 0);
    }
    case SE_HeaderArrow: {
        QRect arrow = option->rect.adjusted(0, 0, -lumqt::kFieldInset, 0);
        arrow.setLeft(arrow.right() + 1 - lumqt::kTriangleWidth);
        return visualRect(option->direction, option->rect, arrow);
    }
    default:
        break;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect CBPStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                               const QWidget *widget) const
{
    const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control == CC_ComboBox && combo)
        return lumqt::comboBoxPart(*combo, part);
    const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    if (control == CC_SpinBox && spin)
        return lumqt::spinBoxPart(*spin, part, widget);
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && slider)
        return lumqt::scrollBarPart(*slider, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize CBPStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                 const QWidget *widget) const
{
    constexpr int inset = lumqt::kFieldInset;
    const int text = option ? option->fontMetrics.height() + 2 * lumqt::kFieldPadding : 0;
    const int height = qMax(lumqt::kFieldHeight, text);
    const int withRing = qMax(height, size.height() + 2 * lumqt::kFocusRingWidth); // of fields
    switch (type) {
    case CT_LineEdit:
        if (hasFrame(option))
            return QSize(size.width() + 2 * (inset - lumqt::kLineEditMargin), withRing);
        break;
    case CT_ComboBox:
        if (const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option))
            return QSize(size.width() + (combo->frame ? 2 * inset : 2) + lumqt::kDropWidth,
                         combo->frame ? withRing : size.height());
        break;
    case CT_SpinBox:
        if (const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option)) {
            const int steps = spin->buttonSymbols == QAbstractSpinBox::NoButtons ? 0 : lumqt::kStepWidth;
            return QSize(size.width() + steps + (spin->frame ? 2 * (inset - lumqt::kLineEditMargin) : 0),
                         spin->frame ? qMax(height, size.height()) : size.height());
        }
        break;
    case CT_PushButton: {
        const QSize wanted = QProxyStyle::sizeFromContents(type, option, size, widget);
        return QSize(wanted.width(), qMax(wanted.height(), lumqt::kFieldHeight));
    }
    case CT_ItemViewItem: {
        const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(option);
        const QSize wanted = QProxyStyle::sizeFromContents(type, option, size, widget);
        if (!item || !(item->features & QStyleOptionViewItem::HasCheckIndicator))
            return wanted;
        return QSize(wanted.width(), qMax(wanted.height(), lumqt::kIndicatorRow));
    }
    case CT_HeaderSection:
        if (const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(option))
            return lumqt::headerSize(*header, *proxy(), widget);
        break;
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

int CBPStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return lumqt::kIndicator + (lumqt::hasRows(widget) ? 0 : 2 * lumqt::kIndicatorRoom);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return lumqt::kIndicatorGap - lumqt::kIndicatorRoom;
    case PM_HeaderMarkSize:
        return lumqt::kTriangleWidth + lumqt::kIconGap;
    case PM_ScrollBarExtent:
        return lumqt::kScrollBarWidth;
    case PM_ComboBoxFrameWidth:
    case PM_SpinBoxFrameWidth:
        return lumqt::kFocusRingWidth;
    case PM_FocusFrameHMargin: // of a row's text, which begins where that of a header does
        return lumqt::hasRows(widget) ? lumqt::rowMargin(option)
                                      : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CBPStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *returnData) const
{
    if (hint == lumqt::kIsOurs)
        return lumqt::kOurs;
    switch (hint) {
    case SH_ComboBox_Popup: // a list, not a menu over the field
    case SH_ScrollBar_Transient:
        return 0;
    case SH_ComboBox_ListMouseTracking:
        return 1;
    case SH_ComboBox_PopupFrameStyle:
        return int(QFrame::StyledPanel) | int(QFrame::Plain);
    case SH_Table_GridLineColor:
        return int(
            (option ? lumqt::StyleColors(*option).rule : lumqt::themeColor(lumqt::Purpose::Rule)).rgba());
    case SH_GroupBox_TextLabelColor:
        // Windows' own style has it black, also in a dark window.
        if (!option || option->palette.color(QPalette::Window).lightness() >= lumqt::kDarkest)
            return QProxyStyle::styleHint(hint, option, widget, returnData);
        return int(option->palette
                       .color(option->state & State_Enabled ? QPalette::Active : QPalette::Disabled,
                              QPalette::WindowText)
                       .rgba());
    case SH_Header_ArrowAlignment:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}
