#pragma once

#include "CBPJumpSlider.h"
#include "CBPSmoothSlider.h"
#include "Pixels.h"

#include <QLabel>
#include <QSlider>
#include <QtTest>

// What the test programs of the two sliders share.

inline const QColor kBlue(73, 167, 245);
inline const QColor kGrey(229, 229, 229);
inline const QStringList kLevels{"Low", "Medium", "High", "Full"};
inline const QStringList kEnds{"0", "All"};

inline QSlider *sliderOf(const QWidget &widget)
{
    return widget.findChild<QSlider *>();
}

inline QLabel *rowOf(const QWidget &widget)
{
    return widget.findChild<QLabel *>();
}

// Shown, 300 pixels wide.
template <class Slider> void show(Slider &slider)
{
    slider.resize(300, 70);
    slider.show();
    QVERIFY(QTest::qWaitForWindowExposed(&slider));
}

inline void click(QWidget *widget, int x, int y = 6)
{
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
}

inline QRect handleOf(const QWidget &widget, const QColor &color = kBlue)
{
    const QImage image = sliderOf(widget)->grab().toImage();
    if (color == kGrey) { // as the track is: look above it
        const QImage above = image.copy(0, 0, image.width(), image.height() / 2 - 2);
        return boxOf(above, color);
    }
    return boxOf(image, color);
}
