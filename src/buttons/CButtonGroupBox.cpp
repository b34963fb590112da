#include "CButtonGroupBox.h"

#include "buttons/ButtonIds.h"
#include "buttons/ButtonTones.h"
#include "buttons/FocusGroup.h"
#include "buttons/GroupButton.h"
#include "foundation/Accessible.h"
#include "foundation/ListText.h"
#include "layout/BoxPainting.h"

#include <QLayout>
#include <QPainter>
#include <QPaintEvent>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int kLineWidth = 1; // of the frame, and of the lines between the buttons
constexpr int kIconSpacing = 8;
constexpr int kNone = -1; // id

// Those that the application has left.
template <class Act> void forEach(const QVector<QPointer<CBPPushBtn>> &buttons, const Act &act)
{
    for (CBPPushBtn *button : buttons) {
        if (button)
            act(*button);
    }
}

} // namespace

CButtonGroupBox::CButtonGroupBox(bool exclusive, QWidget *parent)
    : CBPBox(false, false, 0),
      m_exclusive(exclusive),
      m_ids(std::make_unique<lumqt::ButtonIds>(m_buttons)),
      m_focusGroup(new lumqt::FocusGroup(this))
{
    lumqt::installAccessible(staticMetaObject.className(), lumqt::makeGrouping);
    setParent(parent);
    SetDrawFrame(true);
    setTones(int(lumqt::Purpose::GroupFrame), int(lumqt::Purpose::GroupGround));
    SetBorderWidth(kLineWidth, kLineWidth, kLineWidth, kLineWidth);
    SetSpacing(kLineWidth);
    // Room to spare lies behind the buttons, not between them, where it would answer nobody.
    layout()->setAlignment(Qt::AlignLeft);
    fitHeight();
}

void CButtonGroupBox::resetSpacing()
{
    SetSpacing(kLineWidth);
}

CButtonGroupBox::CButtonGroupBox(QWidget *parent) : CButtonGroupBox(true, parent) {}

CButtonGroupBox::~CButtonGroupBox() = default;

void CButtonGroupBox::setTones(int frame, int ground)
{
    setFramePurpose(frame);
    m_bgPurpose = ground;
}

CBPPushBtn *CButtonGroupBox::AddButton(int id, QString text, QString iconPath)
{
    CBPPushBtn *button = CreateButton(id, text, iconPath);
    m_buttons.append(button);
    m_ids->added(button);
    PackStart(button);
    m_focusGroup->add(button);
    if (!m_wantsId || id != m_wantedId)
        return button;
    const QPointer<CBPPushBtn> made(button); // who hears of it may delete anything
    setCheckedId(id);
    return made;
}

CBPPushBtn *CButtonGroupBox::CreateButton(int id, QString text, QString iconPath)
{
    auto *button = new lumqt::GroupButton(text, id, m_exclusive);
    button->setFrmTrancent(true);
    if (!iconPath.isEmpty())
        button->setIconFile(iconPath);
    lumqt::ButtonTones::setText(*button, lumqt::Purpose::GroupText);
    lumqt::ButtonTones::setGround(*button, lumqt::Purpose(m_bgPurpose));
    if (m_ownTextColors)
        button->setTextColor(m_textColors);
    if (m_ownBgColors)
        button->setBgColor(m_bgColors);
    button->setSpacing(kIconSpacing);
    button->setObjectName(QStringLiteral("id_bgb_") + text);
    connect(button, &CBPPushBtn::sigBtnClicked, this, &CButtonGroupBox::slotBtnClicked);
    connect(button, &lumqt::GroupButton::chosen, m_focusGroup,
            [this, button] { m_focusGroup->choose(button); });
    connect(button, &CBPPushBtn::selectionChanged, this, &CButtonGroupBox::tellCheckedId);
    return button;
}

CBPPushBtn *CButtonGroupBox::GetButton(int id)
{
    return m_ids->button(id);
}

QStringList CButtonGroupBox::items() const
{
    QStringList texts;
    for (const CBPPushBtn *button : m_buttons) {
        if (button)
            texts.append(button->text());
    }
    return texts;
}

void CButtonGroupBox::setItems(const QStringList &texts)
{
    const QStringList wanted = lumqt::listOf(texts);
    const QPointer<CButtonGroupBox> alive(this);
    m_buttons.removeAll(QPointer<CBPPushBtn>());
    const QVector<QPointer<CBPPushBtn>> former = m_buttons;
    const int chosen = checkedId();
    for (int i = 0; alive && i < wanted.size(); ++i) {
        if (i < former.size()) {
            if (former[i])
                former[i]->setText(wanted[i]); // who hears of it may delete anything
            continue;
        }
        AddButton(m_ids->freeId(), wanted[i], QString());
    }
    for (int i = wanted.size(); alive && i < former.size(); ++i) {
        if (former[i] && former[i]->hasFocus() && i > 0 && former[wanted.size() - 1])
            former[wanted.size() - 1]->setFocus(); // it stays in the group
        if (alive && former[i])
            removeButton(former[i]);
    }
    if (!alive)
        return;
    if (former.isEmpty())
        fitHeight();
    update();                                      // the lines
    if (chosen != kNone && checkedId() == kNone) { // it comes back with its button, as when a form is undone
        m_wantedId = chosen;
        m_wantsId = true;
    }
    tellCheckedId();
}

// Takes it out and deletes it later: it may be the one that was clicked.
void CButtonGroupBox::removeButton(CBPPushBtn *button)
{
    m_buttons.removeOne(button);
    m_ids->removed(button);
    const int place = layout()->indexOf(button) + 1;
    QLayoutItem *behind = layout()->itemAt(place);
    if (behind && behind->spacerItem())
        delete layout()->takeAt(place);
    button->disconnect(this);
    RemoveChild(button, true);
    button->hide(); // last: the focus moves
}

// Once more for a row that was empty when it did so by itself.
void CButtonGroupBox::fitHeight()
{
    QTimer::singleShot(0, this, &CButtonGroupBox::slotResizeWidget);
}

void CButtonGroupBox::setExclusive(bool exclusive)
{
    m_exclusive = exclusive;
    for (CBPPushBtn *button : qAsConst(m_buttons)) {
        if (auto *member = qobject_cast<lumqt::GroupButton *>(button))
            member->setExclusive(exclusive);
    }
    tellCheckedId();
}

int CButtonGroupBox::checkedId() const
{
    if (!m_exclusive)
        return kNone;
    for (const CBPPushBtn *button : m_buttons) {
        if (button && button->isSelected())
            return button->bindId();
    }
    return kNone;
}

void CButtonGroupBox::setCheckedId(int id)
{
    if (!m_exclusive)
        return;
    const QVector<QPointer<CBPPushBtn>> buttons = m_buttons;
    const CBPPushBtn *chosen = GetButton(id);
    m_wantedId = id;
    m_wantsId = !chosen && id != kNone;
    select(chosen);
    for (const QPointer<CBPPushBtn> &button : buttons) {
        if (button)
            button->tellSelected(); // the group may be gone after
    }
}

// None is told yet.
void CButtonGroupBox::select(const CBPPushBtn *chosen)
{
    forEach(m_buttons, [chosen](CBPPushBtn &button) { button.changeSelected(&button == chosen); });
}

void CButtonGroupBox::tellCheckedId()
{
    const int id = checkedId();
    m_wantsId = m_wantsId && id == kNone;
    if (m_toldId == id)
        return;
    m_toldId = id;
    emit checkedIdChanged(id); // the group may be gone after
}

// While a button is destroyed, pointers to it are not cleared yet.
void CButtonGroupBox::forget(const CBPPushBtn *button)
{
    const int place = int(std::find(m_buttons.cbegin(), m_buttons.cend(), button) - m_buttons.cbegin());
    if (place == m_buttons.size())
        return;
    m_ids->removed(button);
    m_buttons[place].clear();
    tellCheckedId();
}

void CButtonGroupBox::SetTextClr(QVector<QColor> colors)
{
    m_textColors = colors;
    m_ownTextColors = true;
}

void CButtonGroupBox::setTextColors(const QStringList &names)
{
    SetTextClr(lumqt::colorsOf(names));
    forEach(m_buttons, [&names](CBPPushBtn &button) { button.setTextColors(names); });
}

QStringList CButtonGroupBox::textColors() const
{
    return lumqt::colorNames(m_ownTextColors ? m_textColors
                                             : lumqt::builtInColors(lumqt::Purpose::GroupText));
}

void CButtonGroupBox::resetTextColors()
{
    m_textColors.clear();
    m_ownTextColors = false;
    forEach(m_buttons, [](CBPPushBtn &button) { button.resetTextColors(); });
}

void CButtonGroupBox::SetBgClr(QVector<QColor> colors)
{
    m_bgColors = colors;
    m_ownBgColors = true;
}

void CButtonGroupBox::setBackgroundColors(const QStringList &names)
{
    SetBgClr(lumqt::colorsOf(names));
    forEach(m_buttons, [&names](CBPPushBtn &button) { button.setBackgroundColors(names); });
}

QStringList CButtonGroupBox::backgroundColors() const
{
    return lumqt::colorNames(m_ownBgColors ? m_bgColors : lumqt::builtInColors(lumqt::Purpose(m_bgPurpose)));
}

void CButtonGroupBox::resetBackgroundColors()
{
    m_bgColors.clear();
    m_ownBgColors = false;
    forEach(m_buttons, [](CBPPushBtn &button) { button.resetBackgroundColors(); });
}

// What is selected is told when the click has been: a listener finds all of the buttons as they are to be.
void CButtonGroupBox::slotBtnClicked(int id)
{
    const QVector<QPointer<CBPPushBtn>> buttons = m_exclusive ? m_buttons : QVector<QPointer<CBPPushBtn>>();
    if (m_exclusive)
        select(qobject_cast<CBPPushBtn *>(sender()));
    emit sigBtnClicked(id); // the group may be gone after
    for (const QPointer<CBPPushBtn> &button : buttons) {
        if (button)
            button->tellSelected();
    }
}

void CButtonGroupBox::slotResizeWidget()
{
    for (const CBPPushBtn *button : qAsConst(m_buttons)) {
        if (button) { // the first that the application has left
            setFixedHeight(button->height() + 2 * kLineWidth);
            return;
        }
    }
}

void CButtonGroupBox::paintEvent(QPaintEvent *event)
{
    CBPBox::paintEvent(event);
    QPainter painter(this);
    drawSeparators(painter, event->rect());
}

// Those that show in `area`.
void CButtonGroupBox::drawSeparators(QPainter &painter, const QRect &area) const
{
    const CBPPushBtn *before = nullptr;
    for (const CBPPushBtn *button : qAsConst(m_buttons)) {
        if (!button || button->isHidden())
            continue;
        if (before) {
            const QRect place = before->geometry();
            const int x = isRightToLeft() ? place.left() - kLineWidth : place.right() + 1;
            const QRectF line(x, kLineWidth, kLineWidth, height() - kLineWidth);
            if (x >= area.left() - kLineWidth && x <= area.right() + kLineWidth)
                lumqt::fillLine(painter, line, frameColor());
        }
        before = button;
    }
}

// Where a line of one pixel is two device pixels thick, the gap between two buttons may be one: the buttons
// paint what they cover of the lines. Where an application leaves the lines no room, they cover them. The
// painter is in the group's coordinates.
void CButtonGroupBox::drawOverButton(QPainter &painter, const QRect &button) const
{
    const QMargins room = contentsMargins();
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, room.left() > 0);
    edges.setFlag(Qt::TopEdge, room.top() > 0);
    edges.setFlag(Qt::RightEdge, room.right() > 0);
    edges.setFlag(Qt::BottomEdge, room.bottom() > 0);
    if (m_bDrawFrame)
        lumqt::fillEdges(painter, QRectF(rect()), edges, frameColor());
    if (layout()->spacing() > 0)
        drawSeparators(painter, button);
}
