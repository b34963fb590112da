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

public:
    /// A button with four image files, one per state, and \a text; with another number of files neither is
    /// drawn. \a id is what btn_released() reports. \since 1.0
    CBPImageTextBtn(const QVector<QString> &images, const QString &text, int id = 0,
                    QWidget *parent = nullptr);
    ~CBPImageTextBtn() override;

    /// Puts the text below the image, or beside it, where it is at first; the button sizes itself.
    /// \since 1.0
    void SetTextBelow(bool below);

    /// Sets the text in the library's font and colours; the button sizes itself. Without a text it is the
    /// image alone. \since 1.0
    void SetLabel(const QString &text);

private:
    static QAccessibleInterface *makeAccessible(QWidget *widget);
    void arrange();
    void fontChanged() override;
    void showImageAlone();

    const QSize m_imageSize;
    QString m_label;
    bool m_below = false;
};
