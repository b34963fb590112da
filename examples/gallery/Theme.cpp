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

bool isDark(const QColor &color)
{
    return color.lightness() < 128;
}

// The file that stands in for one of res/ in the current theme, if there is one. A theme of an application's
// own has the pictures of that one of the library which its ground is like.
QString themed(const QString &file)
{
    const QString contrast = QStringLiteral("contrast");
    const QString folder = CBPTheme::current() == contrast                      ? contrast
                           : isDark(CBPTheme::color(CBPTheme::Purpose::Ground)) ? QStringLiteral("dark")
                                                                                : QString();
    const QString root = picturePath(QString());
    const QString own = root + folder + QLatin1Char('/') + file.mid(root.size());
    return !folder.isEmpty() && file.startsWith(root) && QFile::exists(own) ? own : file;
}

QPixmap tinted(const QString &file, const QColor &color)
{
    QPixmap result = load(file);
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(0, 0), result.size()), color);
    return result;
}

class Ground : public QWidget
{
public:
    explicit Ground(const Tone &tone) : m_tone(tone) { fill(this, tone); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (m_tone.color() == kGround.color())
            paintPanel(painter, rect(), m_tone);
    }

private:
    Tone m_tone;
};

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

QColor Tone::color() const
{
    const QString theme = CBPTheme::current();
    if (theme == QLatin1String("light") || (m_onSide && theme != QLatin1String("contrast") && isDark(kSide)))
        return QColor::fromRgba(m_light);
    const QColor from = CBPTheme::color(m_from);
    const QColor to = CBPTheme::color(m_to);
    const auto between = [this](int one, int other) { return one + (other - one) * m_percent / 100; };
    return QColor(between(from.red(), to.red()), between(from.green(), to.green()),
                  between(from.blue(), to.blue()), between(from.alpha(), to.alpha()));
}

QVector<QColor> colorsOf(const QVector<Tone> &tones)
{
    QVector<QColor> colors;
    for (const Tone &tone : tones)
        colors << tone;
    return colors;
}

QLabel *label(const QString &text, Weight weight, int pixelSize, const Tone &tone, bool wrapped)
{
    auto *result = new QLabel(text);
    result->setFont(font(weight, pixelSize));
    result->setTextFormat(Qt::PlainText);
    result->setWordWrap(wrapped);
    result->setAlignment(lineStart() | Qt::AlignVCenter);
    setTone(result, tone);
    return result;
}

void setTone(QWidget *widget, const Tone &tone)
{
    follow(widget, [widget, tone] {
        QPalette palette = widget->palette();
        palette.setColor(QPalette::WindowText, tone);
        widget->setPalette(palette);
    });
}

void setFieldTexts(QWidget *field)
{
    follow(field, [field] {
        constexpr Tone disabled{0xff677280, Purpose::DisabledText};
        QPalette palette = field->palette();
        palette.setColor(QPalette::Text, kInk);
        palette.setColor(QPalette::Disabled, QPalette::Text, disabled);
        palette.setColor(QPalette::PlaceholderText, kCaption);
        field->setPalette(palette);
    });
}

QVector<QColor> accents()
{
    return colorsOf({kAccent, kAccentHovered, kAccentPressed, kAccentDisabled});
}

QVector<QColor> onAccents()
{
    return colorsOf({kOnAccent, kOnAccent, kOnAccent, kOnAccentDisabled});
}

QVector<QColor> waitingGrounds()
{
    constexpr Tone waiting{0xffc9e5fc, Purpose::Ground, Purpose::Accent, 20};
    return colorsOf({kAccent, kAccentHovered, kAccentPressed, waiting});
}

QVector<QColor> waitingTexts()
{
    constexpr Tone waiting{0xff134d85, Purpose::Text};
    return colorsOf({kOnAccent, kOnAccent, kOnAccent, waiting});
}

CBPPushBtn *primaryButton(const QString &text, QWidget *parent)
{
    auto *result = new CBPPushBtn(text, parent);
    fillButton(result);
    return result;
}

CButtonGroupBox *buttonGroup(bool exclusive)
{
    auto *group = new CButtonGroupBox(exclusive, nullptr);
    follow(group, [group] {
        constexpr Tone hovered{0xff185d9f, Purpose::Hovered};
        const QVector<QColor> grounds = colorsOf({kGround, hovered, kAccent, kGround});
        group->SetBgClr(grounds); // of buttons to come
        group->SetTextClr(groupTexts());
        const auto buttons = group->findChildren<CBPPushBtn *>();
        for (CBPPushBtn *button : buttons) {
            button->setBgColor(grounds);
            button->setTextColor(groupTexts());
        }
    });
    return group;
}

QVector<QColor> groupTexts()
{
    constexpr Tone hovered{0xffffffff, Purpose::Text};
    return colorsOf({kAccent, hovered, kOnAccent, kFaint});
}

void lowerButtons(CButtonGroupBox *group)
{
    constexpr int kFrame = 1;
    const auto buttons = group->findChildren<CBPPushBtn *>();
    for (CBPPushBtn *button : buttons)
        button->setFixedHeight(kControlHeight - 2 * kFrame);
}

KeptWidth::KeptWidth(QWidget *button)
    : m_button(button), m_width(button->minimumWidth() == button->maximumWidth() ? button->maximumWidth() : 0)
{
}

KeptWidth::~KeptWidth()
{
    if (m_width > 0)
        m_button->setFixedWidth(m_width);
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
    const KeptWidth kept(button);
    button->setIcon(icon);
}

QIcon icon(const QString &name)
{
    const QString file = themed(picturePath(name));
    QIcon result(file);
    if (file != picturePath(name)) // Qt would make it from the application's palette
        result.addPixmap(tinted(file, kFaint), QIcon::Disabled);
    return result;
}

CBPLinkerButton *link(const QString &text, QWidget *parent)
{
    auto *result = new CBPLinkerButton(text, ENLinkerTypeHover, 0, parent);
    follow(result, [result] {
        result->SetTextColor(colorsOf({kAccent, kAccentHovered, kAccentPressed, kCaption}));
    });
    return result;
}

void paintPanel(QPainter &painter, const QRect &rect, const QColor &ground)
{
    const qreal scale = painter.deviceTransform().m11();
    const qreal line = qMax(1, int(scale)) / scale;
    painter.fillRect(QRectF(rect), kLine);
    painter.fillRect(QRectF(rect).adjusted(line, line, -line, -line), ground);
}

void fill(QWidget *widget, const Tone &tone)
{
    widget->setAutoFillBackground(true);
    follow(widget, [widget, tone] {
        QPalette palette = widget->palette();
        palette.setColor(QPalette::Window, tone);
        widget->setPalette(palette);
    });
}

QWidget *ground(const Tone &tone)
{
    return new Ground(tone);
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
    return load(themed(picturePath(name)));
}

void setUpLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    CBPStyle::Install(); // plain widgets look like the library's
    QPalette palette = QApplication::style()->standardPalette();
    // As the application's, it is the same in each theme; the windows of the library have the theme's.
    const QColor ink(34, 42, 62), accent(31, 113, 191);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, ink);
        palette.setColor(QPalette::Disabled, role, QColor(150, 158, 168));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(103, 114, 128));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(232, 241, 250));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, ink);
    QApplication::setPalette(palette);
    follow(qApp, [] { CBPTheme::givePalette(CBPTheme::current() != QLatin1String("light")); });
}

} // namespace theme
