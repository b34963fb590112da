#include "CBPCheckBox.h"

#include "CBPStyle.h"
#include "foundation/Palette.h"

CBPCheckBox::CBPCheckBox(QWidget *parent) : CBPCheckBox(QString(), parent) {}

CBPCheckBox::CBPCheckBox(QString text, QWidget *parent) : QCheckBox(text, parent)
{
    CBPStyle::Apply(this);
    static const QVector<lumqt::PaletteTone> tones = {
        {QPalette::WindowText, lumqt::Purpose::Text},
        {QPalette::WindowText, lumqt::Purpose::DisabledText, QPalette::Disabled},
    };
    lumqt::wearTheme(this, tones);
}

CBPCheckBox::~CBPCheckBox() = default;

void CBPCheckBox::paintEvent(QPaintEvent *event)
{
    QCheckBox::paintEvent(event);
}
