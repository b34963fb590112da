#include "CBPPathDropdWnd.h"

#include "CBPScrollWnd.h"
#include "foundation/Painting.h"
#include "foundation/Palette.h"
#include "menus/PathRows.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

// Metrics, in logical pixels.
constexpr int kHeight = 100;
const QMargins kMargins(5, 5, 5, 10);
constexpr int kRowReserve = 30; // what the window is wider than its rows

} // namespace

CBPPathDropdWnd::CBPPathDropdWnd(QWidget *parent)
    : QWidget(parent, Qt::FramelessWindowHint | Qt::Tool),
      m_pScroll(new CBPScrollWnd(nullptr)),
      m_pRows(new lumqt::PathRows)
{
    m_pListLayout = m_pRows->rows();
    m_pScroll->setWidgetResizable(true);
    m_pScroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pScroll->setFocusPolicy(Qt::NoFocus); // the rows have it
    m_pScroll->setWidget(m_pRows);
    m_pScroll->installEventFilter(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->addWidget(m_pScroll);
    setFixedHeight(kHeight);
    // The state alone: setWindowState() would make the native window now, where it is not to be, and ask a
    // window manager to activate what it has never shown. Of the one that it then shows it tells Qt a wrong
    // place now and then.
    overrideWindowState(Qt::WindowActive);
    installEventFilter(this);
}

CBPPathDropdWnd::~CBPPathDropdWnd()
{
    for (CBPComboxItem *row : qAsConst(m_vecItems))
        release(row);
}

// ------------------------------------------------------------------------------------------------------------
// rows

bool CBPPathDropdWnd::hasPath(const QString &path) const
{
    return m_hashRows.contains(path) ||
           std::any_of(m_vecHandedOut.begin(), m_vecHandedOut.end(),
                       [&path](const CBPComboxItem *row) { return row->m_pItem->path == path; });
}

void CBPPathDropdWnd::AppendItem(ComboxItem &item)
{
    if (hasPath(item.path))
        return;
    auto *row = new CBPComboxItem(item, nullptr);
    if (m_iPathWidth >= 0)
        row->SetPathMaxWidth(m_iPathWidth);
    adopt(row);
    m_pListLayout->insertWidget(0, row);
    m_vecItems.append(row);
    m_hashRows.insert(row->m_pItem->path, row);
    const Rows changed = selectOnly(row);
    rowFocused(row);
    tellSelection(changed);
}

void CBPPathDropdWnd::adopt(CBPComboxItem *row)
{
    row->m_pList = this;
    row->SetDeleteBtnCB(&CBPPathDropdWnd::on_deletebtn_clicked, this);
    row->setFocusPolicy(Qt::ClickFocus);
    connect(row, &CBPComboxItem::itemClicked, this, &CBPPathDropdWnd::onItemClicked);
    connect(row, &QObject::destroyed, this, [this, row, path = row->m_pItem->path] {
        forget(row, path);
        QTimer::singleShot(0, this, &CBPPathDropdWnd::tellCurrent); // now its parents cannot be deleted
    });
}

// A row that is out of the list may live on: until the event loop turns, or elsewhere.
void CBPPathDropdWnd::release(CBPComboxItem *row)
{
    disconnect(row, nullptr, this, nullptr);
    row->m_pList = nullptr;
    if (row->m_pContext == this)
        row->SetDeleteBtnCB(nullptr, nullptr);
}

// Of the rows in the hash only one can be selected, so that a list of n rows is filled in n steps.
CBPPathDropdWnd::Rows CBPPathDropdWnd::selectOnly(CBPComboxItem *row)
{
    Rows changed;
    for (CBPComboxItem *other : qAsConst(m_vecHandedOut))
        mark(other, false, changed);
    if (m_pSelected)
        mark(m_pSelected, false, changed);
    m_pSelected = row;
    mark(row, true, changed);
    return changed;
}

void CBPPathDropdWnd::mark(CBPComboxItem *row, bool selected, Rows &changed)
{
    if (!row->markSelected(selected))
        return;
    if (selected)
        changed.append(row);
    else
        changed.prepend(row);
}

// Who hears of one may delete others, and the list; or select another one: then that has been told.
void CBPPathDropdWnd::tellSelection(const Rows &changed)
{
    const QPointer<CBPPathDropdWnd> alive(this);
    for (CBPComboxItem *row : changed) {
        if (row)
            row->tellSelected();
    }
    if (alive)
        tellCurrent();
}

void CBPPathDropdWnd::tellCurrent()
{
    const QString path = currentPath();
    if (std::exchange(m_strToldPath, path) != path)
        emit currentPathChanged(path); // this may be gone after
}

void CBPPathDropdWnd::DeleteItem(const ComboxItem &item)
{
    const auto hasIt = [&item](const CBPComboxItem *row) { return row->m_pItem->path == item.path; };
    if (std::none_of(m_vecHandedOut.cbegin(), m_vecHandedOut.cend(), hasIt)) {
        removeRow(m_hashRows.value(item.path));
        return;
    }
    const auto found = std::find_if(m_vecItems.cbegin(), m_vecItems.cend(), hasIt);
    if (found != m_vecItems.cend())
        removeRow(*found);
}

void CBPPathDropdWnd::on_deletebtn_clicked(void *context, void *item)
{
    const QPointer<CBPPathDropdWnd> list(static_cast<CBPPathDropdWnd *>(context));
    if (!list || !item)
        return;
    list->removeRow(static_cast<CBPComboxItem *>(item));
    if (list)
        list->hide();
}

void CBPPathDropdWnd::removeRow(CBPComboxItem *row)
{
    const QPointer<CBPPathDropdWnd> alive(this);
    const QPointer<CBPComboxItem> rowAlive(row);
    const int index = m_vecItems.indexOf(row);
    if (index < 0)
        return;
    const bool focused = row == focusWidget();
    delete m_pListLayout->takeAt(m_pListLayout->indexOf(row));
    forget(row, row->m_pItem->path);
    release(row);
    row->deleteLater();
    // The one below takes its place, or the one above where there is none.
    if (focused)
        focusRow(qMax(0, index - 1));
    // Until the event loop turns it would still be seen.
    if (rowAlive)
        rowAlive->hide();
    if (alive && rowAlive)
        emit sigItemDelete(row); // this may be gone after
    if (alive)
        tellCurrent();
}

// The row may be half destroyed, so its path comes with it; who has been handed it out may have changed that
// since, but then the row is not in the hash.
void CBPPathDropdWnd::forget(CBPComboxItem *row, const QString &path)
{
    m_vecItems.removeOne(row);
    m_vecHandedOut.removeOne(row);
    if (m_hashRows.value(path) == row)
        m_hashRows.remove(path);
    if (m_pSelected == row)
        m_pSelected = nullptr;
}

void CBPPathDropdWnd::rowHandedOut(CBPComboxItem *row)
{
    if (m_hashRows.remove(row->m_pItem->path) == 0)
        return; // removed from the list before
    m_vecHandedOut.append(row);
    if (m_pSelected == row)
        m_pSelected = nullptr;
}

QVector<CBPComboxItem *> CBPPathDropdWnd::pathItems()
{
    return m_vecItems;
}

QStringList CBPPathDropdWnd::paths() const
{
    QStringList all;
    for (const CBPComboxItem *row : m_vecItems)
        all.append(row->m_pItem->path);
    return all;
}

QString CBPPathDropdWnd::currentPath() const
{
    const CBPComboxItem *row = selectedRow();
    return row ? row->m_pItem->path : QString();
}

// The first one where others have changed records.
CBPComboxItem *CBPPathDropdWnd::selectedRow() const
{
    if (m_vecHandedOut.isEmpty())
        return m_pSelected;
    const auto found = std::find_if(m_vecItems.begin(), m_vecItems.end(),
                                    [](const CBPComboxItem *row) { return row->m_pItem->selected; });
    return found == m_vecItems.end() ? nullptr : *found;
}

void CBPPathDropdWnd::SetFixedWidth(int width)
{
    const int bounded = qBound(0, width, QWIDGETSIZE_MAX);
    setFixedWidth(bounded);
    m_iPathWidth = qMax(0, bounded - kRowReserve);
    for (CBPComboxItem *row : qAsConst(m_vecItems))
        row->SetPathMaxWidth(m_iPathWidth);
}

void CBPPathDropdWnd::onItemClicked(ComboxItem &item)
{
    m_pSelected = nullptr;
    Rows changed;
    for (CBPComboxItem *row : qAsConst(m_vecItems)) {
        mark(row, row->m_pItem->path == item.path, changed);
        if (row->m_pItem->selected && !row->m_bHandedOut)
            m_pSelected = row;
    }
    const QPointer<CBPPathDropdWnd> alive(this);
    hide();
    if (alive)
        emit itemClicked(item); // this may be gone after
    if (alive)
        tellSelection(changed);
}

// ------------------------------------------------------------------------------------------------------------
// keyboard

// Where the Tab key and a window that opens put the focus.
void CBPPathDropdWnd::rowFocused(CBPComboxItem *row)
{
    if (m_pTabStop == row)
        return;
    if (m_pTabStop)
        m_pTabStop->setFocusPolicy(Qt::ClickFocus);
    m_pTabStop = row;
    row->setFocusPolicy(Qt::StrongFocus);
}

CBPComboxItem *CBPPathDropdWnd::currentRow() const
{
    CBPComboxItem *const selected = selectedRow();
    return selected || m_vecItems.isEmpty() ? selected : m_vecItems.last();
}

void CBPPathDropdWnd::focusRow(int index)
{
    if (index < 0 || index >= m_vecItems.size())
        return;
    const QPointer<CBPPathDropdWnd> alive(this);
    const QPointer<CBPComboxItem> row = m_vecItems.at(index);
    row->setFocus(Qt::TabFocusReason);
    if (alive && row)
        m_pScroll->ensureWidgetVisible(row, 0, 0);
}

int CBPPathDropdWnd::rowsOnPage() const
{
    const int row = m_vecItems.isEmpty() ? 1 : m_vecItems.first()->height() + m_pListLayout->spacing();
    return qMax(1, m_pScroll->viewport()->height() / row);
}

// Says whether the key is one of those that move. Going down is going back to older rows.
bool CBPPathDropdWnd::moveFocus(int key)
{
    int index = m_vecItems.indexOf(qobject_cast<CBPComboxItem *>(focusWidget()));
    if (index < 0)
        index = m_vecItems.size() - 1;
    switch (key) {
    case Qt::Key_Up:
        ++index;
        break;
    case Qt::Key_Down:
        --index;
        break;
    case Qt::Key_PageUp:
        index += rowsOnPage();
        break;
    case Qt::Key_PageDown:
        index -= rowsOnPage();
        break;
    case Qt::Key_Home:
        index = m_vecItems.size() - 1;
        break;
    case Qt::Key_End:
        index = 0;
        break;
    default:
        return false;
    }
    focusRow(qBound(0, index, m_vecItems.size() - 1));
    return true;
}

void CBPPathDropdWnd::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        hide();
    else if (!moveFocus(event->key()))
        QWidget::keyPressEvent(event);
}

// ------------------------------------------------------------------------------------------------------------
// events

bool CBPPathDropdWnd::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == this && event->type() == QEvent::WindowDeactivate) {
        hide();
        return true;
    }
    // Keys that a row has no use for: the scroll area would scroll by the arrows.
    if (watched == m_pScroll && event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent *>(event));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Keys are for the list from now on, and it hides once it is active no more. A window that is not shown yet
// cannot be activated.
void CBPPathDropdWnd::setVisible(bool visible)
{
    const QPointer<CBPPathDropdWnd> alive(this);
    const bool opens = visible && !isVisible();
    QWidget::setVisible(visible);
    if (opens && alive && isVisible())
        activateWindow();
}

void CBPPathDropdWnd::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    const QPointer<CBPComboxItem> row = currentRow();
    if (!row)
        return;
    row->setFocus(Qt::PopupFocusReason); // shows its ring, and so where the keys go
    if (row)
        m_pScroll->ensureWidgetVisible(row, 0, 0);
}

void CBPPathDropdWnd::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    lumqt::Body body;
    body.fill = lumqt::themeColor(lumqt::Purpose::PathGround);
    body.frame = lumqt::themeColor(lumqt::Purpose::PathFrame);
    lumqt::drawBody(painter, rect(), body);
}
