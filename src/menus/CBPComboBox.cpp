#include "CBPComboBox.h"

#include "CBPStyle.h"
#include "foundation/Palette.h"

#include <QListView>
#include <QWheelEvent>

using lumqt::Purpose;

namespace {

const QVector<lumqt::PaletteTone> &fieldTones()
{
    static const QVector<lumqt::PaletteTone> tones = {
        {QPalette::Window, Purpose::Field},
        {QPalette::WindowText, Purpose::Text},
        {QPalette::Base, Purpose::Field},
        {QPalette::Text, Purpose::Text},
        {QPalette::PlaceholderText, Purpose::QuietText},
        {QPalette::Button, Purpose::RaisedGround},
        {QPalette::ButtonText, Purpose::Text},
        {QPalette::Highlight, Purpose::Chosen},
        {QPalette::HighlightedText, Purpose::ChosenText},
        {QPalette::WindowText, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::Base, Purpose::FieldDisabled, QPalette::Disabled},
        {QPalette::Text, Purpose::DisabledText, QPalette::Disabled},
        {QPalette::ButtonText, Purpose::DisabledText, QPalette::Disabled},
    };
    return tones;
}

} // namespace

CBPComboBox::CBPComboBox(QWidget *parent) : QComboBox(parent)
{
    setView(new QListView(this));
    setFocusPolicy(Qt::StrongFocus); // not by the wheel, either
    CBPStyle::Apply(this);
    lumqt::wearTheme(this, fieldTones()); // also for its list, to which it hands its palette
}

CBPComboBox::~CBPComboBox() = default;

void CBPComboBox::wheelEvent(QWheelEvent *event)
{
    event->accept();
}
