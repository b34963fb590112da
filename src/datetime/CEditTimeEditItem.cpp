#include "CEditTimeEditItem.h"

#include "CBPImageButton.h"
#include "CBPStyle.h"
#include "datetime/DimmedWhenDisabled.h"
#include "ENState.h"
#include "foundation/Tones.h"

#include <QHBoxLayout>
#include <QTimeEdit>

namespace {

constexpr int kSpacing = 5;    // pixels between field and button
constexpr int kButtonId = 255; // the button reports it to nobody else

} // namespace

CEditTimeEditItem::CEditTimeEditItem(QString iconPath, QWidget *parent)
    : QWidget(parent), m_strIconPath(iconPath)
{
    Layout();
}

CEditTimeEditItem::CEditTimeEditItem(QWidget *parent) : CEditTimeEditItem(QString(), parent) {}

CEditTimeEditItem::~CEditTimeEditItem() = default;

void CEditTimeEditItem::Layout()
{
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacing);
    setLayout(layout);
    m_pTimeEdit = new QTimeEdit;
    m_pTimeEdit->setWrapping(true);
    CBPStyle::Apply(m_pTimeEdit);
    lumqt::wearTheme(m_pTimeEdit, lumqt::fieldTones());
    // From right to left Qt turns the parts of a time around, and 06:30 into 30:06. Also a format that is set
    // later stays as it is written.
    const QString format = m_pTimeEdit->displayFormat();
    const bool turned = m_pTimeEdit->isRightToLeft();
    m_pTimeEdit->setLayoutDirection(Qt::LeftToRight);
    if (turned)
        m_pTimeEdit->setDisplayFormat(format);
    layout->addWidget(m_pTimeEdit);
    m_timeTold = m_pTimeEdit->time();
    connect(m_pTimeEdit.data(), &QDateTimeEdit::timeChanged, this, &CEditTimeEditItem::tellTime);
    m_pDelBtn = new CBPImageButton(QVector<QString>(ENStateDisable + 1, m_strIconPath), false, kButtonId);
    new lumqt::DimmedWhenDisabled(m_pDelBtn);
    lumqt::stopWherePictured(*m_pDelBtn, m_strIconPath);
    layout->addWidget(m_pDelBtn);
    connect(m_pDelBtn, SIGNAL(btn_released(int)), this, SLOT(OnClicked(int)));
}

QTime CEditTimeEditItem::GetQTime() const
{
    return m_pTimeEdit ? m_pTimeEdit->time() : QTime();
}

void CEditTimeEditItem::SetQTime(QTime &time)
{
    if (m_pTimeEdit)
        m_pTimeEdit->setTime(time);
}

void CEditTimeEditItem::SetIconVisual(bool bShow)
{
    if (m_pDelBtn)
        m_pDelBtn->setVisible(bShow);
}

// What was never shown is hidden, too, until its parent shows it.
bool CEditTimeEditItem::isIconVisible() const
{
    return m_pDelBtn && !(m_pDelBtn->isHidden() && m_pDelBtn->testAttribute(Qt::WA_WState_ExplicitShowHide));
}

QString CEditTimeEditItem::iconPath() const
{
    return m_strIconPath;
}

void CEditTimeEditItem::setIconPath(const QString &path)
{
    m_strIconPath = path;
    if (m_pDelBtn)
        lumqt::setOnlyPicture(*m_pDelBtn, path);
}

// Return in the field tells of its time, too, where nothing has changed.
void CEditTimeEditItem::tellTime()
{
    const QTime time = GetQTime();
    if (time == m_timeTold)
        return;
    m_timeTold = time;
    emit timeChanged(time);
}

void CEditTimeEditItem::OnClicked(int)
{
    emit sigHideItem(this);
}
