#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

// The smallest rectangle around all pixels of `color`; empty when there is none.
inline QRect boxOf(const QImage &image, const QColor &color)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}
