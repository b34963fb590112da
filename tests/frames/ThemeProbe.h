#pragma once

#include "foundation/Palette.h"
#include "Pixels.h"

#include <algorithm>

// What the tests of the themes share.

inline QImage grabOf(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

inline bool shows(const QImage &image, std::initializer_list<lumqt::Purpose> purposes)
{
    const QHash<QRgb, int> colors = colorsIn(image, image.rect());
    return std::all_of(purposes.begin(), purposes.end(), [&](lumqt::Purpose purpose) {
        return colors.contains(lumqt::themeColor(purpose).rgba());
    });
}
