#include "CBPImageCheckBox.h"

#include "foundation/Accessible.h"
#include "foundation/FocusMark.h"
#include "foundation/FocusRing.h"
#include "foundation/ImageLoader.h"
#include "foundation/ListText.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOption>

namespace {

// Metrics, in logical pixels.
constexpr int kGap = 8; // between mark and text
constexpr int kStates = 4;

// What screen readers see: Qt's own interface has no name for a mark without a text.
class AccessibleImageCheckBox : public lumqt::AccessibleButton
{
public:
    explicit AccessibleImageCheckBox(CBPImageCheckBox *box)
        : AccessibleButton(box, [box] { return box->text().replace(QRegularExpression("&(.)"), "\\1"); })
    {
    }

    static QAccessibleInterface *make(QWidget *widget)
    {
        auto *box = qobject_cast<CBPImageCheckBox *>(widget);
        return box ? new AccessibleImageCheckBox(box) : nullptr;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        const auto *box = qobject_cast<const QCheckBox *>(object());
        state.checkStateMixed = box && box->checkState() == Qt::PartiallyChecked;
        return state;
    }
};

} // namespace

CBPImageCheckBox::CBPImageCheckBox(const QVector<QString> &unchecked, const QVector<QString> &checked,
                                   const QString &text, QWidget *parent)
    : CBPCheckBox(QString(), parent), m_mark(std::make_unique<lumqt::PaintedImage>())
{
    lumqt::installAccessible("CBPImageCheckBox", &AccessibleImageCheckBox::make);
    setText(text); // not by the base, where screen readers would take the box for one of that class
    setAttribute(Qt::WA_Hover);
    SetImages(unchecked, checked);
}

CBPImageCheckBox::CBPImageCheckBox(QWidget *parent)
    : CBPImageCheckBox(QVector<QString>(), QVector<QString>(), QString(), parent)
{
}

CBPImageCheckBox::~CBPImageCheckBox() = default;

void CBPImageCheckBox::SetImages(const QVector<QString> &unchecked, const QVector<QString> &checked)
{
    const bool complete = unchecked.size() == kStates && checked.size() == kStates;
    m_images = complete ? unchecked + checked : QVector<QString>();
    m_unchecked = unchecked;
    m_checked = checked;
    m_mark->forget();
    updateRing();
    updateGeometry();
    update();
}

void CBPImageCheckBox::setUncheckedImages(const QStringList &images)
{
    SetImages(lumqt::filesOf(images), m_checked);
}

QStringList CBPImageCheckBox::uncheckedImages() const
{
    return lumqt::fileNames(m_unchecked);
}

void CBPImageCheckBox::setCheckedImages(const QStringList &images)
{
    SetImages(m_unchecked, lumqt::filesOf(images));
}

QStringList CBPImageCheckBox::checkedImages() const
{
    return lumqt::fileNames(m_checked);
}

bool CBPImageCheckBox::hasImages() const
{
    return !m_images.isEmpty();
}

QSize CBPImageCheckBox::markSize() const
{
    return lumqt::pictureSize(m_images.first(), devicePixelRatioF());
}

QSize CBPImageCheckBox::sizeHint() const
{
    if (!hasImages())
        return CBPCheckBox::sizeHint();
    QSize size = markSize();
    if (!text().isEmpty()) {
        const QSize textSize = fontMetrics().size(Qt::TextShowMnemonic, text());
        size = QSize(size.width() + kGap + qMin(textSize.width(), QWIDGETSIZE_MAX / 2),
                     qMax(size.height(), textSize.height()));
    }
    return size;
}

QSize CBPImageCheckBox::minimumSizeHint() const
{
    return hasImages() ? sizeHint() : CBPCheckBox::minimumSizeHint();
}

bool CBPImageCheckBox::hitButton(const QPoint &position) const
{
    return hasImages() ? rect().contains(position) : CBPCheckBox::hitButton(position);
}

// Of the images' own look; the style marks the other.
void CBPImageCheckBox::updateRing()
{
    lumqt::setRingAround(this, hasImages() && m_focusMark == lumqt::FocusMark::Shown);
}

void CBPImageCheckBox::focusInEvent(QFocusEvent *event)
{
    lumqt::focusGained(m_focusMark, event->reason());
    CBPCheckBox::focusInEvent(event);
    updateRing();
}

void CBPImageCheckBox::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusLost(m_focusMark, event->reason());
    CBPCheckBox::focusOutEvent(event);
    updateRing();
}

void CBPImageCheckBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) {
        lumqt::keyUsed(m_focusMark);
        updateRing();
    }
    CBPCheckBox::keyPressEvent(event);
}

void CBPImageCheckBox::paintEvent(QPaintEvent *event)
{
    if (!hasImages()) {
        CBPCheckBox::paintEvent(event);
        return;
    }
    const int state = !isEnabled() ? 3 : isDown() ? 2 : underMouse() ? 1 : 0;
    const int index = state + (checkState() == Qt::Unchecked ? 0 : kStates);
    const QSize mark = lumqt::paintedSize(m_images.first(), devicePixelRatioF());
    QPainter painter(this);
    const QPixmap &picture = m_mark->pixmap(m_images, index, devicePixelRatioF());
    const QRect place =
        QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, mark, rect());
    painter.drawPixmap(place, picture);
    if (!text().isEmpty()) {
        const QRect room = rect().adjusted(mark.width() + kGap, 0, 0, 0);
        QStyleOption option;
        option.initFrom(this);
        const int mnemonic = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this)
                                 ? Qt::TextShowMnemonic
                                 : Qt::TextHideMnemonic;
        style()->drawItemText(
            &painter, QStyle::visualRect(layoutDirection(), rect(), room),
            int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)) | mnemonic,
            palette(), isEnabled(), text(), foregroundRole());
    }
}
