#include "Theme.h"

#include "CBPLinkerButton.h"
#include "CBPPushBtn.h"
#include "CBPStyle.h"
#include "CButtonGroupBox.h"
#include "Util.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QVariant>

namespace theme {

namespace {

// The picture of a file, at the density that the screen needs.
QPixmap load(QString file)
{
    const qreal ratio = qApp->devicePixelRatio();
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

QPixmap tinted(const QString &file, const QColor &color)
{
    QPixmap result = load(file);
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(0, 0), result.size()), color);
    return result;
}

} // namespace

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

// Qt would turn it once more for each text that is written from right to left.
Qt::Alignment lineStart()
{
    return QApplication::isRightToLeft() ? Qt::AlignRight | Qt::AlignAbsolute : Qt::Alignment(Qt::AlignLeft);
}

QLabel *label(const QString &text, Weight weight, int pixelSize, const QColor &color, bool wrapped)
{
    auto *result = new QLabel(text);
    result->setFont(font(weight, pixelSize));
    result->setTextFormat(Qt::PlainText);
    result->setWordWrap(wrapped);
    result->setAlignment(lineStart() | Qt::AlignVCenter);
    QPalette palette = result->palette();
    palette.setColor(QPalette::WindowText, color);
    result->setPalette(palette);
    return result;
}

QVector<QColor> accents()
{
    return {kAccent, kAccentHovered, kAccentPressed, kAccentDisabled};
}

QVector<QColor> waitingGrounds()
{
    return {kAccent, kAccentHovered, kAccentPressed, QColor(201, 229, 252)};
}

QVector<QColor> waitingTexts()
{
    return {Qt::white, Qt::white, Qt::white, kAccentPressed};
}

CBPPushBtn *primaryButton(const QString &text, QWidget *parent)
{
    auto *result = new CBPPushBtn(text, parent);
    result->setBgColor(accents());
    result->setFrmColor(accents());
    result->setTextColor(QVector<QColor>(4, Qt::white));
    return result;
}

CButtonGroupBox *buttonGroup(bool exclusive)
{
    auto *group = new CButtonGroupBox(exclusive, nullptr);
    group->SetBgClr({Qt::white, kAccentHovered, kAccent, Qt::white});
    group->SetTextClr(groupTexts());
    return group;
}

QVector<QColor> groupTexts()
{
    return {kAccent, Qt::white, Qt::white, QColor(150, 158, 168)};
}

void lowerButtons(CButtonGroupBox *group)
{
    constexpr int kFrame = 1;
    const auto buttons = group->findChildren<CBPPushBtn *>();
    for (CBPPushBtn *button : buttons)
        button->setFixedHeight(kControlHeight - 2 * kFrame);
}

void setTintedIcon(CBPPushBtn *button, const QString &file, const QVector<QColor> &textColors, bool selected)
{
    constexpr QIcon::Mode modes[] = {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled};
    constexpr int kPressed = 2, kDisabled = 3;
    QIcon icon;
    for (int state = 0; state <= kDisabled; ++state) {
        // A selected button has the pressed look until it is disabled.
        const int look = selected && state != kDisabled ? kPressed : state;
        icon.addPixmap(tinted(file, textColors[look]), modes[state]);
    }
    // The button that sizes itself would do so anew.
    const bool fixed = button->minimumWidth() == button->maximumWidth();
    const int width = button->maximumWidth();
    button->setIcon(icon);
    if (fixed)
        button->setFixedWidth(width);
}

CBPLinkerButton *link(const QString &text, QWidget *parent)
{
    auto *result = new CBPLinkerButton(text, ENLinkerTypeHover, 0, parent);
    result->SetTextColor({kAccent, kAccentHovered, kAccentPressed, kCaption});
    return result;
}

void paintPanel(QPainter &painter, const QRect &rect)
{
    const qreal scale = painter.deviceTransform().m11();
    const qreal line = qMax(1, int(scale)) / scale;
    painter.fillRect(QRectF(rect), kLine);
    painter.fillRect(QRectF(rect).adjusted(line, line, -line, -line), kPanel);
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
    return load(picturePath(name));
}

void setUpLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    CBPStyle::Install(); // plain widgets look like the library's
    QPalette palette = QApplication::style()->standardPalette();
    const QColor faint(150, 158, 168);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, kInk);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, kCaption);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, kAccentTint);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, kInk);
    QApplication::setPalette(palette);
}

} // namespace theme
