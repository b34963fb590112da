#pragma once

#include <QColor>
#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

// Picture files that tests make.

inline QString denseTwin(const QString &file)
{
    return QString(file).insert(file.size() - 4, QStringLiteral("@2x"));
}

// A picture of one colour: a drawing, or pixels with their dense twin.
inline void savePicture(const QString &file, const QSize &size, const QColor &color)
{
    if (file.endsWith(QLatin1String(".svg"))) {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='%1' height='%2'>"
                                 "<rect width='%1' height='%2' fill='%3'/></svg>")
                      .arg(QString::number(size.width()), QString::number(size.height()), color.name())
                      .toLatin1());
        return;
    }
    for (const int scale : {1, 2}) {
        QImage image(size * scale, QImage::Format_ARGB32);
        image.fill(color);
        QVERIFY(image.save(scale == 1 ? file : denseTwin(file), "PNG"));
    }
}

// Of each colour one, by a name with its index: "a%1.png".
inline QVector<QString> savePictures(const QTemporaryDir &folder, const char *name, const QSize &size,
                                     const QVector<QColor> &colors)
{
    QVector<QString> files;
    for (const QColor &color : colors) {
        files << folder.filePath(QString::fromLatin1(name).arg(files.size()));
        savePicture(files.last(), size, color);
    }
    return files;
}

// Files that changed just now are read again at each look; one at rest for a while is not.
inline void makeOld(const QString &path)
{
    const QDateTime past = QDateTime::currentDateTime().addSecs(-3600);
    for (const QString &name : {path, denseTwin(path)}) {
        QFile file(name);
        if (file.exists() && file.open(QIODevice::ReadWrite))
            QVERIFY(file.setFileTime(past, QFileDevice::FileModificationTime));
    }
}
