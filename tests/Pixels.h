#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QRect>
#include <QtTest>
#include <QWidget>

// The scalings that every picture has to hold at, as rows of a column "ratio".
inline void scalings()
{
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("100 per cent") << 1.0;
    QTest::newRow("150 per cent") << 1.5;
    QTest::newRow("200 per cent") << 2.0;
}

// The picture of a widget alone, on a ground of one colour. A ratio of 0 is that of the screen.
inline QImage pictureOf(QWidget &widget, qreal ratio = 0, const QColor &ground = Qt::white)
{
    if (qFuzzyIsNull(ratio))
        ratio = widget.devicePixelRatioF();
    QImage image(widget.size() * ratio, QImage::Format_ARGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(ground);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// On transparent ground, a pixel to a logical one.
inline QImage drawn(QWidget &widget)
{
    return pictureOf(widget, 1, Qt::transparent);
}

// Of a picture, at a point in logical pixels.
inline QColor pixelOf(const QImage &image, int x, int y)
{
    return image.pixelColor(qRound(x * image.devicePixelRatio()), qRound(y * image.devicePixelRatio()));
}

// Of a widget as it is grabbed.
inline QColor grabbedAt(QWidget &widget, int x, int y)
{
    return pixelOf(widget.grab().toImage(), x, y);
}

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

// The smallest rectangle around all pixels that are darker than `lightest`: text, black or antialiased.
inline QRect inkOf(const QImage &image, int lightest = 100)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < lightest)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

// How many pixels of a part of a picture (of 32 bits) have which colour.
inline QHash<QRgb, int> colorsIn(const QImage &image, const QRect &part)
{
    QHash<QRgb, int> counts;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int first = part.left(), x = first; x <= part.right(); first = x) {
            while (x <= part.right() && line[x] == line[first])
                ++x;
            counts[line[first]] += x - first;
        }
    }
    return counts;
}

// For the message of a QVERIFY2: what QTest::toString() makes there, nobody frees.
inline QByteArray wordsOf(const QRect &box)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(box.x())
        .arg(box.y())
        .arg(box.width())
        .arg(box.height())
        .toUtf8();
}
