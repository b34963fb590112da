#pragma once

#include "ComboxItem.h"
#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class CBPImageButton;
class CBPPathDropdWnd;
class QAccessibleInterface;
class QLabel;

namespace lumqt {
enum class FocusMark : unsigned char;
}

/// A row of a path list: an icon, the path, the location's space if it is known, and a delete button that
/// shows while the mouse is over the row. 30 pixels high. Where there is too little room the path ends in an
/// ellipsis, and below 60 pixels of it the space does; the tool tip of each has all of it. From right to left
/// the row is mirrored, and the path still reads from left to right.
///
/// A click on it, or Space or Enter while it has the keyboard focus, picks it; the Delete key does what the
/// delete button does. Screen readers find a list item with the whole path as its name, which they can pick
/// and delete. It may be deleted by what is connected to its signals or called by its delete button. GUI
/// thread only. \since 1.0
class LUMQT_EXPORT CBPComboxItem : public QWidget
{
    Q_OBJECT
    /// The path of the row's record. \since 1.0
    Q_PROPERTY(QString path READ path DESIGNABLE false STORED false)
    /// Whether the row is the selected one of its list. \since 1.0
    Q_PROPERTY(
        bool selected READ isSelected WRITE SetSelected NOTIFY selectionChanged DESIGNABLE false STORED false)

public:
    /// A row that shows a copy of \a item. An icon that is missing leaves its place out. \since 1.0
    explicit CBPComboxItem(ComboxItem &item, QWidget *parent = nullptr);
    ~CBPComboxItem() override;

    /// Sets what the delete button calls, with \a context and the row (a CBPComboxItem) as its arguments. The
    /// row itself does nothing else when the button is clicked. A null \a callback is not called.
    /// \since 1.0
    void SetDeleteBtnCB(void (*callback)(void *context, void *item), void *context);

    /// The row's own record. What is changed in it counts from then on; labels keep what they show.
    /// \since 1.0
    ComboxItem &GetItem();

    /// A copy of the row's record. \since 1.0
    ComboxItem GetItem() const;

    /// Sets the record's selected field. Screen readers hear of it; nothing looks different. \since 1.0
    void SetSelected(bool selected);

    /// The path of the row's record. \since 1.0
    QString path() const;

    /// The selected field of the row's record. \since 1.0
    bool isSelected() const;

    /// Shortens the path to what goes into \a width - 200 pixels, ending in an ellipsis where it is longer,
    /// or to less where the row has no room for that; the tool tip has all of it then. \a width is that of
    /// the row with its margins. \since 1.0
    void SetPathMaxWidth(int width);

Q_SIGNALS:
    /// The left mouse button was released over the row, or a key or an assistive tool picked it. \a item is
    /// the row's own record, good as long as the signal lasts even when the row is deleted. \since 1.0
    void itemClicked(ComboxItem &item);

    /// The selected field is another one: by SetSelected(), or by the list, which tells once it has marked
    /// all of its rows, those that lose it first. A change in the record itself, see GetItem(), is not told.
    /// The row may be deleted here. \since 1.0
    void selectionChanged(bool selected);

protected:
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void on_deletebtn_clicked(int id);

private:
    class Accessible;
    friend class CBPPathDropdWnd;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    void createLabels();
    void createDeleteButton();
    void buildLayout();
    void pick();
    void handOut();
    bool markSelected(bool selected);
    void tellSelected();
    void setHovered(bool hovered);

    CBPImageButton *m_pDeleteBtn = nullptr;
    QLabel *m_pSpaceLabel = nullptr;
    QLabel *m_pPathLabel = nullptr;
    void (*m_pDeleteCB)(void *, void *) = nullptr;
    void *m_pContext = nullptr;
    int m_iState;                        // an ENState: normal or hover
    std::shared_ptr<ComboxItem> m_pItem; // outlives the row while a signal hands it around
    QPointer<CBPPathDropdWnd> m_pList;   // that has to know who may change the record
    bool m_bHandedOut = false;
    bool m_bToldSelected;           // what selectionChanged() has said last
    lumqt::FocusMark m_focusMark{}; // whether the ring shows
    bool m_bSpaceDown = false;
};
