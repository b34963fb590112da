#include "CBPImageTextBtn.h"

#include "ENState.h"
#include "foundation/Accessible.h"
#include "foundation/FontLookup.h"
#include "foundation/Palette.h"

#include <QFontMetrics>

namespace {

// Metrics, in logical pixels.
constexpr int kGap = 8;      // between image and a text beside it
constexpr int kGapBelow = 4; // and a text below it
constexpr int kMargin = 4;
constexpr int kBorder = 5;

} // namespace

CBPImageTextBtn::CBPImageTextBtn(const QVector<QString> &images, const QString &text, int id, QWidget *parent)
    : CBPImageButton(images, false, id, parent), m_imageSize(GetSize().expandedTo(QSize(0, 0)))
{
    lumqt::installAccessible("CBPImageTextBtn", &makeAccessible);
    m_label = text;
    m_arranges = true;
    m_mirrors = true;
    m_textPurpose = short(lumqt::Purpose::PlainText);
    arrange();
}

CBPImageTextBtn::CBPImageTextBtn(QWidget *parent) : CBPImageTextBtn(QVector<QString>(), QString(), 0, parent)
{
}

CBPImageTextBtn::~CBPImageTextBtn() = default;

QAccessibleInterface *CBPImageTextBtn::makeAccessible(QWidget *widget)
{
    auto *button = qobject_cast<CBPImageTextBtn *>(widget);
    if (!button)
        return nullptr;
    return new lumqt::AccessibleButton(
        button, [button] { return button->m_label.isEmpty() ? button->spokenName() : button->m_label; });
}

void CBPImageTextBtn::setImages(const QStringList &images)
{
    const bool wasDrawn = m_images.size() == kStates;
    CBPImageButton::setImages(images);
    if (wasDrawn || m_images.size() != kStates)
        return;
    m_imageSize = imageSize(ENStateNormal).expandedTo(QSize(0, 0));
    arrange();
}

void CBPImageTextBtn::SetTextBelow(bool below)
{
    m_below = below;
    arrange();
}

void CBPImageTextBtn::SetLabel(const QString &text)
{
    setLabel(text);
}

void CBPImageTextBtn::arrange()
{
    if (m_label.isEmpty()) {
        showImageAlone();
        return;
    }
    SetBorder(kBorder, false);
    // The base puts the text of the other arrangement at the very left edge, where the focus ring is, and
    // the image where it was.
    const QString space = m_below ? QStringLiteral(" ") : QString();
    placeText(space + m_label + space, lumqt::uiFont(), !m_below, m_below ? kGapBelow : kGap,
              m_below ? 0 : kMargin);
    const QSize room = m_below ? GetSize() - m_imageSize : QSize(0, 0);
    if (m_below)
        SetBorder(qMax(0, room.width() / 2), false);
    SetIconVoffset(-room.height() / 2);
    m_textIndent = 0;
    if (m_below) // under the middle of an image that is wider
        m_textIndent =
            qMax(0, (GetSize().width() - QFontMetrics(paintedFont()).horizontalAdvance(m_text)) / 2);
}

// Image and text lie where the text's size puts them.
void CBPImageTextBtn::fontChanged()
{
    arrange();
}

void CBPImageTextBtn::showImageAlone()
{
    SetBorder(0, false);
    SetIconVoffset(0);
    placeText(QString(), lumqt::uiFont(), true, 0, 0);
    if (m_images.size() != kStates)
        return;
    m_size = m_imageSize;
    setFixedSize(m_size);
}
