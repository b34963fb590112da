#pragma once

#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPointer>
#include <QPushButton>
#include <QSize>
#include <QVector>

#include <memory>

class CTextTips;
class QAccessibleInterface;
class QPainter;

namespace lumqt {
class CachedText;
class PaintedImage;
enum class FocusMark : unsigned char;
enum class Press : unsigned char;
} // namespace lumqt

/// A button drawn from four image files, one per state, with a text, a background, a frame, a coloured dot
/// and a hover tip if wanted.
///
/// It reports a click by btn_released() and its id. Space, Enter on a default button, click() and assistive
/// tools report btn_released() too, just before clicked() reaches others.
///
/// Where it is not as a QPushButton: by mouse it emits neither released() nor clicked(), since the base class
/// never sees the release that clicks, and a QButtonGroup signals no click; a checkable one is checked all
/// the same, and toggled() comes. The base class does not hear of focus changes (but for a member of a
/// QButtonGroup, where Tab is to come to the chosen one): a press of the mouse outlasts the loss of the
/// focus. It is no auto-default button: in a dialog Return is not its own unless it is made the default.
///
/// Per-state lists hold the entries normal, hover, pressed (or selected), disabled, in this order. Images
/// whose names end in ".svg", in lower case, are drawn as vectors, all others as pixmaps; "name@2x.png"
/// beside "name.png" is taken on dense screens. A file replaced on disk shows at the next paint, a missing
/// one leaves its place empty. Lists are copied. All sizes are logical pixels. Texts are plain: an "&" in
/// them is shown. What a font given here leaves open, the size perhaps, is the widget's own font's to say, a
/// style sheet included; the button sizes itself when that changes, unless the application has set another
/// size since.
///
/// Screen readers are told the accessible name; where none was set, the text, the tool tip, or the tip of
/// SetTipsTxt(), whichever comes first. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPImageButton : public QPushButton
{
    Q_OBJECT

public:
    /// A button with the image files \a images; four are drawn, another number is not. With four the button
    /// is as large as the first. \a round makes the background a capsule and moves the image in by half the
    /// height; \a id is what btn_released() reports. \since 1.0
    CBPImageButton(const QVector<QString> &images, bool round, int id, QWidget *parent = nullptr);

    /// Deletes the tip window, too.
    ~CBPImageButton() override;

    /// Replaces the image files. The button keeps its size.
    /// \since 1.0
    void SetImgButtonRes(QVector<QString> &images);

    /// The size the button gave itself last: that of its first image, or of image and text; invalid while it
    /// had no reason to. \since 1.0
    QSize GetSize() const;

    /// The id that btn_released() reports.
    /// \since 1.0
    int GetID() const;

    /// Sets text and font; then the button sizes itself.
    /// An empty text keeps the size, here and below. \since 1.0
    void SetText(const QString &text, const QFont &font);

    /// Sets the text, its place (beside the image or below it) and the gap to the image in pixels; then the
    /// button sizes itself. \since 1.0
    void SetText(const QString &text, bool besideImage, int spacing);

    /// Sets all that concerns the text, and moves image and text \a leftMargin pixels in; then the button
    /// sizes itself. With another number of \a colors than four the text is not drawn. \since 1.0
    void SetText(const QString &text, const QFont &font, QVector<QColor> colors, bool besideImage,
                 int spacing, int leftMargin);

    /// Sets the text of QAbstractButton, which is neither drawn nor told to anybody here; see SetText(). An
    /// "&" in it makes no shortcut. \since 1.0
    void setText(const QString &text);

    /// Sets the pixels left free at either side; 5 at first. The size follows when \a resize is true and the
    /// button has a text. \since 1.0
    void SetBorder(int border, bool resize);

    /// Sets the corner radius of the background of a button that is not round, in pixels; 0, square, at
    /// first. Shown at the next paint. \since 1.0
    void SetBorderRadius(int radius);

    /// Sets the background colour of each state. Ignored unless there are four. Brushes go before colours.
    /// Shown at the next paint. \since 1.0
    void SetBkgColors(const QVector<QColor> &colors);

    /// Sets the background brush of each state. Ignored unless there are four. Shown at the next paint.
    /// \since 1.0
    void SetBkgBrush(const QVector<QBrush> &brushes);

    /// Sets the frame colour of each state; drawn around a background only. An empty list means no frame;
    /// with another number than four the frame is drawn in the painter's own pen, black. Shown at the next
    /// paint. \since 1.0
    void SetBorderColor(const QVector<QColor> &colors);

    /// Holds the button in the pressed look, deaf to mouse and keyboard, or lets it go. So does enabling a
    /// button that was seen disabled: it looks normal then, and answers again. \since 1.0
    void SetSelect(bool selected);

    /// With false the button draws nothing. Shown at the next paint.
    /// \since 1.0
    void SetBtnShow(bool show);

    /// Sets the height that the text counts for when the button sizes itself; 0, at first, means the height
    /// of the font. Then the button sizes itself. \since 1.0
    void SetHight(int height);

    /// Moves the image down by \a offset pixels; 0 at first. Shown at the next paint.
    /// \since 1.0
    void SetIconVoffset(int offset);

    /// Shows a dot of 8 pixels in \a color at the top right corner, or none. Shown at the next paint.
    /// \since 1.0
    void SetSpecialIcon(bool show, const QColor &color);

    /// Sets the text of the tip that shows while the mouse is over the button; an empty one shows no tip. It
    /// is rich text: escape what is not meant as markup. \since 1.0
    void SetTipsTxt(const QString &text);

Q_SIGNALS:
    /// The left mouse button was released inside the button, or a key or an assistive tool pressed it. The
    /// button may be deleted by what is connected. \since 1.0
    void btn_released(int id);

protected:
    /// Gives the button the size of its current image and text, as its fixed size. Does nothing with
    /// fewer than four images. \since 1.0
    void ReSetSize();

    /// Draws background and frame.
    /// \since 1.0
    void PaintBkg(QPainter *painter);

    /// Draws the text.
    /// \since 1.0
    void DrawTextW(QPainter *painter);

    /// Draws the dot.
    /// \since 1.0
    void PaintSpecialIcon(QPainter *painter);

    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Override it with lumqt::EnterEvent, and it compiles with either Qt. \since 1.0
    void enterEvent(lumqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    friend class CBPImageTextBtn;
    friend class CBPWinFrmTitle;
    static constexpr int kStates = 4;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    QString spokenName() const;
    void nameChanged();
    void textChanged();
    void placeText(const QString &text, const QFont &font, bool besideImage, int spacing, int leftMargin);
    void reportActivation();
    void followKey(bool wasDown);
    void placeRing();
    void updateRing();
    bool hasRingRoom() const;
    QPoint imagePlace(const QSize &image) const;
    QRect textPlace(const QSize &image) const;
    void focusLost(Qt::FocusReason reason);
    void followEnabled();
    QFont paintedFont() const;
    bool hasOwnSize() const;
    virtual void fontChanged();
    QString tipsMarkup() const;
    void showTips();
    void hideTips();
    QSize imageSize(int index) const;
    int cornerRadius() const;
    void drawImage(QPainter &painter);
    void drawBackground(QPainter &painter, const QBrush &brush);

    int m_index = 0;
    QVector<QString> m_images;
    QVector<QColor> m_textColors;
    short m_textPurpose; // of the first state, until an application sets the colours
    bool m_ownTextColors = false;
    QVector<QColor> m_bkgColors;
    QVector<QBrush> m_bkgBrushes;
    QVector<QColor> m_borderColors;
    QFont m_font;
    QString m_text;
    bool m_besideImage = true;
    bool m_round;
    int m_spacing = 0;
    int m_leftMargin = 0;
    int m_textIndent = 0; // of a text below the image
    QSize m_size;
    int m_id;
    int m_border;
    int m_borderRadius = 0;
    bool m_selected = false;
    bool m_shown = true;
    int m_textHeight = 0;
    int m_iconVoffset = 0;
    bool m_specialIconShown = false;
    short m_specialIconPurpose = -1; // of a button that is part of something, else its own colour
    QColor m_specialIconColor;
    QPointer<CTextTips> m_tips; // made when first shown
    QString m_tipsText;
    QSize m_paintedImage; // valid while a paint is under way
    std::unique_ptr<lumqt::PaintedImage> m_image;
    std::unique_ptr<lumqt::CachedText> m_textLayout; // made when first painted
    QFont m_measured;                                // the font that the size was made for
    lumqt::FocusMark m_focusMark{};
    lumqt::Press m_press{};
    bool m_ringInside = false;
    bool m_mirrors = false;    // image and text change sides where the layout runs from right to left
    bool m_turnsImage = false; // the image points somewhere, from right to left the other way
    QString m_plainText;       // the text of the base class that makes no shortcut
};
