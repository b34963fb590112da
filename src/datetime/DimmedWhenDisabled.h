#pragma once

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

} // namespace lumqt
