#pragma once

#include "CBPPushBtn.h"

/// A push button with a plus mark, alone or before a text, in the colour of the text.
///
/// It is 28 pixels high, without a text as wide. An icon is not drawn: the mark is one. Screen readers are
/// told the accessible name; where none was set, the text, the tool tip or "Add", whichever comes first.
/// Right-to-left nothing is mirrored. The focus ring is #2f86d8 at first. GUI thread only. \since 1.0
class LUMQT_EXPORT CAddBtn : public CBPPushBtn
{
    Q_OBJECT
    /// Of no effect, as the five below: the plus mark is the icon. \since 1.0
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
    /// A button with the mark alone; the id is 0.
    /// \since 1.0
    explicit CAddBtn(QWidget *parent = nullptr);

    /// A button with the mark before \a text, and an \a id for sigBtnClicked().
    /// \since 1.0
    explicit CAddBtn(QString text, int id = 0, QWidget *parent = nullptr);
    ~CAddBtn() override;

    /// With room for mark and text.
    /// \since 1.0
    QSize sizeHint() const override;

protected:
    void drawPixmapAndText(QPainter *painter, QPen &pen, QRect &rect, int index) override;

private:
    void init();
};
