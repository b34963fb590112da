#include "CBPLabel.h"

#include "display/LabelTones.h"
#include "foundation/FontLookup.h"
#include "foundation/Log.h"

namespace {

constexpr int kPixelSize = 12;

// CBPLabel(text, 0) is a size to the compiler, and was meant to be a parent.
int saneSize(int pixelSize)
{
    if (pixelSize < 0)
        qCWarning(lcLumQt, "CBPLabel: %d is no font size", pixelSize);
    return pixelSize < 1 ? kPixelSize : pixelSize;
}

} // namespace

CBPLabel::CBPLabel(QWidget *parent) : QLabel(parent)
{
    lumqt::wearTheme(this, lumqt::labelTones());
}

CBPLabel::CBPLabel(QString text, QWidget *parent) : CBPLabel(text, kPixelSize, parent) {}

CBPLabel::CBPLabel(QString text, int pixelSize, QWidget *parent) : QLabel(text, parent)
{
    setFont(lumqt::uiFont(lumqt::NormalWeight, saneSize(pixelSize)));
    lumqt::wearTheme(this, lumqt::labelTones());
}

CBPLabel::CBPLabel(QString text, QColor color, int pixelSize, QWidget *parent)
    : CBPLabel(text, pixelSize, parent)
{
    SetTextColor(color);
}

CBPLabel::~CBPLabel() = default;

void CBPLabel::SetTextColor(QColor color)
{
    if (!color.isValid())
        return;
    QPalette own = palette();
    own.setColor(QPalette::WindowText, color);
    setPalette(own);
}
