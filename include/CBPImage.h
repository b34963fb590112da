#pragma once

#include "LumQtGlobal.h"

#include <QLabel>
#include <QString>

#include <type_traits>

namespace lumqt {
enum class FocusMark : unsigned char;
}

/// A picture that is as large as its file, and that can be clicked.
///
/// The file is loaded from the path as it is given, or with the suffix of a known format added where there is
/// none such; "name@2x.png" beside "name.png" is taken on dense screens. A missing or broken file, or one of
/// more than 8192 x 8192 pixels or 32767 a side, leaves an empty label of 0 x 0 pixels and a warning. The
/// picture is shown whole whatever padding a style sheet gives to labels. While it can be clicked the Tab key
/// reaches it, Space and Enter click it, clicks do not reach what it lies on, and screen readers find a
/// button named by the label's accessible name or else its tool tip. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPImage : public QLabel
{
    Q_OBJECT
    /// The image file, whose size the label takes; none leaves it without any. \since 1.0
    Q_PROPERTY(QString imagePath READ imagePath WRITE SetImageRes)
    /// Whether the picture can be clicked, and has the pointing-hand cursor. \since 1.0
    Q_PROPERTY(bool handCursor READ hasHandCursor WRITE SetChgCursor)

public:
    /// A label without a picture and without a parent. \since 1.0
    CBPImage();

    /// A label without a picture in \a parent, a pointer to any widget: null and 0 as such are a path.
    /// \since 1.0
    template <class Widget, std::enable_if_t<std::is_convertible<Widget *, QWidget *>::value, int> = 0>
    explicit CBPImage(Widget *parent) : CBPImage()
    {
        setParent(parent);
    }

    /// A label that shows the image file \a path. \since 1.0
    explicit CBPImage(QString path);

    /// The same for a path in UTF-8; null is an empty one. \since 1.0
    explicit CBPImage(const char *path);

    ~CBPImage() override;

    /// Shows the image file \a path and takes its size, in logical pixels, as fixed size. \since 1.0
    void SetImageRes(QString path);

    /// The path of the image file, as it was given. \since 1.0
    QString imagePath() const;

    /// Whether the picture can be clicked: it has the pointing-hand cursor then, the arrow otherwise. Not so
    /// at first. When it no longer can be, it gives up the keyboard focus. \since 1.0
    void SetChgCursor(bool change);

    /// Whether the picture can be clicked. \since 1.0
    bool hasHandCursor() const;

Q_SIGNALS:
    /// A mouse button that was pressed here was released (wherever the pointer was then), or Space or Enter
    /// pressed, while the picture could be clicked. \since 1.0
    void sigImgClick();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void load();
    void followTheme();
    void showRing();

    QString m_path;
    qreal m_ratio = 0.0; // that the picture was loaded for
    qint64 m_key = 0;    // of the picture
    bool m_clickable = false;
    bool m_spaceDown = false;
    lumqt::FocusMark m_focusMark{};
};
