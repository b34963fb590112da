#pragma once

#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QMainWindow>
#include <QMap>
#include <QPixmap>
#include <QRect>
#include <QStringList>

#include <memory>

struct tagNCCALCSIZE_PARAMS;

/// A top-level main window that draws its own title strip, border and caption buttons.
///
/// The strip holds an icon, a caption and five parts with ids: 1 list, 2 separator, 3 minimise, 4 maximise or
/// restore, 5 close. 3, 4 and 5 act by themselves; what the list button does is told by a derived class in
/// titleBtnClicked(). However the window is closed, it ends in onExit(): by its button, by the system, by
/// QWidget::close().
///
/// A button acts where the mouse button comes up, wherever it went down: what is pressed on minimise and let
/// go on close closes. What comes up off the frame is no click, nor is what went down in the client area. The
/// system moves the window with the pointer from the press on the strip; a maximised one is restored under
/// the pointer once it is dragged.
///
/// The window is never smaller than its strip with icon and buttons, nor than its content. A minimum that
/// an application sets takes the place of both, for width and height each, so that it can also be lower; 0
/// then leaves the content's, from when that is laid out next.
///
/// On Windows the frame is the native one, repainted, and the widget covers the client area only. A colour of
/// the frame is made transparent there, so neither a window opacity nor Qt::WA_TranslucentBackground goes
/// with this class. Windows 11 offers its layouts over the maximise button; Alt+Space and a right click on
/// the strip open the system menu. Elsewhere that menu is the window manager's own, by its own key: Qt offers
/// no call that opens it.
///
/// Elsewhere the frame lies in the widget's contents margins, which the class sets, and the band outside the
/// border's line is pale blue: a window that blends with what is behind would lose the subpixel smoothing of
/// all its text, and a narrower one would leave next to nothing to take hold of. What was written for a
/// QMainWindow meets two differences there: the content begins not at (0, 0) but at contentsRect(), and
/// margins set with setContentsMargins() are added to the frame's, so that contentsMargins() answers the sum.
///
/// Sizes are logical pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CBaseWin : public QMainWindow
{
    Q_OBJECT
    /// Image file of the title's icon; empty: none. A reset brings back the library's. \since 1.0
    Q_PROPERTY(QString iconPath READ iconPath WRITE showIcon RESET resetIconPath)
    /// Text in the title strip; the window title is another one. \since 1.0
    Q_PROPERTY(QString caption READ caption WRITE setCaption NOTIFY captionChanged)

public:
    /// A window with the icon "../res/title_logo.png", no caption and an empty window title.
    ///
    /// With a \a parent that owns it, it stays a window of its own. There are no window flags to give, as the
    /// frame sets them; setWindowFlags() makes it a child of the parent unless Qt::Window is among them, as
    /// with any widget. \since 1.0
    explicit CBaseWin(QWidget *parent = nullptr);
    ~CBaseWin() override;

    /// Takes the image file \a path for the title's icon, from the next time the frame is painted. Empty: no
    /// icon, and the caption begins at the left. A file that cannot be read is said in the log.
    ///
    /// A pointer that moves over the frame repaints the buttons' part only: a file that is replaced under the
    /// same name, or another font of the window, may show only when all of the frame is painted, as after a
    /// resize or an activation. \since 1.0
    void setIcon(QString path);

    /// The image file of the title's icon. \since 1.0
    QString iconPath() const { return m_iconPath; }

    /// Shows the library's picture again, "../res/title_logo.png". \since 1.0
    void resetIconPath();

    /// Shows \a text in the title strip, on one line, line breaks as spaces, with an ellipsis at its end
    /// where it would run into the buttons. As given it is also the window's accessible name; the window
    /// title stays what it is. \since 1.0
    void setCaption(QString text);

    /// The text in the title strip, as it was given. \since 1.0
    QString caption() const { return m_caption; }

    /// The widget of setContentWidget(), or null: QMainWindow::centralWidget(). \since 1.0
    QWidget *contentWidget() const;

    /// Where button \a id was last painted, in coordinates of the window with its frame, the left edge moved
    /// left by frameWidth(). Empty for an \a id outside of 0 to 5 and before the frame was first painted. For
    /// the place of a menu there is globalBtnRect(). \since 1.0
    QRect btnRect(int id);

    /// Where button \a id is drawn at present, in global coordinates (logical pixels of the screen): the
    /// place for a menu or a tip. Unlike btnRect() it is moved by nothing and follows a window that is
    /// resized. The pointer presses a button 6 pixels further right and a little higher. Empty for an \a id
    /// without a button, before the frame was first painted and in full screen. \since 1.0
    QRect globalBtnRect(int id);

    /// A picture of the window as it stands on the screen, its frame included, which QWidget::grab() leaves
    /// out on Windows, where it is no part of the widget. In full screen there is no frame. As after any
    /// painting btnRect() and globalBtnRect() know the buttons then, also in a window that was never shown.
    /// \since 1.0
    QPixmap grabWithFrame();

    /// Width of the border, asked of the system at each call.
    /// \since 1.0
    int frameWidth();

    /// Height of the title strip with the border above it: 38 more than frameWidth().
    /// \since 1.0
    int titleHight();

public Q_SLOTS:
    /// Fills the client area with \a content, as a form does: QMainWindow::setCentralWidget(). The one that
    /// was set before is deleted once control is back in the event loop; null takes it away. \since 1.0
    void setContentWidget(QWidget *content);

Q_SIGNALS:
    /// The window ends; \a sender is this window as a QObject pointer. Sent by onExit() once the window is
    /// hidden. A slot may delete the window. \since 1.0
    void sigQuit(void *sender);

    /// The title strip shows another text. A slot may delete the window. \since 1.0
    void captionChanged(const QString &caption);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    /// Moves, resizes and maximises the window on Windows: call it for all messages that are not yours.
    /// Override it with lumqt::NativeResult, and it compiles with either Qt. \since 1.0
    bool nativeEvent(const QByteArray &eventType, void *message, lumqt::NativeResult *result) override;

    /// Ends the application: hides the window, sends sigQuit() and makes the event loop return 0.
    ///
    /// A derived class that leaves the window visible refuses the close. Closing the window again, say in a
    /// slot of sigQuit(), calls it neither while a call by the window itself runs nor while the base does its
    /// work. \since 1.0
    virtual void onExit();

    /// Called before the button \a id acts; true keeps it from acting. -1: the mouse button was let go on
    /// the frame beside every button, where the frame is told: of a press on the strip that it may move the
    /// window by, the system often keeps the end to itself. The window may be deleted here. The base
    /// answers false. \since 1.0
    virtual bool titleBtnClicked(int id);

    /// Whether the window is maximised, as the system sees it.
    /// \since 1.0
    bool isMaxState();

private:
    void init();
    void repaintAll();
    void showIcon(const QString &path); // setIcon(), for the property: at once
    void resetBtnState();
    void drawTitleBtns(QPainter &painter, int x, int y, int id);
    void paintFrame();
    void paintCaption(QPainter &painter);
    void onNCCalSize(tagNCCALCSIZE_PARAMS *params);
    bool isCursorInTitleBar();
    int cursorOnToolButtons();
    void onTitleBtnClicked(int id);

    QMap<int, QStringList> m_btnImages; // normal, hover, press, disable
    QMap<int, int> m_btnStates;         // index into them
    QStringList m_restoreImages;        // of the maximise button while the window is maximised
    QString m_iconPath;
    QString m_caption;
    QMap<int, QRect> m_btnRects; // as last painted
    QRect m_iconRect;

    class Frame;
    std::unique_ptr<Frame> m_frame;
};
