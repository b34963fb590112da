#include "CBPComboxItem.h"

#include "CBPBox.h"
#include "CBPImage.h"
#include "CBPImageButton.h"
#include "CBPPathDropdWnd.h"
#include "ENState.h"
#include "FormatByteSize.h"
#include "foundation/Accessible.h"
#include "foundation/ElidedText.h"
#include "foundation/FocusMark.h"
#include "foundation/FontLookup.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "foundation/PressKeys.h"
#include "foundation/QtCompat.h"
#include "Util.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <utility>

using lumqt::Purpose;

namespace {

// Metrics, in logical pixels.
constexpr int kHeight = 30;
constexpr int kStartGap = 2;
constexpr int kEndGap = 6;
constexpr int kButtonGap = 6;     // between space and delete button
constexpr int kPathGap = 6;       // between path and space, where there is little room
constexpr int kPathReserve = 200; // of a row's width, for all that is not path
constexpr int kLeastPath = 60;    // where there is room for it: then the space is cut
constexpr int kDeleteId = 255;
constexpr int kDecimals = 2;
constexpr QChar kLeftToRight(0x202a);
constexpr QChar kEndOfIt(0x202c);

// The family alone: rows have the size of the application's own font.
QFont rowFont()
{
    return QFont(GetFontFamily(lumqt::NormalWeight));
}

// Shows its text, or as much of it as goes in; the tool tip has the whole of it where that is not all.
class RowLabel : public QLabel
{
public:
    // A path reads from left to right whatever its names are in; the words of the space have their own way.
    RowLabel(const QString &whole, bool isPath) : m_isPath(isPath), m_whole(whole)
    {
        setTextFormat(Qt::PlainText); // a folder may be named <b>
        setText(whole);
        setFont(rowFont()); // of both, else they stand on two lines
        setSizePolicy(isPath ? QSizePolicy::Preferred : QSizePolicy::Fixed, QSizePolicy::Fixed);
        QPalette own = palette();
        own.setBrush(QPalette::WindowText, worn());
        setPalette(own);
    }

    void setHovered(bool hovered) { m_hovered = hovered; }

    void shorten(const QString &text)
    {
        setText(text);
        tellWhole();
    }

    // What has less room than this shows nothing that tells it from others.
    int leastWidth() const
    {
        const int whole = fontMetrics().horizontalAdvance(m_whole);
        const int least =
            m_isPath ? kLeastPath : fontMetrics().horizontalAdvance(QChar(0x2026)) + 1; // rounded
        const int around = width() - contentsRect().width();
        return m_whole.isEmpty() ? 0 : around + qMin(whole + 1, least);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const Qt::Alignment side =
            QStyle::visualAlignment(layoutDirection(), alignment()) | Qt::AlignAbsolute;
        const bool toTheRight = m_isPath || !m_whole.isRightToLeft();
        const int flags = int(side) | (toTheRight ? Qt::TextForceLeftToRight : Qt::TextForceRightToLeft);
        painter.setPen(textColor());
        style()->drawItemText(&painter, contentsRect(), flags, palette(), isEnabled(), shown());
    }

    void resizeEvent(QResizeEvent *event) override
    {
        QLabel::resizeEvent(event);
        m_laidOut = true;
        tellWhole();
    }

    void changeEvent(QEvent *event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange)
            tellWhole();
    }

private:
    // That of the theme, until the palette has another. There may be hundreds of rows: none listens.
    QColor textColor() const
    {
        const QBrush &own = palette().brush(foregroundRole());
        return own != worn() ? own.color()
                             : lumqt::themeColor(m_hovered ? Purpose::PathTextHovered : Purpose::PathText);
    }

    static const QBrush &worn()
    {
        static const QBrush brush = lumqt::ownBrush(lumqt::builtInColor(Purpose::PathText));
        return brush;
    }

    QString shown() const
    {
        // What was shortened to nothing is an ellipsis all the same.
        const QString source = text().isEmpty() ? m_whole : text();
        return fontMetrics().elidedText(source, Qt::ElideRight, contentsRect().width());
    }

    void tellWhole()
    {
        const bool whole = text() == m_whole && (!m_laidOut || shown() == m_whole);
        const bool embedded = m_isPath && isRightToLeft(); // in the tip, which runs as the row does
        const QString tip = whole      ? QString()
                            : embedded ? lumqt::toolTipOf(kLeftToRight + m_whole + kEndOfIt)
                                       : lumqt::toolTipOf(m_whole);
        if (tip != toolTip())
            setToolTip(tip);
    }

    const bool m_isPath;
    const QString m_whole;
    bool m_laidOut = false; // before, its size means nothing
    bool m_hovered = false; // the row
};

// The labels of a wide row have larger minima than they need, by which the row cuts one after the other. They
// are none of the row's own, which may become as narrow as it can.
class RowLayout : public QHBoxLayout
{
public:
    explicit RowLayout(const QVector<RowLabel *> &labels) : m_labels(labels) {}

    QSize minimumSize() const override
    {
        QSize size = QHBoxLayout::minimumSize();
        for (const RowLabel *label : m_labels)
            size.rwidth() -= qMax(0, label->minimumWidth() - label->leastWidth());
        return size;
    }

private:
    const QVector<RowLabel *> m_labels;
};

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
    : QWidget(parent),
      m_iState(ENStateNormal),
      m_pItem(std::make_shared<ComboxItem>(item)),
      m_bToldSelected(item.selected)
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
    m_pPathLabel = new RowLabel(m_pItem->path, true);
    const QString space = tr("%1 Free of %2");
    // In words that run the other way its unit would go before a number.
    const auto size = [&space](qint64 bytes) {
        const QString text = FormatByteSize(bytes, false, kDecimals);
        return space.isRightToLeft() ? kLeftToRight + text + kEndOfIt : text;
    };
    const bool known = m_pItem->totalBytes != 0;
    m_pSpaceLabel = new RowLabel(
        known ? space.arg(size(m_pItem->freeBytes), size(m_pItem->totalBytes)) : QString(), false);
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

    for (QLabel *label : {m_pPathLabel, m_pSpaceLabel})
        label->setMinimumWidth(static_cast<RowLabel *>(label)->leastWidth());
    // Filled before it is the row's: a layout that has a widget posts an event for each thing it gets.
    auto *layout =
        new RowLayout({static_cast<RowLabel *>(m_pPathLabel), static_cast<RowLabel *>(m_pSpaceLabel)});
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addSpacing(kStartGap); // margins would not change sides with the rest
    layout->addWidget(new CBPImage(m_pItem->icon));
    layout->addWidget(m_pPathLabel);
    layout->addSpacerItem(new QSpacerItem(kPathGap, 0, QSizePolicy::MinimumExpanding));
    layout->addWidget(m_pSpaceLabel);
    layout->addSpacing(kButtonGap);
    layout->addWidget(place);
    layout->addSpacing(kEndGap);
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
    const QPointer<CBPPathDropdWnd> list = m_pList;
    tellSelected(); // the row may be gone after
    if (list)
        list->tellCurrent();
}

QString CBPComboxItem::path() const
{
    return m_pItem->path;
}

bool CBPComboxItem::isSelected() const
{
    return m_pItem->selected;
}

// All but the signal; whether it made a difference.
bool CBPComboxItem::markSelected(bool selected)
{
    if (m_pItem->selected == selected)
        return false;
    m_pItem->selected = selected;
    lumqt::tellSelected(this, selected);
    return true;
}

void CBPComboxItem::tellSelected()
{
    const bool selected = m_pItem->selected;
    if (std::exchange(m_bToldSelected, selected) != selected)
        emit selectionChanged(selected); // the row may be gone after
}

void CBPComboxItem::SetPathMaxWidth(int width)
{
    const int room = qMax(0, lumqt::boundedPixels(width) - kPathReserve);
    const QString shown = QFontMetrics(rowFont()).elidedText(m_pItem->path, Qt::ElideRight, room);
    static_cast<RowLabel *>(m_pPathLabel)->shorten(shown);
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
    for (QLabel *label : {m_pPathLabel, m_pSpaceLabel})
        static_cast<RowLabel *>(label)->setHovered(hovered);
    m_iState = hovered ? ENStateHover : ENStateNormal;
    update();
}

// Where there is too little room the path is cut first, which is the longer one, and then what stands behind
// it in every row. The layout would cut both alike.
void CBPComboxItem::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_pPathLabel->setMinimumWidth(static_cast<RowLabel *>(m_pPathLabel)->leastWidth());
    const auto *space = static_cast<RowLabel *>(m_pSpaceLabel);
    const int others =
        layout()->sizeHint().width() - m_pPathLabel->sizeHint().width() - space->sizeHint().width();
    const int room = width() - others - m_pPathLabel->minimumWidth();
    m_pSpaceLabel->setMinimumWidth(qBound(space->leastWidth(), room, space->sizeHint().width()));
    layout()->activate();
}

void CBPComboxItem::enterEvent(lumqt::EnterEvent *event)
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
    if (event->button() != Qt::LeftButton || !onScreen.contains(lumqt::globalPosition(*event))) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    event->accept(); // no parent gets it: there may be none after
    pick();
}

void CBPComboxItem::keyPressEvent(QKeyEvent *event)
{
    lumqt::keyUsed(m_focusMark);
    update();
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
    lumqt::focusGained(m_focusMark, event->reason());
    if (m_pList)
        m_pList->rowFocused(this);
    QWidget::focusInEvent(event);
}

void CBPComboxItem::focusOutEvent(QFocusEvent *event)
{
    lumqt::focusLost(m_focusMark, event->reason());
    m_bSpaceDown = false;
    QWidget::focusOutEvent(event);
}

void CBPComboxItem::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), lumqt::themeColor(m_iState == ENStateHover ? Purpose::PathGroundHovered
                                                                        : Purpose::PathGround));
    if (m_focusMark == lumqt::FocusMark::Shown)
        lumqt::drawFocusRing(painter, rect(), 0, 0);
}
