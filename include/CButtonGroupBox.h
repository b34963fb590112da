#pragma once

#include "CBPBox.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

class CBPPushBtn;

namespace lumqt {
class ButtonIds;
class FocusGroup;
class GroupButton;
class TabBar;
} // namespace lumqt

/// A horizontal row of push buttons, edge to edge in a frame, with thin lines between them. Where the row is
/// wider than its buttons they stand at its beginning.
///
/// Buttons are 85 pixels wide, and wider only for an icon: a text that finds no room ends in an ellipsis, and
/// a tool tip shows all of it. An exclusive group selects the button that is clicked and deselects all
/// others. The group is one stop of the Tab key, which comes to the button where the focus was last or, in an
/// exclusive group, to that which was selected since, by CBPPushBtn::setSelected(), too; the arrow keys, Home
/// and End move the focus along it, and Space clicks. Screen readers are told of radio buttons where the
/// group is exclusive. GUI thread only. \since 1.0
class LUMQT_EXPORT CButtonGroupBox : public CBPBox
{
    Q_OBJECT
    /// Whether a click selects the button and deselects all others. \since 1.0
    Q_PROPERTY(bool exclusive READ isExclusive WRITE setExclusive)
    /// The text colours of the buttons, by state. \since 1.0
    Q_PROPERTY(QStringList textColors READ textColors WRITE setTextColors RESET resetTextColors)
    /// The backgrounds of the buttons, by state. \since 1.0
    Q_PROPERTY(QStringList backgroundColors READ backgroundColors WRITE setBackgroundColors RESET
                   resetBackgroundColors)
    /// The texts of the buttons. \since 1.0
    Q_PROPERTY(QStringList items READ items WRITE setItems)
    /// The id of the button that an exclusive group has selected; -1: none. \since 1.0
    Q_PROPERTY(int checkedId READ checkedId WRITE setCheckedId NOTIFY checkedIdChanged)
    /// Pixels between the buttons, in which the ground shows as a line. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE SetSpacing RESET resetSpacing)
    /// No use here: lines between buttons in a column do not show. \since 1.0
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation DESIGNABLE false)

public:
    /// An empty group. Once control is back in the event loop it takes the height of its first button and
    /// the frame, for good; a group that is still empty then keeps its height free. \since 1.0
    CButtonGroupBox(bool exclusive, QWidget *parent);

    /// An empty exclusive group.
    /// \since 1.0
    explicit CButtonGroupBox(QWidget *parent = nullptr);
    ~CButtonGroupBox() override;

    /// Adds a button at the end and returns it; it is a child of the group. \a id is what sigBtnClicked()
    /// reports; ids and texts need not be unique, and may be empty. An empty \a iconPath, or a missing file,
    /// gives no icon. \since 1.0
    CBPPushBtn *AddButton(int id, QString text, QString iconPath);

    /// The first button added with \a id, or null. The application may delete a button.
    /// \since 1.0
    CBPPushBtn *GetButton(int id);

    /// The texts of the buttons, in their order.
    /// \since 1.0
    QStringList items() const;

    /// Gives the buttons these texts, in their order. Those that are missing are added under the lowest ids
    /// from 0 on that no button has, and those that are too many deleted once control is back in the event
    /// loop. A single text is taken apart at its commas. \since 1.0
    void setItems(const QStringList &texts);

    /// Makes the lines between the buttons a pixel wide again.
    /// \since 1.0
    void resetSpacing();

    /// Makes the group exclusive, or no longer. The buttons stay selected or not until the next click.
    /// \since 1.0
    void setExclusive(bool exclusive);

    /// Whether a click selects the button and deselects all others.
    /// \since 1.0
    bool isExclusive() const { return m_exclusive; }

    /// The id of the first selected button of an exclusive group; -1 where none is, and in any other group.
    /// \since 1.0
    int checkedId() const;

    /// Selects the first button of this \a id and deselects all others, as a click does, but for
    /// sigBtnClicked(). An id that no button has, such as -1, leaves none selected, unless one is
    /// added under it before another is selected. A group that is not exclusive stays as it is. \since 1.0
    void setCheckedId(int id);

    /// Sets the text colours of the buttons added from now on: normal, hover, pressed, disabled. See
    /// CBtnObj::setTextColor() for lists of another length. \since 1.0
    void SetTextClr(QVector<QColor> colors);

    /// The same by name, of the buttons there are, too.
    /// \since 1.0
    void setTextColors(const QStringList &names);

    /// The text colours by name, "#rrggbb" or "#aarrggbb"; the built-in ones where none were set.
    /// \since 1.0
    QStringList textColors() const;

    /// Makes the text colours of all buttons the theme's again.
    /// \since 1.0
    void resetTextColors();

    /// Sets the background colours of the buttons added from now on; see SetTextClr().
    /// \since 1.0
    void SetBgClr(QVector<QColor> colors);

    /// The same by name, of the buttons there are, too.
    /// \since 1.0
    void setBackgroundColors(const QStringList &names);

    /// The background colours by name; see textColors().
    /// \since 1.0
    QStringList backgroundColors() const;

    /// Makes the backgrounds of all buttons the theme's again.
    /// \since 1.0
    void resetBackgroundColors();

Q_SIGNALS:
    /// A button was clicked; an exclusive group has selected it by now. The group may be deleted here.
    /// \since 1.0
    void sigBtnClicked(int btnId);

    /// checkedId() is another one: told after the click, or whatever else has selected or deselected a
    /// button. The group may be deleted here. \since 1.0
    void checkedIdChanged(int id);

protected:
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void slotBtnClicked(int id);
    void slotResizeWidget();
    void tellCheckedId();

private:
    friend class lumqt::GroupButton;
    friend class lumqt::TabBar;

    CBPPushBtn *CreateButton(int id, QString text, QString iconPath);
    void setTones(int frame, int ground);
    void drawSeparators(QPainter &painter, const QRect &area) const;
    void drawOverButton(QPainter &painter, const QRect &button) const;

    void select(const CBPPushBtn *button);
    void removeButton(CBPPushBtn *button);
    void fitHeight();
    void forget(const CBPPushBtn *button);

    bool m_exclusive;
    int m_wantedId = 0;     // of a button that is yet to come, ...
    bool m_wantsId = false; // ... if one is
    int m_toldId = -1;      // what checkedIdChanged() has said last
    QVector<QPointer<CBPPushBtn>> m_buttons;
    std::unique_ptr<lumqt::ButtonIds> m_ids; // of m_buttons
    QVector<QColor> m_textColors;
    QVector<QColor> m_bgColors;
    bool m_ownTextColors = false; // an application has set them
    bool m_ownBgColors = false;
    int m_bgPurpose = 0; // of a button in its first state, until then
    lumqt::FocusGroup *m_focusGroup;
};
