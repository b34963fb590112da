#pragma once

#include "CBPComboxItem.h"
#include "LumQtGlobal.h"

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWidget>

class CBPScrollWnd;
class QVBoxLayout;

namespace lumqt {
class PathRows;
}

/// A drop-down list of locations, such as the folders used last. The newest row is on top.
///
/// It is a window of its own, 100 pixels high, that becomes active when it is shown and hides as soon as
/// another window becomes active. Show it with move() and show(). By keyboard the arrow keys, Page Up, Page
/// Down, Home and End move through the rows, Enter or Space picks one, Delete deletes it and Escape hides the
/// list. To screen readers it is a list, named by the window's accessible name or else its title, of rows of
/// which one is selected.
///
/// The window, and each row, may be deleted in its signals. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPPathDropdWnd : public QWidget
{
    Q_OBJECT
    /// Paths of the rows in the order in which they were added. \since 1.0
    Q_PROPERTY(QStringList paths READ paths DESIGNABLE false STORED false)
    /// Path of the selected row; empty when there is none. \since 1.0
    Q_PROPERTY(QString currentPath READ currentPath NOTIFY currentPathChanged DESIGNABLE false STORED false)

public:
    /// An empty list. \since 1.0
    explicit CBPPathDropdWnd(QWidget *parent = nullptr);
    ~CBPPathDropdWnd() override;

    /// Adds a row with a copy of \a item on top and makes it the selected one, unless there is a row with the
    /// same path: then nothing changes. \since 1.0
    void AppendItem(ComboxItem &item);

    /// Deletes the row with the path of \a item, as its delete button does, but does not hide the window.
    /// Without such a row nothing happens. \since 1.0
    void DeleteItem(const ComboxItem &item);

    /// Sets the width of the window in logical pixels, and shortens the paths of its rows, those that follow
    /// too, to what goes in. \since 1.0
    void SetFixedWidth(int width);

    /// The rows in the order in which they were added. They belong to the window. \since 1.0
    QVector<CBPComboxItem *> pathItems();

    /// The paths of the rows in the order in which they were added. \since 1.0
    QStringList paths() const;

    /// The path of the selected row; empty when there is none. \since 1.0
    QString currentPath() const;

    /// Shows the list and makes it the active window, or hides it. \since 1.0
    void setVisible(bool visible) override;

Q_SIGNALS:
    /// A row was picked; it is the selected one now, and the window is hidden. \since 1.0
    void itemClicked(ComboxItem &item);

    /// A row was taken out of the list. It will be deleted once control is back in the event loop, and is
    /// hidden already. \since 1.0
    void sigItemDelete(CBPComboxItem *pItem);

    /// Another row is the selected one, or none is: a row was added, picked, taken out or deleted, or got
    /// CBPComboxItem::SetSelected(). It comes after the rows and the other signals have told of that, and of
    /// a row that the application deletes once control is back in the event loop; a change in a row's record
    /// itself is not told. \since 1.0
    void currentPathChanged(const QString &path);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void onItemClicked(ComboxItem &item);

private:
    friend class CBPComboxItem;

    using Rows = QVector<QPointer<CBPComboxItem>>;

    static void on_deletebtn_clicked(void *context, void *item);
    static void mark(CBPComboxItem *row, bool selected, Rows &changed);

    bool hasPath(const QString &path) const;
    CBPComboxItem *selectedRow() const;
    CBPComboxItem *currentRow() const;
    void adopt(CBPComboxItem *row);
    void release(CBPComboxItem *row);
    Rows selectOnly(CBPComboxItem *row);
    void tellSelection(const Rows &changed);
    void tellCurrent();
    void removeRow(CBPComboxItem *row);
    void forget(CBPComboxItem *row, const QString &path);
    void rowHandedOut(CBPComboxItem *row);
    void rowFocused(CBPComboxItem *row);
    void focusRow(int index);
    bool moveFocus(int key);
    int rowsOnPage() const;

    QVBoxLayout *m_pListLayout;
    QVector<CBPComboxItem *> m_vecItems;
    CBPScrollWnd *m_pScroll;
    lumqt::PathRows *m_pRows;
    QHash<QString, CBPComboxItem *> m_hashRows; // of all whose record nobody else can change
    QVector<CBPComboxItem *> m_vecHandedOut;    // the others
    CBPComboxItem *m_pSelected = nullptr;       // of m_hashRows, or none
    QPointer<CBPComboxItem> m_pTabStop;         // the one row that the Tab key reaches
    QString m_strToldPath;                      // what currentPathChanged() has said last
    int m_iPathWidth = -1;                      // for rows that follow; -1: not set
};
