#include "Theme.h"

#include "Util.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QLabel>
#include <QPixmap>
#include <QVariant>

namespace theme {

QFont font(Weight weight, int pixelSize)
{
    static const char *const keys[] = {"font_light", "font_normal", "font_semibold", "font_bold"};
    QVariant family;
    // The gallery's own texts are English.
    Util::readIni(QStringLiteral("English"), QLatin1String(keys[weight]), family,
                  Util::getLumResFullPath(QStringLiteral("langind.ini")));
    QFont result(family.toString().isEmpty() ? QStringLiteral("Segoe UI") : family.toString());
    result.setPixelSize(pixelSize);
    return result;
}

QLabel *label(const QString &text, Weight weight, int pixelSize, const QColor &color, bool wrapped)
{
    auto *result = new QLabel(text);
    result->setFont(font(weight, pixelSize));
    result->setTextFormat(Qt::PlainText);
    result->setWordWrap(wrapped);
    QPalette palette = result->palette();
    palette.setColor(QPalette::WindowText, color);
    result->setPalette(palette);
    return result;
}

void fill(QWidget *widget, const QColor &color)
{
    widget->setAutoFillBackground(true);
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, color);
    widget->setPalette(palette);
}

QString picturePath(const QString &name)
{
    return Util::getResFullPath(QStringLiteral("../res/") + name);
}

QStringList spinnerFrames()
{
    constexpr int kFrames = 24;
    QStringList files;
    for (int i = 0; i < kFrames; ++i)
        files << picturePath(QStringLiteral("loading/loading%1.png").arg(i, 2, 10, QLatin1Char('0')));
    return files;
}

QPixmap picture(const QString &name)
{
    const qreal ratio = qApp->devicePixelRatio();
    QString file = picturePath(name);
    const QFileInfo info(file);
    const auto twin = [&info](qreal density) {
        return info.dir().filePath(
            QStringLiteral("%1@%2x.%3").arg(info.completeBaseName()).arg(density).arg(info.suffix()));
    };
    if (ratio > 1.0 && ratio < 2.0 && QFile::exists(twin(ratio))) {
        QPixmap exact(twin(ratio));
        exact.setDevicePixelRatio(ratio);
        return exact;
    }
    if (ratio > 1.0 && QFile::exists(twin(2)))
        file = twin(2); // Qt reads the density from the name
    QImageReader reader(file);
    if (info.suffix() == QLatin1String("svg"))
        reader.setScaledSize(reader.size() * ratio);
    QPixmap result = QPixmap::fromImageReader(&reader);
    if (info.suffix() == QLatin1String("svg"))
        result.setDevicePixelRatio(ratio);
    return result;
}

} // namespace theme
