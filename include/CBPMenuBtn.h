#pragma once

#include "CBPPushBtn.h"

/// A push button that opens a menu, its triangle right behind its text, both centred as one.
///
/// Fill the menu with AppendMenuItem() and listen to sigActionTriggered(): as every CBPPushBtn with a menu it
/// sends no released(), clicked() or toggled() by mouse or key, so that setCheckable(), setAutoRepeat() and a
/// QButtonGroup are not for it. A text that does not fit ends in an ellipsis; an icon is not drawn. Screen
/// readers are told a button with a menu, by the accessible name, the text or the tool tip. The focus ring is
/// #2f86d8 at first. GUI thread only. \since 1.0
class LUMQT_EXPORT CBPMenuBtn : public CBPPushBtn
{
    Q_OBJECT
    /// True, and to stay so: the button is made for its menu. \since 1.0
    Q_PROPERTY(bool hasMenu READ hasMenu WRITE setHasMenu DESIGNABLE false STORED false)
    /// Of no effect, as the five below: the button draws none. \since 1.0
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(QSize iconSize READ iconSize WRITE setIconSize DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(bool iconAfterText READ isIconAfterText WRITE setIconAfterText DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(__ALIGN_TYPE alignment READ alignment WRITE setAlignment DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing DESIGNABLE false)
    /// See icon. \since 1.0
    Q_PROPERTY(int iconVerticalOffset READ iconVerticalOffset WRITE SetIconVoffSet DESIGNABLE false)

public:
    /// A button with \a text and an empty menu, which does not open.
    /// \since 1.0
    explicit CBPMenuBtn(QString text = QString(), QWidget *parent = nullptr);

    /// A button without a text and with an empty menu.
    /// \since 1.0
    explicit CBPMenuBtn(QWidget *parent);
    ~CBPMenuBtn() override;

    /// With room for text and triangle.
    /// \since 1.0
    QSize sizeHint() const override;

protected:
    void drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index) override;
};
