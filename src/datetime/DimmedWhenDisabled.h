#pragma once

#include "CBPImageButton.h"
#include "ENState.h"
#include "foundation/ImageLoader.h"
#include "foundation/Palette.h"

#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QWidget>

namespace lumqt {

// Makes a button that has one picture for all its states look disabled while it is. The button owns it.
class DimmedWhenDisabled : public QGraphicsOpacityEffect
{
public:
    explicit DimmedWhenDisabled(QWidget *button) : QGraphicsOpacityEffect(button)
    {
        setOpacity(disabledOpacity(kDimmed));
        onThemeChange(this, [this] { setOpacity(disabledOpacity(kDimmed)); });
        setEnabled(!button->isEnabled());
        button->setGraphicsEffect(this);
        button->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::EnabledChange)
            setEnabled(!static_cast<QWidget *>(watched)->isEnabled());
        return false;
    }

private:
    static constexpr qreal kDimmed = 0.35;
};

// The Tab key comes to such a button only where there is something to be seen of it.
inline void stopWherePictured(CBPImageButton &button, const QString &path)
{
    const bool seen = !pictureSize(path, button.devicePixelRatioF()).isEmpty();
    button.setFocusPolicy(seen ? Qt::StrongFocus : Qt::NoFocus);
}

// Gives such a button another picture, and the size of that, which a button keeps by itself.
inline void setOnlyPicture(CBPImageButton &button, const QString &path)
{
    QVector<QString> images(ENStateDisable + 1, path);
    button.SetImgButtonRes(images);
    button.setFixedSize(pictureSize(path, button.devicePixelRatioF()));
    stopWherePictured(button, path);
    button.update();
}

} // namespace lumqt
