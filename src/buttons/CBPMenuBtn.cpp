#include "CBPMenuBtn.h"

#include "foundation/Accessible.h"
#include "foundation/Painting.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

// Metrics, in logical pixels.
constexpr int kHeight = 28;
constexpr int kTriangle = 8; // width of the one that the base draws
constexpr int kGap = 6;
constexpr int kSidePadding = 12;
constexpr int kTextInset = 4; // the base keeps it at each side of a text that may end in an ellipsis

class AccessibleMenuBtn : public lumqt::AccessibleButton
{
public:
    explicit AccessibleMenuBtn(CBPMenuBtn *button)
        : AccessibleButton(button,
                           [button] { return button->text().isEmpty() ? button->toolTip() : button->text(); })
    {
    }

    static QAccessibleInterface *make(QWidget *widget)
    {
        auto *button = qobject_cast<CBPMenuBtn *>(widget);
        return button ? new AccessibleMenuBtn(button) : nullptr;
    }

    QAccessible::Role role() const override { return QAccessible::ButtonMenu; }
    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        state.hasPopup = true;
        return state;
    }
};

} // namespace

CBPMenuBtn::CBPMenuBtn(QString text, QWidget *parent) : CBPPushBtn(parent)
{
    lumqt::installAccessible("CBPMenuBtn", &AccessibleMenuBtn::make);
    setText(text); // not by the base, where screen readers would take the button for one of that class
    setHasMenu(true);
    setTextElided(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

CBPMenuBtn::~CBPMenuBtn() = default;

QSize CBPMenuBtn::sizeHint() const
{
    const int width = qMin(QFontMetrics(textFont()).horizontalAdvance(text()), QWIDGETSIZE_MAX);
    const int gap = text().isEmpty() ? 0 : kGap;
    return QSize(qMin(2 * kSidePadding + width + gap + kTriangle, QWIDGETSIZE_MAX), kHeight);
}

void CBPMenuBtn::drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index)
{
    QRect content = rect.adjusted(0, 0, -(kGap + kTriangle), 0);
    const QString label = elided(text(), content.width() - 2 * kTextInset);
    pen.setColor(paintedTextColor(index));
    painter->setPen(pen);
    m_textLayout->drawCentred(*painter, content, label, textFont());
    // The base draws the triangle next, half of icon and spacing right of the button's middle.
    const int behind =
        content.x() + (content.width() + QFontMetrics(textFont()).horizontalAdvance(label)) / 2 + kGap;
    setSpacing((text().isEmpty() ? -kTriangle : 2 * behind - width()) - iconWidth());
}
