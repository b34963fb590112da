#pragma once

#include "LumQtGlobal.h"

#include <QTextEdit>

/// A text edit of several lines with a greatest length, in the look of CBPStyle.
///
/// GUI thread only. \since 1.0
class LUMQT_EXPORT CBPTextEdit : public QTextEdit
{
    Q_OBJECT
    /// How many characters the text may have, a line break is one; 0 or less is no limit. \since 1.0
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)
    /// Pixels between the frame and the text at the left; less than 0 is 0. \since 1.0
    Q_PROPERTY(int leftTextMargin READ leftTextMargin WRITE setLeftTextMargin RESET resetLeftTextMargin)
    /// Pixels between the frame and the text at the top; less than 0 is 0. \since 1.0
    Q_PROPERTY(int topTextMargin READ topTextMargin WRITE setTopTextMargin RESET resetTopTextMargin)
    /// Pixels between the frame and the text at the right; less than 0 is 0. \since 1.0
    Q_PROPERTY(int rightTextMargin READ rightTextMargin WRITE setRightTextMargin RESET resetRightTextMargin)
    /// Pixels between the frame and the text at the bottom; less than 0 is 0. \since 1.0
    Q_PROPERTY(
        int bottomTextMargin READ bottomTextMargin WRITE setBottomTextMargin RESET resetBottomTextMargin)

public:
    /// An empty edit without a limit. \since 1.0
    explicit CBPTextEdit(QWidget *parent = nullptr);
    ~CBPTextEdit() override;

    /// Sets how many characters (UTF-16 code units, a line break is one) the text may have; 0 or less is no
    /// limit.
    ///
    /// A text that is too long already stays until its next change. Then, or when more is typed or pasted,
    /// the text is cut (never in the middle of a character), loses its formats and its undo steps, and the
    /// cursor goes to its end (when undoing brought back too much, with the next turn of the event loop).
    /// \since 1.0
    void setMaxLength(int maxLength);

    /// How many characters the text may have, as it was set; 0 or less is no limit. \since 1.0
    int maxLength() const;

    /// Sets the space between the frame and the text in pixels; less than 0 is 0. It has the ground that the
    /// text has. The document's own margin comes on top (QTextDocument::documentMargin()): 6 pixels, and Qt's
    /// 4 after setDocument(). \since 1.0
    void setTextMargin(int left, int top, int right, int bottom);

    /// The space between the frame and the text at the left in pixels. \since 1.0
    int leftTextMargin() const;

    /// Sets this space as setTextMargin() does, and no other. \since 1.0
    void setLeftTextMargin(int pixels);

    /// Leaves no such space again. \since 1.0
    void resetLeftTextMargin();

    /// The space between the frame and the text at the top in pixels. \since 1.0
    int topTextMargin() const;

    /// Sets this space as setTextMargin() does, and no other. \since 1.0
    void setTopTextMargin(int pixels);

    /// Leaves no such space again. \since 1.0
    void resetTopTextMargin();

    /// The space between the frame and the text at the right in pixels. \since 1.0
    int rightTextMargin() const;

    /// Sets this space as setTextMargin() does, and no other. \since 1.0
    void setRightTextMargin(int pixels);

    /// Leaves no such space again. \since 1.0
    void resetRightTextMargin();

    /// The space between the frame and the text at the bottom in pixels. \since 1.0
    int bottomTextMargin() const;

    /// Sets this space as setTextMargin() does, and no other. \since 1.0
    void setBottomTextMargin(int pixels);

    /// Leaves no such space again. \since 1.0
    void resetBottomTextMargin();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void on_text_changed();

private:
    void paintMargin();

    int m_iMaxLength = 0;
    bool m_couldRedo = false; // before the last change
};
