#include "CExpandBtn.h"

#include "buttons/AccessibleWaitBtn.h"
#include "buttons/ButtonTones.h"
#include "foundation/ImageLoader.h"
#include "foundation/Painting.h"
#include "Util.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace {

// Look and metrics, in logical pixels.
constexpr int kHeight = 44;
constexpr int kArrowInset = 16; // from the end of the line
constexpr int kArrowRoom = 36;  // inset, arrow and a gap; at both ends, so that the text stays in the middle
constexpr int kTextInset = 4;   // the base keeps it beside a text that may end in an ellipsis
constexpr qreal kDisabledOpacity = 0.4;        // of the arrow
constexpr qreal kDisabledOpacityOnDark = 0.75; // where it is light, and would be lost
constexpr int kDisabled = 3;                   // state

qreal disabledOpacity()
{
    return lumqt::themeFolder().isEmpty() ? kDisabledOpacity : kDisabledOpacityOnDark;
}

} // namespace

class CExpandBtn::Accessible : public lumqt::AccessibleWaitBtn
{
public:
    explicit Accessible(CExpandBtn *button)
        : AccessibleWaitBtn(button, [button] { return button->shownName(); }), m_button(button)
    {
    }

    static QAccessibleInterface *make(QWidget *widget)
    {
        auto *button = qobject_cast<CExpandBtn *>(widget);
        return button ? new Accessible(button) : nullptr;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleWaitBtn::state();
        state.expandable = m_button && m_button->m_expandable;
        state.expanded = m_button && m_button->m_expanded;
        state.collapsed = state.expandable && !state.expanded;
        return state;
    }

private:
    QPointer<CExpandBtn> m_button;
};

CExpandBtn::CExpandBtn(const QStringList &frames, const QString &text, const QString &waitingText,
                       QWidget *parent, bool autoResize)
    : CBPWaitBtn(frames, QString(), waitingText, parent, autoResize)
{
    lumqt::installAccessible("CExpandBtn", &Accessible::make);
    setNormalText(text);
    setFixedHeight(kHeight);
    setFrmTrancent(true);
    setTextElided(true);
    lumqt::ButtonTones::setRing(*this, lumqt::Purpose::FocusRing);
    connect(this, SIGNAL(clicked()), this, SLOT(onExpand()));
}

CExpandBtn::CExpandBtn(QWidget *parent) : CExpandBtn(QStringList(), QString(), QString(), parent) {}

CExpandBtn::~CExpandBtn() = default;

void CExpandBtn::setExpand(bool expand)
{
    const bool expanded = expand && m_expandable;
    if (expanded == m_expanded)
        return;
    m_expanded = expanded;
    update();
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
    emit sigExpandChanged(expanded); // the button may be gone after this
}

void CExpandBtn::setExpandable(bool expandable)
{
    m_expandable = expandable;
    update();
    if (!expandable)
        setExpand(false);
}

bool CExpandBtn::isExpand() const
{
    return m_expanded;
}

void CExpandBtn::onExpand()
{
    setExpand(!m_expanded);
}

QSize CExpandBtn::sizeHint() const
{
    const QSize hint = CBPWaitBtn::sizeHint();
    const int needed = QFontMetrics(textFont()).horizontalAdvance(text()) + 2 * (kArrowRoom + kTextInset);
    return QSize(qMax(hint.width(), qMin(needed, QWIDGETSIZE_MAX)), kHeight);
}

void CExpandBtn::drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index)
{
    const bool showsArrow = m_expandable && !isWaitting();
    const int room = showsArrow ? qMin(kArrowRoom, rect.width() / 2) : 0;
    QRect content = rect.adjusted(room, 0, -room, 0);
    CBPWaitBtn::drawPixmapAndText(painter, pen, content, index);
    if (IsFocus()) { // without a frame the base has none to mark
        lumqt::Body ring;
        ring.frame = lumqt::ButtonTones::ring(*this);
        ring.frameWidth = lumqt::kFocusRingWidth;
        lumqt::drawBody(*painter, rect, ring);
    }
    if (!showsArrow)
        return;
    const char *name = m_expanded ? "../res/icon_arrowup.png" : "../res/icon_arrowdown.png";
    const QPixmap arrow =
        lumqt::paintedPixmap(Util::getResFullPath(QString::fromLatin1(name)), devicePixelRatioF());
    const QSize size = lumqt::logicalSize(arrow);
    painter->setOpacity(index == kDisabled ? disabledOpacity() : 1.0);
    const QRect place(QPoint(rect.right() + 1 - kArrowInset - size.width(),
                             rect.top() + (rect.height() - size.height()) / 2),
                      size);
    painter->drawPixmap(QStyle::visualRect(layoutDirection(), rect, place).topLeft(), arrow);
    painter->setOpacity(1.0);
}
