#pragma once

#include "LumQtGlobal.h"

#include <QColor>
#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <memory>

class QAccessibleInterface;

namespace lumqt {
class CachedText;
class PaintedImage;
enum class FocusMark : unsigned char;
enum class Press : unsigned char;
} // namespace lumqt

/// A title that can be clicked: a lead icon, a text on one line and an arrow at the end, in two looks,
/// focused or not.
///
/// "Focused" is a mark of this class, not the keyboard focus: among siblings it shows which of them is the
/// current one. A click focuses the title and takes the mark off its siblings, of which focusedChanged()
/// alone tells. The text is plain; what does not fit ends in an ellipsis and is shown as a tool tip. The
/// arrow points down on a focused title and along the text on another. The Tab key reaches the title; Space
/// and Enter click it, Escape takes back a press that is held. Screen readers find a page tab, selected or
/// not. Right-to-left it is mirrored. Sizes are logical pixels. GUI thread only. \since 1.0
class LUMQT_EXPORT CFoucsLabel : public QWidget
{
    Q_OBJECT
    /// The text, on one line. \since 1.0
    Q_PROPERTY(QString text READ Text WRITE ChangeText NOTIFY textChanged)
    /// Pixels by which the content is moved in, besides 12; a negative number counts as 0. \since 1.0
    Q_PROPERTY(int indent READ indent WRITE setIndent)
    /// Pixels behind the icon and before the arrow, 10 at first; a negative number counts as 0. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing RESET resetSpacing)
    /// Files of the lead icon, plain and focused; one counts for both, none is no icon. \since 1.0
    Q_PROPERTY(QStringList leadIcons READ leadIcons WRITE setLeadIcons)
    /// Files of the arrow, plain and focused; one counts for both, none is the library's own. \since 1.0
    Q_PROPERTY(QStringList tailIcons READ tailIcons WRITE setTailIcons)
    /// Colour of text and arrow in the plain look; the theme's until one is set. \since 1.0
    Q_PROPERTY(QColor plainColor READ plainColor WRITE setPlainColor RESET resetPlainColor)
    /// Colour of text and arrow in the focused look; the theme's until one is set. \since 1.0
    Q_PROPERTY(QColor focusedColor READ focusedColor WRITE setFocusedColor RESET resetFocusedColor)
    /// Whether the title has the focused look, which its siblings then lose. \since 1.0
    Q_PROPERTY(bool focused READ IsFocus WRITE SetFocus NOTIFY focusedChanged)
    /// Whether there is an arrow. \since 1.0
    Q_PROPERTY(bool tailIconVisible READ isTailIconVisible WRITE setTailIconVisible)

public:
    /// A title, not focused. \a indent moves its content in, in addition to the 12 pixels that are free in
    /// any case, \a spacing is left behind the icon and before the arrow; negative numbers count as 0. \a
    /// iconPath is the file of the lead icon; empty: none. \since 1.0
    explicit CFoucsLabel(QString text = QString(), int indent = 0, int spacing = 10,
                         QString iconPath = QString(), QWidget *parent = nullptr);

    /// A title without a text in \a parent. \since 1.0
    explicit CFoucsLabel(QWidget *parent);

    ~CFoucsLabel() override;

    /// Replaces the text.
    /// \since 1.0
    void ChangeText(QString text);

    /// The text.
    /// \since 1.0
    QString Text() const;

    /// Sets the files of the lead icon and of the arrow, each for the plain look and for the focused one; one
    /// entry counts for both. Empty \a leadIcons: no icon; empty \a tailIcons: the library's own arrow. What
    /// is more than two is ignored, and the place of a missing file stays empty. \since 1.0
    void SetIconPath(QStringList leadIcons, QStringList tailIcons);

    /// The number of pixels by which the content is moved in. \since 1.0
    int indent() const;

    /// Moves the content in by so many pixels; a negative number counts as 0. \since 1.0
    void setIndent(int indent);

    /// The number of pixels behind the icon and before the arrow. \since 1.0
    int spacing() const;

    /// Sets the pixels behind the icon and before the arrow; a negative number counts as 0. \since 1.0
    void setSpacing(int spacing);

    /// Leaves 10 pixels behind the icon and before the arrow. \since 1.0
    void resetSpacing();

    /// The files of the lead icon, as they were given. \since 1.0
    QStringList leadIcons() const;

    /// Sets the files of the lead icon as SetIconPath() does; a single one is taken apart at its commas.
    /// \since 1.0
    void setLeadIcons(const QStringList &files);

    /// The files of the arrow, as they were given; none for the library's own. \since 1.0
    QStringList tailIcons() const;

    /// Sets the files of the arrow as SetIconPath() does; a single one is taken apart at its commas.
    /// \since 1.0
    void setTailIcons(const QStringList &files);

    /// The colour of text and arrow in the plain look. \since 1.0
    QColor plainColor() const;

    /// Sets the colour of the plain look as SetColor() does. \since 1.0
    void setPlainColor(const QColor &color);

    /// Gives the plain look the colour of the theme. \since 1.0
    void resetPlainColor();

    /// The colour of text and arrow in the focused look. \since 1.0
    QColor focusedColor() const;

    /// Sets the colour of the focused look as SetColor() does. \since 1.0
    void setFocusedColor(const QColor &color);

    /// Gives the focused look the colour of the theme. \since 1.0
    void resetFocusedColor();

    /// Sets the colour of text and arrow, plain and focused. The grounds under the mouse and of the focused
    /// look are tints of them. An invalid colour brings back the built-in one. \since 1.0
    void SetColor(QColor plain, QColor focused);

    /// Takes the arrow away; setTailIconVisible() brings it back.
    /// \since 1.0
    void HideTailIcon();

    /// Whether the title has an arrow. \since 1.0
    bool isTailIconVisible() const;

    /// Gives the title its arrow, or takes it away and leaves the room to the text. \since 1.0
    void setTailIconVisible(bool visible);

    /// Whether the title has the focused look.
    /// \since 1.0
    bool IsFocus() const;

    /// Gives the title the focused look and takes it from its siblings, or takes it from this one.
    /// focusedChanged() tells of it, FocusChanged() does not. \since 1.0
    void SetFocus(bool focused);

    /// Sets the titles of which at most one is to be focused; this one may be among them. It is one-way: give
    /// the list to each. The titles may be deleted, null is skipped. \since 1.0
    void SetSiblings(QList<CFoucsLabel *> siblings);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user clicked the title by mouse, keyboard or an assistive tool, and it is focused now; it may have
    /// been before. The title may be deleted here. \since 1.0
    void FocusChanged(CFoucsLabel *label);

    /// The title has the focused look, or has lost it, whoever did it. Those that lose it tell before the one
    /// that has it, and after a click FocusChanged() comes first. The title may be deleted here. \since 1.0
    void focusedChanged(bool focused);

    /// The text is another one. \since 1.0
    void textChanged(const QString &text);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    class Accessible;
    friend class Accessible;
    struct Icon;
    struct Places;
    using Titles = QVector<QPointer<CFoucsLabel>>;

    static QAccessibleInterface *makeAccessible(QWidget *widget);
    Places places() const;
    QColor textColor() const;
    QColor groundColor() const;
    void drawBar(QPainter &painter, int inset);
    void drawIcon(QPainter &painter, Icon &icon, const QRect &place);
    void drawText(QPainter &painter, const QRect &place);
    void drawArrow(QPainter &painter, const QRect &place);
    void release();
    void click();
    Titles mark(bool focused);
    static void tellFocused(const Titles &titles);

    QString m_text;
    int m_indent;
    int m_spacing;
    QColor m_plainColor; // invalid: the theme's
    QColor m_focusedColor;
    QStringList m_leadIcons;
    QStringList m_tailIcons;
    std::unique_ptr<Icon> m_lead;
    std::unique_ptr<Icon> m_tail;
    bool m_showsTail = true;
    bool m_focused = false;
    bool m_toldFocused = false; // what focusedChanged() said last
    lumqt::Press m_press{};
    lumqt::FocusMark m_focusMark{}; // of the keyboard focus
    QVector<QPointer<CFoucsLabel>> m_siblings;
    std::unique_ptr<lumqt::CachedText> m_layout;
};
