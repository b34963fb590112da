#include "CFoucsLabel.h"

#include "foundation/Accessible.h"
#include "foundation/ElidedText.h"
#include "foundation/FocusMark.h"
#include "foundation/FontLookup.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/PressKeys.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace {

// Look and metrics, in logical pixels.
constexpr int kHoverAlpha = 12; // of the text colour, for the grounds
constexpr int kFocusedAlpha = 24;
constexpr int kPressedAlpha = 40;
constexpr qreal kDisabledOpacity = 0.4; // of the icons
constexpr int kBarWidth = 3;            // at the beginning of a focused title
constexpr int kInset = 12;
constexpr int kVerticalPadding = 8;
constexpr int kLeastHeight = 36;
constexpr int kLeastTextWidth = 24; // of a title that is squeezed
constexpr int kArrowSize = 10;      // the box of the library's own arrow
constexpr qreal kArrowWidth = 1.5;  // of its line
constexpr int kPlain = 0;           // looks, as in lists of files
constexpr int kFocused = 1;

QColor tint(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

} // namespace

// A picture per look.
struct CFoucsLabel::Icon
{
    QVector<QString> files; // none, or one per look
    lumqt::PaintedImage image;

    void set(const QStringList &paths)
    {
        files.clear();
        image.forget();
        if (!paths.isEmpty())
            files = {paths.first(), paths.value(kFocused, paths.first())};
    }

    // Room for either, so that nothing moves when the look changes.
    QSize size(qreal ratio, QSize (*sizeOf)(const QString &, qreal) = lumqt::pictureSize) const
    {
        QSize size(0, 0);
        for (const QString &file : files)
            size = size.expandedTo(sizeOf(file, ratio));
        return size;
    }
};

struct CFoucsLabel::Places
{
    QRect lead;
    QRect text;
    QRect tail;
};

class CFoucsLabel::Accessible : public lumqt::AccessiblePressable
{
public:
    explicit Accessible(CFoucsLabel *label) : AccessiblePressable(label, QAccessible::PageTab) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = label() && label()->m_focused;
        return state;
    }

protected:
    QString ownName() const override { return label() ? label()->m_text : QString(); }
    void press() override { label()->click(); }

private:
    CFoucsLabel *label() const { return qobject_cast<CFoucsLabel *>(object()); }
};

QAccessibleInterface *CFoucsLabel::makeAccessible(QWidget *widget)
{
    auto *label = qobject_cast<CFoucsLabel *>(widget);
    return label ? new Accessible(label) : nullptr;
}

CFoucsLabel::CFoucsLabel(QString text, int indent, int spacing, QString iconPath, QWidget *parent)
    : QWidget(parent),
      m_text(text),
      m_indent(qMax(0, lumqt::boundedPixels(indent))),
      m_spacing(qMax(0, lumqt::boundedPixels(spacing))),
      m_lead(std::make_unique<Icon>()),
      m_tail(std::make_unique<Icon>()),
      m_layout(std::make_unique<lumqt::CachedText>())
{
    lumqt::installAccessible(staticMetaObject.className(), makeAccessible);
    if (!iconPath.isEmpty()) {
        m_leadIcons = QStringList(iconPath);
        m_lead->set(m_leadIcons);
    }
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
}

CFoucsLabel::~CFoucsLabel() = default;

void CFoucsLabel::ChangeText(QString text)
{
    if (m_text == text)
        return;
    m_text = text;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    updateGeometry();
    update();
    emit textChanged(text);
}

QString CFoucsLabel::Text() const
{
    return m_text;
}

void CFoucsLabel::SetIconPath(QStringList leadIcons, QStringList tailIcons)
{
    m_leadIcons = leadIcons;
    m_tailIcons = tailIcons;
    m_lead->set(leadIcons);
    m_tail->set(tailIcons);
    updateGeometry();
    update();
}

void CFoucsLabel::SetColor(QColor plain, QColor focused)
{
    m_plainColor = plain;
    m_focusedColor = focused;
    update();
}

void CFoucsLabel::HideTailIcon()
{
    setTailIconVisible(false);
}

bool CFoucsLabel::IsFocus() const
{
    return m_focused;
}

void CFoucsLabel::SetFocus(bool focused)
{
    tellFocused(mark(focused));
}

// Says whose look is another one now, this one last.
CFoucsLabel::Titles CFoucsLabel::mark(bool focused)
{
    Titles changed;
    if (focused) {
        for (CFoucsLabel *sibling : qAsConst(m_siblings)) {
            if (sibling && sibling != this)
                changed += sibling->mark(false);
        }
    }
    if (m_focused == focused)
        return changed;
    m_focused = focused;
    update();
    lumqt::tellSelected(this, focused);
    changed.append(this);
    return changed;
}

// Who hears of one may delete others, or focus another one: then it has been told.
void CFoucsLabel::tellFocused(const Titles &titles)
{
    for (CFoucsLabel *title : titles) {
        if (!title || title->m_toldFocused == title->m_focused)
            continue;
        title->m_toldFocused = title->m_focused;
        emit title->focusedChanged(title->m_focused);
    }
}

void CFoucsLabel::SetSiblings(QList<CFoucsLabel *> siblings)
{
    m_siblings.clear();
    for (CFoucsLabel *sibling : qAsConst(siblings))
        m_siblings.append(sibling);
}

QSize CFoucsLabel::sizeHint() const
{
    const QSize text = m_layout->lineSize(m_text, lumqt::uiFont());
    return QSize(minimumSizeHint().width() - qMin(kLeastTextWidth, text.width()) + text.width(),
                 minimumSizeHint().height());
}

QSize CFoucsLabel::minimumSizeHint() const
{
    const qreal ratio = devicePixelRatioF();
    const QSize lead = m_lead->size(ratio);
    const QSize tail = m_tail->files.isEmpty() ? QSize(kArrowSize, kArrowSize) : m_tail->size(ratio);
    const QSize text = m_layout->lineSize(m_text, lumqt::uiFont());
    int width = m_indent + 2 * kInset + qMin(kLeastTextWidth, text.width());
    if (!m_lead->files.isEmpty())
        width += lead.width() + m_spacing;
    int height = qMax(text.height(), lead.height());
    if (m_showsTail) {
        width += m_spacing + tail.width();
        height = qMax(height, tail.height());
    }
    return QSize(width, qMax(kLeastHeight, height + 2 * kVerticalPadding));
}

// ------------------------------------------------------------------------------------------------------------
// events

void CFoucsLabel::click()
{
    const Titles changed = mark(true);
    emit FocusChanged(this); // the title may be gone after
    tellFocused(changed);
}

void CFoucsLabel::release()
{
    m_press = lumqt::Press::None;
    update();
}

bool CFoucsLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const bool cut = m_layout->lineSize(m_text, lumqt::uiFont()).width() > places().text.width();
    return lumqt::showWholeText(this, event, m_text, cut) || QWidget::event(event);
}

void CFoucsLabel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    m_press = lumqt::Press::Mouse;
    update();
}

void CFoucsLabel::mouseReleaseEvent(QMouseEvent *event)
{
    const bool mine = m_press == lumqt::Press::Mouse || m_press == lumqt::Press::TakenBack;
    if (event->button() != Qt::LeftButton || !mine) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    const bool clicks = lumqt::mouseReleased(m_press) && rect().contains(event->pos());
    update();
    if (clicks)
        click();
}

void CFoucsLabel::keyPressEvent(QKeyEvent *event)
{
    const lumqt::PressStep step = lumqt::keyPressed(event, m_press);
    if (step == lumqt::PressStep::NotMine) {
        QWidget::keyPressEvent(event);
        return;
    }
    lumqt::keyUsed(m_focusMark);
    update();
    if (step == lumqt::PressStep::Click)
        click();
}

void CFoucsLabel::keyReleaseEvent(QKeyEvent *event)
{
    const lumqt::PressStep step = lumqt::keyReleased(event, m_press);
    if (step == lumqt::PressStep::NotMine) {
        QWidget::keyReleaseEvent(event);
    } else if (step == lumqt::PressStep::Click) {
        release();
        click();
    }
}

void CFoucsLabel::focusInEvent(QFocusEvent *event)
{
    lumqt::focusGained(m_focusMark, event->reason());
    QWidget::focusInEvent(event);
    update();
}

void CFoucsLabel::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusLost(m_focusMark, event->reason());
    if (m_press == lumqt::Press::Space) // the release goes elsewhere
        m_press = lumqt::Press::None;
    QWidget::focusOutEvent(event);
    update();
}

void CFoucsLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        release();
    QWidget::changeEvent(event);
}

// The release that belongs to a press goes elsewhere.
void CFoucsLabel::hideEvent(QHideEvent *event)
{
    release();
    QWidget::hideEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// painting

// Laid out from left to right, then mirrored if need be.
CFoucsLabel::Places CFoucsLabel::places() const
{
    const qreal ratio = devicePixelRatioF();
    const auto centred = [this](int x, const QSize &size) {
        return QRect(QPoint(x, (height() - size.height()) / 2), size);
    };
    Places result;
    int left = kInset + m_indent;
    int right = width() - kInset; // one behind the last pixel
    if (!m_lead->files.isEmpty()) {
        result.lead = centred(left, m_lead->size(ratio, lumqt::paintedSize));
        left += result.lead.width() + m_spacing;
    }
    if (m_showsTail) {
        const QSize size =
            m_tail->files.isEmpty() ? QSize(kArrowSize, kArrowSize) : m_tail->size(ratio, lumqt::paintedSize);
        result.tail = centred(right - size.width(), size);
        right -= size.width() + m_spacing;
    }
    result.text = QRect(left, 0, qMax(0, right - left), height());
    for (QRect *place : {&result.lead, &result.text, &result.tail})
        *place = QStyle::visualRect(layoutDirection(), rect(), *place);
    return result;
}

QColor CFoucsLabel::textColor() const
{
    using lumqt::Purpose;
    if (!isEnabled())
        return lumqt::themeColor(Purpose::HeadingDisabled);
    return m_focused ? lumqt::ownOr(m_focusedColor, Purpose::HeadingFocused)
                     : lumqt::ownOr(m_plainColor, Purpose::HeadingText);
}

QColor CFoucsLabel::groundColor() const
{
    // A tint that shades a light ground does not lighten a dark one enough to be seen.
    const bool own = (m_focused ? m_focusedColor : m_plainColor).isValid();
    const bool tints = own || lumqt::isPlainLight();
    if (isEnabled() && (m_press == lumqt::Press::Mouse || m_press == lumqt::Press::Space))
        return tints ? tint(textColor(), kPressedAlpha) : lumqt::themeColor(lumqt::Purpose::Pressed);
    if (m_focused)
        return tint(textColor(), kFocusedAlpha);
    if (!isEnabled() || !underMouse())
        return QColor();
    return tints ? tint(textColor(), kHoverAlpha) : lumqt::themeColor(lumqt::Purpose::Hovered);
}

// Along the edge where the title begins, or inside the ring there.
void CFoucsLabel::drawBar(QPainter &painter, int inset)
{
    const QRectF whole = lumqt::wholeDevicePixels(painter, QRectF(rect()));
    const qreal width = lumqt::evenDevicePixels(painter, QRectF(0, 0, kBarWidth, 1)).width();
    const qreal shift = inset > 0 ? lumqt::evenDevicePixels(painter, QRectF(0, 0, inset, 1)).width() : 0;
    const qreal left = isRightToLeft() ? whole.right() - shift - width : whole.left() + shift;
    painter.fillRect(QRectF(left, whole.top(), width, whole.height()), textColor());
}

void CFoucsLabel::drawIcon(QPainter &painter, Icon &icon, const QRect &place)
{
    const QPixmap &pixmap =
        icon.image.pixmap(icon.files, m_focused ? kFocused : kPlain, painter.device()->devicePixelRatioF());
    if (pixmap.isNull())
        return;
    const QSize size = icon.image.size();
    painter.setOpacity(isEnabled() ? 1.0 : lumqt::disabledOpacity(kDisabledOpacity));
    painter.drawPixmap(place.x() + (place.width() - size.width()) / 2,
                       place.y() + (place.height() - size.height()) / 2, pixmap);
    painter.setOpacity(1.0);
}

void CFoucsLabel::drawText(QPainter &painter, const QRect &place)
{
    const QFont font = lumqt::uiFont();
    // More than a pixel a character cannot fit, and need not be measured at each paint.
    const QString shown =
        m_layout->lineSize(m_text, font).width() <= place.width()
            ? m_text
            : QFontMetrics(font).elidedText(m_text.left(place.width() + 1), Qt::ElideRight, place.width());
    QRect line = place;
    if (isRightToLeft())
        line.setLeft(qMax(place.left(), place.right() + 1 - m_layout->lineSize(shown, font).width()));
    painter.setPen(textColor());
    m_layout->drawLeft(painter, line, shown, font);
}

void CFoucsLabel::drawArrow(QPainter &painter, const QRect &place)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(textColor(), kArrowWidth);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.translate(QRectF(place).center());
    painter.rotate(m_focused ? 0 : isRightToLeft() ? 90 : -90);
    constexpr qreal kReach = kArrowSize * 0.4;
    const QPointF corners[] = {{-kReach, -kReach / 2}, {0, kReach / 2}, {kReach, -kReach / 2}};
    painter.drawPolyline(corners, 3);
    painter.restore();
}

void CFoucsLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor ground = groundColor();
    if (ground.isValid())
        painter.fillRect(rect(), ground);
    const bool ringed = m_focusMark == lumqt::FocusMark::Shown && isEnabled();
    if (m_focused)
        drawBar(painter, ringed ? lumqt::kFocusRingWidth : 0);
    const Places where = places();
    if (!m_lead->files.isEmpty())
        drawIcon(painter, *m_lead, where.lead);
    drawText(painter, where.text);
    if (m_showsTail && m_tail->files.isEmpty())
        drawArrow(painter, where.tail);
    else if (m_showsTail)
        drawIcon(painter, *m_tail, where.tail);
    if (ringed)
        lumqt::drawFocusRing(painter, rect());
}
