#include "CBPCheckBox.h"

#include "CBPStyle.h"
#include "foundation/Palette.h"

CBPCheckBox::CBPCheckBox(QWidget *parent) : CBPCheckBox(QString(), parent) {}

CBPCheckBox::CBPCheckBox(QString text, QWidget *parent) : QCheckBox(text, parent)
{
    CBPStyle::Apply(this);
    lumqt::wearTheme(this, {{QPalette::WindowText, lumqt::Purpose::Text},
                            {QPalette::WindowText, lumqt::Purpose::DisabledText, QPalette::Disabled},
                            {QPalette::Base, lumqt::Purpose::Field}, // of the box
                            {QPalette::Base, lumqt::Purpose::FieldDisabled, QPalette::Disabled}});
}

CBPCheckBox::~CBPCheckBox() = default;

void CBPCheckBox::paintEvent(QPaintEvent *event)
{
    QCheckBox::paintEvent(event);
}
