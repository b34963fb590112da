#pragma once

#include "LumQtGlobal.h"

#include <QLineEdit>
#include <QPoint>

class QToolButton;

/// A line edit with room for an icon in front of its text, whose text is selected by the first click into it.
///
/// The first click with the mouse while it holds a text and is not read-only selects the whole text, ready to
/// be replaced; any later one sets the cursor. A drag selects from where it began, the first one too.
///
/// It has the look of CBPStyle. A text that its validator or input mask does not take for finished has a red
/// frame once the focus has left it; an empty one has not.
///
/// It takes the place of a QLineEdit but for this: it has a style of its own; the first argument of its
/// constructor is a picture, not the text, which goes to setText(), and a pointer as the second one would
/// block keys; the first click leaves the cursor at the end of the text; with a picture the text margins are
/// its own. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPLineEdit : public QLineEdit
{
    Q_OBJECT
    /// The picture in front of the text; none without a path. \since 1.0
    Q_PROPERTY(QString iconPath READ iconPath WRITE setIconPath)
    /// Whether the keys for select all, copy and paste do nothing. \since 1.0
    Q_PROPERTY(bool copyPasteBlocked READ isCopyPasteBlocked WRITE setCopyPasteBlocked)

public:
    /// A line edit with the picture \a iconPath in front of the text (the path as it is given), or without
    /// one for an empty path. A missing file leaves an empty icon and a warning.
    ///
    /// \a bBlockCopyPaste: the keys for select all, copy and paste do nothing. Cutting stays, as do the
    /// context menu and the mouse. \since 1.0
    explicit CBPLineEdit(QString iconPath = QString(), bool bBlockCopyPaste = false,
                         QWidget *parent = nullptr);

    /// A line edit without an icon. \since 1.0
    CBPLineEdit(QWidget *parent, bool bBlockCopyPaste);

    /// The same, in which no keys are blocked. \since 1.0
    explicit CBPLineEdit(QWidget *parent);

    ~CBPLineEdit() override;

    /// The path of the picture in front of the text. \since 1.0
    QString iconPath() const;

    /// Sets the picture in front of the text, and the text margins that keep the text clear of it; with an
    /// empty path there are neither. \since 1.0
    void setIconPath(const QString &path);

    /// Whether the keys for select all, copy and paste do nothing. \since 1.0
    bool isCopyPasteBlocked() const;

    /// Blocks the keys for select all, copy and paste, or lets them through. \since 1.0
    void setCopyPasteBlocked(bool blocked);

Q_SIGNALS:
    /// A key goes down, and the edit is about to act on it. Not sent for keys that are blocked. The event is
    /// good during the signal only. \since 1.0
    void KeyPressed(QKeyEvent *pEvent);

    /// A key was let go. The event is good during the signal only. \since 1.0
    void KeyReleased(QKeyEvent *pEvent);

    /// The edit is about to lose the keyboard focus. \since 1.0
    void sigLoseFocus();

protected:
    /// Called for each mouse button that is let go, before the edit acts on it; does nothing here.
    /// \since 1.0
    virtual void onMouseReleased(QMouseEvent *event);

    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void createIcon();
    void removeIcon();
    void keepTextClear();
    void placeIcon();
    bool isBlocked(const QKeyEvent *event) const;

    QString m_strIconPath;
    QToolButton *m_pIconBtn = nullptr;
    bool m_bFirstClick = true;
    bool m_bBlockCopyPaste;
    bool m_selecting = false; // from the press that selected all to its release, or to a drag
    QPoint m_pressedAt;
    int m_pressedCursor = 0; // the character there
};
