#pragma once

#include "LumQtCompat.h"
#include "LumQtGlobal.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPointer>
#include <QPushButton>
#include <QSize>
#include <QStringList>
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
/// beside "name.png" is taken on dense screens. A file replaced on disk shows with the next paint, some 50
/// milliseconds later at most; a missing one leaves its place empty. Lists are copied. All sizes are logical
/// pixels. Texts are plain: an "&" in them is shown. What a font given here leaves open, the size perhaps, is
/// the widget's own font's to say, a style sheet included; the button sizes itself when that changes, unless
/// the application has set another size since.
///
/// Screen readers are told the accessible name; where none was set, the text, the tool tip, or the tip of
/// SetTipsTxt(), whichever comes first. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPImageButton : public QPushButton
{
    Q_OBJECT
    /// The image files: normal, hover, pressed or selected, disabled. \since 1.0
    Q_PROPERTY(QStringList images READ images WRITE setImages)
    /// Whether the background is a capsule, with the image moved in. \since 1.0
    Q_PROPERTY(bool round READ isRound WRITE setRound)
    /// The number that btn_released() reports. \since 1.0
    Q_PROPERTY(int id READ GetID WRITE setId)
    /// What is drawn, and told to screen readers, as the button's text. \since 1.0
    Q_PROPERTY(QString label READ label WRITE setLabel NOTIFY labelChanged)
    /// What the label is drawn in; what it leaves open is as in the widget's font. \since 1.0
    Q_PROPERTY(QFont textFont READ textFont WRITE setTextFont RESET resetTextFont)
    /// The colours of the label by state; with another number than four it is not drawn. \since 1.0
    Q_PROPERTY(QStringList textColors READ textColors WRITE setTextColors RESET resetTextColors)
    /// Whether the label stands beside the image, and not below it. \since 1.0
    Q_PROPERTY(bool textBesideImage READ isTextBesideImage WRITE setTextBesideImage)
    /// The height in pixels that the label counts for; 0 means the height of its font. \since 1.0
    Q_PROPERTY(int textHeight READ textHeight WRITE SetHight)
    /// The gap between image and label in pixels; 0 at first. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing RESET resetSpacing)
    /// How many pixels image and label are moved in. \since 1.0
    Q_PROPERTY(int leftMargin READ leftMargin WRITE setLeftMargin)
    /// The pixels left free at either side; 5 at first. The size follows. \since 1.0
    Q_PROPERTY(int border READ border WRITE setBorder RESET resetBorder)
    /// The corner radius in pixels of the background of a button that is not round. \since 1.0
    Q_PROPERTY(int borderRadius READ borderRadius WRITE showBorderRadius)
    /// The backgrounds by state; none at first, and another number than four is left out. \since 1.0
    Q_PROPERTY(QStringList backgroundColors READ backgroundColors WRITE setBackgroundColors RESET
                   resetBackgroundColors)
    /// The frame colours by state, drawn around a background only; none at first. \since 1.0
    Q_PROPERTY(QStringList frameColors READ frameColors WRITE setFrameColors RESET resetFrameColors)
    /// Whether the button is held in the pressed look, deaf to mouse and keyboard. \since 1.0
    Q_PROPERTY(bool selected READ isSelected WRITE SetSelect NOTIFY selectionChanged)
    /// Whether the button draws anything at all. \since 1.0
    Q_PROPERTY(bool drawn READ isDrawn WRITE showDrawn)
    /// How many pixels the image is moved down. \since 1.0
    Q_PROPERTY(int iconVerticalOffset READ iconVerticalOffset WRITE showIconOffset)
    /// Whether there is a dot at the top right corner. \since 1.0
    Q_PROPERTY(bool dotVisible READ isDotVisible WRITE setDotVisible)
    /// The colour of the dot; the theme's red at first. \since 1.0
    Q_PROPERTY(QColor dotColor READ dotColor WRITE setDotColor RESET resetDotColor)
    /// The tip under the mouse, as rich text; an empty one shows none. \since 1.0
    Q_PROPERTY(QString tipText READ tipText WRITE SetTipsTxt)
    /// Neither drawn nor told to anybody; label is. \since 1.0
    Q_PROPERTY(QString text READ text WRITE setText DESIGNABLE false)
    /// Of no effect, as the two below: the button draws its images. \since 1.0
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(QSize iconSize READ iconSize WRITE setIconSize DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(bool flat READ isFlat WRITE setFlat DESIGNABLE false)

public:
    /// A button with the image files \a images; four are drawn, another number is not. With four the button
    /// is as large as the first. \a round makes the background a capsule and moves the image in by half the
    /// height; \a id is what btn_released() reports. \since 1.0
    CBPImageButton(const QVector<QString> &images, bool round, int id, QWidget *parent = nullptr);

    /// A button that is not round, without images and with the id 0.
    /// \since 1.0
    explicit CBPImageButton(QWidget *parent = nullptr);

    /// Deletes the tip window, too.
    ~CBPImageButton() override;

    /// Replaces the image files. The button keeps its size.
    /// \since 1.0
    void SetImgButtonRes(QVector<QString> &images);

    /// Replaces the image files. A button that had none, or a number that is not drawn, sizes itself as the
    /// constructor does, by its text, too; any other one keeps its size. \since 1.0
    void setImages(const QStringList &images);

    /// The image files.
    /// \since 1.0
    QStringList images() const;

    /// Makes the background a capsule and moves the image in, or no longer. Then the button sizes itself.
    /// \since 1.0
    void setRound(bool round);

    /// Whether the background is a capsule.
    /// \since 1.0
    bool isRound() const { return m_round; }

    /// The size the button gave itself last: that of its first image, or of image and text; invalid while it
    /// had no reason to. \since 1.0
    QSize GetSize() const;

    /// The id that btn_released() reports.
    /// \since 1.0
    int GetID() const;

    /// Sets the id that btn_released() reports.
    /// \since 1.0
    void setId(int id) { m_id = id; }

    /// Sets the text alone; then the button sizes itself. Of a CBPImageTextBtn it is SetLabel().
    /// \since 1.0
    void setLabel(const QString &text);

    /// The text that is drawn. Of a CBPImageTextBtn it is that of SetLabel().
    /// \since 1.0
    QString label() const { return m_arranges ? m_label : m_text; }

    /// Sets the font of the text alone; then the button sizes itself.
    /// \since 1.0
    void setTextFont(const QFont &font);

    /// The font of the text: what was set, and what that leaves open as the widget's own font has it.
    /// \since 1.0
    QFont textFont() const { return paintedFont(); }

    /// Makes it the library's family again, in the size of the widget's font.
    /// \since 1.0
    void resetTextFont();

    /// Sets the text colours by name, one per state; with another number than four the text is not drawn.
    /// \since 1.0
    void setTextColors(const QStringList &names);

    /// The text colours by name, "#rrggbb" or "#aarrggbb"; the built-in ones where none were set.
    /// \since 1.0
    QStringList textColors() const;

    /// Makes the text colours the theme's again.
    /// \since 1.0
    void resetTextColors();

    /// Puts the text beside the image, where it is at first, or below it. Then the button sizes itself.
    /// \since 1.0
    void setTextBesideImage(bool beside);

    /// Whether the text stands beside the image.
    /// \since 1.0
    bool isTextBesideImage() const { return m_besideImage; }

    /// Sets the gap between image and text in pixels; 0 at first. Then the button sizes itself.
    /// \since 1.0
    void setSpacing(int spacing);

    /// The gap between image and text in pixels.
    /// \since 1.0
    int spacing() const { return m_spacing; }

    /// Leaves no gap again.
    /// \since 1.0
    void resetSpacing();

    /// Moves image and text \a margin pixels in; 0 at first. Then the button sizes itself.
    /// \since 1.0
    void setLeftMargin(int margin);

    /// How many pixels image and text are moved in.
    /// \since 1.0
    int leftMargin() const { return m_leftMargin; }

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

    /// Sets the pixels left free at either side; the size follows.
    /// \since 1.0
    void setBorder(int border) { SetBorder(border, true); }

    /// The pixels left free at either side.
    /// \since 1.0
    int border() const { return m_border; }

    /// Makes them 5 again.
    /// \since 1.0
    void resetBorder();

    /// Sets the corner radius of the background of a button that is not round, in pixels; 0, square, at
    /// first. Shown at the next paint. \since 1.0
    void SetBorderRadius(int radius);

    /// What SetBorderRadius() has set.
    /// \since 1.0
    int borderRadius() const { return m_borderRadius; }

    /// Sets the background colour of each state. Ignored unless there are four. Brushes go before colours.
    /// Shown at the next paint. \since 1.0
    void SetBkgColors(const QVector<QColor> &colors);

    /// The same by name, shown at once.
    /// \since 1.0
    void setBackgroundColors(const QStringList &names);

    /// The background colours by name; empty where none were set.
    /// \since 1.0
    QStringList backgroundColors() const;

    /// Takes the background colours away.
    /// \since 1.0
    void resetBackgroundColors();

    /// Sets the background brush of each state. Ignored unless there are four. Shown at the next paint.
    /// \since 1.0
    void SetBkgBrush(const QVector<QBrush> &brushes);

    /// Sets the frame colour of each state; drawn around a background only. An empty list means no frame;
    /// with another number than four the frame is drawn in the painter's own pen, black. Shown at the next
    /// paint. \since 1.0
    void SetBorderColor(const QVector<QColor> &colors);

    /// The same by name, shown at once.
    /// \since 1.0
    void setFrameColors(const QStringList &names);

    /// The frame colours by name; empty where none were set.
    /// \since 1.0
    QStringList frameColors() const;

    /// Takes the frame away.
    /// \since 1.0
    void resetFrameColors();

    /// Holds the button in the pressed look, deaf to mouse and keyboard, or lets it go. So does enabling a
    /// button that was seen disabled: it looks normal then, and answers again. \since 1.0
    void SetSelect(bool selected);

    /// Whether the button is held in the pressed look.
    /// \since 1.0
    bool isSelected() const;

    /// With false the button draws nothing. Shown at the next paint.
    /// \since 1.0
    void SetBtnShow(bool show);

    /// What SetBtnShow() has set; true at first.
    /// \since 1.0
    bool isDrawn() const { return m_shown; }

    /// Sets the height that the text counts for when the button sizes itself; 0, at first, means the height
    /// of the font. Then the button sizes itself. \since 1.0
    void SetHight(int height);

    /// What SetHight() has set.
    /// \since 1.0
    int textHeight() const { return m_textHeight; }

    /// Moves the image down by \a offset pixels; 0 at first. Shown at the next paint.
    /// \since 1.0
    void SetIconVoffset(int offset);

    /// How many pixels the image is moved down.
    /// \since 1.0
    int iconVerticalOffset() const { return m_iconVoffset; }

    /// Shows a dot of 8 pixels in \a color at the top right corner, or none. Shown at the next paint.
    /// \since 1.0
    void SetSpecialIcon(bool show, const QColor &color);

    /// Shows the dot in its colour, or none.
    /// \since 1.0
    void setDotVisible(bool visible);

    /// Whether the dot shows; false at first.
    /// \since 1.0
    bool isDotVisible() const { return m_specialIconShown; }

    /// Sets the colour of the dot; it need not be there yet.
    /// \since 1.0
    void setDotColor(const QColor &color);

    /// The colour of the dot.
    /// \since 1.0
    QColor dotColor() const;

    /// Makes it the theme's again.
    /// \since 1.0
    void resetDotColor();

    /// Sets the text of the tip that shows while the mouse is over the button; an empty one shows no tip. It
    /// is rich text: escape what is not meant as markup. \since 1.0
    void SetTipsTxt(const QString &text);

    /// The text of the tip.
    /// \since 1.0
    QString tipText() const { return m_tipsText; }

Q_SIGNALS:
    /// The left mouse button was released inside the button, or a key or an assistive tool pressed it. The
    /// button may be deleted by what is connected. \since 1.0
    void btn_released(int id);

    /// The text that is drawn has changed. The button may be deleted here.
    /// \since 1.0
    void labelChanged(const QString &label);

    /// The button is held in the pressed look from now on, or no longer: by SetSelect(), or since it was
    /// enabled. It may be deleted here. \since 1.0
    void selectionChanged(bool selected);

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
    static constexpr int kSideBorder = 5; // pixels, as the next
    static constexpr int kTextSpacing = 0;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    QString spokenName() const;
    void nameChanged();
    void textChanged();
    void tellLabel(const QString &before);
    void tellSelected();
    void placeText(const QString &text, const QFont &font, bool besideImage, int spacing, int leftMargin);
    // Writers of properties: the setters, which leave it to the next paint to show the change.
    void showBorderRadius(int radius);
    void showDrawn(bool drawn);
    void showIconOffset(int offset);
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
    QString m_label;         // the text that the next one makes m_text of
    bool m_arranges = false; // of a derived class: fontChanged() says where image and text lie
    bool m_besideImage = true;
    bool m_round;
    int m_spacing = kTextSpacing;
    int m_leftMargin = 0;
    int m_textIndent = 0; // of a text below the image
    QSize m_size;
    int m_id;
    int m_border;
    int m_borderRadius = 0;
    bool m_selected = false;
    bool m_toldSelected = false; // what selectionChanged() has said last
    bool m_shown = true;
    int m_textHeight = 0;
    int m_iconVoffset = 0;
    bool m_specialIconShown = false;
    short m_specialIconPurpose; // -1: it has the colour below
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
    QString m_barName;         // that its title bar gave it for assistive tools
    QString m_plainText;       // the text of the base class that makes no shortcut
};
