#pragma once

#include "LumQtGlobal.h"

#include <QLineEdit>
#include <QPoint>
#include <QPointer>
#include <QVector>

/// One octet of an address: a small frameless edit for 0 to 255, which hands the focus on to its neighbours.
///
/// Three digits, "." and Space go on to the next edit; the arrow keys at either end, and Backspace in an
/// empty edit, go to the neighbour. A whole address that is pasted or dropped here, with white space around
/// it or not, fills four edits that are neighbours in a row. Any other text of more than three characters is
/// refused as a whole, and a shorter one pasted as into any line edit.
///
/// The focus selects the whole octet, whether a key or a click brings it; the next click sets the cursor, and
/// a drag selects from where it began. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPIPAddrEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// An empty edit without neighbours, 30 x 15 pixels large. \since 1.0
    explicit CBPIPAddrEdit(QWidget *parent = nullptr);
    ~CBPIPAddrEdit() override;

    /// Sets the edit to the right; null for none. It stays the caller's, and may be deleted. \since 1.0
    void setNextTabEdit(QLineEdit *edit);

    /// Sets the edit to the left; null for none. It stays the caller's, and may be deleted. \since 1.0
    void setPreTabEdit(QLineEdit *edit);

public Q_SLOTS:
    /// Pastes the clipboard's text: a whole address into four edits; nothing of a longer text that is none.
    /// Does nothing while read-only. Context menus call it, too. \since 1.0
    void paste();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private Q_SLOTS:
    void onTextEdited(const QString &text);

private:
    void stepToNeighbour(const QKeyEvent *event);
    void eraseInPrevious();
    bool fillAll(const QString &text);
    QVector<CBPIPAddrEdit *> wholeRow();

    QPointer<QLineEdit> m_pNextEdit;
    QPointer<QLineEdit> m_pPreEdit;
    bool m_selecting = false; // from the press that brought the focus to its release, or to a drag
    bool m_pressed = false;   // since the focus came
    QPoint m_pressedAt;
    int m_pressedCursor = 0; // the character there
};
