#include "CBPComboxItem.h"

#include "CBPBox.h"
#include "CBPImage.h"
#include "CBPImageButton.h"
#include "CBPPathDropdWnd.h"
#include "ENState.h"
#include "FormatByteSize.h"
#include "foundation/Accessible.h"
#include "foundation/ElidedText.h"
#include "foundation/FontLookup.h"
#include "foundation/Painting.h"
#include "foundation/PressKeys.h"
#include "Util.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace {

// Look and metrics, in logical pixels.
const QColor kText(0, 0, 0);
const QColor kGround(255, 255, 255);
const QColor kHoverGround(0xed, 0xf3, 0xfe);
constexpr int kHeight = 30;
const QMargins kMargins(2, 0, 6, 0);
constexpr int kButtonGap = 6;     // between space and delete button
constexpr int kPathGap = 6;       // between path and space, where there is little room
constexpr int kPathReserve = 200; // of a row's width, for all that is not path
constexpr int kDeleteId = 255;
constexpr int kDecimals = 2;

void blacken(QLabel *label)
{
    label->setTextFormat(Qt::PlainText); // a folder may be named <b>
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, kText);
    label->setPalette(palette);
}

// Shows its text, or as much of it as goes in; the tool tip has the whole path where that is not all of it.
class PathLabel : public QLabel
{
public:
    explicit PathLabel(const QString &path) : m_path(path) { setText(path); }

    void shorten(const QString &text)
    {
        setText(text);
        tellWhole();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
        style()->drawItemText(&painter, contentsRect(), int(side), palette(), isEnabled(), shown(),
                              foregroundRole());
    }

    void resizeEvent(QResizeEvent *event) override
    {
        QLabel::resizeEvent(event);
        m_laidOut = true;
        tellWhole();
    }

private:
    QString shown() const
    {
        // What was shortened to nothing is an ellipsis all the same.
        const QString source = text().isEmpty() ? m_path : text();
        return fontMetrics().elidedText(source, Qt::ElideRight, contentsRect().width());
    }

    void tellWhole()
    {
        const bool whole = text() == m_path && (!m_laidOut || shown() == m_path);
        const QString tip = whole ? QString() : lumqt::toolTipOf(m_path);
        if (tip != toolTip())
            setToolTip(tip);
    }

    const QString m_path;
    bool m_laidOut = false; // before, its size means nothing
};

// The family alone: rows have the size of the application's own font.
QFont pathFont()
{
    return QFont(GetFontFamily(lumqt::NormalWeight));
}

} // namespace

// ------------------------------------------------------------------------------------------------------------
// screen readers

class CBPComboxItem::Accessible : public lumqt::AccessiblePressable
{
public:
    explicit Accessible(CBPComboxItem *row) : AccessiblePressable(row, QAccessible::ListItem) {}

    QString text(QAccessible::Text kind) const override
    {
        if (!row())
            return QString();
        if (kind == QAccessible::Name && row()->accessibleName().isEmpty())
            return row()->m_pItem->path;
        if (kind == QAccessible::Description && row()->accessibleDescription().isEmpty())
            return row()->m_pSpaceLabel->text();
        return AccessiblePressable::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessiblePressable::state();
        state.selectable = true;
        state.selected = row() && row()->m_pItem->selected;
        return state;
    }

    // The button is there only while the mouse is over the row.
    QStringList actionNames() const override
    {
        QStringList names = AccessiblePressable::actionNames();
        if (row() && row()->isEnabled())
            names << deleteAction();
        return names;
    }

    QString localizedActionName(const QString &action) const override
    {
        return action == deleteAction() ? CBPComboxItem::tr("Delete")
                                        : AccessiblePressable::localizedActionName(action);
    }

    void doAction(const QString &action) override
    {
        if (action != deleteAction())
            AccessiblePressable::doAction(action);
        else if (row() && row()->isEnabled())
            row()->on_deletebtn_clicked(kDeleteId); // the row, and this with it, may be gone after
    }

protected:
    void press() override { row()->pick(); }

private:
    static QString deleteAction() { return QStringLiteral("Delete"); }
    CBPComboxItem *row() const { return static_cast<CBPComboxItem *>(widget()); }
};

QAccessibleInterface *CBPComboxItem::makeAccessible(QWidget *widget)
{
    auto *row = qobject_cast<CBPComboxItem *>(widget);
    return row ? new Accessible(row) : nullptr;
}

// ------------------------------------------------------------------------------------------------------------
// construction

CBPComboxItem::CBPComboxItem(ComboxItem &item, QWidget *parent)
    : QWidget(parent), m_iState(ENStateNormal), m_pItem(std::make_shared<ComboxItem>(item))
{
    lumqt::installAccessible("CBPComboxItem", makeAccessible);
    setFocusPolicy(Qt::StrongFocus);
    createLabels();
    createDeleteButton();
    buildLayout();
    setFixedHeight(kHeight);
}

CBPComboxItem::~CBPComboxItem() = default;

void CBPComboxItem::createLabels()
{
    m_pPathLabel = new PathLabel(m_pItem->path);
    blacken(m_pPathLabel);
    m_pPathLabel->setFont(pathFont());
    // Where there is too little room the path is cut, down to its ellipsis, and not what stands behind it in
    // every row.
    const int ellipsis = m_pPathLabel->fontMetrics().horizontalAdvance(QChar(0x2026));
    m_pPathLabel->setMinimumWidth(ellipsis + 1); // it is rounded

    m_pSpaceLabel = new QLabel;
    blacken(m_pSpaceLabel);
    m_pSpaceLabel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (m_pItem->totalBytes != 0)
        m_pSpaceLabel->setText(tr("%1 Free of %2")
                                   .arg(FormatByteSize(m_pItem->freeBytes, false, kDecimals),
                                        FormatByteSize(m_pItem->totalBytes, false, kDecimals)));
}

void CBPComboxItem::createDeleteButton()
{
    // Never disabled by itself: the last picture is the first one again.
    static const char *const kPictures[] = {"../res/delete.png", "../res/delete_hover.png",
                                            "../res/delete_press.png", "../res/delete.png"};
    QVector<QString> images;
    for (const char *picture : kPictures)
        images << Util::getResFullPath(QLatin1String(picture));
    m_pDeleteBtn = new CBPImageButton(images, false, kDeleteId);
    m_pDeleteBtn->setAccessibleName(tr("Delete"));
    m_pDeleteBtn->setFocusPolicy(Qt::NoFocus); // it comes and goes with the mouse; keys have Delete
    m_pDeleteBtn->hide();
    connect(m_pDeleteBtn, &CBPImageButton::btn_released, this, &CBPComboxItem::on_deletebtn_clicked);
}

void CBPComboxItem::buildLayout()
{
    auto *place = new CBPBox; // keeps the button's room while it is hidden
    place->setFixedSize(m_pDeleteBtn->size());
    place->PackStart(m_pDeleteBtn);

    // Filled before it is the row's: a layout that has a widget posts an event for each thing it gets.
    auto *layout = new QHBoxLayout;
    layout->setSpacing(0);
    layout->setContentsMargins(kMargins);
    layout->addWidget(new CBPImage(m_pItem->icon));
    layout->addWidget(m_pPathLabel);
    layout->addSpacerItem(new QSpacerItem(kPathGap, 0, QSizePolicy::MinimumExpanding));
    layout->addWidget(m_pSpaceLabel);
    layout->addSpacing(kButtonGap);
    layout->addWidget(place);
    setLayout(layout);
}

// ------------------------------------------------------------------------------------------------------------
// operations

void CBPComboxItem::SetDeleteBtnCB(void (*callback)(void *context, void *item), void *context)
{
    m_pDeleteCB = callback;
    m_pContext = context;
}

ComboxItem &CBPComboxItem::GetItem()
{
    handOut();
    return *m_pItem;
}

ComboxItem CBPComboxItem::GetItem() const
{
    return *m_pItem;
}

void CBPComboxItem::SetSelected(bool selected)
{
    handOut();
    markSelected(selected);
}

void CBPComboxItem::markSelected(bool selected)
{
    if (m_pItem->selected == selected)
        return;
    m_pItem->selected = selected;
    lumqt::tellSelected(this, selected);
}

void CBPComboxItem::SetPathMaxWidth(int width)
{
    const int room = qMax(0, lumqt::boundedPixels(width) - kPathReserve);
    const QString shown = QFontMetrics(pathFont()).elidedText(m_pItem->path, Qt::ElideRight, room);
    static_cast<PathLabel *>(m_pPathLabel)->shorten(shown);
}

// The list knows rows by their paths, and has to look closer at one whose record others may change.
void CBPComboxItem::handOut()
{
    if (m_bHandedOut || !m_pList)
        return;
    m_bHandedOut = true;
    m_pList->rowHandedOut(this);
}

void CBPComboxItem::pick()
{
    handOut();
    const std::shared_ptr<ComboxItem> item = m_pItem;
    emit itemClicked(*item); // the row may be gone after
}

void CBPComboxItem::on_deletebtn_clicked(int)
{
    if (m_pDeleteCB)
        m_pDeleteCB(m_pContext, this); // the row may be gone after
}

// ------------------------------------------------------------------------------------------------------------
// events

void CBPComboxItem::setHovered(bool hovered)
{
    m_pDeleteBtn->setVisible(hovered);
    m_iState = hovered ? ENStateHover : ENStateNormal;
    update();
}

void CBPComboxItem::enterEvent(QEvent *event)
{
    setHovered(true);
    QWidget::enterEvent(event);
}

void CBPComboxItem::leaveEvent(QEvent *event)
{
    setHovered(false);
    QWidget::leaveEvent(event);
}

// The mouse that was over the row when its window closed is elsewhere when it opens again.
void CBPComboxItem::hideEvent(QHideEvent *event)
{
    setHovered(false);
    QWidget::hideEvent(event);
}

void CBPComboxItem::mouseReleaseEvent(QMouseEvent *event)
{
    const QRect onScreen(mapToGlobal(QPoint(0, 0)), size());
    if (event->button() != Qt::LeftButton || !onScreen.contains(event->globalPos())) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    event->accept(); // no parent gets it: there may be none after
    pick();
}

void CBPComboxItem::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete) {
        event->accept();
        if (!event->isAutoRepeat()) // one key, one row
            on_deletebtn_clicked(kDeleteId);
        return;
    }
    const lumqt::PressStep step = lumqt::keyPressed(event, m_bSpaceDown);
    if (step == lumqt::PressStep::NotMine)
        QWidget::keyPressEvent(event);
    else if (step == lumqt::PressStep::Click)
        pick();
}

void CBPComboxItem::keyReleaseEvent(QKeyEvent *event)
{
    const lumqt::PressStep step = lumqt::keyReleased(event, m_bSpaceDown);
    if (step == lumqt::PressStep::NotMine)
        QWidget::keyReleaseEvent(event);
    else if (step == lumqt::PressStep::Click)
        pick();
}

void CBPComboxItem::focusInEvent(QFocusEvent *event)
{
    m_bKeyboardFocus = lumqt::showsFocusFor(this, event->reason());
    if (m_pList)
        m_pList->rowFocused(this);
    QWidget::focusInEvent(event);
}

void CBPComboxItem::focusOutEvent(QFocusEvent *event)
{
    m_bKeyboardFocus = false;
    m_bSpaceDown = false;
    QWidget::focusOutEvent(event);
}

void CBPComboxItem::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_iState == ENStateHover ? kHoverGround : kGround);
    if (m_bKeyboardFocus)
        lumqt::drawFocusRing(painter, rect());
}
