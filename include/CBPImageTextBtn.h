#pragma once

#include "CBPImageButton.h"

/// An image button with a text from the start: beside the image or below it, in the library's font and
/// colours, as large as both need.
///
/// Everything else is CBPImageButton's, also which of QPushButton's signals the mouse does not send.
/// Right-to-left nothing is mirrored. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPImageTextBtn : public CBPImageButton
{
    Q_OBJECT
    /// The image files: normal, hover, pressed or selected, disabled. \since 1.0
    Q_PROPERTY(QStringList images READ images WRITE setImages)
    /// Whether the label stands below the image. \since 1.0
    Q_PROPERTY(bool textBelow READ isTextBelow WRITE SetTextBelow)
    /// Not for a form, as those below: the button arranges image and text itself. \since 1.0
    Q_PROPERTY(bool round READ isRound WRITE setRound DESIGNABLE false)
    /// See round. \since 1.0
    Q_PROPERTY(QFont textFont READ textFont WRITE setTextFont DESIGNABLE false)
    /// See round; textBelow says it. \since 1.0
    Q_PROPERTY(bool textBesideImage READ isTextBesideImage WRITE setTextBesideImage DESIGNABLE false)
    /// See round. \since 1.0
    Q_PROPERTY(int textHeight READ textHeight WRITE SetHight DESIGNABLE false)
    /// See round. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing DESIGNABLE false)
    /// See round. \since 1.0
    Q_PROPERTY(int leftMargin READ leftMargin WRITE setLeftMargin DESIGNABLE false)
    /// See round. \since 1.0
    Q_PROPERTY(int border READ border WRITE setBorder DESIGNABLE false)
    /// See round. \since 1.0
    Q_PROPERTY(int iconVerticalOffset READ iconVerticalOffset WRITE SetIconVoffset DESIGNABLE false)

public:
    /// A button with four image files, one per state, and \a text; with another number of files neither is
    /// drawn. \a id is what btn_released() reports. \since 1.0
    CBPImageTextBtn(const QVector<QString> &images, const QString &text, int id = 0,
                    QWidget *parent = nullptr);

    /// The same without images and without a text; the id is 0.
    /// \since 1.0
    explicit CBPImageTextBtn(QWidget *parent = nullptr);
    ~CBPImageTextBtn() override;

    /// As CBPImageButton's, and image and text are arranged anew where the size changes.
    /// \since 1.0
    void setImages(const QStringList &images);

    /// Puts the text below the image, or beside it, where it is at first; the button sizes itself.
    /// \since 1.0
    void SetTextBelow(bool below);

    /// Whether the text stands below the image.
    /// \since 1.0
    bool isTextBelow() const { return m_below; }

    /// Sets the text in the library's font and colours; the button sizes itself. Without a text it is the
    /// image alone. \since 1.0
    void SetLabel(const QString &text);

private:
    static QAccessibleInterface *makeAccessible(QWidget *widget);
    void arrange();
    void fontChanged() override;
    void showImageAlone();

    QSize m_imageSize;
    bool m_below = false;
};
