#include "CBPComboBox.h"

#include "CBPStyle.h"
#include "foundation/Tones.h"

#include <QListView>
#include <QWheelEvent>

CBPComboBox::CBPComboBox(QWidget *parent) : QComboBox(parent)
{
    setView(new QListView(this));
    setFocusPolicy(Qt::StrongFocus); // not by the wheel, either
    CBPStyle::Apply(this);
    // Also for its list, to which it hands its palette.
    static const QVector<lumqt::PaletteTone> tones =
        lumqt::fieldTones() +
        QVector<lumqt::PaletteTone>{{QPalette::Window, lumqt::Purpose::Field},
                                    {QPalette::WindowText, lumqt::Purpose::Text},
                                    {QPalette::WindowText, lumqt::Purpose::DisabledText, QPalette::Disabled},
                                    {QPalette::Button, lumqt::Purpose::RaisedGround},
                                    {QPalette::ButtonText, lumqt::Purpose::Text},
                                    {QPalette::ButtonText, lumqt::Purpose::DisabledText, QPalette::Disabled}};
    lumqt::wearTheme(this, tones);
}

CBPComboBox::~CBPComboBox() = default;

void CBPComboBox::wheelEvent(QWheelEvent *event)
{
    event->accept();
}
