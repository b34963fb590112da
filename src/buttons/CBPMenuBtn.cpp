#include "CBPMenuBtn.h"

#include "buttons/ButtonTones.h"
#include "foundation/Accessible.h"
#include "foundation/Painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace {

// Metrics, in logical pixels.
constexpr int kHeight = 28;
constexpr int kTriangle = 8; // its width
constexpr int kTriangleHeight = 4;
constexpr int kGap = 6;
constexpr int kSidePadding = 12;
constexpr int kTextInset = 4; // the base keeps it at each side of a text that may end in an ellipsis

class AccessibleMenuBtn : public lumqt::AccessibleButton
{
public:
    explicit AccessibleMenuBtn(CBPMenuBtn *button)
        : AccessibleButton(button, [button] { return button->text(); })
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
    m_arrowWidth = m_arrowHeight = 0; // the triangle stands behind the text, and is drawn here
    setTextElided(true);
    lumqt::ButtonTones::setRing(*this, lumqt::Purpose::FocusRing);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

CBPMenuBtn::CBPMenuBtn(QWidget *parent) : CBPMenuBtn(QString(), parent) {}

CBPMenuBtn::~CBPMenuBtn() = default;

QSize CBPMenuBtn::sizeHint() const
{
    const int width = qMin(QFontMetrics(textFont()).horizontalAdvance(text()), QWIDGETSIZE_MAX);
    const int gap = text().isEmpty() ? 0 : kGap;
    return QSize(qMin(2 * kSidePadding + width + gap + kTriangle, QWIDGETSIZE_MAX), kHeight);
}

void CBPMenuBtn::drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index)
{
    const auto visual = [&](const QRect &place) {
        return QStyle::visualRect(layoutDirection(), rect, place);
    };
    const QRect content = rect.adjusted(0, 0, -(kGap + kTriangle), 0);
    const QString label = elided(text(), content.width() - 2 * kTextInset);
    pen.setColor(paintedTextColor(index));
    painter->setPen(pen);
    textLayout().drawCentred(*painter, visual(content), label, textFont());
    // In the middle without a text, as the base would have it with icon and spacing in mind.
    int left = rect.x() + (rect.width() - kTriangle) / 2;
    if (!text().isEmpty()) {
        const int advance = QFontMetrics(textFont()).horizontalAdvance(label);
        left = content.x() + (content.width() + advance) / 2 + kGap;
    }
    const QRect place = visual(QRect(left, (height() - kTriangleHeight) / 2, kTriangle, kTriangleHeight));
    lumqt::drawDropTriangle(*painter, place.topLeft(), kTriangle, kTriangleHeight,
                            isEnabled() ? lumqt::themeColor(lumqt::Purpose::ButtonArrow)
                                        : paintedTextColor(index)); // of which it says no more then
}
