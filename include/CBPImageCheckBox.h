#pragma once

#include "CBPCheckBox.h"

#include <QStringList>
#include <QVector>

#include <memory>

namespace lumqt {
class PaintedImage;
enum class FocusMark : unsigned char;
} // namespace lumqt

/// A check box whose mark is an image of its own, one per state, unchecked and checked.
///
/// Each list holds four image files in the order normal, hover, pressed, disabled. With another number in
/// either the box looks as CBPCheckBox does. Files are found and drawn as CBPImageButton does it; a missing
/// one leaves its place empty. A partially checked box shows as checked. The whole widget answers the mouse;
/// keyboard, screen readers and the "&" in a text are QCheckBox's. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPImageCheckBox : public CBPCheckBox
{
    Q_OBJECT
    /// The image files of the unchecked mark: normal, hover, pressed, disabled. \since 1.0
    Q_PROPERTY(QStringList uncheckedImages READ uncheckedImages WRITE setUncheckedImages)
    /// Those of the checked mark; the box has its own look until there are four of both. \since 1.0
    Q_PROPERTY(QStringList checkedImages READ checkedImages WRITE setCheckedImages)

public:
    /// A check box with \a text behind the mark, or the mark alone; an "&" makes the next letter its
    /// shortcut. \since 1.0
    CBPImageCheckBox(const QVector<QString> &unchecked, const QVector<QString> &checked,
                     const QString &text = QString(), QWidget *parent = nullptr);

    /// A check box without a text, which looks as CBPCheckBox does until it has its images.
    /// \since 1.0
    explicit CBPImageCheckBox(QWidget *parent = nullptr);
    ~CBPImageCheckBox() override;

    /// Replaces the image files.
    /// \since 1.0
    void SetImages(const QVector<QString> &unchecked, const QVector<QString> &checked);

    /// Replaces the image files of the unchecked mark alone.
    /// \since 1.0
    void setUncheckedImages(const QStringList &images);

    /// The image files of the unchecked mark that were set, however many.
    /// \since 1.0
    QStringList uncheckedImages() const;

    /// Replaces the image files of the checked mark alone.
    /// \since 1.0
    void setCheckedImages(const QStringList &images);

    /// The image files of the checked mark that were set, however many.
    /// \since 1.0
    QStringList checkedImages() const;

    /// With room for mark and text. The mark takes the size of the first unchecked image.
    /// \since 1.0
    QSize sizeHint() const override;

    /// The same.
    /// \since 1.0
    QSize minimumSizeHint() const override;

protected:
    bool hitButton(const QPoint &position) const override;
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool hasImages() const;
    void updateRing();
    QSize markSize() const;

    QVector<QString> m_unchecked; // as they were set
    QVector<QString> m_checked;
    QVector<QString> m_images; // four unchecked, four checked; empty where there are others
    std::unique_ptr<lumqt::PaintedImage> m_mark;
    lumqt::FocusMark m_focusMark{};
};
